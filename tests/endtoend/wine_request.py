"""The program for Windows, under wine, with a real mouse: an iPod at E: is copied whole, with every byte
and nothing written to it; a second start knows its settings, replaces or keeps what is there as it is told,
and can be cancelled; one that is killed in the middle leaves nothing half under a final name, and neither
does a disk that is full; and the installer installs a program that lists, plays and copies real music and
films."""

import sys
from pathlib import Path

import trace
from desktop import wait_for
from full_disk import small_disk
from ipod import MUSIC, assert_copied, same_bytes, tree
from overwriting import FILES
from scenario import WHOLE_SMALL_SAMPLE, Skipped, freeze_in_large_file, main
from wine import ALL_ARTISTS, ALL_FILES_TAB, COPY, DESTINATION_END, FIRST_SONG, VIDEO_TAB, Program, Wine

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
    window.click(ALL_ARTISTS)
    window.type_destination("E:\\music")
    window.click(COPY)
    window.answer("the refusal of a destination on the iPod", "Return")
    window.type_destination(r"C:\music\new")
    window.click(COPY)
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
    """Nothing is typed: the destination is known, so that files stand there already. What is asked about them
    is done; then a job is cancelled in the middle of the large file, and another one begun."""
    window = Program(wine, stage.program)
    window.wait_for_library()
    at_rest = window.looks(DESTINATION_END)

    def wait_for_rest():
        wait_for("the job to end", lambda: window.windows() == 1 and window.looks(DESTINATION_END) == at_rest)

    check_the_questions(window, ipod, music / "new")
    wait_for_rest()
    window.type_destination(r"C:\music\cancelled")
    window.click(COPY)
    window.answer("the question whether to create the folder", "Return")
    *before, large = WHOLE_SMALL_SAMPLE
    wait_for("the file before the large one", (music / "cancelled" / before[-1]).exists)
    freeze_in_large_file(window, music / "cancelled")
    while_copying = window.looks(DESTINATION_END)
    window.click(COPY)
    window.thaw()
    assert while_copying != at_rest
    wait_for_rest()
    assert tree(music / "cancelled") == sorted([*before, str(Path(large).parent)])
    assert_whole(ipod, music / "cancelled", before)

    window.click(COPY)
    window.answer("the question whether to replace", "Escape")
    wait_for_rest()
    assert window.close() == 0


def check_the_questions(window, ipod, folder):
    """Only the file whose question is answered by Replace changes."""
    old = {file: f"older than {file}".encode() for file in FILES}
    for file in FILES:
        (folder / file).write_bytes(old[file])
    copy_all(window)
    for key in ("alt+r", "alt+s", "Escape"): # Replace, Skip, Cancel
        window.answer("the question whether to replace", key)
    replaced, *kept = FILES
    assert same_bytes(folder / replaced, ipod.file(FILES[replaced]))
    assert [(folder / file).read_bytes() for file in kept] == [old[file] for file in kept]
    assert tree(folder) == sorted(WHOLE_SMALL_SAMPLE)


def check_a_kill(stage, wine, ipod, music):
    window = Program(wine, stage.program)
    window.wait_for_library()
    window.type_destination(r"C:\music\killed")
    copy_all(window)
    window.answer("the question whether to create the folder", "Return")
    freeze_in_large_file(window, music / "killed")
    window.kill()
    wine.end()
    killed = music / "killed"
    assert_whole(ipod, killed, [path for path in tree(killed) if not path.startswith("tmp")])


def assert_whole(ipod, folder, paths):
    """Some files of the sample have been copied, and those are whole."""
    files = [path for path in paths if (folder / path).is_file()]
    assert files and len(files) < len(WHOLE_SMALL_SAMPLE), files
    for path in files:
        assert same_bytes(folder / path, ipod.file(WHOLE_SMALL_SAMPLE[path])), path


def check_a_full_disk(stage, wine, ipod):
    with small_disk(stage.work / "disk") as disk:
        wine.assign("f:", disk)
        window = Program(wine, stage.program)
        window.wait_for_library()
        window.type_destination("F:\\")
        copy_all(window)
        window.answer("the question whether to copy as much as possible", "Return")
        window.answer("the full disk", "Escape")
        wait_for("the job to end", lambda: window.windows() == 1)
        assert window.close() == 0
        assert_whole(ipod, disk, tree(disk))


def check_the_installer(stage, wine, dist):
    """Installs silently for the user alone, and goes again; what it installs is used in between."""
    setup = next(dist.glob("songlift-*-setup.exe"))
    wine.run("wine", str(setup), "/S")
    folder = next((wine.drive_c / "users").glob("*/AppData/Local/Programs")) / "Songlift"
    shortcuts = list((wine.drive_c / "users").glob("*/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/*.lnk"))
    assert same_bytes(folder / "songlift.exe", dist / "songlift.exe")
    assert [shortcut.name for shortcut in shortcuts] == ["Songlift.lnk"]
    check_real_music(stage, wine, folder / "songlift.exe")
    wine.run("wine", str(folder / "uninstall.exe"), "/S")
    wait_for("the program to be gone", lambda: not folder.exists() and not shortcuts[0].exists())


def check_real_music(stage, wine, program):
    """To a share of the network, which is a folder here."""
    ipod = wine.attach(stage.sample_ipod("real music").folder)
    share = wine.share("server/share")
    window = Program(wine, program)
    window.wait_for_library()
    window.click(VIDEO_TAB)
    window.choose_preview(FIRST_SONG)
    window.wait_for_film()
    assert open_below(ipod.folder / MUSIC)
    window.close_preview()
    wait_for("the film's file to be closed", lambda: not open_below(ipod.folder / MUSIC), patience=1)

    window.click(ALL_FILES_TAB)
    window.type_destination(r"\\server\share\real")
    copy_all(window)
    window.answer("the question whether to create the folder", "Return")
    window.answer("the end of the job", "Return", patience=300)
    assert window.close() == 0
    assert contents(share / "real") == contents(ipod.folder / MUSIC)
    ipod.assert_untouched()


def open_below(folder):
    """What any program holds open below a folder."""
    found = []
    for link in Path("/proc").glob("[0-9]*/fd/*"):
        try:
            found.append(link.readlink())
        except OSError:
            continue  # it has been closed meanwhile
    return [path for path in found if path.is_relative_to(folder)]


def contents(folder):
    """What the files below a folder hold, whatever they are called."""
    return sorted(path.read_bytes() for path in folder.rglob("*") if path.is_file())


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
        check_a_full_disk(stage, wine, ipod)
        check_the_installer(stage, wine, Path(sys.argv[3]).resolve())


if __name__ == "__main__":
    sys.exit(main(play))
