// What a load takes: time and memory grow with the database and no faster.

#include "platform/ProcessorTime.h"
#include "tests/fuzz/Allocations.h"
#include "tests/fuzz/LoadCheck.h"
#include "tests/library/LibraryText.h"
#include "tests/support/ITunesDBWriter.h"
#include "tests/support/SqliteLibraryWriter.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <limits>

using namespace ITunesDBChunks;
using namespace Qt::StringLiterals;

namespace {

constexpr int Few = 4000;
constexpr int Most = 32767;
/// How much more a track may take in the largest library than in a small one. What goes back over
/// the tracks before it takes eight times as much.
constexpr double Generous = 3;
/// What of a large file may be in memory at a time: one block.
constexpr qint64 PartOfFile = (1 << 20) + (64 << 10);

struct Cost {
    double Seconds = std::numeric_limits<double>::max();
    qint64 PeakBytes = 0;
    /// What the library holds on to.
    qint64 KeptBytes = 0;
    int Tracks = 0;
};

/// `perAlbum` tracks an album, and three albums an artist.
std::vector<SampleTrack> Tracks(int count, int perAlbum) {
    std::vector<SampleTrack> tracks;
    tracks.reserve(size_t(count));
    for (int i = 0; i < count; ++i) {
        tracks.push_back({u"Artist %1"_s.arg(i / perAlbum / 3), u"Album %1"_s.arg(i / perAlbum),
                          u"A title of middling length %1"_s.arg(i), i % perAlbum, 1000 + i,
                          u"F%1/ABCD%2.mp3"_s.arg(i % 50).arg(i)});
    }
    return tracks;
}

/// The least time of some loads, since what else the machine does can only add to it.
template <class Load>
Cost Measure(const Load& load) {
    Cost best;
    for (int run = 0; run < 5; ++run) {
        FakeForm1 window;
        FakeMessages boxes;
        RecordedFiles files;
        FakeEventLoop events;
        InlineWorker background;
        LoadMusic music({files, background, events, boxes}, LoadControlsOf(window.Controls));
        const auto [start, before] = load(files, music);
        best.Seconds = std::min(best.Seconds, ThreadProcessorSeconds() - start);
        best.PeakBytes = Allocations::Peak() - before;
        best.KeptBytes = Allocations::Bytes() - before;
        best.Tracks = music.Library.TrackCount;
    }
    return best;
}

std::pair<double, qint64> StartMeasuring() {
    Allocations::ResetPeak();
    return {ThreadProcessorSeconds(), Allocations::Bytes()};
}

Cost MeasureBinary(const QByteArray& bytes) {
    return Measure([&bytes](RecordedFiles& files, LoadMusic& music) {
        files.AddFile(u"E:\\iPod_Control\\iTunes\\iTunesDB"_s, bytes);
        const auto start = StartMeasuring();
        music.LoadITunesDB(u"E:"_s);
        return start;
    });
}

Cost MeasureSqlite(const std::vector<SampleTrack>& tracks) {
    const QTemporaryDir folder;
    WriteSqliteLibrary(folder.filePath(u"Library.itdb"_s), folder.filePath(u"Locations.itdb"_s),
                       tracks);
    return Measure([&](RecordedFiles& files, LoadMusic& music) {
        PutSqliteLibrary(files, folder.path());
        const auto start = StartMeasuring();
        music.LoadSQLiteLibrary(u"E:"_s);
        return start;
    });
}

/// A track of the largest library takes no more than a few times what one of a small library takes.
void ExpectLinear(const Cost& few, const Cost& most) {
    ASSERT_EQ(few.Tracks, Few);
    ASSERT_EQ(most.Tracks, Most);
    EXPECT_LT(most.Seconds / Most, Generous * few.Seconds / Few);
    EXPECT_LT(double(most.PeakBytes) / Most, 1.5 * double(few.PeakBytes) / Few);
}

} // namespace

TEST(LoadCost, ALoadGrowsWithItsTracks) {
    for (const int perAlbum : {12, 1}) {
        SCOPED_TRACE(perAlbum);
        ExpectLinear(MeasureBinary(WriteITunesDB(Tracks(Few, perAlbum))),
                     MeasureBinary(WriteITunesDB(Tracks(Most, perAlbum))));
        ExpectLinear(MeasureSqlite(Tracks(Few, perAlbum)), MeasureSqlite(Tracks(Most, perAlbum)));
    }
}

TEST(LoadCost, TheLetterMTakesTimeByItsNumber) {
    const Cost few = MeasureBinary(QByteArray(16 << 20, 'm'));
    const Cost most = MeasureBinary(QByteArray(64 << 20, 'm'));
    EXPECT_LT(most.Seconds / 4, Generous * few.Seconds);
    EXPECT_LT(most.PeakBytes, PartOfFile);
}

TEST(LoadCost, ABinaryLoadTakesTheTracksInMemory) {
    const QByteArray file = WriteITunesDB(Tracks(Most, 12));
    const Cost cost = MeasureBinary(file);
    ASSERT_EQ(cost.Tracks, Most);
    // A part of the file, the tables that find a track's group, and an array that moves as it grows
    // are all the rest.
    EXPECT_LT(cost.PeakBytes, cost.KeptBytes * 11 / 10 + PartOfFile);
    // In UTF-16 a text takes the bytes it took in the file.
    EXPECT_LT(cost.KeptBytes, file.size());
}

TEST(LoadCost, AnSqliteLoadTakesItsPagesAndTheTracksInMemory) {
    const Cost cost = MeasureSqlite(Tracks(Most, 12));
    ASSERT_EQ(cost.Tracks, Most);
    // SQLite's pages and the rows of its result are as large again as the tracks, in no more bytes.
    EXPECT_LT(cost.PeakBytes, 3 * cost.KeptBytes);
}
