#!/usr/bin/env python3
"""Writes section 3 of the man pages from what Doxygen reads in include/jt.h: jt(3) from what holds for every call
and the records, a page for each further chapter, and for each jt_ call a pointer to its page.

  man_pages.py CHANGELOG VERSION XML_DIRECTORY OUTPUT_DIRECTORY"""

import os
import re
import sys
import textwrap
import time
import xml.etree.ElementTree as ElementTree
from pathlib import Path

# The chapters with what their pages are about; the page of "records" is jt(3).
CHAPTERS = {
    "records": "read and write SIL job templates",
    "sessions": "sessions, errors and texts of jt",
    "templates": "create, decode, encode and destroy SIL templates",
    "values": "typed values outside of a template",
    "services": "services and invocations of a template",
    "attributes": "read the attributes of a template",
    "changes": "change the attributes of a template",
    "statuses": "statuses of services, invocations and attributes",
    "tree": "the tree beneath the calls of jt",
    "types": "types and type tables of jt",
}
TAGS = "-tag -width Ds -compact"
BLOCKS = ("table", "programlisting", "itemizedlist", "parameterlist", "simplesect")


def page_name(chapter):
    return "jt" if chapter == "records" else "jt_" + chapter


def escaped(line):
    line = re.sub(r"(<[?!])", r"\1\\&", line.replace("\\", "\\e"))  # no end of a sentence
    return "\\&" + line if line[:1] in (".", "'") else line


def text_of(element):
    """Code of several words is in quotes; blanks are elements of their own in longer code."""
    if element.tag == "sp":
        return " "
    text = (element.text or "") + "".join(text_of(child) + (child.tail or "") for child in element)
    return f'"{text}"' if element.tag == "computeroutput" and " " in text else text


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
    sentences = re.split(r"(?<=[.:;]) (?=[A-Z\"(\[])|(?<=\.\)) (?=[A-Z])", " ".join(text.split()))
    return [line for sentence in sentences for line in wrapped(sentence)]


def literal_lines(lines):
    return [".Bd -literal"] + [escaped(line.rstrip()) for line in lines] + [".Ed"]


def table_lines(table):
    """Columns as wide as they need; a last column that is too long goes on below itself."""
    rows = [[" ".join(text_of(cell).split()) for cell in row.findall("entry")] for row in table.findall("row")]
    widths = [max(map(len, column)) for column in zip(*rows)][:-1]
    indent = sum(widths) + 2 * len(widths)
    lines = []
    for row in rows:
        head = "".join(cell.ljust(width) + "  " for cell, width in zip(row, widths))
        last = textwrap.wrap(row[-1], max(79 - indent, 24), break_long_words=False) or [""]
        lines += [head + last[0]] + [" " * indent + more for more in last[1:]]
    return literal_lines(lines)


def list_lines(kind, items):
    return [f".Bl {kind}"] + [line for head, lines in items for line in [f".It {head}".rstrip(), *lines]] + [".El"]


def part_lines(element):
    if element.tag == "table":
        return table_lines(element)
    if element.tag == "programlisting":
        return literal_lines(text_of(line) for line in element.findall("codeline"))
    if element.tag == "itemizedlist":
        return list_lines("-bullet", [("", block_lines(item)) for item in element])
    if element.tag == "parameterlist":
        items = [(item.find("parameternamelist"), item.find("parameterdescription")) for item in element]
        return list_lines(TAGS, [("Fa " + text_of(name).strip(), block_lines(text)) for name, text in items])
    if element.tag == "simplesect":
        title = element.findtext("title") or "Returns"
        return list_lines(TAGS, [("Em " + title, [line for para in element.findall("para") for line in block_lines(para)])])
    return block_lines(element)


def block_lines(element):
    """A description: its paragraphs, and what stands inside them."""
    lines, text = [], element.text or ""
    for child in element:
        if child.tag in BLOCKS or child.tag == "para":
            lines += text_lines(text) + ([".Pp"] if child.tag == "para" and (lines or text.strip()) else [])
            lines += part_lines(child)
            text = child.tail or ""
        else:
            text += text_of(child) + (child.tail or "")
    return lines + text_lines(text)


def overview_lines(group):
    """A paragraph that begins with a sentence in bold gets that as its heading."""
    lines = []
    for para in group.find("detaileddescription"):
        head = para.find("bold")
        if head is not None and text_of(head).endswith("."):
            lines += [f".Ss {text_of(head)[:-1]}"]
            para.text = head.tail
            para.remove(head)
        lines += [".Pp"] + block_lines(para)
    return lines


def quoted(argument):
    return '"' + argument.replace('"', '""') + '"'


def prototype_lines(function):
    parameters = [(text_of(p.find("type")), p.findtext("declname") or "") for p in function.findall("param")]
    arguments = [(kind if kind.endswith("*") else kind + " ") + name for kind, name in parameters]
    arguments = [f".Fa {quoted(argument.strip().replace(' * ', ' *'))}" for argument in arguments] or ['.Fa "void"']
    result = text_of(function.find("type")).removeprefix("static ").strip()
    return [f".Ft {quoted(result)}", f".Fo {function.findtext('name')}"] + arguments + [".Fc"]


def description_lines(member):
    return block_lines(member.find("briefdescription")) + block_lines(member.find("detaileddescription"))


def member_item(member):
    """A call, or what is none: constants with their values, variables and types."""
    values = [(f"Dv {v.findtext('name')} {v.findtext('initializer')}", description_lines(v)) for v in member.findall("enumvalue")]
    is_call = member.get("kind") == "function"
    head = f"Fn {member.findtext('name')}" if is_call else member.findtext("definition") or "Constants"
    return head, description_lines(member) + (list_lines(TAGS, values) if values else [])


def tidy(lines):
    """No paragraph breaks where something else breaks already."""
    kept = []
    for line in lines:
        if line == ".Pp" and (not kept or re.match(r"\.(Pp|Sh|Ss|It|Ed|El)", kept[-1])):
            continue
        if re.match(r"\.(Sh|Ss|Bd|Bl|It|El)", line) and kept and kept[-1] == ".Pp":
            kept.pop()
        kept.append(line)
    return kept


def see_also_lines(page):
    others = sorted(f"{page_name(chapter)} 3" for chapter in CHAPTERS if page_name(chapter) != page)
    return [".Sh SEE ALSO"] + [f".Xr {other} ," for other in others[:-1]] + [f".Xr {others[-1]}"]


def page_of(chapter, members, head, description):
    page = page_name(chapter)
    functions = [member for member in members if member.get("kind") == "function"]
    names = [page] + [function.findtext("name") for function in functions]
    lines = [head[0], f".Dt {page.upper()} 3", head[1], ".Sh NAME"]
    lines += [f".Nm {name} ," for name in names[:-1]] + [f".Nm {names[-1]}", f".Nd {CHAPTERS[chapter]}"]
    lines += [".Sh LIBRARY", "jt (libjt, \\-ljt)", ".Sh SYNOPSIS", ".In jt.h"]
    lines += [line for function in functions for line in prototype_lines(function)]
    lines += [".Sh DESCRIPTION"] + description + list_lines("-tag -width Ds", map(member_item, members)) + see_also_lines(page)
    return "\n".join(tidy(lines)) + "\n"


def date_of(changelog):
    """The day of the release; before it, today."""
    released = re.search(r"^## \[[\d.]+\] - (\d{4}-\d\d-\d\d)$", changelog, re.M)
    seconds = int(os.environ.get("SOURCE_DATE_EPOCH", time.time()))
    day = time.strptime(released[1], "%Y-%m-%d") if released else time.gmtime(seconds)
    return time.strftime("%B ", day) + str(day.tm_mday) + time.strftime(", %Y", day)


def main():
    changelog, version, xml, output = sys.argv[1:]
    head = [f".Dd {date_of(Path(changelog).read_text(encoding='utf-8'))}", f".Os jt {version}"]

    def read(name):
        return ElementTree.parse(Path(xml) / f"{name}.xml").find("compounddef")

    for chapter in CHAPTERS:
        group = read("group__" + chapter)
        members = group.findall("sectiondef/memberdef")
        description = description_lines(group)
        if chapter == "records":
            overview = description_lines(read("jt_8h")) + overview_lines(read("group__conventions"))
            description = overview + [f".Ss {group.findtext('title')}"] + description
        (Path(output) / f"{page_name(chapter)}.3").write_text(page_of(chapter, members, head, description), encoding="ascii")
        for member in members:
            if member.findtext("name").startswith("jt_") and member.get("kind") == "function":
                (Path(output) / f"{member.findtext('name')}.3").write_text(f".so man3/{page_name(chapter)}.3\n")


main()
