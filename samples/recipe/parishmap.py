#!/usr/bin/python3
"""parishmap.py FILE : a parish map, with contours, woods, water, roads, parcels. Lengths in metres."""

import math
import sys

import cairo
import numpy as np
from PIL import Image

from mapmargin import compass, frame, legend, scale
from mapsheet import (
    BANK,
    BROWN,
    DPI,
    FRAME,
    HIGH,
    INK,
    LEAF,
    MEADOW,
    METRES_PER_INCH,
    Map,
    RED,
    ROAD,
    ROMAN,
    ROOF,
    SCRIPT,
    WATER,
    WIDE,
    WOOD,
    curve,
)

random = np.random.RandomState(1951)


def height(x, y):
    """Height of the land; x east, y south of the frame's corner."""
    valley = (x - river_x(y)) / 900
    hills = 175 * (1 - np.exp(-(valley**2)))
    hills += 90 * np.exp(-(((x - 640) / 420) ** 2) - ((y - 900) / 520) ** 2)
    hills += 120 * np.exp(-(((x - 3250) / 480) ** 2) - ((y - 2350) / 620) ** 2)
    hills += 60 * np.exp(-(((x - 3000) / 350) ** 2) - ((y - 500) / 300) ** 2)
    ripple = 9 * np.sin(x / 170 + np.sin(y / 230)) * np.cos(y / 190 + 0.8 * np.sin(x / 310))
    return 62 + (3486 - y) / 95 + hills + ripple * (1 - np.exp(-(valley**2) * 3))


def river_x(y):
    return 1850 + 260 * np.sin(y / 620 + 0.7) + 70 * np.sin(y / 210)


def contours(field, level, step):
    """The pieces of the line of one level through a grid of heights, in metres."""
    rows, columns = field.shape
    above = field > level
    mixed = np.argwhere(
        (above[:-1, :-1] + above[1:, :-1].astype(int) + above[:-1, 1:] + above[1:, 1:]) % 4 != 0
    )
    for row, column in mixed:
        corners = ((row, column), (row, column + 1), (row + 1, column + 1), (row + 1, column))
        cuts = []
        for (r0, c0), (r1, c1) in zip(corners, corners[1:] + corners[:1]):
            a, b = field[r0, c0], field[r1, c1]
            if (a > level) != (b > level):
                t = (level - a) / (b - a)
                cuts.append(((c0 + t * (c1 - c0)) * step, (r0 + t * (r1 - r0)) * step))
        for pair in zip(cuts[::2], cuts[1::2]):
            yield pair


def relief(sheet):
    """Tints that lighten upwards and shade away from the north-west, and brown contours every ten metres."""
    step = METRES_PER_INCH / DPI
    y, x = np.mgrid[0:HIGH:step, 0:WIDE:step]
    field = height(x, y)
    down, across = np.gradient(field, step)
    light = 1 + 0.20 * (across + down).clip(-0.7, 0.7)
    tint = ((field - 60) / 260).clip(0, 1)[..., None]
    low, high = np.array([0.905, 0.935, 0.80]), np.array([0.955, 0.90, 0.78])
    colour = ((low * (1 - tint) + high * tint) * light[..., None]).clip(0, 1)
    pixels = np.zeros((*field.shape, 4), np.uint8)
    pixels[..., :3] = (colour[..., ::-1] * 255).astype(np.uint8)
    image = cairo.ImageSurface.create_for_data(pixels, cairo.FORMAT_RGB24, field.shape[1], field.shape[0])
    sheet.pen.save()
    sheet.pen.translate(FRAME[0], FRAME[1])
    sheet.pen.scale(1 / DPI, 1 / DPI)
    sheet.pen.set_source_surface(image)
    sheet.pen.paint()
    sheet.pen.restore()
    coarse = 12.0
    y, x = np.mgrid[0 : HIGH + coarse : coarse, 0 : WIDE + coarse : coarse]
    field = height(x, y)
    for level in range(70, 400, 10):
        sheet.pen.set_source_rgb(*BROWN)
        sheet.pen.set_line_width(0.0125 if level % 50 == 0 else 0.006)
        for a, b in contours(field, level, coarse):
            sheet.trace((a, b))
        sheet.pen.stroke()
    for level, y in ((100, 1180), (150, 700), (250, 2640), (200, 420)):
        across = np.arange(60, WIDE - 60, 4.0)
        hits = np.argwhere(np.diff(np.sign(height(across, y) - level)))[:, 0]
        for hit in hits[:: 2 if len(hits) > 2 else 1]:
            sheet.text(str(level), across[hit], y, 6.5, BROWN)


def river_line(offset=0.0, first=-60, last=HIGH + 60):
    return [(river_x(y) + offset, y) for y in np.arange(first, last, 20)]


def water(sheet):
    wide = [(river_x(y) - 11 - y / 190, y) for y in np.arange(-40, HIGH + 40, 20)]
    wide += [(river_x(y) + 11 + y / 190, y) for y in np.arange(HIGH + 40, -40, -20)]
    sheet.area(wide, WATER, BANK, 0.010)
    becks = [
        [(3480, 1330), (3150, 1390), (2800, 1330), (2450, 1440), (2080, 1400), (river_x(1430), 1430)],
        [(260, 1720), (620, 1660), (1000, 1760), (1380, 1700), (1700, 1790), (river_x(1810), 1810)],
        [(2700, 3450), (2500, 3100), (2250, 2960), (river_x(2890), 2890)],
    ]
    for beck in becks:
        sheet.line(curve(beck), BANK, 0.016)
    pond = [
        (2560 + 85 * math.cos(a) * (1 + 0.2 * math.sin(3 * a)), 1370 + 52 * math.sin(a))
        for a in np.arange(0, 6.28, 0.1)
    ]
    sheet.area(pond, WATER, BANK, 0.009)
    race = curve(
        [
            (river_x(2210) + 8, 2210),
            (river_x(2260) + 95, 2270),
            (river_x(2400) + 130, 2400),
            (river_x(2520) + 10, 2540),
        ]
    )
    sheet.line(race, BANK, 0.018)
    sheet.line([(river_x(2210) - 26, 2200), (river_x(2210) + 26, 2220)], INK, 0.022)


WOODS = (
    ((640, 860), 330, 210),
    ((3260, 2290), 300, 380),
    ((3020, 520), 250, 170),
    ((2380, 3230), 170, 110),
    ((520, 2650), 260, 150),
)


def woods(sheet):
    for (x, y), wide, high in WOODS:
        angles = np.arange(0, 2 * math.pi, 0.09)
        bumps = 1 + 0.13 * np.sin(angles * 5 + x) + 0.06 * np.sin(angles * 11 + y)
        sheet.area(
            [(x + wide * b * math.cos(a), y + high * b * math.sin(a)) for a, b in zip(angles, bumps)],
            WOOD,
            LEAF,
        )
        for _ in range(int(wide * high / 800)):
            r, a = math.sqrt(random.random_sample()) * 0.86, random.uniform(0, 2 * math.pi)
            tree(sheet, x + wide * r * math.cos(a), y + high * r * math.sin(a))


def tree(sheet, x, y):
    px, py = FRAME[0] + x / METRES_PER_INCH, FRAME[1] + y / METRES_PER_INCH
    sheet.pen.set_source_rgb(*LEAF)
    sheet.pen.set_line_width(0.006)
    for dx in (-0.018, 0.0, 0.018):
        sheet.pen.new_sub_path()
        sheet.pen.arc(px + dx, py - 0.012 * (dx == 0), 0.015, math.pi, 0)
    sheet.pen.move_to(px, py)
    sheet.pen.line_to(px, py + 0.02)
    sheet.pen.stroke()


TURNPIKE = (
    (-20, 1960),
    (420, 2010),
    (900, 1980),
    (1330, 2020),
    (1610, 2060),
    (2010, 2040),
    (2420, 1930),
    (2850, 1880),
    (3250, 1700),
    (3790, 1650),
)
LANES = (
    ((1330, 2020), (1290, 1700), (1180, 1330), (1220, 900), (1370, 480), (1400, -20)),
    ((2420, 1930), (2500, 2240), (2440, 2560), (2560, 2860), (2900, 3130), (3080, 3510)),
    ((900, 1980), (820, 2330), (930, 2680), (900, 3060), (1060, 3510)),
    ((2850, 1880), (2760, 1560), (2860, 1130), (2640, 760), (2700, 380), (2600, -20)),
)


def roads(sheet):
    for lane in LANES:
        line = curve(list(lane))
        sheet.line(line, INK, 0.036)
        sheet.line(line, (1, 0.985, 0.94), 0.023)
    line = curve(list(TURNPIKE))
    sheet.line(line, INK, 0.062)
    sheet.line(line, ROAD, 0.046)
    x = river_x(2052)
    for side in (-1, 1):
        sheet.line([(x - 46, 2052 + side * 15), (x + 46, 2045 + side * 15)], INK, 0.02)
    path = curve(
        [
            (river_x(2120) + 20, 2080),
            (river_x(2500) + 160, 2480),
            (river_x(2900) + 120, 2900),
            (river_x(3486) + 150, 3486),
        ]
    )
    sheet.line(path, INK, 0.011, (0.05, 0.04))


def parcels(sheet):
    """Fields along the valley, each with its number."""
    number = 1
    sheet.pen.save()
    sheet.trace([(0, 0), (WIDE, 0), (WIDE, HIGH), (0, HIGH)], True)
    sheet.pen.clip()
    rows = [2110, 2330, 2590, 2840, 3080, 3330]
    columns = [-640, -420, -215, -40, 60, 270, 470, 650]
    corner = {
        (i, j): (river_x(y) + x + random.uniform(-35, 35), y + random.uniform(-28, 28) - 0.06 * x)
        for i, y in enumerate(rows)
        for j, x in enumerate(columns)
    }
    for i in range(len(rows) - 1):
        for j in range(len(columns) - 1):
            if j == 3:
                continue
            shape = [corner[i, j], corner[i, j + 1], corner[i + 1, j + 1], corner[i + 1, j]]
            tone = random.uniform(-0.05, 0.05)
            ours = (i, j) in ((0, 4), (0, 5), (1, 4))
            colour = (0.97, 0.80, 0.76) if ours else tuple(c + tone for c in MEADOW)
            sheet.pen.set_source_rgba(*colour, 0.75)
            sheet.trace(shape, True)
            sheet.pen.fill()
            sheet.line(shape, RED if ours else LEAF, 0.013 if ours else 0.008, close=True)
            x, y = np.mean(shape, axis=0)
            sheet.text(str(number), x, y, 6.8, halo=False)
            number += 1
    sheet.pen.restore()


def buildings(sheet):
    def house(x, y, wide, deep, angle=0.0):
        c, s = math.cos(angle), math.sin(angle)
        sheet.area(
            [(x + u * c - v * s, y + u * s + v * c) for u, v in ((0, 0), (wide, 0), (wide, deep), (0, deep))],
            ROOF,
            INK,
        )

    for i in range(13):
        house(960 + i * 29 + random.uniform(-4, 4), 1938 + (i % 3) * 4, 21, 17, 0.03)
        house(985 + i * 27, 2038 + (i % 2) * 6, 20, 18, 0.03)
    for y in np.arange(1560, 1900, 46):
        house(1285 + random.uniform(-4, 8), y, 17, 24, 0.15)
        house(1205 + random.uniform(-8, 4), y + 15, 17, 22, 0.15)
    house(1120, 1840, 62, 24)
    house(1102, 1838, 20, 28)
    sheet.line([(1112, 1800), (1112, 1838)], INK, 0.012)
    sheet.line([(1102, 1812), (1122, 1812)], INK, 0.012)
    house(2920, 960, 80, 34, 0.3)
    house(2975, 1010, 34, 44, 0.3)
    house(river_x(2230) + 60, 2140, 40, 26, 0.1)
    house(river_x(2230) + 104, 2150, 22, 22, 0.1)
    for x, y in (
        (520, 1290),
        (700, 3220),
        (3420, 3050),
        (2120, 520),
        (3350, 1480),
        (1560, 2890),
        (2720, 2620),
    ):
        house(x, y, 44, 18, random.uniform(-0.4, 0.4))
        house(x + 12, y + 32, 20, 24, random.uniform(-0.4, 0.4))


def bounds(sheet):
    """The parish boundary: dots and dashes on a red band."""
    line = curve(
        [
            (170, -20),
            (250, 420),
            (130, 900),
            (180, 1420),
            (110, 1900),
            (260, 2350),
            (180, 2900),
            (330, 3240),
            (700, 3390),
            (1300, 3340),
            (1800, 3430),
            (2400, 3400),
            (3000, 3330),
            (3560, 3260),
            (3640, 2700),
            (3560, 2100),
            (3650, 1500),
            (3590, 900),
            (3480, 400),
            (3600, -20),
        ]
    )
    sheet.pen.push_group()
    sheet.line(line, (0.86, 0.45, 0.42), 0.09)
    sheet.pen.pop_group_to_source()
    sheet.pen.paint_with_alpha(0.35)
    sheet.line(line, INK, 0.014, (0.11, 0.05, 0.0, 0.05))


def names(sheet):
    sheet.text("MARROWBY", 790, 1810, 15, spacing=0.05, bold=True)
    sheet.text("Hollin Bridge 2 m.", 330, 1935, 8, angle=4, italic=True)
    sheet.text("Nether Coombe 3 m.", 3380, 1600, 8, angle=-9, italic=True)
    sheet.text("River Wenna", river_x(1080) + 85, 1080, 13, BANK, SCRIPT, angle=72, spacing=0.05)
    sheet.text("River Wenna", river_x(3010) - 70, 3090, 12, BANK, SCRIPT, angle=72, spacing=0.03)
    sheet.text("Coombe Beck", 3160, 1335, 9, BANK, SCRIPT, angle=-4)
    sheet.text("Sike Gill", 560, 1630, 9, BANK, SCRIPT, angle=9)
    for words, x, y, size in (
        ("Parson’s Wood", 640, 905, 11),
        ("Thornwick Scar", 3260, 2290, 12),
        ("Rook Plantation", 3020, 560, 10),
        ("Gallows Holt", 520, 2665, 10),
        ("Kiln Spinney", 2380, 3240, 8),
    ):
        sheet.text(words, x, y, size, (0.15, 0.28, 0.14), ROMAN, italic=True)
    for words, x, y in (
        ("Thornwick House", 2960, 1105),
        ("High Stile", 560, 1262),
        ("Garrow Farm", 735, 3300),
        ("Low Intake", 3430, 3025),
        ("Fold Head", 2140, 495),
        ("Alder Ford", river_x(2230) + 150, 2118),
        ("Weir", river_x(2210) - 80, 2222),
        ("St. Oswin’s", 1050, 1885),
        ("Mill Dam", 2565, 1290),
    ):
        sheet.text(words, x, y, 8)
    sheet.text("DROVER’S WYND", 2462, 2420, 6.5, angle=-79, spacing=0.015)
    sheet.text("TURNPIKE ROAD", 2640, 1862, 7, angle=-9, spacing=0.03)
    for words, x, y in (("+ 351", 3270, 2440), ("+ 327", 610, 800), ("+ 318", 3010, 470)):
        sheet.text(words, x, y, 7, BROWN)


def main(target):
    sheet = Map()
    for layer in (
        relief,
        woods,
        parcels,
        water,
        roads,
        buildings,
        bounds,
        names,
        frame,
        legend,
        compass,
        scale,
    ):
        layer(sheet)
    width, height_ = sheet.surface.get_width(), sheet.surface.get_height()
    pixels = np.frombuffer(sheet.surface.get_data(), np.uint8).reshape(
        height_, sheet.surface.get_stride() // 4, 4
    )[:, :width, 2::-1]
    Image.fromarray(np.ascontiguousarray(pixels)).save(target, "PNG", optimize=True, dpi=(DPI, DPI))


if __name__ == "__main__":
    main(*sys.argv[1:])
