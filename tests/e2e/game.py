# The real program, started in a copy of runtime/ and watched from outside.

import collections
import contextlib
import functools
import os
import pathlib
import re
import shutil
import subprocess
import time

import numpy
from PIL import Image

from display import LIMIT, Scoped, read_line, wait_for

ROOT = pathlib.Path(__file__).resolve().parents[2]


# One run; what is still running at the end is killed.
class Game(Scoped):
    PROGRAM = "brumble"
    TITLE = "Brumble"  # of the window

    # `prepare` may change the copy of runtime/ before the start; then the lines are added to its
    # autoexec.txt.
    def __init__(self, screen=None, build="release", lines="", environment={},
                 prepare=lambda runtime: None):
        self.screen, self.lines, self.prepare = screen, lines, prepare
        self.executable, self.environment = ROOT / "build" / build / self.PROGRAM, environment

    def _open(self, undo):
        folder, environment = self._prepare()
        errors = undo.enter_context(open(self.folder / "stderr", "w"))
        self.process = undo.enter_context(self._run(folder, environment, errors))
        undo.callback(self.process.kill)

    def _run(self, folder, environment, errors):
        return subprocess.Popen(self.executable, cwd=folder, env=environment, stderr=errors,
                                stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0)

    # Returns the folder to start it in, and the environment.
    def _prepare(self):
        self.runtime = self.folder / "runtime"
        shutil.copytree(ROOT / "runtime", self.runtime,
                        ignore=shutil.ignore_patterns("log.txt", "user.txt", "scores.*", "replays"))
        self.prepare(self.runtime)
        if (self.runtime / "autoexec.txt").exists():
            with open(self.runtime / "autoexec.txt", "a") as script:
                script.write("\ngame_demo_after = 0\n" + self.lines + "\n")
        # An empty name is that of no display.
        return self.runtime, {
            **os.environ, "DISPLAY": self.screen.name if self.screen else "", "WAYLAND_DISPLAY": "",
            "SDL_VIDEODRIVER": "", "SDL_AUDIODRIVER": "dummy",
            "LSAN_OPTIONS": f"suppressions={ROOT}/tests/support/leaks.supp:print_suppressions=0",
            **self.environment}

    # What it reports.

    def log(self):
        path = self.runtime / "log.txt"
        return path.read_text(errors="replace") if path.is_file() else ""

    def standard_error(self):
        return (self.folder / "stderr").read_text(errors="replace")

    # Waits for it while the game goes on.
    def wait_for(self, condition, what, seconds=LIMIT):
        return wait_for(condition, what, seconds, lambda: self.let_pass(0.01))

    def wait_for_log(self, text, *, times=1, seconds=LIMIT):
        self.wait_for(lambda: self.log().count(text) >= times, f"{text!r} in the log", seconds)

    # Whether it runs on SDL 1.2 itself, not on the library that takes its place.
    def has_classic_sdl(self):
        self.wait_for_log("Using driver")
        return int(re.search(r"Running with SDL version: 1\.2\.(\d+)", self.log())[1]) < 50

    # Fails when it ends with another status.
    def wait_for_end(self, status=0):
        wait_for(lambda: self.process.poll() is not None, "the end of the program")
        assert self.process.returncode == status, (
            f"it ended with {self.process.returncode}, not {status}: {self.standard_error()}")

    # Its time.

    def let_pass(self, seconds):
        time.sleep(seconds)

    # Waits until the game has taken notice of all that was done so far, and shows it.
    def settle(self):
        self.screen.settle()
        # Each frame ends with a rest; a few come from waiting for the display.
        main, before = self.process.pid, self.rests()
        wait_for(lambda: self.rests()[main] > before[main] + 30, "some frames")

    # How often each of its threads has given the processor away of its own will.
    def rests(self):
        tasks = pathlib.Path(f"/proc/{self.process.pid}/task").iterdir()
        return collections.Counter({
            int(task.name): int(re.search(r"\nvoluntary_ctxt_switches:\s*(\d+)",
                                          (task / "status").read_text())[1]) for task in tasks})

    # What the program, or its main thread alone, has used of a core so far.
    def processor_seconds(self, thread=""):
        stat = pathlib.Path(f"/proc/{self.process.pid}/{thread}/stat").read_text()
        user, system = stat.rsplit(")", 1)[1].split()[11:13]
        return (int(user) + int(system)) / os.sysconf("SC_CLK_TCK")

    # The window.

    @property
    def window(self):
        # Looked for each time: the compatibility library replaces it now and then.
        return self.wait_for(lambda: self.screen.find_window(self.TITLE), "the window")

    def wait_for_window(self):
        self.rect = self.wait_for(lambda: self.screen.rect_of(self.window), "its place")

    def picture(self):
        return self.screen.picture(self.rect)

    # Whether the window shows most of that full-screen picture of data/gfx/.
    def shows(self, name):
        return fit(self.picture(), load_picture(name)) >= 0.6

    def wait_for_picture(self, name):
        self.wait_for(lambda: self.shows(name), f"the picture {name}")

    # What full screen shows, which the compatibility library scales up, in its own size.
    def full_screen_picture(self):
        if self.has_classic_sdl():
            return self.screen.picture(self.screen.MIDDLE)
        shown = Image.fromarray(self.screen.picture((0, 0, *self.screen.SIZE)))
        return numpy.asarray(shown.resize((800, 600), Image.Resampling.NEAREST))

    # Waits until that sprite of data/gfx/ shows in the place that its file gives; others may be over it.
    def wait_for_sprite(self, name):
        text = (ROOT / f"runtime/data/gfx/{name}.xml").read_text()
        x, y = map(int, re.search(r'<ImageRect x="(\d+)" y="(\d+)"', text).groups())
        expected = load_picture(name)
        self.wait_for(lambda: fit(self.picture()[y:, x:], expected) > 0.7, f"the sprite {name}")

    def wait_for_cursor(self, is_shown):
        self.wait_for(lambda: self.screen.cursor_is_visible() == is_shown, f"cursor {is_shown}")

    # Moves the real pointer to a place in the window.
    def point_at(self, x, y):
        self.screen.move_pointer(self.rect[0] + x, self.rect[1] + y)

    # Moves it to where the monster is wanted at a place in the window: undoes the game's own scaling
    # of the pointer (physicshandle.cpp).
    def steer(self, x, y):
        x, y = (x - 113) / 0.71375, (y - 20) / 0.93333334
        self.point_at(min(max(x, 0), 799), min(max(y, 0), 599))

    def click(self):
        self.screen.click()

    def click_at(self, x, y):
        self.point_at(x, y)
        self.click()

    def wait_for_title(self):
        self.wait_for_window()
        self.point_at(400, 300)
        self.wait_for_picture("title_screen")

    def start_playing(self):
        self.wait_for_title()
        self.click()
        self.wait_for_picture("help_screen")
        self.click()
        self.wait_for(lambda: not self.shows("help_screen"), "play")

    # Waits until a kitten is well inside the window.
    def wait_for_kitten(self):
        self.wait_for(lambda: (find_kitten(self.picture()) or (0, 0))[1] > 60, "a kitten")


# The installed game, started by its launcher in an empty home.
class Installed(Game):
    def __init__(self, screen, launcher):
        super().__init__(screen)
        self.executable = launcher

    def _prepare(self):
        self.home = self.folder / "home"
        self.home.mkdir()
        self.runtime = self.home / ".local/share/brumble"
        return self.home, {"PATH": os.environ["PATH"], "HOME": str(self.home),
                           "DISPLAY": self.screen.name, "SDL_AUDIODRIVER": "dummy"}


# A run with a clock of its own that waits for an order before each frame; tests/e2e/stepper.cpp
# lists the orders. Nothing in it depends on how fast the machine is.
class Stepper(Game):
    PROGRAM = "brumble_stepper"
    FRAME = 17  # milliseconds of play: the next one is drawn then

    def __init__(self, screen=None, build="release", lines="", **how):
        super().__init__(
            screen, build, lines + "\nkernel_frame_sleep = 0\nstarttask(stepper, stepper, 1)", **how)
        self.clock = 0

    def send(self, line):
        self.process.stdin.write(f"{line}\n".encode())

    def order(self, line):
        self.send(line)
        return self.reply()

    # What the program prints up to its next "ok".
    def reply(self):
        lines = []
        while (line := read_line(self.process.stdout)) != b"ok\n":
            assert line, "the program ended before it replied: " + self.standard_error()
            lines.append(line)
        return b"".join(lines).decode()

    def run(self, line):
        return self.order(f"run {line}")

    def frame(self):
        self.order(f"advance {self.FRAME}")
        self.order("frame")
        self.clock += self.FRAME

    # The time of play, in seconds.
    def now(self):
        return self.clock / 1000

    def let_pass(self, seconds):
        end = self.clock + 1000 * seconds
        while self.clock < end:
            self.frame()

    def settle(self):
        # What the window manager does may make the program do something, and that again.
        for _ in range(3):
            self.screen.settle()
            self.frame()


# The stepper, or a program made of it, without a window, when it has run with all orders at once,
# which may be many games.
@contextlib.contextmanager
def headless(program, orders, environment={}, scores="", seconds=7200):
    def prepare(runtime):
        # More sounds at a time than there are when time runs faster, and no pointer, which SDL would
        # draw into the picture.
        script = runtime / "autoexec.txt"
        script.write_text(script.read_text().replace("512, 16)", "512, 256)")
                          .replace("starttask(event", "// starttask(event"))
        (runtime / "scores.txt").write_text(scores)

    run = Stepper(prepare=prepare, environment={"SDL_VIDEODRIVER": "dummy", **environment})
    run.executable = pathlib.Path(program).resolve()
    with run:
        output, _ = run.process.communicate("\n".join([*orders, ""]).encode(), seconds)
        run.printed = output.decode(errors="replace")
        yield run


# The main colour of every kitten picture; nothing else that play shows has it.
KITTEN = numpy.array((22, 200, 216))


# The centre of the kitten's colour, or None.
def find_kitten(picture):
    near = (numpy.abs(picture.astype(numpy.int16) - KITTEN) < 20).all(axis=2)
    rows, columns = near.nonzero()
    return (columns.mean(), rows.mean()) if len(rows) > 25 else None


@functools.cache
def load_picture(name, file="gfx/{}.png"):
    with Image.open(ROOT / "runtime/data" / file.format(name)) as image:
        return numpy.asarray(image.convert("RGBA"))


# Which share of the solid pixels is right in the upper left corner; 0 beyond the edge.
def fit(shown, expected):
    height, width = expected.shape[:2]
    corner = shown[:height, :width]
    if corner.shape[:2] != (height, width):
        return 0.0
    off = numpy.abs(corner.astype(int) - expected[:, :, :3]).max(axis=2)
    return (off[expected[:, :, 3] == 255] <= 4).mean()
