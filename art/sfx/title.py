"""The tune before and after play: the polka's theme on tiptoe, low and swung, in D minor, with a broad middle in F."""
import sys

from score import Piece

VAMP = "Dm Dm Dm A7"
LOW = "Dm Dm A7 A7 Gm Dm E7/A7 Dm"
BROAD = "F C7 C7 F Bb F Gm/E7 A7"
FULL = "Dm Dm A7 A7 Gm Dm E7/A7 Dm"
END = "Dm Gm/A7 Dm/A7 Dm"

TIPTOE = ("D4 1 E4 1 F4 2 - 1 A4 1 F4 2  G#4 3 A4 1 F4 2 - 2  C#4 1 D4 1 E4 2 - 1 G4 1 E4 2  F#4 3 G4 1 E4 2 - 2  "
          "A4 1 A4 1 Bb4 1 A4 1 G4 2 Bb4 2  A4 3 F4 1 D4 2 F4 2  E4 1 F4 1 G#4 1 B4 1 A4 2 C#4 2  D4 2 - 1 A3 1 D4 2 - 2")
SONG = ("C5 3 A4 1 F4 2 A4 2  Bb4 4 G4 2 E4 2  D5 3 Bb4 1 G4 2 Bb4 2  A4 5 G4 1 A4 1 C5 1  "
        "D5 3 F5 1 D5 2 Bb4 2  C5 3 D5 1 C5 2 A4 2  Bb4 2 A4 1 G4 1 G#4 2 D5 2  C#5 2 - 1 A4 1 B4 1 C#5 1 E5 1 G5 1")
UNDER = ("A4 4 C5 4  G4 6 C5 2  Bb4 4 E4 4  F4 4 C4 4  F4 4 Bb4 4  A4 4 F4 4  D4 4 E4 4  E4 4 G4 4")
# answers in the rests of the theme
ANSWERS = "- 6 A3 2  - 6 D4 1 A3 1  - 6 G3 2  - 6 E4 1 A3 1  - 8  - 8  - 8  - 4 - 2 F5 1 E5 1"
CODA = ("D5 1 - 1 D5 1 E5 1 F5 1 - 1 A5 1 - 1  G#5 1 A5 1 G#5 1 A5 1 E5 1 C#5 1 A4 2  "
        "D5 1 - 1 F5 1 - 1 A4 1 - 1 C#5 1 - 1  D5 1 - 1 A4 1 - 1 D4 1 - 3")

piece = Piece(tempo=112, swing=0.13)
for bar, chords in ((0, VAMP), (4, LOW)):
    piece.oompah(bar, chords, bass="plucked", chord="marimba")
for bar, chords in ((12, BROAD), (20, FULL), (28, END)):
    piece.oompah(bar, chords)
piece.line("answer", "bassoon", 2, 2, "- 4 - 2 D4 1 D#4 1  E4 1 C#4 1 A3 1 - 1 A3 1 B3 1 C#4 1 - 1")
piece.line("theme", "clarinet", 4, 8, TIPTOE, side=-0.2)
piece.line("answer", "slide", 4, 8, ANSWERS.replace("F5 1 E5 1", "- 2"), side=0.35)
piece.line("theme", "whistle", 12, 8, SONG, up=12, side=0.15, strength=0.9, legato=0.97)
piece.line("second", "clarinet", 12, 8, UNDER, side=-0.3, legato=0.98)
piece.line("theme", "clarinet", 20, 8, TIPTOE, up=12, side=-0.2, strength=0.8)
piece.line("bells", "marimba", 20, 8, TIPTOE, up=12, side=0.2)
piece.line("answer", "slide", 20, 8, ANSWERS, side=0.35)
piece.line("second", "bassoon", 20, 8, TIPTOE, up=0, side=0.3)
piece.line("theme", "clarinet", 28, 4, CODA, side=-0.2)
piece.line("bells", "bell", 28, 4, CODA, up=12, side=0.2, strength=0.6)
piece.drums(0, 12, "s-b-s-bs", strength=1.5)
piece.drums(12, 8, "k-b-k-bb")
piece.drums(20, 8, "kbbskbbs")
piece.drums(28, 2, "kbbskbbs")
piece.drums(30, 1, "k-s-k-s-")
piece.drums(31, 1, "k-s-l---")
piece.save(sys.argv[1], {"bass": -8, "chords": -11, "theme": -4, "answer": -7, "second": -11, "bells": -9, "drums": -13}, beats=127)
