// The fake keeps the promises of the service it stands for; the tests of the copy engine rest on
// them.

#include "tests/fakes/FakeFileSystem.h"
#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

namespace {

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

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
        files.AddDrive(Text("E:"));
        files.AddFile(Text("E:\\Music\\a.mp3"), "song", 5);
        files.AddFolder(Text("D:\\Out"));
    }

    const QString source = Text("E:\\Music\\a.mp3");
    const QString target = Text("D:\\Out\\a.mp3");
    FakeFileSystem files;
};

} // namespace

TEST_F(FakeFileSystemTest, DriveFormIsFoundWhateverItsCaseAndNativeFormExactly) {
    files.AddFile(Text("/home/ana/A.mp3"), "a");
    EXPECT_TRUE(files.FileExists(Text("e:\\music\\A.MP3")));
    EXPECT_TRUE(files.FolderExists(Text("e:\\MUSIC\\")));
    files.AddFile(Text("E:\\Music\\R\u00F3s.mp3"), "a");
    EXPECT_TRUE(files.FileExists(Text("E:\\Music\\RO\u0301S.mp3")));
    EXPECT_TRUE(files.FileExists(Text("/home/ana/A.mp3")));
    EXPECT_FALSE(files.FileExists(Text("/home/ana/a.mp3")));
    EXPECT_FALSE(files.FileExists(Text("E:\\Music")));
    EXPECT_FALSE(files.FolderExists(source));
    EXPECT_FALSE(files.FolderExists(QString()));
    EXPECT_TRUE(files.FolderExists(Text("E:")));
    EXPECT_TRUE(files.FolderExists(Text("/")));
}

TEST_F(FakeFileSystemTest, TheIpodHoldsWhatLiesBelowItsRoot) {
    EXPECT_FALSE(files.IsOnIpod(Text("E:\\Music")));
    files.IpodRoot = Text("E:");
    EXPECT_TRUE(files.IsOnIpod(Text("e:\\")));
    EXPECT_TRUE(files.IsOnIpod(Text("E:\\Music\\nix")));
    EXPECT_FALSE(files.IsOnIpod(Text("D:\\Music")));
    EXPECT_FALSE(files.IsOnIpod(Text("/Music")));
}

TEST_F(FakeFileSystemTest, WhatIsMissingIsAFileOrItsFolder) {
    EXPECT_EQ(ErrorOf([&] { files.FileLength(Text("E:\\Music\\b.mp3")); }), 53);
    EXPECT_EQ(ErrorOf([&] { files.FileLength(Text("E:\\None\\b.mp3")); }), 76);
    EXPECT_EQ(
        ErrorOf([&] { files.CopyFile(source, Text("D:\\None\\a.mp3"), Existing::Replace, {}); }),
        76);
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(Text("Q:\\x")); }), 76);
}

TEST_F(FakeFileSystemTest, NamesThatADriveRefuses) {
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(Text("D:\\a?")); }), 52);
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(Text("/a:b")); }), 52);
    EXPECT_EQ(
        ErrorOf([&] { files.CopyFile(source, Text("D:\\Out\\a?.mp3"), Existing::Replace, {}); }),
        70);
    EXPECT_EQ(ErrorOf([&] {
                  files.CopyFile(source, Text("D:\\Out\\") + QString(256, QLatin1Char('a')),
                                 Existing::Replace, {});
              }),
              70);
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(Text("D:\\Out")); }), 58);
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
    files.SetFreeBytes(Text("D:"), 10);
    files.CopyFile(source, target, Existing::Replace, {});
    EXPECT_EQ(files.FreeBytes(target), 6);
    files.CopyFile(source, Text("D:\\Out\\b.mp3"), Existing::Replace, {});
    EXPECT_EQ(
        ErrorOf([&] { files.CopyFile(source, Text("D:\\Out\\c.mp3"), Existing::Replace, {}); }),
        61);
    files.DeleteFolder(Text("D:\\Out"), {});
    EXPECT_EQ(files.FreeBytes(Text("D:\\")), 10);
    EXPECT_EQ(files.DriveOf(target), Text("D:"));
}

TEST_F(FakeFileSystemTest, AMoveReplacesTheEarlierFile) {
    files.AddFile(Text("D:\\Out\\tmp"), "new");
    files.AddFile(target, "old");
    files.MoveFile(*files.OpenForReadingAndWriting(Text("D:\\Out\\tmp")), target, Existing::Replace,
                   {});
    EXPECT_EQ(files.FilesBelow(Text("D:")), QStringList{target});
    EXPECT_EQ(files.Bytes(target), QByteArray("new"));
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

TEST_F(FakeFileSystemTest, CallsAreRecordedInOrderAndChangesByFolder) {
    files.FileExists(source);
    files.CopyFile(source, target, Existing::Replace, {});
    files.OpenForReading(source)->Close();
    EXPECT_EQ(files.CallTexts(), QStringList({Text("FileExists E:\\Music\\a.mp3"),
                                              Text("CopyFile E:\\Music\\a.mp3 > D:\\Out\\a.mp3"),
                                              Text("OpenForReading E:\\Music\\a.mp3"),
                                              Text("Close E:\\Music\\a.mp3")}));
    EXPECT_EQ(files.ChangesBelow(Text("E:")), QStringList());
    EXPECT_EQ(files.ChangesBelow(Text("D:")),
              QStringList{Text("CopyFile E:\\Music\\a.mp3 > D:\\Out\\a.mp3")});
}

TEST_F(FakeFileSystemTest, APulledDriveIsGoneAndItsOpenFilesFail) {
    auto file = files.OpenForReading(source);
    files.RemoveDrive(Text("E:"));
    char byte = 0;
    EXPECT_EQ(ErrorOf([&] { file->Read(&byte, 1); }), 57);
    EXPECT_FALSE(files.FileExists(source));
    EXPECT_EQ(ErrorOf([&] { files.CopyFile(source, target, Existing::Replace, {}); }), 76);
    EXPECT_EQ(ErrorOf([&] { files.FreeBytes(Text("E:")); }), 68);
}

TEST_F(FakeFileSystemTest, AMountPointHasItsOwnSpaceAndADriveIsNotDeleted) {
    files.AddDrive(Text("/media/stick"), 100);
    files.AddFolder(Text("/home/ana"));
    EXPECT_EQ(files.DriveOf(Text("/media/stick/Music")), Text("/media/stick"));
    EXPECT_EQ(files.FreeBytes(Text("/media/stick/Music")), 100);
    EXPECT_EQ(files.DriveOf(Text("/media/other")), Text("/"));
    files.DeleteFolder(Text("/media/stick"), {});
    EXPECT_TRUE(files.HasFolder(Text("/media/stick")));
}
