"""Draws the brumble: a ball of 30 pixels radius around (0, 0); horns, tufts and feet may stand out a little.

A face says what feet, brows, eyes and mouth do.  Open eyes stay where they are in every face, and are
empty for the game, which lays a pupil of its own into each; only the portraits look by themselves.
"""
from palette import MONSTER, MONSTER_DARK, MONSTER_LIGHT, MONSTER_LINE

SIZE = 76
EYES = ((-8.5, -5.5, 10.6), (11.5, -7.5, 7.6))  # middle and radius

WHITE = "#fffdf0"
TOOTH = "#fff8e0"
GUM = "#4b1220"
TONGUE = "#e8607a"


def path(d, width, fill="none", colour=MONSTER_LINE):
    return '<path d="%s" fill="%s" stroke="%s" stroke-width="%.1f"/>' % (d, fill, colour, width)


def foot(x, lifted):
    """Flat on the ground behind the ball, or kicked up in front of it."""
    spot = "translate(%d 23) rotate(%d)" % (x * 1.9, 38 if x < 0 else -38) if lifted else "translate(%d 29.5)" % x
    return '<ellipse rx="9" ry="5.5" transform="%s" fill="%s" stroke="%s" stroke-width="2"/>' % (spot, MONSTER_DARK, MONSTER_LINE)


def body():
    out = path("M-23 -16Q-33 -24 -27 -37Q-22 -30 -12 -26ZM23 -16Q33 -24 27 -37Q22 -30 12 -26Z", 2, "#f3e3b8")
    out += path("M-29.4 -25L-22.5 -24M-28.6 -30L-25 -30.5M29.4 -25L22.5 -24M28.6 -30L25 -30.5", 1.6, colour="#b79a5e")
    out += path("M0 -30.5L4 -35L6 -29.8C17 -27.5 25.5 -19.5 28.6 -9L34 -7.5L29.8 -2.5C30.6 3 30 8 28.2 12.2L32 16.5L25.5 17.6C20.5 25.5 11.5 30.6 0 30.6"
                "C-11.5 30.6 -20.5 25.5 -25.5 17.6L-32 16.5L-28.2 12.2C-30 8 -30.6 3 -29.8 -2.5L-34 -7.5L-28.6 -9C-25.5 -19.5 -17 -27.5 -6 -29.8L-4 -35Z", 2.4, MONSTER)
    out += '<path d="M-24 14C-20 23 -11 28.6 0 28.6C11 28.6 20 23 24 14C26 22 14 29.4 0 29.4C-14 29.4 -26 22 -24 14Z" fill="%s"/>' % MONSTER_DARK
    out += path("M-25.4 -9C-21.5 -18.5 -14.5 -24.4 -6 -26.4", 3.4, colour=MONSTER_LIGHT)
    return out + '<g fill="%s"><circle cx="-23.5" cy="3" r="1.9"/><circle cx="-20.6" cy="8.4" r="1.4"/><circle cx="24" cy="1" r="1.9"/></g>' % MONSTER_DARK


# Mouths

def grin():
    return (path("M-18.5 8.5Q0 14.5 18.5 7.5Q18 23.5 1 23.5Q-17 23.5 -18.5 8.5Z", 2.2, GUM) +
            '<path d="M-8 22Q-2 15.6 5 18Q10 19.6 9.6 21.8Q1 24.6 -8 22Z" fill="%s"/>' % TONGUE +
            path("M-13.5 20.6L-11.4 12.6L-8 22.4ZM14 19.8L11.6 12L7.6 22Z", 1.4, TOOTH) + path("M-4.6 11.6L-3.8 16H0.4L0.8 11.7Z", 1.4, TOOTH))


def roar():
    """As wide as it goes."""
    return (path("M-20 6.5Q0 9.5 20 5.500Q22.5 27.4 1 28Q-21.5 27.4 -20 6.5Z", 2.2, GUM) +
            '<path d="M-11 26Q-5 15.6 3 18.4Q11 19.4 12 25Q1 29 -11 26Z" fill="%s"/>' % TONGUE +
            path("M-16 24L-12.6 16L-9.4 26.4ZM16.4 23L13 15.4L9.4 26Z", 1.4, TOOTH) +
            path("M-5.6 8L-4.6 13.6H0.6L1.2 8Z", 1.4, TOOTH) + path("M-14.6 7.2L-12.6 11.8L-10.2 7.8ZM14.8 6.4L12.8 11L10.4 7.2Z", 1.2, TOOTH))


def pout(side):
    """Bored: a small mouth that hums to the drumming."""
    return (path("M%.1f 12.6Q2 9.6 %.1f 12.2Q9 19.6 2 19.8Q-6.6 19.6 %.1f 12.6Z" % (-6.4 + side, 8.4 + side, -6.4 + side), 2.2, GUM) +
            path("M%.1f 11.5L%.1f 15H%.1fL%.1f 11Z" % (-2.6 + side, -2 + side, 1.8 + side, 2.2 + side), 1.2, TOOTH) +
            path("M-13 11Q-11.4 12.6 -11.6 14.6M16 9.6Q14.8 11.4 15.4 13.4", 2))


def licking(x, y, turn):
    """A closed smile, and a tongue that is on its way along the upper lip."""
    return (path("M-18.5 9.5Q0 16.5 18.5 8.500Q15 20.8 1 21Q-14.5 20.8 -18.5 9.5Z", 2.2, GUM) +
            path("M-13 12.2L-11 16.4L-8.4 13.4ZM13.6 11.4L11.4 15.6L9 12.9Z", 1.2, TOOTH) +
            '<g transform="translate(%.1f %.1f) rotate(%.0f)">' % (x, y, turn) +
            path("M-4.6 6Q-6 -6.6 0.2 -7Q6 -6.6 4.6 6Q0 8.6 -4.6 6Z", 1.8, TONGUE) + path("M0 -3.5V3.5", 1.2, colour="#b83a58") + "</g>")


def clenched():
    """Teeth shut tight, from edge to edge."""
    return (path("M-17 11Q0 7 17.5 10Q19 20.6 15 21Q0 17.6 -14.6 22Q-18.6 21 -17 11Z", 2.2, TOOTH) +
            path("M-16.6 16.4Q0 12.4 17.6 15.6M-10.6 9.9L-9.6 20.6M-4 8.8L-3.6 19.4M3 8.4V18.8M9.8 8.9L9.2 19.4", 1.3))


# Eyes

def open_eyes(brows):
    out = "".join('<circle cx="%.1f" cy="%.1f" r="%.1f" fill="%s" stroke="%s" stroke-width="2.2"/>' % (x, y, r, WHITE, MONSTER_LINE) for x, y, r in EYES)
    return out + brows + path("M1 1.4Q3 4.6 5.4 1.8", 2)


def shut_eyes():
    """Both lids down, for a blink."""
    out = "".join('<circle cx="%.1f" cy="%.1f" r="%.1f" fill="#79b233" stroke="%s" stroke-width="2.2"/>' % (x, y, r, MONSTER_LINE) for x, y, r in EYES)
    return out + path("M-18 -2.5Q-8.5 6 1 -2.5M5 -5Q11.4 1 18 -5", 2.6) + BROWS_LOW + path("M1 1.4Q3 4.6 5.4 1.8", 2)


def screwed_eyes(tremble):
    """Squeezed to > and <, the brows right on top of them."""
    t = tremble
    return (path("M-17 %.1fL-4.5 -3.6L-16.6 2.6M19 %.1fL7.2 -4L18.6 1.6" % (-9 + t, -9.6 + t), 3) +
            path("M-21 %.1fL-3 -11.4M22 %.1fL5.6 -11.6" % (-14.6 + t, -15 + t), 4.4) +
            path("M-22.6 -1L-25 0.4M23 -2.6L25.4 -1.4M-1.4 2.4Q1.4 0.4 4.2 2.4", 2))


BROWS = path("M-20.5 -14.5Q-10 -22.5 1.5 -14.6M5 -15.6Q12 -19.4 19 -14", 4.2)
BROWS_LOW = path("M-20.5 -13Q-10 -20 1.5 -12.6M5 -14Q12 -17.8 19 -12.4", 4.2)
BROWS_HIGH = path("M-20.5 -18.5Q-10 -26.5 1 -18.8M5.6 -18.8Q12.6 -23.4 19.4 -17.6", 4.2)
BROWS_WORRIED = path("M-20 -13.6Q-13 -22.6 0.6 -20.6M6 -20.4Q14.6 -21 19.6 -13", 4.2)


def figure(mouth, eyes, lifted=()):
    """`lifted` holds the feet that are up: -1 the left one, 1 the right one."""
    feet = {side: foot(12 * side, side in lifted) for side in (-1, 1)}
    on_ground = "".join(feet[side] for side in feet if side not in lifted)
    in_air = "".join(feet[side] for side in feet if side in lifted)
    return '<g stroke-linejoin="round" stroke-linecap="round">' + on_ground + body() + mouth + in_air + eyes + "</g>"


def ducked(figure_markup, share):
    """Squashed down onto its feet."""
    return '<g transform="translate(0 %.1f) scale(%.3f %.3f)">%s</g>' % (31 * share, 1 + share * 0.35, 1 - share, figure_markup)


def portrait():
    """With eyes that look at the onlooker, for everything but play."""
    pupils = ('<circle cx="-6.6" cy="-4.6" r="5.2" fill="#e2861c"/><circle cx="-6.2" cy="-4.4" r="3" fill="#1a1210"/><circle cx="-8" cy="-6.4" r="1.5" fill="#fff"/>'
              '<circle cx="10" cy="-6.4" r="3.9" fill="#e2861c"/><circle cx="9.8" cy="-6.2" r="2.3" fill="#1a1210"/><circle cx="8.6" cy="-7.6" r="1.1" fill="#fff"/>')
    return figure(grin(), open_eyes("") + pupils + BROWS)


def pupil():
    """One pupil around (0, 0), 9 pixels wide."""
    return ('<circle r="4.5" fill="#e2861c"/><circle r="4.2" fill="none" stroke="#8a4a0c" stroke-width="0.7"/><circle r="2.7" fill="#1a1210"/>'
            '<circle cx="-1.6" cy="-1.7" r="1.3" fill="#fff"/>')


CELLS = (
    lambda: figure(grin(), open_eyes(BROWS)),                                       # 0: at rest
    lambda: figure(grin(), shut_eyes()),                                            # 1: a blink
    lambda: figure(roar(), open_eyes(BROWS_HIGH), (-1, 1)),                           # 2: hit
    lambda: figure(pout(0), open_eyes(BROWS_WORRIED)),                              # 3: waiting
    lambda: figure(pout(-1), open_eyes(BROWS_WORRIED), (-1,)),                       # 4: left foot up
    lambda: figure(pout(1), open_eyes(BROWS_WORRIED), (1,)),                        # 5: right foot up
    lambda: figure(licking(-14, 12, -38), open_eyes(BROWS_HIGH)),                   # 6 to 8: the tongue goes round
    lambda: figure(licking(0, 12, 0), open_eyes(BROWS_HIGH)),
    lambda: figure(licking(14.5, 11, 38), open_eyes(BROWS_HIGH)),
    lambda: ducked(figure(clenched(), screwed_eyes(0)), 0.06),                      # 9: going down
    lambda: ducked(figure(clenched(), screwed_eyes(0)), 0.13),                # 10, 11: eyes shut tight, trembling
    lambda: ducked(figure(clenched(), screwed_eyes(1.4)), 0.15),
)


def cell(number):
    return '<g transform="translate(%.1f %.1f)">%s</g>' % (SIZE / 2.0, SIZE / 2.0, CELLS[number]())
