"""A disk like the ones people carry away: names differ neither in letter case nor in how their accents are
composed, some characters are refused, dots at the end of a name do not count, and there are no links.

caseless_disk.py <folder that keeps the files> <folder to mount at>. Runs until it is unmounted or gets SIGTERM.
Ends with 77, and says why, where no such disk can be mounted."""

import errno
import os
import shutil
import sys
import unicodedata

try:
    from fusepy import FUSE, FuseOSError, Operations
except ImportError as reason:
    print(reason)
    sys.exit(77)

REFUSED = set('*?<>|":\\') | {chr(code) for code in range(32)}
LONGEST_NAME = 255


def folded(name):
    """What equal names have in common."""
    def decompose(text):
        return unicodedata.normalize("NFD", text)
    return decompose(decompose(name.rstrip(".")).casefold())


def failing(function):
    """Tells the kernel the number of what failed."""
    def answer(*arguments):
        try:
            return function(*arguments)
        except OSError as error:
            raise FuseOSError(error.errno) from error
    return answer


class CaselessDisk(Operations):
    """Keeps its files in a folder of an ordinary disk."""

    def __init__(self, folder):
        self._folder = folder

    def _place(self, path):
        """Where a path is kept, or would be."""
        place = self._folder
        for name in filter(None, path.split("/")):
            wanted = folded(name)
            known = os.listdir(place) if os.path.isdir(place) else []
            same = [other for other in known if folded(other) == wanted]
            place = os.path.join(place, same[0] if same else name.rstrip("."))
        return place

    def _new_place(self, path):
        name = os.path.basename(path)
        if REFUSED & set(name) or not name.rstrip("."):
            raise FuseOSError(errno.EINVAL)
        if len(name.encode("utf-16-le", "surrogatepass")) > 2 * LONGEST_NAME:
            raise FuseOSError(errno.ENAMETOOLONG)
        return self._place(path)

    @failing
    def getattr(self, path, fh=None):
        info = os.lstat(self._place(path))
        return {key: getattr(info, key) for key in (
            "st_atime", "st_mtime", "st_ctime", "st_gid", "st_ino", "st_mode", "st_nlink", "st_size",
            "st_uid")}

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
        os.utime(self._place(path), times)

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


def main(folder, mount_folder):
    """Mounts the disk and serves it."""
    if not os.access("/dev/fuse", os.R_OK | os.W_OK):
        print("/dev/fuse may not be used here")
        return 77
    if os.geteuid() != 0 and not (shutil.which("fusermount") or shutil.which("fusermount3")):
        print("only root may mount here")
        return 77
    try:
        # Nothing is remembered by name: another spelling may have changed the file meanwhile.
        FUSE(CaselessDisk(folder), mount_folder, foreground=True, nothreads=True, use_ino=True,
             hard_remove=True, entry_timeout=0, attr_timeout=0, fsname="caseless")
    except RuntimeError as error:
        print(f"no disk can be mounted here: {error}")
        return 77
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
