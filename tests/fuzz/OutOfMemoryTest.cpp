// Each allocation of a load fails once: the load ends with a message, and what was loaded stays.

#include "tests/fuzz/Allocations.h"
#include "tests/fuzz/LoadCheck.h"
#include "tests/library/LibraryText.h"
#include "tests/support/ITunesDBWriter.h"
#include "tests/support/SqliteLibraryWriter.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <new>
#include <set>

using namespace Qt::StringLiterals;

class OutOfMemory : public testing::Test {
protected:
    /// The numbers of tracks that failed loads have left.
    std::set<int> Left;

    static std::vector<SampleTrack> Tracks() {
        std::vector<SampleTrack> tracks;
        tracks.reserve(7);
        for (int i = 0; i < 6; ++i) {
            tracks.push_back({u"Artist %1"_s.arg(i / 2), u"Album %1"_s.arg(i / 2 * 2 + i % 2),
                              u"Title %1"_s.arg(i), i, 1000 + i, u"F00/%1.mp3"_s.arg(i)});
        }
        tracks.push_back(tracks.back());
        return tracks;
    }

    /// Loads with the `nth` allocation behind `firstCall` failing. False when the reader makes
    /// fewer.
    template <class Load>
    bool FailNth(qint64 nth, FileCall firstCall, LoadCheck& check, const Load& load) {
        bool armed = false;
        check.Files.BeforeCall = [&](const RecordedFiles::RecordedCall& call) {
            if (call.Call == firstCall && !armed) {
                armed = true;
                Allocations::FailNth(nth);
            }
        };
        bool ended = true;
        try {
            load();
        } catch (const std::bad_alloc&) {
            ended = false; // the reader is done, the window is not
        }
        const bool failed = Allocations::HasFailed();
        Allocations::FailNth(0);
        EXPECT_TRUE(armed);
        Expect(check, failed && ended);
        return failed && ended;
    }

    void Expect(const LoadCheck& check, bool failed) {
        const MusicLibrary& library = check.Music.Library;
        if (library.TrackCount > 0) {
            ASSERT_EQ(WrongWithTracks(library), QString());
        }
        if (check.Boxes.Shown.empty()) {
            ASSERT_EQ(library.TrackCount, 7); // SQLite can do without some of its allocations
            return;
        }
        ASSERT_TRUE(failed);
        ASSERT_FALSE(library.LoadingMusic);
        ASSERT_EQ(check.Boxes.Shown.size(), 1U);
        ASSERT_EQ(check.Boxes.Shown[0].Text.toLower(), u"error 7: out of memory"_s);
        Left.insert(library.TrackCount);
    }
};

TEST_F(OutOfMemory, AnyAllocationOfABinaryLoadMayFail) {
    const QByteArray database = WriteITunesDB(Tracks());
    qint64 nth = 0;
    bool failed = true;
    while (failed && !HasFatalFailure()) {
        ++nth;
        LoadCheck check;
        check.Files.AddFile(u"E:\\iPod_Control\\iTunes\\iTunesDB"_s, database);
        failed = FailNth(nth, FileCall::FileLength, check,
                         [&check] { check.Music.LoadITunesDB(u"E:"_s); });
    }
    EXPECT_GT(nth, 50);
    EXPECT_EQ(Left, (std::set{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(OutOfMemory, AnyAllocationOfAnSqliteLoadMayFail) {
    const QTemporaryDir folder;
    WriteSqliteLibrary(folder.filePath(u"Library.itdb"_s), folder.filePath(u"Locations.itdb"_s),
                       Tracks());
    qint64 nth = 0;
    bool failed = true;
    while (failed && !HasFatalFailure()) {
        ++nth;
        LoadCheck check;
        PutSqliteLibrary(check.Files, folder.path());
        failed = FailNth(nth, FileCall::NativePath, check,
                         [&check] { check.Music.LoadSQLiteLibrary(u"E:"_s); });
    }
    EXPECT_GT(nth, 200);
    EXPECT_EQ(Left, (std::set{0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST(ErrorOfMemory, TakesNone) {
    Allocations::FailNth(1);
    const RuntimeError error = ErrorOf(std::bad_alloc());
    const bool failed = Allocations::HasFailed();
    Allocations::FailNth(0);
    EXPECT_FALSE(failed);
    EXPECT_EQ(error.Description, u"Out of memory"_s);
}
