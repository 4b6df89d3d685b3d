#include "tests/platform/FileContract.h"

#include "platform/NameRules.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

std::shared_ptr<char> Buffer(size_t size) {
    const auto bytes = std::make_shared<char[]>(size);
    return {bytes, bytes.get()};
}

const QString Part = QString::fromLatin1(PartName);

class FileSystemContract : public FileContract {};

} // namespace

TEST_P(FileSystemContract, AFolderIsRefusedAsASource) {
    Files().CreateFolder(At(u"folder"_s));
    EXPECT_EQ(CopyError(u"folder"_s, u"new.mp3"_s, Existing::Keep), 53);
    EXPECT_EQ(NumberOf([this] { Files().FileLength(At(u"folder"_s)); }), 53);
    EXPECT_EQ(NumberOf([this] { Files().OpenForReading(At(u"folder"_s)); }), 53);
}

TEST_P(FileSystemContract, AFolderIsNeverReplacedByAFile) {
    Files().CreateFolder(At(u"folder"_s));
    for (const Existing existing : {Existing::Keep, Existing::Replace}) {
        EXPECT_EQ(CopyError(u"Song.mp3"_s, u"folder"_s, existing), 70);
        EXPECT_EQ(MoveError(u"Song.mp3"_s, u"folder"_s, existing), 70);
        EXPECT_EQ(TargetError(At(u"folder"_s), existing), 70);
    }
    EXPECT_EQ(WritingError(u"folder"_s), 70);
    EXPECT_FALSE(Files().WouldReplace(At(u"folder"_s)));
    EXPECT_TRUE(Files().FolderExists(At(u"folder"_s)));
}

TEST_P(FileSystemContract, AFileIsNotCopiedOntoItself) {
    EXPECT_EQ(CopyError(u"Song.mp3"_s, u"Song.mp3"_s, Existing::Keep), 58);
    EXPECT_EQ(CopyError(u"Song.mp3"_s, u"Song.mp3"_s, Existing::Replace), 70);
    EXPECT_EQ(MoveError(u"Song.mp3"_s, u"Song.mp3"_s, Existing::Replace), 0);
    EXPECT_EQ(Bytes(u"Song.mp3"_s), "song");
}

TEST_P(FileSystemContract, AFileThatIsToBeKeptIsNotReplaced) {
    EXPECT_TRUE(Files().WouldReplace(At(u"Other.mp3"_s)));
    EXPECT_FALSE(Files().WouldReplace(At(u"new.mp3"_s)));
    EXPECT_EQ(CopyError(u"Song.mp3"_s, u"Other.mp3"_s, Existing::Keep), 58);
    EXPECT_EQ(MoveError(u"Song.mp3"_s, u"Other.mp3"_s, Existing::Keep), 58);
    EXPECT_EQ(TargetError(At(u"Other.mp3"_s), Existing::Keep), 58);
    EXPECT_EQ(TargetError(At(u"Other.mp3"_s), Existing::Replace), 0);
    EXPECT_EQ(TargetError(At(u"new.mp3"_s), Existing::Keep), 0);
    EXPECT_EQ(Bytes(u"Other.mp3"_s), "other");
    EXPECT_EQ(CopyError(u"Song.mp3"_s, u"new.mp3"_s, Existing::Keep), 0);
    EXPECT_EQ(MoveError(u"new.mp3"_s, u"Other.mp3"_s, Existing::Replace), 0);
    EXPECT_EQ(Bytes(u"Other.mp3"_s), "song");
}

TEST_P(FileSystemContract, ATargetNeedsItsFolderAndANameThatTheDiskCanHold) {
    EXPECT_EQ(TargetError(At(u"nix/x"_s), Existing::Replace), 76);
    EXPECT_EQ(TargetError(At(QString(256, u'a')), Existing::Replace), 70);
    EXPECT_EQ(CopyError(u"Song.mp3"_s, u"nix/x"_s, Existing::Replace), 76);
    EXPECT_EQ(MoveError(u"Song.mp3"_s, u"nix/x"_s, Existing::Replace), 76);
    EXPECT_EQ(WritingError(u"nix/x"_s), 76);
    EXPECT_EQ(Bytes(u"Song.mp3"_s), "song");
}

TEST_P(FileSystemContract, AMissingFileIsDistinguishedFromAMissingFolder) {
    EXPECT_EQ(Files().FileLength(At(u"Other.mp3"_s)), 5);
    EXPECT_EQ(NumberOf([this] { Files().FileLength(At(u"nix.mp3"_s)); }), 53);
    EXPECT_EQ(NumberOf([this] { Files().FileLength(At(u"nix/nix.mp3"_s)); }), 76);
    EXPECT_EQ(NumberOf([this] { Files().OpenForReading(At(u"Song.mp3/x"_s)); }), 76);
    EXPECT_EQ(CopyError(u"nix.mp3"_s, u"x"_s, Existing::Keep), 53);
    EXPECT_EQ(CopyError(u"nix/nix.mp3"_s, u"x"_s, Existing::Keep), 76);
}

TEST_P(FileSystemContract, AStoppedCopyLeavesNothing) {
    const CopyControl control;
    control.Stop();
    EXPECT_FALSE(Files().CopyFile(At(u"Song.mp3"_s), At(u"x"_s), Existing::Keep, control));
    EXPECT_FALSE(Files().WouldReplace(At(u"x"_s)));
    EXPECT_FALSE(Files().WouldReplace(At(Part)));
}

TEST_P(FileSystemContract, BlocksAreReadOneAfterTheOtherUpToTheEnd) {
    const std::unique_ptr<BinaryFile> file = Files().OpenForReading(At(u"Other.mp3"_s));
    const std::shared_ptr<char> bytes = Buffer(3);
    file->Read(bytes, 3);
    EXPECT_EQ(QByteArray(bytes.get(), 3), "oth");
    file->Read(bytes, 0);
    file->Read(bytes, 2);
    EXPECT_EQ(QByteArray(bytes.get(), 2), "er");
    EXPECT_EQ(NumberOf([&] { file->Read(bytes, 1); }), 57);
}

TEST_P(FileSystemContract, AFileIsWrittenFromAnotherStepByStep) {
    for (const qsizetype step : {7, 300000, 3000000}) {
        const QByteArray bytes = Pattern(2 * step);
        Add(u"film.m4v"_s, bytes);
        {
            const auto from = Files().OpenForReading(At(u"film.m4v"_s));
            const auto to = Files().OpenForReadingAndWriting(At(u"copy.tmp"_s));
            to->WriteFrom(*from, step, {});
            to->WriteFrom(*from, step, {});
        }
        EXPECT_EQ(Bytes(u"copy.tmp"_s), bytes);
        const auto from = Files().OpenForReading(At(u"film.m4v"_s));
        const auto to = Files().OpenForReadingAndWriting(At(u"copy.tmp"_s));
        EXPECT_EQ(NumberOf([&] { to->WriteFrom(*from, 2 * step + 1, {}); }), 57);
    }
}

TEST_P(FileSystemContract, AnExistingFileIsOverwrittenFromItsStartAndNotEmptied) {
    Add(u"copy.tmp"_s, "old content");
    {
        const auto from = Files().OpenForReading(At(u"Song.mp3"_s));
        const auto file = Files().OpenForReadingAndWriting(At(u"copy.tmp"_s));
        file->WriteFrom(*from, 4, {});
        const std::shared_ptr<char> rest = Buffer(7);
        file->Read(rest, 7);
        EXPECT_EQ(QByteArray(rest.get(), 7), "content");
        file->Truncate(6);
        file->Close();
    }
    EXPECT_EQ(Bytes(u"copy.tmp"_s), "songco");
}

TEST_P(FileSystemContract, AWrittenFileIsMovedAndDeletedAfterItWasClosedToo) {
    for (const bool isMoved : {true, false}) {
        const std::unique_ptr<BinaryFile> file =
            Files().OpenForReadingAndWriting(At(u"Song.mp3"_s));
        file->Close();
        if (isMoved) {
            Files().MoveFile(*file, At(u"new.mp3"_s), Existing::Keep, {});
        }
        Files().DeleteFile(*file);
        EXPECT_FALSE(Files().FileExists(At(u"Song.mp3"_s)));
        EXPECT_TRUE(Files().FileExists(At(u"new.mp3"_s)));
    }
}

// Windows lets nobody take the name of a file that is open for writing; elsewhere it may go.
TEST_P(FileSystemContract, WhatHasTakenAWrittenFilesNameIsNeitherMovedNorDeleted) {
    const std::unique_ptr<BinaryFile> file = Files().OpenForReadingAndWriting(At(u"Song.mp3"_s));
    const bool isTaken = MoveError(u"Other.mp3"_s, u"Song.mp3"_s, Existing::Replace) == 0;
    const int error =
        NumberOf([&] { Files().MoveFile(*file, At(u"new.mp3"_s), Existing::Keep, {}); });
    Files().DeleteFile(*file);
    EXPECT_EQ(error, isTaken ? 70 : 0);
    EXPECT_EQ(Bytes(isTaken ? u"Song.mp3"_s : u"new.mp3"_s), isTaken ? "other" : "song");
    EXPECT_EQ(Files().FileExists(At(u"new.mp3"_s)), !isTaken);
}

TEST_P(FileSystemContract, WhatIsOpenForReadingCannotBeWritten) {
    const auto from = Files().OpenForReading(At(u"Other.mp3"_s));
    const auto file = Files().OpenForReading(At(u"Song.mp3"_s));
    EXPECT_NE(NumberOf([&] { file->WriteFrom(*from, 5, {}); }), 0);
    EXPECT_NE(NumberOf([&] { file->Truncate(0); }), 0);
    EXPECT_EQ(Bytes(u"Song.mp3"_s), "song");
}

TEST_P(FileSystemContract, AFileThatIsBeingWrittenIsNobodyElsesUntilItsWriterIsGone) {
    {
        const auto writing = Files().OpenForReadingAndWriting(At(u"copy.tmp"_s));
        EXPECT_EQ(WritingError(u"copy.tmp"_s), 70);
        writing->Close();
        EXPECT_EQ(WritingError(u"copy.tmp"_s), 70);
        Files().MoveFile(*writing, At(u"film.m4v"_s), Existing::Replace, {});
        EXPECT_EQ(WritingError(u"copy.tmp"_s), 0);
    }
    EXPECT_EQ(WritingError(u"film.m4v"_s), 0);
}

TEST_P(FileSystemContract, ACopyHasTheBytesAndTheTimeOfItsSource) {
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(1234567890000);
    Add(u"Song.mp3"_s, Pattern(3'000'001));
    QFile song(m_disk.Native(u"Song.mp3"_s));
    ASSERT_TRUE(song.open(QIODevice::ReadWrite) &&
                song.setFileTime(time, QFileDevice::FileModificationTime));
    song.close();
    const CopyControl control;
    EXPECT_TRUE(Files().CopyFile(At(u"Song.mp3"_s), At(u"Copy.mp3"_s), Existing::Keep, control));
    EXPECT_EQ(control.BytesDone(), 3'000'001);
    {
        const auto from = Files().OpenForReading(At(u"Song.mp3"_s));
        const auto to = Files().OpenForReadingAndWriting(At(u"Other.mp3"_s));
        to->WriteFrom(*from, 3'000'001, {});
        to->Close();
        to->TakeModificationTime(*from);
    }
    for (const QString& copy : {u"Copy.mp3"_s, u"Other.mp3"_s}) {
        EXPECT_EQ(ReadFile(m_disk.Native(copy)), Pattern(3'000'001));
        EXPECT_EQ(QFileInfo(m_disk.Native(copy)).lastModified(), time);
    }
}

TEST_P(FileSystemContract, AFileThatWasOpenedAheadIsTakenOnlyIfItIsStillTheOneAtItsPath) {
    Files().ReadAhead(At(u"Song.mp3"_s));
    EXPECT_EQ(CopyError(u"Song.mp3"_s, u"same"_s, Existing::Keep), 0);
    Files().ReadAhead(At(u"Song.mp3"_s));
    ASSERT_TRUE(QFile::rename(m_disk.Native(u"Song.mp3"_s), m_disk.Native(u"elsewhere"_s)));
    ASSERT_TRUE(QFile::rename(m_disk.Native(u"Other.mp3"_s), m_disk.Native(u"Song.mp3"_s)));
    EXPECT_EQ(CopyError(u"Song.mp3"_s, u"changed"_s, Existing::Keep), 0);
    EXPECT_EQ(Bytes(u"same"_s), "song");
    EXPECT_EQ(Bytes(u"changed"_s), "other");
}

TEST_P(FileSystemContract, NothingIsGivenThePartName) {
    // Blanks and dots at the end are lost on the drives people carry away.
    for (const QString& name :
         {u".songlift.part"_s, u".SongLift.PART"_s, u".songlift.part."_s, u".songlift.part. "_s}) {
        EXPECT_EQ(CopyError(u"Song.mp3"_s, name, Existing::Replace), 70);
        EXPECT_EQ(MoveError(u"Song.mp3"_s, name, Existing::Replace), 70);
        EXPECT_EQ(CreationError(At(name)), 70);
    }
}

TEST_P(FileSystemContract, OnlyWhatAKilledCopyHasLeftIsRemoved) {
    MakeFolder(m_disk.Native(u"below"_s));
    WriteFile(m_disk.Native(Part), "half of a song");
    WriteFile(m_disk.Native(u"below/"_s + Part), "of another folder");
    Files().RemoveLeftovers(At(QString()));
    EXPECT_EQ(NamesIn(m_disk.Native(QString())),
              QStringList({u"Other.mp3"_s, u"Song.mp3"_s, u"below"_s}));
    EXPECT_EQ(NamesIn(m_disk.Native(u"below"_s)), QStringList(Part));
    Files().RemoveLeftovers(At(u"below/"_s));
    EXPECT_EQ(NamesIn(m_disk.Native(u"below"_s)), QStringList());
    Files().RemoveLeftovers(At(u"nix"_s));
    Files().RemoveLeftovers(QString());
}

TEST(DriveFileContract, OnADriveNamesDifferInMoreThanLetterCase) {
    RealDisk disk;
    FileSystem& files = disk.Files();
    WriteFile(disk.Native(u"Song.mp3"_s), "old");
    WriteFile(disk.Native(u"new"_s), "new");
    const QString upper = disk.OnDrive(u"SONG.MP3"_s);
    EXPECT_TRUE(files.WouldReplace(upper));
    EXPECT_EQ(NumberOf([&] { files.CopyFile(upper, upper, Existing::Replace, {}); }), 70);
    files.CopyFile(disk.OnDrive(u"NEW"_s), upper, Existing::Replace, {});
    EXPECT_EQ(ReadFile(disk.Native(u"Song.mp3"_s)), "new");
    for (const QString& source : {u"new"_s, u"Song.mp3"_s}) { // the second onto itself
        files.MoveFile(*files.OpenForReadingAndWriting(disk.OnDrive(source)), upper,
                       Existing::Replace, {});
        EXPECT_EQ(NamesIn(disk.Native(QString())).join(u' ').toLower(), u"song.mp3"_s);
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, FileSystemContract, testing::Values(Kind::Native, Kind::OnDrive),
                         NameOf);
