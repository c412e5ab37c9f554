"""A sheet for a map in colour: its measures and colours, and lines, areas and names upon it."""

import math

import cairo
import numpy as np

DPI, SIZE = 150, (13.0, 10.0)
METRES_PER_INCH = 420.0
FRAME = (0.55, 1.15, 9.55, 9.45)
WIDE, HIGH = (FRAME[2] - FRAME[0]) * METRES_PER_INCH, (FRAME[3] - FRAME[1]) * METRES_PER_INCH
ROMAN, SCRIPT = "Old Standard TT", "Z003"
PAPER, INK, WATER, BANK = (0.972, 0.949, 0.886), (0.16, 0.13, 0.11), (0.69, 0.83, 0.90), (0.20, 0.42, 0.60)
BROWN, WOOD, LEAF, MEADOW = (0.68, 0.46, 0.28), (0.74, 0.84, 0.64), (0.32, 0.50, 0.28), (0.90, 0.925, 0.79)
ROAD, RED, ROOF = (0.96, 0.80, 0.52), (0.70, 0.16, 0.13), (0.80, 0.36, 0.30)


class Map:
    def __init__(self):
        self.surface = cairo.ImageSurface(cairo.FORMAT_RGB24, int(SIZE[0] * DPI), int(SIZE[1] * DPI))
        self.pen = cairo.Context(self.surface)
        self.pen.scale(DPI, DPI)
        self.pen.set_line_cap(cairo.LINE_CAP_ROUND)
        self.pen.set_line_join(cairo.LINE_JOIN_ROUND)
        self.pen.set_source_rgb(*PAPER)
        self.pen.paint()

    def trace(self, points, close=False):
        for i, (x, y) in enumerate(points):
            (self.pen.line_to if i else self.pen.move_to)(
                FRAME[0] + x / METRES_PER_INCH, FRAME[1] + y / METRES_PER_INCH
            )
        if close:
            self.pen.close_path()

    def line(self, points, colour, width, dash=(), close=False):
        self.pen.set_source_rgb(*colour)
        self.pen.set_line_width(width)
        self.pen.set_dash(dash)
        self.trace(points, close)
        self.pen.stroke()
        self.pen.set_dash([])

    def area(self, points, fill, edge=None, width=0.006):
        self.pen.set_source_rgb(*fill)
        self.trace(points, True)
        self.pen.fill()
        if edge:
            self.line(points, edge, width, close=True)

    def text(
        self,
        words,
        x,
        y,
        points,
        colour=INK,
        font=ROMAN,
        angle=0.0,
        spacing=0.0,
        inches=False,
        align=0.5,
        bold=False,
        italic=False,
        halo=True,
    ):
        """Words with their middle at (x, y), in metres of the map or in inches of the sheet."""
        pen = self.pen
        pen.save()
        pen.translate(
            *((x, y) if inches else (FRAME[0] + x / METRES_PER_INCH, FRAME[1] + y / METRES_PER_INCH))
        )
        pen.rotate(math.radians(angle))
        pen.select_font_face(
            font,
            cairo.FONT_SLANT_ITALIC if italic else cairo.FONT_SLANT_NORMAL,
            cairo.FONT_WEIGHT_BOLD if bold else cairo.FONT_WEIGHT_NORMAL,
        )
        pen.set_font_size(points / 72)
        widths = [pen.text_extents(letter).x_advance + spacing for letter in words]
        place = -align * (sum(widths) - spacing)
        pen.new_path()
        for letter, width in zip(words, widths):
            pen.move_to(place, points / 72 * 0.33)
            pen.text_path(letter)
            place += width
        if halo and not inches:
            pen.set_source_rgba(*PAPER, 0.75)
            pen.set_line_width(0.03)
            pen.stroke_preserve()
        pen.set_source_rgb(*colour)
        pen.fill()
        pen.restore()


def curve(points, steps=14):
    """A smooth line through the points."""
    result = []
    for i in range(len(points) - 1):
        p = [np.array(points[max(0, min(len(points) - 1, k))], float) for k in (i - 1, i, i + 1, i + 2)]
        for t in np.arange(0, 1, 1 / steps):
            result.append(
                tuple(
                    0.5
                    * (
                        2 * p[1]
                        + (p[2] - p[0]) * t
                        + (2 * p[0] - 5 * p[1] + 4 * p[2] - p[3]) * t**2
                        + (3 * p[1] - p[0] - 3 * p[2] + p[3]) * t**3
                    )
                )
            )
    return result + [points[-1]]
