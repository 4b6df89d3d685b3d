// A copy job beside `cp -r` of the same files, in turn, on the same disk.

#include "tests/bench/BenchLibrary.h"
#include "tests/bench/BenchWindow.h"

#include <benchmark/benchmark.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

#include <unistd.h>

#include <algorithm>

namespace {

void MakeMedia(const BenchWindow& window, const std::vector<SampleTrack>& tracks, int bytes) {
    QByteArray content(bytes, '\0');
    for (int i = 0; i < bytes; ++i) {
        content[i] = static_cast<char>(i * 31 + i / 4096);
    }
    const QDir music(window.DeviceFolder() + QStringLiteral("/iPod_Control/Music"));
    for (const SampleTrack& track : tracks) {
        music.mkpath(track.Location.section(QLatin1Char('/'), 0, 0));
        QFile file(music.filePath(track.Location));
        file.open(QIODevice::WriteOnly);
        file.write(content);
    }
}

double Seconds(const std::function<void()>& work) {
    QElapsedTimer clock;
    clock.start();
    work();
    return static_cast<double>(clock.nsecsElapsed()) / 1e9;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

/// Both begin with no bytes waiting for the disk, on an empty folder.
void Prepare(const QString& folder) {
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    sync();
}

void CopyFiles(benchmark::State& state) {
    const auto count = static_cast<int>(state.range(0));
    std::vector<SampleTrack> tracks = MakeLibrary(count);
    const auto bytes = static_cast<int>(state.range(1));
    for (SampleTrack& track : tracks) {
        track.FileSize = bytes;
    }
    BenchWindow window(tracks, false);
    MakeMedia(window, tracks, bytes);
    Form1Controls& controls = window.Controls();
    controls.lstArtists.SetListIndex(0);
    controls.lstArtists.SetSelected(0, true);
    const QString target = window.Scratch(QStringLiteral("copy"));
    controls.txtDestination.SetText(target);

    std::vector<double> ratios;
    for (auto _ : state) {
        Prepare(target);
        const double job = Seconds([&] { Raise(controls.cmdCopy.Click); });
        Prepare(target);
        const double plain = Seconds([&] {
            QProcess::execute(QStringLiteral("cp"),
                              {QStringLiteral("-r"),
                               window.DeviceFolder() + QStringLiteral("/iPod_Control/Music"),
                               target});
        });
        state.SetIterationTime(job);
        ratios.push_back(plain / job);
    }
    if (!window.MessageBoxes().Texts().contains(QStringLiteral("Copy completed!"))) {
        state.SkipWithError("the job did not complete");
    }
    state.counters["of_cp_speed"] = Median(ratios);
}
BENCHMARK(CopyFiles)
    ->ArgNames({"files", "bytes"})
    ->Args({2000, 200000})
    ->Args({500, 2000000})
    ->Args({3, 300000000})
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);

} // namespace
