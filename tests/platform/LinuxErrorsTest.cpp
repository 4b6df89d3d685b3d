#include "platform/linux/LinuxErrors.h"

#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

int CreationNumberOf(int error) {
    return NumberOf([error] { ThrowCreationError(error); });
}

} // namespace

TEST(SystemError, HasTheNumberThatFits) {
    EXPECT_EQ(int(ErrorNumberOf(ENOENT)), 53);
    EXPECT_EQ(int(ErrorNumberOf(ENOTDIR)), 76);
    EXPECT_EQ(int(ErrorNumberOf(ENOSPC)), 61);
    EXPECT_EQ(int(ErrorNumberOf(EDQUOT)), 61);
    EXPECT_EQ(int(ErrorNumberOf(EACCES)), 70);
    EXPECT_EQ(int(ErrorNumberOf(EPERM)), 70);
    EXPECT_EQ(int(ErrorNumberOf(EROFS)), 70);
    EXPECT_EQ(int(ErrorNumberOf(EFBIG)), 70);
    EXPECT_EQ(int(ErrorNumberOf(EIO)), 57);
    EXPECT_EQ(int(ErrorNumberOf(ENODEV)), 68);
    EXPECT_EQ(int(ErrorNumberOf(ENXIO)), 68);
    EXPECT_EQ(int(ErrorNumberOf(ESTALE)), 68);
}

TEST(SystemError, IsAnAccessErrorWhereNothingElseFits) {
    EXPECT_EQ(int(ErrorNumberOf(EBUSY)), 75);
    EXPECT_EQ(int(ErrorNumberOf(EISDIR)), 75);
    EXPECT_EQ(int(ErrorNumberOf(EMFILE)), 75);
    EXPECT_EQ(int(ErrorNumberOf(EINVAL)), 75);
}

TEST(CreationError, OfANameThatTheFileSystemRefusesIsADeniedPermission) {
    EXPECT_EQ(CreationNumberOf(ENAMETOOLONG), 70);
    EXPECT_EQ(CreationNumberOf(EINVAL), 70);
    EXPECT_EQ(CreationNumberOf(EILSEQ), 70);
    EXPECT_EQ(CreationNumberOf(EISDIR), 70);
    EXPECT_EQ(CreationNumberOf(EEXIST), 70);
}

TEST(CreationError, OfAMissingPlaceIsAMissingFolder) {
    EXPECT_EQ(CreationNumberOf(ENOENT), 76);
    EXPECT_EQ(CreationNumberOf(ENOTDIR), 76);
    EXPECT_EQ(CreationNumberOf(ELOOP), 76);
    EXPECT_EQ(CreationNumberOf(EXDEV), 76);
}

TEST(CreationError, OfAnotherKindKeepsItsNumber) {
    EXPECT_EQ(CreationNumberOf(ENOSPC), 61);
    EXPECT_EQ(CreationNumberOf(EIO), 57);
    EXPECT_EQ(CreationNumberOf(EBUSY), 75);
}
