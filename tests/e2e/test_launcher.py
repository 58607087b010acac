# The launcher of the installed game: with a program that reports how it was started, and for real.

import collections
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import unittest

from display import LIMIT, Display, read_line
from game import ROOT, Installed

# Reports how it was started; ends with 40, or with 40 and the number of the signal that it waits for.
PROGRAM = r"""#!/bin/bash
for number in 1 2 15; do trap "exit $((40 + number))" $number; done
printf '%s\t' "$PWD" "$(realpath data)" "$(realpath autoexec.txt)" "${SDL_VIDEO_X11_WMCLASS-}" "$*"
echo
while [ "${SIGNAL-0}" != 0 ]; do sleep 0.05; done  # a shell that waits may miss a signal
exit 40
"""
Report = collections.namedtuple("Report", "folder data script window_class arguments end")


class Launcher(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(self.enterContext(
            tempfile.TemporaryDirectory(prefix="brumble it's \"odd\" $HOME ")))
        self.data = self.install("prefix")
        self.home = self.folder / "home"
        self.own = self.home / ".local/share/brumble"
        self.own.mkdir(parents=True)

    # Installs the game, with that in place of its program; returns its folder of data.
    def install(self, name, program=PROGRAM):
        prefix = self.folder / name
        subprocess.run(["cmake", "--install", ROOT / "build/release", "--prefix", prefix], check=True,
                       stdout=subprocess.DEVNULL, timeout=LIMIT)
        if program:
            (prefix / "libexec/brumble/brumble").write_text(program)
        return prefix / "share/games/brumble/data"

    def start(self, *arguments, launcher="prefix/games/brumble", **environment):
        # A shell cannot catch what whoever started the tests has it ignore.
        process = subprocess.Popen(
            ["env", "--default-signal", launcher, *arguments], cwd=self.folder, text=True,
            stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            env={"PATH": os.environ["PATH"], "HOME": self.home, "DISPLAY": ":0", **environment})
        self.addCleanup(process.kill)
        return process

    # Returns what it prints, or else what it complains about.
    def run_it(self, *arguments, status=40, **how):
        process = self.start(*arguments, **how)
        output, errors = process.communicate(timeout=LIMIT)
        self.assertEqual(process.returncode, status, errors)
        return output or errors

    def report(self, **how):
        return Report(*self.run_it(**how).split("\t"))

    def test_is_found_by_links_and_by_the_path(self):
        (self.folder / "link").symlink_to("prefix/games/brumble")
        script = self.data.parent / "autoexec.txt"
        expected = Report(*map(str, (self.own, self.data, script, "brumble", "", "\n")))
        path = "prefix/games:" + os.environ["PATH"]
        for launcher in (self.folder / "link", "./link", "brumble"):
            self.assertEqual(self.report(launcher=launcher, PATH=path), expected, launcher)

    def test_only_the_launchers_own_links_are_renewed(self):
        other, place, mine = self.install("other"), self.own / "data", self.folder / "my data"
        mine.mkdir()
        for target, expected in ((mine, mine), ("nowhere", self.data), (other, self.data)):
            place.symlink_to(target)
            self.assertEqual(self.report().data, str(expected), target)
            place.unlink()
        place.mkdir()
        self.assertEqual(self.report().data, str(place), "a folder of the player's")
        for folder in (mine, place):
            self.assertEqual([*folder.iterdir()], [], folder)
        self.assertFalse((other / "data").exists())

    def test_plays_in_a_temporary_folder_where_it_must(self):
        shutil.rmtree(self.home)
        self.home.touch()
        temporary = self.folder / "tem porary"
        temporary.mkdir()
        for number in (0, signal.SIGHUP, signal.SIGINT, signal.SIGTERM):
            process = self.start(TMPDIR=temporary, SIGNAL=str(int(number)))
            report = Report(*read_line(process.stdout).split("\t"))
            process.send_signal(number)
            process.communicate(timeout=LIMIT)
            self.assertEqual((process.returncode, report.data), (40 + number, str(self.data)))
            self.assertEqual(pathlib.Path(report.folder).parent, temporary, number)
            self.assertEqual(list(temporary.iterdir()), [], number)

    def test_other_options_show_the_usage(self):
        for arguments, status in ((["--help"], 0), (["--fullscreen"], 2), (["--help", "x"], 2), ([""], 2)):
            self.assertIn("Usage: brumble", self.run_it(*arguments, status=status), arguments)

    def test_folders_and_display_follow_the_environment(self):
        elsewhere, own = str(self.folder / "else where"), str(self.own)
        for given, folder in ((elsewhere, elsewhere + "/brumble"), ("relative", own), ("", own)):
            self.assertEqual(self.report(XDG_DATA_HOME=given).folder, folder, given)
        self.assertIn("WAYLAND_DISPLAY", self.run_it(DISPLAY="", status=1))
        self.assertEqual(self.report(DISPLAY="", WAYLAND_DISPLAY="wayland-0").arguments, "")
        self.assertEqual(self.report(SDL_VIDEO_X11_WMCLASS="mine").window_class, "mine")

    def test_the_real_game_plays_from_its_prefix(self):
        self.install("real", program=None)
        launcher = self.folder / "real/games/brumble"
        version = re.search(r"project\(brumble VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())
        self.assertEqual(subprocess.check_output([launcher, "--version"], text=True, timeout=LIMIT),
                         f"brumble {version[1]}\n")
        with Display() as screen, Installed(screen, launcher) as game:
            game.wait_for_title()
            self.assertEqual(game.window.get_wm_class(), ("brumble", "brumble"))
            screen.tap("Escape")
            game.wait_for_end()
            # A graphics driver may keep something, too.
            written = {path.name for path in game.home.rglob("*") if ".cache" not in path.parts}
            self.assertEqual(written, {".local", "share", "brumble", "autoexec.txt", "data", "log.txt"})
