"""An iPod that is attached while the program stands there waiting loads by itself; one that is taken away is
missed as soon as the user looks for it."""

import sys

from scenario import load_small_sample, main

# The program looks once a second; the rest is for a slow machine.
SOON = 5.0


def play(stage):
    prepared = stage.small_ipod(folder=stage.work / "prepared")
    drive = stage.work / "LATE IPOD"
    with stage.start(drive) as window:
        window.wait_for_text("No compatible iPod detected.")
        assert not window.enabled(window.control("Search"))
        assert window.says("Connect your iPod")
        assert window.text_of("Command") == "udisksctl mount -b /dev/sdX2"
        assert not window.text_of_device().startswith("(")

        prepared.folder.rename(drive)
        window.wait_for_text("Selected: 0 KB of 623.3 MB", SOON)
        load_small_sample(window)
        assert window.enabled(window.control("Search"))
        assert not window.says("Connect your iPod")
        assert window.label_of_device_list() == ["iPod"], window.label_of_device_list()

        drive.rename(prepared.folder)
        window.look_for_devices()
        window.wait_for_text("No compatible iPod detected.")
        window.wait_for_rows("Artists", [])
        assert window.says("Connect your iPod")
        prepared.folder.rename(drive)
        window.wait_for_text("Selected: 0 KB of 623.3 MB", SOON)
        load_small_sample(window)
        assert window.close() == 0


if __name__ == "__main__":
    sys.exit(main(play))
