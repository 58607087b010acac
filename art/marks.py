"""What the game points with: the heads at the upper edge, the lamps, the arrows of the hints, the speech bubbles."""
import math

import kitten
import lettering
from palette import CREAM, GOLD, INK, IRON, IRON_LIGHT, KITTEN_LINE, SKIN, SKIN_DARK

# A kitten's head at the upper edge is paler than a kitten, so that nobody takes one for the other.
PALE, PALE_DARK = "#9becf2", "#5fb6c4"

ABOVE = 36                       # side of a cell
ABOVE_SIZES = (34, 28, 22, 16)   # height of the marker, from near to far


def head(hair):
    """A head of 11 pixels radius around (0, 0), looking up."""
    skin = PALE if hair == 1 else SKIN
    line = 'stroke="%s" stroke-width="1.8" stroke-linejoin="round"' % KITTEN_LINE
    out = '<path d="M-11 -3L-11.6 -14.6L-3.6 -9ZM11 -3L11.6 -14.6L3.6 -9Z" fill="%s" %s/>' % (SKIN if hair == 3 else PALE, line)
    outline = kitten.ring(10.0, 11, 2.8, 0.1, phase=0.14) if hair == 1 else kitten.blob(10.6)
    out += '<path d="%s" fill="%s" %s/>' % (outline, skin, line)
    if hair == 1:
        out += '<path d="M-2.6 -10L-2 -6.6M2.6 -10L2 -6.6" stroke="%s" stroke-width="1.8" stroke-linecap="round"/>' % PALE_DARK
    if hair == 2:
        tufts = "M-9.6 -6.4L-6.4 -11.4L-3.4 -8.4L0 -13L3.2 -8.6L6.6 -11.4L9.6 -6L5 -6.6L2 -4.6L-1.4 -6.8L-5 -4.8ZM-10.4 2L-13 5L-10 6.6L-5.6 9.6L-6.6 5.4ZM10.4 2L13 5L10 6.6L5.6 9.6L6.6 5.4Z"
        out += '<path d="%s" fill="%s" stroke="%s" stroke-width="1.2"/>' % (tufts, PALE, PALE_DARK)
    if hair == 3:
        out += '<path d="M-3.4 -7.6Q0 -9 3.4 -7.6" stroke="%s" stroke-width="1.1" fill="none"/>' % SKIN_DARK
        out += '<path d="M-1 -9.8C-2.6 -12.6 1 -14.8 3.4 -12.4" stroke="%s" stroke-width="1.6" fill="none" stroke-linecap="round"/>' % KITTEN_LINE
    for side in (-1, 1):
        out += '<ellipse cx="%.1f" cy="-1.4" rx="3.8" ry="4.2" fill="#fff" stroke="%s" stroke-width="1.2"/>' % (side * 4.4, KITTEN_LINE)
        out += '<ellipse cx="%.1f" cy="-3.2" rx="1.9" ry="2.2" fill="#14131c"/>' % (side * 4.2)
    return out + '<ellipse cx="0" cy="5.6" rx="2" ry="1.7" fill="#7c1430" stroke="%s" stroke-width="1"/>' % KITTEN_LINE


def above(hair, number):
    """An arrow up to the edge, and under it the head of the one that is up there."""
    return ('<g transform="translate(%.1f 0) scale(%.4f)">' % (ABOVE / 2.0, ABOVE_SIZES[number] / 34.0) +
            '<path d="M0 1.2L8 8.6H3.2V12.4H-3.2V8.6H-8Z" fill="%s" stroke="%s" stroke-width="2" stroke-linejoin="round"/>' % (GOLD, INK) +
            '<g transform="translate(0 23) scale(0.9)">%s</g></g>' % head(hair))


LAMPS = (28, 108)


def lamps(lit):
    """Four lamps up to the oven, lit from the lowest on: a dark ring, or a light with rays."""
    out = '<rect x="5" y="2" width="18" height="104" rx="8" fill="%s" stroke="%s" stroke-width="2.2"/>' % (IRON, INK)
    out += '<path d="M8.4 10V98" stroke="%s" stroke-width="1.6" stroke-linecap="round"/>' % IRON_LIGHT
    for i in range(4):
        y = 93 - 26 * i
        if i >= lit:
            out += '<circle cx="14" cy="%d" r="6" fill="#171014" stroke="%s" stroke-width="2"/>' % (y, IRON_LIGHT)
            out += '<path d="M11 %.1fA4 4 0 0 1 14 %.1f" stroke="#8f7d7c" stroke-width="1.2" fill="none" stroke-linecap="round"/>' % (y - 1.6, y - 3.8)
            continue
        rays = "".join("M%.1f %.1fL%.1f %.1f" % (14 + 8.8 * c, y + 8.8 * s, 14 + 11.8 * c, y + 11.8 * s)
                       for c, s in ((math.cos(a), math.sin(a)) for a in (0, 0.7, -0.7, math.pi, math.pi - 0.7, math.pi + 0.7)))
        out += '<path d="%s" stroke="%s" stroke-width="4" stroke-linecap="round"/><path d="%s" stroke="%s" stroke-width="2" stroke-linecap="round"/>' % (
            rays, INK, rays, GOLD)
        out += '<circle cx="14" cy="%d" r="7" fill="#ff8a1f" stroke="%s" stroke-width="1.6"/><circle cx="14" cy="%d" r="4.2" fill="#fff6cf"/>' % (y, INK, y)
    return out


def arrow(path, tip, turn, width=7.0, size=1.0):
    """A gold pen stroke with a head at its tip, which looks right before it is turned."""
    out = ""
    for colour, more in ((INK, 5.0), (GOLD, 0.0)):
        out += '<path d="%s" fill="none" stroke="%s" stroke-width="%.1f" stroke-linecap="round"/>' % (path, colour, width + more)
        out += ('<path d="M-8 -10L9 0L-8 10Z" transform="translate(%.1f %.1f) rotate(%.1f) scale(%.2f)" fill="%s" stroke="%s" stroke-width="%.1f" stroke-linejoin="round"/>' % (
            tip[0], tip[1], turn, size, colour, colour, more / size + 1.5))
    return out


SPIN = 12  # cells of half a turn


def hint_spin(number):
    """Two arrows that chase each other around the middle."""
    half = arrow("M-36 -4A36 36 0 0 1 22.6 -28", (27, -22.6), 42, 5.0, 0.72)
    return '<g transform="translate(45 45) rotate(%.1f)">%s<g transform="rotate(180)">%s</g></g>' % (180.0 * number / SPIN, half, half)


NUDGES = 8  # cells of a nudge to and fro


def nudge(number):
    """How far along, from 0 to 1 and back."""
    return 0.5 - 0.5 * math.cos(2 * math.pi * number / NUDGES)


def word_plate(text, x, y, w):
    return ('<rect x="%.1f" y="%.1f" width="%.1f" height="26" rx="9" fill="%s" stroke="%s" stroke-width="2.4"/>' % (x, y, w, CREAM, INK) +
            lettering.svg(text, x + w / 2.0, y + 7, 12, "strong", "middle"))


def plate(text, w):
    """A word plate as a whole picture."""
    return '<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="32">%s</svg>' % (w + 6, word_plate(text, 3, 3, w))


def hint_lamps(number):
    """From the right to the lamps, which stand left of it."""
    x = 5 * nudge(number)
    return arrow("M%.1f 16H40" % (20 + x), (13 + x, 16), 180, 6.0, 0.8) + word_plate("HOW BALD?", 42, 3, 106)


def hint_door(number):
    """From the lower right up to the door's hole."""
    d = 8 * nudge(number)
    stroke = arrow("M%.1f %.1fQ58 34 86 74" % (24 + d, 20 + 0.7 * d), (14 + d, 14 + 0.7 * d), 211, 8.0)
    return stroke + word_plate("PUSH IT IN!", 32, 82, 114)


def bubble(*lines):
    """A speech bubble as a whole picture, as wide as its text; the tail points down from its middle."""
    size = 11.0 if len(lines) == 1 else 10.0
    w = int(math.ceil(max(lettering.width(line, size, "plain") for line in lines))) + 22
    w += w % 2
    body = 25 if len(lines) == 1 else 35
    r, middle, h = 9, w / 2, body + 9
    outline = "M{0} 1.5H{1}Q{2} 1.5 {2} {0}V{3}Q{2} {4} {1} {4}H{5}L{6} {7}L{8} {4}H{0}Q1.5 {4} 1.5 {3}V{0}Q1.5 1.5 {0} 1.5Z".format(
        r + 1.5, w - r - 1.5, w - 1.5, body - r, body, middle + 6, middle, h - 1.8, middle - 6)
    out = '<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d">' % (w, h)
    out += '<path d="%s" fill="#fffaf0" stroke="%s" stroke-width="2.4" stroke-linejoin="round"/>' % (outline, INK)
    for i, line in enumerate(lines):
        out += lettering.svg(line, middle, 7.4 + i * 13.4 - (0.4 if len(lines) > 1 else 0), size, "plain", "middle")
    return out + "</svg>"


CAPTION = 28  # height of a caption, as of the digits beside it


def caption(word):
    """A word of the game-over panel as a whole picture; it stands on the same line as the digits."""
    size = 14
    w = int(math.ceil(lettering.width(word, size, "label"))) + 8
    return '<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d">%s</svg>' % (
        w, CAPTION, lettering.svg(word, 4, CAPTION / 2 - size / 2, size, "label"))


def pip(number, reached):
    """One of eight steps of a career, beneath its name: a star, or a hollow dot."""
    x, y = 79 + 14 * number, 30.0
    if not reached:
        return '<circle cx="%d" cy="%.1f" r="2.2" fill="none" stroke="%s" stroke-width="1.3" opacity="0.7"/>' % (x, y, CREAM)
    points = ["%.1f %.1f" % (x + r * math.sin(math.pi * k / 5), y - r * math.cos(math.pi * k / 5)) for k in range(10) for r in (5.0 if k % 2 == 0 else 2.3,)]
    return '<path d="M%sZ" fill="%s" stroke="%s" stroke-width="1.2" stroke-linejoin="round"/>' % ("L".join(points), GOLD, INK)
