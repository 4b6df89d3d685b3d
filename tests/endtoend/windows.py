"""Size, place and order of the real windows: the main window comes back as it was left, maximised or not, and
the preview has its player's size, lies wholly on the screen, and belongs to the main window."""

import re
import subprocess
import sys
from collections import namedtuple

from desktop import PATIENCE
from scenario import main

# Something of the desktop stands at the left edge of the screen.
WORK_AREA = (200, 0, 1080, 1024)
# The corner of the frame, the size of the inside, and what border and title bar take.
Geometry = namedtuple("Geometry", "x y width height frame_width frame_height")
# The design size, in the middle of the work area: 200 + (1080 - 980) / 2, (1024 - 660) / 2.
FIRST_START = (250, 182, 980, 660)

SMALL_FILM, LARGE_FILM, SONG = "First Reel", "Second Reel", "Whole Night"
FILM_SIZES = {SMALL_FILM: (320, 240), LARGE_FILM: (1000, 800)}
ROWS = ("All", SMALL_FILM, LARGE_FILM, SONG)


def tool(window, *command):
    """What a tool of the window system prints."""
    return subprocess.run(command, env=window.desktop.environment, capture_output=True, text=True,
                          timeout=PATIENCE, check=True).stdout


def window_id(window, title):
    """The visible window of a title."""
    return window.wait_for(f'the window "{title}"', lambda: int(window.desktop.xdotool(
        "search", "--all", "--onlyvisible", "--pid", window.process.pid, "--name", f"^{title}$")))


def geometry(window, which):
    """Where a window is."""
    said = tool(window, "xwininfo", "-id", str(which))
    x, y, width, height = (int(re.search(what + r":\s+(-?\d+)", said)[1]) for what in (
        "Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
    extents = tool(window, "xprop", "-id", str(which), "_NET_FRAME_EXTENTS")
    left, right, top, bottom = map(int, re.findall(r"\d+", extents))
    return Geometry(x - left, y - top, width, height, left + right, top + bottom)


def wait_for_geometry(window, which, expected):
    """Waits for the place and size of a window, of which None stands for any."""
    def fits():
        shown = geometry(window, which)[:len(expected)]
        return all(wanted in (None, found) for wanted, found in zip(expected, shown))
    try:
        window.wait_for(f"the window at {expected}", fits, 10)
    except AssertionError as failure:
        raise AssertionError(f"{failure}: it is at {geometry(window, which)}") from failure


def has(window, which, what, expected):
    """Whether a property of a window, or of the screen, says what is expected."""
    target = ("-root",) if which is None else ("-id", str(which))
    return re.search(expected, tool(window, "xprop", *target, what)) is not None


def maximise(window, which, how):
    """Maximises a window ("add") or takes it back ("remove")."""
    tool(window, "wmctrl", "-i", "-r", str(which), "-b", f"{how},maximized_vert,maximized_horz")
    window.wait_for("the window's new state", lambda: has(
        window, which, "_NET_WM_STATE", "MAXIMIZED") == (how == "add"))


def comes_back_from_maximised(stage, ipod):
    """Each start finds the window as the first one did, when it is not maximised."""
    for starts_maximised, ends_maximised in ((False, True), (True, False), (False, True), (True, False)):
        with stage.start(ipod.folder) as window:
            window.wait_for_library()
            form = window_id(window, "Songlift")
            if starts_maximised:
                assert has(window, form, "_NET_WM_STATE", "MAXIMIZED")
                maximise(window, form, "remove")
            wait_for_geometry(window, form, FIRST_START)
            if ends_maximised:
                maximise(window, form, "add")
                window.wait_for("the large window", lambda: geometry(window, form).width > 1200)
            assert window.close() == 0


def open_preview(window, form, title):
    """Plays a song of the artist whose songs are shown; returns its window."""
    window.desktop.xdotool("windowactivate", "--sync", form)
    window.wait_for("the main window to be active", lambda: window.active_window() == "Songlift")
    before = window.windows_on_screen()
    window.desktop.xdotool("key", "Home", *["Down"] * ROWS.index(title), "shift+F10")
    window.wait_for("the menu", lambda: window.windows_on_screen() > before)
    window.desktop.xdotool("key", "Return")
    window.wait_for("the player", lambda: window.active_window() == title)
    return window_id(window, title)


def lies_on_the_screen(window, which):
    at = geometry(window, which)
    left, top, width, height = WORK_AREA
    return (left <= at.x and at.x + at.width + at.frame_width <= left + width
            and top <= at.y and at.y + at.height + at.frame_height <= top + height)


def hang_over_the_edge(window, which):
    tool(window, "wmctrl", "-i", "-r", str(which), "-e", "0,1200,1000,-1,-1")
    window.wait_for("the window over the edge", lambda: not lies_on_the_screen(window, which), 10)


def previews_have_the_players_size(window, form):
    """Opened, replaced and opened again, in every order."""
    preview = open_preview(window, form, SONG)
    bar = geometry(window, preview).height
    order = (SMALL_FILM, SONG, LARGE_FILM, SMALL_FILM, LARGE_FILM, SONG, SONG, LARGE_FILM)
    for closes in (True, False):
        for title in order:
            if closes:
                window.close_preview()
            preview = open_preview(window, form, title)
            width, height = FILM_SIZES.get(title, (360, 0))
            wait_for_geometry(window, preview, (None, None, width, height + bar))
            window.wait_for("the preview to lie on the screen",
                            lambda which=preview: lies_on_the_screen(window, which), 10)
            hang_over_the_edge(window, preview)


def closing_ends_that_it_is_maximised(window, form):
    preview = open_preview(window, form, LARGE_FILM)
    maximise(window, preview, "add")
    window.close_preview()
    preview = open_preview(window, form, SMALL_FILM)
    width, height = FILM_SIZES[SMALL_FILM]
    wait_for_geometry(window, preview, (None, None, width))
    assert geometry(window, preview).height < height + 100
    assert not has(window, preview, "_NET_WM_STATE", "MAXIMIZED")


def preview_belongs_to_the_main_window(window, form):
    preview = open_preview(window, form, SMALL_FILM)
    assert has(window, preview, "WM_TRANSIENT_FOR", f"{form:#x}$")
    window.desktop.xdotool("windowactivate", "--sync", form)
    window.wait_for("the preview above the main window", lambda: has(
        window, None, "_NET_CLIENT_LIST_STACKING", f"{form:#x}, {preview:#x}$"), 10)
    window.desktop.xdotool("windowminimize", form)
    hidden = "Map State: IsUnMapped"
    window.wait_for("the preview to go with the main window",
                    lambda: hidden in tool(window, "xwininfo", "-id", str(preview)), 10)
    window.desktop.xdotool("windowactivate", "--sync", form)
    window.wait_for("the preview to come back",
                    lambda: hidden not in tool(window, "xwininfo", "-id", str(preview)), 10)


def make_films(ipod):
    """Puts real films in the places of two."""
    for place, size in zip((9, 10), FILM_SIZES.values()):
        subprocess.run(
            ["ffmpeg", "-loglevel", "error", "-y", "-f", "lavfi", "-i",
             f"color=size={size[0]}x{size[1]}:duration=60:rate=2", "-f", "mov", "-pix_fmt", "yuv420p",
             str(ipod.file(place))], check=True, timeout=PATIENCE)


def play(stage):
    ipod = stage.small_ipod()
    make_films(ipod)
    stage.desktop.start("xprop", "-root", "-f", "_NET_WORKAREA", "32c", "-set", "_NET_WORKAREA",
                        ",".join(map(str, WORK_AREA))).wait(PATIENCE)
    comes_back_from_maximised(stage, ipod)
    with stage.start(ipod.folder) as window:
        window.wait_for_library()
        form = window_id(window, "Songlift")
        window.choose("Artists", "Small Screen Society")
        window.choose("Songs", SMALL_FILM)
        previews_have_the_players_size(window, form)
        closing_ends_that_it_is_maximised(window, form)
        preview_belongs_to_the_main_window(window, form)
        assert window.close() == 0


if __name__ == "__main__":
    sys.exit(main(play))
