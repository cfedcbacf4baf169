"""Documents as Ghostscript draws and reads them."""

import os
import re
import subprocess

import pictures

PROCSET = os.path.join(os.path.dirname(os.path.abspath(__file__)), "illustrator_procset.ps")

# Of the exports, pixels of the screen at 96 to the inch: a view's inside.
WIDTH, HEIGHT = 912, 864
# What the EPS form adds on the left and below, points.
MARGIN = 30


class BadDocument(Exception):
    """Ghostscript could not make sense of it; says where."""


def run(document, device, width, height, dpi, before=(), after=()):
    """Width and height are those of the page, points."""
    command = ["gs", "-q", "-dBATCH", "-dNOPAUSE", "-dSAFER", "-dTextAlphaBits=1"]
    command += [f"-sDEVICE={device}", f"-r{dpi}", "-dFIXEDMEDIA"]
    command += [f"-dDEVICEWIDTHPOINTS={width}", f"-dDEVICEHEIGHTPOINTS={height}"]
    command += ["-sOutputFile=%stdout", "-sstdout=%stderr"]
    command += [*(f"--permit-file-read={name}" for name in before), *before, "-", *after]
    done = subprocess.run(command, input=document, capture_output=True, timeout=60, check=False)
    if done.returncode != 0:
        raise BadDocument(done.stderr.decode("latin-1"))
    return done.stdout


def draw(document, width, height, dpi, **around):
    return pictures.parse_ppm(run(document, "ppmraw", width, height, dpi, **around))


def to_pdf(document, width, height):
    return run(document, "pdfwrite", width, height, 300)


def draw_file(path, width, height, dpi):
    """What stands in a file, of any form that Ghostscript knows."""
    return draw(b"", width, height, dpi, before=[path])


def read_text(document, width, height, **around):
    text = run(document, "txtwrite", width, height, 72, **around).decode("utf-8")
    return [" ".join(line.split()) for line in text.split("\n") if line.strip()]


# --- EPS -----------------------------------------------------------------------------------------

EPS_PAGE = (WIDTH * 72 // 96 + 2 * MARGIN, HEIGHT * 72 // 96 + 2 * MARGIN)


def draw_eps(document):
    """The view's pixels: the picture is as large as the window, and stands on a margin."""
    page = draw(document, *EPS_PAGE, 96)
    left = MARGIN * 96 // 72
    return page.cut(left, left, WIDTH, HEIGHT)


def with_moves(document):
    """A scatter plot as it would be if the first corner of each dot were moved to."""
    return re.sub(rb"(?m)^(-?\d+\.\d{3} -?\d+\.\d{3})F\r$", rb"\1 moveto\r", document)


# --- Illustrator ---------------------------------------------------------------------------------

ILLUSTRATOR = {"before": [PROCSET], "after": ["-c", "showpage"]}


def draw_illustrator(document):
    """The view's pixels, a point for each."""
    return draw(document, WIDTH, HEIGHT, 72, **ILLUSTRATOR)
