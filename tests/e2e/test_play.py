# A whole game and the first kitten of the next, played with a real pointer, and with a clock that waits
# for it.

from case import GameTest
from game import WHOLE_GAME, Stepper, find_kitten


class Play(GameTest):
    def test_a_kitten_spins_and_another_game_follows(self):
        screen, game = self.start(kind=Stepper)
        game.start_playing()
        game.wait_for(self.spin_a_kitten, "a spin", WHOLE_GAME)
        game.point_at(5, 5)
        game.wait_for_log("Gameover", seconds=WHOLE_GAME)
        game.wait_for_sprite("gameover")
        self.assertTrue(screen.cursor_is_visible(), "game over shows the cursor")
        game.click_at(400, 450)
        game.settle()
        self.assertFalse(screen.cursor_is_visible(), "the second game hides the cursor")
        game.wait_for_kitten()

    # Pushes whatever kitten is there from its sides; returns whether one has spun.
    def spin_a_kitten(self):
        if place := find_kitten(self.game.picture()):
            side = 30 if self.game.now() % 2 < 1 else -30
            self.game.steer(place[0] + side, place[1])
        return "kitten_spin_count: 1" in self.game.log()
