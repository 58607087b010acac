"""The real program, started in a copy of runtime/ and watched from outside."""
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time

import numpy
from PIL import Image

from display import wait_for

ROOT = pathlib.Path(__file__).resolve().parents[2]
TITLE = "Brumble"


def program(build):
    return ROOT / "build" / build / "brumble"


class Game:
    """One run. Use it in a `with`; what is still running at the end is killed."""

    def __init__(self, screen=None, build="release", script=None, environment=None, prepare=None,
                 executable=None):
        """`script` maps the text of autoexec.txt to the text to use; `prepare` may change the copy
        of runtime/ before the start."""
        self.screen = screen
        self.executable = executable or program(build)
        self.script = script
        self.environment = environment or {}
        self.prepare = prepare

    def __enter__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="brumble-run-"))
        self.runtime = self.folder / "runtime"
        shutil.copytree(ROOT / "runtime", self.runtime, ignore=shutil.ignore_patterns("log.txt"))
        if self.script:
            script = self.runtime / "autoexec.txt"
            script.write_text(self.script(script.read_text()))
        if self.prepare:
            self.prepare(self.runtime)
        suppressions = ROOT / "tests" / "support" / "leaks.supp"
        environment = dict(os.environ, SDL_VIDEODRIVER="x11", SDL_AUDIODRIVER="dummy",
                           LSAN_OPTIONS=f"suppressions={suppressions}:print_suppressions=0")
        environment.pop("DISPLAY", None)
        if self.screen:
            environment["DISPLAY"] = self.screen.name
        environment.update(self.environment)
        self.errors = open(self.folder / "stderr", "w+")
        self.started = time.monotonic()
        self.process = subprocess.Popen([self.executable], cwd=self.runtime, env=environment,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=self.errors, text=True, bufsize=1)
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGKILL)
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()
        self.errors.close()
        shutil.rmtree(self.folder, ignore_errors=True)

    # What it tells.

    def log(self):
        path = self.runtime / "log.txt"
        return path.read_text(errors="replace") if path.is_file() else ""

    def standard_error(self):
        return (self.folder / "stderr").read_text(errors="replace")

    def wait_for_log(self, text, seconds=10, times=1):
        wait_for(lambda: self.log().count(text) >= times, seconds, f"{text!r} in the log")

    def wait_for_end(self, seconds=15):
        return self.process.wait(seconds)

    # The window.

    def wait_for_window(self, seconds=10):
        self.window = wait_for(lambda: self.screen.find_window(TITLE), seconds, "the window")
        self.rect = self.screen.rect_of(self.window)
        return self.window

    def picture(self):
        return self.screen.picture(self.rect)

    def wait_for_picture(self, name, seconds=10):
        """Waits until the window shows that full-screen picture of data/gfx/."""
        expected = load_picture(name)
        wait_for(lambda: matches(self.picture(), expected), seconds, f"the picture {name}")

    def point_at(self, x, y):
        """Moves the real pointer to a place in the window."""
        self.screen.move_pointer(self.rect[0] + x, self.rect[1] + y)

    def click(self, button=1):
        self.screen.click(button)

    def start_playing(self):
        self.wait_for_window()
        self.point_at(400, 300)
        self.wait_for_picture("title_screen")
        self.click()
        self.wait_for_picture("help_screen")
        self.click()
        wait_for(lambda: not matches(self.picture(), load_picture("help_screen")), 5, "play")


    def wait_for_kitten(self, seconds=15):
        """Waits until a kitten is well inside the window."""
        def there():
            place = find_kitten(self.picture())
            return place is not None and place[1] > 60
        wait_for(there, seconds, "a kitten")

    def end_in_order(self, seconds=30):
        """Closes the window; answers the exit status."""
        self.screen.close_window(self.window)
        return self.wait_for_end(seconds)


# The main colour of every kitten picture; nothing else that play shows has it.
KITTEN = numpy.array((22, 200, 216))


def find_kitten(picture):
    """The centre of the kitten's colour, or None."""
    near = (numpy.abs(picture.astype(numpy.int16) - KITTEN) < 20).all(axis=2)
    rows, columns = near.nonzero()
    return (columns.mean(), rows.mean()) if len(rows) > 25 else None


def load_picture(name):
    with Image.open(ROOT / "runtime" / "data" / "gfx" / f"{name}.png") as image:
        return numpy.asarray(image.convert("RGBA"))


def matches(shown, expected, share=0.6):
    """Whether most of a full-screen picture is to be seen as it is."""
    if shown.shape[:2] != expected.shape[:2]:
        return False
    same = (numpy.abs(shown.astype(int) - expected[:, :, :3]) <= 2).all(axis=2)
    return same.mean() >= share


def fire_burns(picture, before):
    """Whether a burst of fire stands at the bottom of the pit that was not there before."""
    changed = numpy.abs(picture[480:].astype(int) - before[480:]).max(axis=2) > 60
    return changed.sum() > 1500


class Digits:
    """Reads the numbers that the boards show, by the glyphs of data/gfx/numbers.ogf."""

    STAKE, SCORE, LEFT = (270, 530), (270, 560), (562, 558)

    def __init__(self):
        line = (ROOT / "runtime/data/gfx/numbers.ogf").read_text().split("\n")[0]
        fields = line.split(";")
        columns, _, width, height = (int(field) for field in fields[1:5])
        sheet = load_picture("numbers")
        self.glyphs = {}
        for index, character in enumerate(fields[7]):
            glyph_width = int(int(fields[8][2 * index:2 * index + 2]) * 0.015625 * width)
            x, y = index % columns * width, index // columns * height
            if character.isdigit():
                self.glyphs[character] = sheet[y:y + height, x:x + glyph_width]

    def read(self, picture, place):
        """The number at the board's corner; None when nothing there reads as one."""
        x, y = place
        text = ""
        while True:
            best = self._glyph_at(picture, x, y)
            if best is None:
                return int(text) if text else None
            text += best
            x += self.glyphs[best].shape[1]

    def _glyph_at(self, picture, x, y):
        best, best_solid = None, 0
        for character, glyph in self.glyphs.items():
            shown = picture[y:y + glyph.shape[0], x:x + glyph.shape[1]]
            if shown.shape[:2] != glyph.shape[:2]:
                continue
            solid = glyph[:, :, 3] == 255
            off = numpy.abs(shown.astype(int) - glyph[:, :, :3]).max(axis=2)[solid]
            if off.size > best_solid and (off <= 4).mean() > 0.98:
                best, best_solid = character, off.size
        return best
