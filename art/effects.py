"""Fire, stars and flying fluff: still flames for the background, and the frames of
the animated effects.  An effect's frame is a function of its progress from 0 to 1,
drawn in a w x h box; the game shows an effect for 2.1 seconds, so each one ends
with nothing left.  The oven's breath and the rising ghost go round instead.
"""
import math
import random

FLAME_LAYERS = ((1.0, "#b3240f"), (0.80, "#ee5a12"), (0.58, "#ff9d1e"), (0.34, "#ffe06a"))


def tongue(x, base, width, height, lean):
    """One flame tongue standing on (x, base)."""
    tip_x, tip_y = x + lean, base - height
    return ("M%.1f %.1fC%.1f %.1f %.1f %.1f %.1f %.1fC%.1f %.1f %.1f %.1f %.1f %.1fZ" % (
        x - width / 2, base, x - width * 0.62, base - height * 0.45, tip_x - width * 0.10, base - height * 0.55, tip_x, tip_y,
        tip_x + width * 0.22, base - height * 0.50, x + width * 0.66, base - height * 0.40, x + width / 2, base))


def flames(x0, x1, base, height, step, seed, time=0.0, ends=False):
    """A row of tongues in four colours; `time` in turns of the flicker."""
    out = []
    for layer, (share, colour) in enumerate(FLAME_LAYERS):
        rng = random.Random(seed * 7 + 1)
        path = ""
        x = x0
        while x <= x1:
            wobble = rng.random()
            size = 0.62 + 0.38 * rng.random()
            size *= 0.82 + 0.18 * math.sin(2 * math.pi * (time * (1 + int(wobble * 2)) + wobble))
            if ends:  # lower at both ends, so that the row is one bonfire
                size *= 0.35 + 0.65 * math.sin(math.pi * (x - x0 + step / 2) / (x1 - x0 + step))
            lean = 5 * math.sin(2 * math.pi * (time + wobble * 3))
            path += tongue(x, base, step * 1.75 * (0.55 + 0.45 * share), height * share * size, lean * share)
            x += step
        out.append('<path d="%s" fill="%s"/>' % (path, colour))
    return "".join(out)


def still_flame(width, height, seed):
    """A bonfire standing on (0, 0)."""
    return flames(-width / 2, width / 2, 0, height, width / 4.0, seed, 0.3, ends=True)


def hearth(left, right):
    """The fire at the pit's bottom, from one side to the other."""
    left, right = float(left), float(right)
    return ('<g opacity="0.55">%s</g>' % flames(left + 6, right - 6, 612, 128, 30, 3, 0.15) +
            flames(left, right, 616, 92, 24, 8, 0.6))


def puff(x, y, r, opacity, colour="#6b5d63"):
    return '<circle cx="%.1f" cy="%.1f" r="%.1f" fill="%s" opacity="%.2f"/>' % (x, y, r, colour, opacity)


def ghost(x, y, size, opacity, flap=0.0):
    """What is left of a kitten: white, winged and rather cross.  `flap` (-1 to 1) lowers the wings' tips."""
    return ('<g transform="translate(%.1f %.1f) scale(%.2f)" opacity="%.2f" stroke="#4a3a40" stroke-width="1.4" stroke-linejoin="round">'
            '<ellipse cx="0" cy="-19" rx="8" ry="2.6" fill="none" stroke="#ffd24a" stroke-width="2"/>'
            '<path d="M-9 2Q-22 %.1f -20 %.1fQ-17 9 -9 8ZM9 2Q22 %.1f 20 %.1fQ17 9 9 8Z" fill="#fff"/>'
            '<path d="M-11 -4L-11 -15L-5 -11H5L11 -15L11 -4Q12 6 9 15L5 11L0 16L-5 11L-9 15Q-12 6 -11 -4Z" fill="#fbf6ee"/>'
            '<path d="M-7 -5L-3 -3M7 -5L3 -3" fill="none"/><circle cx="-4.4" cy="-1" r="1.8" fill="#2a1a20"/><circle cx="4.4" cy="-1" r="1.8" fill="#2a1a20"/>'
            '<path d="M-3 6Q0 3.4 3 6" fill="none"/></g>') % (x, y, size, opacity, 6 * flap - 8, 6 * flap + 4, 6 * flap - 8, 6 * flap + 4)


def cloche(x, y, size, opacity):
    """A kitten that is served: under a dome, on a plate, as in the row of fates."""
    return ('<g transform="translate(%.1f %.1f) scale(%.2f) translate(-8 -10)" opacity="%.2f" stroke="#4a3a40" stroke-width="1" stroke-linejoin="round">'
            '<path d="M2.5 13Q2.5 5.5 8 5.5Q13.5 5.5 13.5 13Z" fill="#e9eef0"/><circle cx="8" cy="4" r="1.6" fill="#ffd24a"/>'
            '<path d="M0.8 13H15.2L13.2 16.5H2.8Z" fill="#ffd24a"/><path d="M5 11Q5 8.5 7 7.8" stroke="#fff" fill="none" stroke-width="1.4"/></g>') % (
                x, y, size, opacity)


def swell(p, rise, fall):
    """0 to 1 and back: up during the first `rise` of the time, down after `fall`."""
    if p < rise:
        return math.sin(0.5 * math.pi * p / rise)
    if p > fall:
        return max(0.0, math.cos(0.5 * math.pi * (p - fall) / (1 - fall)))
    return 1.0


def hellfire(p, w, h):
    size = swell(p, 0.12, 0.6)
    if size < 0.05:
        return ""
    out = ""
    for i in range(4):
        q = (p * 1.6 + i * 0.25) % 1.0
        out += puff(w / 2 + 14 * math.sin(i * 2.6 + q * 3), h - 40 - q * 55, 6 + 7 * q, 0.5 * (1 - q) * size)
    out += flames(24, w - 24, h - 2, (h - 18) * size, 18, 4, p * 4, ends=True)
    if p > 0.2:
        q = (p - 0.2) / 0.75
        out += ghost(w / 2 + 7 * math.sin(q * 9), h - 28 - (h - 56) * min(q, 1), 0.9, min(1, max(0, 1.9 - 2 * q)))
    return out


def oven_burning(p, w, h):
    """Fire shooting out of the oven's mouth at the left edge, then smoke."""
    size = swell(p, 0.1, 0.5)
    out = ""
    for i in range(6):
        q = (p * 1.5 + i / 6.0) % 1.0
        out += puff(28 + 52 * q + 8 * math.sin(i * 2.1), h - 38 - q * 66, 7 + 9 * q, 0.62 * (1 - q) * swell(p, 0.1, 0.8))
    if size > 0.05:
        # the flames lie on their side, roots in the oven
        out += '<g transform="translate(0 %.1f) rotate(78)">%s</g>' % (
            h - 100, flames(4, 82, 6, (w - 26) * size, 15, 9, p * 5, ends=True))
    if p > 0.34:
        q = (p - 0.34) / 0.6
        out += cloche(58 + 6 * math.sin(q * 9), h - 40 - (h - 66) * min(q, 1), 1.9, min(1, max(0, 1.9 - 2 * q)))
    return out


def oven_breath(t, w, h):
    """The fire that purrs out of the open door; `t` goes round from 0 to 1.  The hole is at the left edge, from
    y 12 down to the ledge at y 98."""
    import lettering  # the purr
    reach = 0.84 + 0.16 * math.sin(4 * math.pi * t)
    out = '<clipPath id="out"><path d="M0 12H56L55 0H%d V98H0Z"/></clipPath><g clip-path="url(#out)">' % w
    out += '<g transform="translate(-4 8) rotate(86)">%s</g>' % flames(0, 92, 4, 102 * reach, 16, 5, t, ends=True)
    for i in range(6):  # sparks
        q = (t + i / 6.0) % 1.0
        out += '<circle cx="%.1f" cy="%.1f" r="%.1f" fill="%s"/>' % (
            44 + 58 * q, 62 + 30 * math.sin(i * 2.4) - 22 * q * q, 2.2 * (1 - q), "#ffe06a" if i % 2 else "#ff9d1e")
    purr = '<g transform="translate(%.1f %.1f) rotate(%.1f)" opacity="%.2f">%s</g>' % (
        80 + 4 * math.sin(2 * math.pi * t), 30 - 18 * t, -12 + 6 * math.sin(4 * math.pi * t), min(1.0, 2.2 * math.sin(math.pi * t)),
        lettering.svg("PRRR", 0, 0, 10.5, "sign", "middle"))
    return out + purr + "</g>"


def ghost_rising(t, w, h):
    """A ghost that sways on its way up; the game moves it."""
    return ghost(w / 2 + 1.5 * math.sin(2 * math.pi * t), h / 2 + 3, 0.9, 0.92, math.sin(4 * math.pi * t))


def star(x, y, outer, inner, points, turn, fill, line):
    path = []
    for i in range(points * 2):
        r = inner if i % 2 else outer * (0.86 + 0.14 * math.cos(i * 1.7))
        a = turn + math.pi * i / points
        path.append("%.1f %.1f" % (x + r * math.cos(a), y + r * math.sin(a)))
    return '<path d="M%sZ" fill="%s" stroke="#1c1016" stroke-width="%.1f" stroke-linejoin="round"/>' % ("L".join(path), fill, line)


def hit_small(p, w, h):
    if p > 0.92:
        return ""
    size = 0.55 + 0.45 * swell(p, 0.3, 0.45)
    fade = 1.0 if p < 0.5 else 1 - (p - 0.5) / 0.42
    r = w / 2.0 - 2
    return '<g opacity="%.2f">%s%s</g>' % (
        fade, star(w / 2, h / 2, r * size, r * 0.5 * size, 8, p * 0.5, "#ffd24a", 1.8),
        star(w / 2, h / 2, r * 0.55 * size, r * 0.3 * size, 8, p * 0.5 + 0.2, "#fff7dc", 0))


def hit_big(p, w, h):
    if p > 0.94:
        return ""
    import lettering  # the word inside the star
    size = 0.5 + 0.5 * swell(p, 0.25, 0.6)
    fade = 1.0 if p < 0.6 else 1 - (p - 0.6) / 0.34
    r = w / 2.0 - 2
    word = '<g transform="translate(%.1f %.1f) rotate(-10) scale(%.2f)">%s</g>' % (
        w / 2, h / 2, size, lettering.svg("BONK!", 0, -8, 16, "sign", "middle"))
    return '<g opacity="%.2f">%s%s%s</g>' % (
        fade, star(w / 2, h / 2, r * size, r * 0.64 * size, 12, p * 0.4, "#d8381a", 2.2),
        star(w / 2, h / 2, r * 0.78 * size, r * 0.52 * size, 12, p * 0.4 + 0.12, "#ffb52e", 0), word)


def lose_hair(p, w, h):
    """Pale hairs and tufts that fly apart and sink."""
    if p > 0.95:
        return ""
    rng = random.Random(31)
    out = '<g opacity="%.2f" stroke-linecap="round" fill="none">' % (1.0 if p < 0.45 else 1 - (p - 0.45) / 0.5)
    for i in range(13):
        a = 2 * math.pi * (i + rng.random() * 0.6) / 13
        reach = (0.35 + 0.6 * rng.random()) * (w / 2.0 - 8)
        way = 1 - (1 - p) ** 2.2
        x = w / 2 + math.cos(a) * (6 + reach * way)
        y = h / 2 + math.sin(a) * (6 + reach * way) * 0.8 + 12 * p * p
        turn = math.degrees(a) + 160 * p * (1 if i % 2 else -1)
        tuft = "M-7 0C-4 -6 -1 -5 0 0S5 5 7 -1" if i % 3 else "M-6 3Q-2 -4 6 -4M-6 3Q0 -1 7 1M-6 3Q0 4 5 6"
        out += '<g transform="translate(%.1f %.1f) rotate(%.0f) scale(%.2f)">' % (x, y, turn, 0.85 + 0.4 * rng.random())
        out += '<path d="%s" stroke="#3a2a30" stroke-width="4"/><path d="%s" stroke="#fff3dc" stroke-width="2.1"/></g>' % (tuft, tuft)
    return out + "</g>"
