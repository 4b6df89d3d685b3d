// The fake keeps the promises of the service it stands for; the tests of the copy engine rest on
// them.

#include "tests/fakes/FakeFileSystem.h"
#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

template <class Action>
int ErrorOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return int(error.Number);
    }
    return 0;
}

class FakeFileSystemTest : public testing::Test {
protected:
    FakeFileSystemTest() {
        files.AddDrive(u"E:"_s);
        files.AddFile(u"E:\\Music\\a.mp3"_s, "song", 5);
        files.AddFolder(u"D:\\Out"_s);
    }

    const QString source = u"E:\\Music\\a.mp3"_s;
    const QString target = u"D:\\Out\\a.mp3"_s;
    FakeFileSystem files;
};

} // namespace

TEST_F(FakeFileSystemTest, DriveFormIsFoundWhateverItsCaseAndNativeFormExactly) {
    files.AddFile(u"/home/ana/A.mp3"_s, "a");
    EXPECT_TRUE(files.FileExists(u"e:\\music\\A.MP3"_s));
    EXPECT_TRUE(files.FolderExists(u"e:\\MUSIC\\"_s));
    files.AddFile(u"E:\\Music\\R\u00F3s.mp3"_s, "a");
    EXPECT_TRUE(files.FileExists(u"E:\\Music\\RO\u0301S.mp3"_s));
    EXPECT_TRUE(files.FileExists(u"/home/ana/A.mp3"_s));
    EXPECT_FALSE(files.FileExists(u"/home/ana/a.mp3"_s));
    EXPECT_FALSE(files.FileExists(u"E:\\Music"_s));
    EXPECT_FALSE(files.FolderExists(source));
    EXPECT_FALSE(files.FolderExists(QString()));
    EXPECT_TRUE(files.FolderExists(u"E:"_s));
    EXPECT_TRUE(files.FolderExists(u"/"_s));
}

TEST_F(FakeFileSystemTest, WhatIsMissingIsAFileOrItsFolder) {
    EXPECT_EQ(ErrorOf([&] { files.FileLength(u"E:\\Music\\b.mp3"_s); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.FileLength(u"E:\\None\\b.mp3"_s); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.CopyFile(source, u"D:\\None\\a.mp3"_s, Existing::Replace, {}); }),
              76);
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(u"Q:\\x"_s); }), 76);
}

TEST_F(FakeFileSystemTest, NamesThatADriveRefuses) {
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(u"D:\\a?"_s); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(u"/a:b"_s); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.CopyFile(source, u"D:\\Out\\a?.mp3"_s, Existing::Replace, {}); }),
              70);
    EXPECT_EQ(ErrorOf([&] {
                  files.CopyFile(source, u"D:\\Out\\"_s + QString(256, u'a'), Existing::Replace,
                                 {});
              }),
              70);
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(u"D:\\Out"_s); }), 58);
}

TEST_F(FakeFileSystemTest, ACopyAppearsWholeOrNotAtAll) {
    files.AddFile(target, "old");
    files.DiskFullAfter(3);
    EXPECT_EQ(ErrorOf([&] { files.CopyFile(source, target, Existing::Replace, {}); }), 61);
    EXPECT_EQ(files.Bytes(target), QByteArray("old"));
    files.ClearFailures();
    files.CopyFile(source, target, Existing::Replace, {});
    EXPECT_EQ(files.Bytes(target), QByteArray("song"));
    EXPECT_EQ(files.ModificationTime(target), 5);
}

TEST_F(FakeFileSystemTest, BytesWrittenCountAgainstTheFreeSpaceAndDeletedOnesComeBack) {
    files.SetFreeBytes(u"D:"_s, 10);
    files.CopyFile(source, target, Existing::Replace, {});
    EXPECT_EQ(files.FreeBytes(target), 6);
    files.CopyFile(source, u"D:\\Out\\b.mp3"_s, Existing::Replace, {});
    EXPECT_EQ(ErrorOf([&] { files.CopyFile(source, u"D:\\Out\\c.mp3"_s, Existing::Replace, {}); }),
              61);
    files.DeleteFolder(u"D:\\Out"_s, {});
    EXPECT_EQ(files.FreeBytes(u"D:\\"_s), 10);
    EXPECT_EQ(files.DriveOf(target), u"D:"_s);
}

TEST_F(FakeFileSystemTest, AnOpenedFileIsNotEmptiedAndCanBeCut) {
    files.AddFile(target, "0123456789");
    auto file = files.OpenForReadingAndWriting(target);
    files.AddFile(source, "ab");
    file->WriteFrom(*files.OpenForReading(source), 2, {});
    EXPECT_EQ(files.Bytes(target), QByteArray("ab23456789"));
    file->Truncate(4);
    file->Close();
    EXPECT_EQ(files.Bytes(target), QByteArray("ab23"));
    EXPECT_EQ(files.OpenFiles, 0);
}

TEST_F(FakeFileSystemTest, ReadingBehindTheEndIsADeviceThatFails) {
    auto file = files.OpenForReading(source);
    char buffer[8] = {};
    file->Read(buffer, 3);
    EXPECT_EQ(QByteArray(buffer, 3), QByteArray("son"));
    EXPECT_EQ(ErrorOf([&] { file->Read(buffer, 2); }), 57);
    EXPECT_EQ(ErrorOf([&] { file->WriteFrom(*files.OpenForReading(source), 1, {}); }), 70);
}

TEST_F(FakeFileSystemTest, ALargeFileDiffersFromItsCopyWhenAnyBlockOfItIsMisplaced) {
    files.AddLargeFile(source, 120000000, 7);
    files.AddLargeFile(target, 120000000, 7);
    EXPECT_TRUE(files.SameContent(source, target));
    files.AddLargeFile(target, 120000000, 8);
    EXPECT_FALSE(files.SameContent(source, target));
    files.AddLargeFile(target, 119999999, 7);
    EXPECT_FALSE(files.SameContent(source, target));
    auto file = files.OpenForReading(source);
    QByteArray block(1000000, Qt::Uninitialized);
    file->Read(block.data(), block.size());
    files.AddLargeFile(target, 120000000, 7);
    files.OpenForReadingAndWriting(target)->WriteFrom(*file, block.size(), {});
    EXPECT_FALSE(files.SameContent(source, target));
}

TEST_F(FakeFileSystemTest, FailuresStrikeWhereTheyWereAskedFor) {
    files.FailNthCall(2, ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(ErrorOf([&] { files.FileLength(source); }), 0);
    EXPECT_EQ(ErrorOf([&] { files.FileLength(source); }), 68);
    EXPECT_EQ(ErrorOf([&] { files.FileLength(source); }), 0);
    files.FailNthCall(FileCall::CopyFile, 1, ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorOf([&] { files.FileLength(source); }), 0);
    EXPECT_EQ(ErrorOf([&] { files.CopyFile(source, target, Existing::Replace, {}); }), 70);
    files.FailPath(source, ErrorNumber::DeviceIOError);
    EXPECT_EQ(ErrorOf([&] { files.CopyFile(source, target, Existing::Replace, {}); }), 57);
    EXPECT_FALSE(files.FileExists(source));
    EXPECT_EQ(files.FailuresStruck, 4);
    files.ClearFailures();
    EXPECT_EQ(ErrorOf([&] { files.CopyFile(source, target, Existing::Replace, {}); }), 0);
}

TEST_F(FakeFileSystemTest, APulledDriveIsGoneAndItsOpenFilesFail) {
    auto file = files.OpenForReading(source);
    files.RemoveDrive(u"E:"_s);
    char byte = 0;
    EXPECT_EQ(ErrorOf([&] { file->Read(&byte, 1); }), 57);
    EXPECT_FALSE(files.FileExists(source));
    EXPECT_EQ(ErrorOf([&] { files.CopyFile(source, target, Existing::Replace, {}); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.FreeBytes(u"E:"_s); }), 68);
}

TEST_F(FakeFileSystemTest, AMountPointHasItsOwnSpaceAndADriveIsNotDeleted) {
    files.AddDrive(u"/media/stick"_s, 100);
    files.AddFolder(u"/home/ana"_s);
    EXPECT_EQ(files.DriveOf(u"/media/stick/Music"_s), u"/media/stick"_s);
    EXPECT_EQ(files.FreeBytes(u"/media/stick/Music"_s), 100);
    EXPECT_EQ(files.DriveOf(u"/media/other"_s), u"/"_s);
    files.DeleteFolder(u"/media/stick"_s, {});
    EXPECT_TRUE(files.HasFolder(u"/media/stick"_s));
}
