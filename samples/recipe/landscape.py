#!/usr/bin/python3
"""landscape.py FILE : a gray print of a valley with a pumping station. Lengths in metres."""

import sys

import numpy as np
from PIL import Image, ImageDraw, ImageFilter, ImageFont

CELL, SIDE = 1.25, 2400
PAGE, PLATE, DPI = (1700, 2200), (1400, 1640), 200
EYE = (1500.0, 60.0, 96.0)
LENS, HORIZON = 1.55 * PLATE[0], 0.335 * PLATE[1]
FONT = "/usr/share/fonts/truetype/fonts-oldstandard/OldStandard-Italic.ttf"
random = np.random.RandomState(1910)


def smooth(size, cells):
    """Random values of 0 to 1 that change over `size / cells` points."""
    image = Image.fromarray((random.random_sample((cells + 1, cells + 1)) * 255).astype(np.uint8))
    return np.asarray(image.resize((size, size), Image.BICUBIC), dtype=np.float32) / 255


def fractal(size, first, octaves, fade=0.5):
    total, weight = np.zeros((size, size), np.float32), 1.0
    for octave in range(octaves):
        total += weight * (smooth(size, first * 2**octave) - 0.5)
        weight *= fade
    return total


def blurred(field, radius):
    """A field of 0 to 1, blurred."""
    image = Image.fromarray((field.clip(0, 1) * 255).astype(np.uint8))
    return np.asarray(image.filter(ImageFilter.GaussianBlur(radius)), dtype=np.float32) / 255


class Land:
    """Heights and lightness, by row (away from the eye) and column."""

    def __init__(self):
        y, x = np.mgrid[0:SIDE, 0:SIDE].astype(np.float32) * CELL
        self.x, self.y = x, y
        self.course = 1500 + 120 * np.sin(y / 210 + 0.6) * (1 - np.exp(-y / 400)) + 70 * np.sin(y / 97)
        away = np.abs(x - self.course)
        valley = 150 * (1 - np.exp(-((away / 620) ** 2)))
        fells = (
            330 * np.exp(-(((y - 2850) / 520) ** 2)) * (0.72 + 0.6 * np.sin(x / 330 + 1.2) * np.sin(x / 171))
        )
        rough = fractal(SIDE, 5, 6)
        self.height = valley + fells.clip(0) + rough * (16 + valley * 0.55 + fells.clip(0) * 0.4)
        self.light = 0.62 + 0.05 * fractal(SIDE, 400, 2)
        self.water = away < 15 + 5 * np.sin(y / 55)
        self.meadows(away)
        self.relief()
        self.road()
        self.woods(away)
        self.station()
        self.height[self.water] = 1.0

    def meadows(self, away):
        """Fields of differing lightness, parted by hedges."""
        x, y = self.x + 40 * np.sin(self.y / 160), self.y + 50 * np.sin(self.x / 190)
        row, column = (y // 118).astype(int), ((x + (y // 118) * 47) // 150).astype(int)
        tones = random.random_sample(997)
        fields = tones[(row * 31 + column * 17) % 997]
        low = np.exp(-((away / 520) ** 4)) * (self.y < 2300) * (self.y > 300)
        self.light += 0.26 * (fields - 0.5) * low
        across = ((x + (y // 118) * 47) % 150 < 3.2) & (self.y > 1000)
        hedge = ((y % 118 < 3.2) | across) & (low > 0.4) & ~self.water
        bushy = smooth(SIDE, 600) * hedge
        self.height += 4.2 * bushy
        self.light -= 0.36 * (bushy > 0.25)

    def relief(self):
        """Light from the left, ahead of the eye."""
        down, across = np.gradient(self.height, CELL)
        facing = (0.75 * across - 0.28 * down + 0.62) / np.sqrt(1 + across**2 + down**2)
        self.light *= 0.42 + 0.9 * facing.clip(0, 1.25)

    def woods(self, away):
        """Crowns of trees on the slopes and along the water."""
        likely = smooth(SIDE, 22) + 0.35 * (away > 330) - 9 * (self.y < 400)
        where = np.argwhere(
            (random.random_sample((SIDE, SIDE)) < 0.014) & (likely > 0.93) & (self.height < 330) & ~self.paved
        )
        bank = np.argwhere(
            (random.random_sample((SIDE, SIDE)) < 0.006)
            & (away > 21)
            & (away < 44)
            & (self.y > 400)
            & ~self.paved
        )
        for row, column in np.vstack([where, bank]):
            self.tree(row, column, random.uniform(2.4, 4.6), random.uniform(6, 13))

    def tree(self, row, column, radius, tall):
        r = int(radius / CELL) + 1
        if min(row, column) < r or max(row, column) + r >= SIDE:
            return
        dy, dx = np.mgrid[-r : r + 1, -r : r + 1] * CELL
        crown = (1 - (dx**2 + dy**2) / radius**2).clip(0)
        part = np.s_[row - r : row + r + 1, column - r : column + r + 1]
        inside = crown > 0
        self.height[part] = np.where(
            inside,
            np.maximum(
                self.height[part],
                self.height[row, column] * 0.3 + self.height[part] * 0.7 + tall * np.sqrt(crown),
            ),
            self.height[part],
        )
        crown *= random.uniform(0.55, 1, crown.shape)
        shade = 0.3 - 0.13 * dx / radius + random.uniform(-0.08, 0.08, crown.shape)
        self.light[part] = np.where(inside, shade, self.light[part])

    def road(self):
        middle = self.course - 95 + 30 * np.sin(self.y / 130)
        on = np.abs(self.x - middle) < 3.4
        self.light[on & ~self.water] = 0.86
        wall = (np.abs(np.abs(self.x - middle) - 4.8) < 0.8) & ~self.water
        self.height[wall] += 1.5
        self.light[wall] = 0.45
        self.paved = np.abs(self.x - middle) < 11

    def box(self, left, front, width, depth, base, tall, tone):
        part = np.s_[
            int(front / CELL) : int((front + depth) / CELL), int(left / CELL) : int((left + width) / CELL)
        ]
        self.height[part] = base + tall
        self.light[part] = tone
        return part

    def station(self):
        """The engine-house with its roof, boiler-house and chimney, on a levelled yard by the river."""
        front = 430.0
        left = float(self.course[int(front / CELL), 0]) - 78
        base = 9.0
        yard = self.box(left - 14, front - 16, 84, 62, base, 0, 0.74)
        self.water[yard] = False
        body = self.box(left, front, 26, 34, base, 15, 0.5)
        ridge = 1 - np.abs(np.linspace(-1, 1, self.height[body].shape[1]))
        self.height[body] += 8 * ridge[None, :]
        self.light[body] = np.where(np.linspace(-1, 1, ridge.size) < 0, 0.5, 0.28)[None, :]
        self.light[body][:2] = 0.8
        self.box(left + 26, front + 6, 24, 24, base, 8, 0.34)
        self.light[int((front + 6) / CELL), int((left + 26) / CELL) : int((left + 50) / CELL)] = 0.66
        chimney = self.box(left + 33, front + 12, 4.6, 4.6, base, 44, 0.55)
        self.light[chimney][:, :2] = 0.82
        self.box(left + 32.4, front + 11.4, 5.6, 1.3, base, 45.5, 0.6)
        self.front, self.left = front, left


def sample(field, x, y):
    """Values between the cells."""
    column, row = (x / CELL).clip(0, SIDE - 2), (y / CELL).clip(0, SIDE - 2)
    c, r = column.astype(int), row.astype(int)
    u, v = column - c, row - r
    return (field[r, c] * (1 - u) + field[r, c + 1] * u) * (1 - v) + (
        field[r + 1, c] * (1 - u) + field[r + 1, c + 1] * u
    ) * v


def view(land):
    """The land in perspective: for each column of the plate the first height that rises above those before it."""
    width, height = PLATE
    distances = 22 * 1.0031 ** np.arange(1570)
    distances = distances[distances < (SIDE - 4) * CELL - EYE[1]]
    side = (np.arange(width) - width / 2) / LENS
    x = EYE[0] + distances[:, None] * side[None, :]
    y = np.broadcast_to(EYE[1] + distances[:, None], x.shape)
    heights = sample(land.height, x, y)
    lights = sample(land.light, x, y)
    lights = np.where(sample(land.water.astype(np.float32), x, y) > 0.5, -1, lights)
    haze = 1 - np.exp(-((distances / 2100) ** 1.3))[:, None]
    up = (heights - EYE[2]) / distances[:, None] * LENS
    top = np.maximum.accumulate(up, axis=0)
    picture = np.full((height, width), -2, np.float32)
    depth = np.full((height, width), np.inf, np.float32)
    levels = HORIZON - np.arange(height)
    for column in range(width):
        first = np.searchsorted(top[:, column], levels, side="left")
        seen = first < len(distances)
        tone = lights[first[seen], column]
        veil = haze[first[seen], 0]
        picture[seen, column] = np.where(tone < 0, -1, tone * (1 - veil) + 0.83 * veil)
        depth[seen, column] = distances[first[seen]]
    return picture, depth


def sky():
    """Broad clouds over a sky that brightens towards the horizon."""
    width, height = PLATE
    cloud = fractal(2048, 3, 7, 0.56)
    rows = (np.arange(height) ** 0.72 * 9).astype(int) % 2048
    columns = (np.arange(width) * 0.9).astype(int)
    billow = (cloud[rows][:, columns] * 2.1 + 0.12).clip(-0.25, 0.55)
    return 0.58 + 0.42 * np.linspace(0, 1, height)[:, None] ** 0.6 * 1.3 + 0.33 * billow


def place(x, y, z):
    """Where a point of the land stands on the plate."""
    distance = y - EYE[1]
    return PLATE[0] / 2 + (x - EYE[0]) / distance * LENS, HORIZON - (z - EYE[2]) / distance * LENS


def windows(picture, land):
    """Tall round-headed windows and a door in the front of the engine-house."""
    scale = 4
    panes = Image.new("L", (PLATE[0] * scale, PLATE[1] * scale), 0)
    draw = ImageDraw.Draw(panes)
    for left, low, wide, tall in (
        (3.2, 10.5, 3.2, 7),
        (19.6, 10.5, 3.2, 7),
        (10.9, 9, 4.2, 7.5),
        (11.4, 19.5, 3.2, 5),
        (30, 10.5, 3, 4),
        (36, 10.5, 3, 4),
        (42, 10.5, 3, 4),
    ):
        y = land.front + (6 if left > 26 else 0)
        x0, y1 = (scale * v for v in place(land.left + left, y, low))
        x1, y0 = (scale * v for v in place(land.left + left + wide, y, low + tall))
        draw.rectangle((x0, y0, x1, y1), fill=255)
        draw.ellipse((x0, y0 - (x1 - x0) / 2, x1, y0 + (x1 - x0) / 2), fill=255)
    dark = np.asarray(panes.resize(PLATE, Image.BOX), dtype=np.float32) / 255
    return picture * (1 - dark) + 0.2 * dark


def smoke(picture, land):
    """What drifts from the chimney."""
    x, y = place(land.left + 35, land.front + 14, 9 + 46)
    puffs = Image.new("L", PLATE, 0)
    draw = ImageDraw.Draw(puffs)
    for step in range(150):
        t = step / 150
        px, py = x + 330 * t**1.2 + random.normal(0, 3 + 15 * t), y - 105 * t**0.65 + random.normal(
            0, 2 + 14 * t
        )
        r = 6 + 34 * t
        draw.ellipse((px - r, py - r * 0.8, px + r, py + r * 0.8), fill=int(255 * (1 - t) ** 1.1))
    veil = np.asarray(puffs.filter(ImageFilter.GaussianBlur(5)), dtype=np.float32) / 255
    return picture * (1 - veil) + 0.95 * veil


def plate():
    land = Land()
    picture, depth = view(land)
    air = sky()
    width, height = PLATE
    ripple = blurred(random.random_sample((height, width)) > 0.5, 1.2)
    mirror = 0.8 + 0.1 * (ripple - 0.5) - 0.1 * np.linspace(1, 0, height)[:, None]
    picture = np.where(picture == -2, air, np.where(picture == -1, mirror, picture))
    picture = smoke(windows(picture, land), land)
    soft = (
        np.asarray(
            Image.fromarray((picture.clip(0, 1) * 255).astype(np.uint8)).filter(
                ImageFilter.GaussianBlur(1.0)
            ),
            dtype=np.float32,
        )
        / 255
    )
    y, x = np.mgrid[-1 : 1 : height * 1j, -1 : 1 : width * 1j]
    fall = 1 - 0.2 * (x**2 + y**2) ** 1.2
    grain = blurred(random.random_sample((height, width)), 0.7) - 0.5
    tone = (soft * fall - 0.06) * 1.12 + 0.13 * grain
    return Image.fromarray((255 * tone.clip(0.02, 0.97) ** 1.12).astype(np.uint8))


def main(target):
    paper = (
        236 + 12 * (smooth(2400, 12)[: PAGE[1], : PAGE[0]] - 0.5) + random.normal(0, 1.6, (PAGE[1], PAGE[0]))
    )
    page = Image.fromarray(paper.clip(0, 255).astype(np.uint8))
    left, top = (PAGE[0] - PLATE[0]) // 2, 170
    draw = ImageDraw.Draw(page)
    draw.rectangle((left - 14, top - 14, left + PLATE[0] + 13, top + PLATE[1] + 13), outline=120, width=2)
    page.paste(plate(), (left, top))
    title, small = ImageFont.truetype(FONT, 50), ImageFont.truetype(FONT, 36)
    middle = PAGE[0] // 2
    draw.text(
        (middle, top + PLATE[1] + 95),
        "The Pumping Station at Alder Ford, from Thornwick Scar",
        40,
        title,
        anchor="mm",
    )
    draw.text(
        (middle, top + PLATE[1] + 160),
        "The Vale of Marrowby, looking north; the road to Nether Coombe on the left",
        60,
        small,
        anchor="mm",
    )
    draw.text((middle, PAGE[1] - 80), "Plate VII", 60, small, anchor="mm")
    page = page.filter(ImageFilter.GaussianBlur(0.5)).rotate(0.15, Image.BICUBIC, fillcolor=232)
    page.save(target, "JPEG", quality=78, dpi=(DPI, DPI))


if __name__ == "__main__":
    main(*sys.argv[1:])
