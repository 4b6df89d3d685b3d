"""The whole of a request without a mouse: an iPod is chosen, rows are ticked, searched and filtered, a
destination is typed, files are copied, replaced and cancelled, a song is previewed, and the program is left."""

import sys

from cancelling import freeze_in_large_file
from desktop import Waited
from ipod import assert_copied, tree
from scenario import ARTISTS_OF_SMALL_SAMPLE, load_small_sample, main

# From the list that has the focus at first, once around the window.
TAB_ORDER = [
    "Artists", "Albums", "Songs", "Artist", "Album", "Artist name", "Album name", "Track number",
    "Destination", "Browse... button", "iPods", "Search", "Search button", "All Files"]
NOTHING_SELECTED = "Selected: 0 KB of 623.3 MB"
FILES = {
    "VoltAmpere/Live 1999/Live 1999 - 01 Opening.mp3": 0,
    "VoltAmpere/Live 1999/Live 1999 - 02 Song.mp3": 1,
    "VoltAmpere/Live 1999/Live 1999 - 02 Song (2).mp3": 2,
}
OPENING, SONG, _ = FILES


def press(window, *keys):
    window.desktop.xdotool("key", *keys)


def wait_for_focus(window, name):
    try:
        window.wait_for(f"{name} to have the focus", lambda: window.focus() == name, 10)
    except Waited as failure:
        raise Waited(f"{failure}; {window.focus()} has it") from failure


def tab_to(window, name, key="Tab"):
    """Presses Tab until a control has the focus, and no more than once around."""
    before = window.focus()
    for _ in range(len(TAB_ORDER) + 2):
        if before == name:
            return
        press(window, key)
        window.wait_for("the focus to go on", lambda last=before: window.focus() != last, 10)
        before = window.focus()
    raise Waited(f"{key} does not lead to {name}")


def wait_for_tick(window, list_name, text, ticked=True):
    window.wait_for(f'the check mark of "{text}" in {list_name} to be {ticked}',
                    lambda: window.checked(window.row(list_name, text)) == ticked)


def go_to_row(window, list_name, text, *keys):
    press(window, *keys)
    window.wait_for(f'"{text}" to be the current row of {list_name}',
                    lambda: window.current_row(list_name) == text)


def walk_around(window):
    """Every control is reached, in the order of the window, and back again."""
    wait_for_focus(window, "Artists")
    for name in TAB_ORDER[1:] + TAB_ORDER[:1]:
        press(window, "Tab")
        wait_for_focus(window, name)
    for name in reversed(TAB_ORDER):
        press(window, "shift+Tab")
        wait_for_focus(window, name)


def choose_device(window, name):
    tab_to(window, "iPods")
    press(window, "alt+Down")
    window.wait_for("the list of iPods to open", lambda: window.focus() != "iPods")
    press(window, "Down", "Return")
    window.wait_for(f"{name} to be chosen", lambda: window.text_of_device().endswith(name))
    window.wait_for_text(NOTHING_SELECTED)
    load_small_sample(window)
    wait_for_focus(window, "Artists")


def tick_at_each_level(window):
    go_to_row(window, "Artists", "All (6 Artists)", "Home")
    press(window, "space")
    window.wait_for_text("Selected: 623.3 MB of 623.3 MB")
    assert all(ticked for _, ticked in window.ticks("Artists"))
    press(window, "space")
    window.wait_for_text(NOTHING_SELECTED)

    go_to_row(window, "Artists", "Volt/Ampere", "End", "Up")
    window.wait_for_rows("Albums", ["All (2 Albums)", '"Quoted" Evenings', "Live: 1999?"])
    press(window, "Tab")
    wait_for_focus(window, "Albums")
    go_to_row(window, "Albums", "Live: 1999?", "Down", "Down")
    press(window, "space")
    wait_for_tick(window, "Albums", "Live: 1999?")
    wait_for_focus(window, "Albums")
    press(window, "Tab")
    wait_for_focus(window, "Songs")
    go_to_row(window, "Songs", "Opening", "Down")
    press(window, "space")
    wait_for_tick(window, "Songs", "Opening", False)
    assert window.ticks("Songs") == [
        ("All (3 Items)", False), ("Opening", False), ("Song", True), ("Song", True)]
    assert window.checked(window.row("Albums", "Live: 1999?"))
    go_to_row(window, "Songs", "All (3 Items)", "Up")
    press(window, "space")
    wait_for_tick(window, "Songs", "Opening")
    window.wait_for_text("Selected: 458 KB of 623.3 MB")


def search_and_filter(window):
    press(window, "alt+s")
    wait_for_focus(window, "Search")
    window.desktop.xdotool("type", "--delay", 4, "song")
    window.wait_for_rows("Songs", ["All (2 Items)", "Song", "Song"])
    tab_to(window, "Clear button")
    press(window, "Return")
    window.wait_for_rows("Artists", ARTISTS_OF_SMALL_SAMPLE)
    wait_for_focus(window, "Search")

    tab_to(window, "All Files")
    press(window, "Right", "Right")
    window.wait_for_rows("Artists", ["All (1 Artist)", "Small Screen Society"])
    wait_for_focus(window, "Video")
    press(window, "Left", "Left")
    window.wait_for_rows("Artists", ARTISTS_OF_SMALL_SAMPLE)
    wait_for_focus(window, "All Files")


def name_the_destination(window, destination):
    """Ticks an option, looks at the folder picker, and types the path."""
    tab_to(window, "Album name")
    press(window, "space")
    window.wait_for("the option to be ticked", lambda: window.checked(window.control("Album name")))
    tab_to(window, "Browse... button")
    press(window, "space")
    window.wait_for("the folder picker", lambda: window.active_window() not in (None, "Songlift"))
    press(window, "Escape")
    wait_for_focus(window, "Browse... button")

    tab_to(window, "Destination", "shift+Tab")
    window.desktop.xdotool("key", "ctrl+a", "type", "--delay", 4, str(destination))
    window.wait_for("the path to be typed",
                    lambda: window.text_of("Destination") == str(destination))
    tab_to(window, "Browse... button")


def answer_with_keys(window, title, text, *keys):
    window.message(title, text)
    press(window, *keys)
    window.wait_for(f"the message {text!r} to go", lambda: not window.says(text))


def copy_and_replace(window, destination):
    """The first file is there already, and so is another."""
    question = f'File already exists: "{destination / OPENING}". Replace it?'
    press(window, "alt+c")
    window.message("Overwrite File", question)
    # What Enter presses harms nothing.
    wait_for_focus(window, "Skip button")
    tab_to(window, "Cancel button")
    tab_to(window, "Do the same for all files")
    press(window, "space", "alt+r")
    answer_with_keys(window, "Songlift", "Copy completed!", "Return")

    # Escape stands for Cancel.
    press(window, "alt+c")
    answer_with_keys(window, "Overwrite File", question, "Escape")
    wait_for_end_of_job(window)
    press(window, "alt+c")
    answer_with_keys(window, "Overwrite File", question, "alt+c")
    wait_for_end_of_job(window)


def wait_for_end_of_job(window):
    window.wait_for("the job to end", lambda: window.enabled(window.control("Destination")))
    wait_for_focus(window, "Copy to destination button")


def cancel_large_file(window, destination):
    tab_to(window, "Artists")
    go_to_row(window, "Artists", "Volt/Ampere", "v")
    press(window, "space")
    window.wait_for_text(NOTHING_SELECTED)
    go_to_row(window, "Artists", "Small Screen Society", "Home", "Down", "Down")
    window.wait_for_rows("Albums", ["All (2 Albums)", "Films", "Long"])
    tab_to(window, "Albums")
    go_to_row(window, "Albums", "Long", "End")
    press(window, "space")
    window.wait_for_text("Selected: 572.2 MB of 623.3 MB")
    press(window, "alt+c")
    freeze_in_large_file(window, destination)
    press(window, "alt+c")
    window.thaw()
    wait_for_end_of_job(window)
    assert not window.says("Copy completed!")


def preview(window):
    tab_to(window, "Songs")
    go_to_row(window, "Songs", "Whole Night", "Down")
    for key in ("Menu", "shift+F10"):
        before = window.windows_on_screen()
        press(window, key)
        (menu,) = window.wait_for(
            "the menu", lambda seen=before: window.windows_on_screen() - seen, 10)
        row = window.area(window.row("Songs", "Whole Night"))
        x, y = window.desktop.corner_of(menu)
        assert row.x <= x < row.x + row.width and row.y <= y < row.y + row.height, (x, y, row)
        press(window, "Return")
        window.wait_for("the player", lambda: window.active_window() == "Whole Night")
        press(window, "alt+F4")
        window.wait_for("the player to close", lambda: window.active_window() == "Songlift")
        wait_for_focus(window, "Songs")


def play(stage):
    other = stage.small_ipod(folder=stage.work / "FIRST IPOD")
    ipod = stage.small_ipod(folder=stage.work / "SECOND IPOD")
    destination = stage.destination
    for path in (OPENING, SONG):
        (destination / path).parent.mkdir(parents=True, exist_ok=True)
        (destination / path).write_bytes(b"older")
    with stage.start(other.folder, ipod.folder) as window:
        load_small_sample(window)
        walk_around(window)
        choose_device(window, "SECOND IPOD")
        tick_at_each_level(window)
        search_and_filter(window)
        name_the_destination(window, destination)
        copy_and_replace(window, destination)
        assert_copied(ipod, destination, FILES)
        cancel_large_file(window, destination)
        assert tree(destination) == sorted([*FILES, "Small Screen Society/Long"])
        preview(window)
        press(window, "alt+F4")
        assert window.exit_code() == 0
    ipod.assert_untouched()
    other.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
