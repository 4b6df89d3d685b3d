"""Two iPods with large libraries on a slow disk: while one of them loads the window answers, the bar moves, and a
click is lost. One that does not answer any more in the middle of its load does not keep the program from ending."""

import signal
import sqlite3
import struct
import sys
from pathlib import Path

from ipod import DATABASE, Ipod, read_database
from scenario import load_small_sample, main
from served_disk import ServedDisk
from slow_devices import assert_answers

# How many times each track is listed: some megabytes.
TIMES = 500


def grow_binary(path):
    """Repeats the tracks of a binary database."""
    data = path.read_bytes()

    def long(position):
        return struct.unpack_from("<I", data, position)[0]

    data_set = long(4)
    while long(data_set + 12) != 1:
        data_set += long(data_set + 8)
    track_list = data_set + long(data_set + 4)
    first, end = track_list + long(track_list + 4), data_set + long(data_set + 8)
    more = data[first:end] * (TIMES - 1)
    grown = bytearray(data[:end] + more + data[end:])
    struct.pack_into("<I", grown, 8, long(8) + len(more))
    struct.pack_into("<I", grown, data_set + 8, long(data_set + 8) + len(more))
    struct.pack_into("<I", grown, track_list + 8, long(track_list + 8) * TIMES)
    path.write_bytes(grown)
    assert len(read_database(path)) == long(track_list + 8) * TIMES


def grow_sqlite(folder):
    """Repeats the tracks of a newer iPod's library, each with a comment that makes it as long as a real one."""
    for name, table, key in (("Library", "item", "pid"), ("Locations", "location", "item_pid")):
        database = sqlite3.connect(folder / f"{name}.itdb")
        columns = [row[1] for row in database.execute(f"Pragma table_info({table})")]
        values = ", ".join({key: f"{key} + ?1", "comment": "hex(zeroblob(250))"}.get(column, column)
                           for column in columns)
        with database:
            database.execute(f"Create Temp Table original As Select * From {table}")
            database.executemany(f"Insert Into {table} Select {values} From original",
                                 [(time,) for time in range(1, TIMES)])
        database.close()


def watch_load(window, when):
    """The window answers while the load goes on, and more and more of the bar is filled."""
    bar = window.control("Progress")
    window.wait_for("the bar to move", lambda: bar.get_current_value() > 0)
    before = bar.get_current_value()
    assert_answers(bar, when)
    assert bar.get_current_value() > before, f"{when}: the bar stands still"
    return bar


def play(stage):
    made = stage.work / "made"
    classic = stage.small_ipod(folder=made / "SAMPLE IPOD")
    newer = stage.small_ipod("--newer", folder=made / "NEWER IPOD")
    grow_binary(classic.folder / DATABASE)
    grow_sqlite(newer.folder / Path(DATABASE).parent / "iTunes Library.itlp")
    ipods = [Ipod(classic.folder), Ipod(newer.folder)]
    server = Path(__file__).parents[1] / "support" / "slow_device.py"
    with ServedDisk(server, made, stage.work / "disk") as disk:
        disk.tell("speed=1000000")
        with stage.start(disk.folder / "SAMPLE IPOD", disk.folder / "NEWER IPOD") as window:
            watch_load(window, "while it loads at 1 MB/s")
            disk.tell("")
            load_small_sample(window)

            option = window.control("Artist")
            disk.tell("speed=1000000")
            window.choose_device(":) NEWER IPOD")
            window.click(option)
            watch_load(window, "while SQLite reads at 1 MB/s")
            disk.tell("")
            load_small_sample(window)
            assert window.checked(option)

            disk.tell("speed=1000000")
            window.choose_device(":) SAMPLE IPOD")
            bar = watch_load(window, "while it loads again")
            disk.tell("stall=read")
            assert_answers(bar, "while the device hangs")
            window.signal(signal.SIGTERM)
            assert window.exit_code() == 0

        disk.tell("speed=1000000")
        with stage.start(disk.folder / "NEWER IPOD") as window:
            bar = watch_load(window, "while SQLite reads again")
            disk.tell("stall=read")
            assert_answers(bar, "while the device hangs below SQLite")
            window.request_close()
            assert window.exit_code() == 0
    for ipod in ipods:
        ipod.assert_untouched()


if __name__ == "__main__":
    sys.exit(main(play))
