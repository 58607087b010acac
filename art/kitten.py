"""Draws the kittens: three states of hair by three of spin from one set of parts.

A kitten is a ball of about 30 pixels in a square of SIZE pixels, drawn around the
middle, because the game turns the picture about its centre.  Hair 1 is the full
fur, 2 the thinning one, 3 none: somebody has then knitted a jumper of the lost
hair, so that the kitten colour is there in every state.  A pose tells what moves;
the body stays where it is.
"""
import math

from palette import KITTEN, KITTEN_DARK, KITTEN_LINE, SKIN, SKIN_DARK

SIZE = 46


class Pose:
    """What a kitten does: `gaze` moves the pupils, `lids` closes the eyes, `flail` (-1, 0, 1) throws paws, tail
    and ears to one side or the other, `turn` (in turns) rolls the eyes, `gape` opens the mouth."""

    def __init__(self, gaze=(0, 0), lids=False, flail=0, turn=0.0, gape=0.0):
        self.gaze, self.lids, self.flail, self.turn, self.gape = gaze, lids, flail, turn, gape


REST = Pose()
POSES = (  # by the spin; the cells of a sheet
    (REST, Pose(lids=True), Pose(gaze=(-1.7, 0.6)), Pose(gaze=(1.7, -1.4)), Pose(flail=1, gape=1), Pose(flail=-1, gape=1)),
    tuple(Pose(turn=i / 6.0, flail=(0, 1, 0, 0, -1, 0)[i]) for i in range(6)),
    tuple(Pose(turn=i / 6.0, flail=(1, 1, 0, -1, -1, 0)[i], gape=(0, 0.5, 1, 1, 0.5, 0)[i]) for i in range(6)))


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


def ears(fill, inner, tall, pose):
    out = []
    for side in (-1, 1):
        dx, dy = pose.flail * 1.8, pose.flail * side * 1.2
        out.append('<path d="M%.1f -8L%.1f %.1fL%.1f -13.5Z" fill="%s" stroke="%s" stroke-width="1.6"/>' % (
            side * 15.2, side * 14.2 + dx, -tall + dy, side * 3.6, fill, KITTEN_LINE))
        out.append('<path d="M%.1f -10.5L%.1f %.1fL%.1f -12.6Z" fill="%s"/>' % (
            side * 13.2, side * 12.9 + dx * 0.8, -tall + 3.6 + dy, side * 7.6, inner))
    return "".join(out)


def tail(fill, pose):
    path = {0: "M12 13C19 16 21.5 11 18.6 7.4", 1: "M12 12C17 13 21 9 19.6 2.4", -1: "M11 14C16 19.6 20.6 18.6 20.4 13.4"}[pose.flail]
    return ('<g fill="none" stroke-linecap="round"><path d="%s" stroke="%s" stroke-width="6.2"/>'
            '<path d="%s" stroke="%s" stroke-width="3.2"/></g>' % (path, KITTEN_LINE, path, fill))


def paws(fill, pose):
    """The feet, and, when it flails, the hands as well: one up, one down."""
    spots = [(side * (7 + 2.4 * abs(pose.flail)), 17.4 - 1.4 * side * pose.flail, side * -24 * abs(pose.flail)) for side in (-1, 1)]
    if pose.flail:
        spots += [(side * 17.2, 4.0 + 6.0 * side * pose.flail, side * 55) for side in (-1, 1)]
    return "".join('<ellipse cx="0" cy="0" rx="3.9" ry="3" transform="translate(%.1f %.1f) rotate(%d)" fill="%s" stroke="%s" stroke-width="1.5"/>' % (
        x, y, turn, fill, KITTEN_LINE) for x, y, turn in spots)


def fur_full(pose):
    out = tail(KITTEN, pose)
    out += '<path d="%s" fill="%s" stroke="%s" stroke-width="1.7"/>' % (ring(15.4, 13, 4.2, 0.10, phase=0.12), KITTEN, KITTEN_LINE)
    out += ears(KITTEN, "#ff9db0", 21.0, pose)
    out += '<path d="M-3.5 -15.5L-2.2 -9.5M0 -16.5V-9M3.5 -15.5L2.2 -9.5" stroke="%s" stroke-width="1.9" fill="none"/>' % KITTEN_DARK
    out += '<path d="M-17 3L-12.5 4M-16 8L-12 8M17 3L12.5 4M16 8L12 8" stroke="%s" stroke-width="1.7" fill="none"/>' % KITTEN_DARK
    return out + paws("#e9fbff", pose)


def fur_thin(pose):
    out = tail(SKIN, pose) + ears(KITTEN, "#ff9db0", 19.4, pose)
    out += '<path d="%s" fill="%s" stroke="%s" stroke-width="1.7"/>' % (blob(15.4), SKIN, KITTEN_LINE)
    out += ('<g fill="%s" stroke="%s" stroke-width="0.9" stroke-linejoin="miter">' % (KITTEN, KITTEN_DARK) +
            # crown, two cheeks and a bib, all ragged
            '<path d="M-10.5 -13.6L-5 -17.6L-3.4 -15L0 -19L1.6 -15.2L6 -17.8L10.5 -13.4L9.4 -9L6.4 -10.6L4.4 -7.4L1.4 -10.4L-1.4 -6.8L-4.2 -10L-7.4 -7.6L-9 -10.4Z"/>'
            '<path d="M-14.8 -2.6L-18.4 0.4L-15.4 2.4L-17.8 6.4L-14.4 8.6L-8.8 10L-10 5.6L-7.2 4L-11.2 0.6Z"/>'
            '<path d="M14.8 1L18 3.8L15.2 6L17 9.6L13.2 11.4L9.4 12L10.8 8L8 6.2L11.2 4.2Z"/>'
            '<path d="M-8.2 9.8L-3 11.2L0 9.6L3.4 11.4L7.6 10L9 14.2L3 15.4L-6.4 15.1Z"/></g>')
    out += '<path d="M-12.5 -9.5L-16.5 -13M12.8 -5L17.6 -7M-12 12.5L-15.5 15.5" stroke="%s" stroke-width="1.3" fill="none"/>' % KITTEN
    return out + paws("#ffd9cf", pose)


def fur_none(pose):
    out = tail(SKIN, pose) + ears(SKIN, "#f0788a", 20.2, pose)
    out += '<path d="%s" fill="%s" stroke="%s" stroke-width="1.7"/>' % (blob(14.8), SKIN, KITTEN_LINE)
    out += '<path d="M-4 -11.6Q0 -13.4 4 -11.6M-3 -9Q0 -10.6 3 -9M-13 -3Q-11 -2.6 -10.4 -0.6M13 -3Q11 -2.6 10.4 -0.6" stroke="%s" stroke-width="1" fill="none"/>' % SKIN_DARK
    # one last hair
    bend = pose.flail * 3.4
    out += '<path d="M0.4 -14.6C-1 -18 %.1f -19.6 %.1f -17.4" stroke="%s" stroke-width="1.3" fill="none"/>' % (2.6 + bend / 2, 4.4 + bend, KITTEN_LINE)
    # the jumper, with a hem, a collar and a knitted zigzag
    out += ('<path d="M-15.6 2.2Q-8 6.6 0 6.6Q8 6.6 15.6 2.2L14.9 12.4Q11.4 16.6 0 16.6Q-11.4 16.6 -14.9 12.4Z" fill="%s" stroke="%s" stroke-width="1.5"/>' % (KITTEN, KITTEN_LINE) +
            '<path d="M-13.4 13.6Q0 17.6 13.4 13.6" stroke="%s" stroke-width="1.4" fill="none"/>' % KITTEN_DARK)
    return out + paws("#ffd9cf", pose)


LINE = 'stroke="%s" fill="none" stroke-linecap="round"' % KITTEN_LINE
NOSE = '<path d="M-1.7 2.4H1.7L0 4.3Z" fill="#ff5d83" stroke="%s" stroke-width="0.7"/>' % KITTEN_LINE


def face(spin, pose):
    return (face_calm, face_sour, face_dizzy)[spin](pose)


def scream(y, rx, ry):
    """An open mouth with its tongue."""
    return ('<ellipse cx="0" cy="%.1f" rx="%.1f" ry="%.1f" fill="#7c1430" stroke="%s" stroke-width="1.4"/>' % (y, rx, ry, KITTEN_LINE) +
            '<path d="M-2.4 {0:.1f}Q0 {1:.1f} 2.4 {0:.1f}Q0 {2:.1f} -2.4 {0:.1f}Z" fill="#ff7f9a"/>'.format(y + ry * 0.55, y - ry * 0.1, y + ry))


def eye(x, rx, ry):
    return '<ellipse cx="%.1f" cy="-2.6" rx="%.1f" ry="%.1f" fill="#fff" stroke="%s" stroke-width="1.3"/>' % (x, rx, ry, KITTEN_LINE)


def face_calm(pose):
    out = ""
    for side in (-1, 1):
        if pose.lids:
            out += '<path d="M%.1f -2.6Q%.1f 1.8 %.1f -2.6" stroke-width="1.7" %s/>' % (side * 6 - 4.4, side * 6, side * 6 + 4.4, LINE)
            continue
        x, y = side * 5.4 + pose.gaze[0], pose.gaze[1]
        size = 0.72 if pose.gape else 1.0
        out += eye(side * 6, 4.9, 5.4)
        out += '<ellipse cx="%.1f" cy="%.1f" rx="%.1f" ry="%.1f" fill="#14131c"/>' % (x, y - 1.9, 2.5 * size, 3.4 * size)
        out += '<circle cx="%.1f" cy="%.1f" r="%.1f" fill="#fff"/>' % (x - 0.8, y - 3.5 + 0.6 * (1 - size), 1.1 * size)
    out += NOSE
    if pose.gape:
        out += scream(7.6, 3.2, 3.0)
    else:
        out += '<path d="M-3.6 5.6Q-1.8 7.2 0 5.2Q1.8 7.2 3.6 5.6" stroke-width="1.3" %s/>' % LINE
    return out + '<path d="M-9.5 4.2L-15.5 3.4M-9.5 5.8L-15 7M9.5 4.2L15.5 3.4M9.5 5.8L15 7" stroke-width="0.8" %s/>' % LINE


def face_sour(pose):
    """One eye larger than the other; the pupils roll against each other."""
    out = ""
    for side, rx, reach in ((-1, 5.4, 2.7), (1, 4.5, 2.1)):
        a = 2 * math.pi * side * pose.turn + (-2.2 if side < 0 else 1.4)
        out += eye(side * 6, rx, rx + 0.4)
        out += '<circle cx="%.1f" cy="%.1f" r="2" fill="#14131c"/>' % (side * 6 + reach * math.cos(a), -2.6 + reach * math.sin(a))
    sway = math.sin(2 * math.pi * pose.turn)
    out += '<path d="M-10.5 %.1fL-3.4 -7.6M3.6 -8L9.6 %.1f" stroke-width="1.6" %s/>' % (-9.4 - sway, -10.4 + sway, LINE)
    out += NOSE
    return out + '<path d="M-5.2 %.1fQ-4 %.1f -2.6 6.2T0 6.2T2.6 6.2T5.2 %.1f" stroke-width="1.5" %s/>' % (6.4 - 0.6 * sway, 4.8 - sway, 5.6 + 0.6 * sway, LINE)


def face_dizzy(pose):
    out = ""
    for side in (-1, 1):
        cx = side * 6.2
        out += '<circle cx="%.1f" cy="-2.8" r="5.8" fill="#fff" stroke="%s" stroke-width="1.3"/>' % (cx, KITTEN_LINE)
        spiral = []
        for i in range(31):
            a = i * 0.42 - 2 * math.pi * pose.turn
            r = 0.25 + i * 0.142
            spiral.append("%.2f %.2f" % (cx + r * math.cos(a) * side, -2.8 + r * math.sin(a)))
        out += '<path d="M%s" stroke-width="1.25" %s/>' % ("L".join(spiral), LINE)
    return out + scream(7.2, 3.8 - 0.5 * pose.gape, 4 + 1.1 * pose.gape)


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


def group(hair, spin, pose=REST):
    """The kitten around (0, 0), to be put into any picture."""
    fur = (fur_full, fur_thin, fur_none)[hair - 1](pose)
    return '<g stroke-linejoin="round">%s%s%s</g>' % (fur, face(spin, pose), streaks(spin))


def cell(hair, spin, number):
    """A cell of the kitten's sheet."""
    return '<g transform="translate(%.1f %.1f)">%s</g>' % (SIZE / 2.0, SIZE / 2.0, group(hair, spin, POSES[spin][number]))
