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
    EXPECT_FALSE(Files().FolderExists(At(u"above"_s)));
}

TEST_P(FolderContract, AFolderNeedsAFreeNameThatTheDiskCanHoldAndTheFolderAboveIt) {
    EXPECT_EQ(CreationError(At(u"Music"_s)), 0);
    EXPECT_EQ(CreationError(At(u"Music/"_s)), 58);
    EXPECT_EQ(CreationError(At(u"Song.mp3"_s)), 70);
    EXPECT_EQ(CreationError(At(QString(256, u'a'))), 70);
    EXPECT_EQ(CreationError(At(u"nix/new"_s)), 76);
    EXPECT_EQ(CreationError(At(u"Song.mp3/new"_s)), 76);
    EXPECT_EQ(Bytes(u"Song.mp3"_s), "song");
}

TEST_P(FolderContract, AChainCreatesEveryMissingFolder) {
    EXPECT_EQ(ChainError(At(u"a/b/c"_s)), 0);
    EXPECT_EQ(ChainError(At(u"a/b/x/y/"_s)), 0);
    EXPECT_EQ(ChainError(At(u"a/b"_s)), 0);
    for (const QString& folder : {u"a/b/c"_s, u"a/b/x/y"_s, u"a/b/x/"_s}) {
        EXPECT_TRUE(Files().FolderExists(At(folder)));
        EXPECT_FALSE(Files().FileExists(At(folder)));
    }
}

TEST_P(FolderContract, AFolderIsDeletedWithAllItHolds) {
    Files().CreateFolderChain(At(u"x/y/z"_s));
    Add(u"x/y/z/.hidden"_s, "x");
    EXPECT_EQ(DeleteError(At(u"x/y/z/.hidden"_s)), 76);
    EXPECT_EQ(DeleteError(At(u"x"_s)), 0);
    EXPECT_FALSE(Files().FolderExists(At(u"x"_s)));
    EXPECT_EQ(DeleteError(At(u"x"_s)), 76);
    EXPECT_EQ(DeleteError(QString()), 76);
    EXPECT_EQ(Bytes(u"Song.mp3"_s), "song");
}

INSTANTIATE_TEST_SUITE_P(Kinds, FolderContract, testing::Values(Kind::Native, Kind::OnDrive),
                         NameOf);
