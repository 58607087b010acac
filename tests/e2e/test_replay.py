# Recorded games in a real window.

import os
import re
import subprocess

import numpy
from PIL import Image

from case import GameTest
from game import ROOT, Stepper

PLAYER = ROOT / "build" / "release" / "brumble_replay"
STORES_PICTURES = "BRUMBLE_STORE_PICTURES" in os.environ


class Replay(GameTest):
    def test_a_game_in_the_window_comes_to_its_score_and_picture(self):
        for name in ("chaser-30", "spinner-30", "presser-40"):
            with self.subTest(name):
                self.play(name)

    # The program without a window tells what the window should come to.
    def play(self, name):
        file = ROOT / "tests" / "replays" / f"{name}.replay"
        told = subprocess.run([PLAYER, file], capture_output=True, text=True, check=True).stdout
        summary = re.search("held, score .*", told)[0]
        screen, game = self.start(kind=Stepper)
        game.wait_for_window()
        screen.move_pointer(5, 5)  # out of the picture
        # From here to the picture the same frames go by in every run, so that what only moves on
        # the screen (ghosts, faces, the oven's breath) is where it was.
        game.run(f"replaygame({file})")
        screen.tap(*["Up"] * 6)
        game.wait_for_log("Gameover")
        self.assertIn(f"Replay: {summary}", game.log())
        self.assertFalse((game.runtime / "scores.txt").exists())
        game.let_pass(3)
        self.assert_is_stored(game.picture(), file.with_suffix(".png"))

    def assert_is_stored(self, picture, file):
        if STORES_PICTURES:
            Image.fromarray(picture).save(file, optimize=True)
        with Image.open(file) as stored:
            off = numpy.abs(picture.astype(int) - numpy.asarray(stored)).max(axis=2)
        rows, columns = (off > 4).nonzero()
        self.assertEqual(len(rows), 0, f"pixels of {file.name} differ, by at most {off.max()}, from "
                         f"{columns.min(initial=800), rows.min(initial=600)} on")
