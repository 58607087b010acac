"""The tune of play: a sneaking polka in D minor.  Its theme comes three times, each time in other hands; between
them a broad part in F, a tuba's trio in B flat, and a chase."""
import sys

from score import Piece

OPEN = "Dm A7"
THEME = "Dm Dm A7 A7 A7 A7 Dm Dm"
BROAD = "F C7 F A7 Dm Gm E7 A7"
TRIO = "Bb F7 F7 Bb Gm Dm E7 A7"
CHASE = "Dm Dm A7 A7 Gm Dm A7 A7"
END = "Dm Gm/A7 Dm/A7 Dm"

PART_A = ("D5 1 E5 1 F5 1 - 1 A5 1 - 1 F5 2  G#5 1 A5 1 G#5 1 A5 1 F5 2 D5 2  "
          "C#5 1 D5 1 E5 1 - 1 G5 1 - 1 E5 2  F#5 1 G5 1 F#5 1 G5 1 E5 2 C#5 2  "
          "A4 1 C#5 1 E5 1 G5 1 Bb5 2 A5 2  G5 1 F5 1 E5 1 D5 1 C#5 2 E5 2  "
          "D5 1 - 1 A4 1 - 1 F5 1 E5 1 D5 1 C#5 1  D5 2 - 2 D6 1 - 3")
PART_B = ("C6 3 A5 1 F5 2 A5 2  Bb5 3 G5 1 E5 2 G5 2  A5 1 Bb5 1 A5 1 G5 1 F5 2 C5 2  C#5 1 E5 1 A5 1 G5 1 E5 4  "
          "F5 3 E5 1 D5 2 F5 2  G5 3 F5 1 D5 2 Bb5 2  B5 1 A5 1 G#5 1 F5 1 E5 2 D5 2  C#5 2 E5 2 A5 1 - 3")
PART_C = ("D5 1 E5 1 F5 1 - 1 A5 1 - 1 F5 2  G#5 1 A5 1 G#5 1 A5 1 F5 2 D5 2  "
          "C#5 1 D5 1 E5 1 - 1 G5 1 - 1 E5 2  F#5 1 G5 1 F#5 1 G5 1 E5 2 C#5 2  "
          "Bb5 1 A5 1 G5 1 F5 1 G5 2 Bb5 2  A5 1 G5 1 F5 1 E5 1 F5 2 A5 2  "
          "G5 1 E5 1 C#5 1 A4 1 Bb4 1 B4 1 C5 1 C#5 1  E5 1 - 1 E5 1 - 1 A4 1 B4 1 C#5 2")
TUBA = ("F4 2 D4 1 F4 1 Bb4 2 - 2  A4 1 Bb4 1 C5 1 A4 1 F4 2 - 2  Eb4 2 C4 1 Eb4 1 A4 2 - 2  Bb4 1 C5 1 D5 1 Bb4 1 F4 2 - 2  "
        "D5 2 Bb4 1 D5 1 G5 2 F#5 1 G5 1  F5 1 E5 1 F5 1 A5 1 F5 2 D5 2  "
        "G#4 1 B4 1 D5 1 E5 1 F5 1 E5 1 D5 1 B4 1  C#5 1 - 1 C#5 1 - 1 E5 1 G5 1 Bb5 1 A5 1")
RUNS = ("- 6 D6 .5 C6 .5 Bb5 .5 F5 .5  - 6 C6 .5 Bb5 .5 A5 .5 F5 .5  - 6 Eb6 .5 C6 .5 A5 .5 F5 .5  - 6 D6 .5 F6 .5 D6 .5 Bb5 .5  "
        "- 8  - 8  - 8  - 8")
UNDER = "A5 6 F5 2  D5 4 F5 4  E5 6 C#5 2  A4 4 E5 4"
HEAD = ("D5 1 E5 1 F5 1 - 1 A5 1 - 1 F5 2  G#5 1 A5 1 G#5 1 A5 1 F5 2 D5 2  "
        "C#5 1 D5 1 E5 1 - 1 G5 1 - 1 E5 2  F#5 1 G5 1 F#5 1 G5 1 E5 1 C#5 1 A4 1 C#5 1")
CODA = ("D5 1 E5 1 F5 1 - 1 A5 1 - 1 D6 2  Bb5 1 A5 1 G5 1 E5 1 C#5 1 A4 1 B4 1 C#5 1  "
        "D5 1 - 1 F5 1 - 1 A5 1 - 1 C#6 1 - 1  D6 1 - 1 A5 1 - 1 D5 1 - 3")

piece = Piece(tempo=142)
for bar, chords in ((0, OPEN), (2, THEME), (10, BROAD), (26, CHASE), (34, "Dm Dm A7 A7"), (38, END)):
    piece.oompah(bar, chords)
piece.oompah(18, TRIO, bass="plucked", chord="marimba")
piece.line("theme", "marimba", 0, 2, "- 8  - 4 A4 1 B4 1 C#5 2", side=-0.25)
piece.line("theme", "marimba", 2, 8, PART_A, side=-0.25)
piece.line("song", "whistle", 10, 8, PART_B, side=0.2, legato=0.95)
piece.line("second", "marimba", 10, 8, PART_B, side=-0.3, strength=0.8)
piece.line("theme", "tuba", 18, 8, TUBA, up=-12, side=-0.1, strength=1.2)
piece.line("second", "slide", 18, 8, TUBA, up=0, side=0.2, strength=0.5)
piece.line("bells", "bell", 18, 8, RUNS, side=0.3)
piece.line("theme", "clarinet", 26, 8, PART_C, side=-0.2)
piece.line("second", "plucked", 26, 8, PART_C, up=-12, side=0.3)
piece.line("theme", "marimba", 34, 4, HEAD, side=-0.25)
piece.line("song", "whistle", 34, 4, HEAD, up=12, side=0.2, strength=0.6)
piece.line("second", "clarinet", 34, 4, UNDER, up=-12, side=0.3, strength=0.4, legato=0.97)
piece.line("theme", "marimba", 38, 4, CODA, side=-0.25)
piece.line("song", "whistle", 38, 4, CODA, side=0.2, strength=0.8)
piece.line("bells", "bell", 38, 4, CODA, up=12, side=0.3, strength=0.5)
piece.drums(0, 1, "k-s-k-s-")
piece.drums(1, 1, "k-s-k-l-")
piece.drums(2, 8, "kbsbkbsb")
piece.drums(10, 8, "k-bbk-bs")
piece.drums(18, 8, "k-s-k-ss")
piece.drums(26, 7, "kbsbkbss")
piece.drums(33, 1, "ksssksls")
piece.drums(34, 6, "kbsbkbsb")
piece.drums(40, 1, "k-k-k-k-")
piece.drums(41, 1, "k-s-l---")
piece.save(sys.argv[1], {"bass": -8, "chords": -11, "theme": -5, "song": -7, "second": -11, "bells": -12, "drums": -12}, beats=167)
