"""A copy from a slow device, and from one that does not answer any more: the window answers all the while, the bar
moves inside a file, Cancel acts at once, and closing the window ends the program."""

import sys
import time
from pathlib import Path

from desktop import wait_for
from ipod import Ipod, assert_copied
from scenario import load_small_sample, main, tick_album
from served_disk import ServedDisk

# In seconds. What a person takes for an answer at once, and for the end of what was stopped.
AT_ONCE = 0.1
SOON = 0.5
# Other programs may have the processor for longer than that: a window that really hangs does so every time.
ATTEMPTS = 4

QUESTION = "Are you sure you want to quit?"
FILES = {
    "VoltAmpere/Live 1999/01 Opening.mp3": 0,
    "VoltAmpere/Live 1999/02 Song.mp3": 1,
    "VoltAmpere/Live 1999/02 Song (2).mp3": 2,
}


def longest_answer(bar, seconds):
    """Asks the window for the bar's value again and again; the longest that an answer took."""
    longest = 0.0
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        asked = time.monotonic()
        bar.get_current_value()
        longest = max(longest, time.monotonic() - asked)
        time.sleep(0.005)
    return longest


def assert_answers(bar, when):
    """The window answers at once."""
    longest = [longest_answer(bar, 1.0)]
    while longest[-1] > AT_ONCE and len(longest) < ATTEMPTS:
        longest.append(longest_answer(bar, 1.0))
    print(f"{when}: the window answered within {longest[-1] * 1000:.0f} ms")
    assert longest[-1] <= AT_ONCE, f"{when}: answers took {longest} s"


def begin_film(window, button):
    """Starts the copy of the film, and waits until bytes of it have come."""
    window.press(button)
    bar = window.control("Progress")
    window.wait_for("the bar to move", lambda: bar.get_current_value() > 0)
    return bar


def cancel(window):
    """Presses the button; how long it took until the job was at rest."""
    area = window.area(window.button("Cancel"))
    button = window.button("Cancel")
    pressed = time.monotonic()
    window.click_area(area)
    window.wait_for("the job to end", lambda: button.get_name().endswith("destination"))
    return time.monotonic() - pressed


def assert_cancels(window, when):
    """Cancel ends the job that runs, and those that follow where another program was in the way."""
    took = [cancel(window)]
    while took[-1] > SOON and len(took) < ATTEMPTS:
        window.press("Copy to destination")
        assert_answers(window.control("Progress"), when)
        took.append(cancel(window))
    print(f"{when}: at rest {took[-1]:.2f} s after Cancel")
    assert took[-1] <= SOON, f"{when}: Cancel took {took} s"
    assert not window.says("Copy completed!")


def wait_for_no_file(folder):
    """Nothing half is left. What was given up removes its file when its disk answers."""
    wait_for("the unfinished file to go",
             lambda: not [path for path in folder.rglob("*") if path.is_file()])


def copy_slowly(stage, window, device):
    """At every speed, and while nothing comes any more; then the job is cancelled."""
    device.tell("speed=1000000 seek=0.01")
    bar = begin_film(window, "Copy to Destination")
    for megabytes in (1, 8, 30):
        device.tell(f"speed={megabytes}000000 seek=0.01")
        before = bar.get_current_value()
        assert_answers(bar, f"at {megabytes} MB/s")
        assert bar.get_current_value() > before, "the bar stands still"
    device.tell("speed=1000000")
    assert_cancels(window, "while the device is slow")
    device.tell("stall=read")
    window.press("Copy to destination")
    assert_answers(window.control("Progress"), "while the device hangs")
    assert_cancels(window, "while the device hangs")
    device.tell("")
    wait_for_no_file(stage.destination)
    (stage.destination / "Small Screen Society/Long").rmdir()
    (stage.destination / "Small Screen Society").rmdir()


def copy_to_hanging_disk(window, disk, kept):
    """To a disk that takes no bytes any more. When it comes back, it holds no file of the job that was given up."""
    window.set_text("Destination", str(disk.folder))
    disk.tell("stall=write")
    window.press("Copy to destination")
    assert_answers(window.control("Progress"), "while the destination hangs")
    assert_cancels(window, "while the destination hangs")
    assert (kept / "tmp" / "copy.tmp").exists()
    disk.tell("")
    wait_for_no_file(kept)


def play(stage):
    made = stage.small_ipod(folder=stage.work / "made")
    stage.destination.mkdir()
    kept = stage.work / "kept"
    kept.mkdir()
    server = Path(__file__).parents[1] / "support" / "slow_device.py"
    with (ServedDisk(server, made.folder, stage.work / "SAMPLE IPOD") as device,
          ServedDisk(server, kept, stage.work / "DISK") as disk):
        with stage.start(device.folder) as window:
            load_small_sample(window, stage.destination)
            tick_album(window, "Small Screen Society", "Long")
            copy_slowly(stage, window, device)
            copy_to_hanging_disk(window, disk, kept)

            window.set_text("Destination", str(stage.destination))
            window.tick("Albums", "Long", ticked=False)
            tick_album(window, "Volt/Ampere", "Live: 1999?")
            window.press("Copy to destination")
            window.answer("Songlift", "Copy completed!", "OK")
            assert_copied(Ipod(made.folder), stage.destination, FILES)

            device.tell("stall=read")
            window.choose("Artists", "Volt/Ampere")
            window.tick("Albums", "Live: 1999?", ticked=False)
            tick_album(window, "Small Screen Society", "Films")
            window.press("Copy to destination")
            assert_answers(window.control("Progress"), "while the device hangs again")
            window.request_close()
            window.press("Yes", window.message("Songlift", QUESTION))
            assert window.exit_code() == 0
    made.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
