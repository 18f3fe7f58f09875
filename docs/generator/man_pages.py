#!/usr/bin/env python3
"""Writes section 3 of the man pages from include/jt.h: jt(3) from its overview and its records, a page for each
further chapter, and for each jt_ call a pointer to its page.

  man_pages.py SOURCE_DIRECTORY OUTPUT_DIRECTORY"""

import os
import re
import sys
import textwrap
import time
from pathlib import Path

import jt_header

# The pages of the chapters, in their order, with what they are about.
PAGES = {
    "jt": "read and write SIL job templates",
    "jt_sessions": "sessions, errors and texts of jt",
    "jt_templates": "create, decode, encode and destroy SIL templates",
    "jt_values": "typed values outside of a template",
    "jt_services": "services and invocations of a template",
    "jt_attributes": "read the attributes of a template",
    "jt_changes": "change the attributes of a template",
    "jt_statuses": "statuses of services, invocations and attributes",
    "jt_tree": "the tree beneath the calls of jt",
    "jt_types": "types and type tables of jt",
}


def escaped(line):
    line = re.sub(r"(<[?!])", r"\1\\&", line.replace("\\", "\\e"))  # no end of a sentence
    return "\\&" + line if line[:1] in (".", "'") else line


def wrapped(sentence):
    """Names of calls are marked, each on a line of its own with the punctuation around it."""
    lines = []
    parts = re.split(r"(?:^|(?<= ))(\(?)(\w+)\(\)((?:[.,;:)]|'s)*)(?: |$)", sentence)
    for plain, opening, name, closing in zip(*[iter(parts + ["", "", ""])] * 4):
        lines += [escaped(line) for line in textwrap.wrap(plain, 79, break_long_words=False)]
        if name:
            around = [".Fn", opening, name, *re.findall(r"[.,;:)]", closing)]
            lines.append(" ".join(word for word in around if word))
    return lines


def text_lines(text):
    """A sentence begins on a line of its own."""
    sentences = re.split(r"(?<=[.:;]) (?=[A-Z\"(\[])|(?<=\.\)) (?=[A-Z])", text)
    return [line for sentence in sentences for line in wrapped(sentence)]


def layout_lines(text):
    """As it stands, but for what all of its lines have in front."""
    lines = textwrap.dedent(text).splitlines()
    return [".Bd -literal"] + [escaped(line) for line in lines] + [".Ed"]


def body_lines(blocks):
    lines = []
    for block in blocks:
        if block.is_layout:
            lines += layout_lines(block.text)
        else:
            lines += ([".Pp"] if lines else []) + text_lines(block.text)
    return lines


def overview_lines(blocks):
    """A paragraph that begins with a word or two and a full stop gets these as its heading."""
    lines = []
    for block in blocks:
        head = None if block.is_layout else re.match(r"([A-Z][\w ]{2,30})\. (.*)", block.text)
        if head:
            lines += [f".Ss {head[1]}"] + text_lines(head[2])
        else:
            lines += ([] if block.is_layout else [".Pp"]) + body_lines([block])
    return lines


def quoted(argument):
    return '"' + argument.replace('"', '""') + '"'


def prototype_lines(function):
    arguments = [f".Fa {quoted(parameter)}" for parameter in function.parameters]
    return [f".Ft {quoted(function.result)}", f".Fo {function.name}"] + arguments + [".Fc"]


def functions_of(item):
    return [function for function in map(jt_header.function_of, item.declarations) if function]


def source_lines(item):
    """Declarations that are no functions, as the header has them."""
    others = [
        part + (f" /* {trailing} */" if trailing else "")
        for part, trailing in zip(item.declarations, item.trailing)
        if not jt_header.function_of(part)
    ]
    return layout_lines("\n".join(others).replace("JT_API ", "")) if others else []


def item_lines(item):
    functions = functions_of(item)
    if not functions:
        return [".Pp"] + body_lines(item.blocks) + source_lines(item)
    heads = [f".It Fn {function.name}" for function in functions]
    return [".Bl -tag -width Ds -compact"] + heads + body_lines(item.blocks) + [".El", ".Pp"]


def tidy(lines):
    """No paragraph breaks where something else breaks already."""
    kept = []
    for line in lines:
        if line == ".Pp" and (not kept or re.match(r"\.(Pp|Sh|Ss)", kept[-1])):
            continue
        if re.match(r"\.(Sh|Ss)", line) and kept and kept[-1] == ".Pp":
            kept.pop()
        kept.append(line)
    return kept


def synopsis_lines(chapter):
    functions = [function for item in chapter.items for function in functions_of(item)]
    return [".Sh SYNOPSIS", ".In jt.h"] + [line for function in functions for line in prototype_lines(function)]


def see_also_lines(page):
    others = sorted(f"{name} 3" for name in PAGES if name != page)
    return [".Sh SEE ALSO"] + [f".Xr {other} ," for other in others[:-1]] + [f".Xr {others[-1]}"]


def page_of(page, date, version, chapter, description):
    names = [page] + [function.name for item in chapter.items for function in functions_of(item)]
    lines = [f".Dd {date}", f".Dt {page.upper()} 3", f".Os jt {version}", ".Sh NAME"]
    lines += [f".Nm {name} ," for name in names[:-1]] + [f".Nm {names[-1]}", f".Nd {PAGES[page]}"]
    lines += [".Sh LIBRARY", "jt (libjt, \\-ljt)"] + synopsis_lines(chapter) + [".Sh DESCRIPTION"]
    return "\n".join(tidy(lines + description + see_also_lines(page))) + "\n"


def date_of(changelog):
    """The day of the release; before it, today."""
    released = re.search(r"^## \[[\d.]+\] - (\d{4}-\d\d-\d\d)$", changelog, re.M)
    seconds = int(os.environ.get("SOURCE_DATE_EPOCH", time.time()))
    day = time.strptime(released[1], "%Y-%m-%d") if released else time.gmtime(seconds)
    return time.strftime("%B ", day) + str(day.tm_mday) + time.strftime(", %Y", day)


def write_pointers(output, page, chapter):
    for item in chapter.items:
        for function in functions_of(item):
            if function.name.startswith("jt_"):
                (output / f"{function.name}.3").write_text(f".so man3/{page}.3\n")


def main():
    source, output = Path(sys.argv[1]), Path(sys.argv[2])
    header = (source / "include/jt.h").read_text(encoding="ascii")
    date = date_of((source / "CHANGELOG.md").read_text(encoding="utf-8"))
    version = ".".join(re.findall(r"#define JT_VERSION_\w+ (\d+)", header))
    for page, chapter in zip(PAGES, jt_header.chapters_of(header), strict=True):
        description = body_lines(chapter.blocks)
        if page == "jt":
            description = overview_lines(jt_header.overview_of(header)) + [f".Ss {chapter.title}"] + description
        description += [".Pp"] + [line for item in chapter.items for line in item_lines(item)]
        (output / f"{page}.3").write_text(page_of(page, date, version, chapter, description), encoding="ascii")
        write_pointers(output, page, chapter)


main()
