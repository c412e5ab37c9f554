#!/usr/bin/python3
"""fax.py PDF FOLDER : the pages as a fax machine sends them: 1728 dots a line, 204 x 98 to the inch."""

import sys
from pathlib import Path

import numpy as np
from PIL import Image, ImageDraw, ImageFilter, ImageFont

import paper
from ink import Ink

WIDTH, DPI = 1728, (204, 98)
HEADER = "14-MAR-1994  16:52   FROM LISLE HARDING LISLE         TO 5550142           P.{page:02d}/{pages:02d}"
FONT = "/usr/share/fonts/opentype/urw-base35/NimbusMonoPS-Bold.otf"
SKEWS = (0.35, -0.2, 0.6)


def header(page):
    """The line that the sending machine puts above each page."""
    line = Image.new("L", (WIDTH, 40), 255)
    font = ImageFont.truetype(FONT, 32)
    ImageDraw.Draw(line).text((40, 2), HEADER.format(page=page, pages=len(SKEWS)), fill=0, font=font)
    return line.resize((WIDTH, 20), Image.BOX).point(lambda v: 255 if v > 120 else 0)


def fax(sheet, number):
    """A gray page at 300 dpi as the machine's 1-bit lines, with its dropped lines and specks."""
    random = np.random.RandomState(300 + number)
    sheet = sheet.rotate(SKEWS[number - 1], Image.BICUBIC, fillcolor=255).filter(
        ImageFilter.GaussianBlur(0.8)
    )
    height = sheet.height * DPI[1] // paper.DPI
    across = sheet.resize((sheet.width * DPI[0] // paper.DPI, height), Image.BOX)
    page = Image.new("L", (WIDTH, height + 24), 255)
    page.paste(across, ((WIDTH - across.width) // 2, 24))
    values = np.array(page, dtype=np.float32) + random.normal(0, 16, (page.height, WIDTH))
    black = values < 158
    for row in random.randint(200, page.height - 10, 2):
        black[row] = black[row - 1]
    for x, y in zip(random.randint(0, WIDTH, 160), random.randint(0, page.height, 160)):
        black[y, x : x + random.randint(1, 4)] = True
    black[:, 1702 + number : 1704 + number] |= random.random_sample((page.height, 2)) < 0.5
    black[:24] = False
    result = Image.fromarray(~black)
    result.paste(header(number).convert("1"), (0, 2))
    return result


def main(pdf, folder):
    for number in range(1, len(SKEWS) + 1):
        sheet = paper.render(pdf, number)
        if number == 1:
            ink = Ink(sheet.size, 31)
            ink.signature("P. J. Harding", 1.2, 7.85, 44)
            sheet = ink.over(sheet)
        paper.save(fax(sheet, number), Path(folder) / f"page{number:02d}.tif", DPI, "g3:1d")


if __name__ == "__main__":
    main(*sys.argv[1:])
