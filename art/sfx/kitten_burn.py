"""A whoosh of fire, sizzling fat and a long, falling mew."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 1.1
whoosh = resonate(noise(length, 11), curve(((0, 250), (0.18, 1500), (0.6, 700), (1.1, 300)), length), 700) * curve(((0, 0), (0.12, 1), (0.4, 0.55), (1.1, 0)), length)
rumble = smooth(noise(length, 12), 40) * curve(((0, 0), (0.1, 1.6), (0.6, 0.8), (1.1, 0)), length)
hiss = noise(length, 13)
hiss = hiss - smooth(hiss, 5)
spatter = (np.random.RandomState(14).uniform(0, 1, len(hiss)) > 0.997).astype(float)
spatter = np.convolve(spatter, np.exp(-np.arange(260) / 60.0))[:len(hiss)]
sizzle = hiss * (0.10 + 0.55 * np.minimum(spatter, 1)) * curve(((0, 0), (0.2, 1), (0.7, 0.9), (1.1, 0)), length)
cry = mew(0.8, pitch=((0, 700), (0.08, 1150), (0.3, 980), (0.8, 420)), mouth=((0, 900), (0.1, 2100), (0.45, 1500), (0.8, 700)),
          loudness=((0, 0), (0.05, 1), (0.45, 0.7), (0.8, 0)), rough=0.06, seed=5)
cry = cry * (1 + 0.25 * np.sin(2 * np.pi * 9 * seconds(0.8)))
scale = lambda x: x / np.max(np.abs(x))  # noqa: E731
save(sys.argv[1], mix((0, 0.7 * scale(whoosh)), (0, 0.5 * scale(rumble)), (0, 0.55 * scale(sizzle)), (0.08, 0.8 * scale(cry))))
