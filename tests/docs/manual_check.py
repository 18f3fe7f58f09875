#!/usr/bin/python3 -B
"""Reads the built manual as its readers get it: every link and anchor leads somewhere, nothing of the markup is left
over, every picture has a text for those who do not see it, and every call, message and type is there.

  manual_check.py HTML_DIRECTORY SOURCE_DIRECTORY"""

import re
import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit

VOID = {"area", "base", "br", "col", "embed", "hr", "img", "input", "link", "meta", "source", "track", "wbr"}
GENERATED = {"genindex.html", "search.html", "py-modindex.html"}

# What Markdown, reStructuredText, MyST and Doxygen leave behind when they are not understood. Code may have any.
LEFT_OVER = re.compile(
    r"\*\*|`|\{\w+\}|\]\(|^#+ |\[TOC\]|(?<!\w):\w+:(?!\w)|\{#|\{\{|^\|.*\||\|\s*\||"
    r"\\(ref|param|return|snippet|include|of_\w+|errors|owner|cost)\b|"
    r"</?(p|dl|dt|dd|code|em|li|ul|span|table|td|tr)\b",
    re.M,
)


class Page(HTMLParser):
    """A page: what it leads to, where it can be led to, its plain text and its code."""

    def __init__(self, text):
        super().__init__()
        self.links, self.anchors, self.without_text = [], {""}, []
        self.open, self.plain, self.code = [], [], []
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.links += [value for name, value in attributes.items() if name in ("href", "src") and value]
        self.anchors.add(attributes.get("id", ""))
        if tag == "img" and not attributes.get("alt", "").strip():
            self.without_text.append(attributes.get("src", ""))
        if tag not in VOID:
            self.open.append(tag)
        if tag in ("p", "td", "th", "li", "dt", "dd", "div", "h1", "h2", "h3"):
            self.plain.append("\n")

    def handle_endtag(self, tag):
        while tag in self.open and self.open.pop() != tag:
            pass

    def handle_data(self, data):
        if not {"script", "style", "svg", "title"} & set(self.open):
            (self.code if {"code", "pre", "dt"} & set(self.open) else self.plain).append(data)


def pages_of(folder):
    return {
        path.relative_to(folder).as_posix(): Page(path.read_text(encoding="utf-8"))
        for path in sorted(folder.rglob("*.html"))
    }


def dead_links(folder, pages):
    """Links to other sites are not followed."""
    for name, page in pages.items():
        for link in page.links:
            parts = urlsplit(link)
            if parts.scheme:
                continue
            target = (folder / name).parent / unquote(parts.path) if parts.path else folder / name
            if link.startswith("/") or not target.exists():
                yield f"{name}: leads to {link}, which is not there"
                continue
            other = pages.get(target.resolve().relative_to(folder.resolve()).as_posix())
            if other and unquote(parts.fragment) not in other.anchors:
                yield f"{name}: leads to {link}, which has no such place"


def dead_links_of_styles(folder):
    for path in sorted(folder.rglob("*.css")):
        for link in re.findall(r"url\([\"']?([^)\"']+)", path.read_text(encoding="utf-8")):
            if not link.startswith("data:") and not (path.parent / urlsplit(link).path).exists():
                yield f"{path.relative_to(folder)}: leads to {link}, which is not there"


def left_over_markup(pages):
    for name, page in pages.items():
        for match in LEFT_OVER.finditer("".join(page.plain)) if name not in GENERATED else ():
            line = match.string[max(0, match.start() - 30) : match.end() + 30]
            yield f"{name}: markup is left over in: {' '.join(line.split())}"


def pictures_without_text(pages):
    return [f"{name}: {picture} has no text" for name, page in pages.items() for picture in page.without_text]


def missing_calls(pages, source):
    anchors = set().union(*(page.anchors for name, page in pages.items() if name.startswith("c/")))
    for symbol in (source / "src/exported_symbols.txt").read_text(encoding="ascii").split():
        if "c." + symbol not in anchors:
            yield f"not described: {symbol}"


def missing_messages(pages, source):
    header = next(source.glob("src/*/messages.h")).read_text(encoding="ascii")
    code = "".join(pages["messages.html"].code).replace("\N{NO-BREAK SPACE}", " ")
    for text in re.findall(r'constexpr char k\w+\[\] =\s*"((?:[^"\\]|\\.)*)";', header):
        if text.replace('\\"', '"').strip() not in code:
            yield f"not among the messages: {text}"


def missing_types(pages, source):
    """Each row of a table names its type in quotes."""
    names = [re.findall(r"\w+", " ".join([name, *page.code])) for name, page in pages.items() if "catalogue" in name]
    shown = {name for page in names for name in page}
    tables = "".join(path.read_text(encoding="ascii") for path in sorted(source.glob("src/types/*table*.cpp")))
    types = set(re.findall(r"\b(?:enum|struct|kmt|ref)_\w+(?=\")", tables))
    if len(types) < 50:
        yield "the type tables are not in src/types"
    for name in sorted(types - shown):
        yield f"in no page of the catalogue: {name}"


def findings(folder, source):
    pages = pages_of(folder)
    yield from dead_links(folder, pages)
    yield from dead_links_of_styles(folder)
    yield from left_over_markup(pages)
    yield from pictures_without_text(pages)
    yield from missing_calls(pages, source)
    yield from missing_messages(pages, source)
    yield from missing_types(pages, source)


def main():
    found = list(findings(Path(sys.argv[1]), Path(sys.argv[2])))
    print("\n".join(found), end="\n" if found else "")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
