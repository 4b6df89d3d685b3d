#include "platform/windows/WindowsFileSystem.h"

#include "platform/NameRules.h"
#include "platform/Paths.h"
#include "platform/windows/WindowsCopy.h"
#include "platform/windows/WindowsErrors.h"
#include "platform/windows/WindowsFile.h"
#include "platform/windows/WindowsPaths.h"
#include "tests/fakes/Text.h"
#include "tests/platform/IpodFixture.h"

#include <gtest/gtest.h>

#include <thread>
#include <utility>
#include <vector>

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

class WindowsIpod : public IpodFixture {};

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
    const std::pair<int, std::vector<DWORD>> expected[] = {
        {57, {ERROR_CRC}},
        {61, {ERROR_DISK_FULL}},
        {68, {ERROR_NOT_READY, ERROR_NETNAME_DELETED, 51, 54, 71, 240, 1222, 1236, 2250}},
        {70, {ERROR_SHARING_VIOLATION, ERROR_WRITE_PROTECT, 86, 1219, 1312, 1326}},
        {75, {ERROR_SERVICE_DISABLED, ERROR_DIR_NOT_EMPTY}}};
    for (const auto& [number, errors] : expected) {
        for (const DWORD error : errors) {
            EXPECT_EQ(int(ErrorNumberOf(error)), number) << error;
        }
    }
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

TEST_F(WindowsFiles, AFileThatIsDeletedWhileItsSourceHangsIsNotWrittenAnyMore) {
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    ASSERT_TRUE(CreatePipe(&readEnd, &writeEnd, nullptr, 0));
    WindowsFile source(WindowsHandle(readEnd), WindowsFile::Use::Reading);
    const WindowsHandle hanging(writeEnd);
    const std::unique_ptr<BinaryFile> deleted = Files.OpenForReadingAndWriting(Copy);
    const CopyControl control;
    std::thread writer([&] { deleted->WriteFrom(source, 3, control); });
    WriteAll(hanging.Get(), "a", 1);
    while (control.BytesDone() < 1) {
        Sleep(1);
    }
    Sleep(50); // the writer waits for the second byte
    control.Stop();
    Files.DeleteFile(*deleted);
    {
        const auto next = Files.OpenForReadingAndWriting(Copy); // under the number of the first
        WriteAll(hanging.Get(), "bc", 2);
        writer.join();
    }
    EXPECT_EQ(ReadFile(Copy), "");
}

TEST_F(WindowsFiles, AReadOnlyFileIsNotReplaced) {
    WriteFile(Copy, "earlier");
    SetFileAttributesW(SystemPath(Copy)->c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(CopyError(Copy, Existing::Replace), 70);
    EXPECT_EQ(ReadFile(Copy), "earlier");
    SetFileAttributesW(SystemPath(Copy)->c_str(), FILE_ATTRIBUTE_NORMAL);
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

TEST_F(WindowsFiles, AFolderIsMadeOnlyUnderANameThatDrivesCanHold) {
    EXPECT_EQ(NumberOf([&] { Files.CreateFolder(Disk.Native(u"AUX"_s)); }), 70);
}

TEST_F(WindowsFiles, WhatIsHeldIsNotDeletedAndNeitherAreTheFoldersAboveIt) {
    Files.CreateFolderChain(Disk.Native(u"x/y/z"_s));
    const WindowsHandle held = Hold(Disk.Native(u"x/y/held"_s), GENERIC_READ, 0);
    EXPECT_EQ(NumberOf([&] { Files.DeleteFolder(Disk.Native(u"x"_s), {}); }), 70);
    EXPECT_EQ(NamesIn(Disk.Native(u"x/y"_s)), QStringList(u"held"_s));
}

TEST_F(WindowsFiles, NamesGoByTheRulesOfWindows) {
    const NameLimits limits = Files.LimitsOf(Disk.Native(u"nix/x"_s));
    EXPECT_EQ(limits.Longest, 255);
    EXPECT_EQ(limits.CountedIn, NameLimits::Unit::Utf16Units);
    EXPECT_TRUE(limits.IsForWindows);
}

TEST_F(WindowsFiles, TheDriveIsItsLetterOrItsShare) {
    EXPECT_EQ(Files.DriveOf(u"C:\\Music\\x"_s), u"C:"_s);
    EXPECT_EQ(Files.DriveOf(u"\\\\server\\share\\x"_s), u"\\\\server\\share"_s);
    EXPECT_GT(Files.FreeBytes(Disk.Native(u"nix/x"_s)), 0);
}

TEST_F(WindowsIpod, IsProtectedThoughItsDriveSaysThatItIsFixed) {
    ASSERT_EQ(m_disk.Attach(u"IPOD"_s, false), m_drive);
    EXPECT_FALSE(m_disk.Drives().IsRemovable({m_drive[0], m_drive}));
    ExpectReadOnly(m_drive + u"\\Notes"_s);
}
