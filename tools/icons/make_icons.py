#!/usr/bin/env python3
"""Draws the program's icons: an idealised channel trace that steps between levels on a plain ground.

Usage: make_icons.py FOLDER    writes application.ico and child.ico into FOLDER (src/resources).

The drawing stands on a grid of 16 by 16 cells, so that every size that is a multiple of 16 has
sharp edges. Run it again after a change; the same input gives the same bytes.
"""

import pathlib
import struct
import sys
import zlib

GRID = 16
SAMPLES = 4  # per pixel and axis, for the round corners

# Corners of the trace, in cells; the stroke is one cell wide. Closed level, first and second open one.
TRACE = [(2, 11), (4, 11), (4, 7), (7, 7), (7, 4), (10, 4), (10, 11), (12, 11), (12, 7), (13, 7)]

NAVY = (31, 78, 121)
IVORY = (250, 247, 236)
SHEET = (255, 255, 255)
EDGE = (128, 140, 153)

APPLICATION = {"ground": NAVY, "edge": NAVY, "trace": IVORY, "sizes": (16, 32, 48, 256)}
CHILD = {"ground": SHEET, "edge": EDGE, "trace": NAVY, "sizes": (16, 32, 48)}

RADIUS = 2.5  # of the ground's corners, in cells
LARGEST_BITMAP = 48  # larger pictures are stored compressed


def on_trace(x, y):
    for (x1, y1), (x2, y2) in zip(TRACE, TRACE[1:]):
        if min(x1, x2) <= x < max(x1, x2) + 1 and min(y1, y2) <= y < max(y1, y2) + 1:
            return True
    return False


def inside_ground(x, y, inset):
    """Whether a point lies in the rounded square that leaves `inset` cells free on each side."""
    low, high, radius = inset, GRID - inset, RADIUS - inset
    if not (low <= x < high and low <= y < high):
        return False
    dx = max(low + radius - x, x - (high - radius), 0)
    dy = max(low + radius - y, y - (high - radius), 0)
    return dx * dx + dy * dy <= radius * radius


def color_at(icon, x, y):
    """The colour of a point in cells, or None outside of the icon."""
    if not inside_ground(x, y, 0):
        return None
    if not inside_ground(x, y, 1):
        return icon["edge"]
    return icon["trace"] if on_trace(x, y) else icon["ground"]


def render(icon, size):
    """Rows of (red, green, blue, alpha), the top row first."""
    cell = GRID / size
    rows = []
    for row in range(size):
        pixels = []
        for column in range(size):
            hits = []
            for sample in range(SAMPLES * SAMPLES):
                x = (column + (sample % SAMPLES + 0.5) / SAMPLES) * cell
                y = (row + (sample // SAMPLES + 0.5) / SAMPLES) * cell
                color = color_at(icon, x, y)
                if color is not None:
                    hits.append(color)
            if hits:
                mean = tuple(sum(channel) // len(hits) for channel in zip(*hits))
                pixels.append(mean + (255 * len(hits) // (SAMPLES * SAMPLES),))
            else:
                pixels.append((0, 0, 0, 0))
        rows.append(pixels)
    return rows


def bitmap(rows):
    """A device-independent bitmap with its mask, as icons hold it: bottom row first, BGRA."""
    size = len(rows)
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    colors = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask = b""
    for row in reversed(rows):
        bits = "".join("0" if pixel[3] >= 128 else "1" for pixel in row)
        bits = bits.ljust((size + 31) // 32 * 32, "0")
        mask += int(bits, 2).to_bytes(len(bits) // 8, "big")
    return header + colors + mask


def png(rows):
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

    size = len(rows)
    raw = b"".join(b"\0" + bytes(value for pixel in row for value in pixel) for row in rows)
    return (b"\x89PNG\r\n\x1a\n"
            + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(raw, 9))
            + chunk(b"IEND", b""))


def icon_file(icon):
    pictures = []
    for size in icon["sizes"]:
        rows = render(icon, size)
        pictures.append(bitmap(rows) if size <= LARGEST_BITMAP else png(rows))
    offset = 6 + 16 * len(pictures)
    directory = struct.pack("<HHH", 0, 1, len(pictures))
    for size, picture in zip(icon["sizes"], pictures):
        directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(picture), offset)
        offset += len(picture)
    return directory + b"".join(pictures)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = pathlib.Path(sys.argv[1])
    (folder / "application.ico").write_bytes(icon_file(APPLICATION))
    (folder / "child.ico").write_bytes(icon_file(CHILD))


if __name__ == "__main__":
    main()
