// Search and filter on the fullest library, from the keystroke to the painted window.

#include "tests/bench/BenchLibrary.h"
#include "tests/bench/BenchWindow.h"
#include "tests/bench/Sizes.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

/// A keystroke, taken while another search is shown.
void Keystroke(benchmark::State& state, const QString& before, const QString& after,
               bool showEverything) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    if (showEverything) {
        window.Controls().lstArtists.SetListIndex(0);
    }
    for (auto _ : state) {
        state.PauseTiming();
        window.Controls().txtSearch.SetText(before);
        BenchWindow::Paint();
        state.ResumeTiming();
        window.Controls().txtSearch.SetText(after);
        BenchWindow::Paint();
    }
    state.counters["artists"] = window.Controls().lstArtists.ListCount() - 1;
    state.counters["songs"] = window.Controls().lstSongs.ListCount() - 1;
    state.SetComplexityN(state.range(0));
}

void SmallResult(benchmark::State& state) {
    Keystroke(state, u"lantern 7"_s, u"lantern 77"_s, false);
}
BENCHMARK(SmallResult)->Apply(ForEverySize);

/// Nearly every artist, album or title holds an "e"; everything is shown.
void EverythingMatches(benchmark::State& state) {
    Keystroke(state, u"lantern 7"_s, u"e"_s, true);
}
BENCHMARK(EverythingMatches)->Apply(ForEverySize);

void FilterTab(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    int tab = 0;
    for (auto _ : state) {
        tab = tab == 1 ? 2 : 1;
        window.Controls().tbsFilter.Select(tab);
        BenchWindow::Paint();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(FilterTab)->Apply(ForEverySize);

void EndOfSearch(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    window.Controls().lstArtists.SetListIndex(0);
    for (auto _ : state) {
        state.PauseTiming();
        window.Controls().txtSearch.SetText(u"lantern"_s);
        BenchWindow::Paint();
        state.ResumeTiming();
        window.Controls().txtSearch.SetText(QString());
        BenchWindow::Paint();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(EndOfSearch)->Apply(ForEverySize);

} // namespace
