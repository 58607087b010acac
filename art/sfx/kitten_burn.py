"""A whoosh of fire, sizzling fat and a long, falling mew."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 1.1
whoosh = resonate(noise(length, 11), curve(((0, 250), (0.18, 1500), (0.6, 700), (1.1, 300)), length), 700) * curve(((0, 0), (0.12, 1), (0.4, 0.55), (1.1, 0)), length)
crackle = (np.random.RandomState(14).uniform(0, 1, len(whoosh)) > 0.9985).astype(float)
crackle = np.minimum(1, np.convolve(crackle, np.exp(-np.arange(520) / 120.0))[:len(whoosh)])
sizzle = band(noise(length, 13), 4500, 14000) * (0.15 + 0.6 * crackle) * curve(((0, 0), (0.2, 1), (0.7, 0.9), (1.1, 0)), length)
cry = mew(0.85, pitch=((0, 640), (0.08, 1120), (0.3, 980), (0.85, 360)), mouth=((0, 800), (0.1, 1900), (0.45, 1400), (0.85, 600)),
          loud=((0, 0), (0.05, 1), (0.45, 0.75), (0.85, 0)), rough=0.06, seed=5)
cry = cry * (1 + 0.3 * np.sin(2 * np.pi * 9 * seconds(0.85)))
save(sys.argv[1], mix((0, 0.4 * level(whoosh)), (0, 0.3 * level(sizzle)), (0.06, level(cry))), -18.0)
