"""Where the parts of a histogram stand in a picture of a view."""


def sides(width):
    """Left and right end of the lower axis, in a picture of this width."""
    return width / 8, width / 1.1428571428571428


def assert_heights(test, heights, counts, tolerance):
    """Bars are as high as their counts, by the highest of them."""
    test.assertEqual(len(heights), len(counts))
    test.assertGreater(max(counts), 5)
    scale = max(heights) / max(counts)
    test.assertGreater(scale, tolerance)  # or nothing would be told apart
    for number, (height, count) in enumerate(zip(heights, counts)):
        test.assertAlmostEqual(height, count * scale, delta=tolerance, msg=f"bar {number}")


def assert_bars(test, red, left, width, counts):
    """Bars of this width begin at `left`, all pixels."""
    bottom = max(red.column(int(left + (counts.index(max(counts)) + 0.5) * width)))
    heights = []
    for number in range(len(counts)):
        column = [y for y in red.column(int(left + (number + 0.5) * width)) if y <= bottom - 2]
        heights.append(bottom - min(column) + 1 if column else 0)
    assert_heights(test, heights, counts, 4)
