"""A program made of the stepper (tests/e2e/stepper.cpp), in a copy of runtime/ without a window."""
import os
import pathlib
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
# More sounds at a time than there are when time runs faster, and no pointer, which SDL would draw
# into the picture.
CHANGES = {"512, 16)": "512, 256)", "starttask(event": "// starttask(event"}
MORE = "\ngame_demo_after = 0\nkernel_frame_sleep = 0\nstarttask(stepper, stepper, 1)\n"
DRIVERS = {"SDL_VIDEODRIVER": "dummy", "SDL_AUDIODRIVER": "dummy"}
LIMIT = 7200  # seconds


# Runs it with all orders at once; returns its end, the lines of its log and its scores.
def run(program, orders, environment={}, scores=""):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "data").symlink_to(ROOT / "runtime/data")
        script = (ROOT / "runtime/autoexec.txt").read_text()
        for before, after in CHANGES.items():
            script = script.replace(before, after)
        (folder / "autoexec.txt").write_text(script + MORE)
        (folder / "scores.txt").write_text(scores)
        end = subprocess.run([pathlib.Path(program).resolve()], input="\n".join(orders) + "\n",
                             cwd=folder, env={**os.environ, **DRIVERS, **environment}, timeout=LIMIT,
                             capture_output=True, text=True, errors="replace")
        log = folder / "log.txt"
        lines = log.read_text(errors="replace").splitlines() if log.exists() else []
        return end, lines, (folder / "scores.txt").read_text()
