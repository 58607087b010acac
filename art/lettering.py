"""A hand-made comic alphabet.  Every letter is a pen stroke; the pen's width and
the layers painted along it (shadow, outline, face, shine) make the style, so no
font need be installed.

Letters stand on a grid with the cap line at y 0 and the base line at y 10.
"""
import math

GLYPHS = {  # character: (width, path)
    "A": (7.0, "M0.5 10L3.5 0L6.5 10M1.7 6.7H5.3"),
    "B": (6.5, "M0.9 0V10M0.9 0H3.1C6 0 6 4.8 3.1 4.8H0.9M3.1 4.8C7.1 4.8 7.1 10 3.1 10H0.9"),
    "C": (6.6, "M6.2 2C5.6 0.7 4.7 0 3.6 0C1.6 0 0.5 2.2 0.5 5C0.5 7.8 1.6 10 3.6 10C4.7 10 5.6 9.3 6.2 8"),
    "D": (6.9, "M0.8 0V10H2.6C5.3 10 6.5 7.8 6.5 5C6.5 2.2 5.3 0 2.6 0Z"),
    "E": (6.0, "M5.5 0H0.8V10H5.5M0.8 4.9H4.8"),
    "F": (5.8, "M5.5 0H0.8V10M0.8 4.9H4.6"),
    "G": (6.9, "M6.2 1.8C5.6 0.6 4.7 0 3.6 0C1.6 0 0.5 2.2 0.5 5C0.5 7.8 1.6 10 3.6 10C5.5 10 6.4 8.6 6.4 5.5H4"),
    "H": (7.0, "M0.8 0V10M6.2 0V10M0.8 5H6.2"),
    "I": (2.0, "M1 0V10"),
    "J": (5.4, "M4.6 0V7C4.6 9.2 3.6 10 2.5 10C1.3 10 0.5 9.2 0.4 8"),
    "K": (6.4, "M0.8 0V10M5.8 0L0.8 5.6M2.6 3.8L6 10"),
    "L": (5.6, "M0.8 0V10H5.2"),
    "M": (8.0, "M0.6 10L1.2 0L4 6.2L6.8 0L7.4 10"),
    "N": (6.9, "M0.8 10V0L6.1 10V0"),
    "O": (7.6, "M3.8 0C1.7 0 0.5 2.2 0.5 5C0.5 7.8 1.7 10 3.8 10C5.9 10 7.1 7.8 7.1 5C7.1 2.2 5.9 0 3.8 0Z"),
    "P": (6.2, "M0.8 10V0H3.2C6.6 0 6.6 5.6 3.2 5.6H0.8"),
    "Q": (7.6, "M3.8 0C1.7 0 0.5 2.2 0.5 5C0.5 7.8 1.7 10 3.8 10C5.9 10 7.1 7.8 7.1 5C7.1 2.2 5.9 0 3.8 0ZM4.6 7.4L7 10.4"),
    "R": (6.5, "M0.8 10V0H3.2C6.6 0 6.6 5.4 3.2 5.4H0.8M3.2 5.4L6.1 10"),
    "S": (6.2, "M5.6 1.6C5 0.5 4.1 0 3.1 0C1.6 0 0.6 1 0.6 2.4C0.6 5.4 5.8 4.4 5.8 7.4C5.8 9 4.6 10 3.1 10C1.9 10 0.9 9.4 0.4 8.2"),
    "T": (6.6, "M0.3 0H6.3M3.3 0V10"),
    "U": (7.0, "M0.8 0V6.6C0.8 8.8 1.9 10 3.5 10C5.1 10 6.2 8.8 6.2 6.6V0"),
    "V": (6.8, "M0.4 0L3.4 10L6.4 0"),
    "W": (8.8, "M0.4 0L2.2 10L4.4 3.4L6.6 10L8.4 0"),
    "X": (6.6, "M0.6 0L6 10M6 0L0.6 10"),
    "Y": (6.6, "M0.4 0L3.3 4.8L6.2 0M3.3 4.8V10"),
    "Z": (6.6, "M0.6 0H5.9L0.6 10H6.1"),
    "0": (6.4, "M3.2 0C1.4 0 0.5 2.2 0.5 5C0.5 7.8 1.4 10 3.2 10C5 10 5.9 7.8 5.9 5C5.9 2.2 5 0 3.2 0Z"),
    "1": (6.4, "M1.5 2.2L3.7 0V10"),
    "2": (6.4, "M0.7 2.6C0.9 0.9 1.9 0 3.2 0C4.7 0 5.7 1 5.7 2.6C5.7 5 0.8 7.6 0.6 10H5.9"),
    "3": (6.4, "M0.8 0H5.4L2.8 3.8C4.8 3.8 5.8 5 5.8 6.8C5.8 8.8 4.5 10 2.9 10C1.7 10 0.8 9.4 0.5 8.4"),
    "4": (6.4, "M4.5 10V0L0.5 6.9H6"),
    "5": (6.4, "M5.3 0H1.3L0.9 4.4C1.6 3.9 2.3 3.7 3 3.7C4.7 3.7 5.8 4.9 5.8 6.7C5.8 8.7 4.5 10 2.9 10C1.7 10 0.8 9.4 0.5 8.4"),
    "6": (6.4, "M5 0.4C2.4 0.2 0.6 3 0.6 6.6C0.6 8.8 1.7 10 3.2 10C4.8 10 5.8 8.8 5.8 7C5.8 5.2 4.8 4.1 3.3 4.1C1.9 4.1 0.8 5 0.6 6.6"),
    "7": (6.4, "M0.6 0H5.8L2.5 10"),
    "8": (6.4, "M3.2 4.6C1.8 4.6 0.9 3.6 0.9 2.3C0.9 0.9 1.9 0 3.2 0C4.5 0 5.5 0.9 5.5 2.3C5.5 3.6 4.6 4.6 3.2 4.6C1.6 4.6 0.6 5.7 0.6 7.3C0.6 9 1.7 10 3.2 10C4.7 10 5.8 9 5.8 7.3C5.8 5.7 4.8 4.6 3.2 4.6Z"),
    "9": (6.4, "M1.4 9.6C4 9.8 5.8 7 5.8 3.4C5.8 1.2 4.7 0 3.2 0C1.6 0 0.6 1.2 0.6 3C0.6 4.8 1.6 5.9 3.1 5.9C4.5 5.9 5.6 5 5.8 3.4"),
    "!": (2.2, "M1.1 0V6.4M1.1 9.9V10"),
    "?": (5.8, "M0.5 2.4C0.7 0.9 1.6 0 2.9 0C4.3 0 5.2 0.9 5.2 2.4C5.2 4.4 2.9 4.4 2.9 6.6M2.9 9.9V10"),
    ".": (2.0, "M1 9.9V10"),
    ",": (2.2, "M1.3 9.6L0.8 11.2"),
    ":": (2.0, "M1 3.4V3.5M1 9.3V9.4"),
    "'": (1.8, "M1 0L0.8 2"),
    "-": (5.0, "M0.9 5.2H4.1"),
    "+": (6.4, "M0.6 5.3H5.8M3.2 2.7V7.9"),
    "(": (3.0, "M2.4 -0.6C0.4 2.4 0.4 7.6 2.4 10.6"),
    ")": (3.0, "M0.6 -0.6C2.6 2.4 2.6 7.6 0.6 10.6"),
    "&": (7.4, "M6.8 10L1.9 3.6C1 2 1.7 0 3.3 0C4.8 0 5.5 1.8 4.3 3.2L1.6 5.6C-0.2 7.6 1 10 3.1 10C5.2 10 6.4 8 6.4 6"),
    " ": (3.6, ""),
}

# style: pen width of the face, layers from the back (extra width, colour, dx, dy), gap between letters
# "shine" draws a thin light line along the upper left of each stroke.
STYLES = {
    "title": dict(pen=3.1, gap=2.5, bounce=1.0, layers=((2.9, "#120a0e", 0.35, 0.55), (1.9, "#5a130c", 0, 0),
                                                        (0.9, "#ff8a1f", 0, 0), (0, "#ffd24a", 0, 0)), shine="#fff6cf"),
    "sign": dict(pen=2.0, gap=1.5, bounce=0.35, layers=((1.5, "#1c1016", 0.25, 0.35), (1.2, "#1c1016", 0, 0),
                                                        (0, "#fff3d6", 0, 0)), shine=""),
    "gold": dict(pen=2.1, gap=1.6, bounce=0.35, layers=((1.6, "#1c1016", 0.25, 0.35), (1.3, "#1c1016", 0, 0),
                                                        (0, "#ffd24a", 0, 0)), shine=""),
    "label": dict(pen=1.9, gap=1.5, bounce=0, layers=((1.4, "#1c1016", 0, 0), (0, "#f2c98a", 0, 0)), shine=""),
    "plain": dict(pen=1.45, gap=1.35, bounce=0, layers=((0, "#2a1a20", 0, 0),), shine=""),
    "strong": dict(pen=1.9, gap=1.5, bounce=0, layers=((0, "#a32312", 0, 0),), shine=""),
    "chalk": dict(pen=1.1, gap=1.4, bounce=0.3, layers=((0, "#a08f8c", 0, 0),), shine=""),
    "digit": dict(pen=2.5, gap=0, bounce=0, layers=((2.3, "#2a0f08", 0.0, 0.25), (0, "#ffe45e", 0, 0)), shine="#fffbe0"),
}


def width(text, size, style):
    """Width in pixels of text with caps `size` pixels high, pen included."""
    look = STYLES[style]
    units = sum(GLYPHS[c][0] for c in text) + look["gap"] * (len(text) - 1)
    return units * size / 10.0


def svg(text, x, y, size, style="plain", anchor="start", colour=None):
    """The text as an SVG group; x is its start, middle or end, y the cap line."""
    look = STYLES[style]
    scale = size / 10.0
    total = width(text, size, style)
    left = x - {"start": 0, "middle": total / 2, "end": total}[anchor]
    spots = []
    pen = left
    for i, c in enumerate(text):
        w, path = GLYPHS[c]
        if path:
            turn = 5 * look["bounce"] * math.sin(i * 2.3 + 0.6)
            lift = 0.7 * look["bounce"] * math.sin(i * 1.9 + 1.1)
            spots.append('translate(%.2f %.2f) scale(%.4f) rotate(%.2f %.2f 5)' % (pen, y + lift * scale, scale, turn, w / 2))
            spots[-1] = (spots[-1], path)
        pen += (w + look["gap"]) * scale
    out = ['<g fill="none" stroke-linecap="round" stroke-linejoin="round">']
    for i, (extra, paint, dx, dy) in enumerate(look["layers"]):
        if colour and i == len(look["layers"]) - 1:
            paint = colour
        out.append('<g stroke="%s" stroke-width="%.2f" transform="translate(%.2f %.2f)">' % (
            paint, look["pen"] + extra, dx * scale, dy * scale))
        out += ['<path transform="%s" d="%s"/>' % spot for spot in spots]
        out.append("</g>")
    if look["shine"]:
        out.append('<g stroke="%s" stroke-width="%.2f" transform="translate(%.2f %.2f)" opacity="0.9">' % (
            look["shine"], look["pen"] * 0.22, -0.42 * scale, -0.5 * scale))
        out += ['<path transform="%s" d="%s"/>' % spot for spot in spots]
        out.append("</g>")
    out.append("</g>")
    return "".join(out)
