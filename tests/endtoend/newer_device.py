"""Two iPods: the first one loads by itself, the other is chosen by the user. That one is of a newer model,
whose tracks stand in its SQLite library while its binary database is empty."""

import sys

from ipod import assert_copied
from scenario import load_small_sample, main

FILES = {
    "VoltAmpere/Live 1999/01 Opening.mp3": 0,
    "VoltAmpere/Live 1999/02 Song.mp3": 1,
    "VoltAmpere/Live 1999/02 Song (2).mp3": 2,
    "VoltAmpere/'Quoted' Evenings/07 Say 'Hello'.m4a": 3,
    "UNKNOWN/UNKNOWN/UNKNOWN.wav": 7,
}


def play(stage):
    ipod = stage.small_ipod()
    newer = stage.small_ipod("--newer", folder=stage.work / "NEWER IPOD")
    assert not newer.tracks
    stage.destination.mkdir()
    with stage.start(ipod.folder, newer.folder) as window:
        load_small_sample(window)
        assert window.text_of_device().endswith(":) SAMPLE IPOD")
        window.tick("Artists", "Volt/Ampere")
        window.choose_device(":) NEWER IPOD")
        window.wait_for_text("Selected: 0 KB of 623.3 MB")
        load_small_sample(window, stage.destination)
        window.tick("Artists", "Volt/Ampere")
        window.tick("Artists", "UNKNOWN")
        window.press("Copy to Destination")
        window.answer("Songlift", "Copy completed!", "OK")
        assert window.close() == 0
    ipod.assert_untouched()
    newer.assert_untouched()
    newer.tracks = ipod.tracks
    assert_copied(newer, stage.destination, FILES)


if __name__ == "__main__":
    sys.exit(main(play))
