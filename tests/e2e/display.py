"""A virtual display with a window manager, a real pointer, and the pixels that it shows."""
import mmap
import os
import shutil
import struct
import subprocess
import tempfile
import time

import numpy
from Xlib import X, XK, display, error
from Xlib.ext import xfixes, xtest  # noqa: F401  (they register themselves)
from Xlib.protocol import event


def wait_for(condition, seconds, what="the condition"):
    """Asks every 10 ms until the answer is true; AssertionError when the time is up."""
    end = time.monotonic() + seconds
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError(f"{what} did not come within {seconds} s")
        time.sleep(0.01)


class Display:
    """Xvfb with openbox. Use it in a `with`."""

    SIZE = (1280, 960)
    MIDDLE = (240, 180, 800, 600)  # where full screen shows, and no window with a frame

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="brumble-display-")
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-noreset", "-displayfd", str(write), "-fbdir", self.folder,
             "-nolisten", "tcp", "-screen", "0", "{}x{}x24".format(*self.SIZE)],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as pipe:
            self.name = ":" + pipe.readline().strip()
        self.environment = dict(os.environ, DISPLAY=self.name)
        self.manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.connection = display.Display(self.name)
        self.connection.xfixes_query_version()
        self.root = self.connection.screen().root
        wait_for(self._manager_is_ready, 60, "the window manager")
        self._map_pixels()
        return self

    def __exit__(self, *_):
        if self.server.poll() is None:
            self.connection.close()
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()
        self.pixels = None
        shutil.rmtree(self.folder, ignore_errors=True)

    def _manager_is_ready(self):
        # It announces itself before it has read its theme and fonts, which takes long the first
        # time on a machine; this list comes when it begins to manage windows.
        atom = self.connection.intern_atom("_NET_CLIENT_LIST")
        return self.root.get_full_property(atom, X.AnyPropertyType)

    def _map_pixels(self):
        # The server keeps its screen in a file in the XWD format: a header of big-endian words, a
        # colour table, then the pixels.
        with open(os.path.join(self.folder, "Xvfb_screen0"), "rb") as file:
            memory = mmap.mmap(file.fileno(), 0, prot=mmap.PROT_READ)
        words = struct.unpack(">25I", memory[:100])
        start = words[0] + words[19] * 12
        stride, height, width = words[12], words[5], words[4]
        rows = numpy.frombuffer(memory, numpy.uint8, stride * height, start).reshape(height, stride)
        self.pixels = rows[:, :width * 4].reshape(height, width, 4)

    def picture(self, rect):
        """What the rectangle (x, y, w, h) shows, as rows of (red, green, blue)."""
        x, y, w, h = rect
        return self.pixels[y:y + h, x:x + w, 2::-1].copy()

    def scaled_picture(self, width, height):
        """The whole screen, shrunk to the size by the nearest pixels."""
        screen_width, screen_height = self.SIZE
        columns = (numpy.arange(width) + 0.5) * screen_width / width
        rows = (numpy.arange(height) + 0.5) * screen_height / height
        return self.pixels[rows.astype(int)][:, columns.astype(int), 2::-1]

    def sync(self):
        self.connection.sync()

    def _fake(self, *what, **where):
        xtest.fake_input(self.connection, *what, **where)
        self.sync()

    def move_pointer(self, x, y):
        self._fake(X.MotionNotify, x=int(x), y=int(y))

    def press(self, button):
        self._fake(X.ButtonPress, button)

    def release(self, button):
        self._fake(X.ButtonRelease, button)

    def click(self, button=1):
        self.press(button)
        time.sleep(0.03)
        self.release(button)

    def press_key(self, name):
        """A key by its X name, such as Escape, F11 or Alt_L, or by its key code."""
        self._fake(X.KeyPress, self._code(name))

    def release_key(self, name):
        self._fake(X.KeyRelease, self._code(name))

    def _code(self, name):
        if isinstance(name, int):
            return name
        return self.connection.keysym_to_keycode(XK.string_to_keysym(name))

    def tap(self, *names, pause=0.05):
        for name in names:
            self.press_key(name)
            time.sleep(pause)
            self.release_key(name)
            time.sleep(pause)

    def cursor_is_visible(self):
        image = self.connection.xfixes_get_cursor_image(self.root)
        return any(pixel >> 24 for pixel in image.cursor_image)

    def find_window(self, title):
        """The managed window of that title, or None."""
        clients = self.root.get_full_property(
            self.connection.intern_atom("_NET_CLIENT_LIST"), X.AnyPropertyType)
        for window_id in clients.value if clients else []:
            window = self.connection.create_resource_object("window", window_id)
            try:
                if window.get_wm_name() == title:
                    return window
            except error.BadWindow:
                continue  # it has gone meanwhile
        return None

    def rect_of(self, window):
        """The window's client area on the screen: (x, y, w, h); None when it has gone."""
        try:
            geometry = window.get_geometry()
            corner = window.translate_coords(self.root, 0, 0)
        except (error.BadDrawable, error.BadWindow):
            return None
        return -corner.x, -corner.y, geometry.width, geometry.height

    def close_window(self, window):
        """As the close button of the window's frame does."""
        message = event.ClientMessage(
            window=window, client_type=self.connection.intern_atom("_NET_CLOSE_WINDOW"),
            data=(32, [X.CurrentTime, 2, 0, 0, 0]))
        self.root.send_event(message,
                             event_mask=X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.sync()

    def run(self, *command):
        return subprocess.run(command, env=self.environment, check=True, capture_output=True,
                              text=True).stdout

    def focus(self, window):
        self.run("xdotool", "windowfocus", "--sync", str(window.id))

    def open_other(self):
        """A window of another client than the program, to take the focus."""
        window = self.root.create_window(900, 600, 200, 200, 0, X.CopyFromParent)
        window.set_wm_name("Other")
        window.map()
        self.sync()
        return wait_for(lambda: self.find_window("Other"), 10, "another window")


class Compositor:
    """A Wayland compositor. Its one window on the screen shows its one client in full. Use it in a
    `with`."""

    TITLE = None  # the window sets no title of the old kind

    def __init__(self, screen):
        self.screen = screen

    def __enter__(self):
        self.folder = tempfile.mkdtemp(prefix="brumble-wayland-")
        self.environment = {"XDG_RUNTIME_DIR": self.folder, "WAYLAND_DISPLAY": "wayland-test"}
        self.process = subprocess.Popen(
            ["weston", "--no-config", "--socket=wayland-test", "--shell=kiosk-shell.so",
             "--backend=x11-backend.so", "--use-pixman", "--width=800", "--height=600"],
            env=dict(self.screen.environment, XDG_RUNTIME_DIR=self.folder),
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for(lambda: os.path.exists(os.path.join(self.folder, "wayland-test")), 10, "Wayland")
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        shutil.rmtree(self.folder, ignore_errors=True)
