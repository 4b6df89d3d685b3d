"""The whole of a request as a screen reader gives it: everything is read from the accessibility bus and done
through the actions and texts that the controls offer there, without mouse or keyboard."""

import sys

from ipod import assert_copied
from scenario import ARTISTS_OF_SMALL_SAMPLE, load_small_sample, main

FILES = {
    "Live 1999/01 Opening.mp3": 0,
    "Live 1999/02 Song.mp3": 1,
    "Live 1999/02 Song (2).mp3": 2,
    "港の歌/01 夜明け 🌅.m4a": 6,
}
OPENING, SONG, SECOND_SONG, _ = FILES
SELECTED_BYTES = 40_000 + 400_001 + 30_000 + 50_000


class Reader:
    """What a screen reader does with the controls of the program, and what it is told by itself."""

    def __init__(self, window):
        self.window = window
        self.atspi = window.atspi
        self._told = []
        self._listener = self.atspi.EventListener.new(self._tell)
        for kind in ("object:state-changed:checked", "object:property-change:accessible-name",
                     "object:property-change:accessible-value", "window:activate"):
            self._listener.register(kind)

    def _tell(self, event):
        self._told.append((event.type, event.source.get_role_name(), event.source.get_name()))

    def forget(self):
        """Forgets what it was told so far."""
        self.hears(None)
        self._told.clear()

    def hears(self, told):
        """Whether it was told of something: the kind, and the control's role and name."""
        from gi.repository import GLib
        while GLib.MainContext.default().iteration(False):
            pass
        return told in self._told

    def wait_to_hear(self, *told):
        self.window.wait_for(f"the news {told}", lambda: self.hears(told), 10)

    def do(self, control, name):
        """Does what a control offers under a name."""
        action = self.atspi.Action
        offered = [action.get_action_name(control, index)
                   for index in range(action.get_n_actions(control))]
        assert name in offered, f"{control.get_name()!r} offers {offered}"
        action.do_action(control, offered.index(name))

    def press(self, name, window=None):
        button = self.window.button(name, window)
        self.window.wait_for(f'the button "{name}" to be enabled',
                             lambda: self.window.enabled(button))
        self.do(button, "Press")

    def write(self, name, text):
        self.atspi.EditableText.set_text_contents(self.window.control(name), text)
        self.window.wait_for(f"{name} to hold {text!r}", lambda: self.window.text_of(name) == text)

    def choose(self, list_name, text):
        self.do(self.window.row(list_name, text), "SetFocus")
        self.window.wait_for(f'"{text}" to be the current row of {list_name}',
                             lambda: self.window.current_row(list_name) == text)

    def tick(self, list_name, text, ticked=True):
        self.do(self.window.row(list_name, text), "Toggle")
        self.window.wait_for(
            f'the check mark of "{text}" in {list_name} to be {ticked}',
            lambda: self.window.checked(self.window.row(list_name, text)) == ticked)

    def roles(self, window=None):
        """Role and name of all that shows in a window; of the main one without an argument."""
        root = window or self.window.main_window()
        return [(control.get_role_name(), control.get_name())
                for control in (root, *self.window.controls(root))]


def read_the_window(window, reader):
    # Another iPod is chosen with the keys: Qt lets no reader choose in a closed list.
    entries = [entry.get_name() for entry in window.devices()]
    assert [entry[3:] for entry in entries] == [") FIRST IPOD", ") SECOND IPOD"], entries
    assert window.text_of_device() == entries[0]
    shown = reader.roles()
    assert shown[0] == ("frame", "Songlift"), shown[0]
    for control in [
            ("text", "Search"), ("push button", "Search"), ("push button", "Clear"),
            ("page tab", "All Files"), ("page tab", "Audio"), ("page tab", "Video"),
            ("list", "Artists"), ("list", "Albums"), ("list", "Songs"),
            ("panel", "Sort by Folders:"), ("check box", "Artist"), ("check box", "Album"),
            ("panel", "Include in Filename:"), ("check box", "Artist name"),
            ("check box", "Album name"), ("check box", "Track number"), ("panel", "Destination:"),
            ("text", "Destination"), ("push button", "Browse..."),
            ("push button", "Copy to Destination"), ("progress bar", "Progress"),
            ("label", "Selected: 0 KB of 623.3 MB")]:
        assert control in shown, f"{control} is missing in {shown}"
    assert ("check box", "Genre") not in shown
    row = window.row("Artists", "UNKNOWN")
    assert row.get_role_name() == "check box", row.get_role_name()


def tick_at_each_level(window, reader):
    reader.forget()
    reader.tick("Artists", "All (6 Artists)")
    assert window.ticks("Artists") == [(text, True) for text in ARTISTS_OF_SMALL_SAMPLE]
    reader.wait_to_hear("object:state-changed:checked", "check box", "All (6 Artists)")
    reader.wait_to_hear("object:state-changed:checked", "check box", "青い灯台")
    reader.wait_to_hear("object:property-change:accessible-name", "label",
                        "Selected: 623.3 MB of 623.3 MB")
    reader.tick("Artists", "All (6 Artists)", False)
    window.wait_for_text("Selected: 0 KB of 623.3 MB")

    reader.choose("Artists", "Volt/Ampere")
    assert window.rows("Albums") == ["All (2 Albums)", '"Quoted" Evenings', "Live: 1999?"]
    reader.tick("Albums", "Live: 1999?")
    window.wait_for_text("Volt/Ampere / Live: 1999?")
    assert window.ticks("Songs") == [
        ("All (3 Items)", True), ("Opening", True), ("Song", True), ("Song", True)]
    reader.choose("Artists", "青い灯台")
    reader.tick("Songs", "夜明け 🌅")
    window.wait_for_text("青い灯台 / 港の歌 / 夜明け 🌅")
    assert window.ticks("Albums") == [("All (1 Album)", True), ("港の歌", True)]
    assert [text for text, ticked in window.ticks("Artists") if ticked] == ["Volt/Ampere", "青い灯台"]
    window.wait_for_text("Selected: 507 KB of 623.3 MB")


def search_and_filter(window, reader):
    reader.write("Search", "song")
    window.wait_for_rows("Songs", ["All (2 Items)", "Song", "Song"])
    reader.press("Clear")
    window.wait_for_rows("Artists", ARTISTS_OF_SMALL_SAMPLE)
    reader.do(window.control("Video"), "Press")
    window.wait_for_rows("Artists", ["All (1 Artist)", "Small Screen Society"])
    reader.do(window.control("All Files", window.atspi.Role.PAGE_TAB), "Press")
    window.wait_for_rows("Artists", ARTISTS_OF_SMALL_SAMPLE)


def read_and_answer(window, reader, text, role, button, others=()):
    """Reads a whole message box, and answers it."""
    box = window.message("Songlift", text)
    assert box.get_role_name() == role, box.get_role_name()
    shown = reader.roles(box)
    for name in (button, *others):
        assert ("push button", name) in shown, shown
    reader.press(button, box)
    window.wait_for(f"{text!r} to go", lambda: not window.says(text))


def copy(window, reader, destination):
    reader.do(window.control("Artist"), "Toggle")
    reader.write("Destination", str(destination))
    reader.forget()
    reader.press("Copy to Destination")
    question = f'File already exists: "{destination / SONG}". Replace it?'
    prompt = window.message("Overwrite File", question)
    assert reader.roles(prompt) == [
        ("dialog", "Overwrite File"), ("label", question), ("check box", "Do the same for all files"),
        ("push button", "Replace"), ("push button", "Skip"), ("push button", "Cancel")]
    reader.wait_to_hear("window:activate", "dialog", "Overwrite File")
    # Meanwhile the main window tells how far the job is.
    assert window.says("Copying files... 2 of 4")
    assert abs(window.progress() - 40_000 / SELECTED_BYTES) < 0.005, window.progress()
    reader.wait_to_hear("object:property-change:accessible-name", "label", "Copying files... 2 of 4")
    reader.wait_to_hear("object:property-change:accessible-value", "progress bar", "Progress")
    reader.do(window.control("Do the same for all files"), "Toggle")
    reader.press("Replace", prompt)
    read_and_answer(window, reader, "Copy completed!", "alert", "OK")


def play(stage):
    ipod = stage.small_ipod(folder=stage.work / "FIRST IPOD")
    other = stage.small_ipod(folder=stage.work / "SECOND IPOD")
    destination = stage.destination / "new"
    (destination / SONG).parent.mkdir(parents=True)
    for path in (SONG, SECOND_SONG):
        (destination / path).write_bytes(b"older")
    with stage.start(ipod.folder, other.folder) as window:
        reader = Reader(window)
        load_small_sample(window)
        window.wait_for_text("Selected: 0 KB of 623.3 MB")
        read_the_window(window, reader)
        tick_at_each_level(window, reader)
        search_and_filter(window, reader)
        copy(window, reader, destination)
        assert window.close() == 0
    assert_copied(ipod, destination, FILES)
    ipod.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
