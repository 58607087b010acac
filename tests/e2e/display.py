# A virtual display with a window manager, a real pointer, and the pixels that it shows.

import contextlib
import os
import pathlib
import select
import subprocess
import tempfile
import time

import numpy
from Xlib import X, XK, display, error
from Xlib.ext import xtest
from Xlib.protocol import event


LIMIT = 60  # seconds that a wait may take: many, so that nothing fails on a busy machine


# Waits until the condition is true, and returns it; AssertionError when the time is up.
def wait_for(condition, what, seconds=LIMIT, pause=lambda: time.sleep(0.01)):
    end = time.monotonic() + seconds
    while not (result := condition()):
        assert time.monotonic() < end, f"{what} did not come within {seconds} s"
        pause()
    return result


# The next line of a pipe; AssertionError when none comes in time.
def read_line(stream):
    assert select.select([stream], [], [], LIMIT)[0], f"no line came within {LIMIT} s"
    return stream.readline()


# For use in a `with`. `_open` tells `undo` what to do at its end, and when opening fails.
class Scoped:
    def __enter__(self):
        with contextlib.ExitStack() as undo:
            self.folder = pathlib.Path(undo.enter_context(tempfile.TemporaryDirectory(
                prefix="brumble-run-", ignore_cleanup_errors=True)))
            self._open(undo)
            self.undo = undo.pop_all()
        return self

    def __exit__(self, *_):
        self.undo.close()


# A process that is ended with the scope.
def run_beside(undo, command, stdout=subprocess.DEVNULL, **how):
    process = undo.enter_context(
        subprocess.Popen(command, stdout=stdout, stderr=subprocess.DEVNULL, **how))
    undo.callback(process.terminate)
    return process


# Xvfb with openbox.
class Display(Scoped):
    SIZE = (1280, 960)
    MIDDLE = (240, 180, 800, 600)  # where full screen shows, and no window with a frame

    def _open(self, undo):
        server = run_beside(
            undo, ["Xvfb", "-noreset", "-displayfd", "1", "-fbdir", self.folder, "-nolisten", "tcp",
                   "-screen", "0", "{}x{}x24".format(*self.SIZE)], stdout=subprocess.PIPE, text=True)
        self.name = ":" + read_line(server.stdout).strip()
        self.environment = dict(os.environ, DISPLAY=self.name)
        run_beside(undo, ["openbox", "--sm-disable"], env=self.environment)
        self.connection = display.Display(self.name)
        undo.callback(self.connection.close)
        self.connection.xfixes_query_version()
        self.root = self.connection.screen().root
        # SDL recognises a key that the server repeats by the times of the events, which are too far
        # apart when the server is held up.
        self.connection.change_keyboard_control(auto_repeat_mode=X.AutoRepeatModeOff)
        # The manager announces itself before it has read its theme and fonts, which takes long the
        # first time on a machine; this list comes when it begins to manage windows.
        wait_for(lambda: self._property(self.root, "_NET_CLIENT_LIST"), "the window manager")
        self.asker = self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        # The server keeps its screen in a file, which ends with the pixels.
        width, height = self.SIZE
        memory = numpy.memmap(self.folder / "Xvfb_screen0", mode="r")
        self.pixels = memory[-4 * width * height:].reshape(height, width, 4)

    # What the rectangle (x, y, w, h) shows, as rows of (red, green, blue).
    def picture(self, rect):
        x, y, w, h = rect
        return self.pixels[y:y + h, x:x + w, 2::-1].copy()

    # Waits until the server has done everything and has sent what came of it.
    def sync(self):
        # Replies go out to all clients together, in any order: the second one implies the first.
        self.connection.sync()
        self.connection.sync()

    # Waits until the window manager, too, has done all that it had to do.
    def settle(self):
        extents = "_NET_FRAME_EXTENTS"
        self.asker.delete_property(self.connection.intern_atom(extents))
        self._ask_manager(self.asker, "_NET_REQUEST_FRAME_EXTENTS")
        wait_for(lambda: self._property(self.asker, extents), "the window manager's reply")
        self.sync()

    def _property(self, window, name):
        return window.get_full_property(self.connection.intern_atom(name), X.AnyPropertyType)

    def _ask_manager(self, window, message, source=0):
        self.root.send_event(
            event.ClientMessage(window=window, client_type=self.connection.intern_atom(message),
                                data=(32, (X.CurrentTime, source, 0, 0, 0))),
            event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.sync()

    def _fake(self, *what, **where):
        xtest.fake_input(self.connection, *what, **where)
        self.sync()

    def move_pointer(self, x, y):
        self._fake(X.MotionNotify, x=int(x), y=int(y))

    def click(self):
        self._fake(X.ButtonPress, X.Button1)
        self.settle()  # the window manager holds a press back, but no keys that come after it
        time.sleep(0.03)  # nobody's press is shorter
        self._fake(X.ButtonRelease, X.Button1)

    # A key has an X name, such as Escape, F11 or Alt_L, or is its key code.
    def _code(self, key):
        if isinstance(key, int):
            return key
        return self.connection.keysym_to_keycode(XK.string_to_keysym(key))

    @contextlib.contextmanager
    def held(self, *keys):
        for key in keys:
            self._fake(X.KeyPress, self._code(key))
        yield
        for key in reversed(keys):
            self._fake(X.KeyRelease, self._code(key))

    # Presses the keys in turn. None is held for so long that anybody repeats it. SDL takes a press
    # that follows at once for a repetition, and its queue is short.
    def tap(self, *keys, pause=0.05):
        for key in keys:
            xtest.fake_input(self.connection, X.KeyPress, self._code(key))
            self._fake(X.KeyRelease, self._code(key))
            time.sleep(pause)

    def cursor_is_visible(self):
        image = self.connection.xfixes_get_cursor_image(self.root)
        return any(pixel >> 24 for pixel in image.cursor_image)

    # The managed window of that title, or None.
    def find_window(self, title):
        clients = self._property(self.root, "_NET_CLIENT_LIST")
        for window_id in clients.value if clients else []:
            window = self.connection.create_resource_object("window", window_id)
            with contextlib.suppress(error.BadWindow):  # it has gone meanwhile
                if window.get_wm_name() == title:
                    return window
        return None

    # The window's client area on the screen: (x, y, w, h); None when it has gone.
    def rect_of(self, window):
        with contextlib.suppress(error.BadDrawable, error.BadWindow):
            geometry = window.get_geometry()
            corner = window.translate_coords(self.root, 0, 0)
            return -corner.x, -corner.y, geometry.width, geometry.height

    # As the close button of the window's frame does.
    def close_window(self, window):
        self._ask_manager(window, "_NET_CLOSE_WINDOW", 2)

    # Cuts the connection of the window's program.
    def kill(self, window):
        window.kill_client()
        self.sync()

    def focus(self, window):
        self.settle()  # the window manager may be about to give it to a new window
        window.set_input_focus(X.RevertToParent, X.CurrentTime)
        self.wait_for_focus(window)
        self.settle()

    def wait_for_focus(self, window):
        wait_for(lambda: self.connection.get_input_focus().focus == window, "the focus")

    # A window of another client than the program, to take the focus.
    def open_other(self):
        window = self.root.create_window(900, 600, 200, 200, 0, X.CopyFromParent)
        window.set_wm_name("Other")
        window.map()
        wait_for(lambda: self.find_window("Other"), "another window")
        self.settle()
        return window
