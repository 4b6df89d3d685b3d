"""A disk like the ones people carry away: names differ neither in letter case nor in how their accents are
composed, some characters are refused, dots at the end of a name do not count, and there are no links.

caseless_disk.py <folder that keeps the files> <folder to mount at> [image]. Runs until it is unmounted or gets SIGTERM.
Ends with 77, and says why, where no such disk can be mounted. With the path of an image, which is made, the disk lies on
a block device: Linux then takes it for one of the file systems of Windows."""

import errno
import os
import subprocess
import sys
import unicodedata

from kept_disk import FuseOSError, KeptDisk, serve

REFUSED = set('*?<>|":\\') | {chr(code) for code in range(32)}
LONGEST_NAME = 255


def folded(name):
    """What equal names have in common."""
    def decompose(text):
        return unicodedata.normalize("NFD", text)
    return decompose(decompose(name.rstrip(".")).casefold())


def block_device(image):
    """Makes a block device of a new file; None, after the reason, where that cannot be done."""
    with open(image, "wb") as file:
        file.truncate(1 << 20)
    made = subprocess.run(["losetup", "--find", "--show", image], capture_output=True, text=True, check=False)
    if made.returncode != 0:
        print(made.stderr)
        return None
    return made.stdout.strip()


class CaselessDisk(KeptDisk):
    """Finds names in any spelling."""

    def __init__(self, folder, device=None):
        super().__init__(folder)
        self._device = device

    def init(self, path):
        """The disk is mounted."""
        self.detach() # once it is unmounted, even when this process is killed

    def detach(self):
        """Gives the block device back. Its number may belong to another one afterwards."""
        if self._device:
            subprocess.run(["losetup", "--detach", self._device], check=False)
            self._device = None

    def _place(self, path):
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


def main(kept, mount_folder, image=None):
    """Serves the disk."""
    device = block_device(image) if image else None
    if image and not device:
        return 77
    disk = CaselessDisk(kept, device)
    options = {"blkdev": True} if device else {}
    try:
        # Nothing is remembered by name: another spelling may have changed the file meanwhile.
        return serve(disk, mount_folder, device or "caseless", use_ino=True, hard_remove=True, entry_timeout=0,
                     attr_timeout=0, **options)
    finally:
        disk.detach()


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
