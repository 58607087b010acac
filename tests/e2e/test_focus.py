# What the focus changes, and the use of the processor.

import time

from case import GameTest


# Play with a window that has the focus, loses it to another, and gets it back.
class Focus(GameTest):
    def test_play_pauses_without_it_and_rests_with_and_without(self):
        screen, game = self.start()
        game.wait_for_title()
        self.assert_rests("title")
        game.start_playing()
        # The cursor is part of the picture where it shows: keep it outside the window.
        screen.move_pointer(5, 5)
        screen.focus(screen.open_other())
        game.wait_for_cursor(True)
        game.wait_for_sprite("paused")
        self.assert_rests("without the focus")
        screen.focus(game.window)
        game.point_at(20, 20)
        game.wait_for_cursor(False)
        self.assert_rests("play")

    # A program that never rests takes a whole core, and a thread that wakes every millisecond keeps
    # it from sleeping. Neither bound depends on how busy the machine is: the main thread rests after
    # the work of a frame at most, and for some milliseconds.
    def assert_rests(self, where):
        game, main = self.game, self.game.process.pid
        used, rested, began = game.processor_seconds(f"task/{main}"), game.rests(), time.monotonic()
        game.let_pass(2)
        used = game.processor_seconds(f"task/{main}") - used
        rests = game.rests() - rested
        self.assertLess(used / rests[main], 0.003, f"{where}: work for a rest")
        busiest = max(rests.values()) / (time.monotonic() - began)
        self.assertLess(busiest, 700, f"{where}: how often a thread rests in a second")
