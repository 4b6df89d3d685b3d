#include "platform/linux/LinuxFileSystem.h"

#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class MoveFixture : public LinuxFixture {};

} // namespace

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
