"""The game is over, no best: the tune's head droops by half tones, the squeezebox runs out of air, a lid rolls to rest."""
import sys

import numpy as np

from instruments import bassoon, lid, marimba, tuba
from synth import *  # noqa: F401,F403

STEP = 0.21
droop = [(i * STEP, 0.6 * np.tanh(1.8 * level(bassoon(f, 0.19) + 0.4 * marimba(2 * f, 0.4)[:int(round(0.19 * RATE))] * curve(((0, 1), (0.19, 0)), 0.19))))
         for i, f in enumerate((220.0, 207.65, 196.0, 185.0))]
length = 1.1
t = seconds(length)
sigh = curve(((0, 174.6), (0.25, 174.6), (0.9, 138.6), (1.1, 110)), length) * (1 + 0.02 * np.sin(2 * np.pi * 5.5 * t))
air = sum(voice(sigh * detune, 1.1) for detune in (0.9965, 1.0045))
air = np.tanh(1.6 * level(resonate(air, 700, 500) + 0.3 * air)) * curve(((0, 0), (0.04, 1), (0.7, 0.8), (1.1, 0)), length)
rolls = np.cumsum(0.17 * 0.84 ** np.arange(15))
rolling = [(1.05 + at, 0.3 * 0.9 ** i * level(lid(0.12))) for i, at in enumerate(rolls)]
save(sys.argv[1], mix(*droop, (4 * STEP, 0.9 * air), (4 * STEP, 0.3 * tuba(73.42, 0.5)), (2.0, 0.45 * tuba(73.42, 0.3)), *rolling), -19.0)
