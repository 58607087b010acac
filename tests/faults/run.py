#!/usr/bin/python3
# Starts the game once for each call that can fail, with that call failing.
#
# Usage: run.py BUILD_FOLDER [--each | --some]
#
# Every place that calls a function of faults.cpp fails at its first call; with --each every call of
# the run does, with --some every tenth place. Prints what did not hold, and how many calls failed.

import collections
import concurrent.futures
import contextlib
import os
import pathlib
import re
import socketserver
import subprocess
import sys
import threading

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "e2e"))
from game import headless  # noqa: E402

SCORES = "300 2026-01-01 -\n200 2026-01-02 -\n100 2026-01-03 -\n"
FRAME = (*("advance 20", "frame") * 3, "compare")
CONSOLE = ("run load(data/keys/console.txt)", *FRAME)
# The title, a whole game, its end, the console, other screens, a recorded game, no screen, a mail
# and the end.
ORDERS = ("date 1", *FRAME, "click", *FRAME, "click", *FRAME, "play idle 1 100", *FRAME, *CONSOLE,
          "run window::Resize(640, 480)", *FRAME, "run window::Fullscreen", *FRAME, *CONSOLE,
          "run replaygame(data/demo.replay)", *FRAME, "run stoptask(window)", *FRAME)
# SDL and SDL_image follow a null pointer there, SDL_mixer writes past a buffer that is too small,
# and SDL over SDL 2 keeps a file open; a sanitizer ends that with status 1.
CRASHES = (["status -11"], ["status -6"], ["status 1"])
LIBRARY = re.compile(r"SDL_VideoInit|IMG_LoadGIF_RW|OGG_playAudio|SDL_AllocRW.*\n.*SDL-1.2\S+\(\+")
# Of an error, a warning, a font, or a library's own.
MESSAGE = re.compile("<!>|[(]!|ogf file|^(?![(<])")
# Where nothing is lost without a word.
SILENT = re.compile("|".join((
    # The libraries go on without, SDL 2 also without the input devices that it looks for.
    r"libSDL2.*\n.*SDL_InitSubSystem",
    "SDL_(SetVideoMode|ListModes|Create(Cursor|Mutex)|Flip)|Mix_(OpenAudio|LoadMUS|FadeInMusicPos)",
    # A check is left out, or it is tried again, a picture also as one of another kind.
    r"faults\((\+|_Z).*\n.*Data4Load|CFileLock|EnterScore|(Is|Load)GifFile|IMG_is",
    r"SDL_ReadLE16.*\n.*libSDL_image.*\n.*IMG_LoadTyped|CXmlParser.*\n.*\n.*PictureCache",
    # What is read, such as user.txt, or removed need not be there.
    r"4open.*\n.*ExecuteFile|RemoveOldReplays",
    # It has been written or answered, or was only for the standard output. The log has no other
    # place.
    "^close|^fwrite|CMail|CLogFile")))


class MailHost(socketserver.StreamRequestHandler):
    def handle(self):
        with contextlib.suppress(ConnectionError):
            self.wfile.write(b"220 here\r\n")
            while self.rfile.readline() not in (b"", b"QUIT\r\n"):
                self.wfile.write(b"250 well\r\n")


# Returns what was printed and reported, what did not hold, and whether the game's score is among
# the best.
def run(program, orders, environment):
    try:
        return watch(program, orders, environment)
    except subprocess.TimeoutExpired:
        return "", [], ["it hangs"], False


def watch(program, orders, environment):
    with headless(program, orders, environment, SCORES, seconds=300) as game:
        status, scores = game.process.returncode, (game.runtime / "scores.txt").read_text()
        wrong = [f"status {status}"] * (status != 0) + re.findall("picture is wrong", game.printed)
        if not set(SCORES.split()) <= set(scores.split()):
            wrong.append("a score is lost")
        said = re.sub("New log created on.*", "", game.log())  # which tells the minute
        is_entered = len(scores.splitlines()) > len(SCORES.splitlines())
        return game.printed, (said + game.standard_error()).splitlines(), wrong, is_entered


# What did not hold beside that when a call failed, and whether it may fail without a word.
def judge(place, printed, new, is_entered, answers):
    is_silent = SILENT.search(place)
    faults = {"no message": not is_silent and not any(MESSAGE.search(line) for line in new),
              "the score is not entered": not new and not is_entered,
              "the end came too early": not new and printed.count("ok\n") < answers - 1}
    return [what for what, is_so in faults.items() if is_so], is_silent and not new


def main():
    program = f"{sys.argv[1]}/brumble_faults"
    host = socketserver.ThreadingTCPServer(("127.0.0.1", 0), MailHost)
    threading.Thread(target=host.serve_forever, daemon=True).start()
    orders = [*ORDERS, f"mail {host.server_address[1]}", *FRAME]
    printed, usual, wrong, is_entered = run(program, orders, {})
    assert is_entered and not wrong, f"without a failure: {wrong}"
    answers = printed.count("ok\n")
    calls = re.findall(r"^call (\d+) (\d+)", printed, re.M)
    faults = list(dict.fromkeys(call["--each" not in sys.argv] for call in calls))
    failed, bad, counts = collections.Counter(), 0, collections.Counter()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        runs = pool.map(lambda fault: run(program, orders, {"FAULT": fault}),
                        faults[::10 if "--some" in sys.argv else 1])
        for printed, said, wrong, is_entered in runs:
            new = [line for line in said if line not in usual]
            found = re.search(r"^failed \d+ \d+ (\w+)\n((?:.*0x.*\n)*)", printed, re.M)
            name, place = found.groups() if found else ("not reached", "")
            more, is_silent = (judge(name + place, printed, new, is_entered, answers) if found
                               else ([], False))
            wrong += more
            is_theirs = wrong[:1] in CRASHES and LIBRARY.search(place)
            failed[name] += 1
            counts.update(theirs=bool(is_theirs), silent=bool(is_silent))
            if wrong and not is_theirs:
                bad += 1
                print(*wrong, found[0] if found else name, *new, sep="\n", flush=True)
    unreached = failed.pop("not reached", 0)  # the sound's thread did not come as far
    print("\n".join(f"{name:24} {count:5}" for name, count in sorted(failed.items())))
    print(f"{failed.total()} calls failed, {counts['theirs']} of them beyond us, {counts['silent']} "
          f"without a word; {unreached} were not reached; {bad} faults")
    return 0 if failed.total() > 20 * unreached and not bad else 1


if __name__ == "__main__":
    sys.exit(main())
