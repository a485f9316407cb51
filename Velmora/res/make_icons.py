#!/usr/bin/env python3
"""Draws the program's icons and writes them as .ico files next to this script.

The icons are simple vector shapes rendered with 4x4 supersampling into 32-bit BGRA images, one
image per size, stored in the classic ICO layout (BITMAPINFOHEADER, bottom-up pixels, AND mask).
Standard library only. Run it again after changing a shape and commit the .ico files.
"""
import math
import os
import struct

SUPERSAMPLE = 4


def circle(cx, cy, r):
    return lambda x, y: (x - cx) ** 2 + (y - cy) ** 2 <= r * r


def rect(x0, y0, x1, y1):
    return lambda x, y: x0 <= x <= x1 and y0 <= y <= y1


def rounded_rect(x0, y0, x1, y1, r):
    def inside(x, y):
        if not (x0 <= x <= x1 and y0 <= y <= y1):
            return False
        dx = max(x0 + r - x, 0, x - (x1 - r))
        dy = max(y0 + r - y, 0, y - (y1 - r))
        return dx * dx + dy * dy <= r * r
    return inside


def bar(ax, ay, bx, by, half_width):
    """A straight bar with square ends between two points."""
    length = math.hypot(bx - ax, by - ay)
    ux, uy = (bx - ax) / length, (by - ay) / length

    def inside(x, y):
        along = (x - ax) * ux + (y - ay) * uy
        across = -(x - ax) * uy + (y - ay) * ux
        return 0 <= along <= length and abs(across) <= half_width
    return inside


def polygon(points):
    def inside(x, y):
        result = False
        j = len(points) - 1
        for i, (xi, yi) in enumerate(points):
            xj, yj = points[j]
            if (yi > y) != (yj > y) and x < (xj - xi) * (y - yi) / (yj - yi) + xi:
                result = not result
            j = i
        return result
    return inside


def outside(shape):
    return lambda x, y: not shape(x, y)


def both(a, b):
    return lambda x, y: a(x, y) and b(x, y)


def render(layers, size):
    """layers: (shape, (r, g, b, a)) from bottom to top, shapes over the unit square."""
    pixels = []
    for row in range(size):
        for column in range(size):
            total = [0.0, 0.0, 0.0, 0.0]
            for sy in range(SUPERSAMPLE):
                for sx in range(SUPERSAMPLE):
                    x = (column + (sx + 0.5) / SUPERSAMPLE) / size
                    y = (row + (sy + 0.5) / SUPERSAMPLE) / size
                    colour = (0, 0, 0, 0)
                    for shape, fill in layers:
                        if shape(x, y):
                            colour = fill
                    alpha = colour[3] / 255.0
                    total[0] += colour[0] * alpha
                    total[1] += colour[1] * alpha
                    total[2] += colour[2] * alpha
                    total[3] += alpha
            samples = SUPERSAMPLE * SUPERSAMPLE
            coverage = total[3] / samples
            if coverage == 0:
                pixels.append((0, 0, 0, 0))
            else:
                pixels.append(tuple(round(total[i] / total[3]) for i in range(3)) + (round(coverage * 255),))
    return pixels


def ico_image(pixels, size):
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, 0, 0, 0, 0, 0)
    rows = [pixels[r * size:(r + 1) * size] for r in range(size)]
    colour = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for (r, g, b, a) in row)
    mask_stride = ((size + 31) // 32) * 4
    mask = bytearray()
    for row in reversed(rows):
        bits = bytearray(mask_stride)
        for x, pixel in enumerate(row):
            if pixel[3] == 0:
                bits[x // 8] |= 0x80 >> (x % 8)
        mask += bits
    return header + colour + bytes(mask)


def write_ico(path, layers, sizes):
    images = [ico_image(render(layers, size), size) for size in sizes]
    data = struct.pack("<HHH", 0, 1, len(images))
    offset = 6 + 16 * len(images)
    for size, image in zip(sizes, images):
        data += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    data += b"".join(images)
    with open(path, "wb") as out:
        out.write(data)


STEEL_DARK = (31, 73, 125, 255)
STEEL = (79, 129, 189, 255)
STEEL_LIGHT = (149, 179, 215, 255)
BORE = (23, 43, 77, 255)
WATER = (64, 160, 230, 255)
GREEN_DARK = (30, 110, 40, 255)
GREEN = (70, 170, 70, 255)
RED_DARK = (150, 20, 20, 255)
RED = (220, 50, 50, 255)
PAPER = (255, 255, 255, 255)
PAPER_EDGE = (90, 90, 90, 255)
LINES = (150, 150, 170, 255)
WOOD = (240, 190, 60, 255)
WOOD_DARK = (150, 100, 20, 255)
GRAPHITE = (60, 60, 60, 255)
ERASER = (230, 120, 120, 255)

# The program: a pipe running to the right, seen end-on at the left, with water in the bore.
APPLICATION = [
    (rounded_rect(0.36, 0.24, 0.97, 0.76, 0.06), STEEL_DARK),
    (rounded_rect(0.38, 0.27, 0.95, 0.73, 0.05), STEEL),
    (rect(0.38, 0.33, 0.95, 0.42), STEEL_LIGHT),
    (circle(0.36, 0.5, 0.33), STEEL_DARK),
    (circle(0.36, 0.5, 0.30), STEEL_LIGHT),
    (circle(0.36, 0.5, 0.21), STEEL_DARK),
    (circle(0.36, 0.5, 0.19), BORE),
    (both(circle(0.36, 0.5, 0.19), rect(0, 0.56, 1, 1)), WATER),
]

ADD = [
    (rect(0.38, 0.10, 0.62, 0.90), GREEN_DARK),
    (rect(0.10, 0.38, 0.90, 0.62), GREEN_DARK),
    (rect(0.44, 0.16, 0.56, 0.84), GREEN),
    (rect(0.16, 0.44, 0.84, 0.56), GREEN),
]

DELETE = [
    (bar(0.16, 0.16, 0.84, 0.84, 0.13), RED_DARK),
    (bar(0.84, 0.16, 0.16, 0.84, 0.13), RED_DARK),
    (bar(0.20, 0.20, 0.80, 0.80, 0.07), RED),
    (bar(0.80, 0.20, 0.20, 0.80, 0.07), RED),
]

EDIT = [
    (bar(0.22, 0.78, 0.86, 0.14, 0.12), WOOD_DARK),
    (bar(0.26, 0.74, 0.82, 0.18, 0.08), WOOD),
    (bar(0.76, 0.24, 0.86, 0.14, 0.12), ERASER),
    (polygon([(0.06, 0.94), (0.14, 0.69), (0.31, 0.86)]), WOOD_DARK),
    (polygon([(0.06, 0.94), (0.10, 0.82), (0.18, 0.90)]), GRAPHITE),
]


def sheet(x0, y0, x1, y1):
    return [
        (rect(x0, y0, x1, y1), PAPER_EDGE),
        (rect(x0 + 0.06, y0 + 0.06, x1 - 0.06, y1 - 0.06), PAPER),
        (rect(x0 + 0.14, y0 + 0.20, x1 - 0.14, y0 + 0.26), LINES),
        (rect(x0 + 0.14, y0 + 0.36, x1 - 0.14, y0 + 0.42), LINES),
        (rect(x0 + 0.14, y0 + 0.52, x1 - 0.24, y0 + 0.58), LINES),
    ]


COPY = sheet(0.06, 0.04, 0.62, 0.70) + sheet(0.38, 0.30, 0.94, 0.96)

if __name__ == "__main__":
    here = os.path.dirname(os.path.abspath(__file__))
    write_ico(os.path.join(here, "Velmora.ico"), APPLICATION, [16, 20, 24, 32, 40, 48, 64])
    for name, layers in (("add", ADD), ("delete", DELETE), ("edit", EDIT), ("copy", COPY)):
        write_ico(os.path.join(here, name + ".ico"), layers, [16, 20, 24, 32])
