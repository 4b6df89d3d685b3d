// What the fuzzers check, checked here for the databases they start from and for some thousands of
// changed ones, each of which must also load in little time and memory.

#include "platform/ProcessorTime.h"
#include "tests/fuzz/Allocations.h"
#include "tests/fuzz/LoadCheck.h"
#include "tests/fuzz/Seeds.h"
#include "tests/library/LibraryText.h"
#include "tests/support/ITunesDBWriter.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr double MaxSeconds = 8;

/// What a load took.
struct Cost {
    double Seconds = 0;
    qint64 PeakBytes = 0;
};

/// A check that measures its loads.
struct MeasuredCheck : LoadCheck {
    Cost Load;

    MeasuredCheck() {
        Around = [this](const std::function<void()>& load) {
            const qint64 before = Allocations::Bytes();
            Allocations::ResetPeak();
            const double start = ThreadProcessorSeconds();
            load();
            Load = {ThreadProcessorSeconds() - start, Allocations::Peak() - before};
        };
    }
};

/// Changes bytes where they stand, which leaves the rest of a file in its place.
void ChangeInPlace(QByteArray& bytes, std::mt19937& random) {
    const qsizetype at = qsizetype(random() % quint32(bytes.size()));
    switch (random() % 4) {
    case 0:
        bytes[at] = char(random());
        break;
    case 1:
        bytes[at] = char(quint8(bytes[at]) ^ (1U << random() % 8));
        break;
    case 2:
        bytes.replace(at, 4, ITunesDBChunks::Number(quint32(random()) >> random() % 32));
        break;
    case 3: {
        const qsizetype from = qsizetype(random() % quint32(bytes.size()));
        const QByteArray piece = bytes.mid(from, 1 + qsizetype(random() % 40));
        bytes.replace(at, piece.size(), piece);
        break;
    }
    }
}

/// Puts in, takes out or cuts off.
void ChangeLength(QByteArray& bytes, std::mt19937& random) {
    static constexpr std::array words = {"mhit", "mhod", "mhsd", "mhlt", "m", "SQLite format 3"};
    const qsizetype at = qsizetype(random() % quint32(bytes.size()));
    switch (random() % 4) {
    case 0:
        bytes.remove(at, 1 + qsizetype(random() % 60));
        break;
    case 1:
        bytes.insert(at, words[random() % words.size()]);
        break;
    case 2:
        bytes.insert(at, bytes.mid(qsizetype(random() % quint32(bytes.size())), 200));
        break;
    case 3:
        bytes.truncate(qMax<qsizetype>(at, 1));
        break;
    }
}

/// The bytes with a few changes, one in `moves` of which moves what stands behind it.
QByteArray Changed(QByteArray bytes, quint32 moves, std::mt19937& random) {
    for (auto changes = random() % 6 + 1; changes > 0; --changes) {
        if (random() % moves == 0) {
            ChangeLength(bytes, random);
        } else {
            ChangeInPlace(bytes, random);
        }
    }
    return bytes;
}

/// How many of the loads ended with an error, and how many loaded a track.
struct Outcomes {
    int Errors = 0;
    int Loaded = 0;

    void Count(const LoadCheck& check) {
        Errors += check.Boxes.Shown.empty() ? 0 : 1;
        Loaded += check.Music.Library.TrackCount > 0 ? 1 : 0;
    }
};

} // namespace

TEST(DamagedDatabases, TheDatabasesToStartFromLoad) {
    Outcomes binary;
    for (const QByteArray& seed : ITunesDBSeeds()) {
        LoadCheck check;
        EXPECT_EQ(check.LoadBinary(seed), QString());
        binary.Count(check);
    }
    EXPECT_EQ(binary.Loaded, 5); // all but the empty list
    EXPECT_EQ(binary.Errors, 1); // the list without a head
    Outcomes sqlite;
    for (const QByteArray& seed : SqliteSeeds()) {
        LoadCheck check;
        EXPECT_EQ(check.LoadSqlite(seed), QString());
        sqlite.Count(check);
    }
    EXPECT_EQ(sqlite.Loaded, 3);
    EXPECT_EQ(sqlite.Errors, 2); // no kinds, and a file size that is too large
}

TEST(DamagedDatabases, ThousandsOfChangedBinaryDatabasesLoadWhatTheyHold) {
    const std::vector<QByteArray> seeds = ITunesDBSeeds();
    std::mt19937 random(20240701);
    Outcomes outcomes;
    for (int round = 0; round < 6000; ++round) {
        QByteArray bytes = Changed(seeds[random() % seeds.size()], 4, random);
        if (round % 20 == 0) {
            // The reader has so much of a file in memory at a time: this one lies across its edge.
            bytes.prepend((256 << 10) - qsizetype(random() % quint32(bytes.size())), '\0');
        }
        MeasuredCheck check;
        ASSERT_EQ(check.LoadBinary(bytes), QString()) << "round " << round;
        ASSERT_LT(check.Load.Seconds, MaxSeconds) << "round " << round;
        const qint64 block = 256 << 10; // at most so much of such a file is in memory at a time
        ASSERT_GT(check.Load.PeakBytes, qMin(bytes.size(), block)) << "round " << round;
        ASSERT_LT(check.Load.PeakBytes, 2 * bytes.size() + 16384) << "round " << round;
        outcomes.Count(check);
    }
    EXPECT_GT(outcomes.Errors, 500);
    EXPECT_GT(outcomes.Loaded, 1000);
}

TEST(DamagedDatabases, ThousandsOfChangedSqliteLibrariesLoadWhatTheyHold) {
    const std::vector<QByteArray> seeds = SqliteSeeds();
    std::mt19937 random(20240702);
    Outcomes outcomes;
    for (int round = 0; round < 5000; ++round) {
        MeasuredCheck check;
        ASSERT_EQ(check.LoadSqlite(Changed(seeds[random() % seeds.size()], 40, random)), QString())
            << "round " << round;
        ASSERT_LT(check.Load.Seconds, MaxSeconds) << "round " << round;
        ASSERT_GT(check.Load.PeakBytes, 4096) << "round " << round;
        ASSERT_LT(check.Load.PeakBytes, 16 << 20) << "round " << round;
        outcomes.Count(check);
    }
    EXPECT_GT(outcomes.Errors, 500);
    EXPECT_GT(outcomes.Loaded, 500);
}
