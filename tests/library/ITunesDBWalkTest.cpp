// The walk over the chunks of a database: where it begins and ends, how it gets from one chunk to
// the next, and what stops it.

#include "platform/RuntimeError.h"
#include "tests/library/LoadingWindow.h"

#include <new>

using namespace ITunesDBChunks;
using namespace Qt::StringLiterals;

namespace {

QByteArray Zeros(int count) {
    return QByteArray(count, '\0');
}

/// A track with the title "one" whose bytes hold `tag` at `at`.
QByteArray TrackWith(const char* tag, int at) {
    return TitledTrack(u"one"_s).replace(at, 4, tag);
}

/// A track with a title, followed by these items.
QByteArray TrackOf(const QByteArray& items) {
    return Track(1, 1, {Item(1, u"before"_s), items});
}

} // namespace

class ITunesDBWalk : public LoadingWindow {
protected:
    struct Case {
        const char* Rule;
        QByteArray Database;
        int Error;
        QStringList Titles;
    };

    void ExpectEach(const std::vector<Case>& cases) {
        for (const Case& each : cases) {
            SCOPED_TRACE(each.Rule);
            Boxes.Shown.clear();
            Library.Artists.clear();
            Load(each.Database);
            if (each.Error != 0) {
                ExpectError(u"Error %1: %2"_s.arg(each.Error)
                                .arg(RuntimeError(ErrorNumber(each.Error)).Description));
            } else {
                EXPECT_EQ(Boxes.Texts(), QStringList());
                ExpectEnded();
            }
            EXPECT_EQ(Titles(), each.Titles);
            EXPECT_EQ(Library.TrackCount, each.Titles.size());
        }
    }
};

TEST_F(ITunesDBWalk, TheWalkBeginsAtTheFirstHeadOfATrackList) {
    const QByteArray lastHead = Zeros(100) + "mhlt" + Number(92) + Number(5);
    const QByteArray one = TitledTrack(u"one"_s);
    const QByteArray two = TitledTrack(u"two"_s);
    ExpectEach({
        {"tracks before it are not read",
         two + DataSet(4, Zeros(60)) + ListHead("mhlt", 1) + one,
         0,
         {u"one"_s}},
        {"later ones do not count",
         ListHead("mhlt", 2) + ListHead("mhlt", 0) + one + two,
         0,
         {u"one"_s, u"two"_s}},
        {"without one, at the first byte, where no total is known",
         one + two + DataSet(2, Zeros(100)),
         13,
         {u"one"_s}},
        {"it tells too few tracks",
         TrackList(1, {one, two, one}),
         0,
         {u"one"_s, u"two"_s, u"one"_s}},
        {"it tells too many", TrackList(2'000'000'000, {one, two}), 0, {u"one"_s, u"two"_s}},
        {"it tells 2 to the 31", TrackList(0x80000000U, {one}), 6, {}},
    });
    EXPECT_EQ(Window.prgCopy.Max(), 2'000'000'000);
    Load(lastHead.chopped(1)); // less than twelve bytes from the end
    EXPECT_EQ(Window.prgCopy.Max(), 2'000'000'000);
    Load(lastHead);
    EXPECT_EQ(Window.prgCopy.Max(), 5);
}

TEST_F(ITunesDBWalk, TheWalkGoesFromTagToTag) {
    const QByteArray one = TitledTrack(u"one"_s);
    const QByteArray head = ListHead("mhlt", 2);
    QByteArray podcast = Item(15, u"a feed"_s);
    podcast.replace(28, 4, "mhit");
    ExpectEach({
        {"bytes between chunks are passed over",
         head + "mmmhmhimhommhs" + one + Zeros(33) + "mhmhi" + one + "m",
         0,
         {u"one"_s, u"one"_s}},
        {"the first 49 bytes of a track are not looked at",
         head + TrackWith("mhit", 16),
         0,
         {u"one"_s}},
        {"not even for the end", head + TrackWith("mhsd", 20), 0, {u"one"_s}},
        {"a tag on the last of them is none", head + TrackWith("mhit", 48), 0, {u"one"_s}},
        {"a tag behind them is one", head + TrackWith("mhit", 49), 0, {u"UNKNOWN"_s, u"one"_s}},
        {"a tag inside an ignored item is one",
         head + Track(1, 1, {Item(1, u"one"_s), podcast}) + Zeros(50),
         0,
         {u"one"_s, u"UNKNOWN"_s}},
    });
}

TEST_F(ITunesDBWalk, AnItemHasTheLengthThatItStatesAndItsTextFollowsItsHeader) {
    const QByteArray artist = Item(4, u"artist"_s);
    const struct {
        const char* Rule;
        QByteArray List;
        QString Line;
    } cases[] = {
        {"before the first track it belongs to that", artist + TitledTrack(u"one"_s),
         u"artist | UNKNOWN | 0 one | 0 | 0 | E:"_s},
        {"its text goes on behind its end", TrackOf(Item(1, u"abcdef"_s, 40 + 6) + artist),
         u"artist | UNKNOWN | 1 abc | 1 | 0 | E:"_s},
        {"an odd length takes one more byte", TrackOf(Item(1, u"abc"_s, 41) + artist),
         u"artist | UNKNOWN | 1 a | 1 | 0 | E:"_s},
        {"an odd length takes one more byte", TrackOf(Item(1, u"abc"_s, 43) + artist),
         u"artist | UNKNOWN | 1 ab | 1 | 0 | E:"_s},
        {"it is its header", TrackOf(Item(1, u"x"_s, 40) + artist),
         u"artist | UNKNOWN | 1 UNKNOWN | 1 | 0 | E:"_s},
        {"it is shorter than its header", TrackOf(Item(1, u"x"_s, 39) + artist),
         u"artist | UNKNOWN | 1 UNKNOWN | 1 | 0 | E:"_s},
        {"it has no length", TrackOf(Item(1, u"x"_s, 0) + artist),
         u"artist | UNKNOWN | 1 UNKNOWN | 1 | 0 | E:"_s},
        {"the next one begins inside its header",
         TrackOf("mhod" + Number(24) + Number(16) + Number(1) + artist),
         u"artist | UNKNOWN | 1 UNKNOWN | 1 | 0 | E:"_s},
        {"the length of an ignored one does not matter",
         TrackOf(Item(5, u"T"_s, 0xFFFFFFFFU) + artist),
         u"artist | UNKNOWN | 1 before | 1 | 0 | E:"_s},
        {"the largest numbers", Track(0x7FFFFFFF, 0x7FFFFFFF, {artist}),
         u"artist | UNKNOWN | 2147483647 UNKNOWN | 2147483647 | 0 | E:"_s},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Rule);
        LoadTracks(1, {each.List});
        ExpectLoaded({each.Line});
    }
    LoadTracks(1, {TrackOf(Item(3, u""_s, 40 + quint32(artist.size())) + artist)});
    EXPECT_EQ(Library.Artists.at(0).Name, u"UNKNOWN"_s);
    EXPECT_EQ(Library.Artists.at(0).Albums.at(0).Name.size(), artist.size() / 2);
}

TEST_F(ITunesDBWalk, NumbersFrom2To31OnOverflowAndTheTracksBeforeStay) {
    const QByteArray one = TitledTrack(u"one"_s);
    ExpectEach({
        {"a file size", TrackList(3, {one, Track(0x80000000LL, 1, {}), one}), 6, {u"one"_s}},
        {"a track number", TrackList(2, {one, Track(1, -1, {})}), 6, {u"one"_s}},
        {"an item's length",
         TrackList(2, {one, TrackOf(Item(1, u"T"_s, 0x80000000U))}),
         6,
         {u"one"_s}},
        {"none of them", TrackList(1, {one}), 0, {u"one"_s}}, // the next load starts afresh
    });
}

TEST_F(ITunesDBWalk, TheListEndsWithTheDataSetOrTheFile) {
    const QByteArray one = TitledTrack(u"one"_s);
    const QByteArray two = ListHead("mhlt", 2) + one + Track(1, 1, {});
    const auto second = two.lastIndexOf("mhit");
    const QByteArray text = ListHead("mhlt", 1) + Track(1, 1, {}) + Item(1, u"AB"_s);
    ExpectEach({
        {"a later data set is not read",
         ListHead("mhlt", 1) + one + DataSet(1, one),
         0,
         {u"one"_s}},
        {"a head without tracks runs into the end", ListHead("mhlt", 3) + Zeros(300), 9, {}},
        {"an empty file does", {}, 9, {}},
        {"a data set right behind the head is taken for a track",
         TrackList(1, {}),
         0,
         {u"UNKNOWN"_s}},
        {"and the next m ends the list then",
         ListHead("mhlt", 1) + DataSet(1, Zeros(20) + "m" + one),
         0,
         {u"UNKNOWN"_s}},
        // 47 bytes and the one behind the file are just enough for a track; its tag is recognised
        // from 41 bytes on.
        {"a track needs its numbers", two.left(second + 47), 0, {u"one"_s, u"UNKNOWN"_s}},
        {"one without them runs into the end", two.left(second + 46), 9, {u"one"_s}},
        {"as does its bare tag", two.left(second + 41), 9, {u"one"_s}},
        {"a tag nearer to the end is not looked at", two.left(second + 40), 0, {u"one"_s}},
        {"a text may end with the file", text, 0, {u"AB"_s}},
        {"the zero behind the file completes one that lacks a byte", text.chopped(1), 0, {u"AB"_s}},
        {"one that lacks two bytes runs into the end", text.chopped(2), 9, {}},
        {"as does one of nearly 2 GiB",
         TrackList(2, {one, TrackOf(Item(1, u"T"_s, 0x7FFFFFFF))}),
         9,
         {u"one"_s}},
    });
}

// ---- files that cannot be read

TEST_F(ITunesDBWalk, AFileThatCannotBeReadIsReportedAndNotLeftOpen) {
    using Call = RecordedFiles::RecordedCall;
    const std::pair<QString, std::function<void()>> cases[] = {
        {u"Error 70: Permission denied"_s,
         [this] {
             Files.FailPath(FileCall::OpenForReading, DatabasePath(),
                            ErrorNumber::PermissionDenied);
         }},
        {u"Error 57: Device I/O error"_s,
         [this] { Files.FailNthCall(FileCall::Read, 1, ErrorNumber::DeviceIOError); }},
        {u"Error 57: Device I/O error"_s, // it shrinks
         [this] {
             Files.BeforeCall = [this](const Call& call) {
                 if (call.Call == FileCall::OpenForReading) {
                     Files.AddFile(DatabasePath(), Zeros(10));
                 }
             };
         }},
        {u"Error 7: Out of memory"_s,
         [this] {
             Files.BeforeCall = [](const Call& call) {
                 if (call.Call == FileCall::Read) {
                     throw std::bad_alloc();
                 }
             };
         }},
    };
    for (const auto& [error, fail] : cases) {
        SCOPED_TRACE(error.toStdString());
        Boxes.Shown.clear();
        fail();
        LoadTracks(1, {TitledTrack(u"one"_s)});
        ExpectError(error);
        EXPECT_EQ(Files.OpenFiles, 0);
        Files.ClearFailures();
        Files.BeforeCall = {};
    }
}

TEST_F(ITunesDBWalk, NothingCountsAsLoadedWhereTheDeviceFailsInTheMiddleOfTheFile) {
    int reads = 0;
    Files.BeforeCall = [&](const RecordedFiles::RecordedCall& call) {
        if (call.Call == FileCall::Read && ++reads == 2) {
            EXPECT_GT(Library.TrackCount, 0);
            EXPECT_GT(Library.TotalSize, 0);
            throw RuntimeError(ErrorNumber::DeviceIOError);
        }
    };
    const QByteArray track = ITunesDBChunks::Track(5, 1, {Item(1, QString(1000, u'x'))});
    LoadTracks(200, std::vector(200, track));
    ExpectError(u"Error 57: Device I/O error"_s);
    EXPECT_EQ(Library.TrackCount, 0);
    EXPECT_EQ(Library.TotalSize, 0);
}

TEST_F(ITunesDBWalk, AFileThatIsMissingOrTooLargeIsReported) {
    const auto expect = [this](const QString& error) {
        Boxes.Shown.clear();
        Music.LoadITunesDB(u"E:"_s);
        ExpectError(error);
    };
    Files.AddDrive(u"E:"_s);
    expect(u"Error 76: Path not found"_s);
    Files.AddFolder(u"E:\\iPod_Control\\iTunes"_s);
    expect(u"Error 53: File not found"_s);
    Files.AddLargeFile(DatabasePath(), 0x80000000LL);
    expect(u"Error 6: Overflow"_s);
    EXPECT_EQ(Files.CountOf(FileCall::OpenForReading), 0);
}
