#include "copy/Destination.h"
#include "app/ControlGroups.h"

#include "platform/RuntimeError.h"
#include "tests/fakes/FakeFileSystem.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"

#include <gtest/gtest.h>

namespace {

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

class DestinationTest : public testing::Test {
protected:
    DestinationTest() {
        files.AddDrive(Text("C:"));
        files.AddDrive(Text("D:"));
        files.AddFolder(Text("/home/ana"));
        form.txtDestination.Change = [this] { destination.txtDestination_Change(); };
    }

    bool Validate(const char* path) { return destination.ValidatePath(Text(path)); }
    bool IsValid(const char* path) { return destination.IsValidPath(Text(path)); }

    FakeForm1 form;
    FakeFileSystem files;
    FakeShell shell;
    Destination destination{files, shell, form.WindowManager, DestinationControlsOf(form.Controls)};
};

} // namespace

// ---- ValidatePath

TEST_F(DestinationTest, ValidatePathCreatesAFolderWhoseParentExists) {
    EXPECT_TRUE(Validate("D:\\New"));
    EXPECT_TRUE(files.HasFolder(Text("D:\\New")));
    EXPECT_EQ(destination.ProbeFolder, Text("D:\\New"));
    EXPECT_FALSE(destination.CreateFailed);
}

TEST_F(DestinationTest, ValidatePathCreatesTheChainAndRemembersItsTopmostFolder) {
    EXPECT_TRUE(Validate("D:\\New\\Sub\\Deep"));
    EXPECT_EQ(files.CallsOf(FileCall::CreateFolder),
              QStringList({Text("D:\\New"), Text("D:\\New\\Sub"), Text("D:\\New\\Sub\\Deep")}));
    EXPECT_EQ(destination.ProbeFolder, Text("D:\\New"));
}

TEST_F(DestinationTest, ValidatePathOnAMissingDriveIsFalse) {
    EXPECT_FALSE(Validate("Q:\\x"));
    EXPECT_FALSE(Validate("Q:\\x\\y"));
    EXPECT_EQ(destination.ProbeFolder, QString());
    EXPECT_FALSE(destination.CreateFailed);
    EXPECT_EQ(files.CountOf(FileCall::CreateFolder), 0);
}

TEST_F(DestinationTest, ValidatePathWithAQuestionMarkInTheNameIsFalseWithoutCreateFailed) {
    EXPECT_FALSE(Validate("D:\\What?"));
    EXPECT_FALSE(destination.CreateFailed);
    EXPECT_EQ(destination.ProbeFolder, QString());
}

TEST_F(DestinationTest, ValidatePathWithABadNameHighUpIsFalseWithoutCreateFailed) {
    EXPECT_FALSE(Validate("D:\\What?\\Sub"));
    EXPECT_FALSE(destination.CreateFailed);
    EXPECT_TRUE(files.FoldersBelow(Text("D:")).isEmpty());
}

TEST_F(DestinationTest, ValidatePathWithABadNameLowDownLeavesTheProbeFolderToDelete) {
    EXPECT_FALSE(Validate("D:\\New\\What?"));
    EXPECT_FALSE(destination.CreateFailed);
    EXPECT_EQ(destination.ProbeFolder, Text("D:\\New"));
}

TEST_F(DestinationTest, AnotherFailureToCreateSetsCreateFailed) {
    files.FailPath(Text("D:\\New"), ErrorNumber::PermissionDenied);
    EXPECT_FALSE(Validate("D:\\New"));
    EXPECT_TRUE(destination.CreateFailed);
    EXPECT_EQ(destination.ProbeFolder, QString());
}

TEST_F(DestinationTest, AFailureInTheMiddleOfTheChainSetsCreateFailedAndKeepsTheProbeFolder) {
    files.FailPath(FileCall::CreateFolder, Text("D:\\New\\Sub"), ErrorNumber::DiskFull);
    EXPECT_FALSE(Validate("D:\\New\\Sub\\Deep"));
    EXPECT_TRUE(destination.CreateFailed);
    EXPECT_EQ(destination.ProbeFolder, Text("D:\\New"));
    EXPECT_FALSE(files.HasFolder(Text("D:\\New\\Sub\\Deep")));
}

TEST_F(DestinationTest, AFileInTheWaySetsCreateFailed) {
    files.AddFile(Text("D:\\New"), "song");
    EXPECT_FALSE(Validate("D:\\New"));
    EXPECT_TRUE(destination.CreateFailed);
    EXPECT_EQ(files.Bytes(Text("D:\\New")), QByteArray("song"));
}

TEST_F(DestinationTest, ABareNameHasNoParentAndIsFalse) {
    EXPECT_FALSE(Validate("Music"));
    EXPECT_FALSE(Validate("Music/New"));
    EXPECT_FALSE(Validate(""));
    EXPECT_EQ(files.CountOf(FileCall::CreateFolder), 0);
}

TEST_F(DestinationTest, ASeparatorAtTheEndMakesNoDifference) {
    EXPECT_TRUE(Validate("D:\\New\\Sub\\"));
    EXPECT_TRUE(files.HasFolder(Text("D:\\New\\Sub")));
    EXPECT_EQ(destination.ProbeFolder, Text("D:\\New"));
}

TEST_F(DestinationTest, ValidatePathTakesNativePaths) {
    EXPECT_TRUE(Validate("/home/ana/Music/New"));
    EXPECT_TRUE(files.HasFolder(Text("/home/ana/Music/New")));
    EXPECT_EQ(destination.ProbeFolder, Text("/home/ana/Music"));
}

TEST_F(DestinationTest, TheParentOfANativeFolderAtTheTopIsTheRoot) {
    EXPECT_TRUE(Validate("/music"));
    EXPECT_EQ(destination.ProbeFolder, Text("/music"));
}

TEST_F(DestinationTest, APathOfAMillionLettersIsFalseAtOnce) {
    EXPECT_FALSE(destination.ValidatePath(Text("D:") + Text("\\a").repeated(500000)));
    EXPECT_TRUE(files.Calls.empty());
}

TEST_F(DestinationTest, APathOfThousandsOfFoldersIsTriedWithoutHarm) {
    EXPECT_FALSE(destination.ValidatePath(Text("Q:") + Text("\\a").repeated(5000)));
    EXPECT_EQ(destination.ProbeFolder, QString());
}

// ---- IsValidPath

TEST_F(DestinationTest, APathOnAnExistingDriveIsValidWithAndWithoutASeparatorAtTheEnd) {
    EXPECT_TRUE(IsValid("C:\\Music"));
    EXPECT_TRUE(IsValid("C:\\Music\\"));
    EXPECT_TRUE(IsValid("C:\\My Music\\...And More"));
    EXPECT_TRUE(IsValid("C:\\"));
}

TEST_F(DestinationTest, AnEmptyPathOrOneOnAMissingDriveIsInvalid) {
    EXPECT_FALSE(IsValid(""));
    EXPECT_FALSE(IsValid("Q:\\Music"));
    EXPECT_FALSE(IsValid("Music"));
}

TEST_F(DestinationTest, EveryForbiddenCharacterMakesAPathInvalid) {
    for (const char* path : {"C:\\a:b", "C:\\a/b", "C:\\a*b", "C:\\a?b", "C:\\a\"b", "C:\\a<b",
                             "C:\\a>b", "C:\\a|b"}) {
        EXPECT_FALSE(IsValid(path)) << path;
    }
}

TEST_F(DestinationTest, APathThatEndsInADotIsInvalid) {
    EXPECT_FALSE(IsValid("C:\\Music."));
    EXPECT_FALSE(IsValid("C:\\Music\\."));
}

TEST_F(DestinationTest, AComponentOfBlanksOrDotsOnlyIsInvalid) {
    EXPECT_FALSE(IsValid("C:\\ \\Music"));
    EXPECT_FALSE(IsValid("C:\\..\\Music"));
    EXPECT_FALSE(IsValid("C:\\Music\\ "));
}

TEST_F(DestinationTest, TwoSeparatorsInARowAreInvalid) {
    EXPECT_FALSE(IsValid("C:\\\\Music"));
    EXPECT_FALSE(IsValid("C:\\Music\\\\Sub"));
}

TEST_F(DestinationTest, ANetworkPathIsInvalid) {
    EXPECT_FALSE(IsValid("\\\\server\\share\\Music"));
}

TEST_F(DestinationTest, NativePathsFollowTheSameRulesWithTheirSeparator) {
    EXPECT_TRUE(IsValid("/home/ana/Music"));
    EXPECT_TRUE(IsValid("/home/ana/Music/"));
    EXPECT_TRUE(IsValid("/"));
    EXPECT_FALSE(IsValid("//home"));
    EXPECT_FALSE(IsValid("/home//ana"));
    EXPECT_FALSE(IsValid("/home/a\\b"));
    EXPECT_FALSE(IsValid("/home/a:b"));
    EXPECT_FALSE(IsValid("/home/../etc"));
    EXPECT_FALSE(IsValid("/home/ana."));
    EXPECT_FALSE(IsValid("home/ana"));
}

// ---- CreatePath

TEST_F(DestinationTest, CreatePathCreatesOnlyWhatIsMissing) {
    files.AddFolder(Text("C:\\Music"));
    destination.CreatePath(Text("C:\\Music\\New\\Sub"));
    EXPECT_TRUE(files.HasFolder(Text("C:\\Music\\New\\Sub")));
    EXPECT_EQ(files.CallsOf(FileCall::CreateFolder),
              QStringList({Text("C:\\Music\\New\\"), Text("C:\\Music\\New\\Sub\\")}));
}

TEST_F(DestinationTest, CreatePathOnceCreatingTestsNoFurtherFolder) {
    destination.CreatePath(Text("C:\\New\\Sub"));
    EXPECT_EQ(files.CallsOf(FileCall::FolderExists),
              QStringList({Text("C:\\"), Text("C:\\New\\")}));
}

TEST_F(DestinationTest, CreatePathTakesASeparatorAtTheEndAndNativePaths) {
    destination.CreatePath(Text("C:\\New\\"));
    EXPECT_TRUE(files.HasFolder(Text("C:\\New")));
    destination.CreatePath(Text("/home/ana/Music/New"));
    EXPECT_TRUE(files.HasFolder(Text("/home/ana/Music/New")));
}

TEST_F(DestinationTest, CreatePathRaisesWhatFails) {
    files.FailPath(Text("C:\\New\\"), ErrorNumber::PermissionDenied);
    try {
        destination.CreatePath(Text("C:\\New\\Sub"));
        FAIL() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(int(error.Number), 70);
    }
    EXPECT_FALSE(files.HasFolder(Text("C:\\New")));
}

// ---- the box and the picker

TEST_F(DestinationTest, APathClearlyNarrowerThanItsBoxHasNoToolTip) {
    form.txtDestination.SetToolTip(Text("old"));
    form.txtDestination.SetText(Text("C:\\Music"));
    EXPECT_EQ(form.txtDestination.ToolTip(), QString());
}

TEST_F(DestinationTest, APathWithinFourPixelsOfTheBoxWidthIsItsToolTip) {
    form.Form1.CharacterWidth = 100;
    form.WindowManager.TwipsPerPixel[0] = 15;
    form.txtDestination.SetWidth(2060); // 4 pixels of 15 twips more than 20 letters
    const QString nineteen = Text("C:\\") + QString(16, QLatin1Char('a'));
    const QString twenty = Text("C:\\") + QString(17, QLatin1Char('a'));
    form.txtDestination.SetText(twenty);
    EXPECT_EQ(form.txtDestination.ToolTip(), twenty);
    form.txtDestination.SetText(nineteen);
    EXPECT_EQ(form.txtDestination.ToolTip(), QString());
    form.txtDestination.SetWidth(2061);
    form.txtDestination.SetText(twenty);
    EXPECT_EQ(form.txtDestination.ToolTip(), QString());
}

TEST_F(DestinationTest, BrowsingStartsAtTheCurrentDestination) {
    form.txtDestination.SetText(Text("C:\\Music"));
    destination.cmdBrowse_Click();
    EXPECT_EQ(shell.BrowseCount, 1);
    EXPECT_EQ(shell.Owner, form.Form1.Handle());
    EXPECT_EQ(shell.Prompt, Text("Select a destination folder:"));
    EXPECT_EQ(shell.StartFolder, Text("C:\\Music"));
}

TEST_F(DestinationTest, BrowsingWithAnEmptyDestinationPreselectsNothing) {
    destination.cmdBrowse_Click();
    EXPECT_EQ(shell.BrowseCount, 1);
    EXPECT_EQ(shell.StartFolder, QString());
}

TEST_F(DestinationTest, APickedFolderBecomesTheDestinationAndRunsItsChangeHandler) {
    shell.PickedFolder = Text("D:\\") + QString(100, QLatin1Char('a'));
    destination.cmdBrowse_Click();
    EXPECT_EQ(form.txtDestination.Text(), shell.PickedFolder);
    EXPECT_EQ(form.txtDestination.ToolTip(), shell.PickedFolder);
}

TEST_F(DestinationTest, ACancelledPickerLeavesTheDestinationAlone) {
    form.txtDestination.SetText(Text("C:\\Music"));
    shell.PickedFolder = QString();
    destination.cmdBrowse_Click();
    EXPECT_EQ(form.txtDestination.Text(), Text("C:\\Music"));
}

TEST(FolderPicker, TheInitialFolderEndsInANulCharacter) {
    FakeShell shell;
    FolderPicker picker(shell);
    shell.PickedFolder = Text("D:\\x") + QChar(u'\0') + Text("rest");
    EXPECT_EQ(picker.BrowseDirectorysOnly(5, Text("Prompt"), Text("C:\\a")), Text("D:\\x"));
    EXPECT_EQ(picker.InitialFolder, Text("C:\\a") + QChar(u'\0'));
    EXPECT_EQ(shell.Owner, WindowHandle(5));
    EXPECT_EQ(shell.StartFolder, Text("C:\\a"));
}
