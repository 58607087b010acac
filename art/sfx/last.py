"""The tune of the last kitten: the theme in a hurry over a bass that will not leave its note, with a half tone that
leans on it; a chase, a stop in which only the clock ticks, the theme a tone higher, and the way back."""
import sys

import instruments
from score import Piece, tone

THEME = "Dm Dm Eb Eb A7 A7 Dm Dm"
CHASE = "Gm Gm Dm Dm E7 E7 A7 A7"
STOPS = "Dm Dm A7 A7 Gm Dm E7 A7"
BACK = "C7 Bb Gm A7"
END = "Dm Dm Eb Eb A7 A7 Dm/A7 Dm"

RUN_UP = "A4 1 Bb4 1 B4 1 C5 1 C#5 1 D5 1 Eb5 1 E5 1"
HURRY = ("D5 1 E5 1 F5 1 - 1 A5 1 - 1 F5 1 - 1  G#5 1 A5 1 G#5 1 A5 1 F5 1 D5 1 A4 1 D5 1  "
         "Eb5 1 F5 1 G5 1 - 1 Bb5 1 - 1 G5 1 - 1  A5 1 Bb5 1 A5 1 Bb5 1 G5 1 Eb5 1 Bb4 1 Eb5 1  "
         "E5 1 F5 1 G5 1 - 1 Bb5 1 - 1 A5 1 - 1  C#6 1 Bb5 1 A5 1 G5 1 E5 1 G5 1 E5 1 C#5 1  "
         "D5 1 - 1 D5 1 - 1 F5 1 E5 1 D5 1 C#5 1  D5 1 A5 1 D5 1 A5 1 D6 2 - 2")
HUNT = ("Bb5 2 G5 1 Bb5 1 D6 2 Bb5 2  A5 1 Bb5 1 A5 1 G5 1 F#5 1 G5 1 A5 1 Bb5 1  A5 2 F5 1 A5 1 D6 2 A5 2  "
        "G#5 1 A5 1 G#5 1 F5 1 E5 1 F5 1 G5 1 A5 1  G#5 2 E5 1 G#5 1 D6 2 B5 2  A5 1 B5 1 A5 1 G#5 1 F5 1 E5 1 D5 1 B4 1  "
        "C#5 1 E5 1 G5 1 Bb5 1 A5 1 G5 1 E5 1 C#5 1  E5 1 - 1 E5 1 - 1 A5 1 A5 1 A5 1 A5 1")
HIDE = ("D4 1 - 1 E4 1 - 1 F4 1 - 3  A4 1 - 1 F4 1 - 5  C#4 1 - 1 D4 1 - 1 E4 1 - 3  G4 1 - 1 E4 1 - 5  "
        "G4 1 A4 1 Bb4 1 - 1 D5 1 - 1 Bb4 1 - 1  A4 1 Bb4 1 A4 1 - 1 F5 1 - 1 D5 1 - 1  "
        "G#4 .5 A4 .5 B4 1 D5 1 F5 1 E5 1 D5 1 B4 1 G#4 1  A4 1 B4 1 C#5 1 D5 1 D#5 1 E5 1 F5 1 F#5 1")
RETURN = ("E5 1 G5 1 C6 1 Bb5 1 G5 1 E5 1 C5 1 E5 1  D5 1 F5 1 Bb5 1 A5 1 F5 1 D5 1 Bb4 1 D5 1  "
          "G5 1 Bb5 1 D6 1 C6 1 Bb5 1 A5 1 G5 1 F5 1  E5 1 G5 1 E5 1 C#5 1 A4 1 B4 1 C#5 1 E5 1")
FINISH = HURRY[:HURRY.rindex("D5 1 - 1 D5 1 - 1 F5")] + "D5 1 F5 1 A5 1 D6 1 C#6 1 A5 1 G5 1 E5 1  D5 1 - 1 A4 1 - 1 D5 1 - 3"
LEAN = (0, 0, 12, 0, 1, 0, 12, 0)  # half tones over the root, an eighth each

piece = Piece(tempo=184)


def drive(bar, chords, up=0):
    """The bass in eighths, that leans on the half tone above; the chord on the weak beats."""
    for at, beat, harmony in Piece.beats_of(chords, bar, up):
        for half in (0, 1):
            piece.note("bass", "plucked", at + half / 2.0, harmony.bass + LEAN[2 * beat + half], 0.45, 1.0 if half == 0 else 0.75)
        if beat % 2 == 1:
            for i, half_tones in enumerate(harmony.notes):
                piece.note("chords", "squeezebox", at, half_tones, 0.36, side=0.25 + 0.12 * i)


def clock(bar, bars):
    """Tick and tock on each beat."""
    for i in range(bars * 4):
        piece.put("clock", bar * 4 + i, instruments.spoon(2100.0 if i % 2 == 0 else 1500.0), 0.6, -0.2 if i % 2 == 0 else 0.2, exact=True)


def roll(bar, beats, name):
    """A roll on the kettle drum that swells."""
    for i in range(beats * 4):
        piece.note("kettle", "kettle", bar * 4 + i / 4.0, tone(name), 0.25, 0.3 + 0.7 * i / (beats * 4.0), 0.1)


drive(0, "Dm Dm Dm A7")
drive(4, THEME)
drive(12, CHASE)
for at, beat, harmony in Piece.beats_of(STOPS, 20):
    if beat == 0 or at >= 26 * 4:
        piece.note("bass", "tuba", at, harmony.bass, 0.5, 1.2)
    if beat == 0:
        for half_tones in harmony.notes:
            piece.note("chords", "squeezebox", at, half_tones, 0.3, side=0.3)
drive(28, THEME, up=2)
drive(36, BACK)
drive(40, END)
clock(0, 4)
clock(20, 8)
clock(36, 4)
roll(3, 4, "A2")
roll(19, 4, "A2")
roll(27, 4, "B2")
roll(39, 4, "A2")
roll(46, 4, "A2")
piece.line("theme", "marimba", 3, 1, RUN_UP, side=-0.2)
piece.line("theme", "marimba", 4, 8, HURRY, side=-0.2)
piece.line("second", "bassoon", 4, 8, HURRY, up=-12, side=0.25)
piece.line("theme", "whistle", 12, 8, HUNT, side=0.2)
piece.line("second", "marimba", 12, 8, HUNT, up=-12, side=-0.3)
piece.line("theme", "bassoon", 20, 8, HIDE, side=-0.15)
piece.line("second", "plucked", 20, 8, HIDE, up=12, side=0.3)
piece.line("theme", "clarinet", 28, 8, HURRY, up=2, side=-0.2)
piece.line("high", "whistle", 28, 8, HURRY, up=14, side=0.25)
piece.line("theme", "marimba", 36, 4, RETURN, side=-0.2)
piece.line("second", "clarinet", 36, 4, RETURN, side=0.25)
piece.line("theme", "marimba", 40, 8, FINISH, side=-0.2)
piece.line("second", "clarinet", 40, 8, FINISH, side=0.25)
piece.line("high", "bell", 40, 8, FINISH, up=12, side=0.3)
piece.drums(4, 16, "kbbbkbbs")
piece.drums(28, 8, "kbsbkbss")
piece.drums(36, 4, "k-k-k-k-")
piece.drums(40, 7, "kbsbkbss")
piece.drums(47, 1, "k-s-l---")
piece.save(sys.argv[1], {"bass": -8, "chords": -12, "theme": -4, "second": -10, "high": -12, "clock": -11, "kettle": -14, "drums": -12}, beats=191)
