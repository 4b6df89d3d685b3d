"""Shows a folder elsewhere, in which one file fails from some byte on:

failing_disk.py <folder> <folder to mount at> <control file>

The control file holds lines "<end of a path> <byte> <number of the error>", read anew at every call: reading or writing
that file past so many bytes fails. There are no files without a name here, as on the drives that people carry away.
Runs until it is unmounted or gets SIGTERM. Ends with 77, and says why, where nothing can be mounted."""

import errno
import os
import sys
from pathlib import Path

try:
    from fusepy import FUSE, FuseOSError, Operations
except ImportError as reason:
    print(reason)
    sys.exit(77)


def failing(function):
    """Tells the kernel the number of what failed."""
    def answer(*arguments):
        try:
            return function(*arguments)
        except OSError as error:
            raise FuseOSError(error.errno) from error
    return answer


class FailingDisk(Operations):
    """Passes everything on to a folder of an ordinary disk."""

    use_ns = True

    def __init__(self, folder, control):
        self._folder = folder
        self._control = Path(control)

    def _place(self, path):
        return self._folder + path

    def _fail_past(self, path, byte):
        """Fails where `byte`, the first byte behind what is wanted, lies past what the file is good for."""
        for line in self._control.read_text(encoding="utf-8").splitlines():
            ending, good, number = line.rsplit(" ", 2)
            if path.endswith(ending) and byte > int(good):
                raise FuseOSError(int(number))

    @failing
    def getattr(self, path, fh=None):
        info = os.lstat(self._place(path))
        times = {name: getattr(info, name + "_ns") for name in ("st_atime", "st_mtime", "st_ctime")}
        return times | {name: getattr(info, name) for name in (
            "st_gid", "st_mode", "st_nlink", "st_size", "st_uid")}

    @failing
    def readdir(self, path, fh):
        return [".", "..", *os.listdir(self._place(path))]

    @failing
    def statfs(self, path):
        info = os.statvfs(self._folder)
        return {key: getattr(info, key) for key in (
            "f_bavail", "f_bfree", "f_blocks", "f_bsize", "f_frsize")}

    @failing
    def mkdir(self, path, mode):
        os.mkdir(self._place(path))

    @failing
    def rmdir(self, path):
        os.rmdir(self._place(path))

    @failing
    def unlink(self, path):
        os.unlink(self._place(path))

    @failing
    def rename(self, old, new):
        os.rename(self._place(old), self._place(new))

    @failing
    def create(self, path, mode, fi=None):
        return os.open(self._place(path), os.O_RDWR | os.O_CREAT | os.O_EXCL, 0o644)

    @failing
    def open(self, path, flags):
        return os.open(self._place(path), flags & os.O_ACCMODE)

    @failing
    def read(self, path, size, offset, fh):
        wanted = min(offset + size, os.fstat(fh).st_size)
        self._fail_past(path, wanted)
        return os.pread(fh, size, offset)

    @failing
    def write(self, path, data, offset, fh):
        self._fail_past(path, offset + len(data))
        return os.pwrite(fh, data, offset)

    @failing
    def truncate(self, path, length, fh=None):
        os.truncate(self._place(path) if fh is None else fh, length)

    @failing
    def utimens(self, path, times=None):
        os.utime(self._place(path), ns=times)

    @failing
    def release(self, path, fh):
        os.close(fh)

    def link(self, target, source):
        raise FuseOSError(errno.EPERM)

    def chmod(self, path, mode):
        return 0


def main(folder, mount_folder, control):
    """Mounts the disk and serves it."""
    if not os.access("/dev/fuse", os.R_OK | os.W_OK):
        print("/dev/fuse may not be used here")
        return 77
    try:
        FUSE(FailingDisk(folder, control), mount_folder, foreground=True, nothreads=True,
             fsname="failing")
    except RuntimeError as error:
        print(f"no disk can be mounted here: {error}")
        return 77
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
