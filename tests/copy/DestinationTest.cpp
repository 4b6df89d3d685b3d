#include "copy/Destination.h"
#include "app/ControlGroups.h"

#include "platform/RuntimeError.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/RecordedFiles.h"
#include "tests/fakes/Text.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class DestinationTest : public testing::Test {
protected:
    DestinationTest() {
        files.AddDrive(u"C:"_s);
        files.AddDrive(u"D:"_s);
        files.AddFolder(u"/home/ana"_s);
        form.txtDestination.Change = [this] { destination.txtDestination_Change(); };
    }

    bool Validate(const char* path) { return destination.ValidatePath(Text(path)); }
    bool IsValid(const char* path) { return destination.IsValidPath(Text(path)); }

    FakeForm1 form;
    RecordedFiles files;
    FakeShell shell;
    Destination destination{files, shell, form.WindowManager, DestinationControlsOf(form.Controls)};
};

} // namespace

// ---- ValidatePath

TEST_F(DestinationTest, ValidatePathCreatesTheChainAndRemembersItsTopmostNewFolder) {
    struct Case {
        const char* Path;
        QStringList Created;
    };
    for (const Case& chain :
         {Case{"D:\\New", {u"D:\\New"_s}},
          Case{"D:\\New\\Sub\\Deep", {u"D:\\New"_s, u"D:\\New\\Sub"_s, u"D:\\New\\Sub\\Deep"_s}},
          Case{"D:\\New\\Sub\\", {u"D:\\New"_s, u"D:\\New\\Sub\\"_s}},
          Case{"/home/ana/Music/New", {u"/home/ana/Music"_s, u"/home/ana/Music/New"_s}},
          Case{"/music", {u"/music"_s}}}) {
        SCOPED_TRACE(chain.Path);
        files.Calls.clear();
        EXPECT_TRUE(Validate(chain.Path));
        EXPECT_EQ(files.CallsOf(FileCall::CreateFolder), chain.Created);
        EXPECT_TRUE(files.HasFolder(chain.Created.last()));
        EXPECT_EQ(destination.ProbeFolder(), chain.Created.first());
        EXPECT_FALSE(destination.CreateFailed());
        files.Remove(chain.Created.first());
    }
}

TEST_F(DestinationTest, ValidatePathOnNoDriveIsFalseAndCreatesNothing) {
    for (const char* path : {"Q:\\x", "Q:\\x\\y", "Music", "Music/New", ""}) {
        EXPECT_FALSE(Validate(path)) << path;
    }
    EXPECT_EQ(destination.ProbeFolder(), QString());
    EXPECT_FALSE(destination.CreateFailed());
    EXPECT_EQ(files.CountOf(FileCall::CreateFolder), 0);
}

TEST_F(DestinationTest, ABadNameIsFalseWithoutCreateFailedAndLeavesTheProbeFolderToDelete) {
    for (const auto& [path, probe] :
         {std::pair("D:\\What?", QString()), std::pair("D:\\What?\\Sub", QString()),
          std::pair("D:\\New\\What?", u"D:\\New"_s)}) {
        EXPECT_FALSE(Validate(path)) << path;
        EXPECT_FALSE(destination.CreateFailed());
        EXPECT_EQ(destination.ProbeFolder(), probe);
    }
    EXPECT_FALSE(files.HasFolder(u"D:\\What?"_s));
    EXPECT_TRUE(files.HasFolder(u"D:\\New"_s));
}

TEST_F(DestinationTest, AnotherFailureToCreateSetsCreateFailed) {
    files.FailPath(u"D:\\New"_s, ErrorNumber::PermissionDenied);
    EXPECT_FALSE(Validate("D:\\New"));
    EXPECT_TRUE(destination.CreateFailed());
    EXPECT_EQ(destination.ProbeFolder(), QString());
}

TEST_F(DestinationTest, AFailureInTheMiddleOfTheChainSetsCreateFailedAndKeepsTheProbeFolder) {
    files.FailPath(FileCall::CreateFolder, u"D:\\New\\Sub"_s, ErrorNumber::DiskFull);
    EXPECT_FALSE(Validate("D:\\New\\Sub\\Deep"));
    EXPECT_TRUE(destination.CreateFailed());
    EXPECT_EQ(destination.ProbeFolder(), u"D:\\New"_s);
    EXPECT_FALSE(files.HasFolder(u"D:\\New\\Sub\\Deep"_s));
}

TEST_F(DestinationTest, AFileInTheWaySetsCreateFailed) {
    files.AddFile(u"D:\\New"_s, "song");
    EXPECT_FALSE(Validate("D:\\New"));
    EXPECT_TRUE(destination.CreateFailed());
    EXPECT_EQ(files.Bytes(u"D:\\New"_s), QByteArray("song"));
}

TEST_F(DestinationTest, APathOfAMillionLettersIsFalseAtOnce) {
    EXPECT_FALSE(destination.ValidatePath(u"D:"_s + u"\\a"_s.repeated(500000)));
    EXPECT_TRUE(files.Calls.empty());
}

TEST_F(DestinationTest, APathOfThousandsOfFoldersIsTriedWithoutHarm) {
    EXPECT_FALSE(destination.ValidatePath(u"Q:"_s + u"\\a"_s.repeated(5000)));
    EXPECT_EQ(destination.ProbeFolder(), QString());
}

// ---- IsValidPath

TEST_F(DestinationTest, APathIsValidOnAnExistingDriveWithNamesThatItCanHold) {
    for (const char* path : {"C:\\Music", "C:\\Music\\", "C:\\My Music\\...And More", "C:\\",
                             "/home/ana/Music", "/home/ana/Music/", "/"}) {
        EXPECT_TRUE(IsValid(path)) << path;
    }
    for (const char* path : {"",
                             "Q:\\Music",
                             "Music",
                             "C:\\a:b",
                             "C:\\a/b",
                             "C:\\a*b",
                             "C:\\a?b",
                             "C:\\a\"b",
                             "C:\\a<b",
                             "C:\\a>b",
                             "C:\\a|b",
                             "C:\\Music.",
                             "C:\\Music\\.",
                             "C:\\ \\Music",
                             "C:\\..\\Music",
                             "C:\\Music\\ ",
                             "C:\\\\Music",
                             "C:\\Music\\\\Sub",
                             "\\\\server\\share\\Music",
                             "//home",
                             "/home//ana",
                             "/home/a\\b",
                             "/home/a:b",
                             "/home/../etc",
                             "/home/ana.",
                             "home/ana"}) {
        EXPECT_FALSE(IsValid(path)) << path;
    }
}

// ---- CreatePath

TEST_F(DestinationTest, CreatePathCreatesOnlyWhatIsMissing) {
    files.AddFolder(u"C:\\Music"_s);
    destination.CreatePath(u"C:\\Music\\New\\Sub"_s);
    EXPECT_TRUE(files.HasFolder(u"C:\\Music\\New\\Sub"_s));
    EXPECT_EQ(files.CallsOf(FileCall::CreateFolder),
              QStringList({u"C:\\Music\\New\\"_s, u"C:\\Music\\New\\Sub\\"_s}));
}

TEST_F(DestinationTest, CreatePathOnceCreatingTestsNoFurtherFolder) {
    destination.CreatePath(u"C:\\New\\Sub"_s);
    EXPECT_EQ(files.CallsOf(FileCall::FolderExists), QStringList({u"C:\\"_s, u"C:\\New\\"_s}));
}

TEST_F(DestinationTest, CreatePathTakesASeparatorAtTheEndAndNativePaths) {
    destination.CreatePath(u"C:\\New\\"_s);
    EXPECT_TRUE(files.HasFolder(u"C:\\New"_s));
    destination.CreatePath(u"/home/ana/Music/New"_s);
    EXPECT_TRUE(files.HasFolder(u"/home/ana/Music/New"_s));
}

TEST_F(DestinationTest, CreatePathRaisesWhatFails) {
    files.FailPath(u"C:\\New\\"_s, ErrorNumber::PermissionDenied);
    try {
        destination.CreatePath(u"C:\\New\\Sub"_s);
        FAIL() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(int(error.Number), 70);
    }
    EXPECT_FALSE(files.HasFolder(u"C:\\New"_s));
}

// ---- the box and the picker

TEST_F(DestinationTest, APathWithinFourPixelsOfTheBoxWidthIsItsToolTip) {
    form.Form1.CharacterWidth = 100;
    form.WindowManager.TwipsPerPixel[0] = 15;
    form.txtDestination.SetWidth(2060); // 4 pixels of 15 twips more than 20 letters
    const QString nineteen = u"C:\\"_s + QString(16, u'a');
    const QString twenty = u"C:\\"_s + QString(17, u'a');
    form.txtDestination.SetText(twenty);
    EXPECT_EQ(form.txtDestination.ToolTip(), twenty);
    form.txtDestination.SetText(nineteen);
    EXPECT_EQ(form.txtDestination.ToolTip(), QString());
    form.txtDestination.SetWidth(2061);
    form.txtDestination.SetText(twenty);
    EXPECT_EQ(form.txtDestination.ToolTip(), QString());
}

TEST_F(DestinationTest, BrowsingStartsAtTheCurrentDestination) {
    for (const QString& current : {QString(), u"C:\\Music"_s}) {
        form.txtDestination.SetText(current);
        destination.cmdBrowse_Click();
        EXPECT_EQ(shell.Owner, form.Form1.Handle());
        EXPECT_EQ(shell.Prompt, u"Select a destination folder:"_s);
        EXPECT_EQ(shell.StartFolder, current);
        EXPECT_EQ(form.txtDestination.Text(), current); // the picker was cancelled
    }
}

TEST_F(DestinationTest, APickedFolderBecomesTheDestinationAndRunsItsChangeHandler) {
    shell.PickedFolder = u"D:\\"_s + QString(100, u'a');
    destination.cmdBrowse_Click();
    EXPECT_EQ(form.txtDestination.Text(), shell.PickedFolder);
    EXPECT_EQ(form.txtDestination.ToolTip(), shell.PickedFolder);
}

TEST(FolderPicker, TheInitialFolderEndsInANulCharacter) {
    FakeShell shell;
    FolderPicker picker(shell);
    shell.PickedFolder = u"D:\\x"_s + u'\0' + u"rest"_s;
    EXPECT_EQ(picker.BrowseDirectorysOnly(5, u"Prompt"_s, u"C:\\a"_s), u"D:\\x"_s);
    EXPECT_EQ(picker.InitialFolder, u"C:\\a"_s + u'\0');
    EXPECT_EQ(shell.Owner, WindowHandle(5));
    EXPECT_EQ(shell.StartFolder, u"C:\\a"_s);
}
