"""A program that is killed while it replaces a large file leaves the earlier file whole; the next run copies it
and clears away what was left."""

import sys

from cancelling import freeze_in_large_file
from ipod import assert_copied
from overwriting import answer_prompt, question
from scenario import load_small_sample, main, tick_album

FILE = "Small Screen Society/Long/01 Whole Night.m4v"


def play(stage):
    ipod, started = stage.start_with_small_ipod()
    target = stage.destination / FILE
    target.parent.mkdir(parents=True)
    target.write_bytes(b"the earlier file")

    with started as window:
        load_small_sample(window, stage.destination)
        tick_album(window, "Small Screen Society", "Long")
        window.press("Copy to Destination")
        window.press("Replace", window.message("Overwrite File", question(target)))
        freeze_in_large_file(window, stage.destination)
        window.kill()
    assert target.read_bytes() == b"the earlier file"

    with stage.start(ipod.folder) as window:
        load_small_sample(window, stage.destination)
        tick_album(window, "Small Screen Society", "Long")
        window.press("Copy to Destination")
        answer_prompt(window, target, "Replace")
        window.answer("Songlift", "Copy completed!", "OK")
        assert window.close() == 0
    assert_copied(ipod, stage.destination, {FILE: 11})
    ipod.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
