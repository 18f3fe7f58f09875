"""Makes the tables of docs/performance.md of what the programs of bench/ have measured.

tables.py FOLDER DOCUMENT NOTE: reads times.json, instructions.json, calls.md and heap_32.txt in the folder and
replaces what stands between the two marks of the document. The note is a sentence to stand above them.
"""

import json
import pathlib
import re
import sys

LIBRARIES = ["jt", "pugixml", "pugixml, converted", "RapidJSON"]
STEPS = ["parse", "save", "destroy"]
ENDS = {"jt": "alone", "jt, beside another template": "beside another", "jt, a session for each": "with its session"}


def read(path, key):
    """The figure of each shape, library and step, for one part of the text."""
    rows = [row for row in json.loads(path.read_text())["benchmarks"]
            if row.get("aggregate_name", "min") == "min" and key in row]
    return {tuple(row["run_name"].split("/iterations")[0].rsplit("/", 2)): row[key] / row["parts"] for row in rows}


def table(*rows):
    head, *body = [[cell if isinstance(cell, str) else f"{cell:.0f}" if cell >= 100 else f"{cell:.3g}"
                    for cell in row] for row in rows]
    return "".join(f"| {' | '.join(row)} |\n" for row in [head, ["---"] + ["---:"] * (len(head) - 1), *body])


def beside_others(shapes, times, heap):
    def row(shape, library):
        ratios = [times[shape, "jt", step] / times[shape, library, step] for step in ("parse", "save")]
        return [f"{shape}: {library}", *(times[shape, library, step] for step in STEPS), *ratios,
                heap[shape, library, "parse"]]
    return table(["for an attribute (long: a value)", "parse, ns", "save", "destroy", "jt's parse / this",
                  "jt's save / this", "heap, bytes"],
                 *(row(shape, library) for shape in shapes for library in LIBRARIES))


def main(folder, document, note):
    folder = pathlib.Path(folder)
    times, heap = (read(folder / "times.json", key) for key in ("real_time", "heap"))
    counts = read(folder / "instructions.json", "instructions")
    heap_32 = dict(line.split("\t") for line in (folder / "heap_32.txt").read_text().splitlines())
    shapes = [shape for shape in heap_32 if (shape, "pugixml", "parse") in times]
    hostile = [shape for shape in heap_32 if shape not in shapes]
    tables = [
        note + "\n",
        beside_others(shapes, times, heap),
        table(["instructions for an attribute", *STEPS],
              *([f"{shape}: {library}", *(counts[shape, library, step] for step in STEPS)]
                for shape in shapes if (shape, "jt", "parse") in counts for library in LIBRARIES)),
        table(["jt's destroy / its parse", *ENDS.values()],
              *([shape, *(times[shape, end, "destroy"] / times[shape, "jt", "parse"] for end in ENDS)]
                for shape in shapes)),
        table(["first parse of a process", *LIBRARIES],
              ["typical, ns for an attribute", *(times["typical", library, "first"] for library in LIBRARIES)]),
        table(["jt's heap on 32 bits", *shapes], ["bytes", *(heap_32[shape] for shape in shapes)]),
        table(["for a byte of hostile text", "parse, ns", "parse, instructions", "destroy, ns", "heap, bytes"],
              *([shape, times[shape, "jt", "parse"],
                 counts[shape, "jt", "parse"], times[shape, "jt", "destroy"], heap[shape, "jt", "parse"]]
                for shape in hostile)),
        (folder / "calls.md").read_text()]
    marked = re.compile("(?<=<!-- figures -->\n).*(?=<!-- end of figures -->)", re.DOTALL)
    page = pathlib.Path(document)
    page.write_text(marked.sub(lambda _: "\n" + "\n".join(tables) + "\n", page.read_text()))


main(*sys.argv[1:])
