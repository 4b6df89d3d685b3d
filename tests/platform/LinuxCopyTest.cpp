#include "platform/linux/LinuxCopy.h"

#include "platform/RuntimeError.h"
#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString Part = QString::fromLatin1(PartName);

/// Every rule holds for both ways in which a copy is made.
enum class Way { AsTheDiskAllows, UnderPartName };

class CopyFixture : public LinuxFixture {
protected:
    CopyFixture() {
        MakeFolder(Source());
        MakeFolder(Target());
    }

    QString Source(const QString& name = QString()) const {
        return Native(QStringLiteral("source")) + (name.isEmpty() ? name : QLatin1Char('/') + name);
    }
    QString Target(const QString& name = QString()) const {
        return Native(QStringLiteral("target")) + (name.isEmpty() ? name : QLatin1Char('/') + name);
    }

    int CopyError(const QString& source, const QString& target) {
        return NumberOf([&] { m_files.CopyFile(source, target, Existing::Replace, {}); });
    }
};

class CopyInEitherWay : public CopyFixture, public testing::WithParamInterface<Way> {
protected:
    /// Copies to a name in the target folder; throws RuntimeError.
    void Copy(const QString& source, const QString& name, Existing existing = Existing::Replace) {
        const FileDescriptor file(
            open(source.toUtf8().constData(), O_RDONLY | O_NOATIME | O_CLOEXEC));
        const FileDescriptor folder(
            open(Target().toUtf8().constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        struct stat info {};
        if (fstat(file.Get(), &info) != 0) {
            throw RuntimeError(ErrorNumber::FileNotFound);
        }
        const auto copy = GetParam() == Way::AsTheDiskAllows ? &CopyWhole : &CopyUnderPartName;
        copy({file.Get(), info}, folder.Get(), name.toUtf8(), existing, {});
    }
    int CopyError(const QString& source, const QString& name,
                  Existing existing = Existing::Replace) {
        return NumberOf([&] { Copy(source, name, existing); });
    }
};

/// A source of which a copy takes a while.
void MakeLongFile(const QString& path) {
    WriteFile(path, QByteArray(qsizetype{100} << 20, 'x'));
}

} // namespace

TEST_F(CopyFixture, AFileIsCopiedFromADriveToANativePath) {
    WriteFile(Source(QStringLiteral("ABCD.mp3")), Pattern(300000));
    m_files.CopyFile(QStringLiteral("E:\\SOURCE\\abcd.mp3"), Target(QStringLiteral("Song.mp3")),
                     Existing::Replace, {});
    EXPECT_EQ(ReadFile(Target(QStringLiteral("Song.mp3"))), Pattern(300000));
    EXPECT_EQ(NamesIn(Target()), QStringList(QStringLiteral("Song.mp3")));
}

TEST_F(CopyFixture, OnADriveAFileInAnotherCaseIsReplaced) {
    WriteFile(Source(QStringLiteral("ABCD.mp3")), "new");
    WriteFile(Target(QStringLiteral("Song.mp3")), "old");
    m_files.CopyFile(QStringLiteral("E:\\source\\ABCD.mp3"), QStringLiteral("E:\\target\\SONG.mp3"),
                     Existing::Replace, {});
    EXPECT_EQ(NamesIn(Target()), QStringList(QStringLiteral("Song.mp3")));
    EXPECT_EQ(ReadFile(Target(QStringLiteral("Song.mp3"))), "new");
}

TEST_F(CopyFixture, AMissingSourceIsDistinguishedFromAMissingFolder) {
    EXPECT_EQ(CopyError(Source(QStringLiteral("nix.mp3")), Target(QStringLiteral("x"))), 53);
    EXPECT_EQ(CopyError(Source(QStringLiteral("nix/nix.mp3")), Target(QStringLiteral("x"))), 76);
    EXPECT_EQ(CopyError(QStringLiteral("Q:\\nix.mp3"), Target(QStringLiteral("x"))), 76);
    EXPECT_EQ(NamesIn(Target()), QStringList());
}

TEST_F(CopyFixture, AMissingTargetFolderIsAMissingFolder) {
    WriteFile(Source(QStringLiteral("a")), "x");
    EXPECT_EQ(CopyError(Source(QStringLiteral("a")), Target(QStringLiteral("nix/x"))), 76);
    EXPECT_EQ(CopyError(Source(QStringLiteral("a")), QStringLiteral("Q:\\x")), 76);
    EXPECT_EQ(CopyError(Source(QStringLiteral("a")), QStringLiteral("x")), 76);
}

TEST_F(CopyFixture, OnlyRegularFilesAreCopiedAndAPipeIsNotWaitedFor) {
    ASSERT_TRUE(MakePipe(Source(QStringLiteral("pipe"))));
    EXPECT_EQ(CopyError(Source(QStringLiteral("pipe")), Target(QStringLiteral("x"))), 53);
    EXPECT_EQ(CopyError(Source(), Target(QStringLiteral("x"))), 53);
    EXPECT_EQ(CopyError(QStringLiteral("/dev/zero"), Target(QStringLiteral("x"))), 53);
    EXPECT_EQ(NamesIn(Target()), QStringList());
}

TEST_F(CopyFixture, OnlyRegularFilesAreReplaced) {
    WriteFile(Source(QStringLiteral("a")), "x");
    MakeFolder(Target(QStringLiteral("folder/inner")));
    ASSERT_TRUE(MakePipe(Target(QStringLiteral("pipe"))));
    MakeLink(QStringLiteral("folder"), Target(QStringLiteral("link")));
    for (const QString& name :
         {QStringLiteral("folder"), QStringLiteral("pipe"), QStringLiteral("link")}) {
        EXPECT_EQ(CopyError(Source(QStringLiteral("a")), Target(name)), 70) << qPrintable(name);
    }
    EXPECT_EQ(CopyError(Source(QStringLiteral("a")), QStringLiteral("E:\\")), 70);
    EXPECT_EQ(NamesIn(Target()), QStringList({QStringLiteral("folder"), QStringLiteral("link"),
                                              QStringLiteral("pipe")}));
    EXPECT_EQ(NamesIn(Target(QStringLiteral("folder"))), QStringList(QStringLiteral("inner")));
}

TEST_F(CopyFixture, AFileIsNeverCopiedOntoItself) {
    WriteFile(Source(QStringLiteral("Song.mp3")), "precious");
    const QByteArray song = Source(QStringLiteral("Song.mp3")).toUtf8();
    ASSERT_EQ(link(song.constData(), Source(QStringLiteral("second")).toUtf8().constData()), 0);
    MakeLink(QStringLiteral("Song.mp3"), Source(QStringLiteral("link")));
    const QString drivePath = QStringLiteral("E:\\source\\SONG.mp3");
    EXPECT_EQ(CopyError(drivePath, drivePath), 70);
    EXPECT_EQ(CopyError(drivePath, Source(QStringLiteral("Song.mp3"))), 70);
    EXPECT_EQ(CopyError(drivePath, Source(QStringLiteral("second"))), 70);
    EXPECT_EQ(CopyError(drivePath, Source(QStringLiteral("link"))), 70);
    EXPECT_EQ(ReadFile(Source(QStringLiteral("Song.mp3"))), "precious");
    EXPECT_EQ(NamesIn(Source()), QStringList({QStringLiteral("Song.mp3"), QStringLiteral("link"),
                                              QStringLiteral("second")}));
}

TEST_F(CopyFixture, AnEarlierFileThatMayNotBeWrittenIsKept) {
    WriteFile(Source(QStringLiteral("a")), "new");
    WriteFile(Target(QStringLiteral("Song.mp3")), "old");
    SetMode(Native(), 0755);
    SetMode(Target(), 0777);
    SetMode(Target(QStringLiteral("Song.mp3")), 0444);
    const int number = NumberOfNobody([this] {
        m_files.CopyFile(Source(QStringLiteral("a")), Target(QStringLiteral("Song.mp3")),
                         Existing::Replace, {});
    });
    if (number == -1) {
        GTEST_SKIP() << "this process cannot become another user";
    }
    EXPECT_EQ(number, 70);
    EXPECT_EQ(ReadFile(Target(QStringLiteral("Song.mp3"))), "old");
    EXPECT_EQ(NamesIn(Target()), QStringList(QStringLiteral("Song.mp3")));
}

TEST_F(CopyFixture, ATargetFolderThatMayNotBeWrittenIsADeniedPermission) {
    WriteFile(Source(QStringLiteral("a")), "new");
    SetMode(Native(), 0755);
    SetMode(Target(), 0555);
    const int number = NumberOfNobody([this] {
        m_files.CopyFile(Source(QStringLiteral("a")), Target(QStringLiteral("Song.mp3")),
                         Existing::Replace, {});
    });
    if (number == -1) {
        GTEST_SKIP() << "this process cannot become another user";
    }
    EXPECT_EQ(number, 70);
}

TEST_F(CopyFixture, AnotherUsersFileIsCopiedWithoutBeingOpenedForWriting) {
    WriteFile(Source(QStringLiteral("a")), "music");
    SetMode(Native(), 0755);
    SetMode(Source(QStringLiteral("a")), 0444);
    SetMode(Target(), 0777);
    const int number = NumberOfNobody([this] {
        m_files.CopyFile(Source(QStringLiteral("a")), Target(QStringLiteral("Song.mp3")),
                         Existing::Replace, {});
    });
    if (number == -1) {
        GTEST_SKIP() << "this process cannot become another user";
    }
    EXPECT_EQ(number, 0);
    EXPECT_EQ(ReadFile(Target(QStringLiteral("Song.mp3"))), "music");
}

TEST_F(CopyFixture, TheSourceIsOnlyRead) {
    WriteFile(Source(QStringLiteral("a")), Pattern(100000));
    const FileDescriptor watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    ASSERT_GE(inotify_add_watch(watch.Get(), Source().toUtf8().constData(), IN_ALL_EVENTS), 0);
    m_files.CopyFile(QStringLiteral("E:\\source\\a"), Target(QStringLiteral("b")),
                     Existing::Replace, {});
    alignas(inotify_event) char events[4096];
    const ssize_t length = read(watch.Get(), events, sizeof events);
    uint32_t seen = 0;
    for (ssize_t at = 0; at < length;) {
        const auto* event = reinterpret_cast<const inotify_event*>(events + at);
        seen |= event->mask;
        at += static_cast<ssize_t>(sizeof *event + event->len);
    }
    EXPECT_NE(seen & IN_CLOSE_NOWRITE, 0U);
    EXPECT_EQ(seen & (IN_MODIFY | IN_ATTRIB | IN_CLOSE_WRITE | IN_CREATE | IN_DELETE), 0U);
}

TEST_F(CopyFixture, AFileThatReportsNoLengthIsCopiedToItsEnd) {
    m_files.CopyFile(QStringLiteral("/proc/version"), Target(QStringLiteral("version")),
                     Existing::Replace, {});
    const QByteArray copied = ReadFile(Target(QStringLiteral("version")));
    EXPECT_TRUE(copied.startsWith("Linux version "));
    EXPECT_TRUE(copied.endsWith('\n'));
}

TEST_F(CopyFixture, AFileIsCopiedBetweenTwoDisks) {
    const TestMount mount = TestMount::Memory(Target(), "size=8m");
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no second disk can be mounted here";
    }
    for (const qsizetype size : {0, 1, 262144, 262145, 1048576, 1048577, 3000000}) {
        WriteFile(Source(QStringLiteral("a")), Pattern(size));
        m_files.CopyFile(Source(QStringLiteral("a")), Target(QStringLiteral("b")),
                         Existing::Replace, {});
        EXPECT_EQ(ReadFile(Target(QStringLiteral("b"))), Pattern(size)) << size;
    }
}

TEST_F(CopyFixture, ASecondAttemptBeginsAtTheStartAgain) {
    WriteFile(Source(QStringLiteral("a")), "whole");
    const FileDescriptor file(
        open(Source(QStringLiteral("a")).toUtf8().constData(), O_RDONLY | O_CLOEXEC));
    const FileDescriptor folder(
        open(Target().toUtf8().constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat info {};
    ASSERT_EQ(fstat(file.Get(), &info), 0);
    ASSERT_EQ(lseek(file.Get(), 3, SEEK_SET), 3);
    CopyUnderPartName({file.Get(), info}, folder.Get(), "b", Existing::Keep, {});
    EXPECT_EQ(ReadFile(Target(QStringLiteral("b"))), "whole");
}

TEST_P(CopyInEitherWay, AllBytesAreCopied) {
    for (const qsizetype size : {0, 1, 4096, 262143, 262144, 262145, 1048576, 1048577, 3000000}) {
        WriteFile(Source(QStringLiteral("a")), Pattern(size));
        Copy(Source(QStringLiteral("a")), QStringLiteral("Song.mp3"));
        EXPECT_EQ(ReadFile(Target(QStringLiteral("Song.mp3"))), Pattern(size)) << size;
    }
    EXPECT_EQ(NamesIn(Target()), QStringList(QStringLiteral("Song.mp3")));
}

TEST_P(CopyInEitherWay, HolesAreCopiedAsZeros) {
    WriteFile(Source(QStringLiteral("a")), "begin");
    ASSERT_EQ(truncate(Source(QStringLiteral("a")).toUtf8().constData(), 300000), 0);
    Copy(Source(QStringLiteral("a")), QStringLiteral("b"));
    EXPECT_EQ(ReadFile(Target(QStringLiteral("b"))), "begin" + QByteArray(299995, '\0'));
}

TEST_P(CopyInEitherWay, TheModificationTimeIsKept) {
    WriteFile(Source(QStringLiteral("a")), "x");
    const timespec times[2] = {{0, UTIME_OMIT}, {1234567890, 123456789}};
    ASSERT_EQ(utimensat(AT_FDCWD, Source(QStringLiteral("a")).toUtf8().constData(), times, 0), 0);
    Copy(Source(QStringLiteral("a")), QStringLiteral("b"));
    struct stat info {};
    ASSERT_EQ(stat(Target(QStringLiteral("b")).toUtf8().constData(), &info), 0);
    EXPECT_EQ(info.st_mtim.tv_sec, 1234567890);
    EXPECT_EQ(info.st_mtim.tv_nsec, 123456789);
}

TEST_P(CopyInEitherWay, TheModeIsThatOfANewFile) {
    WriteFile(Source(QStringLiteral("a")), "x");
    SetMode(Source(QStringLiteral("a")), 0777);
    const mode_t before = umask(027);
    Copy(Source(QStringLiteral("a")), QStringLiteral("b"));
    umask(before);
    struct stat info {};
    ASSERT_EQ(stat(Target(QStringLiteral("b")).toUtf8().constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0640U);
}

TEST_P(CopyInEitherWay, AnEarlierFileIsReplaced) {
    WriteFile(Source(QStringLiteral("a")), "new");
    WriteFile(Target(QStringLiteral("b")), "a longer old one");
    Copy(Source(QStringLiteral("a")), QStringLiteral("b"));
    EXPECT_EQ(ReadFile(Target(QStringLiteral("b"))), "new");
    EXPECT_EQ(NamesIn(Target()), QStringList(QStringLiteral("b")));
}

TEST_P(CopyInEitherWay, ANameOf255BytesWorksForANewAndForAnEarlierFile) {
    const QString name(255, QLatin1Char('a'));
    WriteFile(Source(QStringLiteral("a")), "one");
    Copy(Source(QStringLiteral("a")), name);
    WriteFile(Source(QStringLiteral("a")), "two");
    Copy(Source(QStringLiteral("a")), name);
    EXPECT_EQ(ReadFile(Target(name)), "two");
    EXPECT_EQ(NamesIn(Target()), QStringList(name));
}

TEST_P(CopyInEitherWay, ANameTooLongForTheDiskIsADeniedPermission) {
    WriteFile(Source(QStringLiteral("a")), "x");
    EXPECT_EQ(CopyError(Source(QStringLiteral("a")), QString(256, QLatin1Char('a'))), 70);
    EXPECT_EQ(NamesIn(Target()), QStringList());
}

TEST_P(CopyInEitherWay, ATargetThatIsALinkIsReplacedAndNotWrittenThrough) {
    WriteFile(Source(QStringLiteral("a")), "new");
    WriteFile(Native(QStringLiteral("other")), "precious");
    MakeLink(QStringLiteral("../other"), Target(QStringLiteral("b")));
    MakeLink(QStringLiteral("../nix"), Target(QStringLiteral("dead")));
    Copy(Source(QStringLiteral("a")), QStringLiteral("b"));
    Copy(Source(QStringLiteral("a")), QStringLiteral("dead"));
    EXPECT_EQ(ReadFile(Native(QStringLiteral("other"))), "precious");
    EXPECT_FALSE(IsThere(Native(QStringLiteral("nix"))));
    for (const QString& name : {QStringLiteral("b"), QStringLiteral("dead")}) {
        EXPECT_EQ(ReadFile(Target(name)), "new");
        EXPECT_FALSE(QFileInfo(Target(name)).isSymLink());
    }
}

TEST_P(CopyInEitherWay, AFileOrALinkToNothingThatIsToBeKeptStays) {
    WriteFile(Source(QStringLiteral("a")), "new");
    WriteFile(Target(QStringLiteral("b")), "old");
    MakeLink(QStringLiteral("../nix"), Target(QStringLiteral("dead")));
    for (const QString& name : {QStringLiteral("b"), QStringLiteral("dead")}) {
        EXPECT_TRUE(m_files.WouldReplace(Target(name)));
        EXPECT_TRUE(m_files.WouldReplace(QStringLiteral("E:\\TARGET\\") + name));
        EXPECT_EQ(CopyError(Source(QStringLiteral("a")), name, Existing::Keep), 58);
    }
    EXPECT_EQ(ReadFile(Target(QStringLiteral("b"))), "old");
    EXPECT_TRUE(QFileInfo(Target(QStringLiteral("dead"))).isSymLink());
    EXPECT_EQ(NamesIn(Target()), QStringList({QStringLiteral("b"), QStringLiteral("dead")}));
}

TEST_P(CopyInEitherWay, AFullDiskLeavesNothingBehind) {
    const TestMount mount = TestMount::Memory(Target());
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no small disk can be mounted here";
    }
    WriteFile(Source(QStringLiteral("a")), Pattern(2000000));
    EXPECT_EQ(CopyError(Source(QStringLiteral("a")), QStringLiteral("b")), 61);
    EXPECT_EQ(NamesIn(Target()), QStringList());
    EXPECT_EQ(m_files.FreeBytes(Target()), 1048576.0);
}

TEST_P(CopyInEitherWay, AnEarlierFileOutlivesAFullDisk) {
    const TestMount mount = TestMount::Memory(Target());
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no small disk can be mounted here";
    }
    WriteFile(Target(QStringLiteral("b")), "old");
    WriteFile(Source(QStringLiteral("a")), Pattern(2000000));
    EXPECT_EQ(CopyError(Source(QStringLiteral("a")), QStringLiteral("b")), 61);
    EXPECT_EQ(ReadFile(Target(QStringLiteral("b"))), "old");
    EXPECT_EQ(NamesIn(Target()), QStringList(QStringLiteral("b")));
}

TEST_P(CopyInEitherWay, ADiskWithoutRoomForOneMoreFileIsFull) {
    const TestMount mount = TestMount::Memory(Target(), "size=1m,nr_inodes=3");
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no small disk can be mounted here";
    }
    WriteFile(Source(QStringLiteral("a")), "x");
    WriteFile(Target(QStringLiteral("one")), "1");
    WriteFile(Target(QStringLiteral("two")), "2");
    EXPECT_EQ(CopyError(Source(QStringLiteral("a")), QStringLiteral("three")), 61);
    EXPECT_EQ(NamesIn(Target()), QStringList({QStringLiteral("one"), QStringLiteral("two")}));
}

TEST_P(CopyInEitherWay, WhatAKilledCopyHasLeftIsRemoved) {
    WriteFile(Source(QStringLiteral("a")), "new");
    WriteFile(Target(QStringLiteral("b")), "old");
    WriteFile(Target(Part), "half of a song");
    Copy(Source(QStringLiteral("a")), QStringLiteral("b"));
    EXPECT_EQ(ReadFile(Target(QStringLiteral("b"))), "new");
    EXPECT_EQ(NamesIn(Target()), QStringList(QStringLiteral("b")));
}

TEST_P(CopyInEitherWay, ALinkPlantedAsALeftoverIsNotWrittenThrough) {
    WriteFile(Source(QStringLiteral("a")), "new");
    WriteFile(Target(QStringLiteral("b")), "old");
    WriteFile(Native(QStringLiteral("other")), "precious");
    MakeLink(QStringLiteral("../other"), Target(Part));
    Copy(Source(QStringLiteral("a")), QStringLiteral("b"));
    EXPECT_EQ(ReadFile(Target(QStringLiteral("b"))), "new");
    EXPECT_EQ(ReadFile(Native(QStringLiteral("other"))), "precious");
    EXPECT_EQ(NamesIn(Target()), QStringList(QStringLiteral("b")));
}

TEST_P(CopyInEitherWay, ACopyThatRunsElsewhereKeepsItsPartFile) {
    WriteFile(Source(QStringLiteral("a")), "new");
    WriteFile(Target(QStringLiteral("b")), "old");
    WriteFile(Target(Part), "being written");
    {
        const FileDescriptor running(open(Target(Part).toUtf8().constData(), O_WRONLY | O_CLOEXEC));
        ASSERT_EQ(flock(running.Get(), LOCK_EX | LOCK_NB), 0);
        EXPECT_EQ(CopyError(Source(QStringLiteral("a")), QStringLiteral("b")), 70);
        EXPECT_EQ(ReadFile(Target(Part)), "being written");
        EXPECT_EQ(ReadFile(Target(QStringLiteral("b"))), "old");
    }
    EXPECT_EQ(CopyError(Source(QStringLiteral("a")), QStringLiteral("b")), 0);
    EXPECT_EQ(ReadFile(Target(QStringLiteral("b"))), "new");
}

TEST_P(CopyInEitherWay, AKilledCopyShowsNoHalfFile) {
    MakeLongFile(Source(QStringLiteral("long")));
    const bool isKilled = KillWhileWriting(
        [this] { Copy(Source(QStringLiteral("long")), QStringLiteral("Film.m4v")); },
        {Source(QStringLiteral("long"))});
    if (!isKilled) {
        GTEST_SKIP() << "this disk copies at once";
    }
    EXPECT_FALSE(IsThere(Target(QStringLiteral("Film.m4v"))));
    if (GetParam() == Way::UnderPartName) {
        EXPECT_EQ(NamesIn(Target()), QStringList(Part));
    }
    WriteFile(Source(QStringLiteral("a")), "next");
    Copy(Source(QStringLiteral("a")), QStringLiteral("Film.m4v"));
    EXPECT_EQ(ReadFile(Target(QStringLiteral("Film.m4v"))), "next");
    EXPECT_EQ(NamesIn(Target()), QStringList(QStringLiteral("Film.m4v")));
}

TEST_P(CopyInEitherWay, AnEarlierFileOutlivesAKill) {
    MakeLongFile(Source(QStringLiteral("long")));
    WriteFile(Target(QStringLiteral("Film.m4v")), "old");
    const bool isKilled = KillWhileWriting(
        [this] { Copy(Source(QStringLiteral("long")), QStringLiteral("Film.m4v")); },
        {Source(QStringLiteral("long")), Target(QStringLiteral("Film.m4v"))});
    if (!isKilled) {
        GTEST_SKIP() << "this disk copies at once";
    }
    EXPECT_EQ(ReadFile(Target(QStringLiteral("Film.m4v"))), "old");
}

INSTANTIATE_TEST_SUITE_P(EitherWay, CopyInEitherWay,
                         testing::Values(Way::AsTheDiskAllows, Way::UnderPartName),
                         [](const auto& way) {
                             return way.param == Way::AsTheDiskAllows ? "AsTheDiskAllows"
                                                                      : "UnderPartName";
                         });
