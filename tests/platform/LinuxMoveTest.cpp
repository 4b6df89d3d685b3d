#include "platform/linux/LinuxFileSystem.h"

#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

class MoveFixture : public LinuxFixture {};

timespec ModifiedAt(const QString& path) {
    struct stat info {};
    EXPECT_EQ(stat(path.toUtf8().constData(), &info), 0);
    return info.st_mtim;
}

void SetModified(const QString& path, const timespec& time) {
    const timespec times[2] = {{0, UTIME_OMIT}, time};
    ASSERT_EQ(utimensat(AT_FDCWD, path.toUtf8().constData(), times, 0), 0);
}

} // namespace

TEST_F(MoveFixture, AMovedFileReplacesAnEarlierOne) {
    WriteFile(Native(QStringLiteral("copy.tmp")), "new");
    WriteFile(Native(QStringLiteral("Song.mp3")), "old");
    EXPECT_EQ(MoveError(QStringLiteral("E:\\copy.tmp"), QStringLiteral("E:\\Song.mp3")), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList(QStringLiteral("Song.mp3")));
    EXPECT_EQ(ReadFile(Native(QStringLiteral("Song.mp3"))), "new");
}

TEST_F(MoveFixture, OnADriveAMovedFileReplacesOneInAnotherCase) {
    WriteFile(Native(QStringLiteral("copy.tmp")), "new");
    WriteFile(Native(QStringLiteral("Song.mp3")), "old");
    EXPECT_EQ(MoveError(QStringLiteral("E:\\copy.tmp"), QStringLiteral("E:\\SONG.MP3")), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList(QStringLiteral("Song.mp3")));
    EXPECT_EQ(ReadFile(Native(QStringLiteral("Song.mp3"))), "new");
}

TEST_F(MoveFixture, AFileIsMovedToAnotherDiskToo) {
    MakeFolder(Native(QStringLiteral("disk")));
    const TestMount mount = TestMount::Memory(Native(QStringLiteral("disk")));
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no second disk can be mounted here";
    }
    WriteFile(Native(QStringLiteral("copy.tmp")), Pattern(500000));
    const QString target = Native(QStringLiteral("disk/Song.mp3"));
    EXPECT_EQ(MoveError(Native(QStringLiteral("copy.tmp")), target), 0);
    EXPECT_EQ(ReadFile(target), Pattern(500000));
    EXPECT_FALSE(IsThere(Native(QStringLiteral("copy.tmp"))));

    WriteFile(Native(QStringLiteral("copy.tmp")), Pattern(2000000));
    EXPECT_EQ(MoveError(Native(QStringLiteral("copy.tmp")), target), 61);
    EXPECT_EQ(ReadFile(target), Pattern(500000));
    EXPECT_EQ(ReadFile(Native(QStringLiteral("copy.tmp"))), Pattern(2000000));
    EXPECT_EQ(NamesIn(Native(QStringLiteral("disk"))), QStringList(QStringLiteral("Song.mp3")));
}

TEST_F(MoveFixture, AMoveOntoAFolderIsADeniedPermission) {
    WriteFile(Native(QStringLiteral("copy.tmp")), "new");
    MakeFolder(Native(QStringLiteral("Song.mp3")));
    EXPECT_EQ(MoveError(Native(QStringLiteral("copy.tmp")), Native(QStringLiteral("Song.mp3"))),
              70);
    EXPECT_EQ(NamesIn(Native()),
              QStringList({QStringLiteral("Song.mp3"), QStringLiteral("copy.tmp")}));
}

TEST_F(MoveFixture, AMoveNeedsTheTargetsFolder) {
    WriteFile(Native(QStringLiteral("copy.tmp")), "new");
    EXPECT_EQ(MoveError(Native(QStringLiteral("copy.tmp")), Native(QStringLiteral("nix/x"))), 76);
    EXPECT_EQ(ReadFile(Native(QStringLiteral("copy.tmp"))), "new");
}

TEST_F(MoveFixture, AMoveLeavesAnEarlierFileThatMayNotBeWritten) {
    WriteFile(Native(QStringLiteral("copy.tmp")), "new");
    WriteFile(Native(QStringLiteral("Song.mp3")), "old");
    SetMode(Native(), 0777);
    SetMode(Native(QStringLiteral("Song.mp3")), 0444);
    const int number = NumberOfNobody([this] {
        m_files.MoveFile(*m_files.OpenForReadingAndWriting(Native(QStringLiteral("copy.tmp"))),
                         Native(QStringLiteral("Song.mp3")), Existing::Replace, {});
    });
    if (number == -1) {
        GTEST_SKIP() << "this process cannot become another user";
    }
    EXPECT_EQ(number, 70);
    EXPECT_EQ(ReadFile(Native(QStringLiteral("Song.mp3"))), "old");
}

TEST_F(MoveFixture, AMoveOntoItselfKeepsTheFile) {
    WriteFile(Native(QStringLiteral("Song.mp3")), "x");
    EXPECT_EQ(MoveError(QStringLiteral("E:\\Song.mp3"), QStringLiteral("E:\\SONG.MP3")), 0);
    EXPECT_EQ(ReadFile(Native(QStringLiteral("Song.mp3"))), "x");
}

TEST_F(MoveFixture, AWrittenFileTakesTheModificationTimeOfItsSourceAlsoWhenItIsClosed) {
    WriteFile(Native(QStringLiteral("source")), "x");
    SetModified(Native(QStringLiteral("source")), {1234567890, 123456789});
    const auto source = m_files.OpenForReading(QStringLiteral("E:\\SOURCE"));
    const auto target = m_files.OpenForReadingAndWriting(QStringLiteral("E:\\target"));
    target->WriteFrom(*source, 1, {});
    target->Close();
    target->TakeModificationTime(*source);
    EXPECT_EQ(ModifiedAt(Native(QStringLiteral("target"))).tv_sec, 1234567890);
    EXPECT_EQ(ModifiedAt(Native(QStringLiteral("target"))).tv_nsec, 123456789);
}
