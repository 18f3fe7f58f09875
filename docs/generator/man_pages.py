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

# What the pages are about. Each is the chapter of its name, jt(3) the one on records.
PAGES = {
    "jt": "read and write SIL job templates",
    "jt_sessions": "sessions, errors and texts of jt",
    "jt_templates": "create, decode, encode and destroy SIL templates",
    "jt_values": "typed values outside of a template",
    "jt_services": "services and invocations of a template",
    "jt_attributes": "read the attributes of a template",
    "jt_changes": "change the attributes of a template",
    "jt_statuses": "statuses of services, invocations and attributes",
    "jt_elements": "any element of a template by handle",
    "jt_element_changes": "change any element of a template by handle",
    "jt_catalogue": "services, types and names that jt knows",
    "jt_source": "places and findings in a SIL text",
    "jt_store": "reports, memory and texts beneath the calls of jt",
    "jt_tree": "the tree beneath the calls of jt",
    "jt_types": "types and type tables of jt",
}
TAGS = "-tag -width Ds -compact"
BLOCKS = ("table", "programlisting", "itemizedlist", "parameterlist", "simplesect")


def escaped(line):
    line = re.sub(r"(<[?!])", r"\1\\&", line.replace("\\", "\\e"))  # no end of a sentence
    return "\\&" + line if line[:1] in (".", "'") else line


def text_of(element):
    """Code of several words is in quotes; blanks are elements of their own in longer code."""
    if element.tag == "sp":
        return " "
    text = (element.text or "") + "".join(text_of(child) + (child.tail or "") for child in element)
    return f'"{text}"' if element.tag == "computeroutput" and " " in text else text


def text_lines(text):
    """A sentence begins on a line of its own, and so does the name of a call, with the punctuation around it."""
    lines = []
    for sentence in re.split(r"(?<=[.:;]) (?=[A-Z\"(\[])|(?<=\.\)) (?=[A-Z])", " ".join(text.split())):
        parts = re.split(r"(?:^|(?<= ))(\(?)(\w+)\(\)((?:[.,;:)]|'s)*)(?: |$)", sentence)
        for plain, opening, name, closing in zip(*[iter(parts + ["", "", ""])] * 4):
            lines += [escaped(line) for line in textwrap.wrap(plain, 79, break_long_words=False)]
            around = [".Fn", opening, name, *re.findall(r"[.,;:)]", closing)]
            lines += [" ".join(word for word in around if word)] if name else []
    return lines


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
        lines = [line for para in element.findall("para") for line in block_lines(para)]
        return list_lines(TAGS, [("Em " + (element.findtext("title") or "Returns"), lines)])
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


def prototype_lines(function):
    parameters = [(text_of(p.find("type")), p.findtext("declname") or "") for p in function.findall("param")]
    arguments = [(kind if kind.endswith("*") else kind + " ") + name for kind, name in parameters]
    arguments = [f'.Fa "{argument.strip()}"' for argument in arguments] or ['.Fa "void"']
    result = text_of(function.find("type")).removeprefix("static ").strip()
    return [f'.Ft "{result}"', f".Fo {function.findtext('name')}"] + arguments + [".Fc"]


def description_lines(member):
    return block_lines(member.find("briefdescription")) + block_lines(member.find("detaileddescription"))


def member_item(member):
    """A call, or what is none: constants with their values, variables and types."""
    values = member.findall("enumvalue")
    items = [(f"Dv {v.findtext('name')} {v.findtext('initializer')}", description_lines(v)) for v in values]
    is_call = member.get("kind") == "function"
    head = f"Fn {member.findtext('name')}" if is_call else member.findtext("definition") or "Constants"
    return head, description_lines(member) + (list_lines(TAGS, items) if items else [])


def declaration(member):
    kind = re.sub(r"(?<=\w)\(\*", " (*", text_of(member.find("type"))).replace("* (", "*(")
    return kind + ("" if kind.endswith("*") else " ") + member.findtext("name") + (member.findtext("argsstring") or "")


def record_item(record):
    """A record with its members."""
    fields = [(f'Fa "{declaration(member)}"', description_lines(member))
              for member in record.findall("sectiondef/memberdef")]
    return f"Vt {record.findtext('compoundname')}", description_lines(record) + list_lines(TAGS, fields)


def tidy(page):
    """No paragraph breaks where something else breaks already."""
    page = re.sub(r"(\n\.(?:Pp|Sh|Ss|It|Ed|El)\b.*)(?:\n\.Pp)+(?=\n)", r"\1", page)
    return re.sub(r"\n\.Pp(?=\n\.(?:Sh|Ss|Bd|Bl|It|El)\b)", "", page)


def page_of(page, records, members, head, description):
    functions = [member for member in members if member.get("kind") == "function"]
    names = [page] + [function.findtext("name") for function in functions]
    lines = [head[0], f".Dt {page.upper()} 3", head[1], ".Sh NAME"]
    lines += [f".Nm {name} ," for name in names[:-1]] + [f".Nm {names[-1]}", f".Nd {PAGES[page]}"]
    lines += [".Sh LIBRARY", "jt (libjt, \\-ljt)", ".Sh SYNOPSIS", ".In jt.h"]
    lines += [line for function in functions for line in prototype_lines(function)]
    items = [*map(record_item, records), *map(member_item, members)]
    lines += [".Sh DESCRIPTION"] + description + list_lines("-tag -width Ds", items)
    others = sorted(set(PAGES) - {page})
    lines += [".Sh SEE ALSO"] + [f".Xr {other} 3 ," for other in others[:-1]] + [f".Xr {others[-1]} 3"]
    return tidy("\n".join(lines) + "\n")


def date_of(changelog):
    """The day of the release; before it, today."""
    released = re.search(r"^## \[[\d.]+\] - (\d{4}-\d\d-\d\d)$", changelog, re.M)
    now = time.gmtime(int(os.environ.get("SOURCE_DATE_EPOCH", time.time())))
    day = time.strptime(released[1], "%Y-%m-%d") if released else now
    return time.strftime("%B ", day) + str(day.tm_mday) + time.strftime(", %Y", day)


def main():
    changelog, version, xml, output = sys.argv[1:]
    head = [f".Dd {date_of(Path(changelog).read_text(encoding='utf-8'))}", f".Os jt {version}"]

    def read(name):
        return ElementTree.parse(Path(xml) / f"{name}.xml").find("compounddef")

    for page in PAGES:
        chapter = "records" if page == "jt" else page.removeprefix("jt_")
        group = read("group__" + chapter.replace("_", "__"))  # as Doxygen names its files
        members = group.findall("sectiondef/memberdef")
        records = [record for record in map(read, (inner.get("refid") for inner in group.findall("innerclass")))
                   if record.find("sectiondef") is not None]
        description = description_lines(group)
        if page == "jt":
            overview = description_lines(read("jt_8h")) + overview_lines(read("group__conventions"))
            description = overview + [f".Ss {group.findtext('title')}"] + description
        (Path(output) / f"{page}.3").write_text(page_of(page, records, members, head, description), encoding="ascii")
        for name in [member.findtext("name") for member in members if member.get("kind") == "function"]:
            if name.startswith("jt_"):
                (Path(output) / f"{name}.3").write_text(f".so man3/{page}.3\n")


main()
