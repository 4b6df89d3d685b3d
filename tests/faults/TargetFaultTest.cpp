// A destination that fails in the middle of a job: a disk that is full at any byte, a quota, one
// that is read-only, one that goes away, a folder that may not be written.

#include "tests/faults/SweptFolders.h"
#include "tests/platform/LinuxFixture.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString Full = u"This drive is full."_s;
const QString Completed = u"Copy completed!"_s;
const QString NotEnoughSpace = u"There is not enough space"_s;

/// Lets so many bytes be written, then refuses with `error` until it is lifted.
class Room {
public:
    Room(qint64 bytes, int error) : m_left(bytes), m_error(error) {}

    int Take(SystemCall& call) {
        const bool isWriting = call.Size > 0 && Text(call.Name) != u"read"_s;
        if (!isWriting || m_isLifted) {
            return 0;
        }
        if (m_left == 0) {
            return m_error;
        }
        call.Size = std::min(call.Size, static_cast<size_t>(m_left));
        m_left -= static_cast<qint64>(call.Size);
        return 0;
    }
    void Lift() { m_isLifted = true; }

private:
    qint64 m_left;
    int m_error;
    bool m_isLifted = false;
};

/// All bytes that the job writes when nothing fails.
qint64 BytesOf(const JobFolders& folders) {
    qint64 bytes = 0;
    for (const auto& [path, content] : folders.Wanted) {
        bytes += content.size();
    }
    return bytes;
}

/// Answers every failure so until the cause is gone.
void RetryAfter(RealJob& job, const std::function<void()>& mend) {
    job.AnswerBy(Policy::Retry);
    const auto answer = job.messages.WhileShown;
    job.messages.WhileShown = [answer, mend](const ShownMessage& message) {
        answer(message);
        if (message.Title == u"Error"_s) {
            mend();
        }
    };
}

class FullDisk : public testing::TestWithParam<Disk> {};

class TargetFault : public testing::Test {
protected:
    SweptFolders m_folders;
};

/// Nobody's rights in the place of root's, until it is destroyed.
class AsNobody {
public:
    AsNobody() {
        m_isRoot = geteuid() == 0;
        m_isDone = !m_isRoot || (setegid(Nobody) == 0 && seteuid(Nobody) == 0);
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;
    ~AsNobody() {
        if (m_isRoot && (seteuid(0) != 0 || setegid(0) != 0)) {
            std::abort();
        }
    }
    bool IsDone() const { return m_isDone; }

    static constexpr uid_t Nobody = 65534;

private:
    bool m_isRoot = false;
    bool m_isDone = false;
};

void GiveToNobody(const QString& folder) {
    if (geteuid() == 0) {
        ASSERT_EQ(chown(folder.toUtf8().constData(), AsNobody::Nobody, AsNobody::Nobody), 0);
    }
}

} // namespace

TEST_P(FullDisk, AtAnyByteLeavesWholeFilesOnlyAndRoomLetsTheJobGoOn) {
    const qint64 all = BytesOf(SweptFolders());
    ASSERT_EQ(all, 1570019);
    // The last byte of room, the first of each file, and many in between.
    std::vector<qint64> rooms = {0,       1,       2,       3,       4,      10,
                                 11,      262154,  300009,  300010,  300011, 1500010,
                                 1500011, 1570010, 1570015, 1570016, all - 1};
    for (qint64 room = 7919; room < all; room += 39119) {
        rooms.push_back(room);
    }
    for (const qint64 bytes : rooms) {
        for (const Policy policy : {Policy::Stop, Policy::Retry}) {
            SCOPED_TRACE(testing::Message() << bytes << " bytes of room");
            const SweptFolders folders;
            RealJob job(folders);
            Room room(bytes, bytes % 2 == 0 ? ENOSPC : EDQUOT);
            job.AnswerBy(policy);
            if (policy == Policy::Retry) {
                RetryAfter(job, [&] { room.Lift(); });
            }
            {
                const HookedSystemCalls hooked([&](SystemCall& call) {
                    const int refusal = RefusalOf(call, GetParam());
                    return refusal != 0 ? refusal : room.Take(call);
                });
                job.Press();
            }
            job.ExpectIdle();
            if (policy == Policy::Retry) {
                EXPECT_EQ(job.messages.Texts(), QStringList({Full, Completed}));
                folders.ExpectAllCopied();
            } else {
                EXPECT_EQ(job.messages.Shown,
                          std::vector{(ShownMessage{Full, u"Error"_s, MessageButtons::RetryCancel,
                                                    MessageIcon::Exclamation})});
                folders.ExpectWholeFilesOnly(Leftovers::Earlier);
                EXPECT_FALSE(IsThere(folders.Destination + u"/tmp"_s));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Disks, FullDisk,
                         testing::Values(Disk::WithNamelessFiles, Disk::WithoutNamelessFiles),
                         [](const auto& disk) {
                             return disk.param == Disk::WithNamelessFiles ? "WithNamelessFiles"
                                                                          : "WithoutNamelessFiles";
                         });

TEST(SmallDisk, OfAnySizeHoldsWholeFilesOnlyAndRoomLetsTheJobGoOn) {
    int refused = 0;
    for (int pages = 9; pages < 60; pages += 3) {
        SCOPED_TRACE(testing::Message() << pages << " pages");
        const QTemporaryDir work;
        JobFolders folders(work.path());
        folders.AddTrack("Abba", "Arrival", "One", Pattern(30000));
        folders.AddTrack("Abba", "Arrival", "Two", Pattern(45000));
        folders.AddFilm("Abba", "Live", "Film", Pattern(60000));
        const TestMount disk = TestMount::Memory(
            folders.Destination, QByteArray("size=" + QByteArray::number(4096 * 60)).constData());
        SKIP_UNLESS(disk.IsMounted(), "no small disk can be mounted here");
        const QString ballast = folders.Destination + u"/ballast"_s;
        WriteFile(ballast, QByteArray(4096 * (60 - pages), 'x'));
        RealJob job(folders);
        job.AnswerBy(Policy::Stop);
        job.Press();
        job.ExpectIdle();
        EXPECT_TRUE(job.messages.Shown.front().Text.startsWith(NotEnoughSpace));
        const bool isRefused = job.messages.Texts().contains(Full);
        EXPECT_NE(isRefused, job.IsCompleted());
        refused += isRefused ? 1 : 0;
        folders.Own[ballast] = ReadFile(ballast);
        folders.ExpectWholeFilesOnly(Leftovers::None);

        RealJob again(folders);
        RetryAfter(again, [&] { QFile::resize(ballast, 0); });
        again.Press();
        EXPECT_TRUE(again.IsCompleted());
        folders.Own[ballast] = ReadFile(ballast);
        folders.ExpectAllCopied();
    }
    EXPECT_GT(refused, 5);
}

TEST_F(TargetFault, AReadOnlyDiskIsADeniedPermissionUntilItCanBeWritten) {
    TestMount disk = TestMount::Bind(m_folders.Destination, m_folders.Destination, true);
    SKIP_UNLESS(disk.IsMounted(), "no disk can be mounted here");
    RealJob job(m_folders);
    RetryAfter(job, [&] { disk.Unmount(); });
    job.Press();
    EXPECT_EQ(job.messages.Shown.front(),
              (ShownMessage{u"Unable to create file: \""_s + m_folders.Destination +
                                u"/Abba/Arrival/One.mp3\""_s,
                            u"Error"_s, MessageButtons::AbortRetryIgnore, MessageIcon::Critical}));
    EXPECT_EQ(job.messages.Shown.size(), 2U);
    m_folders.ExpectAllCopied();
}

TEST_F(TargetFault, AReadOnlyDiskOnWhichEveryFailureIsIgnoredStaysAsItIs) {
    {
        const TestMount disk = TestMount::Bind(m_folders.Destination, m_folders.Destination, true);
        SKIP_UNLESS(disk.IsMounted(), "no disk can be mounted here");
        RealJob job(m_folders);
        job.AnswerBy(Policy::Ignore);
        job.Press();
        // Seven files and two more folders, and "tmp", which is deleted twice.
        EXPECT_EQ(job.messages.Texts().filter(u"Unable to create file: "_s).size(), 9);
        EXPECT_TRUE(job.IsCompleted());
        job.ExpectIdle();
    }
    m_folders.ExpectWholeFilesOnly(Leftovers::Earlier);
    for (const auto& [path, bytes] : m_folders.Old) {
        EXPECT_EQ(ReadFile(path), bytes);
    }
}

TEST_F(TargetFault, ADestinationRemovedInTheMiddleIsMissedUntilItIsBack) {
    RealJob job(m_folders);
    const QString away = m_folders.Destination + u" away"_s;
    job.events.OnYield = [&](int number) {
        if (number == 3) {
            ASSERT_TRUE(QDir().rename(m_folders.Destination, away));
        }
    };
    RetryAfter(job, [&] { QDir().rename(away, m_folders.Destination); });
    job.Press();
    const QString source = job.library.Artists[0].Albums[0].Tracks[0].Location;
    EXPECT_EQ(
        job.messages.Shown.front(),
        (ShownMessage{u"Path not found: \""_s + source.left(source.lastIndexOf(u'\\')) + u"\""_s,
                      u"Error"_s, MessageButtons::AbortRetryIgnore, MessageIcon::Exclamation}));
    EXPECT_EQ(job.messages.Shown.size(), 2U);
    m_folders.ExpectAllCopied();
}

TEST_F(TargetFault, ADestinationRemovedForGoodEndsWithNothingMadeAnywhere) {
    RealJob job(m_folders);
    job.AnswerBy(Policy::Ignore);
    job.events.OnYield = [&](int number) {
        if (number == 5) {
            ASSERT_TRUE(QDir(m_folders.Destination).removeRecursively());
        }
    };
    job.Press();
    EXPECT_TRUE(job.IsCompleted());
    job.ExpectIdle();
    EXPECT_FALSE(IsThere(m_folders.Destination));
}

TEST_F(TargetFault, AFolderThatMayNotBeWrittenIsLeftOutAndRetryComesBackToIt) {
    for (const bool isMended : {false, true}) {
        SCOPED_TRACE(isMended);
        const SweptFolders folders;
        const QString closed = folders.Destination + u"/Abba/Arrival"_s;
        QFile::remove(closed + u"/.songlift.part"_s);
        QDir(folders.Destination + u"/tmp"_s).removeRecursively();
        for (const char* below : {"", "/Abba", "/Abba/Arrival", "/Abba/Live"}) {
            GiveToNobody(folders.Destination + Text(below));
        }
        for (const char* file : {"/Abba/Arrival/Two.mp3", "/Abba/Live/Film.mp3"}) {
            GiveToNobody(folders.Destination + Text(file));
        }
        SetMode(closed, 0555);
        SetMode(folders.Destination + u"/.."_s, 0755);
        RealJob job(folders);
        job.AnswerBy(Policy::Ignore);
        if (isMended) {
            RetryAfter(job, [&] { SetMode(closed, 0755); });
        }
        bool isNobody = false;
        {
            const AsNobody nobody;
            isNobody = nobody.IsDone();
            if (isNobody) {
                job.Press();
            }
        }
        SetMode(closed, 0755);
        SKIP_UNLESS(isNobody, "this process cannot become another user");
        EXPECT_EQ(
            job.messages.Shown.front(),
            (ShownMessage{u"Unable to create file: \""_s + closed + u"/One.mp3\""_s, u"Error"_s,
                          MessageButtons::AbortRetryIgnore, MessageIcon::Critical}));
        EXPECT_TRUE(job.IsCompleted());
        EXPECT_EQ(job.messages.Shown.size(), isMended ? 2U : 5U); // four files are in that folder
        if (isMended) {
            folders.ExpectAllCopied();
            continue;
        }
        folders.ExpectWholeFilesOnly(Leftovers::None);
        EXPECT_EQ(NamesIn(closed), QStringList({u"Two.mp3"_s, u"cover.jpg"_s}));
        EXPECT_EQ(ReadFile(closed + u"/Two.mp3"_s), "old two");
        EXPECT_EQ(NamesIn(folders.Destination + u"/Abba/Live"_s),
                  QStringList({u"Extra.mp3"_s, u"Film.mp3"_s}));
        EXPECT_TRUE(IsThere(folders.Destination + u"/Beck/Guero/Girl.mp3"_s));
    }
}

/// Another program that works in the same folder at the same instant.
class OtherProgram : public LinuxFixture {
protected:
    OtherProgram() { WriteFile(Native(u"song.mp3"_s), "new"); }

    int CopyError(Existing existing) {
        return NumberOf([&] { m_files.CopyFile(Native(u"song.mp3"_s), m_target, existing, {}); });
    }

    const QString m_target = Native(u"Song.mp3 copied"_s);
};

TEST_F(OtherProgram, ThatReplacesThePartFileDoesNotGetItsOwnUnderTheFinalName) {
    const QString part = Native(u".songlift.part"_s);
    WriteFile(m_target, "old");
    const HookedSystemCalls hooked([&](SystemCall& call) {
        if ((call.Flags & O_TMPFILE) == O_TMPFILE) {
            return EOPNOTSUPP;
        }
        if (Text(call.Name) == u"write"_s) {
            QFile::remove(part);
            WriteFile(part, "half of another");
        }
        return 0;
    });
    EXPECT_EQ(CopyError(Existing::Replace), 70);
    EXPECT_EQ(ReadFile(m_target), "old");
    EXPECT_EQ(ReadFile(part), "half of another");
}

TEST_F(OtherProgram, ThatMakesTheTargetMeanwhileKeepsItsFileUnlessItMayBeReplaced) {
    // The file systems: with nameless files, without them, without a rename that keeps, and without
    // links too. On the last nobody can keep what comes in the instant of the rename.
    for (const int system : {0, 1, 2, 3}) {
        for (const char* last : {"write", "linkat", "renameat2", "renameat"}) {
            if (system == 3 && Text(last) == u"renameat"_s) {
                continue;
            }
            SCOPED_TRACE(testing::Message() << "file system " << system << ", at " << last);
            bool hasMade = false;
            const auto hook = [&](SystemCall& call) {
                if (system > 0 && (call.Flags & O_TMPFILE) == O_TMPFILE) {
                    return EOPNOTSUPP;
                }
                if (Text(call.Name) == Text(last) && !std::exchange(hasMade, true)) {
                    WriteFile(m_target, "another's");
                }
                if (system == 3 && Text(call.Name) == u"linkat"_s) {
                    return EPERM;
                }
                return system >= 2 && Text(call.Name) == u"renameat2"_s ? EINVAL : 0;
            };
            {
                const HookedSystemCalls hooked(hook);
                const int error = CopyError(Existing::Keep);
                EXPECT_EQ(error, hasMade ? 58 : 0);
            }
            EXPECT_EQ(ReadFile(m_target), hasMade ? "another's" : "new");
            ASSERT_TRUE(QFile::remove(m_target));
            hasMade = false;
            {
                const HookedSystemCalls hooked(hook);
                EXPECT_EQ(CopyError(Existing::Replace), 0);
            }
            EXPECT_EQ(ReadFile(m_target), "new");
            ASSERT_TRUE(QFile::remove(m_target));
            EXPECT_EQ(NamesIn(Native()), QStringList(u"song.mp3"_s));
        }
    }
}

TEST_F(OtherProgram, ThatMakesTheTargetOfAMoveKeepsItsFile) {
    for (const int error : {0, EINVAL, EXDEV}) {
        const HookedSystemCalls hooked([&](SystemCall& call) {
            if (Text(call.Name) == u"renameat2"_s) {
                WriteFile(m_target, "another's");
                return error;
            }
            return 0;
        });
        EXPECT_EQ(NumberOf([this] {
                      m_files.MoveFile(*m_files.OpenForReadingAndWriting(Native(u"song.mp3"_s)),
                                       m_target, Existing::Keep, {});
                  }),
                  58);
        EXPECT_EQ(ReadFile(m_target), "another's");
        EXPECT_EQ(ReadFile(Native(u"song.mp3"_s)), "new");
        ASSERT_TRUE(QFile::remove(m_target));
    }
}
