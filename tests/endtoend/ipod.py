"""A folder that stands for an attached iPod, as the tests know it: read here by its structure, chunk within
chunk, and not in the way the program reads it."""

import struct
from collections import namedtuple
from pathlib import Path

Track = namedtuple("Track", "artist album title number size file_type location")

MUSIC = "iPod_Control/Music"
DATABASE = "iPod_Control/iTunes/iTunesDB"


def _long(data, position):
    return struct.unpack_from("<I", data, position)[0]


def _read_track(data, start):
    texts = {}
    header, total = _long(data, start + 4), _long(data, start + 8)
    position = start + header
    while position < start + total:
        length, kind = _long(data, position + 8), _long(data, position + 12)
        if kind in (1, 2, 3, 4, 6):
            text_bytes = _long(data, position + 28)
            begin = position + 40
            texts[kind] = data[begin:begin + text_bytes].decode("utf-16-le")
        position += length
    return Track(
        artist=texts.get(4, ""), album=texts.get(3, ""), title=texts.get(1, ""),
        number=_long(data, start + 44), size=_long(data, start + 36), file_type=texts.get(6, ""),
        location=texts.get(2, "").replace(":", "/").lstrip("/")), total


def read_database(path):
    """The tracks of a binary database, in its order."""
    data = Path(path).read_bytes()
    assert data[:4] == b"mhbd", f"{path} is no database"
    position = _long(data, 4)
    while position < len(data):
        total, kind = _long(data, position + 8), _long(data, position + 12)
        if kind == 1:
            tracks = []
            track_list = position + _long(data, position + 4)
            track = track_list + _long(data, track_list + 4)
            for _ in range(_long(data, track_list + 8)):
                record, length = _read_track(data, track)
                tracks.append(record)
                track += length
            return tracks
        position += total
    raise AssertionError(f"{path} holds no tracks")


def snapshot(folder):
    """Path, size and modification time of all that a folder holds."""
    return sorted(
        (str(path.relative_to(folder)), path.lstat().st_size, path.lstat().st_mtime_ns)
        for path in Path(folder).rglob("*"))


class Ipod:
    """The folder of an iPod and the tracks of its binary database."""

    def __init__(self, folder):
        self.folder = Path(folder)
        self.tracks = read_database(self.folder / DATABASE)
        self._as_made = snapshot(self.folder)

    def file(self, index):
        """The media file of a track, by the track's place in the database."""
        return self.folder / self.tracks[index].location

    def assert_untouched(self):
        """Nothing was written to the iPod, removed from it, or so much as given another time."""
        assert snapshot(self.folder) == self._as_made, "the iPod was changed"


def same_bytes(one, other):
    """Whether two files hold the same bytes."""
    if one.stat().st_size != other.stat().st_size:
        return False
    with open(one, "rb") as left, open(other, "rb") as right:
        while True:
            block = left.read(1 << 20)
            if block != right.read(1 << 20):
                return False
            if not block:
                return True


def tree(folder):
    """The paths of all files below a folder, and of the folders that hold nothing."""
    return sorted(
        str(path.relative_to(folder)) for path in Path(folder).rglob("*")
        if not path.is_dir() or not any(path.iterdir()))


def assert_copied(ipod, destination, expected, nanoseconds=1):
    """`destination` holds just the files of `expected` (path -> place of its track in the database), each
    with every byte and the time of its original, in steps of `nanoseconds`."""
    assert tree(destination) == sorted(expected), (
        f"copied: {tree(destination)}\nexpected: {sorted(expected)}")
    for path, index in expected.items():
        copy, original = Path(destination) / path, ipod.file(index)
        assert same_bytes(copy, original), f"{path} differs from {original}"
        times = [file.stat().st_mtime_ns // nanoseconds for file in (copy, original)]
        assert times[0] == times[1], f"{path} has another time"
