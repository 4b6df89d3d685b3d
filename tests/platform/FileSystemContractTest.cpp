// What the real file system of each system and the fake one answer; the tests of the copy engine
// rest on it.

#include "platform/Paths.h"
#include "tests/fakes/FakeFileSystem.h"
#include "tests/platform/RealDisk.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

enum class Kind { Real, Fake };

class FileSystemContract : public testing::TestWithParam<Kind> {
protected:
    FileSystemContract() {
        MakeFolder(Folder);
        m_fake.AddFolder(Folder);
        for (const QString& file : {Song, Other}) {
            WriteFile(file, file.toUtf8());
            m_fake.AddFile(file, file.toUtf8());
        }
    }

    FileSystem& Files() { return GetParam() == Kind::Real ? m_disk.Files() : m_fake; }
    int CopyError(const QString& source, const QString& target, Existing existing) {
        return NumberOf([&] { Files().CopyFile(source, target, existing, {}); });
    }
    int MoveError(const QString& source, const QString& target, Existing existing) {
        const std::unique_ptr<BinaryFile> file = Files().OpenForReadingAndWriting(source);
        return NumberOf([&] { Files().MoveFile(*file, target, existing, {}); });
    }
    int TargetError(const QString& target, Existing existing) {
        return NumberOf([&] { Files().RequireTarget(target, existing); });
    }
    QByteArray Bytes(const QString& path) {
        return GetParam() == Kind::Real ? ReadFile(path) : m_fake.Bytes(path);
    }

    QString Native(const QString& name) const { return m_disk.Native(name); }

private:
    RealDisk m_disk;
    FakeFileSystem m_fake;

protected:
    const QString Folder = Native(u"folder"_s);
    const QString Song = Native(u"Song.mp3"_s);
    const QString Other = Native(u"Other.mp3"_s);
    const QString Missing = Native(u"Missing.mp3"_s);
};

} // namespace

TEST_P(FileSystemContract, AFolderIsRefusedAsASource) {
    EXPECT_EQ(CopyError(Folder, Missing, Existing::Keep), 53);
    EXPECT_EQ(NumberOf([this] { Files().FileLength(Folder); }), 53);
    EXPECT_EQ(NumberOf([this] { Files().OpenForReading(Folder); }), 53);
}

TEST_P(FileSystemContract, AFolderIsNeverReplacedByAFile) {
    for (const Existing existing : {Existing::Keep, Existing::Replace}) {
        EXPECT_EQ(CopyError(Song, Folder, existing), 70);
        EXPECT_EQ(MoveError(Song, Folder, existing), 70);
        EXPECT_EQ(TargetError(Folder, existing), 70);
    }
    EXPECT_EQ(NumberOf([this] { Files().OpenForReadingAndWriting(Folder); }), 70);
    EXPECT_FALSE(Files().WouldReplace(Folder));
    EXPECT_TRUE(Files().FolderExists(Folder));
}

TEST_P(FileSystemContract, AFileIsNotCopiedOntoItself) {
    EXPECT_EQ(CopyError(Song, Song, Existing::Keep), 58);
    EXPECT_EQ(CopyError(Song, Song, Existing::Replace), 70);
    EXPECT_EQ(MoveError(Song, Song, Existing::Replace), 0);
    EXPECT_EQ(Bytes(Song), Song.toUtf8());
}

TEST_P(FileSystemContract, AFileThatIsToBeKeptIsNotReplaced) {
    EXPECT_TRUE(Files().WouldReplace(Other));
    EXPECT_FALSE(Files().WouldReplace(Missing));
    EXPECT_EQ(CopyError(Song, Other, Existing::Keep), 58);
    EXPECT_EQ(MoveError(Song, Other, Existing::Keep), 58);
    EXPECT_EQ(TargetError(Other, Existing::Keep), 58);
    EXPECT_EQ(TargetError(Other, Existing::Replace), 0);
    EXPECT_EQ(TargetError(Missing, Existing::Keep), 0);
    EXPECT_EQ(Bytes(Other), Other.toUtf8());
    EXPECT_EQ(CopyError(Song, Missing, Existing::Keep), 0);
    EXPECT_EQ(MoveError(Missing, Other, Existing::Replace), 0);
    EXPECT_EQ(Bytes(Other), Song.toUtf8());
}

TEST_P(FileSystemContract, ATargetNeedsItsFolderAndANameThatTheDiskCanHold) {
    EXPECT_EQ(TargetError(Paths::Join(Native(u"nix"_s), u"x"_s), Existing::Replace), 76);
    EXPECT_EQ(TargetError(Native(QString(256, u'a')), Existing::Replace), 70);
}

TEST_P(FileSystemContract, AWrittenFileIsMovedAndDeletedAfterItWasClosedToo) {
    for (const bool isMoved : {true, false}) {
        const std::unique_ptr<BinaryFile> file = Files().OpenForReadingAndWriting(Song);
        file->Close();
        if (isMoved) {
            Files().MoveFile(*file, Missing, Existing::Keep, {});
        }
        Files().DeleteFile(*file);
        EXPECT_FALSE(Files().FileExists(Song));
        EXPECT_TRUE(Files().FileExists(Missing));
    }
}

// Windows lets nobody take the name of a file that is open for writing; elsewhere it may go.
TEST_P(FileSystemContract, WhatHasTakenAWrittenFilesNameIsNeitherMovedNorDeleted) {
    const std::unique_ptr<BinaryFile> file = Files().OpenForReadingAndWriting(Song);
    const bool isTaken = MoveError(Other, Song, Existing::Replace) == 0;
    const int error = NumberOf([&] { Files().MoveFile(*file, Missing, Existing::Keep, {}); });
    Files().DeleteFile(*file);
    EXPECT_EQ(error, isTaken ? 70 : 0);
    EXPECT_EQ(Bytes(isTaken ? Song : Missing), (isTaken ? Other : Song).toUtf8());
    EXPECT_EQ(Files().FileExists(Missing), !isTaken);
}

INSTANTIATE_TEST_SUITE_P(Kinds, FileSystemContract, testing::Values(Kind::Real, Kind::Fake),
                         [](const auto& kind) {
                             return kind.param == Kind::Real ? "Real" : "Fake";
                         });
