"""Files that are there already are replaced, skipped, or end the job, as the user says each time or once for
all."""

import sys

from desktop import SCREEN_SIZE
from ipod import assert_copied, same_bytes, tree
from scenario import load_small_sample, main, tick_album

FILES = {
    "VoltAmpere/Live 1999/01 Opening.mp3": 0,
    "VoltAmpere/Live 1999/02 Song.mp3": 1,
    "VoltAmpere/Live 1999/02 Song (2).mp3": 2,
}
OPENING, FIRST_SONG, SECOND_SONG = FILES


def question(path):
    """What the prompt asks about one file."""
    return f'File already exists: "{path}". Replace it?'


def answer_prompt(window, path, button, same=False):
    """Answers the prompt about one file."""
    prompt = window.message("Overwrite File", question(path))
    area = window.area(prompt)
    assert area.x >= 0 and area.x + area.width <= SCREEN_SIZE[0], area
    if same:
        window.click(window.control("Do the same for all files", window=prompt), at_x=9)
        window.wait_for("the box to be ticked", lambda: window.checked(
            window.control("Do the same for all files", window=prompt)))
    window.press(button, prompt)
    window.wait_for("the prompt to go", lambda: not window.says(question(path)))


def copy_minimised(window):
    """Starts a job, and minimises the window before the job has come to its first file; returns the window."""
    area = window.area(window.button("Copy to Destination"))
    window.freeze()
    window.click_area(area)
    minimised = window.minimise()
    window.thaw()
    return minimised


def play(stage):
    ipod, started = stage.start_with_small_ipod()
    # The question is wider than the screen.
    destination = stage.destination / "a folder of a long name" / ("long " * 40).strip() / "folder"
    old = {}
    for path in FILES:
        file = destination / path
        file.parent.mkdir(parents=True, exist_ok=True)
        old[path] = f"older than {path}".encode()
        file.write_bytes(old[path])

    def is_old(path):
        return (destination / path).read_bytes() == old[path]

    with started as window:
        load_small_sample(window, destination)
        tick_album(window, "Volt/Ampere", "Live: 1999?")

        # The prompt comes to a user who has minimised the window, and closing it cancels.
        minimised = copy_minimised(window)
        window.message("Overwrite File", question(destination / OPENING))
        window.request_close()
        window.wait_for("the job to end", lambda: window.button("Copy to destination"))
        assert all(is_old(path) for path in FILES)
        window.bring_back(minimised)
        window.press("Copy to destination")
        answer_prompt(window, destination / OPENING, "Cancel")
        window.wait_for("the job to end", lambda: window.button("Copy to destination"))
        assert all(is_old(path) for path in FILES)

        # Replace one, skip one, and skip the rest without being asked.
        window.press("Copy to destination")
        answer_prompt(window, destination / OPENING, "Replace")
        answer_prompt(window, destination / FIRST_SONG, "Skip", same=True)
        window.answer("Songlift", "Copy completed!", "OK")
        assert same_bytes(destination / OPENING, ipod.file(0))
        assert is_old(FIRST_SONG) and is_old(SECOND_SONG)
        assert tree(destination) == sorted(FILES)

        # The next job asks again.
        window.press("Copy to destination")
        answer_prompt(window, destination / OPENING, "Replace", same=True)
        window.answer("Songlift", "Copy completed!", "OK")
        assert window.close() == 0
    assert_copied(ipod, destination, FILES)
    ipod.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
