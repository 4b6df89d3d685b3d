#include "platform/windows/WindowsFileSystem.h"

#include "platform/NameRules.h"
#include "platform/Paths.h"
#include "platform/windows/WindowsErrors.h"
#include "platform/windows/WindowsPaths.h"
#include "tests/fakes/Text.h"
#include "tests/platform/RealDisk.h"

#include <QDateTime>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class WindowsFiles : public testing::Test {
protected:
    WindowsFiles() { WriteFile(Song, "a song"); }

    int CopyError(const QString& target, Existing existing) {
        return NumberOf([&] { Files.CopyFile(Song, target, existing, {}); });
    }
    /// Opens a file as another program does that shares it with these only.
    static WindowsHandle Hold(const QString& path, DWORD access, DWORD share) {
        return WindowsHandle(CreateFileW(SystemPath(path)->c_str(), access, share, nullptr,
                                         OPEN_ALWAYS, 0, nullptr));
    }

    RealDisk Disk;
    FileSystem& Files = Disk.Files();
    const QString Song = Disk.Native(u"Song.mp3"_s);
    const QString Copy = Disk.Native(u"Copy.mp3"_s);
    const QString Part = Disk.Native(Text(PartName));
    const QString Folder = Paths::ParentFolder(Song);
};

} // namespace

TEST(WindowsPath, IsTakenLiterallyAndMayBeLong) {
    EXPECT_EQ(SystemPath(u"E:\\Music\\"_s), L"\\\\?\\E:\\Music");
    EXPECT_EQ(SystemPath(u"E:"_s), L"\\\\?\\E:\\");
    EXPECT_EQ(SystemPath(u"\\\\server\\share\\Music"_s), L"\\\\?\\UNC\\server\\share\\Music");
}

TEST(WindowsPath, LeadsNowhereByANameThatWouldMeanSomethingElse) {
    for (const char* path : {"E:\\..\\x", "E:\\a\\.", "E:\\NUL.mp3", "E:\\song.mp3:stream",
                             "E:\\dot.", "E:\\blank ", "E:\\a?b", "E:\\a/b", "E:Music", "Music",
                             "/home/ana", "\\\\?\\E:\\x", "\\\\.\\E:", "\\\\server"}) {
        EXPECT_FALSE(SystemPath(Text(path))) << path;
    }
    EXPECT_FALSE(SystemPath(u"E:\\"_s + QChar(0xd83c)));
}

TEST(WindowsError, HasTheNumberThatTheJobDecidesBy) {
    EXPECT_EQ(ErrorNumberOf(ERROR_DISK_FULL), ErrorNumber::DiskFull);
    EXPECT_EQ(ErrorNumberOf(ERROR_SHARING_VIOLATION), ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorNumberOf(ERROR_WRITE_PROTECT), ErrorNumber::PermissionDenied);
    EXPECT_EQ(ErrorNumberOf(ERROR_NOT_READY), ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(ErrorNumberOf(ERROR_NETNAME_DELETED), ErrorNumber::DeviceUnavailable);
    EXPECT_EQ(ErrorNumberOf(ERROR_CRC), ErrorNumber::DeviceIOError);
    EXPECT_EQ(ErrorNumberOf(ERROR_SERVICE_DISABLED), ErrorNumber::PathFileAccessError);
}

TEST_F(WindowsFiles, ACopyHasTheBytesAndTheTimeOfItsSource) {
    const QByteArray bytes = Pattern(3'000'001);
    WriteFile(Song, bytes);
    const CopyControl control;
    EXPECT_TRUE(Files.CopyFile(Song, Copy, Existing::Keep, control));
    EXPECT_EQ(ReadFile(Copy), bytes);
    EXPECT_EQ(control.BytesDone(), 3'000'001);
    EXPECT_EQ(QFileInfo(Copy).lastModified(), QFileInfo(Song).lastModified());
    EXPECT_EQ(NamesIn(Folder), QStringList({u"Copy.mp3"_s, u"Song.mp3"_s}));
}

TEST_F(WindowsFiles, AStoppedCopyLeavesNothing) {
    const CopyControl control;
    control.Stop();
    EXPECT_FALSE(Files.CopyFile(Song, Copy, Existing::Keep, control));
    EXPECT_EQ(NamesIn(Folder), QStringList(u"Song.mp3"_s));
}

TEST_F(WindowsFiles, AFileThatAnotherProgramHoldsIsNotReplacedAndThatIsReportedBeforeTheCopy) {
    const WindowsHandle held = Hold(Copy, GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(CopyError(Copy, Existing::Replace), 70);
    EXPECT_EQ(NumberOf([&] { Files.RequireTarget(Copy, Existing::Replace); }), 70);
    EXPECT_EQ(NamesIn(Folder), QStringList({u"Copy.mp3"_s, u"Song.mp3"_s}));
}

TEST_F(WindowsFiles, ASourceThatAnotherProgramLocksIsRefused) {
    const WindowsHandle held = Hold(Song, GENERIC_READ | GENERIC_WRITE, 0);
    EXPECT_TRUE(Files.FileExists(Song));
    EXPECT_EQ(CopyError(Copy, Existing::Keep), 70);
}

TEST_F(WindowsFiles, AReadOnlyFileIsNotReplaced) {
    WriteFile(Copy, "earlier");
    SetFileAttributesW(SystemPath(Copy)->c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(CopyError(Copy, Existing::Replace), 70);
    EXPECT_EQ(ReadFile(Copy), "earlier");
    SetFileAttributesW(SystemPath(Copy)->c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsFiles, NamesDifferInMoreThanLetterCase) {
    EXPECT_TRUE(Files.WouldReplace(Disk.Native(u"SONG.MP3"_s)));
    EXPECT_EQ(CopyError(Disk.Native(u"SONG.MP3"_s), Existing::Keep), 58);
}

TEST_F(WindowsFiles, WhatAKilledCopyLeftGoesWithTheNextOneButNotWhileItsCopyRuns) {
    WriteFile(Part, "half");
    {
        const WindowsHandle held = Hold(Part, GENERIC_WRITE, 0);
        EXPECT_EQ(CopyError(Copy, Existing::Keep), 70);
        Files.RemoveLeftovers(Folder);
        EXPECT_TRUE(Files.FileExists(Part));
    }
    Files.RemoveLeftovers(Folder);
    EXPECT_FALSE(Files.FileExists(Part));
    WriteFile(Part, "half");
    EXPECT_EQ(CopyError(Copy, Existing::Keep), 0);
    EXPECT_FALSE(Files.FileExists(Part));
}

TEST_F(WindowsFiles, AFileThatIsBeingWrittenIsNobodyElses) {
    const std::unique_ptr<BinaryFile> file = Files.OpenForReadingAndWriting(Copy);
    EXPECT_EQ(NumberOf([&] { Files.OpenForReadingAndWriting(Copy); }), 70);
    EXPECT_EQ(CopyError(Copy, Existing::Replace), 70);
}

TEST_F(WindowsFiles, AFolderIsMadeOnlyUnderANameThatDrivesCanHold) {
    EXPECT_EQ(NumberOf([&] { Files.CreateFolder(Paths::Join(Folder, u"a:b"_s)); }), 52);
    EXPECT_EQ(NumberOf([&] { Files.CreateFolder(Disk.Native(u"AUX"_s)); }), 70);
    EXPECT_EQ(NumberOf([&] { Files.CreateFolder(Part); }), 70);
    EXPECT_EQ(NumberOf([&] { Files.CreateFolder(Disk.Native(u"x"_s)); }), 0);
    EXPECT_EQ(NumberOf([&] { Files.CreateFolder(Disk.Native(u"x"_s)); }), 58);
    EXPECT_EQ(NumberOf([&] { Files.CreateFolder(Disk.Native(u"nix\\x"_s)); }), 76);
}

TEST_F(WindowsFiles, AFolderIsDeletedWithAllItHoldsButWhatIsHeld) {
    const QString deep = Disk.Native(u"x\\y\\z"_s);
    Files.CreateFolderChain(deep);
    WriteFile(deep + u"\\a.mp3"_s, "a");
    {
        const WindowsHandle held = Hold(Disk.Native(u"x\\y\\held"_s), GENERIC_READ, 0);
        EXPECT_EQ(NumberOf([&] { Files.DeleteFolder(Disk.Native(u"x"_s), {}); }), 70);
        EXPECT_FALSE(Files.FolderExists(deep));
    }
    EXPECT_EQ(NumberOf([&] { Files.DeleteFolder(Disk.Native(u"x"_s), {}); }), 0);
    EXPECT_EQ(NamesIn(Folder), QStringList(u"Song.mp3"_s));
    EXPECT_EQ(NumberOf([&] { Files.DeleteFolder(Disk.Native(u"x"_s), {}); }), 76);
}

TEST_F(WindowsFiles, NamesGoByTheRulesOfWindows) {
    const NameLimits limits = Files.LimitsOf(Disk.Native(u"nix\\x"_s));
    EXPECT_EQ(limits.Longest, 255);
    EXPECT_EQ(limits.CountedIn, NameLimits::Unit::Utf16Units);
    EXPECT_TRUE(limits.IsForWindows);
}

TEST_F(WindowsFiles, TheDriveIsItsLetterOrItsShare) {
    EXPECT_EQ(Files.DriveOf(u"C:\\Music\\x"_s), u"C:"_s);
    EXPECT_EQ(Files.DriveOf(u"\\\\server\\share\\x"_s), u"\\\\server\\share"_s);
    EXPECT_GT(Files.FreeBytes(Disk.Native(u"nix\\x"_s)), 0);
}
