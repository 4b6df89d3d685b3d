"""The databases of real devices, where SONGLIFT_SAMPLES names a folder of them (device-*.iTunesDB): with
stand-ins for their media files, everything on each device is copied and compared."""

import os
import random
import sys
from pathlib import Path

from ipod import DATABASE, Ipod, assert_copied, read_database
from scenario import Skipped, main


def stand_in(database, folder):
    """An iPod of a database, each of its files with small contents of its own."""
    target = folder / DATABASE
    target.parent.mkdir(parents=True)
    target.write_bytes(database.read_bytes())
    generator = random.Random(database.name)
    for track in read_database(target):
        file = folder / track.location
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(generator.randbytes(generator.randrange(1, 20_000)))
    return Ipod(folder)


def cleaned(text):
    """A name as the program must write it."""
    kept = "".join(c for c in text if c not in '/\\:*?<>|').replace('"', "'")
    return kept.lstrip(" ").rstrip(" .") or "UNKNOWN"


def expected_tree(tracks):
    """The files a copy of everything makes -> place of the track in the database."""
    groups = {}
    for index, track in enumerate(tracks):
        albums = groups.setdefault((track.artist or "UNKNOWN").lower(), {})
        albums.setdefault((track.album or "UNKNOWN").lower(), []).append(index)
    expected = {}
    for albums in groups.values():
        members = [index for album in albums.values() for index in album]
        # A group is called what its last track calls it.
        artist = cleaned(tracks[max(members)].artist or "UNKNOWN")
        for album in albums.values():
            folder = f"{artist}/{cleaned(tracks[max(album)].album or 'UNKNOWN')}"
            for index in album:
                track = tracks[index]
                number = f"{track.number:02} " if track.number > 0 else ""
                name = cleaned(number + (track.title or "UNKNOWN"))
                extension = "." + track.location.rsplit(".", 1)[1]
                path, again = f"{folder}/{name}{extension}", 2
                while path in expected:
                    path, again = f"{folder}/{name} ({again}){extension}", again + 1
                expected[path] = index
    return expected


def copy_everything(stage, database):
    ipod = stand_in(database, stage.work / database.stem)
    destination = stage.work / f"{database.stem} copied"
    destination.mkdir()
    with stage.start(ipod.folder) as window:
        window.wait_for_library()
        all_artists = window.rows("Artists")[0]
        window.set_text("Destination", str(destination))
        window.tick("Artists", all_artists)
        window.press("Copy to Destination")
        window.answer("Songlift", "Copy completed!", "OK")
        assert window.close() == 0
    assert len(ipod.tracks) > 0
    assert_copied(ipod, destination, expected_tree(ipod.tracks))
    ipod.assert_untouched()


def play(stage):
    samples = os.environ.get("SONGLIFT_SAMPLES")
    if not samples:
        raise Skipped("SONGLIFT_SAMPLES names no folder with databases of real devices")
    databases = sorted(Path(samples).glob("device-*.iTunesDB"))
    if not databases:
        raise Skipped(f"{samples} holds no database")
    for database in databases:
        copy_everything(stage, database)


if __name__ == "__main__":
    sys.exit(main(play))
