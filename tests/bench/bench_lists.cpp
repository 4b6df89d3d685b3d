// The three lists and the check marks, from the user's event to the painted window.

#include "app/ControlGroups.h"
#include "browser/Ordering.h"
#include "tests/bench/BenchLibrary.h"
#include "tests/bench/BenchWindow.h"
#include "tests/bench/Sizes.h"

#include <benchmark/benchmark.h>
#include <unicode/ucol.h>

#include <algorithm>
#include <array>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

/// One sort of names by ICU: what a list in the user's order cannot do without.
void SortByIcu(benchmark::State& state, const std::vector<QString>& names) {
    UErrorCode status = U_ZERO_ERROR;
    UCollator* collator = ucol_open("", &status);
    for (auto _ : state) {
        std::vector<std::string> keys(names.size());
        for (size_t i = 0; i < names.size(); ++i) {
            const auto* text = reinterpret_cast<const char16_t*>(names[i].utf16());
            const auto size = static_cast<int32_t>(names[i].size());
            std::array<uint8_t, 1024> key{};
            const int32_t length =
                ucol_getSortKey(collator, text, size, key.data(), static_cast<int32_t>(key.size()));
            keys[i].assign(reinterpret_cast<const char*>(key.data()), static_cast<size_t>(length));
        }
        std::vector<qint32> order(names.size());
        std::iota(order.begin(), order.end(), 0);
        std::sort(order.begin(), order.end(),
                  [&](qint32 left, qint32 right) { return keys[left] < keys[right]; });
        benchmark::DoNotOptimize(order.data());
    }
    ucol_close(collator);
    state.SetComplexityN(state.range(0));
}

/// The names of the groups that the tracks form, each once.
std::vector<QString> Names(int count, bool (*isNew)(const SampleTrack&, const SampleTrack&),
                           QString SampleTrack::*name) {
    std::vector<QString> names;
    const std::vector<SampleTrack> tracks = MakeLibrary(count);
    for (size_t i = 0; i < tracks.size(); ++i) {
        if (i == 0 || isNew(tracks[i - 1], tracks[i])) {
            names.push_back(tracks[i].*name);
        }
    }
    return names;
}

bool IsNewArtist(const SampleTrack& before, const SampleTrack& track) {
    return before.Artist != track.Artist;
}

bool IsNewAlbum(const SampleTrack& before, const SampleTrack& track) {
    return IsNewArtist(before, track) || before.Album != track.Album;
}

bool IsNewSong(const SampleTrack&, const SampleTrack&) {
    return true;
}

void SortArtists(benchmark::State& state) {
    SortByIcu(state, Names(static_cast<int>(state.range(0)), IsNewArtist, &SampleTrack::Artist));
}
BENCHMARK(SortArtists)->Apply(ForEverySize);

void SortAlbums(benchmark::State& state) {
    SortByIcu(state, Names(static_cast<int>(state.range(0)), IsNewAlbum, &SampleTrack::Album));
}
BENCHMARK(SortAlbums)->Apply(ForEverySize);

void SortSongs(benchmark::State& state) {
    SortByIcu(state, Names(static_cast<int>(state.range(0)), IsNewSong, &SampleTrack::Title));
}
BENCHMARK(SortSongs)->Apply(ForEverySize);

/// The parts of the program that these cases run by themselves, on the window's controls.
struct Parts {
    explicit Parts(BenchWindow& window)
        : Music({window.Files(), Background, window.Events(), window.MessageBoxes()},
                LoadControlsOf(window.Controls())),
          Fitting(Windows, FittingControlsOf(window.Controls())),
          Lists(Music.Library, Fitting, ListControlsOf(window.Controls())),
          Result(Music.Library, Lists),
          Summary(Result, Music.Library, SummaryControlsOf(window.Controls())) {
        Music.LoadITunesDB(u"E:"_s);
    }

    QtWindowManager Windows;
    InlineWorker Background;
    LoadMusic Music;
    TextFitting Fitting;
    LinkedLists Lists;
    SearchResult Result;
    SelectionSummary Summary;
};

/// From the records to the rows of a shown list; what is painted of them is the same for all sizes.
void ArtistListShown(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    Parts parts(window);
    for (auto _ : state) {
        parts.Lists.BuildArtistList();
        parts.Lists.FillArtists();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ArtistListShown)->Apply(ForEverySize);

void AllAlbumsShown(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    Parts parts(window);
    for (auto _ : state) {
        RowTables rows;
        rows.Albums = ::SortAlbums(parts.Music.Library, true);
        parts.Lists.PutRowsBack(std::move(rows));
        parts.Lists.FillAlbums();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(AllAlbumsShown)->Apply(ForEverySize);

void AllSongsShown(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    Parts parts(window);
    const AlbumTables albums = ::SortAlbums(parts.Music.Library, true);
    for (auto _ : state) {
        RowTables rows;
        rows.Albums = albums;
        rows.Songs = SortTracks5(parts.Music.Library, albums);
        parts.Lists.PutRowsBack(std::move(rows));
        parts.Lists.FillSongs();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(AllSongsShown)->Apply(ForEverySize);

void Summary(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    Parts parts(window);
    for (auto _ : state) {
        parts.Summary.CalculateSize(false);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(Summary)->Apply(ForEverySize);

/// One pass over the records.
void AddSizes(benchmark::State& state) {
    BenchWindow window(MakeLibrary(static_cast<int>(state.range(0))), false);
    const Parts parts(window);
    for (auto _ : state) {
        double size = 0;
        for (const ArtistRecord& artist : parts.Music.Library.Artists) {
            for (const AlbumRecord& album : artist.Albums) {
                for (const TrackRecord& track : album.Tracks) {
                    size += track.FileSize;
                }
            }
        }
        benchmark::DoNotOptimize(size);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(AddSizes)->Apply(ForEverySize);

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
