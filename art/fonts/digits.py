"""The digit font: a sheet of equal cells and the one line that describes it."""
import math

import lettering

CHARACTERS = "+ -0123456789"     # the blank inside, where no reader trims it
CELL = (18, 28)                  # pixels
ADVANCE = {" ": 8, "-": 12}      # pixels; all the others are as wide as a digit, so that a running number stands still
DIGIT = 16
CAP = 17.5                       # height of a digit's pen stroke
TINT = "888"                     # as drawn


def advance(c):
    return ADVANCE.get(c, DIGIT)


def sheet():
    """The sheet as SVG; a glyph is centred in its advance at the left of its cell."""
    w, h = CELL
    out = ['<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d">' % (w * len(CHARACTERS), h)]
    for i, c in enumerate(CHARACTERS):
        if c == " ":
            continue
        squeeze = {"-": 0.82}.get(c, 0.90)
        out.append('<svg x="%d" y="0" width="%d" height="%d"><g transform="translate(%.2f 5.2) scale(%.3f 1)">%s</g></svg>' % (
            i * w, advance(c), h, advance(c) / 2.0, squeeze, lettering.svg(c, 0, 0, CAP, "digit", "middle")))
    out.append("</svg>")
    return "".join(out)


def description(picture):
    widths = "".join("%02d" % math.ceil(advance(c) * 64 / CELL[0]) for c in CHARACTERS)
    return "OGF;%d;1;%d;%d;%d;%s;%s;%s;%s\n" % (len(CHARACTERS), CELL[0], CELL[1], len(CHARACTERS), TINT, CHARACTERS, widths, picture)
