"""Recorded games in a real window."""
import re
import subprocess

from case import GameTest, for_each
from game import ROOT, Digits, Stepper

PLAYER = ROOT / "build" / "release" / "brumble_replay"


class Replay(GameTest):
    # The program without a window tells what the window should come to.
    @for_each(name=("chaser-30", "spinner-30", "presser-40"))
    def test_a_game_in_the_window_comes_to_its_score(self, name):
        file = ROOT / "tests" / "replays" / f"{name}.replay"
        told = subprocess.run([PLAYER, file], capture_output=True, text=True, check=True).stdout
        summary, score = re.search(r"held, (score (\d+) .*)", told).groups()
        screen, game = self.start(kind=Stepper, lines=f"replaygame({file})")
        game.wait_for_window()
        for _ in range(6):
            screen.tap("Up")
            game.settle()
        game.wait_for_log("Gameover")
        self.assertIn(f"Replay: held, {summary}", game.log())
        game.let_pass(3)
        self.assertEqual(Digits().read(game.picture(), Digits.SCORE), int(score))
        self.assertFalse((game.runtime / "replays").exists() or
                         (game.runtime / "scores.txt").exists(), "a trace of the replay")
