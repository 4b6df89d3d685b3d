#include "platform/linux/LinuxFileSystem.h"

#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QDir>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class FoldersFixture : public LinuxFixture {};

mode_t ModeOf(const QString& path) {
    struct stat info {};
    EXPECT_EQ(stat(path.toUtf8().constData(), &info), 0);
    return info.st_mode & 07777;
}

} // namespace

TEST_F(FoldersFixture, OnlyRegularFilesAreFilesAndOnlyFoldersAreFolders) {
    WriteFile(Native(u"file"_s), "x");
    MakeFolder(Native(u"folder"_s));
    MakeLink(u"file"_s, Native(u"to file"_s));
    MakeLink(u"folder"_s, Native(u"to folder"_s));
    ASSERT_TRUE(MakePipe(Native(u"pipe"_s)));
    for (const QString& name : {u"file"_s, u"to file"_s}) {
        EXPECT_TRUE(m_files.FileExists(Native(name)));
        EXPECT_FALSE(m_files.FolderExists(Native(name)));
    }
    for (const QString& name : {u"folder"_s, u"folder/"_s, u"to folder"_s}) {
        EXPECT_FALSE(m_files.FileExists(Native(name)));
        EXPECT_TRUE(m_files.FolderExists(Native(name)));
    }
    for (const QString& name : {u"pipe"_s, u"nix"_s}) {
        EXPECT_FALSE(m_files.FileExists(Native(name)));
        EXPECT_FALSE(m_files.FolderExists(Native(name)));
    }
}

TEST_F(FoldersFixture, TheModeOfANewFolderOrFileFollowsTheUmask) {
    const mode_t before = umask(027);
    EXPECT_EQ(CreationError(Native(u"new"_s)), 0);
    EXPECT_EQ(WritingError(Native(u"copy.tmp"_s)), 0);
    umask(before);
    EXPECT_EQ(ModeOf(Native(u"new"_s)), 0750U);
    EXPECT_EQ(ModeOf(Native(u"copy.tmp"_s)), 0640U);
}

TEST_F(FoldersFixture, OnlyTheNewNameIsChecked) {
    const QString odd = Native(u"a:b"_s);
    ASSERT_TRUE(QDir().mkdir(odd));
    EXPECT_EQ(CreationError(odd + u"/new"_s), 0);
    EXPECT_EQ(ChainError(odd + u"/x/y"_s), 0);
    EXPECT_EQ(NamesIn(odd), QStringList({u"new"_s, u"x"_s}));
}

TEST_F(FoldersFixture, AFolderNameThatCannotBeEncodedIsADeniedPermission) {
    const QString half = u"a"_s + QChar(0xD800);
    const QString cut = u"a"_s + u'\0' + u'b';
    for (const QString& name : {half, cut}) {
        EXPECT_EQ(CreationError(Native(name)), 70);
        EXPECT_EQ(CreationError(u"E:\\"_s + name), 70);
        EXPECT_EQ(ChainError(Native(u"above/"_s + name)), 70);
    }
    EXPECT_EQ(NamesIn(Native()), QStringList());
}

TEST_F(FoldersFixture, ARootIsAFolderThatExists) {
    for (const QString& root : {u"E:\\"_s, u"E:"_s, u"/"_s}) {
        EXPECT_EQ(CreationError(root), 58);
        EXPECT_EQ(ChainError(root), 0);
    }
}

TEST_F(FoldersFixture, ALinkToNothingInTheWayOfAFolderIsADeniedPermission) {
    MakeLink(u"nix"_s, Native(u"dead"_s));
    EXPECT_EQ(CreationError(Native(u"dead"_s)), 70);
}

TEST_F(FoldersFixture, AFolderNeedsItsDrive) {
    EXPECT_EQ(CreationError(u"Q:\\new"_s), 76);
    EXPECT_EQ(CreationError(u"Q:\\"_s), 76);
    EXPECT_EQ(CreationError(u"E:\\.."_s), 76);
}

TEST_F(FoldersFixture, AFolderThatMayNotBeCreatedIsADeniedPermission) {
    MakeFolder(Native(u"closed"_s));
    SetMode(Native(), 0755);
    SetMode(Native(u"closed"_s), 0555);
    const int number = NumberOfNobody([this] { m_files.CreateFolder(Native(u"closed/new"_s)); });
    SKIP_UNLESS(number != -1, "this process cannot become another user");
    EXPECT_EQ(number, 70);
}

TEST_F(FoldersFixture, AChainMayGoUpAgain) {
    EXPECT_EQ(ChainError(Native(u"a/../b"_s)), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList({u"a"_s, u"b"_s}));
}

TEST_F(FoldersFixture, AChainThatCannotBeCreatedReportsWhy) {
    WriteFile(Native(u"file"_s), "x");
    EXPECT_EQ(ChainError(Native(u"file/a"_s)), 70);
    EXPECT_EQ(ChainError(u"Q:\\a\\b"_s), 76);
    EXPECT_EQ(ChainError(u"a/b"_s), 76);
    EXPECT_EQ(ChainError(QString()), 76);
}

TEST_F(FoldersFixture, NoFolderIsCreatedWhosePathWouldBeTooLongToFindAgain) {
    QString drivePath = u"E:"_s;
    QString nativePath = Native();
    for (int level = 0; level < 16; ++level) {
        drivePath += u'\\' + QString(250, u'd');
        nativePath += u'/' + QString(250, u'd');
    }
    EXPECT_EQ(ChainError(drivePath.chopped(251)), 0);
    EXPECT_EQ(CreationError(drivePath), 0);
    EXPECT_EQ(CreationError(drivePath + u'\\' + QString(76, u'e')), 0);
    EXPECT_EQ(CreationError(drivePath + u'\\' + QString(77, u'e')), 70);
    const qsizetype room = 4095 - nativePath.size();
    EXPECT_EQ(CreationError(nativePath + u'/' + QString(room, u'f')), 70);
    EXPECT_EQ(CreationError(nativePath + u'/' + QString(room - 1, u'f')), 0);
    m_files.DeleteFolder(u"E:\\"_s + QString(250, u'd'), {}); // too deep for others to delete
}
