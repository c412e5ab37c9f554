"""Pages as a scanner sees them: gray renderings in, 1-bit scans out. Gray is 0 (black) to 255 (white)."""

import subprocess
from pathlib import Path

import numpy as np
from PIL import Image, ImageChops, ImageDraw, ImageFilter

DPI = 300


def render(pdf, page, dpi=DPI):
    """A page (from 1) of a PDF file as a gray image."""
    call = ["pdftoppm", "-gray", "-r", str(dpi), "-f", str(page), "-l", str(page), "-singlefile", str(pdf)]
    done = subprocess.run(call, check=True, capture_output=True)
    header, size, depth, pixels = done.stdout.split(b"\n", 3)
    assert (header, depth) == (b"P5", b"255")
    width, height = map(int, size.split())
    return Image.frombytes("L", (width, height), pixels)


def clouds(random, size, cell, low, high):
    """Smooth random values between low and high, changing over about `cell` pixels."""
    width, height = size
    coarse = random.random_sample((height // cell + 2, width // cell + 2)) * 255
    image = Image.fromarray(coarse.astype(np.uint8)).resize(size, Image.BICUBIC)
    return low + (high - low) * np.asarray(image, dtype=np.float32) / 255


def punch(image, random, places, radius):
    """Holes through the sheet, black as the lid behind it; places in pixels."""
    draw = ImageDraw.Draw(image)
    for x, y in places:
        dx, dy = random.uniform(-4, 4, 2)
        for _ in range(5):
            r = radius + random.uniform(-1.5, 1.5)
            draw.ellipse((x + dx - r, y + dy - r, x + dx + r, y + dy + r), fill=0)


def speckle(image, random, count):
    """Dust: dots of one to four pixels."""
    draw = ImageDraw.Draw(image)
    width, height = image.size
    for x, y, r in zip(
        random.randint(0, width, count), random.randint(0, height, count), random.exponential(0.55, count)
    ):
        r = min(r, 2.2)
        draw.ellipse((x - r, y - r, x + r, y + r), fill=0)


def bands(random, size, depth):
    """How far the lid's shadow reaches in from the left and the upper edge, in each row and column."""
    width, height = size
    rows = clouds(random, (1, height), 90, 0, depth)[:, 0]
    columns = clouds(random, (width, 1), 90, 0, depth)[0]
    across = np.arange(width)[None, :] < rows[:, None]
    down = np.arange(height)[:, None] < columns[None, :]
    return across | down


def scan(page, seed, skew=0.0, holes=False, dust=90, shadow=9, wear=0.22):
    """A gray page as a 1-bit scan: skewed by `skew` degrees, worn, dusty, with the lid's shadow at its edges."""
    random = np.random.RandomState(seed)
    page = page.filter(ImageFilter.GaussianBlur(0.7))
    if holes:
        punch(page, random, [(118, 420), (118, 1650), (118, 2880)], 41)
    speckle(page, random, dust)
    page = page.rotate(skew, Image.BICUBIC, fillcolor=255)
    ink = 1 - np.asarray(page, dtype=np.float32) / 255
    ink *= clouds(random, page.size, 34, 1 - wear, 1.04)
    noise = Image.fromarray(random.normal(128, 42, ink.shape).clip(0, 255).astype(np.uint8))
    grain = np.asarray(noise.filter(ImageFilter.GaussianBlur(0.8)), dtype=np.float32) - 128
    light = clouds(random, page.size, 900, 214, 240) - 195 * ink + grain * 0.9
    black = (light < 152) | bands(random, page.size, shadow)
    return Image.fromarray(~black)


def save(image, path, dpi=(DPI, DPI), compression="g4", rows=0):
    """A 1-bit image as a TIFF, 0 for white as fax machines have it, in strips of `rows` (0: in one strip)."""
    plain = Path(f"{path}.plain")
    ImageChops.invert(image.convert("1")).save(plain, "TIFF", dpi=dpi, compression="group4")
    subprocess.run(["tiffset", "-s", "262", "0", plain], check=True)
    subprocess.run(["tiffcp", "-c", compression, "-r", str(rows or image.height), plain, path], check=True)
    plain.unlink()
