"""The developer console of a running game, as a person sees and uses it."""
import time

import numpy
from PIL import Image

from display import wait_for
from game import ROOT

TITLE_HEIGHT = 22  # with the border above it
INPUT_HEIGHT = 20


def load_widget(name):
    with Image.open(ROOT / "runtime" / "data" / "gui" / name) as image:
        return numpy.asarray(image.convert("RGB"))


class Console:
    def __init__(self, screen, game):
        self.screen = screen
        self.game = game
        self.close_picture = load_widget("close.gif")
        self.title_top = load_widget("titlebar.gif")[0, 0]
        self.input_top = load_widget("text_input.png")[0, 0]

    def rect(self):
        """Where the window is in the game's picture: (x, y, w, h); None when it is not open."""
        picture = self.game.picture()
        corner = self._find(picture, self.close_picture)
        if corner is None:
            return None
        x, y = corner
        right, top = x + 25, y - 2
        left = x
        # The title bar reaches from 2 pixels behind the left border to the buttons.
        while left > 0 and (picture[y, left - 1] == self.title_top).all() or left > x - 50:
            left -= 1
        lines = (picture[top:, left + 2] == self.input_top).all(axis=1).nonzero()[0]
        if not len(lines):
            return None
        return left - 2, top, right - left + 2, int(lines[-1]) + INPUT_HEIGHT + 2

    @staticmethod
    def _find(picture, sample):
        height, width = sample.shape[:2]
        rows, columns = (picture == sample[height // 2, width // 2]).all(axis=2).nonzero()
        for y, x in zip(rows - height // 2, columns - width // 2):
            if y >= 0 and x >= 0 and numpy.array_equal(picture[y:y + height, x:x + width], sample):
                return int(x), int(y)
        return None

    def wait_until_open(self):
        return wait_for(self.rect, 5, "the console")

    def wait_until_closed(self):
        wait_for(lambda: self.rect() is None, 5, "the end of the console")

    def wait_for_rect(self, rect):
        wait_for(lambda: self.rect() == rect, 5, f"a console at {rect}, not {self.rect()},")

    def tap(self, key):
        self.screen.press_key(key)
        time.sleep(0.05)
        self.screen.release_key(key)
        time.sleep(0.05)

    def type(self, text):
        self.screen.run("xdotool", "type", "--delay", "25", text)

    def enter(self, line):
        self.type(line)
        self.tap("Return")

    def click(self, x, y):
        self.game.point_at(x + 5, y)  # a pointer that stays in its place tells nobody where that is
        self.game.point_at(x, y)
        time.sleep(0.1)
        self.screen.click()
        time.sleep(0.35)  # the next press is no double click

    def click_input(self):
        x, y, _, h = self.wait_until_open()
        self.click(x + 100, y + h - INPUT_HEIGHT // 2)

    def drag(self, start, end):
        self.game.point_at(*start)
        time.sleep(0.1)
        self.screen.press(1)
        steps = 8
        for step in range(1, steps + 1):
            self.game.point_at(*(a + (b - a) * step // steps for a, b in zip(start, end)))
            time.sleep(0.03)
        self.screen.release(1)
        time.sleep(0.35)

    def input_picture(self):
        """What stands in the input line, with the cursor at its end."""
        self.tap("End")
        time.sleep(0.15)
        x, y, w, h = self.rect()
        return self.game.picture()[y + h - INPUT_HEIGHT:y + h - 2, x + 2:x + w - 2].copy()

    def log_picture(self):
        x, y, w, h = self.rect()
        return self.game.picture()[y + TITLE_HEIGHT:y + h - INPUT_HEIGHT - 2, x + 2:x + w - 2].copy()
