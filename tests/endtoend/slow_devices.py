"""A copy from a slow device, and from one that does not answer any more: the window answers all the while and through
Cancel, the bar moves inside a file, Cancel acts at once, and closing the window ends the program."""

import sys
import threading
import time
from pathlib import Path

from desktop import wait_for
from driver import DOUBLE_CLICK
from ipod import Ipod, assert_copied
from scenario import load_small_sample, main, tick_album
from served_disk import ServedDisk

# In seconds. What a person takes for an answer at once, and for the end of what was stopped.
AT_ONCE = 0.1
SOON = 0.5
# At Cancel the window is not served for 80 ms of that tenth of a second, which leaves other programs too little.
AT_ONCE_WHEN_STOPPING = AT_ONCE + 0.05
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


def begin(window, bar, button):
    """Starts a copy, and waits until bytes of it have come. The controls were found before: while the window is busy
    with a job, that takes seconds."""
    window.click(button)
    window.wait_for("the bar to move", lambda: bar.get_current_value() > 0)


def cancel(window, button):
    """Presses the button: how long it took until the job was at rest, and the longest that an answer took meanwhile."""
    area = window.area(button)
    answers = []

    def at_rest():
        asked = time.monotonic()
        name = button.get_name()
        answers.append(time.monotonic() - asked)
        return name.endswith("destination")

    time.sleep(DOUBLE_CLICK) # which the click would wait for otherwise
    click = threading.Thread(target=window.click_area, args=(area,)) # takes a while to return
    pressed = time.monotonic()
    click.start()
    window.wait_for("the job to end", at_rest)
    click.join()
    return time.monotonic() - pressed, max(answers)


def assert_cancels(window, bar, button, when, make_way=lambda: None):
    """Cancel ends the job that runs, and those that follow where another program was in the way."""
    took = [cancel(window, button)]
    while not is_soon(*took[-1]) and len(took) < ATTEMPTS:
        make_way()
        window.click(button)
        longest_answer(bar, 1.0)
        took.append(cancel(window, button))
    rest, longest = took[-1]
    print(f"{when}: at rest {rest:.2f} s after Cancel; the window answered within {longest * 1000:.0f} ms")
    assert is_soon(*took[-1]), f"{when}: Cancel, and the longest answer meanwhile, took {took} s"
    assert not window.says("Copy completed!")


def is_soon(rest, longest):
    return rest <= SOON and longest <= AT_ONCE_WHEN_STOPPING


def wait_for_no_file(folder):
    """Nothing half is left. What was given up removes its file when its disk answers."""
    wait_for("the unfinished file to go",
             lambda: not [path for path in folder.rglob("*") if path.is_file()])


def copy_slowly(stage, window, bar, button, device):
    """At every speed, and while nothing comes any more; then the job is cancelled."""
    device.tell("speed=1000000 seek=0.01")
    begin(window, bar, button)
    for megabytes in (1, 8, 30):
        device.tell(f"speed={megabytes}000000 seek=0.01")
        before = bar.get_current_value()
        assert_answers(bar, f"at {megabytes} MB/s")
        window.wait_for("the bar to move on", lambda: bar.get_current_value() > before, SOON)
    device.tell("speed=1000000")
    assert_cancels(window, bar, button, "while the device is slow")
    device.tell("stall=read")
    window.click(button)
    assert_answers(bar, "while the device hangs")
    assert_cancels(window, bar, button, "while the device hangs")
    device.tell("")
    wait_for_no_file(stage.destination)
    (stage.destination / "Small Screen Society/Long").rmdir()
    (stage.destination / "Small Screen Society").rmdir()


def copy_to_hanging_disk(window, bar, button, disk, kept):
    """To a disk that takes no bytes any more. When it comes back, it holds no file of the job that was given up."""
    def make_way():
        # Of the job that was given up, whose file the next one cannot take.
        disk.tell("")
        wait_for_no_file(kept)
        disk.tell("stall=write")

    window.set_text("Destination", str(disk.folder))
    disk.tell("stall=write")
    window.click(button)
    assert_answers(bar, "while the destination hangs")
    assert_cancels(window, bar, button, "while the destination hangs", make_way)
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
            bar, button = window.control("Progress"), window.button("Copy to Destination")
            copy_slowly(stage, window, bar, button, device)
            copy_to_hanging_disk(window, bar, button, disk, kept)

            window.set_text("Destination", str(stage.destination))
            window.tick("Albums", "Long", ticked=False)
            tick_album(window, "Volt/Ampere", "Live: 1999?")
            window.press("Copy to destination")
            window.answer("Songlift", "Copy completed!", "OK")
            assert_copied(Ipod(made.folder), stage.destination, FILES)

            device.tell("speed=1000000")
            window.choose("Artists", "Volt/Ampere")
            window.tick("Albums", "Live: 1999?", ticked=False)
            tick_album(window, "Small Screen Society", "Films")
            begin(window, bar, button)
            assert_cancels(window, bar, button, "inside a small file")
            wait_for_no_file(stage.destination / "Small Screen Society")

            device.tell("stall=read")
            window.click(button)
            assert_answers(bar, "while the device hangs again")
            window.request_close()
            window.press("Yes", window.message("Songlift", QUESTION))
            assert window.exit_code() == 0
    made.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
