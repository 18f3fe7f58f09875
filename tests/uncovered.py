#!/usr/bin/env python3
"""Compares what gcovr found uncovered (its JSON) with the reviewed list (tests/uncovered.md): fails when a line
or branch is missing in the list, or a place of the list is covered or gone.

usage: uncovered.py REPORT.json LIST.md"""

import json
import pathlib
import re
import sys


def reviewed_places(text):
    """The list's (file, line of code) pairs: "## `file`", then "- `code`: reason"."""
    file = None
    for line in text.splitlines():
        if heading := re.match(r"## `(.+)`$", line):
            file = heading[1]
        elif place := re.match(r"- `(.+)`: .", line):
            yield file, place[1]


def has_missed_branch(line):
    return any(branch["count"] == 0 and not branch["throw"] for branch in line["branches"])


def uncovered_places(report):
    """(file, line of code) -> number of the line, in files named from the current directory on."""
    places = {}
    for file in report["files"]:
        code = pathlib.Path(file["file"]).read_text(encoding="ascii").splitlines()
        for line in file["lines"]:
            if not line.get("gcovr/noncode") and (line["count"] == 0 or has_missed_branch(line)):
                number = line["line_number"]
                places[file["file"], code[number - 1].strip()] = number
    return places


def main():
    report, reviewed_list = sys.argv[1:]
    found = uncovered_places(json.loads(pathlib.Path(report).read_text(encoding="utf-8")))
    reviewed = set(reviewed_places(pathlib.Path(reviewed_list).read_text(encoding="ascii")))
    for file, code in sorted(found.keys() - reviewed):
        print(f"not covered: {file}:{found[file, code]}: {code}")
    for file, code in sorted(reviewed - found.keys()):
        print(f"listed, but covered or gone: {file}: {code}")
    if found.keys() != reviewed:
        sys.exit(f"cover the new places or list them, with a reason, in {reviewed_list}")
    print(f"all but the {len(reviewed)} places of {reviewed_list} are covered")


main()
