#include "platform/linux/LinuxPaths.h"

#include "platform/linux/BeneathOpen.h"
#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QDir>

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

class PathsFixture : public LinuxFixture {
protected:
    PathsFixture() {
        MakeFolder(Native(u"iPod_Control/Music/F12"_s));
        WriteFile(Native(u"iPod_Control/Music/F12/ABCD.mp3"_s), "abcd");
    }

    bool Exists(const char* path) { return m_files.FileExists(QString::fromUtf8(path)); }
    bool IsFolder(const char* path) { return m_files.FolderExists(QString::fromUtf8(path)); }
    QByteArray Content(const char* path) {
        return ReadFile(m_files.NativePath(QString::fromUtf8(path)));
    }
    int ReadingError(const char* path) {
        return NumberOf([&] { m_files.OpenForReading(QString::fromUtf8(path)); });
    }

    /// A folder beside the drive that nothing on it may reach.
    QTemporaryDir m_outside;
};

/// Both ways of opening below a folder must agree, whichever the kernel of the day has.
class BeneathOpening
    : public LinuxFixture,
      public testing::WithParamInterface<FileDescriptor (*)(int, const QByteArray&, int)> {
protected:
    BeneathOpening() {
        MakeFolder(Native(u"drive/folder"_s));
        MakeFolder(Native(u"drive-2"_s));
        WriteFile(Native(u"drive/folder/song.mp3"_s), "inside");
        WriteFile(Native(u"drive-2/song.mp3"_s), "outside");
        m_root = FileDescriptor(
            open(Native(u"drive"_s).toUtf8().constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    }

    FileDescriptor Open(const char* name, int flags = O_RDONLY) {
        return GetParam()(m_root.Get(), name, flags);
    }
    void Link(const char* target, const char* name) {
        MakeLink(QString::fromLatin1(target), Native(QString::fromLatin1(name)));
    }

    FileDescriptor m_root;
};

} // namespace

TEST_F(PathsFixture, AMissingNameIsLookedForWithoutRegardToCase) {
    EXPECT_TRUE(Exists("E:\\IPOD_CONTROL\\music\\f12\\abcd.MP3"));
    EXPECT_TRUE(IsFolder("e:\\ipod_control"));
    EXPECT_FALSE(Exists("E:\\IPOD_CONTROL\\music\\f12\\abce.MP3"));
    EXPECT_FALSE(Exists("E:\\IPOD_CONTROLS\\music\\f12\\abcd.MP3"));
}

TEST_F(PathsFixture, AnExactNameIsPreferredToOneInAnotherCase) {
    WriteFile(Native(u"Song.mp3"_s), "exact");
    WriteFile(Native(u"SONG.mp3"_s), "upper");
    WriteFile(Native(u"song.mp3"_s), "lower");
    EXPECT_EQ(Content("E:\\Song.mp3"), "exact");
}

TEST_F(PathsFixture, OfSeveralNamesInAnotherCaseTheFirstInByteOrderIsTaken) {
    WriteFile(Native(u"song.mp3"_s), "lower");
    WriteFile(Native(u"SONG.mp3"_s), "upper");
    WriteFile(Native(u"Song.mp3"_s), "mixed");
    EXPECT_EQ(Content("E:\\sONG.mp3"), "upper");
}

TEST_F(PathsFixture, CaseIsFoldedForAllLetters) {
    WriteFile(Native(u"ÉTÉ Ωμέγα.mp3"_s), "x");
    EXPECT_TRUE(Exists("E:\\été ΩΜΈΓΑ.MP3"));
}

TEST_F(PathsFixture, ComposedAndDecomposedAccentsAreTheSame) {
    WriteFile(Native(u"Bj\u00F6rk.mp3"_s), "composed");
    EXPECT_EQ(Content("E:\\Bjo\u0308rk.mp3"), "composed");
    WriteFile(Native(u"Sigur Ro\u0301s.mp3"_s), "decomposed");
    EXPECT_EQ(Content("E:\\Sigur R\u00F3s.mp3"), "decomposed");
    EXPECT_EQ(Content("E:\\SIGUR R\u00D3S.MP3"), "decomposed");
}

TEST_F(PathsFixture, ANameThatIsNotTextMatchesNoOtherName) {
    const QByteArray path = Native().toUtf8() + "/bad\xFF.mp3";
    const FileDescriptor file(open(path.constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
    ASSERT_TRUE(file.IsOpen());
    EXPECT_FALSE(Exists("E:\\bad\uFFFD.mp3"));
    ASSERT_EQ(unlink(path.constData()), 0); // Qt could not
}

TEST_F(PathsFixture, AnExactNameIsFoundWithoutListingItsFolder) {
    const QString folder = Native(u"iPod_Control/Music/F12"_s);
    SetMode(folder, 0111);
    SetMode(Native(), 0755);
    m_drives.Drives();
    const int exact = NumberOfNobody(
        [this] { m_files.OpenForReading(u"E:\\iPod_Control\\Music\\F12\\ABCD.mp3"_s); });
    const int other = NumberOfNobody(
        [this] { m_files.OpenForReading(u"E:\\iPod_Control\\Music\\F12\\abcd.mp3"_s); });
    SetMode(folder, 0755);
    SKIP_UNLESS(exact != -1, "this process cannot become another user");
    EXPECT_EQ(exact, 0);
    EXPECT_EQ(other, 53);
}

TEST_F(PathsFixture, DotsInADrivePathLeadNowhere) {
    EXPECT_FALSE(IsFolder("E:\\.."));
    EXPECT_FALSE(IsFolder("E:\\."));
    EXPECT_FALSE(IsFolder("E:\\iPod_Control\\..\\iPod_Control"));
    EXPECT_FALSE(Exists("E:\\iPod_Control\\Music\\.\\F12\\ABCD.mp3"));
    EXPECT_FALSE(Exists("E:\\iPod_Control\\Music\\..\\Music\\F12\\ABCD.mp3"));
}

TEST_F(PathsFixture, ASlashIsPartOfNoNameOnADrive) {
    EXPECT_FALSE(Exists("E:\\iPod_Control/Music/F12/ABCD.mp3"));
    EXPECT_FALSE(Exists("E:\\iPod_Control\\Music\\F12/ABCD.mp3"));
    EXPECT_FALSE(Exists("E:/iPod_Control/Music/F12/ABCD.mp3"));
    EXPECT_FALSE(IsFolder("E:\\iPod_Control\\x/../../.."));
}

TEST_F(PathsFixture, APathOfNeitherFormDoesNotExist) {
    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(Native()));
    EXPECT_FALSE(IsFolder("iPod_Control"));
    EXPECT_FALSE(IsFolder("."));
    EXPECT_FALSE(IsFolder(""));
    EXPECT_FALSE(IsFolder("\\iPod_Control"));
    EXPECT_FALSE(IsFolder("E:iPod_Control"));
    EXPECT_EQ(ReadingError("iPod_Control/Music/F12/ABCD.mp3"), 76);
    EXPECT_EQ(NumberOf([this] { m_files.CreateFolder(u"new"_s); }), 76);
    EXPECT_FALSE(IsThere(Native(u"new"_s)));
    ASSERT_TRUE(QDir::setCurrent(before));
}

TEST_F(PathsFixture, ARootExistsWithAndWithoutItsSeparator) {
    EXPECT_TRUE(IsFolder("E:"));
    EXPECT_TRUE(IsFolder("E:\\"));
    EXPECT_TRUE(IsFolder("/"));
    EXPECT_FALSE(IsFolder("Q:"));
    EXPECT_FALSE(IsFolder("Q:\\"));
}

TEST_F(PathsFixture, SeveralSeparatorsCountAsOne) {
    EXPECT_TRUE(Exists("E:\\\\iPod_Control\\\\Music\\F12\\ABCD.mp3"));
}

TEST_F(PathsFixture, ASeparatorAtTheEndAsksForAFolder) {
    EXPECT_TRUE(IsFolder("E:\\iPod_Control\\Music\\"));
    EXPECT_FALSE(Exists("E:\\iPod_Control\\Music\\F12\\ABCD.mp3\\"));
    EXPECT_FALSE(m_files.FileExists(Native(u"iPod_Control/Music/F12/ABCD.mp3/"_s)));
}

TEST_F(PathsFixture, LinksThatStayOnTheDriveAreFollowed) {
    MakeLink(u"F12"_s, Native(u"iPod_Control/Music/Link"_s));
    MakeLink(u"../Music/F12/ABCD.mp3"_s, Native(u"iPod_Control/Music/Up.mp3"_s));
    EXPECT_TRUE(Exists("E:\\iPod_Control\\Music\\Link\\ABCD.mp3"));
    EXPECT_TRUE(Exists("E:\\iPod_Control\\Music\\link\\abcd.mp3"));
    EXPECT_TRUE(Exists("E:\\iPod_Control\\Music\\Up.mp3"));
}

TEST_F(PathsFixture, LinksThatLeaveTheDriveAreNotFound) {
    WriteFile(m_outside.filePath(u"secret.mp3"_s), "secret");
    MakeLink(m_outside.path(), Native(u"Absolute"_s));
    MakeLink(m_outside.filePath(u"secret.mp3"_s), Native(u"s.mp3"_s));
    MakeLink(u"../../../../../../../../../.."_s + m_outside.path(), Native(u"Relative"_s));
    MakeLink(u".."_s, Native(u"Up"_s));
    EXPECT_FALSE(Exists("E:\\Absolute\\secret.mp3"));
    EXPECT_FALSE(Exists("E:\\absolute\\SECRET.mp3"));
    EXPECT_FALSE(Exists("E:\\s.mp3"));
    EXPECT_FALSE(Exists("E:\\Relative\\secret.mp3"));
    EXPECT_FALSE(IsFolder("E:\\Up"));
    EXPECT_EQ(ReadingError("E:\\s.mp3"), 53);
    EXPECT_EQ(ReadingError("E:\\Absolute\\secret.mp3"), 76);
}

TEST_F(PathsFixture, NothingIsCreatedBehindALinkThatLeavesTheDrive) {
    MakeLink(m_outside.path(), Native(u"Out"_s));
    EXPECT_EQ(NumberOf([this] { m_files.CreateFolder(u"E:\\Out\\new"_s); }), 76);
    EXPECT_EQ(NumberOf([this] {
                  m_files.CopyFile(u"E:\\iPod_Control\\Music\\F12\\ABCD.mp3"_s,
                                   u"E:\\Out\\copy.mp3"_s, Existing::Replace, {});
              }),
              76);
    EXPECT_EQ(NumberOf([this] { m_files.OpenForReadingAndWriting(u"E:\\Out\\copy.tmp"_s); }), 76);
    EXPECT_EQ(NamesIn(m_outside.path()), QStringList());
}

TEST_F(PathsFixture, LinksThatLeadNowhereAreNotFound) {
    MakeLink(u"missing"_s, Native(u"dead.mp3"_s));
    MakeLink(u"round.mp3"_s, Native(u"round.mp3"_s));
    EXPECT_FALSE(Exists("E:\\dead.mp3"));
    EXPECT_EQ(ReadingError("E:\\dead.mp3"), 53);
    EXPECT_EQ(ReadingError("E:\\round.mp3"), 53);
}

TEST_F(PathsFixture, NamesThatNoDiskCanHoldAreNotFound) {
    WriteFile(Native(u"a\uFFFD"_s), "replacement");
    WriteFile(Native(u"a"_s), "cut");
    const QString half = u"E:\\a"_s + QChar(0xD800);
    const QString cut = u"E:\\a"_s + u'\0';
    EXPECT_FALSE(m_files.FileExists(half));
    EXPECT_FALSE(m_files.FileExists(cut));
    EXPECT_FALSE(m_files.FileExists(Native(u"a"_s + QChar(0xDC00))));
    EXPECT_FALSE(m_files.FileExists(Native(u"a"_s + u'\0')));
    EXPECT_EQ(NumberOf([&] { m_files.OpenForReading(half); }), 53);
    EXPECT_EQ(NumberOf([&] { m_files.FileLength(cut); }), 53);
    EXPECT_EQ(ReadingError(("E:\\" + QByteArray(300, 'a')).constData()), 53);
    EXPECT_EQ(ReadingError(("E:\\" + QByteArray(5000, 'a') + "\\b").constData()), 76);
}

TEST_F(PathsFixture, AnEntryIsSpelledAsTheDiskSpellsIt) {
    LinuxPaths paths(m_drives);
    EXPECT_EQ(paths.EntryOf(u"E:\\ipod_control\\MUSIC\\f12\\abcd.mp3"_s).Name, "ABCD.mp3");
    EXPECT_EQ(paths.EntryOf(u"E:\\ipod_control\\MUSIC\\f12\\New.mp3"_s).Name, "New.mp3");
    EXPECT_EQ(paths.EntryOf(u"E:\\"_s).Folder.Error(), EISDIR);
    EXPECT_EQ(paths.EntryOf(u"/"_s).Folder.Error(), EISDIR);
}

TEST_F(PathsFixture, TheNativePathHasTheDisksSpellingAndNoLinks) {
    MakeLink(u"F12"_s, Native(u"iPod_Control/Music/Link"_s));
    const QString real = QDir(Native()).canonicalPath();
    EXPECT_EQ(m_files.NativePath(u"E:\\IPOD_control\\music\\link\\abcd.mp3"_s),
              real + u"/iPod_Control/Music/F12/ABCD.mp3"_s);
    EXPECT_EQ(m_files.NativePath(u"E:\\"_s), real);
}

TEST_F(PathsFixture, TheNativePathOfANativePathIsThePath) {
    EXPECT_EQ(m_files.NativePath(u"/any/where"_s), u"/any/where"_s);
}

TEST_F(PathsFixture, AMissingEntryHasNoNativePath) {
    EXPECT_EQ(NumberOf([this] { m_files.NativePath(u"E:\\nix"_s); }), 53);
    EXPECT_EQ(NumberOf([this] { m_files.NativePath(u"E:\\nix\\nix"_s); }), 76);
    EXPECT_EQ(NumberOf([this] { m_files.NativePath(u"nix"_s); }), 76);
}

TEST_F(PathsFixture, ReadingLeavesTheTimeOfTheLastAccess) {
    const QByteArray path = Native(u"iPod_Control/Music/F12/ABCD.mp3"_s).toUtf8();
    const timespec times[2] = {{1000, 0}, {2000, 0}}; // old enough to be renewed by any reader
    ASSERT_EQ(utimensat(AT_FDCWD, path.constData(), times, 0), 0);
    const auto bytes = std::make_shared<char[]>(4);
    m_files.OpenForReading(u"E:\\iPod_Control\\Music\\F12\\ABCD.mp3"_s)
        ->Read({bytes, bytes.get()}, 4);
    m_files.CopyFile(u"E:\\iPod_Control\\Music\\F12\\ABCD.mp3"_s, m_outside.filePath(u"copy.mp3"_s),
                     Existing::Replace, {});
    struct stat info {};
    ASSERT_EQ(stat(path.constData(), &info), 0);
    EXPECT_EQ(info.st_atim.tv_sec, 1000);
}

TEST_P(BeneathOpening, FilesAndFoldersBelowAreOpened) {
    EXPECT_TRUE(Open("folder/song.mp3").IsOpen());
    EXPECT_TRUE(Open("folder", O_PATH | O_DIRECTORY).IsOpen());
    EXPECT_TRUE(Open(".", O_RDONLY | O_DIRECTORY).IsOpen());
    EXPECT_EQ(Open("folder/nix.mp3").Error(), ENOENT);
    EXPECT_EQ(Open("folder/song.mp3", O_PATH | O_DIRECTORY).Error(), ENOTDIR);
}

TEST_P(BeneathOpening, LinksThatStayBelowAreFollowed) {
    Link("folder/song.mp3", "drive/link.mp3");
    Link("../folder", "drive/folder/round");
    char text[6] = {};
    const FileDescriptor file = Open("link.mp3");
    ASSERT_EQ(read(file.Get(), text, 6), 6);
    EXPECT_EQ(QByteArray(text, 6), "inside");
    EXPECT_TRUE(Open("folder/round/song.mp3").IsOpen());
}

TEST_P(BeneathOpening, LinksThatLeadOutAreRefused) {
    Link("../drive-2/song.mp3", "drive/out.mp3");
    Link("..", "drive/up");
    MakeLink(Native(u"drive-2"_s), Native(u"drive/absolute"_s));
    for (const int flags : {O_RDONLY, O_PATH}) {
        EXPECT_EQ(Open("out.mp3", flags).Error(), EXDEV);
        EXPECT_EQ(Open("up/drive-2/song.mp3", flags).Error(), EXDEV);
        EXPECT_EQ(Open("absolute/song.mp3", flags).Error(), EXDEV);
    }
}

INSTANTIATE_TEST_SUITE_P(EitherWay, BeneathOpening,
                         testing::Values(&OpenBeneath, &OpenBeneathByChecking),
                         [](const auto& way) {
                             return way.param == &OpenBeneath ? "InOneStep" : "ByChecking";
                         });
