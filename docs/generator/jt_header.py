"""Reads include/jt.h as what it is: a manual in chapters. A chapter is an introduction and items; an item is a
comment with the declarations directly below it. Comments are paragraphs, and indented blocks whose layout
counts."""

import re
from dataclasses import dataclass, field


@dataclass
class Block:
    text: str  # of a paragraph, in one line; of a layout, line by line
    is_layout: bool = False


@dataclass
class Item:
    blocks: list
    declarations: list  # source text of each, with the comments inside it
    trailing: list  # the comment behind each, or ""


@dataclass
class Chapter:
    title: str
    blocks: list
    items: list = field(default_factory=list)


def comment_lines(comment):
    """The lines of a comment without its marks."""
    body = re.sub(r"^/\*+|\*/$", "", comment.strip())
    return [re.sub(r"^\s*\*( |$)", "", line).rstrip() for line in body.splitlines()]


def blocks_of(lines):
    """Paragraphs and layouts; an empty line between two indented lines belongs to the layout."""
    blocks = []
    for part in re.split(r"\n\s*\n", "\n".join(lines).strip("\n")):
        is_layout = part.startswith("  ")
        if is_layout and blocks and blocks[-1].is_layout:
            blocks[-1].text += "\n\n" + part
        elif is_layout:
            blocks.append(Block(part, True))
        else:
            blocks += split_at_layout(part)
    return [block for block in blocks if block.text]


def split_at_layout(part):
    """A layout may follow the line that announces it without an empty line."""
    lines = part.splitlines()
    first = next((i for i, line in enumerate(lines) if line.startswith("  ")), len(lines))
    paragraph = Block(" ".join(line.strip() for line in lines[:first]))
    return [paragraph] + ([Block("\n".join(lines[first:]), True)] if first < len(lines) else [])


# A chapter's banner, any other comment, or a declaration with the comment behind it.
PIECE = re.compile(
    r"/\*(?P<banner> [-=]{4} .*?)\*/"
    r"|(?P<comment>/\*.*?\*/)\n"
    r"|(?P<declaration>static inline [^}]*\}|[^\s#/}](?:[^;{]|\{(?:/\*.*?\*/|[^}])*\})*;)"
    r"(?P<trailing>[ ]+/\*[^\n]*\*/)?"
    r"|(?P<blank>\n[ \t]*\n)"
    r"|(?P<directive>#[^\n]*(?:\\\n[^\n]*)*)"
    r"|(?P<other>\}|\s+)",
    re.S,
)


def overview_of(source):
    """The comment at the top, as blocks."""
    return blocks_of(comment_lines(re.match(r"/\*.*?\*/", source, re.S).group()))


def banner_chapter(text):
    title, _, rest = text.strip().partition("\n")
    title = re.sub(r"^[-=]{4} | [-=]+$", "", title)
    return Chapter(title, blocks_of(comment_lines("/*\n" + rest + "*/")))


def chapters_of(source):
    """The chapters in their order."""
    chapters = []
    open_item = None
    at = re.search(r"/\* ---- ", source).start()
    while at < len(source):
        match = PIECE.match(source, at)
        if not match:
            raise ValueError("cannot read jt.h at: " + source[at : at + 60])
        at = match.end()
        if match["banner"]:
            chapters.append(banner_chapter(match["banner"]))
        elif match["comment"]:
            open_item = Item(blocks_of(comment_lines(match["comment"])), [], [])
            chapters[-1].items.append(open_item)
        elif match["declaration"]:
            if open_item is None:
                raise ValueError("without a comment: " + match["declaration"])
            open_item.declarations.append(match["declaration"])
            trailing = match["trailing"] or ""
            open_item.trailing.append(" ".join(comment_lines(trailing)).strip() if trailing else "")
        elif match["blank"]:
            open_item = None
    return chapters


@dataclass
class Function:
    result: str
    name: str
    parameters: list


def function_of(declaration):
    """The parts of a function's declaration; None for anything else."""
    text = " ".join(declaration.split())
    match = re.match(r"(?:JT_API|static inline) ([\w ]+?[ *]+)(\w+)\(([^()]*)\)\s*[;{]", text)
    if not match:
        return None
    return Function(match[1].strip(), match[2], [part.strip() for part in match[3].split(",")])
