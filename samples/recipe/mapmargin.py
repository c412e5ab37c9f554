"""What stands round a map: its frame and title, the legend, the compass and the scale."""

import math

import cairo

from mapsheet import (
    BANK,
    BROWN,
    FRAME,
    INK,
    LEAF,
    MEADOW,
    METRES_PER_INCH,
    PAPER,
    RED,
    ROAD,
    ROOF,
    SCRIPT,
    SIZE,
    WATER,
    WOOD,
)


def frame(sheet):
    left, top, right, bottom = FRAME
    pen = sheet.pen
    pen.set_source_rgb(*PAPER)
    pen.set_fill_rule(cairo.FILL_RULE_EVEN_ODD)
    pen.rectangle(0, 0, *SIZE)
    pen.rectangle(left, top, right - left, bottom - top)
    pen.fill()
    pen.set_source_rgb(*INK)
    for out, width in ((0, 0.012), (0.09, 0.008), (0.13, 0.03)):
        pen.set_line_width(width)
        pen.rectangle(left - out, top - out, right - left + 2 * out, bottom - top + 2 * out)
        pen.stroke()
    for k in range(18):
        if k % 2 == 0:
            pen.rectangle(left + k * 0.5, top - 0.085, 0.5, 0.08)
            pen.rectangle(left + k * 0.5, bottom + 0.005, 0.5, 0.08)
    pen.fill()
    for k in range(1, 9):
        sheet.text(chr(64 + k), left + k - 0.5, top - 0.26, 9, inches=True)
        sheet.text(str(k), left - 0.26, top + k - 0.5, 9, inches=True)
    sheet.text("THE PARISH OF MARROWBY", 5.05, 0.45, 27, inches=True, spacing=0.07)


def legend(sheet):
    x, y = 10.2, 4.55
    pen = sheet.pen
    sheet.text("Explanation", x + 1.2, 4.2, 18, inches=True, font=SCRIPT)

    def sample(draw, words):
        nonlocal y
        draw(x, y)
        sheet.text(words, x + 0.75, y, 10.5, inches=True, align=0.0)
        y += 0.36

    def strokes(*lines):
        def draw(px, py):
            for colour, width, dash in lines:
                pen.set_source_rgb(*colour)
                pen.set_line_width(width)
                pen.set_dash(dash)
                pen.move_to(px, py)
                pen.line_to(px + 0.55, py)
                pen.stroke()
            pen.set_dash([])

        return draw

    def patch(fill, edge, width=0.009):
        def draw(px, py):
            pen.rectangle(px + 0.02, py - 0.11, 0.5, 0.22)
            pen.set_source_rgb(*fill)
            pen.fill_preserve()
            pen.set_source_rgb(*edge)
            pen.set_line_width(width)
            pen.stroke()

        return draw

    sample(strokes((INK, 0.062, ()), (ROAD, 0.046, ())), "Turnpike road")
    sample(strokes((INK, 0.036, ()), ((1, 0.985, 0.94), 0.023, ())), "Lane")
    sample(strokes((INK, 0.011, (0.05, 0.04))), "Footpath")
    sample(strokes(((0.95, 0.80, 0.74), 0.09, ()), (INK, 0.014, (0.11, 0.05, 0.0, 0.05))), "Parish boundary")
    sample(strokes((BANK, 0.016, ())), "Beck or mill race")
    sample(patch(WATER, BANK), "River, dam")
    sample(patch(WOOD, LEAF), "Wood")
    sample(patch(MEADOW, LEAF), "Parcel, with its number")
    sample(patch((0.97, 0.80, 0.76), RED, 0.014), "Land of the Water Board")
    sample(patch(ROOF, INK), "Building")
    sample(strokes((BROWN, 0.006, ())), "Contour, every 10 metres")
    sample(strokes((BROWN, 0.0125, ())), "Contour, every 50 metres")


def compass(sheet):
    x, y = 11.35, 2.45
    pen = sheet.pen
    for k in range(16):
        angle, long = k * math.pi / 8, (1.0, 0.46, 0.7, 0.46)[k % 4]
        for side, colour in ((-1, INK), (1, PAPER)):
            pen.move_to(x, y)
            pen.line_to(x + long * math.sin(angle), y - long * math.cos(angle))
            pen.line_to(
                x + 0.17 * long * math.sin(angle + side * 0.75),
                y - 0.17 * long * math.cos(angle + side * 0.75),
            )
            pen.close_path()
            pen.set_source_rgb(*colour)
            pen.fill_preserve()
            pen.set_source_rgb(*INK)
            pen.set_line_width(0.008)
            pen.stroke()
    pen.arc(x, y, 0.6, 0, 7)
    pen.stroke()
    sheet.text("N", x, y - 1.17, 20, inches=True, bold=True)


def scale(sheet):
    x, y, step = 10.15, 9.2, 250 / METRES_PER_INCH
    for k in range(4):
        sheet.pen.rectangle(x + k * step, y, step, 0.08)
        sheet.pen.set_source_rgb(*(INK if k % 2 == 0 else PAPER))
        sheet.pen.fill_preserve()
        sheet.pen.set_source_rgb(*INK)
        sheet.pen.set_line_width(0.009)
        sheet.pen.stroke()
    for k in range(5):
        sheet.text(str(k * 250), x + k * step, y - 0.11, 8, inches=True)
    sheet.text("Metres", x + 2 * step, y + 0.2, 9, inches=True, italic=True)
    sheet.text("Wenna Valley Water Board", 5.05, 9.75, 10, inches=True, italic=True)
