"""A disk that keeps its files in a folder of an ordinary one, for the disks that tests make of it. There are no links
and no files without a name here, as on the drives that people carry away."""

import errno
import os
import shutil
import sys

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


class KeptDisk(Operations):
    """Passes everything on to the folder."""

    use_ns = True

    def __init__(self, folder):
        self._folder = folder

    def _place(self, path):
        """Where a path is kept, or would be."""
        return self._folder + path

    def _new_place(self, path):
        """Where something new is to be kept."""
        return self._place(path)

    @failing
    def getattr(self, path, fh=None):
        info = os.lstat(self._place(path))
        times = {name: getattr(info, name + "_ns") for name in ("st_atime", "st_mtime", "st_ctime")}
        return times | {name: getattr(info, name) for name in (
            "st_gid", "st_ino", "st_mode", "st_nlink", "st_size", "st_uid")}

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
        os.mkdir(self._new_place(path))

    @failing
    def rmdir(self, path):
        os.rmdir(self._place(path))

    @failing
    def unlink(self, path):
        os.unlink(self._place(path))

    @failing
    def rename(self, old, new):
        os.rename(self._place(old), self._new_place(new))

    @failing
    def create(self, path, mode, fi=None):
        return os.open(self._new_place(path), os.O_RDWR | os.O_CREAT | os.O_EXCL, 0o644)

    @failing
    def open(self, path, flags):
        return os.open(self._place(path), flags & os.O_ACCMODE)

    @failing
    def read(self, path, size, offset, fh):
        return os.pread(fh, size, offset)

    @failing
    def write(self, path, data, offset, fh):
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

    def symlink(self, target, source):
        raise FuseOSError(errno.EPERM)

    def link(self, target, source):
        raise FuseOSError(errno.EPERM)

    def chmod(self, path, mode):
        return 0

    def chown(self, path, uid, gid):
        raise FuseOSError(errno.EPERM)


def serve(disk, mount_folder, name, nothreads=True, **options):
    """Mounts the disk and serves it until it is unmounted or gets SIGTERM. Returns 77, and says why, where no such disk
    can be mounted."""
    if not os.access("/dev/fuse", os.R_OK | os.W_OK):
        print("/dev/fuse may not be used here")
        return 77
    if os.geteuid() != 0 and not (shutil.which("fusermount") or shutil.which("fusermount3")):
        print("only root may mount here")
        return 77
    try:
        FUSE(disk, mount_folder, foreground=True, nothreads=nothreads, fsname=name, **options)
    except RuntimeError as error:
        print(f"no disk can be mounted here: {error}")
        return 77
    return 0
