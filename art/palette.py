"""The colours that more than one picture uses.  KITTEN belongs to the kittens alone."""

KITTEN = "#16c8d8"        # fur and jumper: never use it, or any hue near it, for anything else in play
KITTEN_DARK = "#0b8fa6"   # fur markings
KITTEN_LINE = "#0a2f3a"   # outline of the kittens
SKIN = "#ffb7a6"          # what is under the fur
SKIN_DARK = "#e88d80"

INK = "#1c1016"           # outlines of all the rest
CREAM = "#fff3d6"
GOLD = "#ffd24a"
EMBER = "#ff8a1f"
BLOOD_ORANGE = "#d8381a"
IRON = "#2a2226"
IRON_LIGHT = "#5a4a4c"
PLUM = "#382a3c"          # back wall
BRICK = "#b8704a"
STONE = "#a8957e"
MONSTER = "#8cc63c"
MONSTER_DARK = "#5e9428"
MONSTER_LIGHT = "#bfe76a"
MONSTER_LINE = "#20300d"
