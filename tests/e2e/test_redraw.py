"""What the window shows after its mode or its size has changed."""
import unittest

from display import Display
from game import Game, Stepper, load_picture, matches


class Redraw(unittest.TestCase):
    def test_dragging_the_frame_leaves_a_correct_picture(self):
        with Display() as screen, Game(screen) as game:
            game.wait_for_title()
            title = load_picture("title_screen")
            for width, height in ((700, 500), (900, 700), (820, 620)):
                game.wait_for(lambda: self.shows(game, title, width, height),
                              f"the title at {width} x {height}")
            game.rect = (*game.rect[:2], 800, 600)
            game.point_at(400, 300)
            game.click()
            game.wait_for_picture("help_screen")

    def shows(self, game, title, width, height):
        game.wait_for_window()
        if game.rect[2:] != (width, height):
            game.window.configure(width=width, height=height)
            return False
        picture = game.picture()
        beyond_is_black = not picture[600:].any() and not picture[:, 800:].any()
        is_drawn = f"myHeight = {height}\n( ) drawing all\n" in game.log()
        return (is_drawn and beyond_is_black
                and matches(picture[:600, :800], title[:height, :width], 0.98))

    def test_full_screen_and_resize(self):
        """With a stopped clock between the lines, the window equals what a full redraw shows."""
        lines = (["window::Fullscreen"], ["window::Fullscreen"], ["window::Resize(640, 480)"],
                 ["window::Resize(640, 480)"], ["window::Resize(800, 600)"],
                 ["window::Fullscreen", "window::Fullscreen"])
        with Display() as screen, Stepper(screen) as game:
            self.play_a_little(game)
            for orders in lines:
                for line in orders:
                    game.run(line)
                shown = self.settled_picture(screen, game)
                game.order("redraw")
                self.assertTrue((shown == self.settled_picture(screen, game)).all(), orders)
                self.assertGreater(shown.max(), 100, orders)

    def test_play_goes_on_without_the_window(self):
        with Display() as screen, Stepper(screen, "asan") as game:
            game.start_playing()
            game.run("stoptask(window)")
            game.let_pass(1)
            game.run("quit")
            game.send("frame")
            self.assertEqual(game.wait_for_end(), 0, game.standard_error())

    def play_a_little(self, game):
        game.start_playing()
        game.let_pass(1.4)
        # The world stands still from here on, while the clock lets the frames be drawn.
        game.run("pausetask(game)")

    def settled_picture(self, screen, game):
        game.settle()
        return screen.picture((0, 0, *screen.SIZE))  # full screen has a window of another place
