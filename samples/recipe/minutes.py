#!/usr/bin/python3
"""minutes.py PDF FILE : the pages scanned into one TIFF."""

import subprocess
import sys
from pathlib import Path

import paper
from ink import Ink

SKEWS = (-0.15, 0.2, -0.1, 0.25, 0.12)


def main(pdf, target):
    parts = []
    for number, skew in enumerate(SKEWS, 1):
        sheet = paper.render(pdf, number)
        if number == len(SKEWS):
            ink = Ink(sheet.size, 61)
            ink.signature("H. Calderbank", 4.6, 6.42, 42)
            ink.hand("8 January 1952", 1.7, 6.6, 26)
            sheet = ink.over(sheet)
        parts.append(Path(f"{target}.{number}"))
        paper.save(paper.scan(sheet, 600 + number, skew, dust=50, shadow=5), parts[-1])
    subprocess.run(["tiffcp", *parts, target], check=True)
    for part in parts:
        part.unlink()


if __name__ == "__main__":
    main(*sys.argv[1:])
