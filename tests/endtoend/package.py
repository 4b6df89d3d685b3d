"""The Debian package holds what it should and names what it needs, and the program that it installs starts,
under its own icon. With SONGLIFT_CLEAN_ROOT=1 it is installed into a Debian that is fetched for it (this
takes minutes); otherwise it is unpacked into a folder."""

import os
import re
import shutil
import subprocess
import sys
from pathlib import Path

from debian import CleanRoot, DebianPackage, needed_libraries, output_of, package_of_library
from scenario import load_small_sample, main

PROJECT = Path(__file__).resolve().parent.parent.parent
ID = "org.songlift.songlift"
VERSION = re.search(r"^project\(songlift VERSION (\S+)", (PROJECT / "CMakeLists.txt").read_text(),
                    re.MULTILINE).group(1)
CARRIED_SIZES = {16, 22, 24, 32, 48, 64, 128, 256}
INSTALLED_SIZES = CARRIED_SIZES | {512}

FILES = {
    "usr/share/applications/org.songlift.songlift.desktop",
    "usr/share/doc/songlift/changelog.gz",
    "usr/share/doc/songlift/copyright",
    "usr/share/icons/hicolor/16x16/apps/org.songlift.songlift.png",
    "usr/share/icons/hicolor/22x22/apps/org.songlift.songlift.png",
    "usr/share/icons/hicolor/24x24/apps/org.songlift.songlift.png",
    "usr/share/icons/hicolor/32x32/apps/org.songlift.songlift.png",
    "usr/share/icons/hicolor/48x48/apps/org.songlift.songlift.png",
    "usr/share/icons/hicolor/64x64/apps/org.songlift.songlift.png",
    "usr/share/icons/hicolor/128x128/apps/org.songlift.songlift.png",
    "usr/share/icons/hicolor/256x256/apps/org.songlift.songlift.png",
    "usr/share/icons/hicolor/512x512/apps/org.songlift.songlift.png",
    "usr/share/icons/hicolor/scalable/apps/org.songlift.songlift.svg",
    "usr/share/man/man1/songlift.1.gz",
    "usr/share/metainfo/org.songlift.songlift.metainfo.xml",
}
PROGRAM = "usr/bin/songlift"


def build_package():
    """Makes the package as a person would."""
    said = output_of("nice", PROJECT / "scripts/package")
    architecture = output_of("dpkg", "--print-architecture").strip()
    path = f"build-package/songlift_{VERSION}_{architecture}.deb"
    assert said.splitlines()[-1:] == [path], said
    return DebianPackage(PROJECT / path)


def check_contents(package):
    """Just these files, with their folders, for root to write and for all to read."""
    folders = {str(folder) for file in FILES | {PROGRAM} for folder in Path(file).parents}
    expected = {file: "-rw-r--r-- root/root" for file in FILES}
    expected |= {folder: "drwxr-xr-x root/root" for folder in folders - {"."}}
    expected[PROGRAM] = "-rwxr-xr-x root/root"
    assert package.contents() == expected, package.contents()


def check_description(package):
    assert package.field("Package") == "songlift"
    assert package.field("Version") == VERSION
    assert package.field("Section") == "sound"
    assert package.field("Priority") == "optional"
    assert package.field("Maintainer") == "Songlift developers <songlift@songlift.invalid>"
    summary, *text = package.field("Description").splitlines()
    assert summary == "copy music and video off an iPod into folders"
    assert len(text) > 3, text


def check_dependencies(package, program):
    """Every library that the program names comes with a package that it depends on, and with no other."""
    libraries, run_paths = needed_libraries(program)
    assert {"libQt6Widgets.so.6", "libmpv.so.2", "libsqlite3.so.0"} < libraries, libraries
    assert run_paths == []
    assert package.packages("Depends") == {package_of_library(name) for name in libraries}
    assert package.packages("Recommends") == {"hicolor-icon-theme", "qt6-wayland"}
    # This machine has built it, so it has what it needs.
    assert package.newly_installed() == {"songlift"}


def check_program(program):
    """Stripped, and without the folder that it was built in."""
    assert ".symtab" not in output_of("readelf", "--sections", "--wide", program)
    assert os.fsencode(PROJECT) not in program.read_bytes()


def check_papers(root):
    """What is compressed can be read, and the desktop entry starts what is installed."""
    manual = output_of("man", "-l", root / "usr/share/man/man1/songlift.1.gz")
    assert "SONGLIFT_DRIVES" in manual, manual
    changes = output_of("gzip", "-dc", root / "usr/share/doc/songlift/changelog.gz")
    assert changes.startswith(f"songlift ({VERSION}) "), changes
    entry = (root / f"usr/share/applications/{ID}.desktop").read_text().splitlines()
    assert {"Exec=songlift", f"Icon={ID}", "StartupWMClass=Songlift"} < set(entry), entry


def property_of_window(stage, name):
    """A property of the active window, as text."""
    return subprocess.run(
        ["xprop", "-id", stage.desktop.xdotool("getactivewindow"), "-len", "4000000", name],
        env=stage.desktop.environment, capture_output=True, text=True, check=True).stdout


def check_window(stage, ipod, program, shared_data, sizes):
    """The window stands, with the sample in it, and has the icon in these sizes, and the class that the
    desktop entry names. Icon themes are looked for in `shared_data`."""
    stage.desktop.environment["XDG_DATA_DIRS"] = str(shared_data)
    with stage.start(ipod.folder, program=program) as window:
        load_small_sample(window)
        assert property_of_window(stage, "WM_CLASS").split(" = ")[1].strip() == '"songlift", "Songlift"'
        icons = property_of_window(stage, "_NET_WM_ICON")
        found = re.findall(r"Icon \((\d+) x (\d+)\)", icons)
        assert set(found) == {(str(size), str(size)) for size in sizes}, found
        assert window.close() == 0


def check_clean_root(stage, ipod, package):
    """Installed where nothing else is, the program still starts; removed, it leaves nothing."""
    root = CleanRoot(stage.work / "clean")
    root.install(package)
    assert root.run("dpkg", "--verify", "songlift") == ""
    starter = root.starter(stage.work / "start", f"/{PROGRAM}", "/tmp", stage.desktop.folder)
    # Nothing that it depends on brings an icon theme.
    check_window(stage, ipod, starter, "/usr/share", CARRIED_SIZES)
    root.run("apt-get", "purge", "--yes", "songlift")
    assert list(root.folder.glob("usr/share/*/songlift*")) == []
    assert not (root.folder / PROGRAM).exists()


def play(stage):
    # In a folder that a clean root can share.
    ipod = stage.small_ipod(folder=stage.desktop.folder / "SAMPLE IPOD")
    check_window(stage, ipod, None, stage.work / "nothing", CARRIED_SIZES)

    package = build_package()
    check_contents(package)
    check_description(package)
    unpacked = stage.work / "unpacked"
    package.unpack(unpacked)
    check_dependencies(package, unpacked / PROGRAM)
    check_program(unpacked / PROGRAM)
    check_papers(unpacked)
    if os.environ.get("SONGLIFT_CLEAN_ROOT") == "1":
        check_clean_root(stage, ipod, package)
    else:
        theme = "usr/share/icons/hicolor/index.theme"
        shutil.copy(f"/{theme}", unpacked / theme)
        check_window(stage, ipod, unpacked / PROGRAM, unpacked / "usr/share", INSTALLED_SIZES)
    ipod.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
