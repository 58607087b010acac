"""What the signs of bonuses share: bells on the notes of one chord, F, A and C.

Several signs of one banking ring one after the other, so no grade has a note outside the chord; in the tune's
D minor it is at home as well.
"""
import numpy as np

from instruments import bell
from synth import mix, save, seconds

NOTES = {"F5": 698.46, "A5": 880.0, "C6": 1046.5, "F6": 1396.91, "A6": 1760.0, "C7": 2093.0}
EVERY = 0.055  # seconds from bell to bell of a run


def ring(path, run, length, loud):
    """A quick run of bells; the last rings longest."""
    parts = []
    for i, name in enumerate(run):
        last = i == len(run) - 1
        strike = bell(NOTES[name], length)
        parts.append((i * EVERY, strike if last else 0.55 * strike * np.exp(-5 * seconds(length))))
    save(path, mix(*parts), loud)
