"""An iPod that breaks inside a file, and a drive without nameless files whose room or quota ends inside a file: the
user is told, whole files stay, nothing half written does, and once the cause is gone everything is copied."""

import errno
import sys
from pathlib import Path

from desktop import wait_for
from ipod import Ipod, assert_copied, same_bytes, tree
from overwriting import answer_prompt
from scenario import load_small_sample, main
from served_disk import ServedDisk

OPENING = "VoltAmpere/Live 1999/01 Opening.mp3"
SONG = "VoltAmpere/Live 1999/02 Song.mp3"
REEL = "Small Screen Society/Films/02 Second Reel.mov"
FILES = {
    OPENING: 0, SONG: 1, "VoltAmpere/Live 1999/02 Song (2).mp3": 2,
    "VoltAmpere/'Quoted' Evenings/07 Say 'Hello'.m4a": 3,
    "Small Screen Society/Films/01 First Reel.m4v": 9, REEL: 10,
}
BROKEN = "Error 57: Device I/O error"
FULL = "This drive is full."


class FailingDisk(ServedDisk):
    """A folder shown elsewhere, with failures to be set and lifted."""

    def __init__(self, folder, at):
        super().__init__(Path(__file__).with_name("failing_disk.py"), folder, at)

    def fail(self, ending, byte, number):
        """From now on a file whose path ends so is good for so many bytes only."""
        self.tell(f"{ending} {byte} {number}\n")

    def lift(self):
        self.tell("")


def tick_files(window):
    """Ticks what makes FILES."""
    window.tick("Artists", "Volt/Ampere")
    window.choose("Artists", "Small Screen Society")
    window.tick("Albums", "Films")


def wait_for_end(window):
    window.wait_for("the job to end", lambda: window.button("Copy to destination"))


def assert_whole_files(ipod, destination, complete):
    """Just the files before the failing one are there, whole."""
    found = [path for path in tree(destination) if (destination / path).is_file()]
    assert found == sorted(complete), found
    for path in found:
        assert same_bytes(destination / path, ipod.file(FILES[path])), path


def break_the_device(window, ipod, device, destination):
    """The device fails inside a small file, then inside a large one."""
    device.fail(Path(ipod.tracks[FILES[SONG]].location).name, 300_000, errno.EIO)
    window.press("Copy to Destination")
    window.answer("Error", BROKEN, "OK")
    wait_for_end(window)
    assert_whole_files(ipod, destination, [OPENING])

    device.fail(Path(ipod.tracks[FILES[REEL]].location).name, 20_000_000, errno.EIO)
    window.press("Copy to destination")
    answer_prompt(window, destination / OPENING, "Replace", same=True)
    window.answer("Error", BROKEN, "OK")
    wait_for_end(window)
    assert_whole_files(ipod, destination, set(FILES) - {REEL})
    device.lift()


def fill_the_target(window, ipod, target, destination):
    """The target's room ends inside a small file, then its quota inside a large one; Retry goes on."""
    target.fail(".songlift.part", 200_000, errno.ENOSPC)
    window.press("Copy to destination")
    full = window.message("Error", FULL)
    assert_whole_files(ipod, destination, [OPENING])
    assert not list(destination.rglob(".songlift.part"))
    target.fail("copy.tmp", 20_000_000, errno.EDQUOT)
    window.press("Retry", full)
    wait_for("the small files to be there", (destination / SONG).exists)
    full = window.message("Error", FULL)
    assert not (destination / REEL).exists()
    target.lift()
    window.press("Retry", full)
    window.answer("Songlift", "Copy completed!", "OK")
    assert_copied(ipod, destination, FILES)


def play(stage):
    made = stage.small_ipod(folder=stage.work / "AS MADE")
    drive, stage.destination = stage.work / "drive", stage.work / "copied"
    drive.mkdir()
    stage.destination.mkdir()
    with FailingDisk(made.folder, stage.work / "SAMPLE IPOD") as device, \
            FailingDisk(drive, stage.work / "STICK") as target:
        ipod = Ipod(device.folder)
        with stage.start(device.folder) as window:
            load_small_sample(window, stage.destination)
            tick_files(window)
            break_the_device(window, ipod, device, stage.destination)
            destination = target.folder / "music"
            destination.mkdir()
            window.set_text("Destination", str(destination))
            fill_the_target(window, ipod, target, destination)
            assert window.close() == 0
        ipod.assert_untouched()
    made.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
