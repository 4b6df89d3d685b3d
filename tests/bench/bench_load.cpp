// Loading a library, beside what cannot be saved: reading the file, stepping the statement.

#include "app/ControlGroups.h"
#include "platform/ThreadWorker.h"
#include "tests/bench/BenchLibrary.h"
#include "tests/bench/BenchWindow.h"
#include "tests/bench/Sizes.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

QString DatabaseFile(const BenchWindow& window, const char* name) {
    return window.DeviceFolder() + u"/iPod_Control/iTunes/"_s + QString::fromLatin1(name);
}

/// A library is loaded into a window that shows none. Releasing another one's texts is no part of
/// it.
void Forget(benchmark::State& state, LoadMusic& loadMusic) {
    state.PauseTiming();
    loadMusic.Library = {};
    state.ResumeTiming();
}

void ReadTheFile(benchmark::State& state) {
    const BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    for (auto _ : state) {
        QFile file(DatabaseFile(window, "iTunesDB"));
        file.open(QIODevice::ReadOnly);
        QByteArray bytes = file.readAll();
        benchmark::DoNotOptimize(bytes.data());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadTheFile)->Apply(ForEverySize)->MeasureProcessCPUTime();

void LoadBinaryDatabase(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    ThreadWorker background;
    LoadMusic loadMusic({window.Files(), background, window.Events(), window.MessageBoxes()},
                        LoadControlsOf(window.Controls()));
    for (auto _ : state) {
        Forget(state, loadMusic);
        loadMusic.LoadITunesDB(u"E:"_s);
        if (loadMusic.Library.TrackCount != state.range(0)) {
            state.SkipWithError("the library did not load");
        }
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(LoadBinaryDatabase)->Apply(ForEverySize)->MeasureProcessCPUTime();

void StepTheStatement(benchmark::State& state) {
    const BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), true);
    const QByteArray library =
        QFile::encodeName(DatabaseFile(window, "iTunes Library.itlp/Library.itdb"));
    const QByteArray attach =
        "Attach '" + QFile::encodeName(DatabaseFile(window, "iTunes Library.itlp/Locations.itdb")) +
        "' As main2";
    for (auto _ : state) {
        sqlite3* database = nullptr;
        sqlite3_open_v2(library.constData(), &database, SQLITE_OPEN_READONLY, nullptr);
        sqlite3_exec(database, attach.constData(), nullptr, nullptr, nullptr);
        sqlite3_stmt* statement = nullptr;
        sqlite3_prepare_v2(database,
                           "Select item.title, item.artist, item.album, item.track_number, "
                           "location.file_size, location.location, location.kind_id From location "
                           "Inner Join item On location.item_pid = item.pid Order By item.artist, "
                           "item.album",
                           -1, &statement, nullptr);
        int64_t rows = 0;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            ++rows;
        }
        if (rows != state.range(0)) {
            state.SkipWithError("the statement gave other rows");
        }
        sqlite3_finalize(statement);
        sqlite3_close(database);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(StepTheStatement)->Apply(ForEverySize)->MeasureProcessCPUTime();

void LoadSqliteLibrary(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), true);
    ThreadWorker background;
    LoadMusic loadMusic({window.Files(), background, window.Events(), window.MessageBoxes()},
                        LoadControlsOf(window.Controls()));
    for (auto _ : state) {
        Forget(state, loadMusic);
        loadMusic.LoadSQLiteLibrary(u"E:"_s);
        if (loadMusic.Library.TrackCount != state.range(0)) {
            state.SkipWithError("the library did not load");
        }
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(LoadSqliteLibrary)->Apply(ForEverySize)->MeasureProcessCPUTime();

} // namespace
