"""Draws the kittens: three states of hair by three of spin from one set of parts.

A kitten is a ball of about 30 pixels in a square of SIZE pixels, drawn around the
middle, because the game turns the picture about its centre.  Hair 1 is the full
fur, 2 the thinning one, 3 none: somebody has then knitted a jumper of the lost
hair, so that the kitten colour is there in every state.
"""
import math

from palette import KITTEN, KITTEN_DARK, KITTEN_LINE, SKIN, SKIN_DARK

SIZE = 46


def ring(radius, spikes, depth, lean=0.0, square=3.0, phase=0.0):
    """A closed outline around (0, 0): a rounded square with `spikes` tufts of `depth` pixels."""
    points = []
    for i in range(spikes * 2):
        a = phase + math.pi * i / spikes
        c, s = math.cos(a), math.sin(a)
        r = radius / (abs(c) ** square + abs(s) ** square) ** (1.0 / square)
        if i % 2:
            r += depth
            a += lean
        points.append((r * math.cos(a), r * math.sin(a)))
    path = "M%.2f %.2f" % points[0]
    for i in range(0, len(points), 2):
        tip, valley = points[i + 1], points[(i + 2) % len(points)]
        path += "L%.2f %.2fL%.2f %.2f" % (tip + valley)
    return path + "Z"


def blob(radius, square=2.7):
    return ring(radius, 24, 0.0, square=square)


def ears(fill, inner, tall):
    out = []
    for side in (-1, 1):
        out.append('<path d="M%.1f -8L%.1f %.1fL%.1f -13.5Z" fill="%s" stroke="%s" stroke-width="1.6"/>' % (
            side * 15.2, side * 14.2, -tall, side * 3.6, fill, KITTEN_LINE))
        out.append('<path d="M%.1f -10.5L%.1f %.1fL%.1f -12.6Z" fill="%s"/>' % (
            side * 13.2, side * 12.9, -tall + 3.6, side * 7.6, inner))
    return "".join(out)


def tail(fill):
    path = "M12 13C19 16 21.5 11 18.6 7.4"
    return ('<g fill="none" stroke-linecap="round"><path d="%s" stroke="%s" stroke-width="6.2"/>'
            '<path d="%s" stroke="%s" stroke-width="3.2"/></g>' % (path, KITTEN_LINE, path, fill))


def paws(fill):
    return "".join('<ellipse cx="%d" cy="17.4" rx="3.9" ry="3" fill="%s" stroke="%s" stroke-width="1.5"/>' % (
        side * 7, fill, KITTEN_LINE) for side in (-1, 1))


def fur_full():
    out = tail(KITTEN)
    out += '<path d="%s" fill="%s" stroke="%s" stroke-width="1.7"/>' % (ring(15.4, 13, 4.2, 0.10, phase=0.12), KITTEN, KITTEN_LINE)
    out += ears(KITTEN, "#ff9db0", 21.0)
    out += '<path d="M-3.5 -15.5L-2.2 -9.5M0 -16.5V-9M3.5 -15.5L2.2 -9.5" stroke="%s" stroke-width="1.9" fill="none"/>' % KITTEN_DARK
    out += '<path d="M-17 3L-12.5 4M-16 8L-12 8M17 3L12.5 4M16 8L12 8" stroke="%s" stroke-width="1.7" fill="none"/>' % KITTEN_DARK
    return out + paws("#e9fbff")


def fur_thin():
    out = tail(SKIN) + ears(KITTEN, "#ff9db0", 19.4)
    out += '<path d="%s" fill="%s" stroke="%s" stroke-width="1.7"/>' % (blob(15.4), SKIN, KITTEN_LINE)
    out += ('<g fill="%s" stroke="%s" stroke-width="0.9" stroke-linejoin="miter">' % (KITTEN, KITTEN_DARK) +
            # crown, two cheeks and a bib, all ragged
            '<path d="M-10.5 -13.6L-5 -17.6L-3.4 -15L0 -19L1.6 -15.2L6 -17.8L10.5 -13.4L9.4 -9L6.4 -10.6L4.4 -7.4L1.4 -10.4L-1.4 -6.8L-4.2 -10L-7.4 -7.6L-9 -10.4Z"/>'
            '<path d="M-14.8 -2.6L-18.4 0.4L-15.4 2.4L-17.8 6.4L-14.4 8L-9.6 9.2L-10.8 5L-7.8 3.8L-11.2 1Z"/>'
            '<path d="M14.8 1L18 3.8L15.2 6L17 9.6L13.2 11.4L9.4 12L10.8 8L8 6.2L11.2 4.2Z"/>'
            '<path d="M-6.6 10L-2.6 11.4L0 9.8L3.4 11.6L6.6 10.2L7.4 14.4L2 15.2L-4.6 15Z"/></g>')
    out += '<path d="M-12.5 -9.5L-16.5 -13M12.8 -5L17.6 -7M-12 12.5L-15.5 15.5" stroke="%s" stroke-width="1.3" fill="none"/>' % KITTEN
    return out + paws("#ffd9cf")


def fur_none():
    out = tail(SKIN) + ears(SKIN, "#f0788a", 20.2)
    out += '<path d="%s" fill="%s" stroke="%s" stroke-width="1.7"/>' % (blob(14.8), SKIN, KITTEN_LINE)
    out += '<path d="M-4 -11.6Q0 -13.4 4 -11.6M-3 -9Q0 -10.6 3 -9M-13 -3Q-11 -2.6 -10.4 -0.6M13 -3Q11 -2.6 10.4 -0.6" stroke="%s" stroke-width="1" fill="none"/>' % SKIN_DARK
    # one last hair
    out += '<path d="M0.4 -14.6C-1 -18 2.6 -19.6 4.4 -17.4" stroke="%s" stroke-width="1.3" fill="none"/>' % KITTEN_LINE
    # the jumper, with a hem, a collar and a knitted zigzag
    out += ('<path d="M-15.6 2.2Q-8 6.6 0 6.6Q8 6.6 15.6 2.2L14.9 12.4Q11.4 16.6 0 16.6Q-11.4 16.6 -14.9 12.4Z" fill="%s" stroke="%s" stroke-width="1.5"/>' % (KITTEN, KITTEN_LINE) +
            '<path d="M-13.4 13.6Q0 17.6 13.4 13.6" stroke="%s" stroke-width="1.4" fill="none"/>' % KITTEN_DARK)
    return out + paws("#ffd9cf")


def face(spin):
    line = 'stroke="%s" fill="none" stroke-linecap="round"' % KITTEN_LINE
    out = ""
    if spin == 0:
        for side in (-1, 1):
            out += '<ellipse cx="%.1f" cy="-2.6" rx="4.9" ry="5.4" fill="#fff" stroke="%s" stroke-width="1.3"/>' % (side * 6, KITTEN_LINE)
            out += '<ellipse cx="%.1f" cy="-1.9" rx="2.5" ry="3.4" fill="#14131c"/><circle cx="%.1f" cy="-3.5" r="1.1" fill="#fff"/>' % (side * 5.4, side * 5.4 - 0.8)
        out += '<path d="M-1.7 2.4H1.7L0 4.3Z" fill="#ff5d83" stroke="%s" stroke-width="0.7"/>' % KITTEN_LINE
        out += '<path d="M-3.6 5.6Q-1.8 7.2 0 5.2Q1.8 7.2 3.6 5.6" stroke-width="1.3" %s/>' % line
        out += '<path d="M-9.5 4.2L-15.5 3.4M-9.5 5.8L-15 7M9.5 4.2L15.5 3.4M9.5 5.8L15 7" stroke-width="0.8" %s/>' % line
    elif spin == 1:
        for side, rx, px, py in ((-1, 5.4, -7.6, -4.8), (1, 4.5, 6.6, 0.4)):
            out += '<ellipse cx="%.1f" cy="-2.6" rx="%.1f" ry="%.1f" fill="#fff" stroke="%s" stroke-width="1.3"/>' % (side * 6, rx, rx + 0.4, KITTEN_LINE)
            out += '<circle cx="%.1f" cy="%.1f" r="2" fill="#14131c"/>' % (px, py)
        out += '<path d="M-10.5 -9.4L-3.4 -7.6M3.6 -8L9.6 -10.4" stroke-width="1.6" %s/>' % line
        out += '<path d="M-1.7 2.4H1.7L0 4.3Z" fill="#ff5d83" stroke="%s" stroke-width="0.7"/>' % KITTEN_LINE
        out += '<path d="M-5.2 6.4Q-4 4.8 -2.6 6.2T0 6.2T2.6 6.2T5.2 5.6" stroke-width="1.5" %s/>' % line
    else:
        for side in (-1, 1):
            cx = side * 6.2
            out += '<circle cx="%.1f" cy="-2.8" r="5.8" fill="#fff" stroke="%s" stroke-width="1.3"/>' % (cx, KITTEN_LINE)
            spiral = []
            for i in range(31):
                a = i * 0.42
                r = 0.25 + i * 0.142
                spiral.append("%.2f %.2f" % (cx + r * math.cos(a) * side, -2.8 + r * math.sin(a)))
            out += '<path d="M%s" stroke-width="1.25" %s/>' % ("L".join(spiral), line)
        out += '<ellipse cx="0" cy="7.2" rx="3.8" ry="4" fill="#7c1430" stroke="%s" stroke-width="1.4"/>' % KITTEN_LINE
        out += '<path d="M-2.4 9.4Q0 6.8 2.4 9.4Q0 11.2 -2.4 9.4Z" fill="#ff7f9a"/>'
    return out


def streaks(spin):
    """Motion lines in the corners, which the turning picture sweeps round."""
    if spin == 0:
        return ""
    arcs = ((200, 232), (20, 52)) if spin == 1 else ((196, 244), (286, 334), (16, 64), (106, 154))
    out = ""
    for i, (a, b) in enumerate(arcs):
        for r, w, shrink in ((21.4, 1.7, 0),) if spin == 1 else ((21.6, 2.0, 0), (19.0, 1.3, 10)):
            p = [math.radians(v) for v in (a + shrink, b - shrink)]
            out += '<path d="M%.2f %.2fA%.1f %.1f 0 0 1 %.2f %.2f" fill="none" stroke="#fff" stroke-width="%.1f" stroke-linecap="round" opacity="0.9"/>' % (
                r * math.cos(p[0]), r * math.sin(p[0]), r, r, r * math.cos(p[1]), r * math.sin(p[1]), w)
    return out


def group(hair, spin):
    """The kitten around (0, 0), to be put into any picture."""
    fur = (fur_full, fur_thin, fur_none)[hair - 1]()
    return '<g stroke-linejoin="round">%s%s%s</g>' % (fur, face(spin), streaks(spin))


def picture(hair, spin):
    half = SIZE / 2.0
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d"><g transform="translate(%.1f %.1f)">%s</g></svg>'
            % (SIZE, SIZE, half, half, group(hair, spin)))
