#!/usr/bin/env python3
"""What Doxygen reads in place of a file: the public header with its chapters as groups and its plain comments
as Doxygen's; the C++ header with its chapters as groups; a page with a name to link to, with figures from the
measurements, and without links to what is not in the manual.

  doxygen_filter.py FILE"""

import re
import sys
from pathlib import Path

import cpp_header
import jt_header

# The names of the chapters' groups, in their order.
GROUPS = [
    "records", "sessions", "templates", "values", "services", "attributes", "changes", "statuses", "tree", "types",
]


def quoted_as_code(text):
    """Quoted texts are literal: they become code. Everything else is plain."""
    parts = re.split(r'("[^"]*")', text)
    return "".join(
        f"``{part}``" if part.startswith('"') and len(part) > 1 else re.sub(r"([\\@<>#%*&])", r"\\\1", part)
        for part in parts
    )


def paragraph(text):
    """The depth of a call and the heads of the overview stand out."""
    depth = re.match(r"((?:\[\w+\](?:, )?)+) (.*)", text, re.S)
    if depth:
        return f"**{depth[1]}** " + quoted_as_code(depth[2])
    return quoted_as_code(text)


def rendered(blocks):
    return "\n\n".join(
        f"\\verbatim\n{block.text}\n\\endverbatim" if block.is_layout else paragraph(block.text) for block in blocks
    )


def comment(text, mark="/**"):
    return f"{mark} {text} */"


def overview(blocks):
    """Paragraphs that begin with a word or two and a full stop get these as their heading."""
    lines = []
    for block in blocks:
        head = None if block.is_layout else re.match(r"([A-Z][\w ]{2,30})\. (.*)", block.text, re.S)
        if head:
            lines.append(f"\\par {head[1]}\n" + quoted_as_code(head[2]))
        else:
            lines.append(rendered([block]))
    return "\n\n".join(lines)


def with_inner_comments(declaration):
    """Comments of members and enumerators: behind what they describe, or above it."""
    def convert(match):
        text = quoted_as_code(" ".join(" ".join(jt_header.comment_lines(match[2])).split()))
        return match[1] + comment(text, "/**" if match[1].strip(" ") in ("", "\n") else "/**<")

    return re.sub(r"([^\n]*?)(/\*.*?\*/)", convert, declaration, flags=re.S)


def listed(text, declarations, comments):
    """Many declarations below one text."""
    lines = [part + comment(behind, " /**<") for part, behind in zip(declarations, comments)]
    return "\n".join([comment("\\name\n" + text + "\n\\{"), *lines, comment("\\}")])


def item(entry):
    text = rendered(entry.blocks)
    if any(entry.trailing):
        return listed(text, entry.declarations, [f"The types of `{service}`." for service in entry.trailing])
    if len(entry.declarations) > 5:
        return listed(text, entry.declarations, ["Its number of rows."] * len(entry.declarations))
    return "\n".join(comment(text) + "\n" + with_inner_comments(part) for part in entry.declarations)


def group(name, title, text, body):
    opening = comment(f"\\defgroup {name} {title}\n\\details {text}\n\\{{")
    return "\n".join([opening, body, comment("\\}")])


def header(source):
    blocks = jt_header.overview_of(source)
    start = next(i for i, block in enumerate(blocks) if block.text.isupper())
    versions = re.search(r"/\* ([^*]*) \*/\n((?:#define JT_VERSION_\w+ \d+\n)+)", source)
    macros = "\n".join(comment(versions[1]) + "\n" + line for line in versions[2].splitlines())
    parts = [
        comment("\\file\n" + rendered(blocks[:start])),
        macros,
        group("conventions", "What holds for every call", overview(blocks[start + 1 :]), ""),
    ]
    chapters = jt_header.chapters_of(source)
    for name, chapter in zip(GROUPS, chapters, strict=True):
        body = "\n\n".join(item(entry) for entry in chapter.items)
        parts.append(group(name, chapter.title, rendered(chapter.blocks), body))
    return "\n\n".join(parts)


def figure(performance, place):
    """What a table of docs/performance.md has: {{first heading / row / column}}."""
    table, row, column = [part.strip() for part in place.split(" / ")]
    columns = []
    for line in performance.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if cells[0] == table:
            columns = cells
        if cells[0] == row and column in columns:
            return cells[columns.index(column)]
    raise ValueError("docs/performance.md has no " + place)


def with_figures(source, path):
    performance = (path.parent / "performance.md").read_text(encoding="ascii") if "{{" in source else ""
    return re.sub(r"\{\{(.*?)\}\}", lambda match: figure(performance, match[1]), source)


def prose(text):
    """A link that leads out of the manual into the sources stays as its text. A quote in code would end the code
    where it is between single marks."""
    text = re.sub(r"(?<!!)\[([^\]]+)\]\((?!https?:|#|[\w/.]*\.md\b)[^)]*\)", r"`\1`", text)
    return re.sub(r"(?<!`)`([^`\n]*'[^`\n]*)`(?!`)", r"``\1``", text)


def page(source, name):
    parts = re.split(r"(^```.*?^```)", source, flags=re.M | re.S)
    text = "".join(part if part.startswith("```") else prose(part) for part in parts)
    return re.sub(r"\A# ([^{\n]*)\n", rf"# \1 {{#{name}}}\n", text)


def main():
    path = Path(sys.argv[1])
    source = path.read_text(encoding="ascii")
    if path.suffix == ".h":
        print(header(source))
    elif path.suffix == ".hpp":
        print(cpp_header.shown(source))
    else:
        print(page(with_figures(source, path), path.stem.lower()))


main()
