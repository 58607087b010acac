"""What the window shows after its mode or its size has changed."""
from case import GameTest
from game import Stepper


class Redraw(GameTest):
    # With a stopped clock between the changes, the window equals what a full redraw shows.
    def test_full_screen_and_resize(self):
        _, game = self.start(kind=Stepper)
        game.start_playing()
        game.let_pass(1.4)
        # The world does not move from here on, while the clock lets the frames be drawn.
        game.run("pausetask(game)")
        full, small = "window::Fullscreen", "window::Resize(640, 480)"
        for line in (full, full, small, small, "window::Resize(800, 600)", f"{full};{full}"):
            game.run(line)
            self.assert_drawn(line)
        for width, height in ((700, 500), (900, 700)):  # as by its frame
            game.window.configure(width=width, height=height)
            self.screen.settle()
            game.wait_for_log(f"myHeight = {height}\n( ) drawing all\n")
            self.assert_drawn((width, height))

    def assert_drawn(self, change):
        shown = self.settled_picture()
        self.game.order("redraw")
        self.assertTrue((shown == self.settled_picture()).all(), change)
        self.assertGreater(shown.max(), 100, change)

    def settled_picture(self):
        self.game.settle()
        # Full screen has a window of another place.
        return self.screen.picture((0, 0, *self.screen.SIZE))

    def test_play_goes_on_without_the_window(self):
        _, game = self.start(kind=Stepper, build="asan")
        game.start_playing()
        game.run("stoptask(window)")
        game.let_pass(1)
        game.run("quit")
        game.send("frame")
        game.wait_for_end()
