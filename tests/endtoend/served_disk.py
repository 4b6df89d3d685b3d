"""A disk that a program of the tests serves, mounted for as long as a `with` lasts."""

import os
import subprocess
import sys

from desktop import die_with_parent, wait_for
from scenario import SKIPPED, Skipped


class ServedDisk:
    """Shows `folder` at `at`, which is made. What stands in its control file says how."""

    def __init__(self, server, folder, at):
        self.folder = at
        self._control = at.with_name(at.name + ".control")
        self.tell("")
        at.mkdir()
        self._server = subprocess.Popen(
            [sys.executable, server, folder, at, self._control], stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, text=True, preexec_fn=die_with_parent)
        wait_for("the disk", lambda: at.is_mount() or self._server.poll() is not None)
        if self._server.poll() is not None:
            said = self._server.stdout.read().strip()
            if self._server.returncode == SKIPPED:
                raise Skipped(said)
            raise AssertionError(said)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.tell("")
        subprocess.run(["umount", "-l", self.folder], check=False, capture_output=True)
        self._server.terminate()
        try:
            self._server.wait(20)
        except subprocess.TimeoutExpired:
            self._server.kill()
            self._server.wait()

    def tell(self, words):
        """Puts `words` into the control file, in one instant."""
        fresh = self._control.with_suffix(".fresh")
        fresh.write_text(words, encoding="utf-8")
        os.replace(fresh, self._control)
