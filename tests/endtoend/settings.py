"""Settings that cannot be read stop the start and are left as they are; those that cannot be written are told
once, when the window closes."""

import sys

from scenario import main


def play(stage):
    folder = stage.desktop.folder / "home/.config/Songlift"
    folder.mkdir()
    file = folder / "Songlift.conf"
    written = "[Settings]\nWindowState=1\nHandle1=left\n"
    file.write_text(written)
    with stage.start() as window:
        box = window.message(
            "Error", f'Error 13: Type mismatch (setting "Handle1": "left", in "{file}")')
        assert len(window.windows_on_screen()) == 1
        window.press("OK", box)
        assert window.exit_code() == 1
    assert file.read_text() == written

    file.unlink()
    folder.rmdir()
    folder.write_text("in the way")
    with stage.start() as window:
        window.wait_for_text("No compatible iPod detected.")
        window.request_close()
        window.press("OK", window.message("Error", f'Your settings could not be saved in "{file}". '
                                          "The next start will have the earlier ones."))
        assert window.exit_code() == 0
    assert folder.read_text() == "in the way"


if __name__ == "__main__":
    sys.exit(main(play))
