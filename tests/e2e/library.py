"""The SDL 1.2 that the program runs on: the classic library, or the one over SDL 2."""
import functools
import subprocess

from display import LIMIT
from game import ROOT, Game


# The environments that run the program on each library that there is.
@functools.cache
def libraries():
    with Game() as game:
        game.wait_for_end()
        is_classic = game.has_classic_sdl()
    return [{}, {"LD_LIBRARY_PATH": compatibility_library()}] if is_classic else [{}]


# The folder of Debian's SDL 1.2 over SDL 2, unpacked beside the build, never installed.
def compatibility_library():
    folder = ROOT / "build/sdl12-compat"
    if not list(folder.rglob("libSDL-1.2.so.0")):
        folder.mkdir(parents=True, exist_ok=True)
        subprocess.run(["apt-get", "download", "-qq", "libsdl1.2-compat"], cwd=folder, check=True,
                       timeout=10 * LIMIT)
        for package in folder.glob("*.deb"):
            subprocess.run(["dpkg", "-x", package, folder], check=True, timeout=LIMIT)
    return str(next(folder.rglob("libSDL-1.2.so.0")).parent)
