"""One whole request: an album and a song are ticked, a destination is typed, and the files are copied."""

import re
import sys

from ipod import assert_copied
from scenario import load_small_sample, main

SELECTED_BYTES = 40_000 + 400_001 + 30_000 + 50_000
ALL_BYTES = 653_668_731


def tick_an_album_and_a_song(window):
    window.choose("Artists", "Volt/Ampere")
    window.wait_for_rows("Albums", ["All (2 Albums)", '"Quoted" Evenings', "Live: 1999?"])
    window.tick("Albums", "Live: 1999?")
    assert window.ticks("Songs") == [
        ("All (3 Items)", True), ("Opening", True), ("Song", True), ("Song", True)]
    window.wait_for_text("Selected: 458 KB of 623.3 MB")

    window.choose("Artists", "青い灯台")
    window.wait_for_rows("Songs", ["All (1 Item)", "夜明け 🌅"])
    window.tick("Songs", "夜明け 🌅")
    assert window.ticks("Songs") == [("All (1 Item)", True), ("夜明け 🌅", True)]
    assert window.ticks("Albums") == [("All (1 Album)", True), ("港の歌", True)]
    assert window.ticks("Artists") == [
        ("All (6 Artists)", False), ("...And Then Dots...", False),
        ("Small Screen Society", False), ("The Borrowed Umbrellas", False), ("UNKNOWN", False),
        ("Volt/Ampere", True), ("青い灯台", True)]
    window.wait_for_text("Selected: 507 KB of 623.3 MB")
    assert abs(window.progress() - SELECTED_BYTES / ALL_BYTES) < 0.005, window.progress()


def play(stage):
    ipod = stage.small_ipod()
    destination = stage.work / "new" / "folder"
    with stage.start(ipod.folder) as window:
        load_small_sample(window)
        entry = window.text_of_device()
        assert re.fullmatch(r"\([E-Z]:\) SAMPLE IPOD", entry), entry
        window.wait_for_text("Selected: 0 KB of 623.3 MB")
        assert not window.enabled(window.button("Copy to Destination"))

        tick_an_album_and_a_song(window)
        window.set_text("Destination", str(destination))
        window.press("Copy to Destination")
        window.answer("Songlift", "Destination folder does not exist. Create?", "OK")
        window.answer("Songlift", "Copy completed!", "OK")
        window.wait_for("the window to be at rest",
                        lambda: window.enabled(window.button("Copy to destination")))
        window.wait_for_text("Selected: 507 KB of 623.3 MB")
        assert window.close() == 0

    assert_copied(ipod, destination, {
        "VoltAmpere/Live 1999/01 Opening.mp3": 0,
        "VoltAmpere/Live 1999/02 Song.mp3": 1,
        "VoltAmpere/Live 1999/02 Song (2).mp3": 2,
        "青い灯台/港の歌/01 夜明け 🌅.m4a": 6,
    })
    ipod.assert_untouched()

    with stage.start(ipod.folder) as window:
        load_small_sample(window)
        assert window.text_of("Destination") == str(destination)
        assert window.close() == 0


if __name__ == "__main__":
    sys.exit(main(play))
