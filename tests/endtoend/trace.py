"""Records the system calls of a program and of its children (strace), and tells which of them would change
something below a folder: open it for writing, make, rename or remove something there, or give it other
attributes. Whoever cannot open a file for writing cannot write to it, so that writes need not be seen."""

import os
import re
import subprocess

OPENING = {"open", "openat", "openat2", "creat"}
CHANGING = {
    "rename", "renameat", "renameat2", "link", "linkat", "symlink", "symlinkat", "unlink",
    "unlinkat", "mkdir", "mkdirat", "rmdir", "mknod", "mknodat", "chmod", "fchmod", "fchmodat",
    "chown", "fchown", "lchown", "fchownat", "utime", "utimes", "futimesat", "utimensat",
    "truncate", "ftruncate", "fallocate", "setxattr", "lsetxattr", "fsetxattr", "removexattr",
    "lremovexattr", "fremovexattr", "copy_file_range", "mount", "umount2"}
# These work on a link itself, not on what it leads to.
ON_NAMES = re.compile("rename|link|symlink|unlink|mkdir|rmdir|mknod")
OTHERS = {"mmap", "mprotect", "chdir", "fchdir"}
FOR_WRITING = re.compile(r"\bO_(WRONLY|RDWR|CREAT|TRUNC|APPEND|TMPFILE)\b")

LINE = re.compile(r"^(\d+) +(.*)$")
RESUMED = re.compile(r"^<\.\.\. \w+ resumed>(.*)$")
CALL = re.compile(r"^(\w+)\((.*)$", re.DOTALL)
# What a descriptor stands for, or a text.
TOKEN = re.compile(r'(?:AT_FDCWD|\d+)<((?:[^<>\\]|\\.)*)>|"((?:[^"\\]|\\.)*)"(?:\.\.\.)?')


def command(output):
    """What is put before a program to record it into a file; the program keeps its process id."""
    calls = ",".join(f"?{name}" for name in sorted(OPENING | CHANGING | OTHERS))
    return ["strace", "-D", "-f", "-y", "-qq", "-e", "signal=none", "-e", f"trace={calls}",
            "-o", str(output)]


def why_impossible(folder):
    """Why no program can be recorded here; None where it can."""
    output = folder / "probe.trace"
    try:
        probe = subprocess.run([*command(output), "cat", "/dev/null"], capture_output=True,
                               text=True, timeout=60, check=False)
    except FileNotFoundError:
        return "there is no strace"
    if probe.returncode != 0 or "/dev/null" not in output.read_text():
        return f"programs cannot be traced here: {probe.stderr.strip()}"
    return None


def _plain(text):
    """A text without strace's escapes."""
    raw = text.encode("latin-1", "backslashreplace").decode("unicode_escape")
    return raw.encode("latin-1", "replace").decode("utf-8", "surrogateescape")


def _calls(path):
    """Name and arguments of each call, with what it returned; those of other threads that come in between
    are taken apart."""
    begun = {}
    for line in path.read_text(encoding="utf-8", errors="surrogateescape").splitlines():
        found = LINE.match(line)
        if not found:
            continue
        thread, text = found.groups()
        resumed = RESUMED.match(text)
        if resumed:
            text = begun.pop(thread, "") + resumed.group(1)
        elif text.endswith("<unfinished ...>"):
            begun[thread] = text[:-len("<unfinished ...>")]
            continue
        call = CALL.match(text)
        if call:
            yield call.groups()
    for text in begun.values(): # the program ended inside them
        call = CALL.match(text)
        if call:
            yield call.groups()


class Trace:
    """The calls of one recorded run that was started in the folder `started_in`."""

    def __init__(self, path, started_in):
        self._calls = list(_calls(path))
        self._folders = [str(started_in)]
        for name, arguments in self._calls:
            if name == "chdir":
                self._folders += self._places(arguments)

    def __len__(self):
        return len(self._calls)

    def _places(self, arguments):
        """All places that a call's arguments and its result may mean. A text follows the folder it starts
        from, or starts in any folder that the program was in."""
        places, folder = [], None
        for found in TOKEN.finditer(arguments):
            opened, text = found.groups()
            if opened is not None:
                folder = _plain(opened)
                places.append(folder)
            else:
                if folder:
                    places.pop() # it only says where the text starts
                starts = [folder] if folder else self._folders
                places += [os.path.join(start, _plain(text)) for start in starts]
                folder = None
        return places

    def _changed(self, name, arguments):
        if name in OPENING:
            return self._places(arguments) if name == "creat" or FOR_WRITING.search(arguments) else []
        if name in ("mmap", "mprotect"):
            shared = "PROT_WRITE" in arguments and "MAP_SHARED" in arguments
            return self._places(arguments) if shared else []
        if name in ("symlink", "symlinkat"): # what the link says is no place of this call
            return self._places(arguments.split(", ", 1)[1])
        if name == "copy_file_range": # its source is only read
            return self._places(arguments)[1:]
        return self._places(arguments) if name in CHANGING else []

    def changes_below(self, folder):
        """The calls that would change something at or below a folder, whether they succeeded or not."""
        return [f"{name}({arguments}" for name, arguments in self._calls
                if any(_is_below(place, folder, not ON_NAMES.match(name))
                       for place in self._changed(name, arguments))]

    def opened_below(self, folder):
        """The paths below a folder of all that was opened there."""
        return {os.path.relpath(place, folder)
                for name, arguments in self._calls if name in OPENING
                for place in self._places(arguments.rsplit(" = ", 1)[-1])
                if _is_below(place, folder)}


def _is_below(place, folder, follows_links=True):
    folder = os.path.realpath(folder)
    parent, name = os.path.split(place)
    paths = [os.path.join(os.path.realpath(parent), name)]
    if follows_links:
        paths.append(os.path.realpath(place))
    return any(path == folder or path.startswith(folder + "/") for path in paths)
