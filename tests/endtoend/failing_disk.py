"""Shows a folder elsewhere, in which one file fails from some byte on:

failing_disk.py <folder> <folder to mount at> <control file>

The control file holds lines "<end of a path> <byte> <number of the error>", read anew at every call: reading or writing
that file past so many bytes fails. Runs until it is unmounted or gets SIGTERM. Ends with 77, and says why, where
nothing can be mounted."""

import os
import sys
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[1] / "support"))
from kept_disk import FuseOSError, KeptDisk, failing, serve  # noqa: E402


class FailingDisk(KeptDisk):
    """Fails where the control file says so."""

    def __init__(self, folder, control):
        super().__init__(folder)
        self._control = Path(control)

    def _fail_past(self, path, byte):
        """Fails where `byte`, the first byte behind what is wanted, lies past what the file is good for."""
        for line in self._control.read_text(encoding="utf-8").splitlines():
            ending, good, number = line.rsplit(" ", 2)
            if path.endswith(ending) and byte > int(good):
                raise FuseOSError(int(number))

    @failing
    def read(self, path, size, offset, fh):
        wanted = min(offset + size, os.fstat(fh).st_size)
        self._fail_past(path, wanted)
        return os.pread(fh, size, offset)

    @failing
    def write(self, path, data, offset, fh):
        self._fail_past(path, offset + len(data))
        return os.pwrite(fh, data, offset)


if __name__ == "__main__":
    sys.exit(serve(FailingDisk(sys.argv[1], sys.argv[3]), sys.argv[2], "failing"))
