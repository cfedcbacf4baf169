"""Metafiles as libwmf reads them. It stretches what is drawn to the frame, so that only proportions
tell."""

import subprocess
import unittest
import xml.etree.ElementTree

import exports
import plots


def style_of(element):
    return dict(
        part.strip().split(":", 1) for part in element.get("style", "").split(";") if ":" in part
    )


def converted(view):
    """The elements that libwmf makes of a metafile, and a picture of it for people to see."""
    path = exports.path(view + ".wmf")
    picture = exports.path(view + "_wmf.png")
    drawing = exports.path(view + "_wmf.svg")
    subprocess.run(["wmf2gd", "-t", "png", "-o", picture, path], check=True, capture_output=True)
    subprocess.run(["wmf2svg", "-o", drawing, path], check=True, capture_output=True)
    text = exports.content(view + "_wmf.svg").decode("latin-1")
    # Without the type of the document in front of it, and with a prefix that it uses undeclared.
    text = text[text.index("<svg") :].replace("<svg", '<svg xmlns:xlink="xlink"', 1)
    return list(xml.etree.ElementTree.fromstring(text).iter())


def red_rectangles(elements):
    return [one for one in elements if one.tag == "rect" and style_of(one).get("fill") == "red"]


@exports.spread
class Metafiles(unittest.TestCase):
    @exports.for_each(exports.HISTOGRAMS)
    def test_bars_are_as_high_as_the_counts(self, view):
        bars = sorted(red_rectangles(converted(view)), key=lambda bar: float(bar.get("x")))
        counts = [row[1] for row in exports.rows_of(view)]
        heights = [float(bar.get("height")) for bar in bars]
        plots.assert_heights(self, heights, counts, 3)

    @exports.for_each(exports.SCATTERS)
    def test_there_is_a_dot_for_each_point(self, view):
        self.assertEqual(len(red_rectangles(converted(view))), len(exports.rows_of(view)))

    @exports.for_each(["Stationarity"])
    def test_the_curve_has_a_line_between_each_two_samples(self, view):
        lines = [
            one
            for one in converted(view)
            if one.tag == "line" and style_of(one).get("stroke") == "red"
        ]
        self.assertEqual(len(lines), len(exports.rows_of(view)) - 1)

    @exports.for_each(exports.TABLES)
    def test_texts_are_those_of_the_window(self, view):
        words = []
        for one in converted(view):
            if one.tag == "text":
                words += one.text.replace("I", "l").split()
        shown = [line for line in exports.shown_lines(view) if any(map(str.isalnum, line))]
        self.assertTrue(shown)
        for line in shown:
            for word in line.replace("I", "l").split():
                self.assertIn(word, words)


if __name__ == "__main__":
    unittest.main()
