"""A destination that is too small: the user is warned, copies as much as fits, and can make room and go on.
Nothing half written is left."""

import os
import subprocess
import sys
from contextlib import contextmanager

from ipod import assert_copied, tree
from scenario import Skipped, load_small_sample, main, tick_album

DISK_BYTES = 1_000_000
FILES = {
    "VoltAmpere/Live 1999/01 Opening.mp3": 0,
    "VoltAmpere/Live 1999/02 Song.mp3": 1,
    "VoltAmpere/Live 1999/02 Song (2).mp3": 2,
}


@contextmanager
def small_disk(folder):
    """A file system of DISK_BYTES."""
    folder.mkdir()
    if os.geteuid() != 0:
        raise Skipped("only root may mount a small disk")
    mounted = subprocess.run(
        ["mount", "-t", "tmpfs", "-o", f"size={DISK_BYTES}", "tmpfs", folder],
        capture_output=True, text=True, check=False)
    if mounted.returncode != 0:
        raise Skipped(f"no small disk can be mounted: {mounted.stderr.strip()}")
    try:
        yield folder
    finally:
        subprocess.run(["umount", "-l", folder], check=True)


def play(stage):
    ipod = stage.small_ipod()
    with small_disk(stage.work / "disk") as disk, stage.start(ipod.folder) as window:
        # Room for the first file, not for the second.
        ballast = disk / "ballast"
        ballast.write_bytes(bytes(700_000))
        destination = disk / "music"
        destination.mkdir()

        load_small_sample(window, destination)
        tick_album(window, "Volt/Ampere", "Live: 1999?")
        warning = (f"There is not enough space on drive {disk} to copy all\r"
                   "of the selected files. Copy as much as possible?")
        window.press("Copy to Destination")
        window.answer("Songlift", warning, "Cancel")
        assert tree(destination) == []

        window.press("Copy to Destination")
        window.answer("Songlift", warning, "OK")
        window.answer("Error", "This drive is full.", "Cancel")
        window.wait_for("the job to end", lambda: window.button("Copy to destination"))
        assert tree(destination) == ["VoltAmpere/Live 1999/01 Opening.mp3"]
        (destination / "VoltAmpere/Live 1999/01 Opening.mp3").unlink()

        window.press("Copy to destination")
        window.answer("Songlift", warning, "OK")
        full = window.message("Error", "This drive is full.")
        ballast.unlink()
        window.press("Retry", full)
        window.answer("Songlift", "Copy completed!", "OK")
        assert_copied(ipod, destination, FILES)
        assert window.close() == 0
    ipod.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
