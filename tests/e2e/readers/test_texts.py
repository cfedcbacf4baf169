"""Exported tables, read by Python's reader of such files, against what the views show."""

import math
import unittest

import exports
import pictures
import plots
from exports import rows_of

COLUMNS = {
    "Event": 6,
    "Level": 8,
    "Sweep": 9,
    "Statistics": 11,
    "Amplitude": 5,
    "Duration": 5,
    "AmplitudeFit": 3,
    "DurationFit": 2,
    "AmplitudeScatter": 2,
    "DurationScatter": 2,
    "AmplitudeDuration": 2,
    "Stationarity": 2,
}
WAVES = {
    "Amplitude": "Current, Count,\tFitSum,\tFit0,\tFit1",
    "Duration": "Duration, Count,\tFitSum,\tFit0,\tFit1",
}
PICO = 1e-12


# --- Tables --------------------------------------------------------------------------------------


# Of each column: what the file's number is multiplied by for the view, and the view's decimals.
WHOLE, TIME, CURRENT, TAG = (1, 0), (1, 6), (1 / PICO, 2), (1, 4)
SHOWN = {
    "Event": [WHOLE, TIME, CURRENT, CURRENT, WHOLE, TAG],
    "Level": [WHOLE, TIME, TIME, CURRENT, CURRENT, CURRENT, WHOLE, TAG],
    "Sweep": [WHOLE] * 3 + [TIME] * 4 + [(1, 2), TAG],
    "Statistics": [WHOLE, WHOLE, TAG] + [TIME] * 4 + [CURRENT] * 4,
}


def is_shown(row, words, columns):
    """Whether the words are the row's numbers, rounded."""
    if len(words) != len(columns):
        return False
    for value, word, (factor, decimals) in zip(row, words, columns):
        if abs(value * factor - float(word)) > 0.55 * 10**-decimals:
            return False
    return True


# --- Plots ---------------------------------------------------------------------------------------


class Axis:
    """From values to pixels, by two values whose places are known."""

    def __init__(self, low, low_pixel, high, high_pixel):
        self.low, self.low_pixel = low, low_pixel
        self.scale = (high_pixel - low_pixel) / (high - low)

    def pixel(self, value):
        return self.low_pixel + (value - self.low) * self.scale


def is_logarithmic(view):
    """Which of the two columns goes onto an axis of decades."""
    return {"DurationScatter": (False, True), "AmplitudeDuration": (True, False)}.get(
        view, (False, False)
    )


@exports.spread
class Texts(unittest.TestCase):
    @exports.for_each(exports.VIEWS)
    def test_every_row_is_as_wide_as_the_first_and_all_are_numbers(self, view):
        rows = rows_of(view)
        self.assertTrue(rows)
        self.assertEqual({len(row) for row in rows}, {COLUMNS[view]})
        if view != "Statistics":  # a level without events has no mean
            self.assertTrue(all(math.isfinite(cell) for row in rows for cell in row))

    @exports.for_each(exports.VIEWS)
    def test_igor_has_a_wave_for_each_column(self, view):
        lines = exports.content(view + "_igor.itx").decode("ascii").split("\r\n")
        self.assertTrue(lines[1].startswith("WAVES /D "))
        waves = lines[1][len("WAVES /D ") :]
        self.assertEqual(len(waves.split(",")), COLUMNS[view])
        self.assertEqual(waves, WAVES.get(view, waves))

    @exports.for_each(SHOWN)
    def test_rows_are_those_that_the_table_shows(self, view):
        shown = [line for line in exports.shown_lines(view) if not line.startswith("Total")]
        self.assertTrue(shown)
        rows = iter(rows_of(view))  # the search for a line goes on behind the one before
        for line in shown:
            found = any(is_shown(row, line.split(), SHOWN[view]) for row in rows)
            self.assertTrue(found, line)

    @exports.for_each(["Statistics"])
    def test_the_events_add_up_to_the_total(self, view):
        total = [line for line in exports.shown_lines(view) if line.startswith("Total events: ")]
        self.assertEqual(float(total[0].split()[-1]), sum(row[1] for row in rows_of(view)))

    @exports.for_each(["AmplitudeFit", "DurationFit"])
    def test_terms_are_those_that_the_table_shows(self, view):
        rows = rows_of(view)
        self.assertEqual(len(rows), 2)
        shown = exports.shown_lines(view)[-2:]
        for number, (row, line) in enumerate(zip(rows, shown), start=1):
            if view == "AmplitudeFit":
                weight, mean, deviation = row
                mean, deviation = f"{mean / PICO:.3f}pA", f"{deviation / PICO:.3f}pA"
                self.assertEqual(line, f"{number} {mean} {weight:.3f} {deviation}")
            else:
                weight, constant = row
                self.assertEqual(line.split()[:2], [str(number), f"{weight:.3f}"])
                # The table has four digits, the file six decimals.
                shown_constant = float(line.split()[2].removesuffix("s"))
                self.assertAlmostEqual(shown_constant / constant, 1.0, delta=1e-3)

    @exports.for_each(["Amplitude", "Duration"])
    def test_bars_are_as_high_as_the_counts(self, view):
        counts = [row[1] for row in rows_of(view)]
        screen = pictures.read_png(exports.path(view + "_screen.png"))
        left, right = plots.sides(screen.width)
        width = (right - left) // len(counts)  # whole pixels in a window
        plots.assert_bars(self, screen.mask(pictures.RED), left, width, counts)

    @exports.for_each(["Amplitude", "Duration"])
    def test_components_add_up_to_the_sum(self, view):
        for row in rows_of(view):
            self.assertAlmostEqual(row[2], row[3] + row[4], delta=1e-5 * abs(row[2]) + 1e-9)

    @exports.for_each(exports.SCATTERS)
    def test_each_point_is_a_dot_and_each_dot_a_point(self, view):
        logs = is_logarithmic(view)
        points = [
            tuple(math.log10(cell) if log else cell for cell, log in zip(row, logs))
            for row in rows_of(view)
        ]
        red = pictures.read_png(exports.path(view + "_screen.png")).mask(pictures.RED)
        left, top, right, bottom = red.box()
        half = 1.5  # of a dot
        xs, ys = [point[0] for point in points], [point[1] for point in points]
        across = Axis(min(xs), left + half, max(xs), right - half)
        up = Axis(min(ys), bottom - half, max(ys), top + half)
        dots = pictures.Mask(red.width, [0] * len(red.rows))
        for x, y in points:
            column, row = round(across.pixel(x)), round(up.pixel(y))
            dots.rows[row] |= 1 << (red.width - 1 - column)
        self.assertGreater(len(points), 100)
        self.assertEqual(dots.covered_by(red, 1), 1.0)
        self.assertEqual(red.covered_by(dots, 3), 1.0)

    def test_the_running_average_is_the_curve(self):
        rows = rows_of("Stationarity")
        red = pictures.read_png(exports.path("Stationarity_screen.png")).mask(pictures.RED)
        left, top, right, bottom = red.box()
        times, values = [row[0] for row in rows], [row[1] for row in rows]
        self.assertGreater(len(rows), 20)
        across = Axis(min(times), left, max(times), right)
        up = Axis(min(values), bottom, max(values), top)
        curve = pictures.Mask(red.width, [0] * len(red.rows))
        for time, value in rows:
            row = round(up.pixel(value))
            curve.rows[row] |= 1 << (red.width - 1 - round(across.pixel(time)))
        self.assertGreater(curve.covered_by(red, 4), 0.97)


if __name__ == "__main__":
    unittest.main()
