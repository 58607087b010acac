# The window that a failed assertion opens, in a program whose assertions fail on order.

import ctypes
import os
import signal
import subprocess

import numpy
from Xlib import X

from case import GameTest
from display import LIMIT, read_line, wait_for
from game import ROOT, Stepper

WINDOW = "taskload(sdl); starttask(window, window); starttask(event, event); starttask(mouse, mouse)"
FONT = "-misc-fixed-medium-r-semicondensed--13-*-*-*-*-*-iso8859-1"
# Places in the dialog. The buttons are 25 lower for each variable.
BUTTONS = {"Ignore": (47, 165), "Ignore All": (127, 165), "Send mail": (207, 165),
           "Continue": (47, 190), "Debug": (127, 190), "Abort": (207, 190)}
DESCRIPTION, VALUES, CHANGES = (280, 140), ((160, 160), (160, 185)), ((245, 160), (245, 185))


# Only the given lines are run. "fail" has two variables: ourCount, which is 3, and a constant, 2;
# the reply has the count and the state of the window.
class Asserter(Stepper):
    def __init__(self, screen=None, lines=""):
        super().__init__(screen, "asan", lines,
                         prepare=lambda runtime: (runtime / "autoexec.txt").write_text(""))

    # Fails an assertion; returns the size of its dialog when that is in its place.
    def fail(self, order):
        self.send(order)
        self.dialog = wait_for(lambda: self.screen.find_window("CAssert error"), "the dialog")
        self.screen.settle()
        self.rect = self.screen.rect_of(self.dialog)
        return self.rect[2:]

    def push(self, button):
        x, y = BUTTONS[button]
        self.click_at(x, y + self.rect[3] - 240)

    def close(self, button):
        self.push(button)
        return self.reply()

    # Waits until the dialog shows the text, as the display draws it, at its left edge.
    def wait_for_text(self, text):
        self.screen.move_pointer(5, 5)  # where the pointer covers nothing
        root, font = self.screen.root, self.screen.connection.open_font(FONT)
        width = font.query_text_extents(text.encode()).overall_width
        pixmap = root.create_pixmap(width, 13, 24)
        pixmap.image_text(root.create_gc(font=font, background=0xDCDAD5, foreground=0), 0, 11, text)
        data = pixmap.get_image(0, 0, width, 13, X.ZPixmap, 0xFFFFFF).data
        drawn = numpy.frombuffer(data, numpy.uint8).reshape(13, width, 4)[:, :, 2::-1].tobytes()
        place = (self.rect[0] + 10, self.rect[1], width, self.rect[3])
        wait_for(lambda: drawn in self.screen.picture(place).tobytes(), text)


class Dialog(GameTest):
    def start(self, **how):
        return super().start(kind=Asserter, **how)

    def test_each_button_does_what_it_says(self):
        screen, game = self.start()
        self.assertEqual(game.fail("fail"), (350, 290))
        self.assertEqual(game.dialog.get_wm_class()[1], "CAssertError")
        self.assertIn("<!> Assertion failed: touchy.value < 0 (", game.log())
        screen.close_window(game.dialog)
        typed = ("End", "4", "5", "BackSpace"), ("Home", "Delete", "9")
        for value, change, keys in zip(VALUES, CHANGES, typed):
            game.click_at(*value)
            screen.wait_for_focus(game.dialog)
            screen.tap(*keys, pause=0)
            game.click_at(*change)
        self.assertEqual(game.close("Continue"), "count 34\n")
        for command, button in (("fail", "Debug"), ("fail 1", "Continue"), ("fail", "Ignore")):
            game.fail(command)
            game.close(button)
        game.order("fail")
        game.fail("fail 1")
        game.close("Ignore All")
        unban = "run starttask(debug, debug)", "run debug::BanAsserts(0)"
        for command in ("fail 1", *unban, "fail"):
            game.order(command)
        self.assertEqual(game.fail("fail 1"), (350, 240))
        game.push("Abort")
        game.wait_for_end(-signal.SIGABRT)

    def test_long_texts_make_it_higher(self):
        _, game = self.start()
        self.assertEqual(game.fail("fail 10"), (350, 240 + 7 * 13 + 6))
        for text in ("first", "last", "lines == 0"):
            game.wait_for_text(text)
        game.close("Continue")
        self.assertEqual(game.fail("fail 100"), (350, 600))

    # In a game, of whose recording the dialog tells, and the mail does not.
    def test_the_mail_has_what_was_typed(self):
        screen, game = self.start()
        game.run(f"load({ROOT}/runtime/autoexec.txt)")
        for order in ("click", "click", "advance 100"):
            game.order(order)
            game.order("frame")
        server = subprocess.Popen([ROOT / "tests/support/mailserver.py"], stdout=subprocess.PIPE,
                                  text=True)
        self.addCleanup(server.kill)
        game.run(f"mail_recipient = dev@localhost; mail_port = {read_line(server.stdout)}".strip())
        game.fail("fail")
        game.wait_for_text("The game up to this frame is in ")
        game.click_at(*DESCRIPTION)
        screen.wait_for_focus(game.dialog)
        with screen.held("Control_L"):
            screen.tap("a")
        screen.tap(*"broken")
        game.push("Send mail")
        mail = server.communicate(timeout=LIMIT)[0]
        self.assertIn(" limit = 2\n\nbroken\n", mail)
        self.assertNotIn("replay", mail)
        game.wait_for_text("Sent")
        game.push("Send mail")
        game.wait_for_text("Error couldn't connect to host localhost ")
        game.close("Continue")

    def test_the_debug_button_stops_in_a_debugger(self):
        ptrace = ctypes.CDLL(None).ptrace
        seize, detach = 0x4206, 17
        _, game = self.start()
        game.fail("fail")
        self.assertEqual(ptrace(seize, game.process.pid, 0, 0), 0)
        game.push("Debug")
        status = wait_for(lambda: os.waitpid(game.process.pid, os.WNOHANG)[1], "the break")
        self.assertEqual(os.WSTOPSIG(status), signal.SIGTRAP)
        ptrace(detach, game.process.pid, 0, 0)
        game.reply()

    def test_full_screen_and_grab_are_left_and_come_back(self):
        screen, game = self.start(lines=WINDOW)
        game.run("window::Fullscreen")
        game.run("mouse::CaptureInput(1)")
        game.fail("fail")
        # It succeeds where nobody else has the grab.
        grab = False, 0, X.GrabModeAsync, X.GrabModeAsync, X.NONE, X.NONE, X.CurrentTime
        wait_for(lambda: screen.root.grab_pointer(*grab) == X.GrabSuccess, "the pointer to grab")
        screen.connection.ungrab_pointer(X.CurrentTime)
        state = "count 3\n640 x 480 full grabbed\n"
        self.assertEqual(game.close("Continue"), state)
        # The window's events of coming and going must resize nothing afterwards, either.
        for _ in range(5):
            game.order("frame")
        game.fail("fail")
        self.assertEqual(game.close("Continue"), state)

    # No display, or the connection cut: reported once for each place, and on it goes.
    def fail_without(self, game, reason, fail):
        for command in ("fail", "fail", "fail 1"):
            fail(command)
        for report in (game.standard_error(), game.log()):
            for text in ("ourCount < limit.value", "const limit = 2", "first\n"):
                self.assertEqual(report.count(text), 1, report)
            self.assertEqual(report.count(reason), 2, report)

    def test_without_a_display_it_is_only_reported(self):
        with Asserter() as game:
            self.fail_without(game, "there is no display", game.order)

    def test_a_lost_connection_is_only_reported(self):
        def fail(command):
            game.fail(command)
            screen.kill(game.dialog)
            game.reply()

        screen, game = self.start()
        self.fail_without(game, "the display has gone", fail)
        game.process.stdin.close()
        game.wait_for_end()
