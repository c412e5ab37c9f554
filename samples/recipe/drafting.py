"""A draughtsman's hand: lines, hatching, dimensions and lettering on a sheet measured in inches."""

import math

import cairo
import numpy as np
from PIL import Image

from paper import DPI

FINE, LINE, BOLD = 2 / DPI, 3 / DPI, 6 / DPI
LETTERS = "Routed Gothic"
CENTRE, HIDDEN = (0.32, 0.06, 0.06, 0.06), (0.11, 0.06)


class Sheet:
    def __init__(self, width, height):
        self.surface = cairo.ImageSurface(cairo.FORMAT_A8, int(width * DPI), int(height * DPI))
        self.pen = cairo.Context(self.surface)
        self.pen.scale(DPI, DPI)

    def image(self):
        """The sheet as a 1-bit image."""
        width, height, stride = self.surface.get_width(), self.surface.get_height(), self.surface.get_stride()
        alpha = np.frombuffer(self.surface.get_data(), np.uint8).reshape(height, stride)[:, :width]
        return Image.fromarray(alpha < 110)

    def lines(self, *paths, width=LINE, dash=(), close=False):
        self.pen.set_line_width(width)
        self.pen.set_dash(dash)
        for path in paths:
            for i, (x, y) in enumerate(path):
                (self.pen.line_to if i else self.pen.move_to)(x, y)
            if close:
                self.pen.close_path()
        self.pen.stroke()
        self.pen.set_dash([])

    def box(self, x, y, wide, high, width=LINE, dash=()):
        self.lines(
            [(x, y), (x + wide, y), (x + wide, y + high), (x, y + high)], width=width, dash=dash, close=True
        )

    def circle(self, x, y, radius, width=LINE, start=0.0, end=360.0, dash=()):
        self.pen.set_line_width(width)
        self.pen.set_dash(dash)
        self.pen.new_sub_path()
        self.pen.arc(x, y, radius, math.radians(start), math.radians(end))
        self.pen.stroke()
        self.pen.set_dash([])

    def cross(self, x, y, reach):
        """Centre lines."""
        self.lines(
            [(x - reach, y), (x + reach, y)], [(x, y - reach), (x, y + reach)], width=FINE, dash=CENTRE
        )

    def text(self, words, x, y, points, align=0.0, angle=0.0, font=LETTERS):
        self.pen.save()
        self.pen.translate(x, y)
        self.pen.rotate(math.radians(angle))
        self.pen.select_font_face(font)
        self.pen.set_font_size(points / 72)
        self.pen.move_to(-align * self.pen.text_extents(words).x_advance, 0)
        self.pen.text_path(words)
        self.pen.fill()
        self.pen.restore()

    def clipped(self, path):
        """From here to `unclip` only what is inside the path is drawn."""
        self.pen.save()
        for i, (x, y) in enumerate(path):
            (self.pen.line_to if i else self.pen.move_to)(x, y)
        self.pen.close_path()
        self.pen.clip()
        return self.pen.clip_extents()

    def unclip(self):
        self.pen.restore()

    def brick(self, *path, gap=0.07):
        """Cut brickwork: an outline with hatching."""
        left, top, right, bottom = self.clipped(path)
        high = bottom - top
        strokes = [[(x, bottom), (x + high, top)] for x in np.arange(left - high, right, gap)]
        self.lines(*strokes, width=FINE)
        self.unclip()
        self.lines(path, width=BOLD, close=True)

    def concrete(self, *path, seed=1):
        """Cut concrete: an outline with stones and sand."""
        random = np.random.RandomState(seed)
        left, top, right, bottom = self.clipped(path)
        count = int((right - left) * (bottom - top) * 26)
        for x, y, kind in zip(
            random.uniform(left, right, count),
            random.uniform(top, bottom, count),
            random.random_sample(count),
        ):
            if kind < 0.3:
                turn, r = random.uniform(0, 6.28), random.uniform(0.02, 0.04)
                corners = [
                    (x + r * math.cos(turn + k * 2.09), y + r * math.sin(turn + k * 2.09)) for k in range(3)
                ]
                self.lines(corners, width=FINE, close=True)
            else:
                self.pen.rectangle(x, y, 2 / DPI, 2 / DPI)
                self.pen.fill()
        self.unclip()
        self.lines(path, width=BOLD, close=True)

    def earth(self, path, depth=0.22):
        """A surface of ground, with the hatching below it."""
        self.lines(path, width=BOLD)
        for (x0, y0), (x1, y1) in zip(path, path[1:]):
            length = math.dist((x0, y0), (x1, y1))
            for k in range(int(length / 0.45) + 1):
                x, y = x0 + (x1 - x0) * k * 0.45 / length, y0 + (y1 - y0) * k * 0.45 / length
                self.lines(*[[(x + d, y), (x + d - depth, y + depth)] for d in (0, 0.05, 0.1)], width=FINE)

    def arrow(self, x, y, angle):
        """A filled arrow head with its tip at (x, y)."""
        c, s = math.cos(math.radians(angle)), math.sin(math.radians(angle))
        for i, (u, v) in enumerate(((0, 0), (-0.13, 0.022), (-0.13, -0.022))):
            (self.pen.line_to if i else self.pen.move_to)(x + u * c - v * s, y + u * s + v * c)
        self.pen.fill()

    def dimension(self, start, end, at, words, vertical=False):
        """A dimension from start to end along x (or y), its line at `at`, with the words above (or left of) it."""
        low, high = sorted((start, end))
        place = (lambda along, off: (off, along)) if vertical else (lambda along, off: (along, off))
        self.lines([place(low, at), place(high, at)], width=FINE)
        for edge, turn in ((low, 180), (high, 0)):
            self.lines([place(edge, at - 0.09), place(edge, at + 0.09)], width=FINE)
            self.arrow(*place(edge, at), turn + (90 if vertical else 0))
        middle = (low + high) / 2
        self.text(words, *place(middle, at - 0.05), 10, 0.5, -90 if vertical else 0)

    def level(self, x, y, words):
        """The mark of a level, pointing down to the line at y."""
        self.lines([(x - 0.1, y - 0.14), (x + 0.1, y - 0.14), (x, y)], width=FINE, close=True)
        self.lines([(x - 0.25, y), (x + 1.1, y)], width=FINE)
        self.text(words, x + 0.16, y - 0.05, 10)

    def note(self, words, x, y, to_x, to_y):
        """Words with a leader to what they name."""
        self.text(words, x, y, 11, 0.0 if to_x < x else 1.0)
        start = (x - 0.06, y - 0.05) if to_x < x else (x + 0.06, y - 0.05)
        self.lines([start, (to_x, to_y)], width=FINE)
        self.arrow(to_x, to_y, math.degrees(math.atan2(to_y - start[1], to_x - start[0])))

    def pipe(self, *path, bore=0.3):
        """A pipe seen from the side: two lines, a centre line and flanges at its bends."""
        for side in (-1, 1):
            self.lines(offset(path, side * bore / 2), width=LINE)
        self.lines(path, width=FINE, dash=CENTRE)
        for (x0, y0), (x1, y1) in zip(path, path[1:]):
            length = math.dist((x0, y0), (x1, y1))
            for t in (min(0.35, length / 3), max(length - 0.35, length * 2 / 3)):
                self.flange(x0 + (x1 - x0) * t / length, y0 + (y1 - y0) * t / length, x0 == x1, bore)

    def flange(self, x, y, upright, bore):
        reach, thick = bore / 2 + 0.07, 0.035
        for shift in (-thick, 0.0):
            if upright:
                self.box(x - reach, y + shift, 2 * reach, thick)
            else:
                self.box(x + shift, y - reach, thick, 2 * reach)

    def valve(self, x, y, upright=False, size=0.24):
        u, v = (size * 0.7, size) if upright else (size, size * 0.7)
        corners = [(x - u, y - v), (x + u, y + v), (x - u, y + v), (x + u, y - v)]
        if not upright:
            corners = [(x - u, y - v), (x + u, y + v), (x + u, y - v), (x - u, y + v)]
        self.lines(corners, close=True)
        spindle = [(x, y), (x + 1.6 * size, y)] if upright else [(x, y), (x, y - 1.6 * size)]
        self.lines(spindle)
        end = spindle[1]
        self.lines(
            [(end[0], end[1] - size / 2), (end[0], end[1] + size / 2)]
            if upright
            else [(end[0] - size / 2, end[1]), (end[0] + size / 2, end[1])],
            width=BOLD,
        )


def offset(path, by):
    """The right-angled path moved sideways by a distance."""
    result = []
    for i, (x, y) in enumerate(path):
        dx = dy = 0.0
        for a, b in ((i - 1, i), (i, i + 1)):
            if a >= 0 and b < len(path):
                (x0, y0), (x1, y1) = path[a], path[b]
                length = math.dist((x0, y0), (x1, y1))
                dx = dx or -(y1 - y0) / length * by
                dy = dy or (x1 - x0) / length * by
        result.append((x + dx, y + dy))
    return result
