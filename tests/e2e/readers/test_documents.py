"""EPS and Illustrator documents, drawn by Ghostscript, against the window that they come from."""

import re
import unittest

import exports
import ghostscript
import pictures
import plots


class Documents(unittest.TestCase):
    def keep(self, picture, name):
        picture.write_png(exports.path(name))

    def screen(self, view):
        return pictures.read_png(exports.path(view + "_screen.png"))

    def assert_same_ink(self, drawn, screen, is_ink, reach, least):
        seen, expected = drawn.mask(is_ink), screen.mask(is_ink)
        self.assertGreater(expected.count(), 100)
        self.assertGreater(expected.covered_by(seen, reach), least, "missing in the document")
        self.assertGreater(seen.covered_by(expected, reach), least, "superfluous in the document")

    def assert_same_bars(self, drawn, view):
        """Bars of documents are not rounded to whole pixels, as those of the window are."""
        counts = [row[1] for row in exports.rows_of(view)]
        left, right = plots.sides(drawn.width)
        width = (right - left) / len(counts)
        red = drawn.mask(pictures.RED)
        plots.assert_bars(self, red, left, width, counts)
        _, top, _, bottom = red.box()
        _, expected_top, _, expected_bottom = self.screen(view).mask(pictures.RED).box()
        self.assertAlmostEqual(top, expected_top, delta=3)
        self.assertAlmostEqual(bottom, expected_bottom, delta=3)

    def assert_same_words(self, lines, view):
        """Capital I and small l are one to the reader of the screen."""
        seen = " ".join(lines).replace("I", "l")  # columns may touch
        shown = [line for line in exports.shown_lines(view) if any(map(str.isalnum, line))]
        self.assertTrue(shown)
        for line in shown:
            for word in line.replace("I", "l").split():
                self.assertIn(word, seen)


@exports.spread
class EpsDocuments(Documents):
    @exports.for_each(exports.HISTOGRAMS)
    def test_bars_are_as_high_as_the_counts(self, view):
        drawn = ghostscript.draw_eps(exports.content(view + ".eps"))
        self.keep(drawn, view + "_eps.png")
        self.assert_same_bars(drawn, view)
        # The lower axis goes with the bars; the upright one is that of the window.
        left, _ = plots.sides(drawn.width)
        upright = drawn.cut(0, 0, int(left) + 3, drawn.height)
        screen = self.screen(view).cut(0, 0, int(left) + 3, drawn.height)
        self.assert_same_ink(upright, screen, pictures.DARK, 3, 0.9)

    @exports.for_each(exports.OTHER_PLOTS)
    def test_data_and_axes_stand_where_the_window_has_them(self, view):
        document = exports.content(view + ".eps")
        if view in exports.SCATTERS:
            document = ghostscript.with_moves(document)
        drawn = ghostscript.draw_eps(document)
        self.keep(drawn, view + "_eps.png")
        screen = self.screen(view)
        self.assert_same_ink(drawn, screen, pictures.RED, 2, 0.98)
        self.assert_same_ink(drawn, screen, pictures.DARK, 3, 0.95)

    @exports.for_each(exports.TABLES)
    def test_texts_are_those_of_the_window(self, view):
        document = exports.content(view + ".eps")
        self.keep(ghostscript.draw_eps(document), view + "_eps.png")
        self.assert_same_words(ghostscript.read_text(document, *ghostscript.EPS_PAGE), view)

    @exports.for_each(exports.SCATTERS)
    def test_dots_are_no_valid_postscript(self, view):
        """The first corner of each dot ends in "F" where it should be moved to: to PostScript that
        is one word, the name of an operator that there is not. It is the form's settled way."""
        with self.assertRaises(ghostscript.BadDocument) as caught:
            ghostscript.draw_eps(exports.content(view + ".eps"))
        self.assertRegex(str(caught.exception), r"undefined in \d+\.\d{3}F")

    def test_nothing_but_the_dots_is_invalid(self):
        for view in exports.VIEWS:
            document = exports.content(view + ".eps")
            spoilt = ghostscript.with_moves(document) != document
            self.assertEqual(spoilt, view in exports.SCATTERS, view)

    def test_a_smaller_picture_has_its_size(self):
        page = ghostscript.draw(exports.content("Amplitude_small.eps"), 432 + 60, 288 + 60, 72)
        self.keep(page, "Amplitude_small_eps.png")
        left, top, right, bottom = page.mask(pictures.RED).box()
        self.assertGreaterEqual(left, 30 + 432 / 8)
        self.assertLessEqual(right, 30 + 432 / 1.1428571428571428 + 1)
        self.assertGreaterEqual(top, 30 + 288 / 6 - 1)
        self.assertAlmostEqual(bottom, 30 + 288 / 1.2, delta=2)


@exports.spread
class IllustratorDocuments(Documents):
    """Drawn with a stand-in for Illustrator's operators."""

    @exports.for_each(exports.HISTOGRAMS)
    def test_bars_are_as_high_as_the_counts(self, view):
        drawn = ghostscript.draw_illustrator(exports.content(view + ".ai"))
        self.keep(drawn, view + "_ai.png")
        self.assert_same_bars(drawn, view)

    @exports.for_each(exports.OTHER_PLOTS)
    def test_data_stand_where_the_window_has_them(self, view):
        drawn = ghostscript.draw_illustrator(exports.content(view + ".ai"))
        self.keep(drawn, view + "_ai.png")
        self.assert_same_ink(drawn, self.screen(view), pictures.RED, 2, 0.98)

    @exports.for_each(exports.TABLES)
    def test_texts_are_those_of_the_window(self, view):
        document = exports.content(view + ".ai")
        self.keep(ghostscript.draw_illustrator(document), view + "_ai.png")
        lines = ghostscript.read_text(
            document, ghostscript.WIDTH, ghostscript.HEIGHT, **ghostscript.ILLUSTRATOR
        )
        self.assert_same_words(lines, view)

    @exports.for_each(exports.VIEWS)
    def test_every_group_and_every_text_is_closed(self, view):
        lines = exports.content(view + ".ai").decode("latin-1").split("\r\n")
        ends = [line.rsplit(" ", 1)[-1] for line in lines]
        self.assertEqual(ends.count("q"), ends.count("Q"))
        self.assertEqual(ends.count("q"), 1 if view in exports.TABLES else 0)
        self.assertEqual(ends.count("z"), ends.count("T"))
        self.assertEqual(sum(line.endswith("]e") for line in lines), ends.count("T"))
        for line in lines:
            text = re.fullmatch(r"(\d+)\((.*)\)t", line)
            if text:
                self.assertEqual(int(text.group(1)), len(text.group(2)))

    @exports.for_each(exports.VIEWS)
    def test_there_is_no_operator_but_those_of_the_form(self, view):
        lines = exports.content(view + ".ai").decode("latin-1").split("\r\n")
        known = set("m l w S F h W n q Q k K z T".split())
        for line in lines[:-1]:
            operator = line.rsplit(" ", 1)[-1]
            text = line.endswith(")t") or line.endswith("]e")
            self.assertTrue(line.startswith("%") or text or operator in known, line)


if __name__ == "__main__":
    unittest.main()
