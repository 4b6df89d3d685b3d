#include "platform/linux/LinuxCopy.h"

#include "platform/RuntimeError.h"
#include "platform/linux/ByteTransfer.h"
#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

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
        return Native(u"source"_s) + (name.isEmpty() ? name : u'/' + name);
    }
    QString Target(const QString& name = QString()) const {
        return Native(u"target"_s) + (name.isEmpty() ? name : u'/' + name);
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

TEST_F(CopyFixture, AFailedWriteDoesNotKeepALaterStopFromRemovingWhatIsLeft) {
    WriteFile(Source(u"a"_s), "a");
    const FileDescriptor source(open(Source(u"a"_s).toUtf8().constData(), O_RDONLY | O_CLOEXEC));
    const FileDescriptor full(open("/dev/full", O_WRONLY | O_CLOEXEC));
    const CopyControl control;
    EXPECT_THROW(TransferAll(source.Get(), full.Get(), 1, control), RuntimeError);
    bool isRemoved = false;
    control.SetRemover([&isRemoved] { isRemoved = true; });
    control.Stop();
    control.RemoveLeftover();
    EXPECT_TRUE(isRemoved);
}

TEST_F(CopyFixture, OnlyRegularFilesAreCopiedAndAPipeIsNotWaitedFor) {
    ASSERT_TRUE(MakePipe(Source(u"pipe"_s)));
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr_un address{AF_UNIX, {}};
    const QByteArray path = Source(u"socket"_s).toUtf8();
    ASSERT_LT(static_cast<size_t>(path.size()), sizeof address.sun_path);
    std::copy(path.begin(), path.end(), address.sun_path);
    ASSERT_EQ(bind(socket.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(CopyError(Source(u"socket"_s), Target(u"x"_s)), 53);
    EXPECT_EQ(CopyError(Source(u"pipe"_s), Target(u"x"_s)), 53);
    EXPECT_EQ(CopyError(Source(), Target(u"x"_s)), 53);
    EXPECT_EQ(CopyError(u"/dev/zero"_s, Target(u"x"_s)), 53);
    EXPECT_EQ(NamesIn(Target()), QStringList());
}

TEST_F(CopyFixture, OnlyRegularFilesAreReplaced) {
    WriteFile(Source(u"a"_s), "x");
    MakeFolder(Target(u"folder/inner"_s));
    ASSERT_TRUE(MakePipe(Target(u"pipe"_s)));
    MakeLink(u"folder"_s, Target(u"link"_s));
    for (const QString& name : {u"folder"_s, u"pipe"_s, u"link"_s}) {
        EXPECT_EQ(CopyError(Source(u"a"_s), Target(name)), 70) << qPrintable(name);
    }
    EXPECT_EQ(CopyError(Source(u"a"_s), u"E:\\"_s), 70);
    EXPECT_EQ(NamesIn(Target()), QStringList({u"folder"_s, u"link"_s, u"pipe"_s}));
    EXPECT_EQ(NamesIn(Target(u"folder"_s)), QStringList(u"inner"_s));
}

TEST_F(CopyFixture, AFileIsNeverCopiedOntoItself) {
    WriteFile(Source(u"Song.mp3"_s), "precious");
    const QByteArray song = Source(u"Song.mp3"_s).toUtf8();
    ASSERT_EQ(link(song.constData(), Source(u"second"_s).toUtf8().constData()), 0);
    MakeLink(u"Song.mp3"_s, Source(u"link"_s));
    const QString drivePath = u"E:\\source\\SONG.mp3"_s;
    EXPECT_EQ(CopyError(drivePath, drivePath), 70);
    EXPECT_EQ(CopyError(drivePath, Source(u"Song.mp3"_s)), 70);
    EXPECT_EQ(CopyError(drivePath, Source(u"second"_s)), 70);
    EXPECT_EQ(CopyError(drivePath, Source(u"link"_s)), 70);
    EXPECT_EQ(ReadFile(Source(u"Song.mp3"_s)), "precious");
    EXPECT_EQ(NamesIn(Source()), QStringList({u"Song.mp3"_s, u"link"_s, u"second"_s}));
}

TEST_F(CopyFixture, AnEarlierFileThatMayNotBeWrittenIsKept) {
    WriteFile(Source(u"a"_s), "new");
    WriteFile(Target(u"Song.mp3"_s), "old");
    SetMode(Native(), 0755);
    SetMode(Target(), 0777);
    SetMode(Target(u"Song.mp3"_s), 0444);
    const int number = NumberOfNobody(
        [this] { m_files.CopyFile(Source(u"a"_s), Target(u"Song.mp3"_s), Existing::Replace, {}); });
    SKIP_UNLESS(number != -1, "this process cannot become another user");
    EXPECT_EQ(number, 70);
    EXPECT_EQ(ReadFile(Target(u"Song.mp3"_s)), "old");
    EXPECT_EQ(NamesIn(Target()), QStringList(u"Song.mp3"_s));
}

TEST_F(CopyFixture, ATargetFolderThatMayNotBeWrittenIsADeniedPermission) {
    WriteFile(Source(u"a"_s), "new");
    SetMode(Native(), 0755);
    SetMode(Target(), 0555);
    const int number = NumberOfNobody(
        [this] { m_files.CopyFile(Source(u"a"_s), Target(u"Song.mp3"_s), Existing::Replace, {}); });
    SKIP_UNLESS(number != -1, "this process cannot become another user");
    EXPECT_EQ(number, 70);
}

TEST_F(CopyFixture, AnotherUsersFileIsCopiedWithoutBeingOpenedForWriting) {
    WriteFile(Source(u"a"_s), "music");
    SetMode(Native(), 0755);
    SetMode(Source(u"a"_s), 0444);
    SetMode(Target(), 0777);
    const int number = NumberOfNobody(
        [this] { m_files.CopyFile(Source(u"a"_s), Target(u"Song.mp3"_s), Existing::Replace, {}); });
    SKIP_UNLESS(number != -1, "this process cannot become another user");
    EXPECT_EQ(number, 0);
    EXPECT_EQ(ReadFile(Target(u"Song.mp3"_s)), "music");
}

TEST_F(CopyFixture, TheSourceIsOnlyRead) {
    WriteFile(Source(u"a"_s), Pattern(100000));
    const FileDescriptor watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    ASSERT_GE(inotify_add_watch(watch.Get(), Source().toUtf8().constData(), IN_ALL_EVENTS), 0);
    m_files.CopyFile(u"E:\\source\\a"_s, Target(u"b"_s), Existing::Replace, {});
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
    m_files.CopyFile(u"/proc/version"_s, Target(u"version"_s), Existing::Replace, {});
    const QByteArray copied = ReadFile(Target(u"version"_s));
    EXPECT_TRUE(copied.startsWith("Linux version "));
    EXPECT_TRUE(copied.endsWith('\n'));
}

TEST_F(CopyFixture, AFileIsCopiedBetweenTwoDisks) {
    const TestMount mount = TestMount::Memory(Target(), "size=8m");
    SKIP_UNLESS(mount.IsMounted(), "no second disk can be mounted here");
    for (const qsizetype size : {0, 1, 262144, 262145, 1048576, 1048577, 3000000}) {
        WriteFile(Source(u"a"_s), Pattern(size));
        m_files.CopyFile(Source(u"a"_s), Target(u"b"_s), Existing::Replace, {});
        EXPECT_EQ(ReadFile(Target(u"b"_s)), Pattern(size)) << size;
    }
}

TEST_F(CopyFixture, ASecondAttemptBeginsAtTheStartAgain) {
    WriteFile(Source(u"a"_s), "whole");
    const FileDescriptor file(open(Source(u"a"_s).toUtf8().constData(), O_RDONLY | O_CLOEXEC));
    const FileDescriptor folder(
        open(Target().toUtf8().constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat info {};
    ASSERT_EQ(fstat(file.Get(), &info), 0);
    ASSERT_EQ(lseek(file.Get(), 3, SEEK_SET), 3);
    CopyUnderPartName({file.Get(), info}, folder.Get(), "b", Existing::Keep, {});
    EXPECT_EQ(ReadFile(Target(u"b"_s)), "whole");
}

TEST_P(CopyInEitherWay, AllBytesAreCopied) {
    for (const qsizetype size : {0, 1, 4096, 262143, 262144, 262145, 1048576, 1048577, 3000000}) {
        WriteFile(Source(u"a"_s), Pattern(size));
        Copy(Source(u"a"_s), u"Song.mp3"_s);
        EXPECT_EQ(ReadFile(Target(u"Song.mp3"_s)), Pattern(size)) << size;
    }
    EXPECT_EQ(NamesIn(Target()), QStringList(u"Song.mp3"_s));
}

TEST_P(CopyInEitherWay, HolesAreCopiedAsZeros) {
    WriteFile(Source(u"a"_s), "begin");
    ASSERT_EQ(truncate(Source(u"a"_s).toUtf8().constData(), 300000), 0);
    Copy(Source(u"a"_s), u"b"_s);
    EXPECT_EQ(ReadFile(Target(u"b"_s)), "begin" + QByteArray(299995, '\0'));
}

TEST_P(CopyInEitherWay, TheModificationTimeIsKept) {
    WriteFile(Source(u"a"_s), "x");
    const timespec times[2] = {{0, UTIME_OMIT}, {1234567890, 123456789}};
    ASSERT_EQ(utimensat(AT_FDCWD, Source(u"a"_s).toUtf8().constData(), times, 0), 0);
    Copy(Source(u"a"_s), u"b"_s);
    struct stat info {};
    ASSERT_EQ(stat(Target(u"b"_s).toUtf8().constData(), &info), 0);
    EXPECT_EQ(info.st_mtim.tv_sec, 1234567890);
    EXPECT_EQ(info.st_mtim.tv_nsec, 123456789);
}

TEST_P(CopyInEitherWay, TheModeIsThatOfANewFile) {
    WriteFile(Source(u"a"_s), "x");
    SetMode(Source(u"a"_s), 0777);
    const mode_t before = umask(027);
    Copy(Source(u"a"_s), u"b"_s);
    umask(before);
    struct stat info {};
    ASSERT_EQ(stat(Target(u"b"_s).toUtf8().constData(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0640U);
}

TEST_P(CopyInEitherWay, ANameOf255BytesWorksForANewAndForAnEarlierFile) {
    const QString name(255, u'a');
    WriteFile(Source(u"a"_s), "one");
    Copy(Source(u"a"_s), name);
    WriteFile(Source(u"a"_s), "two");
    Copy(Source(u"a"_s), name);
    EXPECT_EQ(ReadFile(Target(name)), "two");
    EXPECT_EQ(NamesIn(Target()), QStringList(name));
}

TEST_P(CopyInEitherWay, ATargetThatIsALinkIsReplacedAndNotWrittenThrough) {
    WriteFile(Source(u"a"_s), "new");
    WriteFile(Native(u"other"_s), "precious");
    MakeLink(u"../other"_s, Target(u"b"_s));
    MakeLink(u"../nix"_s, Target(u"dead"_s));
    Copy(Source(u"a"_s), u"b"_s);
    Copy(Source(u"a"_s), u"dead"_s);
    EXPECT_EQ(ReadFile(Native(u"other"_s)), "precious");
    EXPECT_FALSE(IsThere(Native(u"nix"_s)));
    for (const QString& name : {u"b"_s, u"dead"_s}) {
        EXPECT_EQ(ReadFile(Target(name)), "new");
        EXPECT_FALSE(QFileInfo(Target(name)).isSymLink());
    }
}

TEST_P(CopyInEitherWay, AFileOrALinkToNothingThatIsToBeKeptStays) {
    WriteFile(Source(u"a"_s), "new");
    WriteFile(Target(u"b"_s), "old");
    MakeLink(u"../nix"_s, Target(u"dead"_s));
    for (const QString& name : {u"b"_s, u"dead"_s}) {
        EXPECT_TRUE(m_files.WouldReplace(Target(name)));
        EXPECT_TRUE(m_files.WouldReplace(u"E:\\TARGET\\"_s + name));
        EXPECT_EQ(CopyError(Source(u"a"_s), name, Existing::Keep), 58);
    }
    EXPECT_EQ(ReadFile(Target(u"b"_s)), "old");
    EXPECT_TRUE(QFileInfo(Target(u"dead"_s)).isSymLink());
    EXPECT_EQ(NamesIn(Target()), QStringList({u"b"_s, u"dead"_s}));
}

TEST_P(CopyInEitherWay, AFullDiskLeavesNothingBehindButAnEarlierFile) {
    const TestMount mount = TestMount::Memory(Target());
    SKIP_UNLESS(mount.IsMounted(), "no small disk can be mounted here");
    WriteFile(Source(u"a"_s), Pattern(2000000));
    EXPECT_EQ(CopyError(Source(u"a"_s), u"b"_s), 61);
    EXPECT_EQ(NamesIn(Target()), QStringList());
    EXPECT_EQ(m_files.FreeBytes(Target()), 1048576.0);
    WriteFile(Target(u"b"_s), "old");
    EXPECT_EQ(CopyError(Source(u"a"_s), u"b"_s), 61);
    EXPECT_EQ(ReadFile(Target(u"b"_s)), "old");
    EXPECT_EQ(NamesIn(Target()), QStringList(u"b"_s));
}

TEST_P(CopyInEitherWay, ADiskWithoutRoomForOneMoreFileIsFull) {
    const TestMount mount = TestMount::Memory(Target(), "size=1m,nr_inodes=3");
    SKIP_UNLESS(mount.IsMounted(), "no small disk can be mounted here");
    WriteFile(Source(u"a"_s), "x");
    WriteFile(Target(u"one"_s), "1");
    WriteFile(Target(u"two"_s), "2");
    EXPECT_EQ(CopyError(Source(u"a"_s), u"three"_s), 61);
    EXPECT_EQ(NamesIn(Target()), QStringList({u"one"_s, u"two"_s}));
}

TEST_P(CopyInEitherWay, WhatAKilledCopyHasLeftIsRemoved) {
    WriteFile(Source(u"a"_s), "new");
    WriteFile(Target(u"b"_s), "a longer old one");
    WriteFile(Target(Part), "half of a song");
    Copy(Source(u"a"_s), u"b"_s);
    EXPECT_EQ(ReadFile(Target(u"b"_s)), "new");
    EXPECT_EQ(NamesIn(Target()), QStringList(u"b"_s));
}

TEST_P(CopyInEitherWay, ALinkPlantedAsALeftoverIsNotWrittenThrough) {
    WriteFile(Source(u"a"_s), "new");
    WriteFile(Target(u"b"_s), "old");
    WriteFile(Native(u"other"_s), "precious");
    MakeLink(u"../other"_s, Target(Part));
    Copy(Source(u"a"_s), u"b"_s);
    EXPECT_EQ(ReadFile(Target(u"b"_s)), "new");
    EXPECT_EQ(ReadFile(Native(u"other"_s)), "precious");
    EXPECT_EQ(NamesIn(Target()), QStringList(u"b"_s));
}

TEST_P(CopyInEitherWay, ACopyThatRunsElsewhereKeepsItsPartFile) {
    WriteFile(Source(u"a"_s), "new");
    WriteFile(Target(u"b"_s), "old");
    WriteFile(Target(Part), "being written");
    {
        const FileDescriptor running(open(Target(Part).toUtf8().constData(), O_WRONLY | O_CLOEXEC));
        ASSERT_EQ(flock(running.Get(), LOCK_EX | LOCK_NB), 0);
        EXPECT_EQ(CopyError(Source(u"a"_s), u"b"_s), 70);
        EXPECT_EQ(ReadFile(Target(Part)), "being written");
        EXPECT_EQ(ReadFile(Target(u"b"_s)), "old");
    }
    EXPECT_EQ(CopyError(Source(u"a"_s), u"b"_s), 0);
    EXPECT_EQ(ReadFile(Target(u"b"_s)), "new");
}

TEST_P(CopyInEitherWay, AKilledCopyShowsNoHalfFile) {
    MakeLongFile(Source(u"long"_s));
    const bool isKilled =
        KillWhileWriting([this] { Copy(Source(u"long"_s), u"Film.m4v"_s); }, {Source(u"long"_s)});
    if (!isKilled) {
        GTEST_SKIP() << "this disk copies at once";
    }
    EXPECT_FALSE(IsThere(Target(u"Film.m4v"_s)));
    if (GetParam() == Way::UnderPartName) {
        EXPECT_EQ(NamesIn(Target()), QStringList(Part));
    }
    WriteFile(Source(u"a"_s), "next");
    Copy(Source(u"a"_s), u"Film.m4v"_s);
    EXPECT_EQ(ReadFile(Target(u"Film.m4v"_s)), "next");
    EXPECT_EQ(NamesIn(Target()), QStringList(u"Film.m4v"_s));
}

TEST_P(CopyInEitherWay, AnEarlierFileOutlivesAKill) {
    MakeLongFile(Source(u"long"_s));
    WriteFile(Target(u"Film.m4v"_s), "old");
    const bool isKilled = KillWhileWriting([this] { Copy(Source(u"long"_s), u"Film.m4v"_s); },
                                           {Source(u"long"_s), Target(u"Film.m4v"_s)});
    if (!isKilled) {
        GTEST_SKIP() << "this disk copies at once";
    }
    EXPECT_EQ(ReadFile(Target(u"Film.m4v"_s)), "old");
}

INSTANTIATE_TEST_SUITE_P(EitherWay, CopyInEitherWay,
                         testing::Values(Way::AsTheDiskAllows, Way::UnderPartName),
                         [](const auto& way) {
                             return way.param == Way::AsTheDiskAllows ? "AsTheDiskAllows"
                                                                      : "UnderPartName";
                         });
