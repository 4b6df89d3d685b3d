"""Plays one whole request on the real window, for a person to see: demo.py <program> <iPod> <folder>.

An album and a song are ticked with the mouse and copied to <folder>/copied; then the tree is printed, and
where the picture of the window is. Where there is a display it plays there, otherwise on a virtual one."""

import os
import shutil
import sys
from pathlib import Path

from desktop import Desktop
from driver import Bus, Songlift
from ipod import Ipod, assert_copied

EXPECTED = {
    "The Borrowed Umbrellas/Morning Rounds/01 First Light.mp3": 0,
    "The Borrowed Umbrellas/Morning Rounds/02 Kettle Song.mp3": 1,
    "The Borrowed Umbrellas/Morning Rounds/03 Intro.mp3": 2,
    "The Borrowed Umbrellas/Morning Rounds/03 Intro (2).mp3": 3,
    "The Borrowed Umbrellas/Morning Rounds/03 Intro.m4a": 4,
    "青い灯台/港の歌/02 かもめとラジオ.m4a": 17,
}


def display():
    """The X display to play on; None for a virtual one."""
    wayland = os.environ.get("XDG_SESSION_TYPE") == "wayland"
    return None if wayland else os.environ.get("DISPLAY")


def print_tree(folder, indent="  "):
    """Shows what a folder holds."""
    for path in sorted(folder.iterdir()):
        if path.is_dir():
            print(f"{indent}{path.name}/")
            print_tree(path, indent + "  ")
        else:
            print(f"{indent}{path.name}  ({path.stat().st_size:,} bytes)")


def play(window, destination):
    window.wait_for_library()
    window.choose("Artists", "The Borrowed Umbrellas")
    window.tick("Albums", "Morning Rounds")
    window.choose("Artists", "青い灯台")
    window.choose("Albums", "港の歌")
    window.tick("Songs", "かもめとラジオ")
    window.set_text("Destination", str(destination))
    window.press("Copy to Destination")
    window.message("Songlift", "Copy completed!")


def main():
    program, ipod, folder = Path(sys.argv[1]).resolve(), Ipod(sys.argv[2]), Path(sys.argv[3])
    destination = folder.resolve() / "copied"
    picture = folder.resolve() / "songlift.png"
    shutil.rmtree(destination, ignore_errors=True)
    destination.mkdir(parents=True)
    with Desktop(display()) as desktop:
        print(f"Playing one request on {'this' if display() else 'a virtual'} screen ...")
        with Songlift(desktop, Bus(desktop), program, [ipod.folder.resolve()]) as window:
            play(window, destination)
            window.take_picture(picture)
            window.answer("Songlift", "Copy completed!", "OK")
            if window.close() != 0:
                raise AssertionError("the program did not end well")
    assert_copied(ipod, destination, EXPECTED)
    print(f"Copied to {destination}:")
    print_tree(destination)
    print(f"The window: {picture}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
