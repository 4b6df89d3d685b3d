// Whole processes: how long the program takes to start, and how much memory.

#include "tests/bench/BenchLibrary.h"
#include "tests/bench/BenchWindow.h"
#include "tests/bench/Measuring.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

constexpr int Fullest = 32767;

/// Runs one of the programs beside this one to its end; returns what it prints.
QByteArray Run(const char* program, const QStringList& arguments = {}) {
    QProcess process;
    process.start(QCoreApplication::applicationDirPath() + u'/' + QString::fromLatin1(program),
                  arguments);
    process.waitForFinished(-1);
    return process.readAllStandardOutput();
}

QString MakeDeviceOf(const ScratchFolder& folder, int tracks, bool sqlite) {
    const QString device = folder.filePath(QString::number(tracks));
    MakeDevice(device, MakeLibrary(tracks), sqlite);
    return device;
}

/// The start to a usable window with a sample iPod, and that of a bare window.
void Start(benchmark::State& state) {
    const ScratchFolder folder;
    qputenv("SONGLIFT_DRIVES", MakeDeviceOf(folder, 40, false).toUtf8());
    std::vector<double> more;
    for (auto _ : state) {
        const double bare = Seconds([] { Run("bare_window"); });
        const double program = Seconds([] { Run("started_program"); });
        state.SetIterationTime(program);
        more.push_back((program - bare) * 1000);
    }
    state.counters["more_ms"] = Median(more);
}
BENCHMARK(Start)->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);

/// The most memory with a library shown, beyond what a library of one track takes.
void PeakMemory(benchmark::State& state) {
    const bool sqlite = state.range(0) != 0;
    const ScratchFolder folder;
    const QString one = MakeDeviceOf(folder, 1, sqlite);
    const QString full = MakeDeviceOf(folder, Fullest, sqlite);
    const auto peak = [&](const QString& device) {
        qputenv("SONGLIFT_DRIVES", device.toUtf8());
        return Run("started_program", {u"all"_s}).split(' ');
    };
    double most = 0;
    for (auto _ : state) {
        const QByteArrayList shown = peak(full);
        if (shown.value(1).toInt() != Fullest) {
            state.SkipWithError("songs are missing");
        }
        most = shown.value(0).toDouble() - peak(one).value(0).toDouble();
    }
    const QString files = full + u"/iPod_Control/iTunes/"_s;
    const QString base = files + u"iTunes Library.itlp/"_s;
    const qint64 size = sqlite ? QFileInfo(base + u"Library.itdb"_s).size() +
                                     QFileInfo(base + u"Locations.itdb"_s).size()
                               : QFileInfo(files + u"iTunesDB"_s).size();
    state.counters["bytes"] = most;
    state.counters["of_database"] = most / static_cast<double>(size);
}
BENCHMARK(PeakMemory)->ArgName("sqlite")->Arg(0)->Arg(1)->Iterations(1);

} // namespace
