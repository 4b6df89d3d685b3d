// A copy job beside `cp -r` of the same files, in turn, on the same disk; a job of empty files,
// which is all the job's own, beside making the same empty files.

#include "tests/bench/BenchLibrary.h"
#include "tests/bench/BenchWindow.h"
#include "tests/bench/Measuring.h"
#include "tests/support/ServedDisk.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QStorageInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

void MakeMedia(const BenchWindow& window, const std::vector<SampleTrack>& tracks, int bytes) {
    QByteArray content(bytes, '\0');
    for (int i = 0; i < bytes; ++i) {
        content[i] = static_cast<char>(i * 31 + i / 4096);
    }
    const QDir music(window.DeviceFolder() + u"/iPod_Control/Music"_s);
    for (const SampleTrack& track : tracks) {
        music.mkpath(track.Location.section(u'/', 0, 0));
        QFile file(music.filePath(track.Location));
        file.open(QIODevice::WriteOnly);
        file.write(content);
    }
}

/// The program on a device of `count` files of `bytes` bytes each, all ticked.
class Job {
public:
    /// `disk` tells how slow the device is; null for one as fast as the disk that it lies on.
    Job(int count, int bytes, const char* disk = nullptr)
        : m_window(Tracks(count, bytes), false), m_bytes(double(count) * bytes) {
        if (disk != nullptr) {
            QDir().mkpath(MusicFolder());
            m_disk = std::make_unique<SlowDisk>(MusicFolder());
        }
        MakeMedia(m_window, Tracks(count, bytes), bytes);
        ListControl& artists = m_window.Controls().lstArtists;
        artists.SetListIndex(0);
        artists.SetSelected(0, true);
        if (disk != nullptr) {
            m_disk->Be(disk);
        }
    }

    /// Why this machine has no such device; empty where it has.
    QString Impossible() const { return m_disk ? m_disk->Impossible() : QString(); }

    /// An empty folder, and no bytes waiting for the disk. Always another one: for some seconds the
    /// inodes of deleted files cost some file systems more than all that is measured here. In
    /// memory it is the other way round: what was not removed costs pages that are new to the
    /// machine, which a virtual one gets from its host first.
    QString NewTarget() {
        if ((m_bytes > 5e8 || IsInMemory()) && !m_target.isEmpty()) {
            QDir(m_target).removeRecursively();
        }
        m_target = m_window.Scratch(u"copy"_s + QString::number(++m_targets));
        QDir().mkpath(m_target);
        sync();
        return m_target;
    }

    /// How much of the disk the last job took, in percent of its files.
    double DiskTaken() const { return m_diskTaken; }

    /// Copies into an empty folder; returns the seconds that it took.
    double Run() {
        m_window.Controls().txtDestination.SetText(NewTarget());
        m_window.Events().Start();
        const double before = FreeBytes();
        const double time = Seconds([this] { Raise(m_window.Controls().cmdCopy.Click); });
        sync();
        m_diskTaken = (before - FreeBytes()) / std::max(m_bytes, 1.0) * 100;
        return time;
    }

    const TimedEventLoop& Events() { return m_window.Events(); }

    bool IsCompleted() { return m_window.MessageBoxes().Texts().contains(u"Copy completed!"_s); }

    /// Where the last files went.
    QString Target() const { return m_target; }
    QString MusicFolder() const { return m_window.DeviceFolder() + u"/iPod_Control/Music"_s; }

private:
    bool IsInMemory() const { return QStorageInfo(m_target).fileSystemType() == "tmpfs"; }
    double FreeBytes() const {
        struct statvfs info {};
        statvfs(QFile::encodeName(m_target).constData(), &info);
        return static_cast<double>(info.f_bfree) * static_cast<double>(info.f_frsize);
    }
    static std::vector<SampleTrack> Tracks(int count, int bytes) {
        std::vector<SampleTrack> tracks = MakeLibrary(count);
        for (SampleTrack& track : tracks) {
            track.FileSize = bytes;
        }
        return tracks;
    }

    BenchWindow m_window;
    std::unique_ptr<SlowDisk> m_disk;
    double m_bytes;
    double m_diskTaken = 0;
    QString m_target;
    int m_targets = 0;
};

/// Runs the job and its yardstick in turn, and reports the medians.
void InTurn(benchmark::State& state, Job& job,
            const std::function<void(const QString& target)>& yardstick) {
    std::vector<double> speeds, yardsticks, paintings, pauses;
    for (auto _ : state) {
        const double jobTime = job.Run();
        paintings.push_back(job.Events().InYields / jobTime * 100);
        pauses.push_back(job.Events().LongestPause * 1000);
        const QString target = job.NewTarget();
        const double plain = Seconds([&] { yardstick(target); });
        state.SetIterationTime(jobTime);
        speeds.push_back(plain / jobTime);
        yardsticks.push_back(plain * 1000);
    }
    if (!job.IsCompleted()) {
        state.SkipWithError("the job did not complete");
    }
    state.counters["yardstick_ms"] = Median(yardsticks);
    state.counters["painting_percent"] = Median(paintings);
    state.counters["longest_pause_ms"] = Median(pauses);
    state.counters["speed"] = Median(speeds);
    state.counters["disk_percent"] = job.DiskTaken();
}

void BesideCp(benchmark::State& state, Job& job) {
    InTurn(state, job, [&](const QString& target) {
        QProcess::execute(u"cp"_s, {u"-r"_s, job.MusicFolder(), target});
    });
}

void CopyFiles(benchmark::State& state) {
    Job job(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    BesideCp(state, job);
}
BENCHMARK(CopyFiles)
    ->ArgNames({"files", "bytes"})
    ->Args({1500, 200000})
    ->Args({500, 2000000})
    ->Args({3, 300000000})
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);

/// From an old hard disk: 30 MB a second, and 10 ms to open a file.
void CopyFromSlowDevice(benchmark::State& state) {
    Job job(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
            "speed=30000000 open=0.01");
    if (!job.Impossible().isEmpty()) {
        state.SkipWithError(job.Impossible().toUtf8().constData());
        return;
    }
    BesideCp(state, job);
}
BENCHMARK(CopyFromSlowDevice)
    ->ArgNames({"files", "bytes"})
    ->Args({100, 2000000})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

/// What is below `folder`, in the order of a walk, relative to it.
std::vector<QByteArray> NamesBelow(const QString& folder, QDir::Filters filters) {
    std::vector<QByteArray> names;
    QDirIterator walk(folder, filters | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        names.push_back(QFile::encodeName(QDir(folder).relativeFilePath(walk.next())));
    }
    return names;
}

void CopyEmptyFiles(benchmark::State& state) {
    Job job(static_cast<int>(state.range(0)), 0);
    job.Run();
    const std::vector<QByteArray> folders = NamesBelow(job.Target(), QDir::Dirs);
    const std::vector<QByteArray> files = NamesBelow(job.Target(), QDir::Files);
    InTurn(state, job, [&](const QString& target) {
        const int root = open(QFile::encodeName(target).constData(), O_PATH | O_DIRECTORY);
        for (const QByteArray& folder : folders) {
            mkdirat(root, folder.constData(), 0777);
        }
        for (const QByteArray& file : files) {
            close(openat(root, file.constData(), O_WRONLY | O_CREAT | O_EXCL, 0666));
        }
        close(root);
    });
}
BENCHMARK(CopyEmptyFiles)
    ->ArgNames({"files"})
    ->Arg(2000)
    ->Arg(8000)
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);

} // namespace
