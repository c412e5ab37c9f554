"""What stands round the views of the drawing: border, details, tables, notes and title. Lengths in inches."""

import math

from drafting import BOLD, CENTRE, FINE, HIDDEN, LINE

WIDTH, HEIGHT = 24.0, 36.0


def border(s):
    s.box(0.4, 0.4, WIDTH - 0.8, HEIGHT - 0.8, FINE)
    s.box(0.75, 0.75, WIDTH - 1.5, HEIGHT - 1.5, BOLD)
    for k in range(8):
        x = 0.75 + (WIDTH - 1.5) * (k + 0.5) / 8
        for y in (0.65, HEIGHT - 0.5):
            s.text(str(k + 1), x, y, 14, 0.5)
        if k:
            edge = 0.75 + (WIDTH - 1.5) * k / 8
            s.lines([(edge, 0.4), (edge, 0.75)], [(edge, HEIGHT - 0.75), (edge, HEIGHT - 0.4)], width=FINE)
    for k in range(12):
        y = 0.75 + (HEIGHT - 1.5) * (k + 0.5) / 12
        for x in (0.575, WIDTH - 0.575):
            s.text("ABCDEFGHJKLM"[k], x, y + 0.07, 14, 0.5)
        if k:
            edge = 0.75 + (HEIGHT - 1.5) * k / 12
            s.lines([(0.4, edge), (0.75, edge)], [(WIDTH - 0.75, edge), (WIDTH - 0.4, edge)], width=FINE)


def caption(s, words, below, x, y):
    s.text(words, x, y, 24, 0.5)
    wide = len(words) * 0.115
    s.lines([(x - wide, y + 0.09), (x + wide, y + 0.09)], width=BOLD)
    s.text(below, x, y + 0.36, 12, 0.5)


def details(s):
    """Right-hand column: a flange, the pump's curve and the list of parts."""
    x, y = 21.3, 22.2
    for r, w in ((1.25, BOLD), (0.75, BOLD), (0.82, FINE)):
        s.circle(x, y, r, w)
    s.circle(x, y, 1.02, FINE, dash=CENTRE)
    for k in range(12):
        a = math.radians(15 + 30 * k)
        s.circle(x + 1.02 * math.cos(a), y + 1.02 * math.sin(a), 0.07)
        s.lines(
            [
                (x + 0.9 * math.cos(a), y + 0.9 * math.sin(a)),
                (x + 1.14 * math.cos(a), y + 1.14 * math.sin(a)),
            ],
            width=FINE,
        )
    s.cross(x, y, 1.5)
    s.dimension(x - 0.75, x + 0.75, y + 1.75, "1′-3″")
    s.dimension(x - 1.25, x + 1.25, y + 2.05, "2′-1″")
    caption(s, "DETAIL OF FLANGE", "12 bolts 1 1/8 inch; scale 1:10", x, y + 2.6)
    curve(s, 19.85, 28.9)
    revisions(s)


def curve(s, x, y):
    """Head against quantity."""
    wide, high = 3.1, 2.4
    for k in range(9):
        s.lines(
            [(x + wide * k / 8, y), (x + wide * k / 8, y - high)],
            [(x, y - high * k / 8), (x + wide, y - high * k / 8)],
            width=FINE,
        )
        s.text(str(k * 5), x + wide * k / 8, y + 0.17, 8.5, 0.5)
        if k % 2 == 0:
            s.text(str(k * 30), x - 0.08, y - high * k / 8 + 0.04, 8.5, 1.0)
    s.lines(
        [(x + wide * t / 40, y - high * (228 - 0.045 * t**2 - 0.1 * t) / 240) for t in range(37)],
        width=BOLD,
    )
    s.lines(
        [(x + wide * t / 40, y - high * (150 + 0.035 * t**2) / 240) for t in range(37)],
        width=LINE,
        dash=HIDDEN,
    )
    s.circle(x + wide * 30.7 / 40, y - high * 183 / 240, 0.07)
    s.box(x, y - high, wide, high, BOLD)
    s.text("Thousand gallons an hour", x + wide / 2, y + 0.38, 10, 0.5)
    s.text("Head in feet", x - 0.42, y - high / 2, 10, 0.5, -90)
    caption(s, "PUMP CURVE", "Pump (full) and system (dashed)", x + wide / 2, y + 0.85)


REVISIONS = (
    ("A", "Valve 5 moved outside the wall", "S.F."),
    ("B", "Strainers in bronze", "S.F."),
    ("C", "Switchboard to five panels", "L.B."),
    ("", "", ""),
)


def revisions(s):
    x, y, row = 18.4, 31.2, 0.3
    s.text("REVISIONS", x + 2.3, y - 0.15, 14, 0.5)
    ruled(s, x, y, row, (0, 0.5, 3.9, 4.7), REVISIONS)


def ruled(s, x, y, row, edges, rows):
    """A table: its rules and its words."""
    for k in range(len(rows) + 1):
        s.lines([(x, y + k * row), (x + edges[-1], y + k * row)], width=FINE)
    for edge in edges:
        s.lines([(x + edge, y), (x + edge, y + len(rows) * row)])
    for k, line in enumerate(rows):
        for words, edge in zip(line, edges):
            s.text(words, x + edge + 0.08, y + (k + 1) * row - 0.09, 10.5)


PARTS = (
    ("1", "Centrifugal pump, 12 inch", "2"),
    ("2", "Motor, 75 h.p., 1450 r.p.m.", "2"),
    ("3", "Sluice valve, 12 inch", "4"),
    ("4", "Reflux valve, 12 inch", "2"),
    ("5", "Sluice valve, 15 inch", "2"),
    ("6", "Strainer, 18 inch, bronze", "2"),
    ("7", "Suction pipe, 18 inch, cast iron", "44 ft"),
    ("8", "Delivery pipe, 15 inch, cast iron", "61 ft"),
    ("9", "Gantry beam, 16 x 6 inch", "1"),
    ("10", "Travelling block, 4 tons", "1"),
    ("11", "Switchboard, five panels", "1"),
    ("12", "Chequer plate, 5/16 inch", "212 sq.ft"),
)


def parts(s):
    x, y, row = 18.4, 15.6, 0.3
    s.text("LIST OF PARTS", x + 2.3, y - 0.15, 16, 0.5)
    ruled(s, x, y, row, (0, 0.5, 3.75, 4.7), (("No.", "Description", "Off"), *PARTS))


NOTES = (
    "1. All levels are in feet above the Board’s datum at Hollin Bridge.",
    "2. Dimensions of the house were taken on the spot and govern the work.",
    "3. New brickwork in cement mortar, one to three, bonded to the old.",
    "4. Pit walls to be rendered to a height of six feet before the pumps are set.",
    "5. Pipes to be tested to 200 lb. per square inch in the presence of the Engineer.",
    "6. Compensation water to pass at all times while work is in hand.",
)


def title(s):
    x, y, wide, high = 13.6, 34.45, 9.65, 0.8
    s.box(x, y, wide, high, BOLD)
    for edge in (5.2, 7.3, 8.5):
        s.lines([(x + edge, y), (x + edge, y + high)], width=LINE)
    s.text("WENNA VALLEY WATER BOARD", x + 0.15, y + 0.27, 15)
    s.text("ALDER FORD PUMPING STATION: GENERAL ARRANGEMENT", x + 0.15, y + 0.6, 11.5)
    for words, value, edge in (
        ("ENGINEER", "S. Fallow", 5.3),
        ("SCALE", "as shown", 7.4),
        ("DRAWING", "1005", 8.6),
    ):
        s.text(words, x + edge, y + 0.2, 8)
        s.text(
            value,
            x + edge,
            y + 0.6,
            18 if edge < 7 else 13 if edge < 8 else 24,
            font="Kristi" if edge < 7 else "Routed Gothic",
        )
    for k, words in enumerate(NOTES):
        s.text(words, 1.1 + (k % 2) * 6.1, 34.6 + (k // 2) * 0.27, 9.5)
