// What the fake promises and no test of the copy engine would miss.

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
    EXPECT_EQ(ErrorOf([&] { files.CreateFolder(u"D:\\Out"_s); }), 58);
    for (const QString& name : {u"a?.mp3"_s, QString(256, u'a')}) {
        const QString refused = u"D:\\Out\\"_s + name;
        EXPECT_EQ(ErrorOf([&] { files.CopyFile(source, refused, Existing::Replace, {}); }), 70);
    }
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
