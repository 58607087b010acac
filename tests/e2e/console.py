"""The developer console of a running game, as a person sees and uses it."""
from game import fit, load_picture

CLOSE_X, CLOSE_Y = 375, 2  # where its close button is


class Console:
    def __init__(self, screen, game):
        self.screen, self.game = screen, game
        self.close_picture = load_picture("close", "gui/{}.gif")

    # Where its corner is in the game's picture, by the close button; None when it is not open.
    def place(self):
        picture = self.game.picture()
        middles = (picture == self.close_picture[10, 10, :3]).all(axis=2).nonzero()
        for y, x in zip(*middles):
            if fit(picture[y - 10:, x - 10:], self.close_picture) == 1:
                return int(x) - 10 - CLOSE_X, int(y) - 10 - CLOSE_Y
        return None

    # None: until it is closed.
    def wait_for_place(self, place):
        self.game.wait_for(lambda: self.place() == place, f"a console at {place}")

    def open(self):
        self.screen.tap("F1")
        self.wait_for_place((10, 10))

    # Types the line where the focus is, and waits for what it writes to the log.
    def enter(self, line, logged, end="Return"):
        self.screen.type(line)
        self.screen.tap(end)
        self.game.wait_for_log(f"( ) {line}\n")
        self.game.wait_for_log(logged)

    def click(self, x, y):
        self.game.point_at(x + 5, y)  # a pointer that does not move reports no place
        self.game.click_at(x, y)
        self.game.settle()
        self.game.let_pass(0.35)  # so that the next one makes no double click
