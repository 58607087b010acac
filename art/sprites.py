"""Every sprite of the game in one table: what it shows, where, and how far back.

Depth: the greater, the further back.  The number boards are at depth 40 and the
floating numbers at 20; a developer console lies below 0.
"""
import effects


class Still:
    """One picture.  Variables fill the {NAMES} of the source."""

    def __init__(self, source, z, at=(0, 0), opaque=False, **variables):
        self.source, self.z, self.at, self.opaque, self.variables = source, z, at, opaque, variables


class Moving:
    """A sheet of frames, drawn by a function of the progress; see effects.py."""

    def __init__(self, draw, size, z, at=(0, 0), columns=7, frames=21, length=100):
        self.draw, self.size, self.z, self.at = draw, size, z, at
        self.columns, self.frames, self.length = columns, frames, length


def sign(line1, line2, icon, face):
    if line2:
        return Still("sign.svg", 30, LINE1=line1, LINE2=line2, ICON=icon, FACE=face, SIZE="23", Y1="15", Y2="47")
    return Still("sign.svg", 30, LINE1=line1, LINE2="", ICON=icon, FACE=face, SIZE="31", Y1="28", Y2="0")


SPRITES = {
    "background": Still("background.svg", 1000, opaque=True),
    "oven": Still("oven.svg", 80),
    "oven_burning": Moving(effects.oven_burning, (150, 140), 70, at=(0, 140)),
    "monster": Still("monster.svg", 65),
    "kitten_hit_small": Moving(effects.hit_small, (56, 56), 52, columns=8, frames=8, length=70),
    "kitten_hit_big": Moving(effects.hit_big, (104, 104), 51, columns=6, frames=12, length=70),
    "kitten_lose_hair": Moving(effects.lose_hair, (84, 84), 50, columns=6, frames=12, length=80),
    "hellfire": Moving(effects.hellfire, (120, 108), 48),
    "score_sign": Still("score_sign.svg", 44, at=(168, 560)),
    "kittens_left": Still("kittens_left.svg", 44, at=(438, 555)),
    "kitten_signs": Still("kitten_signs.svg", 43, at=(168, 530)),
    "gameover": Still("gameover.svg", 34, at=(160, 96)),
    "title_screen": Still("title_screen.svg", 12, opaque=True),
    "help_screen": Still("help_screen.svg", 12, opaque=True),
    "help_bubbles": Still("help_bubbles.svg", 10),
    "paused": Still("paused.svg", 5, at=(210, 226)),
    "b_grilled_kitten": sign("GRILLED", "KITTEN", "icon_grill", "#b5341a"),
    "b_long_shot": sign("LONG", "SHOT", "icon_long", "#7a4f9a"),
    "b_wall_bounce": sign("WALL", "BOUNCE", "icon_bounce", "#9a5636"),
    "b_bashing": sign("BASHING", "", "icon_bash", "#a3245c"),
    "b_one_touch": sign("ONE", "TOUCH", "icon_one", "#5a8a1e"),
    "b_expert_spinner": sign("EXPERT", "SPINNER", "icon_spin1", "#c26a14"),
    "b_master_spinner": sign("MASTER", "SPINNER", "icon_spin2", "#7d3c82"),
    "b_guru_spinner": sign("GURU", "SPINNER", "icon_spin3", "#8c1d2e"),
}

for hair in (1, 2, 3):
    for spin, ending in enumerate(("", "_spinning_easy", "_spinning_hard")):
        SPRITES["kitten_0%d%s" % (hair, ending)] = Still("kitten.svg", 60, HAIR=str(hair), SPIN=str(spin))

HANDLES = {7: "monster", 8: "kitten_01"}  # bodies 0 to 6 are walls: the background shows them
