"""Nothing that is wrong with the files, the script or the machine crashes or hangs the program."""
# The loaders meet every kind of broken file in the unit tests; here a few go through the whole game,
# under the sanitizers.
import os

from case import GameTest, for_each
from game import Game, fire_burns


class Machine(GameTest):
    def test_no_script_ends_at_once(self):
        with Game(build="asan", prepare=lambda r: (r / "autoexec.txt").unlink()) as game:
            game.wait_for_end()
            self.assertIn("New log created on", game.log())
            self.assertEqual(game.standard_error(), "")

    def test_no_display_ends_in_order_with_one_line(self):
        with Game(build="asan") as game:
            game.wait_for_end()
            self.assertRegex(game.standard_error(), r"\A.*display.*\n\Z")
            self.assertIn(game.standard_error(), game.log())

    def test_hostile_lines(self):
        _, game = self.start("asan", lines="load(autoexec.txt)\nnobody::nothing(1, 2)\n((((((\n"
                             + "a=" * 500_000 + "1\n" + "x" * 1_000_000 + "\nquit")
        game.wait_for_end()
        self.assertIn("nobody", game.log())


def noise(_):
    return os.urandom(4000)


class Data(GameTest):
    # One a run, and no log; the game goes into play, where a kitten burns, and ends in order.
    @for_each(broken=(("gfx/gfx_resources.xml", noise), ("gfx/numbers.ogf", lambda data: data[:20]),
                      ("gfx/kitten_01.png", lambda data: data[:len(data) // 2]),
                      ("sfx/kitten_burn.wav", noise), ("music/title.ogg", lambda data: b"")))
    def test_broken_files(self, broken):
        def prepare(runtime):
            path = runtime / "data" / broken[0]
            path.write_bytes(broken[1](path.read_bytes()))
            (runtime / "log.txt").mkdir()

        _, game = self.start("asan", prepare=prepare)
        game.start_playing()
        game.point_at(5, 5)
        before = game.picture()
        game.wait_for(lambda: fire_burns(game.picture(), before), "the fire")
        game.close_window()
