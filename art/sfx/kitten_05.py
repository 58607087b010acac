"""A spring let go: its wobble quickens as it rises."""
import sys

import numpy as np

from synth import *  # noqa: F401,F403

length = 0.5
t = seconds(length)
wobble = np.sin(2 * np.pi * (8 + 14 * t) * t)
angle = phase(230 + 420 * t + (95 + 60 * t) * np.exp(-t * 2.2) * wobble)
spring = np.sin(angle + (1.9 + 1.1 * wobble) * np.sin(2 * angle)) + 0.3 * np.sin(5 * angle) * np.exp(-t * 8)
twang = band(noise(length, 8), 1500, 8000) * np.exp(-t * 90)
save(sys.argv[1], spring * np.exp(-t * 2.4) * np.minimum(1, t / 0.005) + 0.2 * level(twang), -18.6)
