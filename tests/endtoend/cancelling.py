"""A job that is cancelled in the middle of a large file leaves nothing of that file; afterwards everything can
be copied, the large files included."""

import sys

from ipod import assert_copied, tree
from scenario import WHOLE_SMALL_SAMPLE, freeze_in_large_file, load_small_sample, main, tick_album


def play(stage):
    ipod, started = stage.start_with_small_ipod()
    with started as window:
        load_small_sample(window, stage.destination)
        tick_album(window, "Small Screen Society", "Long")
        button = window.area(window.button("Copy to Destination"))
        window.press("Copy to Destination")
        freeze_in_large_file(window, stage.destination)
        window.click_area(button)
        window.thaw()
        window.wait_for("the job to end", lambda: window.button("Copy to destination"))
        window.wait_for("the controls to come back",
                        lambda: window.enabled(window.control("Destination")))
        assert not window.says("Copy completed!")
        # The folders were made before the copy began; nothing of the file is in them.
        assert tree(stage.destination) == ["Small Screen Society/Long"]

        window.tick("Artists", "All (6 Artists)")
        window.wait_for_text("Selected: 623.3 MB of 623.3 MB")
        window.press("Copy to destination")
        window.answer("Songlift", "Copy completed!", "OK")
        assert window.close() == 0
    assert_copied(ipod, stage.destination, WHOLE_SMALL_SAMPLE)
    ipod.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
