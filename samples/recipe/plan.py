"""The plan of the deed: the boundary from its courses, with road, river and closes. One unit is a chain."""

import csv
import math
from pathlib import Path

CHAINS_PER_INCH = 2.5
COURSES = Path(__file__).with_name("courses.csv")


def courses():
    with open(COURSES, encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))


def table():
    """The courses as rows of the deed's table."""
    rows = []
    for station, c in enumerate(courses(), 1):
        rows.append(
            f"{station}&{c['north_south']}.\\ {c['degrees']}° {int(c['minutes']):02d}′ {c['east_west']}."
            f"&{c['chains']}&{c['along']}\\\\"
        )
    return "\n".join(rows) + "\n"


def stations():
    """The stations in chains, east and north of the first."""
    x = y = 0.0
    result = []
    for c in courses():
        result.append((x, y))
        bearing = math.radians(int(c["degrees"]) + int(c["minutes"]) / 60)
        x += float(c["chains"]) * math.sin(bearing) * (1 if c["east_west"] == "E" else -1)
        y += float(c["chains"]) * math.cos(bearing) * (1 if c["north_south"] == "N" else -1)
    return result


class Plan:
    def __init__(self, ink, left, top):
        """Draws on `ink`, station 1 at (left, top) inches."""
        self.ink, self.pen, self.left, self.top = ink, ink.pen, left, top
        self.corners = stations()

    def at(self, point):
        return self.left + point[0] / CHAINS_PER_INCH, self.top - point[1] / CHAINS_PER_INCH

    def path(self, points, width, dash=(), close=False, smooth=False):
        pen = self.pen
        pen.set_line_width(width)
        pen.set_dash([d for d in dash])
        places = [self.at(p) for p in points]
        pen.move_to(*places[0])
        for i in range(1, len(places)):
            if smooth:
                before, a, b, after = (
                    places[max(0, min(len(places) - 1, k))] for k in (i - 2, i - 1, i, i + 1)
                )
                pen.curve_to(
                    a[0] + (b[0] - before[0]) / 6,
                    a[1] + (b[1] - before[1]) / 6,
                    b[0] - (after[0] - a[0]) / 6,
                    b[1] - (after[1] - a[1]) / 6,
                    *b,
                )
            else:
                pen.line_to(*places[i])
        if close:
            pen.close_path()
        pen.stroke()
        pen.set_dash([])

    def label(self, words, point, points=8.5, font="Old Standard TT", angle=0.0, spacing=0.0):
        x, y = self.at(point)
        self.ink.text(words, x, y, points, font, angle, align=0.5, spacing=spacing)

    def draw(self):
        self.edging()
        self.surroundings()
        self.closes()
        self.marks()
        self.compass()
        self.scale()

    def edging(self):
        """The boundary, and hatching inside it."""
        pen = self.pen
        pen.save()
        for i, corner in enumerate(self.corners):
            (pen.line_to if i else pen.move_to)(*self.at(corner))
        pen.close_path()
        outline = pen.copy_path()
        pen.clip()
        pen.set_line_width(0.006)
        for i, a in enumerate(self.corners):
            b = self.corners[(i + 1) % len(self.corners)]
            length = math.dist(a, b)
            for step in range(int(length / 0.1)):
                t = step * 0.1 / length
                x, y = self.at((a[0] + (b[0] - a[0]) * t, a[1] + (b[1] - a[1]) * t))
                pen.move_to(x - 0.07, y + 0.07)
                pen.line_to(x + 0.07, y - 0.07)
        pen.stroke()
        pen.restore()
        pen.append_path(outline)
        pen.set_line_width(0.016)
        pen.stroke()

    def surroundings(self):
        c = self.corners
        north = [(-1.3, 0.15), c[0], c[1], c[2], (c[2][0] + 1.2, c[2][1] + 0.16)]
        self.path([(x, y + 0.18) for x, y in north], 0.008)
        self.path([(x, y + 0.62) for x, y in north], 0.008)
        self.label("To Nether Coombe", (9.2, 1.95), angle=-7.3, points=8)
        self.label("TURNPIKE  ROAD", (4.6, 1.35), angle=-7.3, spacing=0.03)
        lane = [c[0], c[14], c[13], c[12], (c[12][0] + 0.2, c[12][1] - 1.4)]
        self.path([(x - 0.12, y) for x, y in lane], 0.008)
        self.path([(x - 0.5, y) for x, y in lane], 0.008)
        self.label("DROVER’S WYND", (-0.25, -4.9), angle=77, points=8, spacing=0.015)
        river = [
            (-0.9, -8.7),
            (c[11][0] - 1.4, c[11][1] - 0.2),
            c[11],
            c[10],
            c[9],
            c[8],
            c[7],
            (c[7][0] + 1.3, c[7][1] + 0.35),
        ]
        for offset, width in ((0.42, 0.011), (0.16, 0.004), (-0.16, 0.004), (-0.34, 0.004), (-0.6, 0.011)):
            self.path([(x + offset * 0.15, y + offset) for x, y in river], width, smooth=True)
        self.label("R I V E R   W E N N A", (9.2, -12.35), font="Z003", points=12, angle=-7)
        self.label("Trustees of", (12.75, -7.9), points=8)
        self.label("Sallowfield", (12.75, -8.3), points=8)
        self.label("Charity", (12.75, -8.7), points=8)

    def closes(self):
        c = self.corners
        self.path([(0.7, -3.35), (4.7, -2.9), (6.4, -2.7), (7.0, 0.85)], 0.007)
        self.path([(6.4, -2.7), (11.2, -2.9)], 0.007, dash=(0.07, 0.03))
        self.path([(4.7, -2.9), (4.9, -7.0), (5.2, -10.6)], 0.007)
        self.path([(5.0, -7.3), (8.2, -7.6), (11.7, -7.4)], 0.007)
        self.path([(8.2, -7.6), (8.7, -11.1)], 0.007)
        for side in (-0.07, 0.07):
            race = [(2.15, -9.6), (2.9, -8.3), (4.0, -8.0), (5.6, -8.7), (7.6, -9.3), (8.6, -11.2)]
            self.path([(x, y + side) for x, y in race], 0.006, smooth=True)
        x, y = self.at((2.1, -6.2))
        self.pen.rectangle(x, y, 0.36, 0.2)
        self.pen.fill()
        self.pen.rectangle(x + 0.42, y + 0.02, 0.16, 0.14)
        self.pen.fill()
        self.pen.set_line_width(0.006)
        self.pen.rectangle(x - 0.08, y - 0.34, 0.72, 0.62)
        self.pen.stroke()
        for name, number, place in (
            ("Mill Meadow", "41", (3.4, -1.1)),
            ("Long Holm", "42", (9.2, -0.7)),
            ("Great Intake", "45", (8.2, -5.2)),
            ("Little Intake", "46", (3.2, -4.8)),
            ("Osier Bed", "43", (10.1, -9.2)),
        ):
            self.label(name, place, points=10, font="Z003")
            self.label(number, (place[0], place[1] - 0.45), points=8)
        self.label("44", (4.0, -6.6), points=8)
        self.label("Mill race", (5.9, -8.55), points=8, font="Z003", angle=18)
        self.label("Weir", (c[10][0] - 0.15, c[10][1] - 0.85), points=8)
        self.path([c[10], (c[11][0] + 0.05, c[11][1] - 0.05)], 0.03)

    def marks(self):
        """The stations, and the oak."""
        middle = (6.0, -5.0)
        for i, (x, y) in enumerate(self.corners):
            px, py = self.at((x, y))
            self.ink.ring(px, py, 0.028, 0.008)
            away = math.dist((x, y), middle)
            self.label(
                str(i + 1),
                (x + (x - middle[0]) / away * 0.33 + 0.02, y + (y - middle[1]) / away * 0.33 - 0.09),
                points=7.5,
            )
        x, y = self.at((2.6, -9.2))
        for k in range(9):
            angle = k * 2 * math.pi / 9
            self.ink.ring(x + 0.055 * math.cos(angle), y + 0.055 * math.sin(angle), 0.025, 0.006)
        self.label("Parson’s Oak", (4.05, -9.25), points=7.5)

    def compass(self):
        x, y = self.at((12.7, -1.4))
        pen = self.pen
        pen.set_line_width(0.007)
        pen.move_to(x, y + 0.5)
        pen.line_to(x, y - 0.55)
        pen.move_to(x - 0.22, y)
        pen.line_to(x + 0.22, y)
        pen.stroke()
        self.ink.ring(x, y, 0.13, 0.005)
        pen.move_to(x, y - 0.72)
        pen.line_to(x - 0.06, y - 0.46)
        pen.line_to(x, y - 0.52)
        pen.line_to(x + 0.06, y - 0.46)
        pen.fill()
        self.ink.text("N", x, y - 0.76, 13, align=0.5, font="Old Standard TT")

    def scale(self):
        """A bar of eight chains."""
        x, y, chain = 2.9, 9.3, 1 / CHAINS_PER_INCH
        pen = self.pen
        pen.set_line_width(0.007)
        for k in range(8):
            pen.rectangle(x + k * chain, y, chain, 0.06)
            if k % 2 == 0:
                pen.fill_preserve()
            pen.stroke()
            self.ink.text(str(k), x + k * chain, y - 0.06, 8, "Old Standard TT", align=0.5)
        self.ink.text("8 Chains", x + 8 * chain - 0.03, y - 0.06, 8, "Old Standard TT")
