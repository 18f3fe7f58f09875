#!/usr/bin/env python3
"""Draws what a program prints on a terminal, its colours included, as a picture.

  terminal_picture.py OUTPUT.svg WORKING_DIRECTORY PROGRAM [ARGUMENT...]"""

import re
import subprocess
import sys
from pathlib import Path
from xml.sax.saxutils import escape

COLOURS = {"31": "#f2777a", "32": "#99cc99", "33": "#ffcc66", "34": "#6699cc", "2": "#8f8f8f"}
TEXT, BACKGROUND = "#e6e6e6", "#1e1e1e"
SIZE, WIDTH, HEIGHT, MARGIN = 14, 8.43, 20, 16


def styled(line):
    """The pieces of a line, each with the attributes of its element."""
    style = ""
    for piece in re.split(r"(\x1b\[\d*m)", line):
        code = re.fullmatch(r"\x1b\[(\d*)m", piece)
        if code:
            bold = ' font-weight="bold"' if code[1] == "1" else ""
            style = f' fill="{COLOURS[code[1]]}"' if code[1] in COLOURS else bold
        elif piece:
            yield f"<tspan{style}>{escape(piece)}</tspan>"


def picture(text):
    lines = text.rstrip("\n").split("\n")
    longest = max(len(re.sub(r"\x1b\[\d*m", "", line)) for line in lines)
    width, height = round(longest * WIDTH) + 2 * MARGIN, len(lines) * HEIGHT + 2 * MARGIN
    rows = [
        f'<text x="{MARGIN}" y="{MARGIN + row * HEIGHT + SIZE}" xml:space="preserve">{"".join(styled(line))}</text>'
        for row, line in enumerate(lines)
    ]
    return "\n".join(
        [
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}"'
            f' viewBox="0 0 {width} {height}" font-family="DejaVu Sans Mono, monospace" font-size="{SIZE}" fill="{TEXT}">',
            f'<rect width="{width}" height="{height}" rx="6" fill="{BACKGROUND}"/>',
            *rows,
            "</svg>\n",
        ]
    )


def main():
    output, folder, *command = sys.argv[1:]
    seen = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    prompt = f"$ {Path(command[0]).name} {' '.join(word for word in command[1:] if not word.startswith('--color'))}\n"
    Path(output).write_text(picture(prompt + seen.stdout.decode()), encoding="utf-8")


if __name__ == "__main__":
    main()
