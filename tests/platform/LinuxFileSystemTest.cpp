#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/LinuxNames.h"

#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QTemporaryFile>

#include <unistd.h>

using namespace Qt::StringLiterals;

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

} // namespace

TEST_F(FilesFixture, ALengthPastFourGigabytesIsExact) {
    WriteFile(Native(u"film.m4v"_s), "x");
    ASSERT_EQ(truncate(Native(u"film.m4v"_s).toUtf8().constData(), 5000000001), 0);
    EXPECT_EQ(m_files.FileLength(Native(u"film.m4v"_s)), 5000000001);
}

TEST_F(FilesFixture, AFileThatMayNotBeReadIsADeniedPermission) {
    WriteFile(Native(u"song.mp3"_s), "abc");
    SetMode(Native(), 0755);
    SetMode(Native(u"song.mp3"_s), 0);
    const int number = NumberOfNobody([this] { m_files.OpenForReading(Native(u"song.mp3"_s)); });
    SKIP_UNLESS(number != -1, "this process cannot become another user");
    EXPECT_EQ(number, 70);
}

TEST_F(FilesFixture, APlantedLinkIsNotWrittenThrough) {
    WriteFile(Native(u"letter.txt"_s), "precious");
    MakeLink(u"letter.txt"_s, Native(u"copy.tmp"_s));
    MakeLink(u"nix"_s, Native(u"dead.tmp"_s));
    EXPECT_EQ(WritingError(Native(u"copy.tmp"_s)), 70);
    EXPECT_EQ(WritingError(Native(u"dead.tmp"_s)), 70);
    EXPECT_EQ(ReadFile(Native(u"letter.txt"_s)), "precious");
    EXPECT_FALSE(IsThere(Native(u"nix"_s)));
}

TEST_F(FilesFixture, NothingIsWrittenInAFolderBehindAPlantedLink) {
    MakeFolder(Native(u"documents"_s));
    WriteFile(Native(u"documents/copy.tmp"_s), "precious");
    MakeLink(u"documents"_s, Native(u"tmp"_s));
    EXPECT_EQ(WritingError(Native(u"tmp/copy.tmp"_s)), 70);
    EXPECT_EQ(WritingError(u"E:\\TMP\\copy.tmp"_s), 70);
    EXPECT_EQ(WritingError(Native(u"tmp/new.tmp"_s)), 70);
    EXPECT_EQ(ReadFile(Native(u"documents/copy.tmp"_s)), "precious");
    EXPECT_EQ(NamesIn(Native(u"documents"_s)), QStringList(u"copy.tmp"_s));
}

TEST_F(FilesFixture, ASecondNameOfAnotherFileIsNotWrittenThrough) {
    WriteFile(Native(u"letter.txt"_s), "precious");
    ASSERT_EQ(link(Native(u"letter.txt"_s).toUtf8().constData(),
                   Native(u"copy.tmp"_s).toUtf8().constData()),
              0);
    EXPECT_EQ(WritingError(Native(u"copy.tmp"_s)), 70);
    EXPECT_EQ(ReadFile(Native(u"letter.txt"_s)), "precious");
}

TEST_F(FilesFixture, OnlyRegularFilesAreOpenedForWriting) {
    ASSERT_TRUE(MakePipe(Native(u"pipe"_s)));
    EXPECT_EQ(WritingError(Native(u"pipe"_s)), 70);
    EXPECT_EQ(WritingError(Native()), 70);
    EXPECT_EQ(WritingError(u"E:\\"_s), 70);
}

TEST_F(FilesFixture, AFileNameThatTheDiskRefusesIsADeniedPermission) {
    WriteFile(Native(u"song.mp3"_s), "x");
    for (const QString& name :
         {QString(256, u'a'), u"a"_s + QChar(0xD800), u"a"_s + u'\0' + u'b'}) {
        for (const QString& path : {Native(name), u"E:\\"_s + name}) {
            EXPECT_EQ(WritingError(path), 70);
            EXPECT_EQ(
                NumberOf([&] { m_files.CopyFile(u"E:\\song.mp3"_s, path, Existing::Replace, {}); }),
                70);
            EXPECT_EQ(MoveError(u"E:\\song.mp3"_s, path), 70);
        }
    }
    EXPECT_EQ(NamesIn(Native()), QStringList(u"song.mp3"_s));
}

TEST_F(FilesFixture, NothingIsCreatedOnAReadOnlyDisk) {
    MakeFolder(Native(u"disk"_s));
    MakeFolder(Native(u"shown"_s));
    WriteFile(Native(u"disk/song.mp3"_s), "x");
    const TestMount mount = TestMount::Bind(Native(u"disk"_s), Native(u"shown"_s), true);
    SKIP_UNLESS(mount.IsMounted(), "a read-only folder cannot be mounted here");
    const QString song = Native(u"shown/song.mp3"_s);
    EXPECT_EQ(CreationError(Native(u"shown/new"_s)), 70);
    EXPECT_EQ(WritingError(Native(u"shown/copy.tmp"_s)), 70);
    EXPECT_EQ(NumberOf([&] {
                  m_files.CopyFile(song, Native(u"shown/new.mp3"_s), Existing::Replace, {});
              }),
              70);
    EXPECT_EQ(NumberOf([&] { m_files.DeleteFolder(Native(u"shown"_s), {}); }), 0);
    EXPECT_EQ(MoveError(song, Native(u"shown/new.mp3"_s)), 70);
    EXPECT_EQ(NamesIn(Native(u"disk"_s)), QStringList(u"song.mp3"_s));
}

TEST_F(FilesFixture, WritingToAFullDiskRaisesDiskFull) {
    const TestMount mount = TestMount::Memory(Native());
    SKIP_UNLESS(mount.IsMounted(), "no small disk can be mounted here");
    const std::unique_ptr<BinaryFile> file =
        m_files.OpenForReadingAndWriting(Native(u"copy.tmp"_s));
    const QByteArray bytes = Pattern(2000000);
    EXPECT_EQ(NumberOf([&] { Write(*file, bytes); }), 61);
}

TEST_F(FilesFixture, TheDriveOfADrivePathIsItsFirstTwoCharacters) {
    EXPECT_EQ(m_files.DriveOf(u"E:\\Music\\New"_s), u"E:"_s);
    EXPECT_EQ(m_files.DriveOf(u"q:\\x"_s), u"q:"_s);
}

TEST_F(FilesFixture, TheDriveOfANativePathIsItsMountFolder) {
    const QString disk = Native(u"my disk"_s);
    MakeFolder(disk);
    MakeFolder(disk + u" of others"_s);
    MakeLink(disk, Native(u"link"_s));
    const QString before = m_files.DriveOf(disk);
    EXPECT_TRUE(disk.startsWith(before)) << qPrintable(before);
    const TestMount mount = TestMount::Memory(disk);
    SKIP_UNLESS(mount.IsMounted(), "no disk can be mounted here");
    EXPECT_EQ(m_files.DriveOf(disk), disk);
    EXPECT_EQ(m_files.DriveOf(disk + u"/not/there/yet"_s), disk);
    EXPECT_EQ(m_files.DriveOf(Native(u"link/x"_s)), disk);
    EXPECT_EQ(m_files.DriveOf(disk + u" of others/x"_s), before);
    EXPECT_EQ(m_files.DriveOf(Native()), before);
    const QString inner = disk + u"/inner"_s;
    MakeFolder(inner);
    const TestMount innerMount = TestMount::Memory(inner);
    EXPECT_EQ(m_files.DriveOf(inner + u"/x"_s), inner);
    EXPECT_EQ(m_files.DriveOf(disk), disk);
    EXPECT_EQ(m_files.DriveOf(u"/proc/self/fd"_s), u"/proc"_s);
}

TEST_F(FilesFixture, ATextOfNeitherFormIsOnNoDrive) {
    EXPECT_EQ(m_files.DriveOf(u"Music"_s), QString());
    EXPECT_EQ(m_files.DriveOf(QString()), QString());
    EXPECT_EQ(NumberOf([this] { m_files.FreeBytes(u"Music"_s); }), 76);
}

TEST_F(FilesFixture, FreeBytesAreThoseOfTheNearestFolderThatExists) {
    const TestMount mount = TestMount::Memory(Native());
    SKIP_UNLESS(mount.IsMounted(), "no small disk can be mounted here");
    EXPECT_EQ(m_files.FreeBytes(Native()), 1048576.0);
    EXPECT_EQ(m_files.FreeBytes(Native(u"not/there/yet"_s)), 1048576.0);
    EXPECT_EQ(m_files.FreeBytes(u"E:"_s), 1048576.0);
    EXPECT_EQ(m_files.FreeBytes(u"E:\\not\\there\\yet"_s), 1048576.0);
    WriteFile(Native(u"x"_s), Pattern(4096));
    EXPECT_EQ(m_files.FreeBytes(Native()), 1044480.0);
}

TEST(NameLimitsOfDisks, AreThoseOfTheirType) {
    constexpr auto Bytes = NameLimits::Unit::Utf8Bytes;
    const NameLimits windows = {255, NameLimits::Unit::Utf16Units, true};
    const NameLimits mac = {255, NameLimits::Unit::DecomposedUtf16Units, false};
    struct Row {
        const char* Name;
        quint32 Type;
        long Longest;
        bool IsOnDisk;
        NameLimits Limits;
    };
    for (const Row& row :
         {Row{"FAT", 0x4d44, 1530, true, windows}, Row{"exFAT", 0x2011bab0, 1530, true, windows},
          Row{"NTFS", 0x5346544e, 255, true, windows},
          Row{"NTFS by its newer driver", 0x7366746e, 1530, true, windows},
          Row{"NTFS or exFAT by FUSE", 0x65735546, 1024, true, windows},
          Row{"SMB", 0xff534d42, 255, false, windows},
          Row{"SMB 2", 0xfe534d42, 255, false, windows}, Row{"HFS+", 0x482b, 1530, true, mac},
          Row{"other FUSE", 0x65735546, 200, false, {200, Bytes, false}},
          Row{"ext4", 0xef53, 255, true, {255, Bytes, false}},
          Row{"eCryptfs", 0xf15f, 143, false, {143, Bytes, false}},
          Row{"one that does not know", 0x1234, 0, false, {255, Bytes, false}}}) {
        EXPECT_EQ(NameLimitsByType(row.Type, row.Longest, row.IsOnDisk), row.Limits) << row.Name;
    }
}

TEST_F(FilesFixture, TheLimitsOfNamesAreThoseOfTheFileSystem) {
    const NameLimits limits = m_files.LimitsOf(Native());
    EXPECT_EQ(limits.Longest, pathconf(Native().toUtf8().constData(), _PC_NAME_MAX));
    EXPECT_EQ(limits.CountedIn, NameLimits::Unit::Utf8Bytes);
    EXPECT_FALSE(limits.IsForWindows);
    // Of a folder that is not there yet, those of where it would be made.
    EXPECT_EQ(m_files.LimitsOf(Native(u"new/newer"_s)).Longest, limits.Longest);
    EXPECT_EQ(m_files.LimitsOf(u"nowhere"_s).Longest, 255);
}
