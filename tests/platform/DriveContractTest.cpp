// What every system's drives answer.

#include "tests/platform/RealDisk.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(DriveContract, DrivesStandInTheOrderOfTheirLettersAndTellWhetherTheyAreRemovable) {
    RealDisk disk;
    const std::vector<Drive> drives = disk.Drives().Drives();
    ASSERT_FALSE(drives.empty());
    QChar last;
    for (const Drive& drive : drives) {
        EXPECT_GT(drive.Letter, last);
        EXPECT_EQ(drive.Path, drive.Letter + u":"_s);
        EXPECT_NO_THROW(disk.Drives().IsRemovable(drive));
        last = drive.Letter;
    }
}

TEST(DriveContract, ADriveThatIsGoneIsUnavailable) {
    RealDisk disk;
    const Drive gone{u'R', u"R:"_s};
    EXPECT_EQ(NumberOf([&] { disk.Drives().IsRemovable(gone); }), 68);
    EXPECT_EQ(NumberOf([&] { disk.Drives().VolumeName(gone); }), 68);
    EXPECT_FALSE(disk.Files().FolderExists(gone.Path));
    EXPECT_EQ(NumberOf([&] { disk.Files().FreeBytes(gone.Path); }), 68);
    EXPECT_EQ(NumberOf([&] { disk.Files().OpenForReading(u"R:\\a\\b.mp3"_s); }), 76);
}
