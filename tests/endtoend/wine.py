"""A small Windows of its own, in which the program for Windows runs: wine, with an iPod at E:, on a virtual
screen. Wine tells assistive programs nothing, so that the mouse goes by where things stand in the window, and
what became of it is seen in the files."""

import os
import signal
import subprocess
import time
from pathlib import Path

from desktop import PATIENCE, wait_for
from ipod import Ipod

# In pixels from the window's inner corner, in the size in which it first opens.
ALL_FILES_TAB = (40, 65)
VIDEO_TAB = (170, 65)
ALL_ARTISTS = (21, 96)
FIRST_SONG = (700, 116)
DESTINATION = (558, 551)
# Behind what is typed there; grey while a job runs.
DESTINATION_END = (860, 551)
COPY = (896, 587)


class Wine:
    """One installation, in a folder; its server ends with it."""

    def __init__(self, desktop, folder):
        self.desktop = desktop
        self.folder = folder
        self.drive_c = folder / "drive_c"
        desktop.environment |= {
            "WINEPREFIX": str(folder),
            "WINEDLLOVERRIDES": "mscoree,mshtml=;winemenubuilder.exe=d",
            "WINEDEBUG": "-all",
        }

    def __enter__(self):
        self.run("wineboot", "--init")
        # A floppy disk is what it calls a drive that can be taken out.
        self.run("wine", "reg", "add", r"HKLM\Software\Wine\Drives", "/v", "e:", "/d", "floppy", "/f")
        self.end()
        return self

    def __exit__(self, *_):
        self.run("wineserver", "-k", check=False)
        self.end()

    def run(self, *command, check=True):
        """Runs a command to its end; returns what it says."""
        return subprocess.run(command, env=self.desktop.environment, check=check, timeout=300, text=True,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout

    def end(self):
        """Waits until the server has ended, which happens when no program is left."""
        self.run("wineserver", "-w")

    def attach(self, folder):
        """Puts an iPod into drive E:."""
        (folder / ".windows-label").write_text("SAMPLE IPOD\n")
        self.assign("e:", folder)
        return Ipod(folder)

    def assign(self, letter, folder):
        """Gives a folder a drive's letter, in place of any other folder."""
        drive = self.folder / "dosdevices" / letter
        drive.unlink(missing_ok=True)
        drive.symlink_to(folder)

    def share(self, name):
        """A share of the network, \\\\server\\share for "server/share"; returns its folder."""
        folder = self.folder / "dosdevices/unc" / name
        folder.mkdir(parents=True)
        return folder

    def setting(self, name):
        """What the program keeps in the registry."""
        said = self.run("wine", "reg", "query", r"HKCU\Software\Songlift\Settings", "/v", name, check=False)
        return said.split("REG_SZ", 1)[1].strip() if "REG_SZ" in said else None


def around(place):
    """A small area of the window."""
    return f"16x16+{place[0] - 8}+{place[1] - 8}"


class Program:
    """The program in its window."""

    def __init__(self, wine, path, under=()):
        self._desktop = wine.desktop
        self._process = subprocess.Popen(
            [*under, "wine", str(path)], env=wine.desktop.environment, stdin=subprocess.DEVNULL,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_for("the window", lambda: self.windows() == 1)
        self._main = self._search()[0]

    def wait_for_library(self):
        """Waits for the first row's check box, which stands in an area that is plain without a library."""
        wait_for("the library", lambda: self._colours(self._main, around(ALL_ARTISTS)) > 1, pause=0.3)

    def wait_for_film(self):
        """Waits for a picture of many colours in the preview."""
        wait_for("the preview", lambda: self.windows() == 2)
        wait_for("the film", lambda: self._colours(self._preview(), "280x200+10+10") > 50, pause=0.3)

    def looks(self, place):
        """What stands around a place of the window, as something to compare."""
        return self._shown(self._main, around(place), "%#")

    def _preview(self):
        return next(window for window in self._search() if window != self._main)

    def _colours(self, window, area):
        return int(self._shown(window, area, "%k"))

    def _shown(self, window, area, what):
        return subprocess.run(
            ["import", "-window", window, "-crop", area, "-format", what, "info:-"],
            env=self._desktop.environment, capture_output=True, text=True, timeout=PATIENCE, check=True).stdout

    def windows(self):
        """How many windows it shows."""
        return len(self._search())

    def _search(self):
        found = subprocess.run(
            ["xdotool", "search", "--onlyvisible", "--class", "songlift.exe"],
            env=self._desktop.environment, capture_output=True, text=True, timeout=PATIENCE, check=False)
        return found.stdout.split()

    def click(self, place, button=1):
        self._desktop.xdotool("mousemove", "--window", self._main, *place, "click", button)
        time.sleep(0.5)

    def type_destination(self, path):
        self.click(DESTINATION)
        self._desktop.xdotool("key", "ctrl+a", "type", "--delay", 15, path)
        self._desktop.xdotool("key", "Tab")
        time.sleep(0.5)

    def choose_preview(self, place):
        """By the menu of a song."""
        self.click(place, button=3)
        self._desktop.xdotool("key", "Down", "Return")

    def close_preview(self):
        self._desktop.close_window(self._preview())
        wait_for("the preview to go", lambda: self.windows() == 1)

    def answer(self, what, key, patience=PATIENCE):
        """Waits for a message or a question, and answers it with a key."""
        wait_for(what, lambda: self.windows() == 2, patience)
        asked = self._search()

        def answered():
            # A key that comes before the window listens is lost. One too many would press Cancel behind it,
            # so the next waits until a slow machine must have heeded the first.
            self._desktop.xdotool("key", key)
            end = time.monotonic() + 5
            while self._search() == asked and time.monotonic() < end:
                time.sleep(0.1)
            return self._search() != asked
        time.sleep(0.5)
        wait_for(f"{what} to go", answered)

    def close(self):
        """Closes the window as a user does."""
        time.sleep(0.5)  # a message that has just gone still holds it
        self._desktop.close_window(self._main)
        return self._process.wait(PATIENCE)

    def freeze(self):
        """Stops the program, so that it finds what is clicked meanwhile when it goes on."""
        self._signal(signal.SIGSTOP)

    def thaw(self):
        self._signal(signal.SIGCONT)

    def kill(self):
        """Ends the program as a power cut would."""
        self._signal(signal.SIGKILL)
        self._process.wait(PATIENCE)

    def _signal(self, number):
        for folder in Path("/proc").glob("[0-9]*"):
            try:
                isIt = (b"songlift.exe" in (folder / "cmdline").read_bytes()
                        and self._is_below(int(folder.name)))
            except OSError:
                continue
            if isIt:
                os.kill(int(folder.name), number)

    def _is_below(self, process):
        while process > 1 and process != self._process.pid:
            process = int(Path(f"/proc/{process}/stat").read_text().rsplit(")", 1)[1].split()[1])
        return process == self._process.pid
