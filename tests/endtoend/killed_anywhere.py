"""The program is killed at some moments of a job with small and large files. Each file in the destination is
whole or absent, or the earlier one; the next run copies everything and clears away what was left.

SONGLIFT_KILLS says how often (it counts the quick kills of the copy job; the whole program is killed once for
twenty of them), SONGLIFT_SEED repeats a run."""

import os
import random
import sys
import time

from ipod import assert_copied, same_bytes, tree
from overwriting import answer_prompt, question
from scenario import WHOLE_SMALL_SAMPLE, load_small_sample, main

# Asked about first, and copied last in several chunks.
OLD = ["VoltAmpere/Live 1999/01 Opening.mp3", "Small Screen Society/Long/01 Whole Night.m4v"]
LEFTOVERS = ("tmp/copy.tmp", ".songlift.part")
LONGEST_WAIT = 1.5


def begin(window, destination):
    """Ticks everything and starts to copy it over what is there."""
    load_small_sample(window, destination)
    window.tick("Artists", "All (6 Artists)")
    window.press("Copy to Destination")
    return window.message("Overwrite File", question(destination / OLD[0]))


def kill_somewhere(stage, ipod, destination, moment):
    """Kills the program so many seconds into the copying; returns what stands in the destination then."""
    for path in OLD:
        (destination / path).parent.mkdir(parents=True)
        (destination / path).write_bytes(b"the earlier file")
    with stage.start(ipod.folder) as window:
        prompt = begin(window, destination)
        window.click(window.control("Do the same for all files", window=prompt), at_x=9)
        window.press("Replace", prompt)
        time.sleep(moment)
        window.kill()
    found = [path for path in tree(destination) if (destination / path).is_file()]
    for path in found:
        if path.endswith(LEFTOVERS):
            continue
        file = destination / path
        is_old = path in OLD and file.read_bytes()[:100] == b"the earlier file"
        assert is_old or same_bytes(file, ipod.file(WHOLE_SMALL_SAMPLE[path])), f"{path} is broken"
    assert set(OLD) <= set(found), found
    ipod.assert_untouched()
    return found


def play(stage):
    kills = max(3, int(os.environ.get("SONGLIFT_KILLS", "0")) // 20)
    seed = int(os.environ.get("SONGLIFT_SEED", random.randrange(2**31)))
    print(f"{kills} kills, SONGLIFT_SEED={seed}")
    moments = random.Random(seed)
    ipod = stage.small_ipod()
    destination = stage.work / "copied 0"
    for number in range(kills):
        destination = stage.work / f"copied {number}"
        destination.mkdir()
        moment = moments.uniform(0, LONGEST_WAIT)
        found = kill_somewhere(stage, ipod, destination, moment)
        print(f"killed after {moment:.3f} s, with {len(found)} files there")

    with stage.start(ipod.folder) as window:
        begin(window, destination)
        answer_prompt(window, destination / OLD[0], "Replace", same=True)
        window.answer("Songlift", "Copy completed!", "OK")
        assert window.close() == 0
    assert_copied(ipod, destination, WHOLE_SMALL_SAMPLE)
    ipod.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
