"""What the end-to-end tests left behind, in the folder that ONDREL_EXPORTS names."""

import csv
import io
import os

TABLES = ["Event", "Level", "Sweep", "Statistics", "AmplitudeFit", "DurationFit"]
SCATTERS = ["AmplitudeScatter", "DurationScatter", "AmplitudeDuration"]
HISTOGRAMS = ["Amplitude", "Duration"]
OTHER_PLOTS = SCATTERS + ["Stationarity"]
PLOTS = HISTOGRAMS + OTHER_PLOTS
VIEWS = TABLES + PLOTS


def path(name):
    return os.path.join(os.environ["ONDREL_EXPORTS"], name)


def content(name):
    """Fails when the file is missing."""
    with open(path(name), "rb") as file:
        return file.read()


def shown_lines(view):
    """The lines in black that were read from the view's picture on the screen."""
    return content(view + "_screen.txt").decode("latin-1").split("\n")[:-1]


def rows_of(view):
    """The numbers of its text for Excel, through Python's reader of such files."""
    text = content(view + "_excel.txt").decode("ascii")
    return [[float(cell) for cell in row] for row in csv.reader(io.StringIO(text), "excel-tab")]


def for_each(views):
    """Makes a test for each view of a method that takes one."""

    def decorate(method):
        method.views = views
        return method

    return decorate


def spread(test_class):
    """Puts the tests of `for_each` into the class, each with the name of its view."""
    for name, method in list(vars(test_class).items()):
        if not hasattr(method, "views"):
            continue
        delattr(test_class, name)
        for view in method.views:
            setattr(test_class, f"{name}_{view}", lambda self, m=method, v=view: m(self, v))
    return test_class
