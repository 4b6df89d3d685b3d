"""A disk like the ones people carry away: names differ neither in letter case nor in how their accents are
composed, some characters are refused, dots at the end of a name do not count, and there are no links.

caseless_disk.py <folder that keeps the files> <folder to mount at>. Runs until it is unmounted or gets SIGTERM.
Ends with 77, and says why, where no such disk can be mounted."""

import errno
import os
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


class CaselessDisk(KeptDisk):
    """Finds names in any spelling."""

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


if __name__ == "__main__":
    # Nothing is remembered by name: another spelling may have changed the file meanwhile.
    sys.exit(serve(CaselessDisk(sys.argv[1]), sys.argv[2], "caseless", use_ino=True, hard_remove=True,
                   entry_timeout=0, attr_timeout=0))
