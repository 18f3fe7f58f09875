"""Makes the tables of docs/performance.md of what the programs of bench/ have measured.

tables.py FOLDER DOCUMENT NOTE: reads times.json, instructions.json, calls.md and heap_32.txt in the folder and
replaces what stands between the two marks of the document. The note is a sentence to stand beneath them.
"""

import collections
import json
import pathlib
import re
import sys

LIBRARIES = ["jt", "pugixml", "pugixml, converted", "RapidJSON"]
OTHERS = {"beside": "jt, beside another template", "session": "jt, a session for each"}
STEPS = ["parse", "save", "destroy"]


def read(path, key):
    """Shape, library and step of each benchmark, with its figure and the parts that this is divided by."""
    figures = {}
    for row in json.loads(path.read_text())["benchmarks"]:
        if row.get("aggregate_name", "min") == "min":
            shape, library, step = row["run_name"].split("/iterations")[0].rsplit("/", 2)
            figures[shape, library, step] = row
    return {name: row[key] / row["parts"] for name, row in figures.items() if key in row}


def number(value):
    if value is None:
        return "-"
    return f"{value:.0f}" if value >= 100 else f"{value:.3g}"


def table(head, rows):
    align = ["---"] + ["---:"] * (len(head) - 1)
    return "".join("| " + " | ".join(row) + " |\n" for row in [head, align, *rows])


def main_table(shapes, times, heap, counts):
    rows = []
    for shape in shapes:
        for library in LIBRARIES:
            ratios = [times[shape, "jt", step] / times[shape, library, step] for step in STEPS[:2]]
            rows.append([f"{shape}: {library}"]
                        + [number(times[shape, library, step]) for step in STEPS]
                        + ["" if library == "jt" else f"{ratio:.2f}" for ratio in ratios]
                        + [number(heap[shape, library, "parse"])]
                        + [number(counts.get((shape, library, step))) for step in STEPS])
    return table(["for an attribute (long: a value)", "parse, ns", "save", "destroy", "jt's parse / this",
                  "jt's save / this", "heap, bytes", "parse, instructions", "save", "destroy"], rows)


def destroy_table(shapes, times):
    rows = []
    for shape in shapes:
        libraries = ["jt", OTHERS["beside"], OTHERS["session"]]
        own = times[shape, "jt", "parse"]
        rows.append([shape] + [f"{times[shape, library, 'destroy'] / own:.3f}" for library in libraries])
    return table(["destroy / parse", "alone in its session", "beside another template", "with its session"], rows)


def first_table(times):
    first = {library: times["typical", library, "first"] for library in LIBRARIES}
    return table(["first parse of a process, typical", *LIBRARIES],
                 [["ns for an attribute", *map(number, first.values())]])


def hostile_table(shapes, times, heap, counts):
    return table(["for a byte of hostile text", "parse, ns", "parse, instructions", "destroy, ns", "heap, bytes"],
                 [[f"`{shape}`" if not shape[0].isalpha() else shape]
                  + [number(figures.get((shape, "jt", step))) for figures, step in
                     [(times, "parse"), (counts, "parse"), (times, "destroy"), (heap, "parse")]]
                  for shape in shapes])


def main(folder, document, note):
    folder = pathlib.Path(folder)
    times, heap = (read(folder / "times.json", key) for key in ("real_time", "heap"))
    counts = read(folder / "instructions.json", "instructions")
    parts = collections.defaultdict(set)
    for shape, library, _ in times:
        parts[shape].add(library)
    heap_32 = dict(line.split("\t") for line in (folder / "heap_32.txt").read_text().splitlines())
    shapes = [shape for shape in heap_32 if len(parts[shape]) > 1]
    hostile = [shape for shape in heap_32 if len(parts[shape]) == 1]
    on_32_bits = table(["jt's heap on 32 bits", *shapes], [["bytes", *(heap_32[shape] for shape in shapes)]])
    tables = [main_table(shapes, times, heap, counts), destroy_table(shapes, times), first_table(times),
              on_32_bits, hostile_table(hostile, times, heap, counts), (folder / "calls.md").read_text()]
    marked = re.compile("(?<=<!-- figures -->\n).*(?=<!-- end of figures -->)", re.DOTALL)
    text = pathlib.Path(document).read_text()
    body = "\n" + "\n".join([note + "\n", *tables]) + "\n"
    pathlib.Path(document).write_text(marked.sub(lambda _: body, text))


main(*sys.argv[1:])
