"""Drives the built program as a person would: reads its window through the accessibility bus and acts with
the real mouse and keyboard. Everything waits for a condition, nothing for a time."""

import os
import signal
import subprocess
import sys
import time
from collections import namedtuple
from pathlib import Path

from desktop import PATIENCE, Waited, die_with_parent, wait_for

Area = namedtuple("Area", "x y width height")

# Where in a row the check box is, from the row's left edge.
CHECK_BOX_X = 9
LISTS = ("Artists", "Albums", "Songs", "Folders")

# Two clicks at one place within this time, in seconds, are a double click.
DOUBLE_CLICK = 0.5


class Bus:
    """The accessibility bus of a desktop. One process can look at one bus only."""

    def __init__(self, desktop):
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = desktop.environment["DBUS_SESSION_BUS_ADDRESS"]
        os.environ["DISPLAY"] = desktop.environment["DISPLAY"]
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi, GLib
        self.atspi = Atspi
        self.error = GLib.Error
        Atspi.init()
        Atspi.set_timeout(int(PATIENCE * 1000), int(PATIENCE * 1000))

    def application(self, pid):
        """The root of the program's controls; None while the program has not shown itself."""
        desktop = self.atspi.get_desktop(0)
        desktop.set_cache_mask(self.atspi.Cache.NONE)
        for index in range(desktop.get_child_count()):
            application = desktop.get_child_at_index(index)
            if application and application.get_process_id() == pid:
                application.set_cache_mask(self.atspi.Cache.NONE)
                return application
        return None


class Songlift:
    """One run of the program; `under` is a command that runs it and keeps its process id."""

    def __init__(self, desktop, bus, program, drives=(), under=()):
        self.desktop = desktop
        self.bus = bus
        self.atspi = bus.atspi
        environment = desktop.environment | {
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1",
            "QT_ACCESSIBILITY": "1",
            "QT_QPA_PLATFORM": "xcb",
            "SONGLIFT_DRIVES": ":".join(map(str, drives)),
        }
        self.output_path = desktop.folder / "output"
        with open(self.output_path, "ab") as output:
            self.process = subprocess.Popen(
                [*under, str(program)], env=environment, stdin=subprocess.DEVNULL, stdout=output,
                stderr=subprocess.STDOUT, preexec_fn=die_with_parent)
        self.application = None
        self._last_click = (0, 0, 0.0)

    def __enter__(self):
        try:
            self.application = self.wait_for("the program to show itself", self._show_itself)
            self.wait_for("the window to be active", self._main_window_is_active)
        except BaseException as failure:
            self.__exit__(failure)
            raise
        return self

    def __exit__(self, failure, *_):
        if failure:
            self._show_failure()
        if self.process.poll() is None:
            self.kill()

    def wait_for(self, what, condition, patience=PATIENCE):
        """The first true value of a condition that reads the windows. They may close or be filled anew
        while they are being read; then it is asked again."""
        def asked():
            try:
                return condition()
            except self.bus.error as error:
                if self.process.poll() is not None:
                    raise Waited(f"the program ended with {self.process.returncode} while "
                                 f"{what} was waited for") from error
                return None
        return wait_for(what, asked, patience)

    def _show_failure(self):
        """Leaves a picture and what the windows hold, for whoever looks into a failure."""
        picture = Path(Path(sys.argv[0]).stem + ".png").resolve()
        self.desktop.screenshot(picture)
        print(f"The screen at that moment: {picture}")
        print(f"The program said:\n{self.output_path.read_text(errors='replace')}")
        if self.application is None or not self._answers():
            return
        for window in self._windows():
            for control in (window, *self._walk(window)):
                print(f"  {control.get_role_name()} {control.get_name()!r}")

    def _answers(self):
        """Whether the process runs and is not frozen."""
        state = Path(f"/proc/{self.process.pid}/stat")
        return state.exists() and state.read_text().rsplit(")", 1)[1].split()[0] not in "TZ"

    def _show_itself(self):
        if self.process.poll() is not None:
            raise Waited(f"the program ended with {self.process.returncode} at its start")
        return self.bus.application(self.process.pid)

    def _main_window_is_active(self):
        return any(self._is_active(window) for window in self._windows())

    # What stands in the windows.

    def _windows(self):
        """The visible windows."""
        windows = [self.application.get_child_at_index(index)
                   for index in range(self.application.get_child_count())]
        return [window for window in windows if window and self._shows(window)]

    def _walk(self, node):
        """All controls below a node. The rows of lists are left out: there may be thousands."""
        for index in range(node.get_child_count()):
            child = node.get_child_at_index(index)
            if child is None:
                continue
            yield child
            if child.get_name() not in LISTS:
                yield from self._walk(child)

    def main_window(self):
        """The window of the three lists."""
        return next(window for window in self._windows()
                    if self._search(lambda control: control.get_name() == "Artists", window))

    def controls(self, window):
        """The visible controls of a window, without the rows of lists."""
        return [control for control in self._walk(window) if self._shows(control)]

    def devices(self):
        """The entries of the list of iPods, open or not."""
        return [entry for entry in self._walk(self._device_list())
                if entry.get_role() == self.atspi.Role.LIST_ITEM]

    def _search(self, fits, window=None):
        """The first visible control that fits, in one window or in all; None when there is none."""
        for root in [window] if window else self._windows():
            for control in self._walk(root):
                if fits(control) and self._shows(control):
                    return control
        return None

    def _has(self, control, state):
        return control.get_state_set().contains(state)

    def _shows(self, control):
        return self._has(control, self.atspi.StateType.SHOWING)

    def _is_active(self, window):
        # Only then has the window manager put it where it stays.
        return self._has(window, self.atspi.StateType.ACTIVE)

    def _label(self, fits, window=None):
        return self._search(lambda control: control.get_role() == self.atspi.Role.LABEL
                            and fits(control.get_name()), window)

    def control(self, name, role=None, window=None):
        """The visible control of a name, waited for."""
        return self.wait_for(f'the control "{name}"', lambda: self._search(
            lambda control: control.get_name() == name
            and role in (None, control.get_role()), window))

    def button(self, name, window=None):
        """A push button by its text."""
        return self.control(name, self.atspi.Role.PUSH_BUTTON, window)

    def says(self, text, window=None):
        """Whether a label shows just this text. Both ways to end a line look the same."""
        return self._label(lambda shown: shown.replace("\r", "\n") == text.replace("\r", "\n"),
                           window) is not None

    def wait_for_text(self, text, patience=PATIENCE):
        """Waits until a label shows just this text."""
        self.wait_for(f"the text {text!r}", lambda: self.says(text), patience)

    def wait_for_library(self):
        """Waits until an iPod is loaded, and nothing of it ticked."""
        self.wait_for("a library to be loaded", lambda: self._label(
            lambda shown: shown.startswith("Selected: 0 KB of ")))

    def message(self, title, text):
        """The window of a title and a text, waited for."""
        def standing():
            for window in self._windows():
                if (window.get_name() == title and self._is_active(window)
                        and self.says(text, window)):
                    return window
            return None
        return self.wait_for(f"the message {text!r} titled {title!r}", standing)

    def active_window(self):
        """The title of the window in front; None where none is."""
        for window in self._windows():
            if self._is_active(window):
                return window.get_name()
        return None

    def focus(self):
        """What keys reach in the window in front: its name, "<name> button", or "iPods" for their list."""
        # The chosen tab and entry always say that they have the focus; what holds them tells the truth.
        role = self.atspi.Role
        for window in self._windows():
            if self._is_active(window):
                control = self._search(
                    lambda control: control.get_role() not in (role.PAGE_TAB, role.LIST_ITEM)
                    and self._has(control, self.atspi.StateType.FOCUSED), window)
                if control:
                    suffix = " button" if control.get_role() == role.PUSH_BUTTON else ""
                    combo = control.get_role() == role.COMBO_BOX
                    return "iPods" if combo else control.get_name() + suffix
        return None

    def windows_on_screen(self):
        """The windows that the program shows; the accessibility bus does not tell of open menus."""
        return set(self.desktop.xdotool(
            "search", "--all", "--onlyvisible", "--pid", self.process.pid).splitlines())

    def current_row(self, list_name):
        """The text of a list's current row; None where none is current."""
        rows = self.control(list_name)
        for index in range(rows.get_child_count()):
            row = rows.get_child_at_index(index)
            if row and self._has(row, self.atspi.StateType.SELECTED):
                return row.get_name()
        return None

    def enabled(self, control):
        """Whether a control takes the mouse."""
        return self._has(control, self.atspi.StateType.ENABLED)

    def checked(self, control):
        """Whether a check box or a row is ticked."""
        return self._has(control, self.atspi.StateType.CHECKED)

    def has_focus(self, control):
        """Whether keys go to a control."""
        return self._has(control, self.atspi.StateType.FOCUSED)

    def offers_folders(self):
        """Whether folders are offered for the path that is being typed."""
        return self._search(lambda control: control.get_name() == "Folders") is not None

    def progress(self):
        """How much of the progress bar is filled, from 0 to 1."""
        bar = self.control("Progress")
        return bar.get_current_value() / bar.get_maximum_value()

    def text_of(self, name):
        """The text in an edit field."""
        field = self.control(name)
        return self.atspi.Text.get_text(field, 0, self.atspi.Text.get_character_count(field))

    def text_of_device(self):
        """The chosen entry of the list of iPods."""
        return self._device_list().get_name()

    def label_of_device_list(self):
        """What the list of iPods is called by a screen reader."""
        box = self._device_list()
        return [relation.get_target(0).get_name() for relation in box.get_relation_set()
                if relation.get_relation_type() == self.atspi.RelationType.LABELLED_BY]

    def choose_device(self, ends_with):
        """Opens the list of iPods, and chooses an entry by the end of its text."""
        self.click(self._device_list())
        self.click(self.wait_for(f'the iPod "{ends_with}" in the list', lambda: self._search(
            lambda control: control.get_role() == self.atspi.Role.LIST_ITEM
            and control.get_name().endswith(ends_with))))

    def look_for_devices(self):
        """Opens the list of iPods, which makes the program look; where none is left, nothing opens."""
        self.click(self._device_list())

    def _device_list(self):
        # On this system the name of a drop-down list is what is chosen in it.
        return self.wait_for("the list of iPods", lambda: self._search(
            lambda control: control.get_role() == self.atspi.Role.COMBO_BOX))

    def take_picture(self, path):
        """Takes a picture of the main window and of what lies over it."""
        self.desktop.screenshot(path, self.area(self.main_window()))

    # The rows of the three lists.

    def ticks(self, list_name):
        """Text and check state of each row."""
        rows = self.control(list_name)
        children = [rows.get_child_at_index(index) for index in range(rows.get_child_count())]
        return [(row.get_name(), self.checked(row)) for row in children if row]

    def rows(self, list_name):
        """The texts of a list's rows."""
        return [text for text, _ in self.ticks(list_name)]

    def row(self, list_name, text):
        """The row of a text, waited for."""
        def standing():
            rows = self.control(list_name)
            for index in range(rows.get_child_count()):
                row = rows.get_child_at_index(index)
                if row and row.get_name() == text:
                    return row
            return None
        return self.wait_for(f'the row "{text}" in {list_name}', standing)

    def wait_for_rows(self, list_name, texts, patience=PATIENCE):
        """Waits until a list shows just these rows."""
        self.wait_for(f"{list_name} to show {texts}", lambda: self.rows(list_name) == texts, patience)

    def tick(self, list_name, text, ticked=True):
        """Clicks a row's check box and waits until the row says so."""
        self._click_row(list_name, text, CHECK_BOX_X)
        self.wait_for(f'the check mark of "{text}" in {list_name} to be {ticked}',
                      lambda: self.checked(self.row(list_name, text)) == ticked)

    def choose(self, list_name, text):
        """Makes a row the current one by a click on its text. What depends on it stands anew then."""
        self._click_row(list_name, text, CHECK_BOX_X + 30)
        self.wait_for(f'"{text}" to be the current row of {list_name}',
                      lambda: self._has(self.row(list_name, text), self.atspi.StateType.SELECTED))

    def _click_row(self, list_name, text, at_x):
        view = self.area(self.control(list_name))
        area = self.area(self.row(list_name, text))
        if area.y < view.y or area.y + area.height > view.y + view.height:
            raise Waited(f'the row "{text}" of {list_name} is out of view')
        self.click_area(area, at_x)

    # The mouse and the keyboard.

    def area(self, control):
        """Where a control is on the screen, once it has come to rest there."""
        def at_rest():
            first, second = (control.get_extents(self.atspi.CoordType.SCREEN) for _ in range(2))
            same = (first.x, first.y, first.width, first.height) == (
                second.x, second.y, second.width, second.height)
            if same and first.width > 0 and first.height > 0 and first.x >= 0 and first.y >= 0:
                return Area(first.x, first.y, first.width, first.height)
            return None
        return self.wait_for(f'"{control.get_name()}" to be on the screen', at_rest)

    def click(self, control, at_x=None):
        """Clicks into the middle of a control, or `at_x` pixels right of its left edge."""
        self.click_area(self.area(control), at_x)

    def click_area(self, area, at_x=None):
        """Clicks into an area of the screen; needs no answer from the program."""
        x = area.x + (area.width // 2 if at_x is None else min(at_x, area.width // 2))
        y = area.y + area.height // 2
        last_x, last_y, then = self._last_click
        if abs(x - last_x) < 10 and abs(y - last_y) < 10:
            time.sleep(max(0.0, then + DOUBLE_CLICK - time.monotonic()))
        self.desktop.xdotool("mousemove", x, y, "click", 1)
        self._last_click = (x, y, time.monotonic())

    def press(self, name, window=None):
        """Clicks an enabled button."""
        button = self.button(name, window)
        self.wait_for(f'the button "{name}" to be enabled', lambda: self.enabled(button))
        self.click(button)

    def set_text(self, name, text):
        """Types a text (of ASCII) into an edit field, in place of what it holds."""
        field = self.control(name)
        self.click(field)
        # Clicks pass through the window manager; keys would overtake them.
        self.wait_for(f"{name} to have the focus",
                      lambda: self.has_focus(field))
        self.desktop.xdotool("key", "ctrl+a", "type", "--delay", 4, text)
        self.wait_for(f'{name} to hold "{text}"', lambda: self.text_of(name) == text)
        # The folders that are offered while one types would lie over what is clicked next.
        self.desktop.xdotool("key", "Tab")
        self.wait_for(f"the focus to leave {name}", lambda: not self.has_focus(field))

    def answer(self, title, text, button):
        """Waits for a message of a title and a text, and answers it."""
        self.press(button, self.message(title, text))
        self.wait_for(f"the message {text!r} to go", lambda: not self.says(text))

    def request_close(self):
        """Asks the window manager to close the active window, as a task bar does."""
        self.desktop.close_window()

    def close_preview(self):
        """Closes the player's window, which is in front."""
        # It knows so a moment before the window manager says so; until then the request would reach the
        # main window, and quit the program.
        self.wait_for("the window manager to have the player in front", lambda:
                      self.desktop.active_title() == self.active_window() != "Songlift")
        self.request_close()
        self.wait_for("the player to close", lambda: self.active_window() == "Songlift")

    def minimise(self):
        """Minimises the window in front, and returns it for `bring_back`."""
        window = self.desktop.xdotool("getactivewindow")
        self.desktop.xdotool("windowminimize", window)
        return window

    def bring_back(self, window):
        """Brings a minimised window to the front, as a task bar does."""
        self.desktop.xdotool("windowactivate", "--sync", window)

    def exit_code(self):
        """What the program ends with, waited for."""
        return self.process.wait(PATIENCE)

    def close(self):
        """Closes the window as a user does, and returns the program's exit code."""
        self.request_close()
        return self.exit_code()

    # The process.

    def freeze(self):
        """Stops the program in the middle of what it does; clicks wait for it."""
        os.kill(self.process.pid, signal.SIGSTOP)

    def thaw(self):
        os.kill(self.process.pid, signal.SIGCONT)

    def signal(self, number):
        """Sends a signal to the program."""
        os.kill(self.process.pid, number)

    def kill(self):
        """Ends the program as a power cut would."""
        os.kill(self.process.pid, signal.SIGKILL)
        self.process.wait(PATIENCE)
