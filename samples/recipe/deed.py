#!/usr/bin/python3
"""deed.py courses FILE : the deed's table of courses. deed.py pages PDF FOLDER : its scanned pages."""

import sys
from pathlib import Path

import paper
import plan
from ink import Ink

SKEWS = (0.22, -0.31, 0.12, 0.38, -0.18, 0.27, -0.42, 0.09, 0.33, -0.24, 0.16, -0.12)


def registry(sheet, x, y):
    """The registry's round stamp."""
    sheet.pen.save()
    sheet.pen.translate(x, y)
    sheet.pen.rotate(-0.2)
    sheet.ring(0, 0, 0.66, 0.018)
    sheet.ring(0, 0, 0.62, 0.006)
    sheet.ring(0, 0, 0.42, 0.008)
    sheet.around("REGISTRY OF DEEDS", 0, 0, 0.47, 10.5, -90, 190)
    sheet.around("COUNTY OF ASHMERE", 0, 0, 0.57, 9, 90, 130, inward=True)
    for side in (-1, 1):
        sheet.text("✶", side * 0.52, 0.08, 9, "DejaVu Sans", align=0.5)
    sheet.text("22", 0, -0.14, 13, "Old Standard TT", align=0.5)
    sheet.text("MAR", 0, 0.07, 14, "Old Standard TT", align=0.5, spacing=0.03)
    sheet.text("1904", 0, 0.27, 13, "Old Standard TT", align=0.5, spacing=0.02)
    sheet.pen.restore()


def duty(sheet, x, y):
    """The impressed duty stamp."""
    sheet.rosette(x, y, 0.56, 24, 0.1)
    sheet.ring(x, y, 0.455, 0.01)
    sheet.ring(x, y, 0.3, 0.007)
    sheet.around("NINE POUNDS TEN SHILLINGS", x, y, 0.345, 7.2, -90, 300)
    sheet.text("✶", x, y + 0.415, 7, "DejaVu Sans", align=0.5)
    sheet.text("DUTY", x, y - 0.06, 10, "Old Standard TT", align=0.5, spacing=0.015)
    sheet.text("£9 ·10", x, y + 0.13, 12, "Old Standard TT", align=0.5)


def common_seal(sheet, x, y):
    sheet.rosette(x, y, 0.8, 36, 0.07)
    sheet.ring(x, y, 0.7, 0.014)
    sheet.ring(x, y, 0.46, 0.01)
    sheet.around("THE WENNA VALLEY WATER COMPANY", x, y, 0.52, 11, -90, 300)
    sheet.text("✶", x, y + 0.63, 10, "DejaVu Sans", align=0.5)
    for k in range(5):
        sheet.swell(
            (x - 0.33, y + 0.02 + k * 0.075),
            [
                (x - 0.12, y - 0.1 + k * 0.075),
                (x + 0.12, y + 0.14 + k * 0.075),
                (x + 0.33, y + 0.02 + k * 0.075),
            ],
            0.016,
        )
    sheet.text("1888", x, y - 0.12, 16, "Old Standard TT", align=0.5, spacing=0.02)


def first(sheet):
    duty(sheet, 1.12, 0.78)
    sheet.hand("No. 604", 4.5, 0.62, 27, angle=-4)
    sheet.hand("Bk. 27  p. 318", 4.3, 0.95, 23, angle=-4)


def execution(sheet):
    sheet.signature("Josiah P. Thornwick", 3.3, 2.72, 44)
    sheet.wax(6.9, 2.55, 0.34)
    sheet.hand("Fredk. Lisle, Solicitor, Hollin Bridge", 2.1, 3.12, 21)
    sheet.signature("Eleanor Maud Thornwick", 3.15, 5.02, 40, slant=-0.05)
    sheet.wax(6.95, 4.85, 0.33)
    sheet.hand("Agnes Orme, Spinster, Marrowby", 2.1, 5.46, 21, slant=0.2)
    common_seal(sheet, 6.3, 7.75)
    sheet.signature("Wm. Calderbank", 2.1, 7.55, 34, slant=0.2)
    sheet.signature("H. Sefton Rudd", 3.6, 8.3, 34, slant=0.02)


def memoranda(sheet):
    sheet.signature("J. P. Thornwick", 4.6, 3.0, 42)
    sheet.hand("£1860 . 0 . 0", 2.2, 3.0, 26, angle=-3)
    sheet.signature("Geo. Marchbanks, Registrar", 2.6, 5.5, 32)


def oak(sheet):
    sheet.hand("felled by", 0.66, 6.75, 21, angle=-5)
    sheet.hand("storm 1911", 0.66, 7.03, 21, angle=-5)
    sheet.swell((1.5, 6.72), [(1.65, 6.78), (1.75, 6.86), (1.93, 6.88)], 0.006)


NOTES = {
    1: first,
    2: lambda sheet: sheet.hand("cl. 14", 0.62, 2.75, 24, angle=-6),
    3: lambda sheet: sheet.hand("vide plan", 0.62, 6.5, 23, angle=-8),
    4: oak,
    5: lambda sheet: sheet.hand("gauge book at engine house", 2.0, 10.3, 23, angle=-2),
    7: lambda sheet: sheet.hand("exd. F. L.", 5.9, 8.6, 26, angle=-5),
    8: lambda sheet: sheet.hand("agrees with field book  S. O.", 3.9, 9.6, 22, angle=-3),
    9: lambda sheet: sheet.hand("11 . 3 . 22  checked", 5.0, 9.55, 21, angle=-4),
    10: lambda sheet: plan.Plan(sheet, 2.5, 3.05).draw(),
    11: execution,
    12: memoranda,
}
STAMPED = {1: (6.95, 1.55), 12: (6.9, 5.55)}


def page(pdf, number):
    image = paper.render(pdf, number)
    sheet = Ink(image.size, 100 + number)
    if number in NOTES:
        NOTES[number](sheet)
    if number < 11:
        sheet.hand("J. P. T.", 6.5, 10.35, 19)
        sheet.hand("E. M. T.", 7.1, 10.42, 18, slant=-0.05)
    image = sheet.over(image)
    if number in STAMPED:
        stamp = Ink(image.size, 200 + number)
        registry(stamp, *STAMPED[number])
        image = stamp.over(image, 0.35)
    return paper.scan(image, number, SKEWS[number - 1], holes=True)


def main(task, source, folder=None):
    if task == "courses":
        Path(source).write_text(plan.table(), encoding="utf-8")
        return
    for number in range(1, len(SKEWS) + 1):
        paper.save(page(source, number), Path(folder) / f"page{number:02d}.tif")


if __name__ == "__main__":
    main(*sys.argv[1:])
