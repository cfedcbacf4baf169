#!/usr/bin/env python3
"""Typesets the formulas of the two mixture models, which the views of fit parameters show.

Usage: make_formulas.py FOLDER    writes the four pictures into FOLDER (src/resources).

Each formula is set twice: in the size in which the screen shows it, with its letters fitted to the
pixels, and eight times as large for printers and for screens of a higher resolution. The pictures
are black on white and have no greys. Run it again after a change; the same input gives the same
bytes. Needs Debian's python3-pil and fonts-liberation.
"""

import dataclasses
import pathlib
import sys

from PIL import Image, ImageDraw, ImageFont

FONTS = "/usr/share/fonts/truetype/liberation/LiberationSerif-{}.ttf"
UPRIGHT, ITALIC = "Regular", "Italic"

# All lengths are pixels of the small picture.
BODY, INDEX, SUM = 17, 13, 30  # heights of letters
RULE = 1  # thickness of lines
STROKE = 2  # of the heavy stroke of a radical
AXIS = 5.5  # of fractions, sums and brackets, above the baseline

LARGE = 8

PI = "\N{GREEK SMALL LETTER PI}"
MINUS = "\N{MINUS SIGN}"


@dataclasses.dataclass
class Box:
    """A piece of a formula: marks around a point on its baseline, and the room that they take."""

    width: int
    ascent: int
    descent: int
    marks: list  # (x, y, draw), y growing downward; draw(canvas, x, y)

    def moved(self, x, y):
        return [(x + dx, y + dy, draw) for dx, dy, draw in self.marks]


class Setter:
    """Composes boxes at a scale."""

    def __init__(self, scale):
        self.scale = scale

    def px(self, length):
        return round(length * self.scale)

    def text(self, string, size=BODY, style=UPRIGHT):
        font = ImageFont.truetype(
            FONTS.format(style), self.px(size), layout_engine=ImageFont.Layout.BASIC
        )
        _, top, _, bottom = font.getbbox(string, mode="1", anchor="ls")
        width = round(font.getlength(string, mode="1"))

        def draw(canvas, x, y):
            canvas.text((x, y), string, font=font, anchor="ls", fill=0)

        return Box(width, -top, bottom, [(0, 0, draw)])

    def rule(self, width, height):
        def draw(canvas, x, y):
            canvas.rectangle((x, y, x + width - 1, y + height - 1), fill=0)

        return draw

    def stroke(self, points, thickness):
        """A line through points, cut off upright at its ends."""
        thickness = self.px(thickness)

        def draw(canvas, x, y):
            for (x1, y1), (x2, y2) in zip(points, points[1:]):
                canvas.polygon(
                    [
                        (x + x1, y + y1),
                        (x + x2, y + y2),
                        (x + x2 + thickness - 1, y + y2),
                        (x + x1 + thickness - 1, y + y1),
                    ],
                    fill=0,
                    outline=0,
                )

        return draw

    def row(self, *parts):
        """Side by side; a number among the boxes is a gap."""
        width, ascent, descent, marks = 0, 0, 0, []
        for part in parts:
            if not isinstance(part, Box):
                width += self.px(part)
                continue
            marks += part.moved(width, 0)
            width += part.width
            ascent, descent = max(ascent, part.ascent), max(descent, part.descent)
        return Box(width, ascent, descent, marks)

    def scripts(self, base, below, above=None):
        """A name with an index, and a power above it."""
        left, drop, lift = base.width, self.px(4), self.px(9)
        marks = base.marks + below.moved(left, drop)
        width, ascent = left + below.width, base.ascent
        if above is not None:
            marks += above.moved(left, -lift)
            width, ascent = max(width, left + above.width), max(ascent, lift + above.ascent)
        return Box(width, ascent, max(base.descent, drop + below.descent), marks)

    def fraction(self, above, below):
        gap, rule, margin = self.px(3), self.px(RULE), self.px(2)
        width = max(above.width, below.width) + 2 * margin
        top = -self.px(AXIS)
        up = top - gap - above.descent
        down = top + rule + gap + below.ascent
        marks = [(0, top, self.rule(width, rule))]
        marks += above.moved((width - above.width) // 2, up)
        marks += below.moved((width - below.width) // 2, down)
        return Box(width, above.ascent - up, below.descent + down, marks)

    def radical(self, inside):
        gap, rule = self.px(2), self.px(RULE)
        height = inside.ascent + gap + rule
        foot, hook, end = self.px(5), self.px(2), self.px(10)
        middle = -height // 2
        marks = [
            (0, 0, self.stroke([(0, middle + self.px(1)), (hook, middle)], RULE)),
            (0, 0, self.stroke([(hook, middle), (foot, 0)], STROKE)),
            (0, 0, self.stroke([(foot + rule, 0), (end, -height)], RULE)),
            (end, -height, self.rule(inside.width + 2 * gap, rule)),
        ]
        marks += inside.moved(end + gap, 0)
        return Box(end + inside.width + 2 * gap, height, max(0, inside.descent), marks)

    def brackets(self, inside):
        gap, rule, arm, over = self.px(4), self.px(RULE), self.px(4), self.px(1)
        reach = max(inside.ascent - self.px(AXIS), inside.descent + self.px(AXIS)) + over
        top, bottom = -self.px(AXIS) - reach, -self.px(AXIS) + reach
        right = arm + inside.width + 2 * gap
        marks = []
        for stem, arms in ((0, 0), (right + arm - rule, right)):
            marks.append((stem, top, self.rule(rule, bottom - top)))
            marks.append((arms, top, self.rule(arm, rule)))
            marks.append((arms, bottom - rule, self.rule(arm, rule)))
        marks += inside.moved(arm + gap, 0)
        return Box(right + arm, -top, bottom, marks)

    def sum(self, index):
        sign = self.text("\N{N-ARY SUMMATION}", SUM)
        shift = (sign.ascent - sign.descent) // 2 - self.px(AXIS)
        width = max(sign.width, index.width)
        low = shift + sign.descent + self.px(4) + index.ascent
        marks = sign.moved((width - sign.width) // 2, shift)
        marks += index.moved((width - index.width) // 2, low)
        return Box(width, sign.ascent - shift, low + index.descent, marks)

    # What both formulas have.

    def variable(self, name):
        return self.text(name, style=ITALIC)

    def index(self):
        return self.text("i", INDEX, ITALIC)

    def indexed(self, name, power=None):
        above = None if power is None else self.text(power, INDEX)
        return self.scripts(self.text(name), self.index(), above)

    def density(self, argument, factor, exponent):
        return self.row(
            self.variable("f"), 2, self.text("("), self.variable(argument), 1, self.text(")"),
            5, self.text("="), 4, self.sum(self.index()), 3, factor,
            6, self.text("exp"), 3,
            self.brackets(self.row(self.text(MINUS), 2, exponent)),
        )


def amplitude(setter):
    factor = setter.fraction(
        setter.indexed("Weight"),
        setter.row(
            setter.radical(setter.row(setter.text("2"), 1, setter.variable(PI))),
            2,
            setter.indexed("StdDev"),
        ),
    )
    deviation = setter.row(
        setter.text("("), setter.variable("x"), 4, setter.text(MINUS), 4,
        setter.indexed("Current"), 1, setter.text(")"),
    )
    power = setter.text("2", INDEX)
    squared = setter.row(deviation, setter.scripts(setter.row(), setter.row(), power))
    variance = setter.row(setter.text("2"), 3, setter.indexed("StdDev", "2"))
    return setter.density("x", factor, setter.fraction(squared, variance))


def duration(setter):
    factor = setter.fraction(setter.indexed("Weight"), setter.indexed("TimeConstant"))
    exponent = setter.fraction(setter.variable("t"), setter.indexed("TimeConstant"))
    return setter.density("t", factor, exponent)


PICTURES = [("amplitude_formula", amplitude, 376, 79), ("duration_formula", duration, 355, 67)]


def render(formula, width, height, scale):
    setter = Setter(scale)
    box = formula(setter)
    picture = Image.new("1", (width * scale, height * scale), 1)
    free = picture.height - box.ascent - box.descent
    left = setter.px(2)
    if free < 0 or left + box.width > picture.width:
        sys.exit(f"the formula of {box.width} by {box.ascent + box.descent} does not fit")
    canvas = ImageDraw.Draw(picture)
    canvas.fontmode = "1"
    for x, y, draw in box.moved(left, box.ascent + free // 2):
        draw(canvas, x, y)
    return picture


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = pathlib.Path(sys.argv[1])
    for name, formula, width, height in PICTURES:
        for suffix, scale in (("", 1), ("_large", LARGE)):
            picture = render(formula, width, height, scale)
            picture.save(folder / f"{name}{suffix}.bmp")


if __name__ == "__main__":
    main()
