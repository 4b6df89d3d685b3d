"""While a path is typed, folders are offered for it; they are in nobody's way: keys and clicks arrive where
they belong."""

import sys

from scenario import load_small_sample, main


def type_path(window, text):
    """Types into the destination box in place of what it holds, and stays there."""
    field = window.control("Destination")
    window.click(field)
    window.wait_for("the box to have the focus",
                    lambda: window.has_focus(field))
    window.desktop.xdotool("key", "ctrl+a", "type", "--delay", 4, text)
    window.wait_for(f'the box to hold "{text}"', lambda: window.text_of("Destination") == text)


def wait_for_offers(window, names):
    def offered():
        folders = window.control("Folders")
        return [folders.get_child_at_index(index).get_name()
                for index in range(folders.get_child_count())]
    window.wait_for(f"{names} to be offered", lambda: offered() == names)


def wait_for_text(window, text):
    window.wait_for(f'the box to hold "{text}"', lambda: window.text_of("Destination") == text)


def play(stage):
    ipod = stage.small_ipod()
    music = stage.work / "Music"
    for name in ("Blue", "Bluer"):
        (music / name).mkdir(parents=True)
    with stage.start(ipod.folder) as window:
        load_small_sample(window)

        # A click elsewhere ticks at once, and what was typed stands.
        type_path(window, f"{music}/bl")
        wait_for_offers(window, ["Blue", "Bluer"])
        window.tick("Artists", "UNKNOWN")
        assert not window.offers_folders()
        assert window.text_of("Destination") == f"{music}/bl"

        # The arrows choose, Escape takes it back, Enter keeps it, Tab goes on.
        type_path(window, f"{music}/bl")
        wait_for_offers(window, ["Blue", "Bluer"])
        window.desktop.xdotool("key", "Down", "Down")
        wait_for_text(window, f"{music}/Bluer")
        window.desktop.xdotool("key", "Escape")
        wait_for_text(window, f"{music}/bl")
        type_path(window, f"{music}/b")
        wait_for_offers(window, ["Blue", "Bluer"])
        window.desktop.xdotool("key", "Down", "Return")
        wait_for_text(window, f"{music}/Blue")
        assert not window.offers_folders()
        window.desktop.xdotool("key", "Tab")
        browse = window.button("Browse...")
        window.wait_for("the focus to go on", lambda: window.has_focus(browse))

        window.press("Copy to Destination")
        window.answer("Songlift", "Copy completed!", "OK")
        assert [path.name for path in (music / "Blue").iterdir()] == ["UNKNOWN"]
        assert window.close() == 0


if __name__ == "__main__":
    sys.exit(main(play))
