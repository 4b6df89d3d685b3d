"""A desktop of its own: a virtual screen with a window manager, and the two message buses that assistive
programs use. Nothing of the machine's own desktop or of the user's home is touched."""

import ctypes
import os
import select
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

SCREEN_SIZE = (1280, 1024)
PATIENCE = 60.0


class Waited(AssertionError):
    """What was waited for did not come."""


def wait_for(what, condition, patience=PATIENCE, pause=0.02):
    """The first true value that `condition` returns; fails after `patience` seconds."""
    deadline = time.monotonic() + patience
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > deadline:
            raise Waited(f"waited {patience:g} s in vain for {what}")
        time.sleep(pause)


def die_with_parent():
    """Ends the child when this program ends in whatever way, so that nothing is left running."""
    set_death_signal = 1
    ctypes.CDLL(None).prctl(set_death_signal, signal.SIGTERM)


class Desktop:
    """Starts the screen and the buses on entry and ends them on exit. With `display`, an X display that
    is there already is used instead of a virtual screen."""

    def __init__(self, display=None):
        self.folder = Path(tempfile.mkdtemp(prefix="songlift-desktop-"))
        self.environment = self._clean_environment()
        self._given_display = display
        self._children = []

    def __enter__(self):
        try:
            if self._given_display:
                self.environment["DISPLAY"] = self._given_display
                self.environment.setdefault("XAUTHORITY", str(Path.home() / ".Xauthority"))
            else:
                self._start_screen()
            self._start_buses()
            self._start_window_manager()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for child in reversed(self._children):
            child.terminate()
        for child in self._children:
            try:
                child.wait(10)
            except subprocess.TimeoutExpired:
                child.kill()
                child.wait()
        self._children.clear()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, *command, **options):
        """Starts a program that belongs to this desktop and ends with it."""
        child = subprocess.Popen(
            command, env=self.environment, stdin=subprocess.DEVNULL, preexec_fn=die_with_parent,
            **options)
        self._children.append(child)
        return child

    def xdotool(self, *words):
        """One command of the mouse and the keyboard."""
        result = subprocess.run(
            ["xdotool", *map(str, words)], env=self.environment, capture_output=True, text=True,
            timeout=PATIENCE, check=True)
        return result.stdout.strip()

    def active_title(self):
        """The title of the window that the window manager has in front; None between two of them."""
        try:
            return self.xdotool("getactivewindow", "getwindowname")
        except subprocess.CalledProcessError:
            return None

    def close_window(self, window=None):
        """Asks the window manager to close a window, or the one in front, as a task bar does."""
        subprocess.run(
            ["wmctrl", "-i", "-c", window or self.xdotool("getactivewindow")], env=self.environment,
            check=True, timeout=PATIENCE)

    def corner_of(self, window):
        """Where the top left corner of a window without a frame is on the screen."""
        told = dict(line.split("=") for line in
                    self.xdotool("getwindowgeometry", "--shell", window).splitlines())
        return int(told["X"]), int(told["Y"])

    def screenshot(self, path, area=None):
        """Takes a picture of the whole screen or of an area of it."""
        crop = []
        if area:
            crop = ["-crop", f"{area.width}x{area.height}+{area.x}+{area.y}", "+repage"]
        subprocess.run(
            ["import", "-window", "root", *crop, str(path)], env=self.environment, check=True,
            timeout=PATIENCE)

    def _clean_environment(self):
        kept = {name: value for name, value in os.environ.items()
                if name in ("PATH", "LD_LIBRARY_PATH", "ASAN_OPTIONS", "XAUTHORITY")}
        for folder in ("home", "home/.config", "home/.cache", "home/.local/share", "run"):
            (self.folder / folder).mkdir(parents=True, mode=0o700, exist_ok=True)
        home = self.folder / "home"
        return kept | {
            "HOME": str(home),
            "XDG_CONFIG_HOME": str(home / ".config"),
            "XDG_CACHE_HOME": str(home / ".cache"),
            "XDG_DATA_HOME": str(home / ".local/share"),
            "XDG_RUNTIME_DIR": str(self.folder / "run"),
            "TMPDIR": str(self.folder),
            "LANG": "C.UTF-8",
        }

    def _start_announcing(self, what, command):
        """Starts a program that writes one line, its address, to the file descriptor it is told."""
        reading, writing = os.pipe()
        self.start(*[word.replace("{fd}", str(writing)) for word in command], pass_fds=[writing],
                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as pipe:
            if not select.select([pipe], [], [], PATIENCE)[0]:
                raise Waited(f"{what} does not start")
            line = pipe.readline().strip()
        if not line:
            raise Waited(f"{what} does not start")
        return line

    def _start_screen(self):
        width, height = SCREEN_SIZE
        number = self._start_announcing(
            "the virtual screen",
            ["Xvfb", "-displayfd", "{fd}", "-screen", "0", f"{width}x{height}x24", "-dpi", "96",
             "-nolisten", "tcp", "-noreset"])
        self.environment["DISPLAY"] = ":" + number

    def _start_buses(self):
        # The accessibility bus is started by the session bus, as soon as somebody asks for it.
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = self._start_announcing(
            "the session bus", ["dbus-daemon", "--session", "--nofork", "--print-address={fd}"])

    def _start_window_manager(self):
        if not self._window_manager_runs():
            self.start("openbox", "--sm-disable", stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL)
            wait_for("the window manager", self._window_manager_runs)

    def _window_manager_runs(self):
        answer = subprocess.run(
            ["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"], env=self.environment,
            capture_output=True, text=True, timeout=PATIENCE, check=False)
        return "window id" in answer.stdout
