"""The developer console of a running game, as a person sees and uses it."""
from game import fit, load_picture

INPUT_HEIGHT = 20


class Console:
    def __init__(self, screen, game):
        self.screen = screen
        self.game = game
        self.close_picture = load_picture("close", "gui/{}.gif")
        self.title_top = load_picture("titlebar", "gui/{}.gif")[0, 0, :3]
        self.input_top = load_picture("text_input", "gui/{}.png")[0, 0, :3]

    # Where the window is in the game's picture: (x, y, w, h); None when it is not open.
    def rect(self):
        picture = self.game.picture()
        middles = (picture == self.close_picture[10, 10, :3]).all(axis=2).nonzero()
        corners = [(int(x) - 10, int(y) - 10) for y, x in zip(*middles)
                   if fit(picture[y - 10:, x - 10:], self.close_picture) == 1]
        if not corners:
            return None
        left, y = corners[0]
        right, top = left + 25, y - 2
        buttons = left - 50
        # The title bar reaches from 2 pixels beside the left border to the buttons.
        while left > 0 and (picture[y, left - 1] == self.title_top).all() or left > buttons:
            left -= 1
        lines = (picture[top:, left + 2] == self.input_top).all(axis=1).nonzero()[0]
        if not len(lines):
            return None
        return left - 2, top, right - left + 2, int(lines[-1]) + INPUT_HEIGHT + 2

    # None: until it is closed.
    def wait_for_rect(self, rect):
        self.game.wait_for(lambda: self.rect() == rect, f"a console at {rect}")

    def open(self):
        self.screen.tap("F1")
        self.wait_for_rect((10, 10, 400, 200))

    def enter(self, line):
        self.screen.type(line)
        self.screen.tap("Return")
        self.game.wait_for_log(f"( ) {line}\n")

    def click(self, x, y):
        self.game.point_at(x + 5, y)  # a pointer that does not move reports no place
        self.game.click_at(x, y)
        self._let_it_be_no_double_click()

    def click_input(self):
        x, y, _, h = self.game.wait_for(self.rect, "the console")
        self.click(x + 100, y + h - INPUT_HEIGHT // 2)

    def drag(self, start, end):
        self.game.point_at(*start)
        self.screen.press(1)
        for step in range(1, 9):
            self.game.point_at(*(a + (b - a) * step // 8 for a, b in zip(start, end)))
        self.screen.release(1)
        self.screen.move_pointer(5, 5)  # where it covers nothing
        self._let_it_be_no_double_click()

    def _let_it_be_no_double_click(self):
        self.game.settle()
        self.game.let_pass(0.35)

    # Waits until the text in the input line is that many pixels wide.
    def wait_for_input(self, width):
        x, y, w, h = self.rect()

        def is_wide():
            shown = self.game.picture()[y + h - INPUT_HEIGHT + 2:y + h - 4, x + 4:x + w - 4]
            return (shown[:, width:] != shown[:, -1:]).any()
        self.game.wait_for(is_wide, "the typed text")
