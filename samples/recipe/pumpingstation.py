#!/usr/bin/python3
"""pumpingstation.py FILE : a drawing of 24 x 36 inches: section, plan, details. Lengths of the house in feet."""

import math
import sys

import paper
from drawingmargin import HEIGHT, WIDTH, border, caption, details, parts, title
from drafting import BOLD, CENTRE, FINE, HIDDEN, LINE, Sheet

FOOT = 0.375


class View:
    """A view at three eighths of an inch to the foot; its origin on the sheet, y upwards in a section."""

    def __init__(self, sheet, x, y, up):
        self.sheet, self.x, self.y, self.up = sheet, x, y, up

    def at(self, x, y):
        return self.x + x * FOOT, self.y + (-y if self.up else y) * FOOT

    def path(self, *points):
        return [self.at(x, y) for x, y in points]

    def rect(self, x0, y0, x1, y1):
        return self.path((x0, y0), (x1, y0), (x1, y1), (x0, y1))

    def box(self, x0, y0, x1, y1, width=LINE, dash=()):
        self.sheet.lines(self.rect(x0, y0, x1, y1), width=width, dash=dash, close=True)


def feet(value):
    whole = int(value + 1e-6)
    return f"{whole}′-{round((value - whole) * 12)}″"


def truss(s, v, left, right, low, high):
    """A king-post truss with its purlins, rafters and slates."""
    middle = (left + right) / 2
    for lift in (0, 0.55):
        s.lines(v.path((left, low + lift), (middle, high + lift), (right, low + lift)))
    for k in range(1, 22):
        t = k / 22
        for a, b in ((left, middle), (right, middle)):
            x, y = a + (b - a) * t, low + (high - low) * t
            s.lines(v.path((x, y + 0.55), (x + (0.5 if a < b else -0.5), y + 0.83)), width=FINE)
    s.lines(v.path((left - 1, low + 0.15), (middle, high + 0.95), (right + 1, low + 0.15)), width=BOLD)
    for lift in (0, -0.7):
        s.lines(v.path((left, low + lift), (right, low + lift)))
    for x in (middle - 0.35, middle + 0.35):
        s.lines(v.path((x, low), (x, high - 0.3)))
    for side in (-1, 1):
        quarter = middle + side * (right - left) / 4
        for shift in (0.0, 0.45):
            s.lines(
                v.path((middle + side * 0.35, low + 0.2 + shift), (quarter, (low + high) / 2 - 0.35 + shift))
            )
        for t in (0.25, 0.5, 0.75):
            x = left + (middle - left) * t if side < 0 else right - (right - middle) * t
            y = low + (high - low) * t + 0.55
            v.box(x - 0.25, y, x + 0.25, y + 0.4)
    s.circle(*v.at(middle, low - 0.35), 0.05)


def pump_side(s, v, x, floor):
    """A pump and its motor from the side, on their bed."""
    s.concrete(*v.rect(x - 3.8, floor, x + 3.2, floor + 1.1), seed=int(x))
    cx, cy = v.at(x - 2, floor + 2.5)
    for r, w in ((0.5, BOLD), (0.42, LINE), (0.2, LINE), (0.08, LINE)):
        s.circle(cx, cy, r, w)
    for k in range(12):
        a = math.radians(k * 30)
        s.circle(cx + 0.31 * math.cos(a), cy + 0.31 * math.sin(a), 0.025)
    s.cross(cx, cy, 0.7)
    v.box(x - 2.7, floor + 1.1, x - 1.3, floor + 1.5)
    v.box(x - 0.5, floor + 1.5, x + 2.7, floor + 3.7, BOLD)
    for k in range(15):
        y = floor + 1.65 + k * 0.135
        s.lines(v.path((x - 0.2, y), (x + 2.4, y)), width=FINE)
    v.box(x - 0.2, floor + 1.1, x + 0.5, floor + 1.5)
    v.box(x + 1.7, floor + 1.1, x + 2.4, floor + 1.5)
    v.box(x - 0.9, floor + 2.15, x - 0.5, floor + 2.85)
    v.box(x + 2.7, floor + 2.3, x + 2.95, floor + 2.7)


def section(s):
    v = View(s, 4.6, 12.4, True)
    truss(s, v, 0, 34, 19, 27)
    s.brick(*v.path((-1.5, -2), (0, -2), (0, 19.2), (-1.5, 19.2)))
    s.brick(*v.path((34, -2), (35.5, -2), (35.5, 19.2), (34, 19.2)))
    s.concrete(*v.rect(-2.2, -14, 0, -2), seed=2)
    s.concrete(*v.rect(34, -14, 36.2, -2), seed=3)
    s.concrete(*v.rect(0, -14, 34, -12), seed=4)
    s.earth(v.path((-8.5, 0), (-1.5, 0)))
    s.earth(v.path((35.5, 0), (43.2, 0)))
    v.box(0, -0.6, 5.5, 0, BOLD)
    v.box(28, -0.6, 34, 0, BOLD)
    for x in (5.5, 28):
        s.lines(
            v.path((x, 0), (x, 3.2)),
            v.path((x, 3.2), (0 if x < 10 else 34, 3.2)),
            v.path((x, 1.7), (0 if x < 10 else 34, 1.7)),
        )
    for k in range(14):
        v.box(5.5, -0.75 - k * 0.82, 7.0, -0.68 - k * 0.82)
    for x in (5.5, 7.0):
        s.lines(v.path((x, 0.8), (x, -12)))
    for x in (9, 16, 23):
        window(s, v, x)
    gantry(s, v)
    for x in (15, 26.5):
        pump_side(s, v, x, -12)
    pipes(s, v)
    chimney(s, v)
    section_dimensions(s, v)
    caption(s, "SECTION ON A-A", "Scale: 3/8 inch to one foot", 11.2, 19.3)


def window(s, v, x):
    v.box(x, 5, x + 4, 12.5)
    cx, cy = v.at(x + 2, 12.5)
    s.circle(cx, cy, 2 * FOOT, LINE, 180, 360)
    s.circle(cx, cy, 2.45 * FOOT, FINE, 180, 360)
    for k in range(13):
        a = math.pi + math.pi * k / 12
        s.lines(
            [
                (cx + 2 * FOOT * math.cos(a), cy + 2 * FOOT * math.sin(a)),
                (cx + 2.45 * FOOT * math.cos(a), cy + 2.45 * FOOT * math.sin(a)),
            ],
            width=FINE,
        )
    for k in (1, 2, 3):
        s.lines(v.path((x + k, 5), (x + k, 12.5 + (1.95 if k == 2 else 1.6))), width=FINE)
    for k in range(1, 6):
        s.lines(v.path((x, 5 + k * 1.25), (x + 4, 5 + k * 1.25)), width=FINE)
    v.box(x - 0.3, 4.6, x + 4.3, 5)


def gantry(s, v):
    for y in (15.2, 15.4, 16.6, 16.8):
        s.lines(v.path((0, y), (34, y)))
    for x in (1.2, 32.8):
        v.box(x - 0.7, 14.3, x + 0.7, 15.2)
        s.lines(v.path((x - 0.7, 14.3), (0 if x < 9 else 34, 13.2)))
    x = 19.5
    v.box(x - 1.4, 13.9, x + 1.4, 15.2, BOLD)
    for dx in (-0.9, 0.9):
        s.circle(*v.at(x + dx, 15.0), 0.1)
        s.circle(*v.at(x + dx, 15.0), 0.03)
    s.lines(v.path((x - 0.25, 13.9), (x - 0.25, 9.2)), v.path((x + 0.25, 13.9), (x + 0.25, 9.2)), width=FINE)
    s.circle(*v.at(x, 8.9), 0.13)
    s.circle(*v.at(x, 8.35), 0.1, LINE, -60, 200)


def pipes(s, v):
    """Suction from the well below, delivery up and out through the wall."""
    for x in (13.0, 24.5):
        s.pipe(*v.path((x, -8.6), (x, 1.6)), bore=0.27)
        s.valve(*v.at(x, -5.6), upright=True, size=0.2)
        s.valve(*v.at(x, -2.4), upright=True, size=0.17)
    s.pipe(*v.path((10.5, 1.6), (40.6, 1.6)), bore=0.36)
    s.valve(*v.at(38.2, 1.6))
    s.pipe(*v.path((-7.5, -9.4), (11.6, -9.4)), bore=0.32)
    s.lines(
        v.path((-7.5, -8.7), (-8.1, -8.2)),
        v.path((-7.5, -10.1), (-8.1, -10.6)),
        v.path((-8.1, -8.2), (-8.1, -10.6)),
    )
    for k in range(7):
        s.lines(v.path((-8.1, -8.4 - k * 0.33), (-7.6, -8.8 - k * 0.2)), width=FINE)
    x, y = v.at(-6.2, -5.2)
    s.lines(
        [(x - 0.9, y), (x + 0.75, y)],
        [(x - 0.5, y + 0.07), (x + 0.4, y + 0.07)],
        [(x - 0.25, y + 0.14), (x + 0.15, y + 0.14)],
        width=FINE,
    )
    s.level(x - 0.2, y, "W.L. 284.50")


def chimney(s, v):
    for x in (43.2, 44.0, 47.0, 47.8):
        s.lines(v.path((x, -3), (x, 30)))
    for x0, x1 in ((43.2, 44.0), (47.0, 47.8)):
        s.brick(*v.rect(x0, -3, x1, 24))
    for y in (30, 30.6):
        s.lines(v.path((42, y), (45, y), (45.3, y + 0.8), (45.7, y - 0.8), (46, y), (49, y)), width=FINE)
    s.concrete(*v.rect(41.8, -5, 49.2, -3), seed=8)
    s.earth(v.path((47.8, 0), (49.4, 0)))
    s.brick(*v.rect(43.2, 3, 47, 6.4), gap=0.05)
    s.note("FLUE BRICKED UP", v.at(42, 9)[0], v.at(0, 9.4)[1], *v.at(44.6, 5.6))
    s.note("CHIMNEY, 58′-0″ HIGH, TO STAND OVER", v.at(42, 0)[0], v.at(0, 27.4)[1], *v.at(43.2, 26.2))


def section_dimensions(s, v):
    s.dimension(v.at(0, 0)[0], v.at(34, 0)[0], v.at(0, -15.3)[1], feet(34))
    s.dimension(v.at(-1.5, 0)[0], v.at(35.5, 0)[0], v.at(0, -16.6)[1], feet(37))
    last = 0
    for x in (9, 13, 16, 20, 23, 27, 34):
        s.dimension(v.at(last, 0)[0], v.at(x, 0)[0], v.at(0, 29.4)[1], feet(x - last))
        last = x
    for low, high in ((-14, -12), (-12, 0), (0, 16.8), (16.8, 27)):
        s.dimension(v.at(0, low)[1], v.at(0, high)[1], v.at(-9.4, 0)[0], feet(high - low), True)
    for x, y, words in ((29.2, 0, "FLOOR 296.00"), (31, -12, "PIT 284.00"), (29.2, 16.8, "RAIL 312.80")):
        s.level(*v.at(x, y), words)
    for words, x, y, tx, ty in (
        ("SLATES ON BOARDING", 36.4, 24.4, 25.6, 23.6),
        ("KING-POST TRUSSES", 36.4, 22.2, 24.6, 21.3),
        ("GANTRY, TO LIFT 4 TONS", 36.8, 14.8, 30, 16.2),
        ("15″ DELIVERY", 37.2, 4, 36.4, 2.1),
    ):
        s.note(words, *v.at(x, y), *v.at(tx, ty))
    for words, x, y, tx, ty in (
        ("18″ SUCTION", -3.0, -12.4, -2.6, -9.9),
        ("STRAINER", -5.2, -14.2, -7.8, -10.4),
    ):
        s.note(words, *v.at(x, y), *v.at(tx, ty))


def pump_plan(s, v, x, y, number):
    v.box(x - 4, y - 2.1, x + 4.2, y + 2.1, FINE, HIDDEN)
    cx, cy = v.at(x - 2, y)
    for r, w in ((0.52, BOLD), (0.44, LINE), (0.16, LINE)):
        s.circle(cx, cy, r, w)
    s.cross(cx, cy, 0.75)
    v.box(x - 0.4, y - 1.2, x + 3.1, y + 1.2, BOLD)
    for k in range(17):
        s.lines(v.path((x - 0.1 + k * 0.18, y - 1.05), (x - 0.1 + k * 0.18, y + 1.05)), width=FINE)
    v.box(x - 0.8, y - 0.4, x - 0.4, y + 0.4)
    for dx in (-3.7, 3.9):
        for dy in (-1.8, 1.8):
            s.circle(*v.at(x + dx, y + dy), 0.04)
    s.circle(*v.at(x + 5.4, y), 0.2)
    s.text(str(number), v.at(x + 5.4, y)[0], v.at(x, y)[1] + 0.08, 14, 0.5)


def plan(s):
    v = View(s, 4.6, 22.0, False)
    openings_top = ((9, 13), (16, 20), (23, 27))
    walls = [
        ((-1.5, -1.5), (9, 0)),
        ((13, -1.5), (16, 0)),
        ((20, -1.5), (23, 0)),
        ((27, -1.5), (35.5, 0)),
        ((-1.5, 0), (0, 9)),
        ((-1.5, 14), (0, 26)),
        ((34, 0), (35.5, 26)),
        ((-1.5, 26), (9, 27.5)),
        ((13, 26), (16, 27.5)),
        ((20, 26), (23, 27.5)),
        ((27, 26), (35.5, 27.5)),
    ]
    for (x0, y0), (x1, y1) in walls:
        s.brick(*v.rect(x0, y0, x1, y1))
    for y0, y1 in ((-1.5, 0), (26, 27.5)):
        for x0, x1 in openings_top:
            s.lines(
                v.path((x0, y0), (x1, y0)),
                v.path((x0, y1), (x1, y1)),
                v.path((x0, (y0 + y1) / 2), (x1, (y0 + y1) / 2)),
                width=FINE,
            )
    for side, edge in ((-1, 9), (1, 14)):
        cx, cy = v.at(0, edge)
        s.circle(cx, cy, 2.5 * FOOT, FINE, 0 if side < 0 else -90, 90 if side < 0 else 0)
        s.lines(v.path((0, edge), (2.5, edge)))
    v.box(5.5, 3, 28, 23, BOLD)
    v.box(5.2, 2.7, 28.3, 23.3, FINE)
    for k in range(13):
        s.lines(v.path((7 + k * 0.8, 20.6), (7 + k * 0.8, 23)), width=FINE)
    s.lines(v.path((7, 20.6), (17, 20.6)))
    s.lines(v.path((7.4, 21.8), (16.2, 21.8)), width=FINE)
    s.arrow(*v.at(16.4, 21.8), 0)
    s.text("DN", *v.at(17.2, 22.1), 11)
    pump_plan(s, v, 16, 7.5, 1)
    pump_plan(s, v, 16, 15.5, 2)
    for y in (7.5, 15.5):
        s.pipe(*v.path((-5.6, y), (12.6, y)), bore=0.32)
        s.valve(*v.at(8.8, y), size=0.2)
    s.pipe(*v.path((14, 9), (14, 13.9)), bore=0.27)
    s.pipe(*v.path((23.6, 5), (23.6, 30.5)), bore=0.36)
    s.pipe(*v.path((15.4, 5), (23.6, 5)), bore=0.27)
    s.pipe(*v.path((15.4, 18.2), (23.6, 18.2)), bore=0.27)
    s.valve(*v.at(20.5, 5), size=0.18)
    s.valve(*v.at(20.5, 18.2), size=0.18)
    s.valve(*v.at(23.6, 24.6), upright=True, size=0.2)
    switchboard(s, v)
    boiler_house(s, v)
    for x in (-9.6, 37.4):
        px, py = v.at(x, 11.5)
        s.lines([(px - 0.35, py), (px + 0.35, py)], width=BOLD)
        s.lines([(px, py), (px, py - 0.5)], width=LINE)
        s.arrow(px, py - 0.6, -90)
        s.text("A", px + 0.12, py - 0.25, 22)
    s.lines(v.path((-9.6, 11.5), (37.4, 11.5)), width=FINE, dash=CENTRE)
    plan_dimensions(s, v)
    caption(s, "PLAN AT FLOOR LEVEL", "Scale: 3/8 inch to one foot", 8.6, 33.45)


def switchboard(s, v):
    for k in range(5):
        v.box(30, 5 + k * 2.4, 32.4, 7.4 + k * 2.4)
        s.lines(v.path((30, 5 + k * 2.4), (32.4, 7.4 + k * 2.4)), width=FINE)
    v.box(29.9, 4.9, 32.5, 17.1, BOLD)
    s.text("SWITCHBOARD", *v.at(33.3, 11), 10, 0.5, -90)


def boiler_house(s, v):
    """The stubs of the old boiler-house, broken off."""
    for y in (4, 22):
        s.brick(
            *v.path((35.5, y), (38, y), (38.3, y + 0.5), (37.8, y + 0.8), (38.1, y + 1.2), (35.5, y + 1.2))
        )
    for k, words in enumerate(("OLD BOILER-", "HOUSE, NOW", "STORE")):
        s.text(words, v.at(35.9, 0)[0], v.at(0, 15)[1] + k * 0.2, 10)


def plan_dimensions(s, v):
    last = 0
    for x in (5.5, 14, 23.6, 28, 34):
        s.dimension(v.at(last, 0)[0], v.at(x, 0)[0], v.at(0, -3)[1], feet(x - last))
        last = x
    s.dimension(v.at(-1.5, 0)[0], v.at(35.5, 0)[0], v.at(0, -4.6)[1], feet(37))
    last = 0
    for y in (3, 7.5, 15.5, 23, 26):
        s.dimension(v.at(0, last)[1], v.at(0, y)[1], v.at(-7, 0)[0], feet(y - last), True)
        last = y
    s.dimension(v.at(0, -1.5)[1], v.at(0, 27.5)[1], v.at(-8.9, 0)[0], feet(29), True)
    s.text("PIT", *v.at(7, 12.2), 16)
    s.text("ENGINE-HOUSE", *v.at(25, 25.2), 14)
    s.note("15″ DELIVERY TO RISING MAIN", *v.at(26.5, 30), *v.at(24.2, 29.5))
    s.note("CHEQUER PLATE OVER", *v.at(12.6, 1.9), *v.at(14.6, 3.2))


def main(target):
    s = Sheet(WIDTH, HEIGHT)
    for part in (border, section, plan, parts, details, title):
        part(s)
    paper.save(s.image(), target, rows=256)


if __name__ == "__main__":
    main(*sys.argv[1:])
