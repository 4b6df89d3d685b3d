"""A folder shown elsewhere, as an old device or a tired disk would: slow, and now and then it does not answer.

slow_device.py <folder> <folder to mount at> <control file>

The control file holds words, read anew at every call: "speed=<bytes a second>", "open=<seconds to open a file>",
"seek=<seconds until the arm is at bytes that do not follow the last ones>", and "stall=read", "stall=write",
"stall=open", "stall=close", "stall=find" (a file's or folder's name) or "stall=change" (whatever makes, renames or
removes) for what does not come back as long as the word stands there. "hold=read" and so on keeps what does not come
back, and lets pass what comes later. Runs until it is unmounted or gets SIGTERM. Ends with 77, and says why, where
nothing can be mounted."""

import sys
import threading
import time
from pathlib import Path

from kept_disk import KeptDisk, serve

PAUSE = 0.005


class SlowDevice(KeptDisk):
    """One arm that reads, writes and seeks one after the other."""

    def __init__(self, folder, control):
        super().__init__(folder)
        self._control = Path(control)
        self._arm = threading.Lock()
        self._at = None # the file and the position behind the bytes read last

    def _words(self):
        return self._control.read_text(encoding="utf-8").split()

    def _number(self, name, otherwise):
        return next((float(word[len(name) + 1:]) for word in self._words() if word.startswith(name + "=")),
                    otherwise)

    def _wait_while_stalled(self, what):
        words = {f"stall={what}"}
        while words.intersection(self._words()):
            words.add(f"hold={what}")
            time.sleep(PAUSE)

    def _seek(self, path, offset, size):
        with self._arm:
            if self._at != (path, offset):
                time.sleep(self._number("seek", 0))
            self._at = (path, offset + size)

    def _take_time(self, size):
        speed = self._number("speed", 0)
        if speed:
            with self._arm:
                time.sleep(size / speed)

    def getattr(self, path, fh=None):
        self._wait_while_stalled("find")
        return super().getattr(path, fh)

    def open(self, path, flags):
        self._wait_while_stalled("open")
        seconds = self._number("open", 0)
        if seconds: # else it is known without the arm, which others may hold one after the other
            with self._arm:
                time.sleep(seconds)
        return super().open(path, flags)

    def read(self, path, size, offset, fh):
        self._wait_while_stalled("read")
        data = super().read(path, size, offset, fh)
        self._seek(path, offset, len(data))
        self._take_time(len(data))
        return data

    def write(self, path, data, offset, fh):
        self._wait_while_stalled("write")
        self._take_time(len(data))
        return super().write(path, data, offset, fh)

    def flush(self, path, fh):
        self._wait_while_stalled("close")
        return 0

    def create(self, path, mode, fi=None):
        self._wait_while_stalled("change")
        return super().create(path, mode, fi)

    def mkdir(self, path, mode):
        self._wait_while_stalled("change")
        super().mkdir(path, mode)

    def rename(self, old, new):
        self._wait_while_stalled("change")
        super().rename(old, new)

    def unlink(self, path):
        self._wait_while_stalled("change")
        super().unlink(path)


if __name__ == "__main__":
    sys.exit(serve(SlowDevice(sys.argv[1], sys.argv[3]), sys.argv[2], "slow", nothreads=False, big_writes=True,
                   hard_remove=True, nonempty=True))
