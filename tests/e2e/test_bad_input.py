"""Nothing that is wrong with the files, the script or the machine crashes or hangs the program.

The loaders meet every kind of broken file in the unit tests; here a few go through the whole game,
under the sanitizers.
"""
import os
import unittest

from display import Display
from game import Game, Stepper, fire_burns


class Machine(unittest.TestCase):
    def test_no_script_ends_at_once(self):
        with Game(build="asan", prepare=lambda r: (r / "autoexec.txt").unlink()) as game:
            self.assertEqual(game.wait_for_end(), 0)
            self.assertIn("New log created on", game.log())
            self.assertEqual(game.standard_error(), "")

    def test_no_display_ends_in_order_with_one_line(self):
        with Game(build="asan") as game:
            self.assertEqual(game.wait_for_end(), 0, game.standard_error())
            lines = game.standard_error().strip().split("\n")
            self.assertEqual(len(lines), 1, lines)
            self.assertIn("display", lines[0].lower())
            self.assertIn(lines[0], game.log())

    def test_a_reader_that_goes_away_ends_nothing(self):
        with Stepper(script=lambda _: "") as game:
            game.process.stdout.close()
            game.send("run nothing")
            game.process.stdin.close()
            self.assertEqual(game.wait_for_end(), 0, game.standard_error())

    def test_without_a_log_the_game_plays(self):
        with Display() as screen, \
                Game(screen, "asan", prepare=lambda r: (r / "log.txt").mkdir()) as game:
            game.start_playing()
            self.assertEqual(game.end_in_order(), 0, game.standard_error())


class Scripts(unittest.TestCase):
    LINES = """load(autoexec.txt)
load(again.txt);load(again.txt)
((((((
"unbalanced, text
starttask(")
starttask(,,,)
::;;::;;//
a=b=c=d
nobody::nothing(1, 2)
Audio::PlayEffect(
Audio::PlayEffect("data/sfx/missing.wav")
window::Resize(nonsense, 1e99)
window::SetIcon(data/gfx/background.png)
"""

    def test_hostile_lines(self):
        def prepare(runtime):
            (runtime / "again.txt").write_text("load(again.txt)\nload(autoexec.txt)\n")

        def script(text):
            return text + "\n" + self.LINES + "a=" * 500_000 + "1\n" + "x" * 1_000_000 + "\nquit\n"

        with Display() as screen, Game(screen, "asan", script, prepare=prepare) as game:
            self.assertEqual(game.wait_for_end(), 0, game.standard_error())
            self.assertIn("nobody", game.log())


class Data(unittest.TestCase):
    """One broken file a run; the game goes from the title into play, where a kitten burns, and ends
    in order."""

    def break_and_play(self, name, broken):
        def prepare(runtime):
            path = runtime / "data" / name
            path.write_bytes(broken(path.read_bytes()))

        with self.subTest(name=name), Display() as screen, \
                Game(screen, build="asan", prepare=prepare) as game:
            game.start_playing()
            game.point_at(5, 5)
            before = game.picture()
            game.wait_for(lambda: fire_burns(game.picture(), before), "the fire")
            self.assertEqual(game.end_in_order(), 0, game.standard_error())

    def test_broken_files(self):
        noise = os.urandom(4000)
        for name, broken in (("gfx/gfx_resources.xml", lambda data: b""),
                             ("gfx/numbers.ogf", lambda data: data[:20]),
                             ("gfx/kitten_01.png", lambda data: data[:len(data) // 2]),
                             ("gfx/monster.xml", lambda data: noise),
                             ("sfx/kitten_burn.wav", lambda data: noise),
                             ("music/brumble.ogg", lambda data: b"")):
            self.break_and_play(name, broken)
