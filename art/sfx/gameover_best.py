"""The game is over with a new best: the tune's head turned to major, a roll on the kettle drum, a chord, and the lid."""
import sys

import numpy as np

from instruments import bell, kettle, lid, squeezebox, tuba, whistle
from synth import *  # noqa: F401,F403

D = 587.33
HEAD = ((0, 0, 0.13), (0.14, 2, 0.13), (0.28, 4, 0.13), (0.56, 7, 0.13), (0.70, 4, 0.13), (0.84, 7, 0.26), (1.12, 12, 1.1))  # at, half tones, length
parts = []
for at, step, length in HEAD:
    f = D * 2 ** (step / 12.0)
    parts += [(at, 0.5 * whistle(f, length) + 0.12 * squeezebox(f / 2, length)), (at, 0.4 * bell(f, 0.9))]
parts += [(0.56 + 0.07 * i, (0.18 + 0.03 * i) * kettle(110.0, 0.4)) for i in range(8)]
parts += [(1.12, 0.11 * squeezebox(f, 1.0)) for f in (293.66, 369.99, 440.0)]
parts += [(1.12, 0.4 * tuba(73.42, 0.7)), (1.12, 0.3 * lid(0.9)), (1.12, 0.25 * kettle(73.42, 0.7))]
parts += [(1.2 + 0.07 * i, 0.25 * bell(D * 2 ** (step / 12.0), 0.9)) for i, step in enumerate((12, 16, 19, 24, 28, 31))]
save(sys.argv[1], edges(mix(*parts), fall=0.8), -18.4)
