// The three lists and the check marks, from the user's event to the painted window.

#include "browser/SortedOrder.h"
#include "tests/bench/BenchLibrary.h"
#include "tests/bench/BenchWindow.h"
#include "tests/bench/Sizes.h"

#include <benchmark/benchmark.h>

namespace {

/// One sort of all titles, which the list of all songs cannot do without.
void SortTitles(benchmark::State& state) {
    const std::vector<SampleTrack> tracks = MakeLibrary(static_cast<int>(state.range(0)));
    std::vector<const QString*> titles;
    for (const SampleTrack& track : tracks) {
        titles.push_back(&track.Title);
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(SortedOrder(titles, 1));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(SortTitles)->Apply(ForEverySize);

/// The parts of the program that these cases run by themselves, on the window's controls.
struct Parts {
    explicit Parts(BenchWindow& window)
        : Music(window.Files(), window.MessageBoxes(), window.Controls()),
          Fitting(Windows, window.Controls()),
          Lists(State, Music.Library, Fitting, window.Controls()),
          Artists(State, Music.Library, Lists, window.Controls()),
          Summary(State, Music.Library, window.Controls()) {
        Music.LoadITunesDB(QStringLiteral("E:"));
    }

    QtWindowManager Windows;
    BrowserState State;
    LoadMusic Music;
    TextFitting Fitting;
    LinkedLists Lists;
    ArtistList Artists;
    SelectionSummary Summary;
};

void BuildArtistList(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    Parts parts(window);
    for (auto _ : state) {
        parts.Artists.BuildArtistList();
        parts.Artists.FillArtists();
        BenchWindow::Paint();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BuildArtistList)->Apply(ForEverySize);

void Summary(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    Parts parts(window);
    for (auto _ : state) {
        parts.Summary.CalculateSize(false);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(Summary)->Apply(ForEverySize);

/// Choosing a device: load, artist list, first artist, summary.
void ChooseDevice(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    for (auto _ : state) {
        window.Reload();
        BenchWindow::Paint();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ChooseDevice)->Apply(ForEverySize);

/// The first click on "All" artists: all albums, and all songs in order.
void ShowAllSongs(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    for (auto _ : state) {
        state.PauseTiming();
        window.Reload();
        BenchWindow::Paint();
        state.ResumeTiming();
        window.Controls().lstArtists.SetListIndex(0);
        BenchWindow::Paint();
    }
    if (window.Controls().lstSongs.ListCount() != state.range(0) + 1) {
        state.SkipWithError("songs are missing");
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ShowAllSongs)->Apply(ForEverySize);

/// Ticking and unticking "All" artists with everything shown, summary included.
void TickAll(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    ListControl& artists = window.Controls().lstArtists;
    artists.SetListIndex(0);
    BenchWindow::Paint();
    for (auto _ : state) {
        artists.SetSelected(0, !artists.Selected(0));
        BenchWindow::Paint();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(TickAll)->Apply(ForEverySize);

/// What every tick of a single song costs.
void TickOneSong(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    window.Controls().lstArtists.SetListIndex(0);
    ListControl& songs = window.Controls().lstSongs;
    songs.SetListIndex(1);
    BenchWindow::Paint();
    for (auto _ : state) {
        songs.SetSelected(1, !songs.Selected(1));
        BenchWindow::Paint();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(TickOneSong)->Apply(ForEverySize);

} // namespace
