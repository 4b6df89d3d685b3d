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

} // namespace

class ITunesDBWalk : public LoadingWindow {
protected:
    QStringList Titles() const {
        QStringList titles;
        for (const ArtistRecord& artist : Library.Artists) {
            for (const AlbumRecord& album : artist.Albums) {
                for (const TrackRecord& track : album.Tracks) {
                    titles += track.Title;
                }
            }
        }
        return titles;
    }

    /// Loads one track whose only item is that one, cut off `cut` bytes before its end, as the end
    /// of the file.
    void LoadItemAtEnd(const QByteArray& item, int cut) {
        const QByteArray database = ListHead("mhlt", 1) + Track(1, 1, {}) + item;
        Load(database.chopped(cut));
    }
};

// ---- the head of the list

TEST_F(ITunesDBWalk, WithoutAHeadTheFirstTrackIsLoadedAndItsPercentageIsATypeMismatch) {
    Load(TitledTrack(u"one"_s) + TitledTrack(u"two"_s) + DataSet(2, Zeros(100)));

    ExpectError(u"Error 13: Type mismatch"_s);
    EXPECT_EQ(Library.TrackCount, 1);
    EXPECT_EQ(Titles(), QStringList{u"one"_s});
    EXPECT_EQ(Window.prgCopy.Max(), 100); // as it was
    EXPECT_EQ(Window.prgCopy.Values, (std::vector<float>{1, 0}));
    EXPECT_EQ(Window.lblMessage.Caption(), u"Please wait..."_s);
    ExpectConsistent(Library);
}

TEST_F(ITunesDBWalk, AHeadTwelveBytesBeforeTheEndIsFound) {
    Load(Zeros(100) + "mhlt" + Number(92) + Number(5));

    EXPECT_EQ(Window.prgCopy.Max(), 5);
    ExpectError(u"Error 9: Subscript out of range"_s);
}

TEST_F(ITunesDBWalk, AHeadNearerToTheEndIsNotFound) {
    Load((Zeros(100) + "mhlt" + Number(92) + Number(5)).chopped(1));

    EXPECT_EQ(Window.prgCopy.Max(), 100);
    ExpectError(u"Error 9: Subscript out of range"_s);
}

TEST_F(ITunesDBWalk, OnlyTheFirstHeadCounts) {
    Load(ListHead("mhlt", 2) + ListHead("mhlt", 0) + TitledTrack(u"one"_s) + TitledTrack(u"two"_s));

    EXPECT_EQ(Window.prgCopy.Max(), 2);
    EXPECT_EQ(Titles(), (QStringList{u"one"_s, u"two"_s}));
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(ITunesDBWalk, TracksBeforeTheHeadAreNotRead) {
    Load(TitledTrack(u"before"_s) + DataSet(4, Zeros(60)) + ListHead("mhlt", 1) +
         TitledTrack(u"behind"_s));

    EXPECT_EQ(Titles(), QStringList{u"behind"_s});
}

TEST_F(ITunesDBWalk, ACountOfTwoToThe31Overflows) {
    LoadTracks(0x80000000U, {TitledTrack(u"one"_s)});

    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Library.TrackCount, 0);
    EXPECT_TRUE(Library.Artists.empty());
}

TEST_F(ITunesDBWalk, ACountBelowTheTrueOneLoadsEveryTrack) {
    LoadTracks(1, {TitledTrack(u"one"_s), TitledTrack(u"two"_s), TitledTrack(u"three"_s)});

    EXPECT_EQ(Titles(), (QStringList{u"one"_s, u"two"_s, u"three"_s}));
    EXPECT_EQ(Window.lblMessage.Caption(), u"Loading music... 300%"_s);
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(ITunesDBWalk, ACountAboveTheTrueOneLoadsEveryTrack) {
    LoadTracks(2'000'000'000, {TitledTrack(u"one"_s), TitledTrack(u"two"_s)});

    EXPECT_EQ(Titles(), (QStringList{u"one"_s, u"two"_s}));
    EXPECT_EQ(Window.lblMessage.Caption(), u"Loading music... 0%"_s);
    EXPECT_TRUE(Boxes.Shown.empty());
}

// ---- from chunk to chunk

TEST_F(ITunesDBWalk, AnItemBeforeTheFirstTrackBelongsToIt) {
    Load(ListHead("mhlt", 1) + Item(4, u"early"_s) + TitledTrack(u"one"_s));

    EXPECT_EQ(Lines(Library), QStringList{u"early | UNKNOWN | 0 one | 0 | 0 | E:"_s});
}

TEST_F(ITunesDBWalk, BytesBetweenChunksArePassedOver) {
    Load(ListHead("mhlt", 2) + "mmmhmhimhommhs" + TitledTrack(u"one"_s) + Zeros(33) + "mhmhi" +
         TitledTrack(u"two"_s) + "m");

    EXPECT_EQ(Titles(), (QStringList{u"one"_s, u"two"_s}));
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(ITunesDBWalk, TheFirst49BytesOfATrackAreNotLookedAt) {
    QByteArray track = TitledTrack(u"one"_s);
    track.replace(16, 4, "mhit");
    track.replace(20, 4, "mhsd");
    track.replace(48, 4, "mhit"); // from the last of them on

    Load(ListHead("mhlt", 1) + track);

    EXPECT_EQ(Titles(), QStringList{u"one"_s});
}

TEST_F(ITunesDBWalk, ATagFromByte49OfATrackOnCounts) {
    QByteArray track = TitledTrack(u"one"_s);
    track.replace(49, 4, "mhit");

    Load(ListHead("mhlt", 2) + track);

    EXPECT_EQ(Titles(), (QStringList{u"UNKNOWN"_s, u"one"_s}));
}

TEST_F(ITunesDBWalk, ATagInsideAnIgnoredItemCounts) {
    QByteArray podcast = Item(15, u"a feed"_s);
    podcast.replace(28, 4, "mhit");

    Load(ListHead("mhlt", 2) + Track(1, 1, {Item(1, u"one"_s), podcast}) + Zeros(50));

    EXPECT_EQ(Titles(), (QStringList{u"one"_s, u"UNKNOWN"_s}));
}

TEST_F(ITunesDBWalk, ATextItemIsLeftAtItsStatedEnd) {
    // The text goes on behind the stated end, where it is walked over.
    LoadTracks(1, {Track(1, 1, {Item(1, u"abcdef"_s, 40 + 6), Item(4, u"artist"_s)})});

    EXPECT_EQ(Lines(Library), QStringList{u"artist | UNKNOWN | 1 abc | 1 | 0 | E:"_s});
}

TEST_F(ITunesDBWalk, AnItemThatSwallowsTheNextOneHidesIt) {
    const QByteArray next = Item(4, u"artist"_s);
    LoadTracks(1, {Track(1, 1, {Item(3, u""_s, 40 + quint32(next.size())), next})});

    EXPECT_EQ(Library.Artists[0].Name, u"UNKNOWN"_s);
    EXPECT_EQ(Library.Artists[0].Albums[0].Name.size(), next.size() / 2);
}

TEST_F(ITunesDBWalk, AnOddLengthTakesOneMoreByte) {
    LoadTracks(2, {Track(1, 1, {Item(1, u"abc"_s, 41)}), Track(1, 2, {Item(1, u"abc"_s, 43)})});

    EXPECT_EQ(Titles(), (QStringList{u"a"_s, u"ab"_s}));
}

TEST_F(ITunesDBWalk, AnItemShorterThanItsHeaderIsAnEmptyText) {
    for (const quint32 length : {1U, 12U, 24U, 39U, 40U}) {
        LoadTracks(
            1,
            {Track(1, 1, {Item(1, u"before"_s), Item(1, u"x"_s, length), Item(4, u"artist"_s)})});

        EXPECT_EQ(Lines(Library), QStringList{u"artist | UNKNOWN | 1 UNKNOWN | 1 | 0 | E:"_s})
            << length;
        EXPECT_TRUE(Boxes.Shown.empty());
    }
}

TEST_F(ITunesDBWalk, BehindAnItemShorterThanItsHeaderTheWalkGoesOnAtItsStatedEnd) {
    const QByteArray shortItem = "mhod" + Number(24) + Number(16) + Number(1);
    LoadTracks(1, {Track(1, 1, {Item(1, u"before"_s), shortItem, Item(4, u"artist"_s)})});

    EXPECT_EQ(Lines(Library), QStringList{u"artist | UNKNOWN | 1 UNKNOWN | 1 | 0 | E:"_s});
}

TEST_F(ITunesDBWalk, AnItemOfNoLengthIsAnEmptyTextAndIsPassedOver) {
    LoadTracks(1, {Track(1, 1, {Item(1, u"before"_s), Item(1, u"x"_s, 0), Item(4, u"artist"_s)})});

    EXPECT_EQ(Lines(Library), QStringList{u"artist | UNKNOWN | 1 UNKNOWN | 1 | 0 | E:"_s});
    EXPECT_TRUE(Boxes.Shown.empty());
}

// ---- numbers

TEST_F(ITunesDBWalk, TheLargestNumbersLoad) {
    LoadTracks(1, {Track(0x7FFFFFFF, 0x7FFFFFFF, {Item(1, u"T"_s)})});

    EXPECT_EQ(Lines(Library),
              QStringList{u"UNKNOWN | UNKNOWN | 2147483647 T | 2147483647 | 0 | E:"_s});
}

TEST_F(ITunesDBWalk, AMediaFileOf2GiBOverflowsAndTheTracksBeforeItStay) {
    LoadTracks(3, {TitledTrack(u"one"_s), Track(0x80000000LL, 1, {Item(1, u"big"_s)}),
                   TitledTrack(u"three"_s)});

    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Titles(), QStringList{u"one"_s});
    EXPECT_EQ(Library.TrackCount, 1);
}

TEST_F(ITunesDBWalk, ANegativeTrackNumberOverflows) {
    LoadTracks(1, {Track(1, -1, {Item(1, u"T"_s)})});

    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(ITunesDBWalk, AnItemLengthOf2GiBOverflows) {
    LoadTracks(2, {TitledTrack(u"one"_s), Track(1, 1, {Item(1, u"T"_s, 0x80000000U)})});

    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Titles(), QStringList{u"one"_s});
}

TEST_F(ITunesDBWalk, TheLengthOfAnIgnoredItemDoesNotMatter) {
    LoadTracks(1, {Track(1, 1, {Item(5, u"T"_s, 0xFFFFFFFFU), Item(1, u"one"_s)})});

    EXPECT_EQ(Titles(), QStringList{u"one"_s});
    EXPECT_TRUE(Boxes.Shown.empty());
}

// ---- the end

TEST_F(ITunesDBWalk, TracksOfALaterDataSetAreNotRead) {
    Load(ListHead("mhlt", 1) + TitledTrack(u"one"_s) + DataSet(1, TitledTrack(u"two"_s)));

    EXPECT_EQ(Titles(), QStringList{u"one"_s});
}

TEST_F(ITunesDBWalk, AHeadWithoutTracksRunsIntoTheEnd) {
    Load(ListHead("mhlt", 3) + Zeros(300));

    ExpectError(u"Error 9: Subscript out of range"_s);
    EXPECT_EQ(Library.TrackCount, 0);
    EXPECT_TRUE(Library.Artists.empty());
}

TEST_F(ITunesDBWalk, AnEmptyFileRunsIntoTheEnd) {
    Load({});

    ExpectError(u"Error 9: Subscript out of range"_s);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(ITunesDBWalk, ADataSetRightBehindTheHeadIsTakenForATrack) {
    LoadTracks(1, {});

    EXPECT_EQ(Lines(Library), QStringList{u"UNKNOWN | UNKNOWN | 0 UNKNOWN | 0 | 0 | E:"_s});
    EXPECT_TRUE(Boxes.Shown.empty());
    ExpectEnded();
}

TEST_F(ITunesDBWalk, BehindADataSetTakenForATrackTheNextMEndsTheList) {
    Load(ListHead("mhlt", 1) + DataSet(1, Zeros(20) + "m" + TitledTrack(u"not read"_s)));

    EXPECT_EQ(Titles(), QStringList{u"UNKNOWN"_s});
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(ITunesDBWalk, ATrackWhoseNumbersAreCutOffRunsIntoTheEnd) {
    const QByteArray database = ListHead("mhlt", 2) + TitledTrack(u"one"_s) + Track(1, 1, {});
    const int second = int(database.lastIndexOf("mhit"));
    // 47 bytes and the one behind the file are just enough for a track, 46 are not; the tag itself
    // is recognised from 41 bytes on.
    Load(database.left(second + 47));
    EXPECT_EQ(Titles(), (QStringList{u"one"_s, u"UNKNOWN"_s}));
    EXPECT_TRUE(Boxes.Shown.empty());

    Load(database.left(second + 46));
    EXPECT_EQ(Titles(), QStringList{u"one"_s});
    ExpectError(u"Error 9: Subscript out of range"_s);
}

TEST_F(ITunesDBWalk, ATagWithin41BytesOfTheEndIsNotLookedAt) {
    const QByteArray database = ListHead("mhlt", 2) + TitledTrack(u"one"_s) + Track(1, 1, {});
    const int second = int(database.lastIndexOf("mhit"));

    Load(database.left(second + 40));
    EXPECT_EQ(Titles(), QStringList{u"one"_s});
    EXPECT_TRUE(Boxes.Shown.empty());

    Load(database.left(second + 41));
    ExpectError(u"Error 9: Subscript out of range"_s);
}

TEST_F(ITunesDBWalk, ATextThatEndsWithTheFileLoads) {
    LoadItemAtEnd(Item(1, u"AB"_s), 0);

    EXPECT_EQ(Titles(), QStringList{u"AB"_s});
}

TEST_F(ITunesDBWalk, TheZeroBehindTheFileCompletesATextThatLacksOneByte) {
    LoadItemAtEnd(Item(1, u"AB"_s), 1);

    EXPECT_EQ(Titles(), QStringList{u"AB"_s});
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(ITunesDBWalk, ATextThatLacksTwoBytesRunsIntoTheEnd) {
    LoadItemAtEnd(Item(1, u"AB"_s), 2);

    ExpectError(u"Error 9: Subscript out of range"_s);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(ITunesDBWalk, ATextOfNearly2GiBRunsIntoTheEndAndTheTracksBeforeItStay) {
    LoadTracks(2, {TitledTrack(u"one"_s), Track(1, 1, {Item(1, u"T"_s, 0x7FFFFFFF)})});

    ExpectError(u"Error 9: Subscript out of range"_s);
    EXPECT_EQ(Titles(), QStringList{u"one"_s});
}

// ---- files that cannot be read

TEST_F(ITunesDBWalk, AMissingFileIsReported) {
    Files.AddFolder(u"E:\\iPod_Control\\iTunes"_s);

    Music.LoadITunesDB(u"E:"_s);

    ExpectError(u"Error 53: File not found"_s);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(ITunesDBWalk, AMissingFolderIsReported) {
    Files.AddDrive(u"E:"_s);

    Music.LoadITunesDB(u"E:"_s);

    ExpectError(u"Error 76: Path not found"_s);
}

TEST_F(ITunesDBWalk, AFileThatMustNotBeReadIsReported) {
    Files.FailPath(FileCall::OpenForReading, DatabasePath(), ErrorNumber::PermissionDenied);

    LoadTracks(1, {TitledTrack(u"one"_s)});

    ExpectError(u"Error 70: Permission denied"_s);
}

TEST_F(ITunesDBWalk, ADeviceThatFailsWhileItIsReadIsReportedAndLeavesNoFileOpen) {
    Files.FailNthCall(FileCall::Read, 1, ErrorNumber::DeviceIOError);

    LoadTracks(1, {TitledTrack(u"one"_s)});

    ExpectError(u"Error 57: Device I/O error"_s);
    EXPECT_EQ(Files.OpenFiles, 0);
}

TEST_F(ITunesDBWalk, AFileThatShrinksWhileItIsReadIsReported) {
    Files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) {
        if (call.Call == FileCall::OpenForReading) {
            Files.AddFile(DatabasePath(), Zeros(10));
        }
    };

    LoadTracks(1, {TitledTrack(u"one"_s)});

    ExpectError(u"Error 57: Device I/O error"_s);
}

TEST_F(ITunesDBWalk, AFileOf2GiBOverflowsBeforeItIsRead) {
    Files.AddLargeFile(DatabasePath(), 0x80000000LL);

    Music.LoadITunesDB(u"E:"_s);

    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Files.CountOf(FileCall::OpenForReading), 0);
}

TEST_F(ITunesDBWalk, AFileTooLargeForTheMemoryIsReported) {
    Files.BeforeCall = [](const FakeFileSystem::RecordedCall& call) {
        if (call.Call == FileCall::Read) {
            throw std::bad_alloc();
        }
    };

    LoadTracks(1, {TitledTrack(u"one"_s)});

    ExpectError(u"Error 7: Out of memory"_s);
}

TEST_F(ITunesDBWalk, AfterAFailureTheNextLoadStartsAfresh) {
    LoadTracks(2, {TitledTrack(u"one"_s), Track(0x80000000LL, 1, {})});
    LoadTracks(1, {TitledTrack(u"two"_s)});

    EXPECT_EQ(Titles(), QStringList{u"two"_s});
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    ExpectEnded();
}
