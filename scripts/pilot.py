"""Plays as a person would: looks at the window, moves the pointer."""
from game import find_kitten

GRAVITY = 265  # pixels per second and second of play
OVEN_AIM_OFFSET = (30, 20)  # press from the lower right, so that the kitten climbs the left wall
STEP = 0.030  # seconds between two looks
REACTION = 0.035  # seconds between a pointer motion and its effect


# Presses the kitten steadily from the lower right, up the left wall and into the oven.
class Pilot:
    def __init__(self, game):
        self.game = game
        self.place = None
        self.velocity = (0.0, 0.0)
        self.seen = 0.0
        self.appeared = None
        self.dropping_until = 0.0

    # One look and one motion of the pointer; returns the picture.
    def step(self):
        began = self.game.now()
        picture = self.game.picture()
        self._look(find_kitten(picture), began)
        self.game.steer(*self._aim(self.game.now()))
        self.game.let_pass(max(0.0, STEP - (self.game.now() - began)))
        return picture

    def _look(self, place, now):
        if place is None:
            if now - self.seen > 1.0:
                self.appeared = None
            return
        age = now - self.seen
        if self.place is not None and 0 < age <= 0.25:
            self.velocity = ((place[0] - self.place[0]) / age,
                             (place[1] - self.place[1]) / age + GRAVITY * age)
        else:
            self.velocity = (0.0, 0.0)
        self.place, self.seen = place, now
        self.appeared = self.appeared or now

    def _aim(self, now):
        if now < self.dropping_until:
            return 680, 570
        if self.appeared is None:
            return 450, 430
        if now - self.appeared > 25:
            # It hangs somewhere: step aside, so that it falls.
            self.dropping_until, self.appeared = now + 4, None
            return 680, 570
        ahead = now - self.seen + REACTION
        if ahead > 0.25:
            return self.place[0], 430
        return (self.place[0] + self.velocity[0] * ahead + OVEN_AIM_OFFSET[0],
                self.place[1] + self.velocity[1] * ahead + GRAVITY * ahead ** 2
                + OVEN_AIM_OFFSET[1])
