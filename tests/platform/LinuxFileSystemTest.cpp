#include "platform/linux/LinuxFileSystem.h"

#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryFile>

#include <sys/stat.h>
#include <unistd.h>

namespace {

class FilesFixture : public LinuxFixture {
protected:
    /// Writes the bytes from a file elsewhere.
    void Write(BinaryFile& file, const QByteArray& bytes) {
        QTemporaryFile source;
        ASSERT_TRUE(source.open() && source.write(bytes) == bytes.size() && source.flush());
        file.WriteFrom(*m_files.OpenForReading(source.fileName()), bytes.size(), {});
    }
};

mode_t ModeOf(const QString& path) {
    struct stat info {};
    EXPECT_EQ(stat(path.toUtf8().constData(), &info), 0);
    return info.st_mode & 07777;
}

} // namespace

TEST_F(FilesFixture, TheLengthOfAFileIsInBytes) {
    WriteFile(Native(QStringLiteral("song.mp3")), Pattern(12345));
    EXPECT_EQ(m_files.FileLength(QStringLiteral("E:\\SONG.mp3")), 12345);
    EXPECT_EQ(NumberOf([this] { m_files.FileLength(QStringLiteral("E:\\nix.mp3")); }), 53);
    EXPECT_EQ(NumberOf([this] { m_files.FileLength(QStringLiteral("E:\\nix\\nix.mp3")); }), 76);
    EXPECT_EQ(NumberOf([this] { m_files.FileLength(Native()); }), 53);
}

TEST_F(FilesFixture, ALengthPastFourGigabytesIsExact) {
    WriteFile(Native(QStringLiteral("film.m4v")), "x");
    ASSERT_EQ(truncate(Native(QStringLiteral("film.m4v")).toUtf8().constData(), 5000000001), 0);
    EXPECT_EQ(m_files.FileLength(Native(QStringLiteral("film.m4v"))), 5000000001);
}

TEST_F(FilesFixture, BlocksAreReadOneAfterTheOther) {
    WriteFile(Native(QStringLiteral("song.mp3")), "abcdefgh");
    const std::unique_ptr<BinaryFile> file =
        m_files.OpenForReading(Native(QStringLiteral("song.mp3")));
    char bytes[5] = {};
    file->Read(bytes, 5);
    EXPECT_EQ(QByteArray(bytes, 5), "abcde");
    file->Read(bytes, 0);
    file->Read(bytes, 3);
    EXPECT_EQ(QByteArray(bytes, 3), "fgh");
}

TEST_F(FilesFixture, AFileThatEndsEarlyIsADeviceError) {
    WriteFile(Native(QStringLiteral("song.mp3")), "abc");
    const std::unique_ptr<BinaryFile> file =
        m_files.OpenForReading(Native(QStringLiteral("song.mp3")));
    char bytes[4] = {};
    EXPECT_EQ(NumberOf([&] { file->Read(bytes, 4); }), 57);
}

TEST_F(FilesFixture, AFileIsWrittenFromAnotherStepByStep) {
    for (const qsizetype step : {qsizetype{7}, qsizetype{300000}, qsizetype{3000000}}) {
        QByteArray bytes(2 * step, Qt::Uninitialized);
        for (qsizetype i = 0; i < bytes.size(); ++i) {
            bytes[i] = static_cast<char>(i * 7 + i / 1000);
        }
        WriteFile(Native(QStringLiteral("film.m4v")), bytes);
        const auto from = m_files.OpenForReading(Native(QStringLiteral("film.m4v")));
        const auto to = m_files.OpenForReadingAndWriting(Native(QStringLiteral("copy.tmp")));
        to->WriteFrom(*from, step, {});
        EXPECT_EQ(ReadFile(Native(QStringLiteral("copy.tmp"))).left(step), bytes.left(step));
        to->WriteFrom(*from, step, {});
        EXPECT_EQ(ReadFile(Native(QStringLiteral("copy.tmp"))), bytes);
    }
}

TEST_F(FilesFixture, ASourceThatEndsEarlyIsADeviceError) {
    for (const qsizetype size : {qsizetype{10}, qsizetype{3000000}}) {
        WriteFile(Native(QStringLiteral("film.m4v")), QByteArray(size, 'x'));
        const auto from = m_files.OpenForReading(Native(QStringLiteral("film.m4v")));
        const auto to = m_files.OpenForReadingAndWriting(Native(QStringLiteral("copy.tmp")));
        EXPECT_EQ(NumberOf([&] { to->WriteFrom(*from, size + 1, {}); }), 57);
    }
}

TEST_F(FilesFixture, WhatIsOpenForReadingCannotBeWritten) {
    WriteFile(Native(QStringLiteral("song.mp3")), "abc");
    const std::unique_ptr<BinaryFile> file =
        m_files.OpenForReading(Native(QStringLiteral("song.mp3")));
    EXPECT_NE(NumberOf([&] { Write(*file, "x"); }), 0);
    EXPECT_NE(NumberOf([&] { file->Truncate(0); }), 0);
    EXPECT_EQ(ReadFile(Native(QStringLiteral("song.mp3"))), "abc");
}

TEST_F(FilesFixture, OnlyRegularFilesAreOpenedForReading) {
    ASSERT_TRUE(MakePipe(Native(QStringLiteral("pipe"))));
    EXPECT_EQ(NumberOf([this] { m_files.OpenForReading(Native(QStringLiteral("pipe"))); }), 53);
    EXPECT_EQ(NumberOf([this] { m_files.OpenForReading(Native()); }), 53);
    EXPECT_EQ(NumberOf([this] { m_files.OpenForReading(QStringLiteral("/dev/zero")); }), 53);
}

TEST_F(FilesFixture, AFileThatMayNotBeReadIsADeniedPermission) {
    WriteFile(Native(QStringLiteral("song.mp3")), "abc");
    SetMode(Native(), 0755);
    SetMode(Native(QStringLiteral("song.mp3")), 0);
    const int number =
        NumberOfNobody([this] { m_files.OpenForReading(Native(QStringLiteral("song.mp3"))); });
    if (number == -1) {
        GTEST_SKIP() << "this process cannot become another user";
    }
    EXPECT_EQ(number, 70);
}

TEST_F(FilesFixture, AMissingFileIsCreatedForWriting) {
    const mode_t before = umask(027);
    const std::unique_ptr<BinaryFile> file =
        m_files.OpenForReadingAndWriting(QStringLiteral("E:\\copy.tmp"));
    umask(before);
    Write(*file, "abcdef");
    file->Truncate(4);
    file->Close();
    file->Close(); // once more is nothing
    EXPECT_EQ(ReadFile(Native(QStringLiteral("copy.tmp"))), "abcd");
    EXPECT_EQ(ModeOf(Native(QStringLiteral("copy.tmp"))), 0640U);
}

TEST_F(FilesFixture, AnExistingFileIsOverwrittenFromItsStartAndNotEmptied) {
    WriteFile(Native(QStringLiteral("copy.tmp")), "old content");
    const std::unique_ptr<BinaryFile> file =
        m_files.OpenForReadingAndWriting(QStringLiteral("E:\\COPY.tmp"));
    Write(*file, "new");
    char rest[8] = {};
    file->Read(rest, 8);
    file->Close();
    EXPECT_EQ(QByteArray(rest, 8), " content");
    EXPECT_EQ(ReadFile(Native(QStringLiteral("copy.tmp"))), "new content");
}

TEST_F(FilesFixture, AFileThatIsBeingWrittenIsNobodyElsesUntilItsWriterIsGone) {
    const QString temp = Native(QStringLiteral("copy.tmp"));
    {
        const std::unique_ptr<BinaryFile> writing = m_files.OpenForReadingAndWriting(temp);
        Write(*writing, "first");
        EXPECT_EQ(WritingError(temp), 70);
        writing->Close();
        EXPECT_EQ(WritingError(temp), 70);
        m_files.MoveFile(*writing, Native(QStringLiteral("film.m4v")), Existing::Replace, {});
        EXPECT_EQ(WritingError(Native(QStringLiteral("film.m4v"))), 70);
        EXPECT_EQ(WritingError(temp), 0);
    }
    EXPECT_EQ(ReadFile(Native(QStringLiteral("film.m4v"))), "first");
    EXPECT_EQ(WritingError(Native(QStringLiteral("film.m4v"))), 0);
}

TEST_F(FilesFixture, APlantedLinkIsNotWrittenThrough) {
    WriteFile(Native(QStringLiteral("letter.txt")), "precious");
    MakeLink(QStringLiteral("letter.txt"), Native(QStringLiteral("copy.tmp")));
    MakeLink(QStringLiteral("nix"), Native(QStringLiteral("dead.tmp")));
    EXPECT_EQ(WritingError(Native(QStringLiteral("copy.tmp"))), 70);
    EXPECT_EQ(WritingError(Native(QStringLiteral("dead.tmp"))), 70);
    EXPECT_EQ(ReadFile(Native(QStringLiteral("letter.txt"))), "precious");
    EXPECT_FALSE(IsThere(Native(QStringLiteral("nix"))));
}

TEST_F(FilesFixture, NothingIsWrittenInAFolderBehindAPlantedLink) {
    MakeFolder(Native(QStringLiteral("documents")));
    WriteFile(Native(QStringLiteral("documents/copy.tmp")), "precious");
    MakeLink(QStringLiteral("documents"), Native(QStringLiteral("tmp")));
    EXPECT_EQ(WritingError(Native(QStringLiteral("tmp/copy.tmp"))), 70);
    EXPECT_EQ(WritingError(QStringLiteral("E:\\TMP\\copy.tmp")), 70);
    EXPECT_EQ(WritingError(Native(QStringLiteral("tmp/new.tmp"))), 70);
    EXPECT_EQ(ReadFile(Native(QStringLiteral("documents/copy.tmp"))), "precious");
    EXPECT_EQ(NamesIn(Native(QStringLiteral("documents"))),
              QStringList(QStringLiteral("copy.tmp")));
}

TEST_F(FilesFixture, ASecondNameOfAnotherFileIsNotWrittenThrough) {
    WriteFile(Native(QStringLiteral("letter.txt")), "precious");
    ASSERT_EQ(link(Native(QStringLiteral("letter.txt")).toUtf8().constData(),
                   Native(QStringLiteral("copy.tmp")).toUtf8().constData()),
              0);
    EXPECT_EQ(WritingError(Native(QStringLiteral("copy.tmp"))), 70);
    EXPECT_EQ(ReadFile(Native(QStringLiteral("letter.txt"))), "precious");
}

TEST_F(FilesFixture, OnlyRegularFilesAreOpenedForWriting) {
    ASSERT_TRUE(MakePipe(Native(QStringLiteral("pipe"))));
    EXPECT_EQ(WritingError(Native(QStringLiteral("pipe"))), 70);
    EXPECT_EQ(WritingError(Native()), 70);
    EXPECT_EQ(WritingError(QStringLiteral("E:\\")), 70);
}

TEST_F(FilesFixture, AFileForWritingNeedsItsFolder) {
    EXPECT_EQ(WritingError(Native(QStringLiteral("nix/copy.tmp"))), 76);
    EXPECT_EQ(WritingError(QStringLiteral("Q:\\copy.tmp")), 76);
}

TEST_F(FilesFixture, AFileNameThatTheDiskRefusesIsADeniedPermission) {
    WriteFile(Native(QStringLiteral("song.mp3")), "x");
    for (const QString& name : {QString(256, QLatin1Char('a')), QStringLiteral("a") + QChar(0xD800),
                                QStringLiteral("a") + QChar(u'\0') + QLatin1Char('b')}) {
        for (const QString& path : {Native(name), QStringLiteral("E:\\") + name}) {
            EXPECT_EQ(WritingError(path), 70);
            EXPECT_EQ(NumberOf([&] {
                          m_files.CopyFile(QStringLiteral("E:\\song.mp3"), path, Existing::Replace,
                                           {});
                      }),
                      70);
            EXPECT_EQ(MoveError(QStringLiteral("E:\\song.mp3"), path), 70);
        }
    }
    EXPECT_EQ(NamesIn(Native()), QStringList(QStringLiteral("song.mp3")));
}

TEST_F(FilesFixture, NothingIsCreatedOnAReadOnlyDisk) {
    MakeFolder(Native(QStringLiteral("disk")));
    MakeFolder(Native(QStringLiteral("shown")));
    WriteFile(Native(QStringLiteral("disk/song.mp3")), "x");
    const TestMount mount =
        TestMount::Bind(Native(QStringLiteral("disk")), Native(QStringLiteral("shown")), true);
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "a read-only folder cannot be mounted here";
    }
    const QString song = Native(QStringLiteral("shown/song.mp3"));
    EXPECT_EQ(CreationError(Native(QStringLiteral("shown/new"))), 70);
    EXPECT_EQ(WritingError(Native(QStringLiteral("shown/copy.tmp"))), 70);
    EXPECT_EQ(NumberOf([&] {
                  m_files.CopyFile(song, Native(QStringLiteral("shown/new.mp3")), Existing::Replace,
                                   {});
              }),
              70);
    EXPECT_EQ(NumberOf([&] { m_files.DeleteFolder(Native(QStringLiteral("shown")), {}); }), 0);
    EXPECT_EQ(MoveError(song, Native(QStringLiteral("shown/new.mp3"))), 70);
    EXPECT_EQ(NamesIn(Native(QStringLiteral("disk"))), QStringList(QStringLiteral("song.mp3")));
}

TEST_F(FilesFixture, WritingToAFullDiskRaisesDiskFull) {
    const TestMount mount = TestMount::Memory(Native());
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no small disk can be mounted here";
    }
    const std::unique_ptr<BinaryFile> file =
        m_files.OpenForReadingAndWriting(Native(QStringLiteral("copy.tmp")));
    const QByteArray bytes = Pattern(2000000);
    EXPECT_EQ(NumberOf([&] { Write(*file, bytes); }), 61);
}

TEST_F(FilesFixture, TheDriveOfADrivePathIsItsFirstTwoCharacters) {
    EXPECT_EQ(m_files.DriveOf(QStringLiteral("E:\\Music\\New")), QStringLiteral("E:"));
    EXPECT_EQ(m_files.DriveOf(QStringLiteral("q:\\x")), QStringLiteral("q:"));
}

TEST_F(FilesFixture, TheDriveOfANativePathIsItsMountFolder) {
    const QString disk = Native(QStringLiteral("my disk"));
    MakeFolder(disk);
    MakeFolder(disk + QStringLiteral(" of others"));
    MakeLink(disk, Native(QStringLiteral("link")));
    const QString before = m_files.DriveOf(disk);
    EXPECT_TRUE(disk.startsWith(before)) << qPrintable(before);
    const TestMount mount = TestMount::Memory(disk);
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no disk can be mounted here";
    }
    EXPECT_EQ(m_files.DriveOf(disk), disk);
    EXPECT_EQ(m_files.DriveOf(disk + QStringLiteral("/not/there/yet")), disk);
    EXPECT_EQ(m_files.DriveOf(Native(QStringLiteral("link/x"))), disk);
    EXPECT_EQ(m_files.DriveOf(disk + QStringLiteral(" of others/x")), before);
    EXPECT_EQ(m_files.DriveOf(Native()), before);
    const QString inner = disk + QStringLiteral("/inner");
    MakeFolder(inner);
    const TestMount innerMount = TestMount::Memory(inner);
    EXPECT_EQ(m_files.DriveOf(inner + QStringLiteral("/x")), inner);
    EXPECT_EQ(m_files.DriveOf(disk), disk);
    EXPECT_EQ(m_files.DriveOf(QStringLiteral("/proc/self/fd")), QStringLiteral("/proc"));
}

TEST_F(FilesFixture, ATextOfNeitherFormIsOnNoDrive) {
    EXPECT_EQ(m_files.DriveOf(QStringLiteral("Music")), QString());
    EXPECT_EQ(m_files.DriveOf(QString()), QString());
    EXPECT_EQ(NumberOf([this] { m_files.FreeBytes(QStringLiteral("Music")); }), 76);
}

TEST_F(FilesFixture, FreeBytesAreThoseOfTheNearestFolderThatExists) {
    const TestMount mount = TestMount::Memory(Native());
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no small disk can be mounted here";
    }
    EXPECT_EQ(m_files.FreeBytes(Native()), 1048576.0);
    EXPECT_EQ(m_files.FreeBytes(Native(QStringLiteral("not/there/yet"))), 1048576.0);
    EXPECT_EQ(m_files.FreeBytes(QStringLiteral("E:")), 1048576.0);
    EXPECT_EQ(m_files.FreeBytes(QStringLiteral("E:\\not\\there\\yet")), 1048576.0);
    WriteFile(Native(QStringLiteral("x")), Pattern(4096));
    EXPECT_EQ(m_files.FreeBytes(Native()), 1044480.0);
}

TEST_F(FilesFixture, AMissingDriveHasNoFreeBytes) {
    EXPECT_EQ(NumberOf([this] { m_files.FreeBytes(QStringLiteral("Q:\\Music")); }), 68);
}

TEST_F(FilesFixture, TheLimitsOfNamesAreThoseOfTheFileSystem) {
    const NameLimits limits = m_files.LimitsOf(Native());
    EXPECT_EQ(limits.Longest, pathconf(Native().toUtf8().constData(), _PC_NAME_MAX));
    EXPECT_EQ(limits.CountedIn, NameLimits::Unit::Utf8Bytes);
    EXPECT_FALSE(limits.IsForWindows);
    // Of a folder that is not there yet, those of where it would be made.
    EXPECT_EQ(m_files.LimitsOf(Native(QStringLiteral("new/newer"))).Longest, limits.Longest);
    EXPECT_EQ(m_files.LimitsOf(QStringLiteral("nowhere")).Longest, 255);
}
