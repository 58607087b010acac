"""The window that a failed assertion opens, in a program whose assertions fail on order."""
import contextlib
import ctypes
import os
import signal
import socket
import subprocess

import numpy
from Xlib import X

from case import BUILDS, GameTest, for_each
from display import LIMIT, read_line, wait_for
from game import ROOT, Stepper

WINDOW = """
taskload(sdl)
starttask(window, window, 1000, 800, 600, 32, 0, 1, "Brumble")
starttask(event, event, 10)
starttask(mouse, mouse, 20)"""
FONT = "-misc-fixed-medium-r-semicondensed--13-*-*-*-*-*-iso8859-1"
# Places in the dialog. The buttons are 25 lower for each variable.
BUTTONS = {"Ignore": (47, 165), "Ignore All": (127, 165), "Send mail": (207, 165),
           "Continue": (47, 190), "Debug": (127, 190), "Abort": (207, 190)}
DESCRIPTION, VALUES, CHANGES = (280, 140), ((160, 160), (160, 185)), ((245, 160), (245, 185))


# A run with the task of tests/e2e/asserter.cpp. "Fail" has two variables: count, which is 3, and
# a constant, 2.
class Asserter(Stepper):
    def __init__(self, screen=None, build="release", lines=""):
        super().__init__(screen, build, lines + "\nstarttask(asserter, asserter, 2)",
                         prepare=lambda runtime: (runtime / "autoexec.txt").write_text(""))

    # Returns what it prints.
    def do(self, command):
        return self.run(f"asserter::{command}")

    # Fails an assertion; returns the size of its dialog when that is in its place.
    def fail(self, command):
        self.send(f"run asserter::{command}")
        self.dialog = wait_for(lambda: self.screen.find_window("CAssert error"), "the dialog")
        self.screen.settle()
        self.rect = self.screen.rect_of(self.dialog)
        return self.rect[2:]

    # Keys that are typed now go there.
    def click_into(self, field):
        self.click_at(*field)
        self.screen.wait_for_focus(self.dialog)

    def push(self, button):
        x, y = BUTTONS[button]
        self.click_at(x, y + self.rect[3] - 240)

    def close(self, button):
        self.push(button)
        self.reply()

    # Waits until the dialog shows each at its left edge.
    def wait_for_texts(self, *texts):
        self.screen.move_pointer(5, 5)  # where the pointer covers nothing
        x, y, _, height = self.rect
        for text in texts:
            drawn = self.draw(text)
            place = (x + 10, y, drawn.shape[1], height)
            wait_for(lambda: drawn.tobytes() in self.screen.picture(place).tobytes(), text)

    # How the display draws it, as rows of (red, green, blue).
    def draw(self, text):
        root = self.screen.root
        font = self.screen.connection.open_font(FONT)
        width, height = font.query_text_extents(text.encode()).overall_width, 13
        pixmap = root.create_pixmap(width, height, 24)
        pixmap.image_text(root.create_gc(font=font, background=0xDCDAD5, foreground=0), 0, 11, text)
        data = pixmap.get_image(0, 0, width, height, X.ZPixmap, 0xFFFFFF).data
        return numpy.frombuffer(data, numpy.uint8).reshape(height, width, 4)[:, :, 2::-1]

    # What is done meanwhile comes all at once, when the program is at work again.
    @contextlib.contextmanager
    def held_up(self):
        self.process.send_signal(signal.SIGSTOP)
        yield
        self.screen.settle()
        self.process.send_signal(signal.SIGCONT)

    def change_variables(self):
        typed = ("End", "4", "5", "BackSpace"), ("Home", "Delete", "9")
        for value, change, keys in zip(VALUES, CHANGES, typed):
            self.click_into(value)
            self.screen.tap(*keys, pause=0)
            self.click_at(*change)


class Dialog(GameTest):
    def start(self, build="release", **how):
        return super().start(build, Asserter, **how)

    @for_each(build=BUILDS)
    def test_each_button(self, build):
        screen, game = self.start(build)
        self.assertEqual(game.fail("Fail"), (350, 290))
        self.assertEqual(game.dialog.get_wm_class()[1], "CAssertError")
        self.assertIn("<!> Assertion failed: touchy.value < 0 (", game.log())
        screen.close_window(game.dialog)
        with game.held_up():  # what comes after a change is not lost
            game.change_variables()
            game.push("Continue")
        game.reply()
        self.assertIn("count 34,", game.do("Tell"))
        for command, button in (("Fail", "Debug"), ("FailWith 1", "Continue"), ("Fail", "Ignore")):
            game.fail(command)
            game.close(button)
        game.do("Fail")
        game.fail("FailWith 1")
        game.close("Ignore All")
        for command in ("FailWith 1", "Unban", "Fail"):
            game.do(command)
        self.assertEqual(game.fail("FailWith 1"), (350, 240))
        game.push("Abort")
        game.wait_for_end(-signal.SIGABRT)

    def test_long_texts_make_it_higher_and_scroll(self):
        screen, game = self.start()
        self.assertEqual(game.fail("FailWith 10"), (350, 240 + 7 * 13 + 6))
        game.wait_for_texts("number 1", "number 10", "numbers < 0")
        game.close("Continue")
        self.assertEqual(game.fail("FailWith 100"), (350, 600))
        game.point_at(50, 50)
        for _ in range(100):
            screen.click(5)
        game.wait_for_texts("number 100", "numbers < 0")

    def test_mail(self):
        screen, game = self.start()
        server = subprocess.Popen([ROOT / "tests/support/mailserver.py"], stdout=subprocess.PIPE,
                                  text=True)
        self.addCleanup(server.kill)
        game.run(f"mail_recipient = dev@localhost; mail_port = {read_line(server.stdout)}".strip())
        game.fail("Fail")
        game.click_into(DESCRIPTION)
        with screen.held("Control_L"):
            screen.type("a")
        screen.type("it broke")
        game.push("Send mail")
        self.assertIn(" limit = 2\n\nit broke\n", server.communicate(timeout=LIMIT)[0])
        game.wait_for_texts("Sent")
        game.close("Continue")
        with socket.create_server(("127.0.0.1", 0)) as silent:
            game.run(f"mail_port = {silent.getsockname()[1]}")
            game.fail("FailWith 1")
            game.push("Send mail")
            game.wait_for_texts("Sending...")
            with game.held_up():
                game.push("Continue")  # by somebody who does not know yet that it fails
        game.wait_for_texts("Error on sending line: HELO localhost")
        game.close("Continue")

    def test_debugger(self):
        ptrace = ctypes.CDLL(None).ptrace
        seize, detach = 0x4206, 17
        _, game = self.start()
        game.fail("Fail")
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
        before = game.do("Tell")
        self.assertIn(", full, grabbed", before)
        game.fail("Fail")
        # It succeeds where nobody else has the grab.
        grab = False, 0, X.GrabModeAsync, X.GrabModeAsync, X.NONE, X.NONE, X.CurrentTime
        wait_for(lambda: screen.root.grab_pointer(*grab) == X.GrabSuccess, "the pointer to grab")
        screen.connection.ungrab_pointer(X.CurrentTime)
        game.close("Continue")
        # The window's events of coming and going must resize nothing afterwards, either.
        for _ in range(5):
            game.order("frame")
        self.assertEqual(game.do("Tell"), before)


# No display, or the connection cut: reported once for each place, and on it goes.
class Without(GameTest):
    def fail_without(self, game, reason, fail=Asserter.do):
        for command in ("Fail", "Fail", "FailWith 1"):
            fail(game, command)
        for report in (game.standard_error(), game.log()):
            for text in ("count < limit.value", "const limit = 2", "number 1\n"):
                self.assertEqual(report.count(text), 1, report)
            self.assertEqual(report.count(reason), 2, report)

    def test_display(self):
        with Asserter() as game:
            self.fail_without(game, "there is no display")

    @for_each(build=BUILDS)
    def test_the_connection(self, build):
        def fail(game, command):
            game.fail(command)
            game.dialog.kill_client()
            game.screen.sync()
            game.reply()

        _, game = self.start(build, Asserter)
        self.fail_without(game, "the display has gone", fail)
        game.process.stdin.close()
        game.wait_for_end()
