"""A low, cross growl of a mew."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 0.38
growl = mew(length, pitch=((0, 310), (0.12, 430), (0.25, 380), (0.38, 260)), mouth=((0, 500), (0.18, 1300), (0.38, 600)),
            loudness=((0, 0), (0.04, 1), (0.25, 0.9), (0.38, 0)), brightness=0.7, rough=0.25, seed=3)
save(sys.argv[1], growl * (1 - 0.45 * (0.5 + 0.5 * np.sin(2 * np.pi * 31 * seconds(length)))))
