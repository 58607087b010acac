"""The program ends in order when there is no memory for it."""
from case import GameTest
from game import Game

LINE = "There is no memory left; the program ends.\n"


# Every place that asks for memory lacks it once, each in a copy of the process.
class Starved(Game):
    PROGRAM = "brumble_starved"


class Memory(GameTest):
    def test_each_place_that_lacks_memory_ends_the_program_in_order(self):
        with Starved(lines="quit", environment={"SDL_VIDEODRIVER": "dummy"}) as game:
            output = game.process.stdout.read().decode()
            game.wait_for_end()
            log = game.log()
        self.assertRegex(output, r"\A\d{3,} places, 0 faults\n\Z")
        print(output, end="")
        self.assertEqual(log.count("<!> " + LINE), int(output.split()[0]))
