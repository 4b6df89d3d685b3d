// Damaged and hostile databases: whatever the bytes, a load ends soon, and what it leaves is a
// library that can be walked.

#include "platform/RuntimeError.h"
#include "tests/library/LoadingWindow.h"
#include "tests/library/PlainITunesDBWalk.h"

#include <array>
#include <ctime>
#include <random>

using namespace ITunesDBChunks;
using namespace Qt::StringLiterals;

namespace {

constexpr int Large = 64 << 20;

std::vector<SampleTrack> SmallLibrary() {
    return {{u"ABBA"_s, u"Gold"_s, u"Waterloo"_s, 1, 1000, u"F00/A.mp3"_s},
            {u"Abba"_s, u"Gold"_s, u"Fernando"_s, 2, 2000, u"F01/B.m4a"_s, u"AAC audio file"_s},
            {{}, {}, u"Film"_s, 0, 3000, u"F02/C.mp4"_s, u"MPEG-4 video file"_s}};
}

QByteArray SmallDatabase() {
    ITunesDBLayout layout;
    layout.DatabaseHeader = 104;
    layout.TrackHeader = 60;
    layout.Playlists = 1;
    return WriteITunesDB(SmallLibrary(), layout);
}

QByteArray Repeated(const QByteArray& piece) {
    return piece.repeated(Large / piece.size());
}

/// The bytes with a few random changes: bytes and numbers replaced, pieces cut out or doubled, tags
/// put in, and fields of chunks set to anything.
QByteArray Changed(QByteArray bytes, std::mt19937& random) {
    static constexpr std::array tags = {"mhit", "mhod", "mhsd", "mhlt", "m"};
    const auto below = [&random](qsizetype end) { return qsizetype(random() % quint32(end)); };
    for (qsizetype changes = below(6) + 1; changes > 0; --changes) {
        const qsizetype at = below(bytes.size() - 4);
        const qsizetype tag = bytes.indexOf("mh", at);
        const QByteArray number = Number(quint32(random()) >> below(32));
        switch (below(6)) {
        case 0:
            bytes[at] = char(random());
            break;
        case 1:
            bytes.remove(at, below(60));
            break;
        case 2:
            bytes.insert(at, bytes.mid(below(bytes.size()), below(300)));
            break;
        case 3:
            bytes.insert(at, tags[size_t(below(qsizetype(tags.size())))]);
            break;
        case 4:
            bytes.replace(qMax<qsizetype>(tag, 0) + 8, 4, number);
            break;
        case 5:
            bytes.replace(qMax<qsizetype>(tag, 0) + 36, 4, number);
            break;
        }
    }
    return bytes;
}

} // namespace

class ITunesDBDamage : public LoadingWindow {
protected:
    /// Loads `database` and compares what it left, and how it ended, with the plain walk.
    void ExpectAsPlain(const QByteArray& database) {
        const PlainITunesDBWalk plain(database);
        Boxes.Shown.clear();
        Library.Artists.clear();
        Load(database);
        ASSERT_EQ(Library.TrackCount, plain.Library.TrackCount);
        ASSERT_EQ(Lines(Library), Lines(plain.Library));
        ASSERT_EQ(Boxes.Shown.size(), plain.Error != 0 ? 1U : 0U);
        if (plain.Error != 0) {
            ASSERT_EQ(Boxes.Shown[0].Text, u"Error %1: "_s.arg(plain.Error) +
                                               RuntimeError(ErrorNumber(plain.Error)).Description);
        }
        if (Library.TrackCount > 0) {
            ExpectConsistent(Library);
        }
    }

    /// Loads within a time in which a walk that goes back, or scans ahead at each step, cannot.
    void LoadSoon(const QByteArray& database) {
        const std::clock_t start = std::clock();
        Load(database);
        EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
        if (Library.TrackCount > 0) {
            ExpectConsistent(Library);
        }
    }
};

TEST_F(ITunesDBDamage, ThePlainWalkReadsAWholeDatabase) {
    const PlainITunesDBWalk plain(SmallDatabase());

    EXPECT_EQ(plain.Error, 0);
    EXPECT_EQ(
        Lines(plain.Library),
        (QStringList{
            u"Abba | Gold | 1 Waterloo | 1000 | 1 | E:\\iPod_Control\\Music\\F00\\A.mp3"_s,
            u"Abba | Gold | 2 Fernando | 2000 | 1 | E:\\iPod_Control\\Music\\F01\\B.m4a"_s,
            u"UNKNOWN | UNKNOWN | 0 Film | 3000 | 2 | E:\\iPod_Control\\Music\\F02\\C.mp4"_s}));
}

TEST_F(ITunesDBDamage, EveryPrefixOfADatabaseLoadsWhatItHolds) {
    const QByteArray database = SmallDatabase();
    for (qsizetype length = 0; length <= database.size(); ++length) {
        ExpectAsPlain(database.left(length));
        if (HasFatalFailure()) {
            FAIL() << "the first " << length << " bytes";
        }
    }
    EXPECT_EQ(Library.TrackCount, 3);
}

TEST_F(ITunesDBDamage, EverySuffixOfADatabaseLoadsWhatItHolds) {
    const QByteArray database = SmallDatabase();
    for (qsizetype length = 0; length <= database.size(); ++length) {
        ExpectAsPlain(database.right(length));
        if (HasFatalFailure()) {
            FAIL() << "the last " << length << " bytes";
        }
    }
}

TEST_F(ITunesDBDamage, AThousandChangedDatabasesLoadWhatTheyHold) {
    ITunesDBLayout layout;
    layout.TrackHeader = 60;
    layout.AlbumList = false;
    layout.Playlists = 0;
    const QByteArray original = WriteITunesDB(SmallLibrary(), layout);
    std::mt19937 random(20240607);
    int failures = 0;
    int complete = 0;
    for (int round = 0; round < 1000; ++round) {
        ExpectAsPlain(Changed(original, random));
        if (HasFatalFailure()) {
            FAIL() << "round " << round;
        }
        failures += Boxes.Shown.empty() ? 0 : 1;
        complete += Library.TrackCount == 3 ? 1 : 0;
    }
    // The changes reach both the ways a load can fail and the ways it can go on.
    EXPECT_GT(failures, 100);
    EXPECT_GT(complete, 200);
}

TEST_F(ITunesDBDamage, ALargeFileOfNothingButTheLetterMEndsSoon) {
    LoadSoon(QByteArray(Large, 'm'));
    ExpectError(u"Error 9: Subscript out of range"_s);
}

TEST_F(ITunesDBDamage, ALargeFileOfZerosEndsSoon) {
    LoadSoon(QByteArray(Large, '\0'));
    ExpectError(u"Error 9: Subscript out of range"_s);
}

TEST_F(ITunesDBDamage, ALargeFileOfHalfTagsEndsSoon) {
    LoadSoon(Repeated("mhmhimhomhsmhl"));
    ExpectError(u"Error 9: Subscript out of range"_s);
}

TEST_F(ITunesDBDamage, ALargeListOfItemsWithoutLengthEndsSoon) {
    LoadSoon(ListHead("mhlt", 1) + Track(1, 1, {}) +
             Repeated("mhod" + Number(24) + Number(0) + Number(1)));
    EXPECT_EQ(Library.TrackCount, 1);
}

TEST_F(ITunesDBDamage, ALargeListOfItemsThatEndOneByteOnEndsSoon) {
    LoadSoon(ListHead("mhlt", 1) + Track(1, 1, {}) +
             Repeated("mhod" + Number(24) + Number(1) + Number(1)));
    EXPECT_EQ(Library.TrackCount, 1);
}

TEST_F(ITunesDBDamage, OverlappingItemsAreReadOnce) {
    // Each item claims the 32 MB behind it; the walk takes the first and goes on behind it.
    const QByteArray items = Repeated("mhod" + Number(24) + Number(Large / 2) + Number(1));
    LoadSoon(ListHead("mhlt", 1) + Track(1, 1, {}) + items + QByteArray(100, '\0'));

    EXPECT_EQ(Library.TrackCount, 1);
    EXPECT_EQ(Library.Artists[0].Albums[0].Tracks[0].Title.size(), (Large / 2 - 40) / 2);
}

TEST_F(ITunesDBDamage, ItemsThatReachBehindTheEndStopTheLoadBeforeAnythingIsCopied) {
    LoadSoon(ListHead("mhlt", 1) + Track(1, 1, {}) +
             Repeated("mhod" + Number(24) + Number(0x7FFFFFFF) + Number(1)));

    ExpectError(u"Error 9: Subscript out of range"_s);
}

TEST_F(ITunesDBDamage, ALargeFileOfNothingButTracksStopsAtTheLargestLibrary) {
    LoadSoon(ListHead("mhlt", 40'000) + Repeated(Track(1, 1, {}, 49)));

    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Library.TrackCount, 32767);
}

TEST_F(ITunesDBDamage, ALongNameOnManyTracksEndsSoon) {
    // 32,000 tracks whose names differ only far behind: 2,000 bytes each.
    const QString name(1000, u'x');
    std::vector<QByteArray> tracks;
    for (int i = 0; i < 32'000; ++i) {
        tracks.push_back(Track(1, 1, {Item(4, name + QString::number(i))}, 60));
    }
    QByteArray list = ListHead("mhlt", 32'000);
    for (const QByteArray& track : tracks) {
        list += track;
    }
    LoadSoon(list);

    EXPECT_EQ(Library.Artists.size(), 32'000U);
}
