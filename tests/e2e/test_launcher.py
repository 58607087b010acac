"""The launcher of the installed game: with a program that reports how it was started, and for real."""
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import unittest

from display import LIMIT, Display, read_line
from game import ROOT
from installed import Installed

# Reports where and how it was started; ends with 40, or with 40 and the number of the signal that it
# is sent when WAIT is set.
PROGRAM = """#!/usr/bin/python3
import json, os, signal, sys
heard = []
for number in (signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
    if signal.getsignal(number) != signal.SIG_IGN:
        signal.signal(number, lambda number, frame: heard.append(number))
links = {name: os.path.realpath(name) for name in ("data", "autoexec.txt")}
report = {"folder": os.getcwd(), "links": links, "arguments": sys.argv[1:],
          "class": os.environ.get("SDL_VIDEO_X11_WMCLASS")}
print(json.dumps(report), flush=True)
while os.environ.get("WAIT", "0") != "0" and not heard:
    signal.pause()
sys.exit(40 + sum(heard))
"""


class Launcher(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="brumble it's \"odd\" $HOME "))
        self.addCleanup(shutil.rmtree, self.folder)
        self.data = self.install("prefix")
        self.home = self.folder / "home"
        self.own = self.home / ".local/share/brumble"
        self.own.mkdir(parents=True)

    # Returns its folder of data.
    def install(self, name):
        prefix = self.folder / name
        data = prefix / "share/games/brumble/data"
        data.mkdir(parents=True)
        (data.parent / "autoexec.txt").touch()
        launcher = (ROOT / "desktop/launcher.in").read_text()
        for path, text in (("games/brumble", launcher), ("libexec/brumble/brumble", PROGRAM)):
            (prefix / path).parent.mkdir(parents=True)
            (prefix / path).write_text(text)
            (prefix / path).chmod(0o755)
        return data

    def start(self, *arguments, launcher="prefix/games/brumble", **environment):
        # A shell cannot catch what whoever started the tests has it ignore.
        process = subprocess.Popen(
            [launcher, *arguments], cwd=self.folder, text=True, stdout=subprocess.PIPE,
            stderr=subprocess.PIPE,
            env={"PATH": os.environ["PATH"], "HOME": self.home, "DISPLAY": ":0", **environment},
            preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
        self.addCleanup(process.kill)
        return process

    # Returns what it prints: to the standard error when it fails.
    def run_it(self, *arguments, status=40, **how):
        process = self.start(*arguments, **how)
        output, errors = process.communicate(timeout=LIMIT)
        self.assertEqual(process.returncode, status, errors)
        return output if status in (0, 40) else errors

    def report(self, **how):
        return json.loads(self.run_it(**how))

    def test_is_found_by_links_and_by_the_path(self):
        (self.folder / "link").symlink_to("prefix/games/brumble")
        links = {name: str(self.data.parent / name) for name in ("data", "autoexec.txt")}
        for launcher in (self.folder / "link", "./link", "brumble"):
            with self.subTest(launcher):
                self.assertEqual(
                    self.report(launcher=launcher, PATH="prefix/games:" + os.environ["PATH"]),
                    {"folder": str(self.own), "arguments": [], "class": "brumble", "links": links})

    def test_the_players_folder(self):
        elsewhere = str(self.folder / "else where")
        for given, expected in ((elsewhere, elsewhere + "/brumble"), ("relative", str(self.own)),
                                ("", str(self.own))):
            with self.subTest(given):
                self.assertEqual(self.report(XDG_DATA_HOME=given)["folder"], expected)

    def test_only_the_launchers_own_links_are_renewed(self):
        other, place, mine = self.install("other"), self.own / "data", self.folder / "my data"
        mine.mkdir()
        for what, make, expected in (
                ("a folder", place.mkdir, place),
                ("a link of the player's", lambda: place.symlink_to(mine), mine),
                ("one that dangles", lambda: place.symlink_to("nowhere"), self.data),
                ("one to another installation", lambda: place.symlink_to(other), self.data)):
            with self.subTest(what):
                make()
                self.assertEqual(self.report()["links"]["data"], str(expected))
                self.assertEqual(list(other.iterdir()) + list(mine.iterdir()), [])
                (place.unlink if place.is_symlink() else place.rmdir)()
        script = self.own / "autoexec.txt"
        script.unlink()
        script.touch()
        self.assertEqual(self.report()["links"]["autoexec.txt"], str(script))

    def test_plays_in_a_temporary_folder_where_it_must(self):
        shutil.rmtree(self.home)
        self.home.touch()
        temporary = self.folder / "tem porary"
        temporary.mkdir()
        for number in (0, signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
            with self.subTest(number):
                process = self.start(TMPDIR=temporary, WAIT=str(int(number)))
                report = json.loads(read_line(process.stdout))
                process.send_signal(number)
                process.communicate(timeout=LIMIT)
                self.assertEqual(process.returncode, 40 + number)
                self.assertEqual(pathlib.Path(report["folder"]).parent, temporary)
                self.assertEqual(report["links"]["data"], str(self.data))
                self.assertEqual(list(temporary.iterdir()), [])

    def test_options_and_what_is_missing(self):
        for arguments, environment, status, text in (
                (["--help"], {}, 0, "Usage: brumble"), (["--version"], {}, 0, "brumble "),
                (["--fullscreen"], {}, 2, "Usage: brumble"),
                (["--help", "x"], {}, 2, "Usage: brumble"),
                ([""], {}, 2, "Usage: brumble"), ([], {"DISPLAY": ""}, 1, "WAYLAND_DISPLAY")):
            with self.subTest(arguments=arguments):
                self.assertIn(text, self.run_it(*arguments, status=status, **environment))
        self.assertEqual(self.report(DISPLAY="", WAYLAND_DISPLAY="wayland-0")["arguments"], [])
        self.assertEqual(self.report(SDL_VIDEO_X11_WMCLASS="mine")["class"], "mine")


class InstalledGame(unittest.TestCase):
    def test_plays_from_its_prefix(self):
        prefix = self.enterContext(tempfile.TemporaryDirectory(prefix="brumble prefix "))
        subprocess.run(["cmake", "--install", ROOT / "build/release", "--prefix", prefix],
                       check=True, stdout=subprocess.DEVNULL, timeout=LIMIT)
        launcher = f"{prefix}/games/brumble"
        version = re.search(r"project\(brumble VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())
        self.assertEqual(subprocess.check_output([launcher, "--version"], text=True, timeout=LIMIT),
                         f"brumble {version[1]}\n")
        with Display() as screen, Installed(screen, launcher) as game:
            game.wait_for_title()
            self.assertEqual(game.window.get_wm_class(), ("brumble", "brumble"))
            screen.tap("Escape")
            game.wait_for_end()
            self.assertEqual(game.written(), Installed.FILES)
