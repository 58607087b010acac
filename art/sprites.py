"""Every sprite of the game in one table: what it shows, where, and how far back.

Depth: the greater, the further back.  The number boards are at depth 40 and the
floating numbers at 20; a developer console lies below 0.
"""
import compose
import effects
import kitten
import marks
import monster

SCREENS = 12  # the depth of title and help: what stands here or nearer is not seen in play


class Still:
    """One picture: a file of gfx/, whose {NAMES} the variables fill."""

    def __init__(self, source, z, at=(0, 0), opaque=False, **variables):
        self.source, self.z, self.at, self.opaque, self.variables = source, z, at, opaque, variables

    def svg(self):
        return compose.picture(self.source, self.variables)


class Drawn:
    """One picture, given as a whole SVG."""

    def __init__(self, svg, z, at=(0, 0)):
        self.markup, self.z, self.at, self.opaque = svg, z, at, False

    def svg(self):
        return self.markup


class Animation:
    """Frames are pairs of a cell's number and a time in milliseconds.  A sound is played as the animation begins, or
    after a wait in which it shows its first frame."""

    def __init__(self, name, loop, frames, sound=None, wait=0):
        self.name, self.loop, self.frames, self.sound, self.wait = name, loop, frames, sound, wait


class Sheet:
    """A picture of equal cells, and the animations that show them; the first one runs from loading on.
    `draw` gives the SVG of a cell by its number."""

    def __init__(self, draw, size, z, animations, at=(0, 0), columns=8):
        self.draw, self.size, self.z, self.animations, self.at, self.columns = draw, size, z, animations, at, columns
        self.current = animations[0].name
        self.cells = 1 + max(cell for animation in animations for cell, _ in animation.frames)


def round_and_round(draw, size, z, name, frames, length, at=(0, 0), columns=8, sound=None):
    """What goes on for ever, drawn by a function of the part of a round from 0 to 1."""
    return Sheet(lambda i: draw(i / float(frames), *size), size, z, [Animation(name, 1, steady(*range(frames), length=length), sound)], at, columns)


def steady(*cells, length=100):
    """These cells for the same time each."""
    return [(cell, length) for cell in cells]


def effect(draw, size, z, at=(0, 0), columns=7, frames=21, length=100, sound=None):
    """What happens once, drawn by a function of the progress; see effects.py."""
    def cell(i):
        return draw((i + 1.0) / frames, *size)
    return Sheet(cell, size, z, [Animation("effect", 0, steady(*range(frames), length=length), sound)], at, columns)


def sounding(source, size, z, animations, **variables):
    """One picture whose animations differ in their sounds; they are tuples of a name, a sound, and perhaps a wait."""
    return Sheet(lambda _: compose.picture(source, variables), size, z,
                 [Animation(name, 0, [(0, 1000)], *sound) for name, *sound in animations])


TURN = 150  # milliseconds from one bonus's sound to the next one's, when several come at once
TURNS = 4   # that can wait for the first one


def sign(line1, line2, icon, face, grade):
    """A bonus; the grade (1 to 3) goes with the points in src/game/bonustable.h: from 2000 on it is 2, from 5000 on 3."""
    text = dict(SIZE="23", Y1="15", Y2="47") if line2 else dict(SIZE="31", Y1="28", Y2="0")
    turns = [("show_%d" % turn if turn else "show", "bonus_%d" % grade, turn * TURN) for turn in range(TURNS + 1)]
    return sounding("sign.svg", (300, 88), 70 - grade, turns, LINE1=line1, LINE2=line2, ICON=icon, FACE=face, **text)


def caption(word, at=(0, 0)):
    """A word on the game-over panel."""
    return Drawn(marks.caption(word), 33, at)


SPRITES = {
    "background": Still("background.svg", 1000, opaque=True),
    "oven": sounding("oven.svg", (74, 284), 80, [("idle", None), ("open", "oven_open"), ("shut", "oven_shut")]),
    "oven_burning": effect(effects.oven_burning, (150, 140), 70, at=(0, 140), sound="oven_burning"),
    "monster": Sheet(monster.cell, (monster.SIZE, monster.SIZE), 65, [
        # frames 1 and 3 of "idle" are the blinks: the game hides the pupils in them
        Animation("idle", 1, [(0, 2700), (1, 110), (0, 1500), (1, 110)]),
        Animation("hit", 0, [(2, 350)]),
        Animation("up", 1, [(3, 420), (4, 140), (3, 60), (5, 140), (3, 60), (4, 140), (3, 60), (5, 140)]),
        Animation("lick", 0, steady(6, 7, 8, 7, 6, 7, 8, length=130) + [(0, 100)]),
        Animation("wince", 0, [(9, 70), (10, 90), (11, 90), (10, 90), (11, 90), (10, 90), (11, 90), (9, 70)])]),
    "monster_pupil": Still("monster_pupil.svg", 64),
    "kitten_hit_small": effect(effects.hit_small, (56, 56), 52, columns=8, frames=8, length=70, sound="hit_small"),
    "kitten_hit_big": effect(effects.hit_big, (104, 104), 51, columns=6, frames=12, length=70, sound="hit_big"),
    "kitten_lose_hair": effect(effects.lose_hair, (84, 84), 50, columns=6, frames=12, length=80, sound="lose_hair"),
    "hellfire": effect(effects.hellfire, (120, 108), 48, sound="hellfire"),
    "oven_breath": round_and_round(effects.oven_breath, (110, 100), 81, "breath", 16, 110, at=(0, 172), sound="oven_breath"),
    "lamps": Sheet(marks.lamps, marks.LAMPS, 78, [Animation("lit_%d" % n, 0, [(n, 1000)]) for n in range(5)], at=(50, 281)),
    "ghost": round_and_round(effects.ghost_rising, (40, 48), 35, "rise", 8, 110),
    "hint_spin": Sheet(marks.hint_spin, (90, 90), 55, [Animation("turn", 1, steady(*range(marks.SPIN), length=80))], columns=6),
    "hint_lamps": Sheet(marks.hint_lamps, (150, 32), 55, [Animation("nudge", 1, steady(*range(marks.NUDGES), length=110))], at=(78, 345), columns=4),
    "hint_door": Sheet(marks.hint_door, (150, 110), 55, [Animation("nudge", 1, steady(*range(marks.NUDGES), length=110))], at=(62, 216), columns=4),
    "fate_plate": Still("fate_plate.svg", 39, at=(436, 527)),
    "fate_ghost": Still("fate_ghost.svg", 39, at=(436, 527)),
    "fate_left": Still("fate_left.svg", 39, at=(436, 527)),
    "panel_score": caption("SCORE", (204, 159)),
    "panel_place": caption("PLACE", (464, 159)),
    "panel_short": caption("SHORT OF YOUR BEST", (290, 184)),
    "panel_new_best": Still("panel_new_best.svg", 33, at=(280, 184)),
    "panel_spins": caption("SPINS", (204, 256)),
    "panel_walls": caption("WALLS", (414, 256)),
    "panel_oven": caption("OVEN", (204, 283)),
    "panel_bonuses": caption("BONUSES", (414, 283)),
    "title_best": Still("title_best.svg", 11, at=(576, 492)),
    "score_sign": Still("score_sign.svg", 44, at=(168, 560)),
    "kittens_left": Still("kittens_left.svg", 44, at=(438, 555)),
    "kitten_signs": Still("kitten_signs.svg", 43, at=(168, 530)),
    "gameover": Still("gameover.svg", 34, at=(160, 96)),
    "title_screen": Still("title_screen.svg", 12, opaque=True),
    "help_screen": Still("help_screen.svg", 12, opaque=True),
    "help_bubbles": Still("help_bubbles.svg", 10),
    "demo": Drawn(marks.plate("DEMO", 84), 2, at=(355, 44)),
    "paused": Still("paused.svg", 5, at=(210, 226)),
    "b_grilled_kitten": sign("GRILLED", "KITTEN", "icon_grill", "#b5341a", 1),
    "b_long_shot": sign("LONG", "SHOT", "icon_long", "#7a4f9a", 2),
    "b_wall_bounce": sign("WALL", "BOUNCE", "icon_bounce", "#9a5636", 2),
    "b_bashing": sign("BASHING", "", "icon_bash", "#a3245c", 2),
    "b_one_touch": sign("ONE", "TOUCH", "icon_one", "#5a8a1e", 3),
    "b_expert_spinner": sign("EXPERT", "SPINNER", "icon_spin1", "#c26a14", 1),
    "b_master_spinner": sign("MASTER", "SPINNER", "icon_spin2", "#7d3c82", 2),
    "b_guru_spinner": sign("GURU", "SPINNER", "icon_spin3", "#8c1d2e", 3),
}


# What kittens say when hair goes (01 to 06), and when the last of it has gone (07 to 12).
SAYINGS = (
    ("MY FUR!",), ("IT'S DRAUGHTY",), ("I JUST BRUSHED", "THAT!"), ("IS THAT", "ALL MINE?"), ("GIVE THAT BACK!",), ("I'M MOULTING,", "OKAY?"),
    ("DON'T LOOK!",), ("WHO KNITTED", "THIS?"), ("I'LL WRITE", "A REVIEW"), ("SO THAT'S", "MY SKIN"), ("ONE HAIR LEFT.", "IT'S FINE."), ("I SMELL GRAVY",))

for number, lines in enumerate(SAYINGS, 1):
    SPRITES["says_%02d" % number] = Drawn(marks.bubble(*lines), 24)

RANKS = (("DISHWASHER", "#5c5560"), ("FLOOR SWEEPER", "#6d5a4c"), ("POTATO PEELER", "#86633a"), ("POT STIRRER", "#7d4a3a"),
         ("WAITER", "#7d3c82"), ("GRILL COOK", "#b5341a"), ("SOUS-CHEF", "#a3245c"), ("CHEF", "#b8860b"))

for number, (name, face) in enumerate(RANKS, 1):
    SPRITES["rank_%d" % number] = sounding("rank.svg", (220, 40), 33, [("idle", None), ("over", "gameover"), ("best", "gameover_best")],
                                           FACE=face, NAME=name, ICON="rank_%d" % number,
                                           PIPS="".join(marks.pip(i, i < number) for i in range(len(RANKS))))


def marker(hair):
    return Sheet(lambda i: marks.above(hair, i), (marks.ABOVE, marks.ABOVE), 25,
                 [Animation("size_%d" % (i + 1), 0, [(i, 1000)]) for i in range(len(marks.ABOVE_SIZES))])


for hair in (1, 2, 3):
    SPRITES["above_0%d" % hair] = marker(hair)


def live_kitten(hair, spin):
    return Sheet(lambda i: kitten.cell(hair, spin, i), (kitten.SIZE, kitten.SIZE), 60, [Animation("live", 1, KITTEN_LIFE[spin])])


# A plain kitten looks about, blinks and flails; an easily spinning one rolls its eyes; a fast one goes round in them.
KITTEN_LIFE = (
    [(0, 900), (1, 110), (0, 500), (2, 460), (0, 160), (3, 460), (0, 240)] + steady(4, 5, 4, 5, 4, 5, length=120),
    steady(0, 1, 2, 3, 4, 5, length=110),
    steady(0, 1, 2, 3, 4, 5, length=80))

for hair in (1, 2, 3):
    for spin, ending in enumerate(("", "_spinning_easy", "_spinning_hard")):
        SPRITES["kitten_0%d%s" % (hair, ending)] = live_kitten(hair, spin)

HANDLES = {7: "monster", 8: "kitten_01"}  # bodies 0 to 6 are walls: the background shows them
