"""What every scenario stands on: a desktop, a sample iPod, an empty folder to copy to, and an answer to ctest.

A scenario is a program: <scenario>.py <the built program> <make-sample-ipod>. It ends with 0 when all is
well and with 77 when the machine cannot play it (and says why); otherwise it has failed."""

import subprocess
import sys
import tempfile
from pathlib import Path

from desktop import Desktop, wait_for
from driver import Bus, Songlift
from ipod import Ipod

SKIPPED = 77

# The files that a copy of the whole small sample makes -> place of the track in the database.
WHOLE_SMALL_SAMPLE = {
    "VoltAmpere/Live 1999/01 Opening.mp3": 0,
    "VoltAmpere/Live 1999/02 Song.mp3": 1,
    "VoltAmpere/Live 1999/02 Song (2).mp3": 2,
    "VoltAmpere/'Quoted' Evenings/07 Say 'Hello'.m4a": 3,
    "The Borrowed Umbrellas/Best Of/Intro.mp3": 4,
    "The Borrowed Umbrellas/Best Of/03 What.m4a": 5,
    "青い灯台/港の歌/01 夜明け 🌅.m4a": 6,
    "UNKNOWN/UNKNOWN/UNKNOWN.wav": 7,
    "...And Then Dots/.hidden/123 a..b.aif": 8,
    "Small Screen Society/Films/01 First Reel.m4v": 9,
    "Small Screen Society/Films/02 Second Reel.mov": 10,
    "Small Screen Society/Long/01 Whole Night.m4v": 11,
}
ARTISTS_OF_SMALL_SAMPLE = [
    "All (6 Artists)", "...And Then Dots...", "Small Screen Society", "The Borrowed Umbrellas",
    "UNKNOWN", "Volt/Ampere", "青い灯台"]


class Skipped(Exception):
    """The machine cannot play this scenario."""


class Stage:
    """Where one scenario plays."""

    def __init__(self, desktop, program, sample_maker, work):
        self.desktop = desktop
        self.work = work
        self.destination = work / "copied"
        self._bus = Bus(desktop)
        self.program = Path(program).resolve()
        self._sample_maker = Path(sample_maker).resolve()

    def small_ipod(self, *options, folder=None):
        """Makes the small sample."""
        folder = folder or self.work / "SAMPLE IPOD"
        subprocess.run([self._sample_maker, "--small", *options, folder], check=True)
        return Ipod(folder)

    def sample_ipod(self, name, *options):
        """Makes the sample that people see, with real music and videos."""
        folder = self.work / name
        subprocess.run([self._sample_maker, *options, folder], check=True)
        return Ipod(folder)

    def start(self, *drives, program=None, under=()):
        """Starts the program, or another build of it, with folders attached as drives."""
        return Songlift(self.desktop, self._bus, program or self.program, drives, under)

    def start_with_small_ipod(self):
        """The program with the small sample loaded, its destination an empty folder; and the sample."""
        ipod = self.small_ipod()
        self.destination.mkdir()
        return ipod, self.start(ipod.folder)


def load_small_sample(window, destination=None):
    """Waits for the small sample's artists and types the destination."""
    window.wait_for_rows("Artists", ARTISTS_OF_SMALL_SAMPLE)
    if destination:
        window.set_text("Destination", str(destination))


def tick_album(window, artist, album):
    """Ticks one album."""
    window.choose("Artists", artist)
    window.tick("Albums", album)


def freeze_in_large_file(window, destination):
    """Stops the program while it writes a large file; returns that file, which has no name of its own yet."""
    unfinished = destination / "tmp" / "copy.tmp"
    wait_for("the large file to be begun", unfinished.exists, pause=0.001)
    window.freeze()
    assert unfinished.exists(), "the large file was copied too fast"
    return unfinished


def main(play):
    """Plays one scenario."""
    program, sample_maker = sys.argv[1:3]
    name = Path(sys.argv[0]).stem
    with Desktop() as desktop, tempfile.TemporaryDirectory(prefix=f"{name}-", dir=".") as work:
        try:
            play(Stage(desktop, program, sample_maker, Path(work).resolve()))
        except Skipped as reason:
            print(f"skipped: {reason}")
            return SKIPPED
    return 0
