"""Closing the window while a job runs asks first, inside a large file too; No lets the job go on, Yes ends
the program. A signal ends it unasked, as orderly: nothing half is left, and the settings are saved."""

import signal
import sys

from ipod import assert_copied, tree
from scenario import freeze_in_large_file, load_small_sample, main, tick_album

QUESTION = "Are you sure you want to quit?"
FILES = {
    "VoltAmpere/Live 1999/01 Opening.mp3": 0,
    "VoltAmpere/Live 1999/02 Song.mp3": 1,
    "VoltAmpere/Live 1999/02 Song (2).mp3": 2,
}

FILM = "Small Screen Society/Long/01 Whole Night.m4v"


def close_while_copying(window, button):
    """Starts a job and asks for the close before the job has come to its first file."""
    area = window.area(window.button(button))
    window.freeze()
    window.click_area(area)
    window.request_close()
    window.thaw()


def end_by_signals(stage, ipod):
    """In the middle of a film, and while a message waits to be read."""
    ended = stage.work / "ended"
    ended.mkdir()
    with stage.start(ipod.folder) as window:
        load_small_sample(window, ended)
        tick_album(window, "Small Screen Society", "Long")
        window.press("Copy to Destination")
        freeze_in_large_file(window, ended)
        window.signal(signal.SIGTERM)
        window.thaw()
        assert window.exit_code() == 0
    assert tree(ended) == ["Small Screen Society/Long"] # the folder, with no file in it
    with stage.start(ipod.folder) as window:
        load_small_sample(window)
        assert window.text_of("Destination") == str(ended)
        tick_album(window, "Volt/Ampere", "Live: 1999?")
        window.press("Copy to Destination")
        window.message("Songlift", "Copy completed!")
        window.signal(signal.SIGHUP)
        assert window.exit_code() == 0


def play(stage):
    ipod, started = stage.start_with_small_ipod()
    with started as window:
        load_small_sample(window, stage.destination)
        tick_album(window, "Volt/Ampere", "Live: 1999?")
        close_while_copying(window, "Copy to Destination")
        window.answer("Songlift", QUESTION, "No")
        window.answer("Songlift", "Copy completed!", "OK")
        assert_copied(ipod, stage.destination, FILES)

        window.choose("Artists", "Volt/Ampere")
        window.tick("Albums", "Live: 1999?", ticked=False)
        tick_album(window, "Small Screen Society", "Long")
        films = stage.work / "films"
        films.mkdir()
        window.set_text("Destination", str(films))
        window.press("Copy to destination")
        unfinished = freeze_in_large_file(window, films)
        window.request_close()
        window.thaw()
        question = window.message("Songlift", QUESTION)
        begun = unfinished.stat()
        window.press("No", question)
        window.answer("Songlift", "Copy completed!", "OK")
        assert_copied(ipod, films, {FILM: 11})
        assert (films / FILM).stat().st_ino == begun.st_ino, "the film was begun anew"

        other = stage.work / "other"
        other.mkdir()
        window.set_text("Destination", str(other))
        close_while_copying(window, "Copy to destination")
        window.press("Yes", window.message("Songlift", QUESTION))
        assert window.exit_code() == 0
        assert tree(other) == []
    end_by_signals(stage, ipod)
    ipod.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
