#include "platform/linux/LinuxFileSystem.h"

#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QDir>

#include <sys/stat.h>

namespace {

class FoldersFixture : public LinuxFixture {};

mode_t ModeOf(const QString& path) {
    struct stat info {};
    EXPECT_EQ(stat(path.toUtf8().constData(), &info), 0);
    return info.st_mode & 07777;
}

} // namespace

TEST_F(FoldersFixture, OnlyRegularFilesAreFiles) {
    MakeFolder(Native(QStringLiteral("folder")));
    ASSERT_TRUE(MakePipe(Native(QStringLiteral("pipe"))));
    WriteFile(Native(QStringLiteral("file")), "x");
    MakeLink(QStringLiteral("file"), Native(QStringLiteral("link")));
    EXPECT_TRUE(m_files.FileExists(Native(QStringLiteral("file"))));
    EXPECT_TRUE(m_files.FileExists(Native(QStringLiteral("link"))));
    EXPECT_FALSE(m_files.FileExists(Native(QStringLiteral("folder"))));
    EXPECT_FALSE(m_files.FileExists(Native(QStringLiteral("pipe"))));
    EXPECT_FALSE(m_files.FileExists(Native(QStringLiteral("nix"))));
}

TEST_F(FoldersFixture, OnlyFoldersAreFolders) {
    MakeFolder(Native(QStringLiteral("folder")));
    WriteFile(Native(QStringLiteral("file")), "x");
    MakeLink(QStringLiteral("folder"), Native(QStringLiteral("link")));
    EXPECT_TRUE(m_files.FolderExists(Native(QStringLiteral("folder"))));
    EXPECT_TRUE(m_files.FolderExists(Native(QStringLiteral("folder/"))));
    EXPECT_TRUE(m_files.FolderExists(Native(QStringLiteral("link"))));
    EXPECT_FALSE(m_files.FolderExists(Native(QStringLiteral("file"))));
    EXPECT_FALSE(m_files.FolderExists(Native(QStringLiteral("nix"))));
}

TEST_F(FoldersFixture, AFolderIsCreatedInEitherForm) {
    EXPECT_EQ(CreationError(Native(QStringLiteral("native"))), 0);
    EXPECT_EQ(CreationError(QStringLiteral("E:\\drive")), 0);
    EXPECT_EQ(CreationError(QStringLiteral("E:\\DRIVE\\Inner\\")), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList({QStringLiteral("drive"), QStringLiteral("native")}));
    EXPECT_EQ(NamesIn(Native(QStringLiteral("drive"))), QStringList(QStringLiteral("Inner")));
}

TEST_F(FoldersFixture, ANewFoldersModeFollowsTheUmask) {
    const mode_t before = umask(027);
    EXPECT_EQ(CreationError(Native(QStringLiteral("new"))), 0);
    umask(before);
    EXPECT_EQ(ModeOf(Native(QStringLiteral("new"))), 0750U);
}

TEST_F(FoldersFixture, AFolderNameThatOtherDrivesRefuseIsABadName) {
    for (const char c : {':', '*', '?', '"', '<', '>', '|'}) {
        const QString name = QLatin1Char('a') + QString(QLatin1Char(c));
        EXPECT_EQ(CreationError(Native(name)), 52) << c;
        EXPECT_EQ(CreationError(QStringLiteral("E:\\") + name), 52) << c;
        EXPECT_EQ(ChainError(Native(QStringLiteral("above/") + name)), 52) << c;
    }
    EXPECT_EQ(NamesIn(Native()), QStringList());
}

TEST_F(FoldersFixture, OnlyTheNewNameIsChecked) {
    const QString odd = Native(QStringLiteral("a:b"));
    ASSERT_TRUE(QDir().mkdir(odd));
    EXPECT_EQ(CreationError(odd + QStringLiteral("/new")), 0);
    EXPECT_EQ(ChainError(odd + QStringLiteral("/x/y")), 0);
    EXPECT_EQ(NamesIn(odd), QStringList({QStringLiteral("new"), QStringLiteral("x")}));
}

TEST_F(FoldersFixture, AFolderNameThatCannotBeEncodedIsADeniedPermission) {
    const QString half = QStringLiteral("a") + QChar(0xD800);
    const QString cut = QStringLiteral("a") + QChar(u'\0') + QLatin1Char('b');
    for (const QString& name : {half, cut}) {
        EXPECT_EQ(CreationError(Native(name)), 70);
        EXPECT_EQ(CreationError(QStringLiteral("E:\\") + name), 70);
        EXPECT_EQ(ChainError(Native(QStringLiteral("above/") + name)), 70);
    }
    EXPECT_EQ(NamesIn(Native()), QStringList());
}

TEST_F(FoldersFixture, AFolderNameTooLongForTheDiskIsADeniedPermission) {
    const QString name(256, QLatin1Char('a'));
    EXPECT_EQ(CreationError(Native(name)), 70);
    EXPECT_EQ(CreationError(QStringLiteral("E:\\") + name), 70);
    EXPECT_EQ(ChainError(Native(name)), 70);
    EXPECT_EQ(CreationError(Native(QString(255, QLatin1Char('a')))), 0);
}

TEST_F(FoldersFixture, AFolderThatExistsIsNotCreatedAgain) {
    MakeFolder(Native(QStringLiteral("Music")));
    EXPECT_EQ(CreationError(Native(QStringLiteral("Music"))), 58);
    EXPECT_EQ(CreationError(Native(QStringLiteral("Music/"))), 58);
    EXPECT_EQ(CreationError(QStringLiteral("E:\\MUSIC")), 58);
    EXPECT_EQ(CreationError(QStringLiteral("E:\\")), 58);
    EXPECT_EQ(CreationError(QStringLiteral("E:")), 58);
    EXPECT_EQ(CreationError(QStringLiteral("/")), 58);
}

TEST_F(FoldersFixture, AFileInTheWayOfAFolderIsADeniedPermission) {
    WriteFile(Native(QStringLiteral("Music")), "x");
    MakeLink(QStringLiteral("nix"), Native(QStringLiteral("dead")));
    EXPECT_EQ(CreationError(Native(QStringLiteral("Music"))), 70);
    EXPECT_EQ(CreationError(QStringLiteral("E:\\music")), 70);
    EXPECT_EQ(CreationError(Native(QStringLiteral("dead"))), 70);
    EXPECT_EQ(ReadFile(Native(QStringLiteral("Music"))), "x");
}

TEST_F(FoldersFixture, AFolderNeedsTheFolderAboveIt) {
    WriteFile(Native(QStringLiteral("file")), "x");
    EXPECT_EQ(CreationError(Native(QStringLiteral("nix/new"))), 76);
    EXPECT_EQ(CreationError(Native(QStringLiteral("file/new"))), 76);
    EXPECT_EQ(CreationError(QStringLiteral("E:\\nix\\new")), 76);
    EXPECT_EQ(CreationError(QStringLiteral("Q:\\new")), 76);
    EXPECT_EQ(CreationError(QStringLiteral("Q:\\")), 76);
    EXPECT_EQ(CreationError(QStringLiteral("E:\\..")), 76);
}

TEST_F(FoldersFixture, AFolderThatMayNotBeCreatedIsADeniedPermission) {
    MakeFolder(Native(QStringLiteral("closed")));
    SetMode(Native(), 0755);
    SetMode(Native(QStringLiteral("closed")), 0555);
    const int number =
        NumberOfNobody([this] { m_files.CreateFolder(Native(QStringLiteral("closed/new"))); });
    if (number == -1) {
        GTEST_SKIP() << "this process cannot become another user";
    }
    EXPECT_EQ(number, 70);
}

TEST_F(FoldersFixture, AChainCreatesEveryMissingFolder) {
    EXPECT_EQ(ChainError(Native(QStringLiteral("a/b/c"))), 0);
    EXPECT_TRUE(m_files.FolderExists(Native(QStringLiteral("a/b/c"))));
    EXPECT_EQ(ChainError(QStringLiteral("E:\\A\\B\\x\\y\\")), 0);
    EXPECT_TRUE(m_files.FolderExists(Native(QStringLiteral("a/b/x/y"))));
    EXPECT_EQ(NamesIn(Native()), QStringList(QStringLiteral("a")));
}

TEST_F(FoldersFixture, AChainThatExistsIsNoError) {
    EXPECT_EQ(ChainError(Native()), 0);
    EXPECT_EQ(ChainError(QStringLiteral("E:\\")), 0);
    EXPECT_EQ(ChainError(QStringLiteral("/")), 0);
}

TEST_F(FoldersFixture, AChainMayGoUpAgain) {
    EXPECT_EQ(ChainError(Native(QStringLiteral("a/../b"))), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(FoldersFixture, AChainThatCannotBeCreatedReportsWhy) {
    WriteFile(Native(QStringLiteral("file")), "x");
    EXPECT_EQ(ChainError(Native(QStringLiteral("file/a"))), 70);
    EXPECT_EQ(ChainError(QStringLiteral("Q:\\a\\b")), 76);
    EXPECT_EQ(ChainError(QStringLiteral("a/b")), 76);
    EXPECT_EQ(ChainError(QString()), 76);
}

TEST_F(FoldersFixture, NoFolderIsCreatedWhosePathWouldBeTooLongToFindAgain) {
    QString drivePath = QStringLiteral("E:");
    QString nativePath = Native();
    for (int level = 0; level < 16; ++level) {
        drivePath += QLatin1Char('\\') + QString(250, u'd');
        nativePath += QLatin1Char('/') + QString(250, u'd');
    }
    EXPECT_EQ(ChainError(drivePath.chopped(251)), 0);
    EXPECT_EQ(CreationError(drivePath), 0);
    EXPECT_EQ(CreationError(drivePath + QLatin1Char('\\') + QString(76, u'e')), 0);
    EXPECT_EQ(CreationError(drivePath + QLatin1Char('\\') + QString(77, u'e')), 70);
    const qsizetype room = 4095 - nativePath.size();
    EXPECT_EQ(CreationError(nativePath + QLatin1Char('/') + QString(room, u'f')), 70);
    EXPECT_EQ(CreationError(nativePath + QLatin1Char('/') + QString(room - 1, u'f')), 0);
    m_files.DeleteFolder(QStringLiteral("E:\\") + QString(250, u'd'), {}); // nobody else could
}
