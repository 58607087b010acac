"""What the window shows after its mode or its size has changed."""
from case import GameTest
from game import Stepper, fit, load_picture


class Redraw(GameTest):
    def test_dragging_the_frame_leaves_a_correct_picture(self):
        _, game = self.start()
        game.wait_for_title()
        for width, height in ((700, 500), (900, 700)):
            game.wait_for(lambda: self.shows_title(width, height), f"the title at {width}x{height}")
        game.rect = (*game.rect[:2], 800, 600)
        game.click_at(400, 300)
        game.wait_for_picture("help_screen")

    def shows_title(self, width, height):
        game = self.game
        game.wait_for_window()
        if game.rect[2:] != (width, height):
            game.window.configure(width=width, height=height)
            return False
        picture, title = game.picture(), load_picture("title_screen")[:height, :width]
        beyond_is_black = not picture[600:].any() and not picture[:, 800:].any()
        return beyond_is_black and fit(picture, title) >= 0.98

    # With a stopped clock between the lines, the window equals what a full redraw shows.
    def test_full_screen_and_resize(self):
        _, game = self.start(kind=Stepper)
        game.start_playing()
        game.let_pass(1.4)
        # The world does not move from here on, while the clock lets the frames be drawn.
        game.run("pausetask(game)")
        full, small = "window::Fullscreen", "window::Resize(640, 480)"
        for line in (full, full, small, small, "window::Resize(800, 600)", f"{full}; {full}"):
            game.run(line)
            shown = self.settled_picture()
            game.order("redraw")
            self.assertTrue((shown == self.settled_picture()).all(), line)
            self.assertGreater(shown.max(), 100, line)

    def test_play_goes_on_without_the_window(self):
        _, game = self.start(kind=Stepper, build="asan")
        game.start_playing()
        game.run("stoptask(window)")
        game.let_pass(1)
        game.run("quit")
        game.send("frame")
        game.wait_for_end()

    def settled_picture(self):
        self.game.settle()
        # Full screen has a window of another place.
        return self.screen.picture((0, 0, *self.screen.SIZE))
