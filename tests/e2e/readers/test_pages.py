"""Printed pages, made into a PDF and drawn from it, against the window that they come from."""

import unittest

import exports
import ghostscript
import pictures
import plots

A4 = (595, 842)  # points
# The printer's margin, in the pixels of a screen of 96 to the inch.
MARGIN = 16
DOTS = 300 / 96  # of the printer, to a pixel


@exports.spread
class Pages(unittest.TestCase):
    def page(self, view):
        pdf = exports.path(view + "_page.pdf")
        with open(pdf, "wb") as file:
            file.write(ghostscript.to_pdf(exports.content(view + "_page.ps"), *A4))
        page = ghostscript.draw_file(pdf, *A4, 96)
        page.write_png(exports.path(view + "_page.png"))
        return page

    def screen(self, view):
        return pictures.read_png(exports.path(view + "_printed.png"))

    def corner(self, view):
        """The part of the page, and the window, that should be alike."""
        page, screen = self.page(view), self.screen(view)
        return page.cut(MARGIN, MARGIN, screen.width, screen.height), screen

    @exports.for_each(exports.OTHER_PLOTS)
    def test_the_plot_stands_in_the_top_left_corner_as_large_as_on_the_screen(self, view):
        corner, screen = self.corner(view)
        seen, expected = corner.mask(pictures.RED), screen.mask(pictures.RED)
        self.assertGreater(expected.count(), 100)
        self.assertGreater(expected.covered_by(seen, 3), 0.98)
        self.assertGreater(seen.covered_by(expected, 3), 0.98)
        seen, expected = corner.mask(pictures.DARK), screen.mask(pictures.DARK)
        self.assertGreater(expected.covered_by(seen, 4), 0.9)

    @exports.for_each(exports.HISTOGRAMS)
    def test_the_histogram_stands_in_the_top_left_corner_as_large_as_on_the_screen(self, view):
        corner, screen = self.corner(view)
        counts = [row[1] for row in exports.rows_of(view)]
        left, right = plots.sides(screen.width)
        # Whole dots of the printer, in pixels.
        width = (right - left) * DOTS // len(counts) / DOTS
        red = corner.mask(pictures.RED)
        plots.assert_bars(self, red, left, width, counts)
        top, expected_top = red.box()[1], screen.mask(pictures.RED).box()[1]
        self.assertAlmostEqual(top, expected_top, delta=3)
        upright = corner.cut(0, 0, int(left) + 3, corner.height).mask(pictures.DARK)
        expected = screen.cut(0, 0, int(left) + 3, corner.height).mask(pictures.DARK)
        self.assertGreater(expected.covered_by(upright, 4), 0.9)
        self.assertGreater(upright.covered_by(expected, 4), 0.9)

    @exports.for_each(exports.TABLES)
    def test_the_table_stands_in_the_top_left_corner(self, view):
        page, screen = self.page(view), self.screen(view)
        ink = page.mask(pictures.INK)
        left, top, right, bottom = ink.box()
        self.assertGreater(ink.count(), 1000)
        self.assertGreaterEqual(min(left, top), MARGIN)
        self.assertLess(right, MARGIN + screen.width)
        # Lines of the tables that scroll stand a fifth further apart on paper.
        self.assertLess(bottom, MARGIN + 1.25 * screen.height)

    @exports.for_each(exports.VIEWS)
    def test_the_paper_is_white_beside_it(self, view):
        page, screen = self.page(view), self.screen(view)
        beyond = MARGIN + screen.width
        beside = page.cut(beyond, 0, page.width - beyond, page.height)
        self.assertEqual(beside.mask(pictures.INK).count(), 0)


if __name__ == "__main__":
    unittest.main()
