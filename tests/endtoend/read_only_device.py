"""A device that nobody can write to serves like any other: everything can be loaded, searched, previewed and
copied from it."""

import os
import subprocess
import sys
from contextlib import ExitStack, contextmanager

from ipod import Ipod
from only_reading import assert_both_copied, use_everything
from scenario import Skipped, main


@contextmanager
def mounted_read_only(folder, at):
    """Shows a folder elsewhere as a medium with its switch on."""
    at.mkdir()
    bound = subprocess.run(["mount", "--bind", folder, at], capture_output=True, text=True, check=False)
    if bound.returncode != 0:
        raise Skipped(f"nothing can be mounted: {bound.stderr.strip()}")
    try:
        subprocess.run(["mount", "-o", "remount,bind,ro", at], check=True)
        yield Ipod(at)
    finally:
        subprocess.run(["umount", "-l", at], check=True)


@contextmanager
def without_rights(folder):
    """Takes everybody's right to write."""
    paths = [folder, *folder.rglob("*")]
    for path in paths:
        path.chmod(0o555 if path.is_dir() else 0o444)
    try:
        yield Ipod(folder)
    finally:
        for path in paths:
            path.chmod(0o755 if path.is_dir() else 0o644)


def assert_read_only(folder):
    for path in (folder, folder / "iPod_Control/iTunes"):
        try:
            (path / "new").touch()
        except OSError:
            continue
        raise AssertionError(f"{path} can be written")


def play(stage):
    destinations = [stage.work / "copied", stage.work / "copied too"]
    with ExitStack() as stack:
        devices = []
        for name, options in (("AN IPOD", []), ("NEWER IPOD", ["--newer"])):
            made = stage.sample_ipod(f"{name} AS MADE", *options).folder
            read_only = (mounted_read_only(made, stage.work / name) if os.geteuid() == 0
                         else without_rights(made))
            devices.append(stack.enter_context(read_only))
            assert_read_only(devices[-1].folder)
        with stage.start(*[device.folder for device in devices]) as window:
            use_everything(window, devices[1], destinations)
        assert_both_copied(*devices, destinations)
        for device in devices:
            device.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
