"""The iPod is only ever read: while the program loads, searches, previews and copies, with a binary database
and with an SQLite library, none of its calls to the system would change anything there."""

import subprocess
import sys

import trace
from ipod import assert_copied
from scenario import Skipped, main

FIRST_FILES = {
    "The Borrowed Umbrellas/Morning Rounds/01 First Light.mp3": 0,
    "The Borrowed Umbrellas/Morning Rounds/02 Kettle Song.mp3": 1,
    "The Borrowed Umbrellas/Morning Rounds/03 Intro.mp3": 2,
    "The Borrowed Umbrellas/Morning Rounds/03 Intro (2).mp3": 3,
    "The Borrowed Umbrellas/Morning Rounds/03 Intro.m4a": 4,
}
SECOND_FILES = {"青い灯台/港の歌/02 かもめとラジオ.m4a": 17}
# It is not copied, so that only the player can have opened it.
PREVIEWED = "Who, Where & Why"
PREVIEWED_INDEX = 6

# What must be noticed: shell commands in a folder that holds a file; and what must not.
CHANGES = [
    "touch {0}/new", "touch {0}/file", "echo x > {0}/file", "echo x >> {0}/file",
    "exec 3<> {0}/file", "mkdir {0}/new", "rmdir {0}/folder", "mv {0}/file {0}/other",
    "mv {0}/file {1}/out", "mv {1}/file {0}/in", "rm {0}/file", "rm -f {0}/missing",
    "chmod 600 {0}/file", "truncate -s 1 {0}/file", "ln -s x {0}/link", "ln {0}/file {1}/twin",
    "cd {0} && rm file", "cd {0}/folder && touch ../file", "cp {1}/file {0}/in",
    "touch {1}/link/file", "rm {1}/link/file", "(sh -c '(touch {0}/file)' &) ; sleep 0.2",
    "/usr/bin/python3 -c 'import mmap; f = open(\"{0}/file\", \"r+b\"); mmap.mmap(f.fileno(), 0)'",
    "/usr/bin/python3 -c 'import os; os.utime(\"{0}/file\", (1, 1))'",
]
READINGS = [
    "cat {0}/file", "ls -lR {0}", "cp {0}/file {1}/out", "cd {0} && cat file > {1}/out",
    "ln -s {0}/file {1}/new", "grep -r x {0}/ ; true", "echo {0}/file > {1}/file",
    "/usr/bin/python3 -c 'import mmap; f = open(\"{0}/file\"); mmap.mmap(f.fileno(), 0, prot=1)'",
]


def traced_shell(work, number, line):
    """Runs a line of shell beside two folders; what it changed and what it opened in the first of them."""
    watched, other = work / f"watched{number}", work / f"other{number}"
    for folder in (watched, other):
        folder.mkdir()
        (folder / "file").write_bytes(b"x" * 8192)
    (watched / "folder").mkdir()
    (other / "link").symlink_to(watched)
    output = work / f"{number}.trace"
    subprocess.run([*trace.command(output), "sh", "-c", line.format(watched, other)],
                   check=True, cwd=other, stdout=subprocess.DEVNULL, timeout=60)
    recorded = trace.Trace(output, other)
    return recorded.changes_below(watched), recorded.opened_below(watched)


def check_the_recorder(work):
    """A recorder that misses something would prove nothing."""
    work.mkdir()
    for number, line in enumerate(CHANGES):
        changes, _ = traced_shell(work, number, line)
        assert changes, f"not noticed: {line}"
    for number, line in enumerate(READINGS, len(CHANGES)):
        changes, opened = traced_shell(work, number, line)
        assert not changes, f"{line}: {changes}"
        assert opened or line.startswith(("ln", "echo")), f"not seen: {line}"


def preview(window, song):
    """Plays a song, and closes the player."""
    area = window.area(window.row("Songs", song))
    before = window.windows_on_screen()
    window.desktop.xdotool("mousemove", area.x + 60, area.y + area.height // 2, "click", 3)
    window.wait_for("the menu", lambda: window.windows_on_screen() > before)
    window.desktop.xdotool("key", "Return") # its one entry
    window.wait_for("the player to open", lambda: window.active_window() == song)
    window.close_preview()


def copy_to(window, destination, button):
    destination.mkdir()
    window.set_text("Destination", str(destination))
    window.press(button)
    window.answer("Songlift", "Copy completed!", "OK")


def use_everything(window, newer, destinations):
    """Loads, searches, previews and copies from the first device, then loads and copies from the other."""
    window.wait_for_library()
    window.set_text("Search", "where")
    window.wait_for_rows("Artists", ["All (1 Artist)", "The Borrowed Umbrellas"])
    window.wait_for_rows("Songs", ["All (1 Item)", PREVIEWED])
    preview(window, PREVIEWED)
    window.press("Clear")
    window.choose("Artists", "The Borrowed Umbrellas")
    window.tick("Albums", "Morning Rounds")
    copy_to(window, destinations[0], "Copy to Destination")

    window.choose_device(f":) {newer.folder.name}")
    window.wait_for_library()
    window.choose("Artists", "青い灯台")
    window.choose("Albums", "港の歌")
    window.tick("Songs", "かもめとラジオ")
    copy_to(window, destinations[1], "Copy to destination")
    window.look_for_devices()
    window.desktop.xdotool("key", "Escape")
    assert window.close() == 0


def assert_both_copied(ipod, newer, destinations):
    assert_copied(ipod, destinations[0], FIRST_FILES)
    assert not newer.tracks
    newer.tracks = ipod.tracks
    assert_copied(newer, destinations[1], SECOND_FILES)


def play(stage):
    reason = trace.why_impossible(stage.work)
    if reason:
        raise Skipped(reason)
    check_the_recorder(stage.work / "recorder")

    ipod, newer = stage.sample_ipod("AN IPOD"), stage.sample_ipod("NEWER IPOD", "--newer")
    destinations = [stage.work / "copied", stage.work / "copied too"]
    output = stage.work / "songlift.trace"
    with stage.start(ipod.folder, newer.folder, under=trace.command(output)) as window:
        use_everything(window, newer, destinations)
    recorded = trace.Trace(output, stage.work.parent)
    library = "iPod_Control/iTunes/iTunes Library.itlp/"
    for device, expected in (
            (ipod, {"iPod_Control/iTunes/iTunesDB", ipod.tracks[PREVIEWED_INDEX].location,
                    ipod.tracks[0].location}),
            (newer, {library + "Library.itdb", library + "Locations.itdb",
                     ipod.tracks[17].location})):
        opened = recorded.opened_below(device.folder)
        assert expected <= opened, f"the recorder saw only {sorted(opened)}"
        assert recorded.changes_below(device.folder) == []
        device.assert_untouched()
    for destination in destinations: # where the program does write, it is seen
        assert recorded.changes_below(destination)
    assert_both_copied(ipod, newer, destinations)
    print(f"{len(recorded)} calls recorded")


if __name__ == "__main__":
    sys.exit(main(play))
