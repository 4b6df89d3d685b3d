// Damaged and hostile databases: whatever the bytes, a load ends soon, and what it leaves is a
// library that can be walked. tests/fuzz/DamageTest.cpp changes databases at random.

#include "tests/fuzz/LoadCheck.h"
#include "tests/library/LoadingWindow.h"

#include <ctime>

using namespace ITunesDBChunks;
using namespace Qt::StringLiterals;

namespace {

constexpr int Large = 16 << 20;

QByteArray SmallDatabase() {
    return WriteITunesDB(
        {{u"ABBA"_s, u"Gold"_s, u"Waterloo"_s, 1, 1000, u"F00/A.mp3"_s},
         {u"Abba"_s, u"Gold"_s, u"Fernando"_s, 2, 2000, u"F01/B.m4a"_s, u"AAC audio file"_s},
         {{}, {}, u"Film"_s, 0, 3000, u"F02/C.mp4"_s, u"MPEG-4 video file"_s}},
        {.DatabaseHeader = 104, .TrackHeader = 60, .Playlists = 1});
}

QByteArray Repeated(const QByteArray& piece) {
    return piece.repeated(Large / piece.size());
}

} // namespace

class ITunesDBDamage : public LoadingWindow {};

TEST_F(ITunesDBDamage, EveryPrefixAndSuffixOfADatabaseLoadsWhatItHolds) {
    const QByteArray database = SmallDatabase();
    for (qsizetype length = 0; length <= database.size(); ++length) {
        ASSERT_EQ(LoadCheck().LoadBinary(database.left(length)), QString()) << length;
        ASSERT_EQ(LoadCheck().LoadBinary(database.right(length)), QString()) << length;
    }
}

TEST_F(ITunesDBDamage, ADatabaseOfManyBlocksLoadsWhatItHoldsWithAndWithoutItsHead) {
    std::vector<SampleTrack> tracks;
    for (int i = 0; i < 3000; ++i) {
        const QString name = QString::number(i % 20);
        tracks.push_back({name, name, QString(i % 300, u'x'), i, i, name});
    }
    QByteArray database = WriteITunesDB(tracks, {.TrackHeader = 60});
    ASSERT_GT(database.size(), 1 << 20);
    EXPECT_EQ(LoadCheck().LoadBinary(database), QString());
    EXPECT_EQ(LoadCheck().LoadBinary(database.replace("mhlt", "none")), QString());
}

TEST_F(ITunesDBDamage, ALargeHostileFileIsReadInBoundedTime) {
    const QByteArray track = ListHead("mhlt", 1) + Track(1, 1, {});
    const auto item = [](quint32 length) {
        return Repeated("mhod" + Number(24) + Number(length) + Number(1));
    };
    const struct {
        const char* Content;
        QByteArray Bytes;
        int Error, Tracks;
    } cases[] = {
        {"the letter m", QByteArray(Large, 'm'), 9, 0},
        {"zeros", QByteArray(Large, '\0'), 9, 0},
        {"half tags", Repeated("mhmhimhomhsmhl"), 9, 0},
        {"items without length", track + item(0), 0, 1},
        {"items that end one byte on", track + item(1), 0, 1},
        {"items that reach behind the end", track + item(0x7FFFFFFF), 9, 0},
        {"items that each claim half of it", track + item(Large / 2) + QByteArray(100, '\0'), 0, 1},
        {"tracks", ListHead("mhlt", 40'000) + Repeated(Track(1, 1, {}, 49)), 6, 32767},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Content);
        Boxes.Shown.clear();
        const std::clock_t start = std::clock();
        Load(each.Bytes);
        // A walk that goes back, or scans ahead at each step, takes much longer.
        EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 3);
        EXPECT_EQ(Boxes.Shown.size(), each.Error != 0 ? 1U : 0U);
        EXPECT_TRUE(each.Error == 0 ||
                    Boxes.Texts().value(0).startsWith(u"Error %1: "_s.arg(each.Error)));
        EXPECT_EQ(Library.TrackCount, each.Tracks);
        ExpectEnded();
        if (each.Tracks > 0) {
            ExpectConsistent(Library);
        }
    }
}

TEST_F(ITunesDBDamage, ALongNameOnManyTracksIsReadInBoundedTime) {
    // 32,000 tracks whose names differ only far behind: 2,000 bytes each.
    const QString name(1000, u'x');
    QByteArray list = ListHead("mhlt", 32'000);
    for (int i = 0; i < 32'000; ++i) {
        list += Track(1, 1, {Item(4, name + QString::number(i))}, 60);
    }
    const std::clock_t start = std::clock();
    Load(list);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 10);
    EXPECT_EQ(Library.Artists.size(), 32'000U);
}
