#include "platform/linux/LinuxFileSystem.h"

#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

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

TEST_F(MoveFixture, OnADriveAMovedFileReplacesOneInAnotherCase) {
    WriteFile(Native(u"copy.tmp"_s), "new");
    WriteFile(Native(u"Song.mp3"_s), "old");
    EXPECT_EQ(MoveError(u"E:\\copy.tmp"_s, u"E:\\SONG.MP3"_s), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList(u"Song.mp3"_s));
    EXPECT_EQ(ReadFile(Native(u"Song.mp3"_s)), "new");
}

TEST_F(MoveFixture, AFileIsMovedToAnotherDiskToo) {
    MakeFolder(Native(u"disk"_s));
    const TestMount mount = TestMount::Memory(Native(u"disk"_s));
    SKIP_UNLESS(mount.IsMounted(), "no second disk can be mounted here");
    WriteFile(Native(u"copy.tmp"_s), Pattern(500000));
    const QString target = Native(u"disk/Song.mp3"_s);
    EXPECT_EQ(MoveError(Native(u"copy.tmp"_s), target), 0);
    EXPECT_EQ(ReadFile(target), Pattern(500000));
    EXPECT_FALSE(IsThere(Native(u"copy.tmp"_s)));

    WriteFile(Native(u"copy.tmp"_s), Pattern(2000000));
    EXPECT_EQ(MoveError(Native(u"copy.tmp"_s), target), 61);
    EXPECT_EQ(ReadFile(target), Pattern(500000));
    EXPECT_EQ(ReadFile(Native(u"copy.tmp"_s)), Pattern(2000000));
    EXPECT_EQ(NamesIn(Native(u"disk"_s)), QStringList(u"Song.mp3"_s));
}

TEST_F(MoveFixture, AMoveNeedsTheTargetsFolder) {
    WriteFile(Native(u"copy.tmp"_s), "new");
    EXPECT_EQ(MoveError(Native(u"copy.tmp"_s), Native(u"nix/x"_s)), 76);
    EXPECT_EQ(ReadFile(Native(u"copy.tmp"_s)), "new");
}

TEST_F(MoveFixture, AMoveLeavesAnEarlierFileThatMayNotBeWritten) {
    WriteFile(Native(u"copy.tmp"_s), "new");
    WriteFile(Native(u"Song.mp3"_s), "old");
    SetMode(Native(), 0777);
    SetMode(Native(u"Song.mp3"_s), 0444);
    const int number = NumberOfNobody([this] {
        m_files.MoveFile(*m_files.OpenForReadingAndWriting(Native(u"copy.tmp"_s)),
                         Native(u"Song.mp3"_s), Existing::Replace, {});
    });
    SKIP_UNLESS(number != -1, "this process cannot become another user");
    EXPECT_EQ(number, 70);
    EXPECT_EQ(ReadFile(Native(u"Song.mp3"_s)), "old");
}

TEST_F(MoveFixture, AMoveOntoItselfKeepsTheFile) {
    WriteFile(Native(u"Song.mp3"_s), "x");
    EXPECT_EQ(MoveError(u"E:\\Song.mp3"_s, u"E:\\SONG.MP3"_s), 0);
    EXPECT_EQ(ReadFile(Native(u"Song.mp3"_s)), "x");
}

TEST_F(MoveFixture, AWrittenFileTakesTheModificationTimeOfItsSourceAlsoWhenItIsClosed) {
    WriteFile(Native(u"source"_s), "x");
    SetModified(Native(u"source"_s), {1234567890, 123456789});
    const auto source = m_files.OpenForReading(u"E:\\SOURCE"_s);
    const auto target = m_files.OpenForReadingAndWriting(u"E:\\target"_s);
    target->WriteFrom(*source, 1, {});
    target->Close();
    target->TakeModificationTime(*source);
    EXPECT_EQ(ModifiedAt(Native(u"target"_s)).tv_sec, 1234567890);
    EXPECT_EQ(ModifiedAt(Native(u"target"_s)).tv_nsec, 123456789);
}
