"""The program for Windows, under wine, with a real mouse: an iPod at E: is copied whole, with every byte
and nothing written to it; a second start knows its settings, asks before it replaces and can be cancelled;
one that is killed in the middle leaves nothing half under a final name; and the installer works."""

import sys
from pathlib import Path

import trace
from desktop import wait_for
from ipod import assert_copied, same_bytes, tree
from scenario import WHOLE_SMALL_SAMPLE, Skipped, main
from wine import ALL_ARTISTS, COPY, Program, Wine

# Windows counts time in steps of so many nanoseconds.
FILE_TIME = 100


def copy_all(window):
    window.wait_for_library()
    window.click(ALL_ARTISTS)
    window.click(COPY)


def check_a_copy(stage, wine, ipod, music):
    """What changes files is recorded: of the program, and of wine's server, which opens them for it."""
    outputs = [stage.work / "server.trace", stage.work / "program.trace"]
    server = wine.desktop.start(*trace.command(outputs[0]), "wineserver", "--foreground", "--persistent=1")
    window = Program(wine, stage.program, trace.command(outputs[1]))
    window.wait_for_library()
    window.type_destination(r"C:\music\new")
    copy_all(window)
    window.answer("the question whether to create the folder", "Return")
    window.answer("the end of the job", "Return", patience=300)
    assert window.close() == 0
    server.wait(60)

    assert_copied(ipod, music / "new", WHOLE_SMALL_SAMPLE, FILE_TIME)
    ipod.assert_untouched()
    recorded = [trace.Trace(output, stage.work.parent) for output in outputs]
    assert [calls.changes_below(ipod.folder) for calls in recorded] == [[], []]
    assert recorded[0].changes_below(music), "the recorder sees nothing"
    assert ipod.tracks[0].location in recorded[0].opened_below(ipod.folder)
    assert wine.setting("DestPath") == r"C:\music\new"


def check_a_second_start(stage, wine, ipod, music):
    """Nothing is typed: the destination is known, so that the first file stands there already."""
    window = Program(wine, stage.program)
    copy_all(window)
    window.answer("the question whether to replace", "Escape")
    wait_for("the job to end", lambda: window.windows() == 1)
    assert window.close() == 0
    assert_copied(ipod, music / "new", WHOLE_SMALL_SAMPLE, FILE_TIME)


def check_a_kill(stage, wine, ipod, music):
    window = Program(wine, stage.program)
    window.wait_for_library()
    window.type_destination(r"C:\music\killed")
    copy_all(window)
    window.answer("the question whether to create the folder", "Return")
    wait_for("the large file to be begun", (music / "killed/tmp/copy.tmp").exists, patience=300, pause=0.001)
    window.kill()
    wine.end()
    killed = music / "killed"
    left = [path for path in tree(killed) if (killed / path).is_file() and not path.startswith("tmp")]
    assert left and len(left) < len(WHOLE_SMALL_SAMPLE), left
    for path in left:
        assert same_bytes(killed / path, ipod.file(WHOLE_SMALL_SAMPLE[path])), path


def check_the_installer(wine, dist):
    """Installs silently for the user alone, and goes again."""
    setup = next(dist.glob("songlift-*-setup.exe"))
    wine.run("wine", str(setup), "/S")
    folder = next((wine.drive_c / "users").glob("*/AppData/Local/Programs")) / "Songlift"
    shortcuts = list((wine.drive_c / "users").glob("*/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/*.lnk"))
    assert same_bytes(folder / "songlift.exe", dist / "songlift.exe")
    assert [shortcut.name for shortcut in shortcuts] == ["Songlift.lnk"]
    wine.run("wine", str(folder / "uninstall.exe"), "/S")
    wait_for("the program to be gone", lambda: not folder.exists() and not shortcuts[0].exists())


def play(stage):
    reason = trace.why_impossible(stage.work)
    if reason:
        raise Skipped(reason)
    with Wine(stage.desktop, stage.work / "wine") as wine:
        ipod = wine.attach(stage.small_ipod().folder)
        music = wine.drive_c / "music"
        check_a_copy(stage, wine, ipod, music)
        check_a_second_start(stage, wine, ipod, music)
        check_a_kill(stage, wine, ipod, music)
        check_the_installer(wine, Path(sys.argv[3]))


if __name__ == "__main__":
    sys.exit(main(play))
