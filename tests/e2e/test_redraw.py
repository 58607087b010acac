"""What the window shows after its mode or its size has changed."""
import time
import unittest

from display import Display, wait_for
from game import Game, Stepper, load_picture, matches


class Redraw(unittest.TestCase):
    def test_dragging_the_frame_leaves_a_correct_picture(self):
        with Display() as screen, Game(screen) as game:
            game.wait_for_title()
            title = load_picture("title_screen")
            for width, height in ((700, 500), (900, 700), (820, 620)):
                wait_for(lambda: self.shows(game, title, width, height), 5,
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
                self.frames(game)
                shown = self.settled_picture(screen)
                game.order("redraw")
                self.frames(game)
                self.assertTrue((shown == self.settled_picture(screen)).all(), orders)
                self.assertGreater(shown.max(), 100, orders)

    def frames(self, game, count=3):
        for _ in range(count):
            game.order("advance 17")
            game.order("frame")

    def play_a_little(self, game):
        self.frames(game)
        game.wait_for_window()
        game.point_at(400, 300)
        for _ in range(2):
            time.sleep(0.2)
            game.click()
            time.sleep(0.2)
            self.frames(game)
        self.frames(game, 80)
        # The world stands still from here on, while the clock lets the frames be drawn.
        game.run("pausetask(game)")
        self.frames(game)

    def settled_picture(self, screen):
        time.sleep(0.3)
        return screen.picture((0, 0, *screen.SIZE))  # full screen has a window of another place
