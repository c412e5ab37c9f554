"""What pens, stamps and seals leave on a printed page. Places are in inches from the upper left corner."""

import math

import cairo
import numpy as np
from PIL import Image, ImageChops

from paper import DPI, clouds


class Ink:
    """A transparent sheet over a page, drawn on in black."""

    def __init__(self, size, seed):
        self.random = np.random.RandomState(seed)
        self.surface = cairo.ImageSurface(cairo.FORMAT_A8, *size)
        self.pen = cairo.Context(self.surface)
        self.pen.scale(DPI, DPI)
        self.pen.set_line_cap(cairo.LINE_CAP_ROUND)
        self.pen.set_line_join(cairo.LINE_JOIN_ROUND)

    def over(self, page, strength=1.0):
        """The page with this sheet laid over it; less strength leaves the ink patchy."""
        height, stride = self.surface.get_height(), self.surface.get_stride()
        alpha = np.frombuffer(self.surface.get_data(), np.uint8).reshape(height, stride)[:, : page.width]
        if strength < 1:
            alpha = (alpha * clouds(self.random, page.size, 9, strength, 1.2).clip(0, 1)).astype(np.uint8)
        return ImageChops.darker(page, Image.fromarray(255 - alpha))

    def text(self, words, x, y, points, font="Kristi", angle=0.0, slant=0.0, align=0.0, spacing=0.0):
        """A line of text, its baseline from (x, y) at `angle` degrees; align 0.5 centres it on x."""
        pen = self.pen
        pen.save()
        pen.translate(x, y)
        pen.rotate(math.radians(angle))
        pen.transform(cairo.Matrix(1, 0, -slant, 1, 0, 0))
        pen.select_font_face(font)
        pen.set_font_size(points / 72)
        width = pen.text_extents(words).x_advance + spacing * (len(words) - 1)
        pen.move_to(-align * width, 0)
        if spacing == 0:
            pen.show_text(words)
        else:
            for letter in words:
                pen.show_text(letter)
                pen.rel_move_to(spacing, 0)
        pen.restore()

    def hand(self, words, x, y, points, angle=-2.0, slant=0.08):
        """Words by pen: each sits and leans a little differently."""
        for word in words.split(" "):
            lift, turn = self.random.uniform(-0.012, 0.012), self.random.uniform(-1.2, 1.2)
            self.text(word, x, y + lift, points, angle=angle + turn, slant=slant)
            self.pen.select_font_face("Kristi")
            self.pen.set_font_size(points / 72)
            step = self.pen.text_extents(word).x_advance + points / 72 * 0.24
            x += step * math.cos(math.radians(angle))
            y += step * math.sin(math.radians(angle))
        return x, y

    def signature(self, name, x, y, points, slant=0.12):
        """A name with the flourish below it, thick in the middle and thin at its ends."""
        end, low = self.hand(name, x, y, points, angle=-3.5, slant=slant)
        width = end - x
        start = (end - 0.02 * width, low + 0.02)
        curve = [(end + 0.22 * width, low - 0.16), (x + 0.55 * width, y + 0.30), (x + 0.08 * width, y + 0.13)]
        self.swell(start, curve, 0.016)
        self.swell(
            curve[2],
            [(x + 0.35 * width, y + 0.06), (x + 0.6 * width, low + 0.1), (end * 0.98, low + 0.12)],
            0.01,
        )

    def swell(self, start, curve, width):
        """A Bezier stroke whose width swells from nothing and dies away."""
        steps = 60
        points = [start, *curve]
        at = [bezier(points, i / steps) for i in range(steps + 1)]
        for i in range(steps):
            self.pen.set_line_width(0.003 + width * math.sin(math.pi * i / steps) ** 2)
            self.pen.move_to(*at[i])
            self.pen.line_to(*at[i + 1])
            self.pen.stroke()

    def ring(self, x, y, radius, width):
        self.pen.set_line_width(width)
        self.pen.new_path()
        self.pen.arc(x, y, radius, 0, 2 * math.pi)
        self.pen.stroke()

    def around(
        self, words, x, y, radius, points, start, sweep, font="Old Standard TT", bold=True, inward=False
    ):
        """Letters along a circle: centred on angle `start` (degrees, 0 right, clockwise), spread over `sweep`."""
        pen = self.pen
        pen.select_font_face(
            font, cairo.FONT_SLANT_NORMAL, cairo.FONT_WEIGHT_BOLD if bold else cairo.FONT_WEIGHT_NORMAL
        )
        pen.set_font_size(points / 72)
        widths = [pen.text_extents(letter).x_advance for letter in words]
        gap = (math.radians(sweep) * radius - sum(widths)) / max(1, len(words) - 1)
        place = -math.radians(sweep) / 2 * radius
        for letter, width in zip(words, widths):
            turn = (place + width / 2) / radius * (-1 if inward else 1)
            angle = math.radians(start) + turn
            pen.save()
            pen.translate(x + radius * math.cos(angle), y + radius * math.sin(angle))
            pen.rotate(angle + (-math.pi / 2 if inward else math.pi / 2))
            pen.move_to(-width / 2, 0)
            pen.show_text(letter)
            pen.restore()
            place += width + gap

    def rosette(self, x, y, radius, petals, depth):
        """An engine-turned rosette of fine lines."""
        self.pen.set_line_width(0.005)
        for phase in (0, 0.25, 0.5, 0.75):
            for i in range(721):
                angle = math.radians(i / 2)
                r = radius - depth * (0.5 + 0.5 * math.sin(petals * angle + phase * 2 * math.pi))
                (self.pen.line_to if i else self.pen.move_to)(
                    x + r * math.cos(angle), y + r * math.sin(angle)
                )
            self.pen.stroke()

    def wax(self, x, y, radius):
        """A wafer of sealing wax: ragged, with the light caught on its pressed edge."""
        outline = [radius * (1 + 0.06 * self.random.uniform(-1, 1)) for _ in range(28)]
        self.pen.new_path()
        for i in range(29):
            angle, r = 2 * math.pi * i / 28, outline[i % 28]
            self.pen.line_to(x + r * math.cos(angle), y + r * math.sin(angle))
        self.pen.close_path()
        self.pen.fill()
        self.pen.set_operator(cairo.OPERATOR_CLEAR)
        self.ring(x, y, radius * 0.74, 0.012)
        self.ring(x, y, radius * 0.68, 0.006)
        for _ in range(90):
            angle, r = self.random.uniform(0, 2 * math.pi), radius * self.random.uniform(0.78, 1.0)
            size = self.random.uniform(0.002, 0.009)
            self.pen.arc(x + r * math.cos(angle), y + r * math.sin(angle), size, 0, 7)
            self.pen.fill()
        self.text("L", x, y + radius * 0.24, radius * 58, "Blankenburg_UNZ1A", align=0.5)
        self.pen.set_operator(cairo.OPERATOR_OVER)


def bezier(points, t):
    """The point at t (0 to 1) of a Bezier curve."""
    while len(points) > 1:
        points = [((1 - t) * a[0] + t * b[0], (1 - t) * a[1] + t * b[1]) for a, b in zip(points, points[1:])]
    return points[0]
