#include "tests/platform/FileContract.h"

using namespace Qt::StringLiterals;

namespace {

class FolderContract : public FileContract {};

} // namespace

TEST_P(FolderContract, AFolderNameThatOtherDrivesRefuseIsABadName) {
    for (const QChar c : u":*?\"<>|"_s) {
        EXPECT_EQ(CreationError(At(u"Mix"_s + c)), 52) << qPrintable(QString(c));
        EXPECT_EQ(ChainError(At(u"above/Mix"_s + c)), 52) << qPrintable(QString(c));
    }
    EXPECT_FALSE(Files().FolderExists(At(u"above")));
}

TEST_P(FolderContract, AFolderNeedsAFreeNameThatTheDiskCanHoldAndTheFolderAboveIt) {
    EXPECT_EQ(CreationError(At(u"Music")), 0);
    EXPECT_EQ(CreationError(At(u"Music/")), 58);
    EXPECT_EQ(CreationError(At(u"Song.mp3")), 70);
    EXPECT_EQ(CreationError(At(QString(256, u'a'))), 70);
    EXPECT_EQ(CreationError(At(u"nix/new")), 76);
    EXPECT_EQ(CreationError(At(u"Song.mp3/new")), 76);
    EXPECT_EQ(Bytes(u"Song.mp3"), "song");
}

TEST_P(FolderContract, AChainCreatesEveryMissingFolder) {
    EXPECT_EQ(ChainError(At(u"a/b/c")), 0);
    EXPECT_EQ(ChainError(At(u"a/b/x/y/")), 0);
    EXPECT_EQ(ChainError(At(u"a/b")), 0);
    for (const char16_t* folder : {u"a/b/c", u"a/b/x/y", u"a/b/x/"}) {
        EXPECT_TRUE(Files().FolderExists(At(folder)));
        EXPECT_FALSE(Files().FileExists(At(folder)));
    }
}

TEST_P(FolderContract, AFolderIsDeletedWithAllItHolds) {
    Files().CreateFolderChain(At(u"x/y/z"));
    Add(u"x/y/z/.hidden", "x");
    EXPECT_EQ(DeleteError(At(u"x/y/z/.hidden")), 76);
    EXPECT_EQ(DeleteError(At(u"x")), 0);
    EXPECT_FALSE(Files().FolderExists(At(u"x")));
    EXPECT_EQ(DeleteError(At(u"x")), 76);
    EXPECT_EQ(DeleteError(QString()), 76);
    EXPECT_EQ(Bytes(u"Song.mp3"), "song");
}

INSTANTIATE_TEST_SUITE_P(Kinds, FolderContract, testing::Values(Kind::Native, Kind::OnDrive),
                         NameOf);
