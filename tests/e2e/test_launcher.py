"""The launcher of the installed game: with a program that tells what it was given, and once for real."""
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

# Tells where and how it was started; ends with 40, or with 40 and the number of the signal that it is
# sent when WAIT is set.
PROGRAM = """#!/usr/bin/python3
import json, os, signal, sys
heard = []
for number in (signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
    if signal.getsignal(number) != signal.SIG_IGN:
        signal.signal(number, lambda number, frame: heard.append(number))
links = {name: os.path.realpath(name) for name in ("data", "autoexec.txt")}
told = {"folder": os.getcwd(), "links": links, "arguments": sys.argv[1:],
        "class": os.environ.get("SDL_VIDEO_X11_WMCLASS")}
print(json.dumps(told), flush=True)
while "WAIT" in os.environ and not heard:
    signal.pause()
sys.exit(40 + sum(heard))
"""


class Launcher(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="brumble it's \"odd\" $HOME "))
        self.addCleanup(shutil.rmtree, self.folder)
        self.prefix = self.install("prefix")
        self.launcher = self.prefix / "games/brumble"
        self.home = self.folder / "home"
        self.own = self.home / ".local/share/brumble"
        self.own.mkdir(parents=True)

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
        return prefix

    def start(self, *arguments, launcher=None, **environment):
        environment = {"PATH": os.environ["PATH"], "HOME": str(self.home), "DISPLAY": ":0", **environment}
        # A shell cannot catch what whoever started the tests has it ignore.
        process = subprocess.Popen([launcher or self.launcher, *arguments], cwd=self.folder, text=True,
                                   env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_DFL))
        self.addCleanup(process.kill)
        return process

    def run_and_ask(self, **how):
        """What the program tells."""
        process = self.start(**how)
        output, errors = process.communicate(timeout=LIMIT)
        self.assertEqual(process.returncode, 40, errors)
        return json.loads(output)

    def installed(self, name):
        return str(self.prefix / "share/games/brumble" / name)

    def test_is_found_by_links_and_by_the_path(self):
        (self.folder / "link").symlink_to("prefix/games/brumble")
        for launcher, path in ((self.folder / "link", ""), ("./link", ""), ("brumble", "prefix/games:")):
            with self.subTest(launcher):
                told = self.run_and_ask(launcher=launcher, PATH=path + os.environ["PATH"])
                self.assertEqual(told, {
                    "folder": str(self.own), "arguments": [], "class": "brumble",
                    "links": {name: self.installed(name) for name in ("data", "autoexec.txt")}})

    def test_the_players_folder(self):
        elsewhere = self.folder / "else where"
        for given, expected in ((str(elsewhere), elsewhere / "brumble"), ("relative", self.own),
                                ("", self.own)):
            with self.subTest(given):
                self.assertEqual(self.run_and_ask(XDG_DATA_HOME=given)["folder"], str(expected))

    def test_only_the_launchers_own_links_are_renewed(self):
        other = self.install("other") / "share/games/brumble/data"
        mine = self.folder / "my data"
        mine.mkdir()
        place = self.own / "data"
        for what, make, expected in (
                ("a folder", place.mkdir, place),
                ("a link of the player's", lambda: place.symlink_to(mine), mine),
                ("one that dangles", lambda: place.symlink_to("nowhere"), self.installed("data")),
                ("one to another installation", lambda: place.symlink_to(other), self.installed("data"))):
            with self.subTest(what):
                make()
                self.assertEqual(self.run_and_ask()["links"]["data"], str(expected))
                self.assertEqual(list(other.iterdir()) + list(mine.iterdir()), [])
                (place.rmdir if place.is_dir() and not place.is_symlink() else place.unlink)()
        script = self.own / "autoexec.txt"
        script.unlink()
        script.touch()
        self.assertEqual(self.run_and_ask()["links"]["autoexec.txt"], str(script))

    def test_plays_in_a_temporary_folder_where_it_must(self):
        shutil.rmtree(self.home)
        self.home.touch()
        temporary = self.folder / "tem porary"
        temporary.mkdir()
        for number in (None, signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
            with self.subTest(number):
                process = self.start(TMPDIR=str(temporary), **({"WAIT": "1"} if number else {}))
                told = json.loads(read_line(process.stdout))
                if number:
                    process.send_signal(number)
                process.communicate(timeout=LIMIT)
                self.assertEqual(process.returncode, 40 + (number or 0))
                self.assertEqual(pathlib.Path(told["folder"]).parent, temporary)
                self.assertEqual(told["links"]["data"], self.installed("data"))
                self.assertEqual(list(temporary.iterdir()), [])

    def test_options_and_what_is_missing(self):
        for arguments, environment, status, text in (
                (["--help"], {}, 0, "Usage: brumble"), (["--version"], {}, 0, "brumble "),
                (["--fullscreen"], {}, 2, "Usage: brumble"), (["--help", "x"], {}, 2, "Usage: brumble"),
                ([""], {}, 2, "Usage: brumble"), ([], {"DISPLAY": ""}, 1, "WAYLAND_DISPLAY")):
            with self.subTest(arguments=arguments):
                process = self.start(*arguments, **environment)
                output, errors = process.communicate(timeout=LIMIT)
                self.assertEqual(process.returncode, status)
                self.assertIn(text, errors if status else output)
        self.assertEqual(self.run_and_ask(DISPLAY="", WAYLAND_DISPLAY="wayland-0")["arguments"], [])
        self.assertEqual(self.run_and_ask(SDL_VIDEO_X11_WMCLASS="mine")["class"], "mine")


class InstalledGame(unittest.TestCase):
    def test_plays_from_its_prefix(self):
        with tempfile.TemporaryDirectory(prefix="brumble prefix ") as prefix:
            subprocess.run(["cmake", "--install", ROOT / "build/release", "--prefix", prefix],
                           check=True, stdout=subprocess.DEVNULL, timeout=LIMIT)
            launcher = f"{prefix}/games/brumble"
            version = re.search(r"project\(brumble VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())
            self.assertEqual(subprocess.check_output([launcher, "--version"], text=True,
                                                     timeout=LIMIT),
                             f"brumble {version[1]}\n")
            with Display() as screen, Installed(screen, launcher) as game:
                game.wait_for_title()
                self.assertEqual(game.window.get_wm_class(), ("brumble", "brumble"))
                screen.tap("Escape")
                self.assertEqual(game.wait_for_end(), 0, game.standard_error())
                self.assertEqual(game.written() - {".local", ".local/share"}, {
                    ".local/share/brumble", ".local/share/brumble/autoexec.txt",
                    ".local/share/brumble/data", ".local/share/brumble/log.txt"})


if __name__ == "__main__":
    unittest.main()
