"""The pit's stonework.  The side walls lie exactly where the game bounces kittens off."""
import math
import random

# half extents and centre in world units, angle in radians; one unit is 6 pixels, the origin is at (400, 300)
BOXES = {
    "left": ((8, 30), (-60, 25), 0.03),
    "right": ((7, 90), (60, 30), 0.02),
    "right_upper": ((7, 25), (67, -20), 0.0),
}


def shade(colour, amount):
    """The colour lightened (amount above 0) or darkened by a fraction."""
    channels = [int(colour[i:i + 2], 16) for i in (1, 3, 5)]
    target = 255 if amount > 0 else 0
    return "#%02x%02x%02x" % tuple(round(c + (target - c) * abs(amount)) for c in channels)


def courses(x0, y0, x1, y1, height, length, colour, seed, spread=0.10, gap=2.0, radius=3.0):
    """Rows of bricks filling a rectangle; ragged lengths, each its own tone."""
    rng = random.Random(seed)
    out = []
    y, row = y0, 0
    while y < y1:
        x = x0 - (length * 0.5 if row % 2 else 0) - rng.random() * 6
        while x < x1:
            w = length * (0.85 + 0.3 * rng.random())
            a, b = max(x, x0), min(x + w, x1)
            if b - a > 6:
                tone = shade(colour, (rng.random() - 0.5) * 2 * spread)
                out.append('<rect x="%.1f" y="%.1f" width="%.1f" height="%.1f" rx="%.1f" fill="%s"/>' % (
                    a + gap / 2, y + gap / 2, b - a - gap, height - gap, radius, tone))
                out.append('<path d="M%.1f %.1fH%.1f" stroke="%s" stroke-width="1.6" stroke-linecap="round"/>' % (
                    a + gap / 2 + 3, y + gap / 2 + 2.2, b - gap / 2 - 3, shade(tone, 0.16)))
                out.append('<path d="M%.1f %.1fH%.1f" stroke="%s" stroke-width="1.8" stroke-linecap="round"/>' % (
                    a + gap / 2 + 3, y + height - gap / 2 - 1.6, b - gap / 2 - 3, shade(tone, -0.22)))
            x += w
        y += height
        row += 1
    return "".join(out)


def back_wall():
    """The far wall: big, dim blocks that stay out of the way of the action."""
    rng = random.Random(11)
    out = ['<rect width="800" height="600" fill="#251a29"/>',
           courses(-10, -8, 810, 600, 46, 92, "#3c2e40", 5, spread=0.07, gap=3.0, radius=5)]
    for _ in range(26):  # cracks and chips
        x, y = rng.uniform(80, 720), rng.uniform(10, 520)
        out.append('<path d="M%.0f %.0fl%.0f %.0fl%.0f %.0f" fill="none" stroke="#2a1e2e" stroke-width="1.6" stroke-linecap="round"/>' % (
            x, y, rng.uniform(-9, 9), rng.uniform(4, 9), rng.uniform(-8, 8), rng.uniform(3, 8)))
    return "".join(out)


def wall(name, colour, height, length, seed, mortar, edges):
    """One box in its own turned frame, cut to its outline, with lit or dark edges."""
    half, centre, angle = BOXES[name]
    hw, hh = half[0] * 6, half[1] * 6
    cx, cy = centre[0] * 6 + 400, centre[1] * 6 + 300
    top, bottom = max(-hh, -cy - 20), min(hh, 620 - cy)  # only what can be seen
    out = ['<g transform="translate(%.2f %.2f) rotate(%.4f)"><clipPath id="cut_%s"><rect x="%.1f" y="%.1f" width="%.1f" height="%.1f"/></clipPath>'
           % (cx, cy, math.degrees(angle), name, -hw, -hh, hw * 2, hh * 2),
           '<g clip-path="url(#cut_%s)"><rect x="%.1f" y="%.1f" width="%.1f" height="%.1f" fill="%s"/>' % (name, -hw, top, hw * 2, bottom - top, mortar),
           courses(-hw, -hh if top == -hh else top, hw, bottom, height, length, colour, seed)]
    sides = {"left": (-hw, top, -hw, bottom), "right": (hw, top, hw, bottom), "top": (-hw, top, hw, top), "bottom": (-hw, bottom, hw, bottom)}
    inward = {"left": (1, 0), "right": (-1, 0), "top": (0, 1), "bottom": (0, -1)}
    for side in edges:
        x1, y1, x2, y2 = sides[side]
        dx, dy = inward[side]
        for offset, width, paint, opacity in ((4.6, 4.0, "#ffe2b0", 0.55), (1.3, 2.6, "#1c1016", 1)):
            out.append('<path d="M%.1f %.1fL%.1f %.1f" stroke="%s" stroke-width="%.1f" opacity="%.2f"/>' % (
                x1 + dx * offset, y1 + dy * offset, x2 + dx * offset, y2 + dy * offset, paint, width, opacity))
    out.append("</g></g>")
    return "".join(out)


def walls():
    return (wall("left", "#b8704a", 24, 46, 21, "#6a3c2c", ("right", "top")) +
            wall("right", "#b8704a", 24, 46, 22, "#6a3c2c", ("left",)) +
            wall("right_upper", "#a8957e", 50, 90, 23, "#4e4238", ("left", "top", "bottom")))
