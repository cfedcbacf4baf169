"""Pictures as pixels: read, kept, and held against each other by the ink on them."""

import struct
import zlib

RED = lambda r, g, b: r - g > 100 and r - b > 100
BLUE = lambda r, g, b: b - g > 100 and b - r > 100
DARK = lambda r, g, b: r < 110 and g < 110 and b < 110
INK = lambda r, g, b: r + g + b < 600


class Picture:
    """Rows from the top, three bytes a pixel."""

    def __init__(self, width, height, pixels):
        self.width, self.height, self.pixels = width, height, pixels

    def cut(self, left, top, width, height):
        stride = 3 * self.width
        rows = [
            self.pixels[(top + y) * stride + 3 * left : (top + y) * stride + 3 * (left + width)]
            for y in range(height)
        ]
        return Picture(width, height, b"".join(rows))

    def mask(self, is_ink):
        known = {}
        bits = bytearray()
        pixels = self.pixels
        for place in range(0, len(pixels), 3):
            color = pixels[place : place + 3]
            if color not in known:
                known[color] = 49 if is_ink(*color) else 48
            bits.append(known[color])
        width = self.width
        rows = [int(bits[y * width : (y + 1) * width], 2) for y in range(self.height)]
        return Mask(width, rows)

    def write_png(self, path):
        stride = 3 * self.width
        rows = b"".join(
            b"\0" + self.pixels[y * stride : (y + 1) * stride] for y in range(self.height)
        )

        def chunk(name, content):
            checked = name + content
            size, sum_up = len(content), zlib.crc32(checked)
            return struct.pack(">I", size) + checked + struct.pack(">I", sum_up)

        head = struct.pack(">IIBBBBB", self.width, self.height, 8, 2, 0, 0, 0)
        with open(path, "wb") as out:
            out.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head))
            out.write(chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


class Mask:
    """Where ink is: an integer for each row, its highest bit on the left."""

    def __init__(self, width, rows):
        self.width, self.rows = width, rows

    def count(self):
        return sum(row.bit_count() for row in self.rows)

    def share(self):
        return self.count() / (self.width * len(self.rows))

    def grown(self, reach):
        full = (1 << self.width) - 1
        wide = []
        for row in self.rows:
            for step in range(1, reach + 1):
                row |= row << 1 | row >> 1
            wide.append(row & full)
        grown = []
        for y in range(len(wide)):
            row = 0
            for near in wide[max(0, y - reach) : y + reach + 1]:
                row |= near
            grown.append(row)
        return Mask(self.width, grown)

    def covered_by(self, other, reach):
        """Part of this ink that has some of the other's within so many pixels."""
        near = other.grown(reach).rows
        hit = sum((row & near[y]).bit_count() for y, row in enumerate(self.rows))
        return hit / max(1, self.count())

    def at(self, x, y):
        inside = 0 <= x < self.width and 0 <= y < len(self.rows)
        return inside and bool(self.rows[y] >> (self.width - 1 - x) & 1)

    def column(self, x):
        """Rows with ink in a column."""
        return [y for y in range(len(self.rows)) if self.at(x, y)]

    def box(self):
        """Left, top, right, bottom of the ink; right and bottom are the last with any."""
        rows = [y for y, row in enumerate(self.rows) if row]
        together = 0
        for row in self.rows:
            together |= row
        left = self.width - together.bit_length()
        right = self.width - (together & -together).bit_length()
        return left, rows[0], right, rows[-1]


def read_png(path):
    """A PNG file without filters, as the tests under Windows write them."""
    with open(path, "rb") as file:
        content = file.read()
    assert content.startswith(b"\x89PNG\r\n\x1a\n"), path
    place, packed, width, height = 8, b"", 0, 0
    while place < len(content):
        (size,) = struct.unpack_from(">I", content, place)
        name = content[place + 4 : place + 8]
        body = content[place + 8 : place + 8 + size]
        if name == b"IHDR":
            width, height, depth, kind = struct.unpack_from(">IIBB", body)
            assert (depth, kind) == (8, 2), path
        elif name == b"IDAT":
            packed += body
        place += 12 + size
    rows = zlib.decompress(packed)
    stride = 3 * width + 1
    pixels = []
    for y in range(height):
        assert rows[y * stride] == 0, f"{path} is filtered"
        pixels.append(rows[y * stride + 1 : (y + 1) * stride])
    return Picture(width, height, b"".join(pixels))


def parse_ppm(content):
    """A raw PPM picture with the one comment that Ghostscript puts into it."""
    words, place = [], 0
    while len(words) < 4:
        end = content.index(b"\n", place)
        line = content[place:end].split(b"#")[0]
        words += line.split()
        place = end + 1
    assert words[0] == b"P6" and words[3] == b"255", words
    width, height = int(words[1]), int(words[2])
    return Picture(width, height, content[place : place + 3 * width * height])
