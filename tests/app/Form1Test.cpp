#include "tests/app/ProgramFixture.h"

#include <gtest/gtest.h>

namespace {

class Form1Test : public testing::Test, protected ProgramFixture {
protected:
    static QString Q(const char* text) { return QString::fromUtf8(text); }

    void StartWithSmallLibrary() {
        PlugIn(QLatin1Char('E'), Q("MY IPOD"), SmallLibrary());
        Start();
        form.txtDestination.SetText(Q("D:\\Music"));
    }
};

} // namespace

TEST_F(Form1Test, TheFirstIpodIsLoadedAtTheStartWithItsFirstArtistCurrent) {
    PlugIn(QLatin1Char('E'), Q("MY IPOD"), SmallLibrary());
    PlugIn(QLatin1Char('F'), Q("OTHER"), {});
    Start();
    EXPECT_EQ(form.Combo1.Text(), Q("(E:) MY IPOD"));
    EXPECT_EQ(form.lstArtists.Texts(),
              QStringList({Q("All (2 Artists)"), Q("Blue River"), Q("The Lamps")}));
    EXPECT_EQ(form.lstArtists.ListIndex(), 1);
    EXPECT_EQ(form.lstAlbums.Texts(), QStringList({Q("All (2 Albums)"), Q("Deep"), Q("Wide")}));
    EXPECT_EQ(form.lstSongs.Texts(),
              QStringList({Q("All (3 Items)"), Q("Delta"), Q("Estuary"), Q("Source")}));
    EXPECT_EQ(form.lblMessage.Caption(), Q("Selected: 0 KB of 3.5 MB"));
    EXPECT_EQ(form.lblFullName.Caption(), Q("Blue River"));
    EXPECT_TRUE(form.lstArtists.HasFocus());
    EXPECT_TRUE(form.Picture1.ShowsDevice);
    EXPECT_FALSE(form.cmdCopy.Enabled());
    EXPECT_EQ(form.Form1.ShowCount, 1);
    EXPECT_EQ(form.Form1.Pointer(), MousePointer::Default);
}

TEST_F(Form1Test, WithoutAnIpodThePollFindsTheOneThatIsPluggedIn) {
    Start();
    EXPECT_EQ(form.lblMessage.Caption(), Q("No compatible iPod detected."));
    EXPECT_FALSE(form.lstArtists.Enabled());
    form.timScan.Elapse();
    EXPECT_EQ(form.lblMessage.Caption(), Q("No compatible iPod detected."));
    PlugIn(QLatin1Char('E'), Q("MY IPOD"), SmallLibrary());
    form.timScan.Elapse();
    EXPECT_EQ(form.lstArtists.ListCount(), 3);
    EXPECT_FALSE(form.timScan.Enabled());
    EXPECT_EQ(files.CountOf(FileCall::OpenForReading), 1);
}

TEST_F(Form1Test, ATypicalRequestCopiesTheTickedAlbumAndSong) {
    StartWithSmallLibrary();
    form.lstAlbums.UserTick(1, true); // Deep
    EXPECT_EQ(form.lblMessage.Caption(), Q("Selected: 3.0 MB of 3.5 MB"));
    form.lstArtists.UserClick(2);
    form.lstSongs.UserTick(2, true); // Night Bus
    form.cmdCopy.UserPress();

    EXPECT_EQ(messages.Texts(), QStringList({Q("Copy completed!")}));
    EXPECT_EQ(files.FilesBelow(Q("D:\\Music")),
              QStringList({Q("D:\\Music\\Blue River\\Deep\\01 Source.mp3"),
                           Q("D:\\Music\\Blue River\\Deep\\02 Delta.mp3"),
                           Q("D:\\Music\\The Lamps\\Evening\\01 Night Bus.mp3")}));
    EXPECT_TRUE(files.SameContent(Q("D:\\Music\\The Lamps\\Evening\\01 Night Bus.mp3"),
                                  Q("E:\\iPod_Control\\Music\\F01\\AAAE.mp3")));
    EXPECT_EQ(files.ChangesBelow(Q("E:")), QStringList());
    EXPECT_EQ(form.lblMessage.Caption(), Q("Selected: 3.0 MB of 3.5 MB"));
    EXPECT_EQ(form.cmdCopy.Caption(), Q("&Copy to destination"));
}

TEST_F(Form1Test, ACopyDuringASearchTakesTheHiddenMarksTooAndKeepsTheResult) {
    StartWithSmallLibrary();
    form.lstAlbums.UserTick(2, true); // Wide, with Estuary
    form.txtSearch.UserReplace(Q("lamps"));
    ASSERT_EQ(form.lstArtists.Texts(), QStringList({Q("All (1 Artist)"), Q("The Lamps")}));
    form.lstSongs.UserTick(3, true); // Dusk
    form.cmdCopy.UserPress();

    EXPECT_EQ(files.FilesBelow(Q("D:\\Music")),
              QStringList({Q("D:\\Music\\Blue River\\Wide\\01 Estuary.mp3"),
                           Q("D:\\Music\\The Lamps\\Evening\\02 Dusk.mp3")}));
    EXPECT_EQ(form.lstArtists.Texts(), QStringList({Q("All (1 Artist)"), Q("The Lamps")}));
    EXPECT_EQ(form.lblMessage.Caption(), Q("Selected: 513 KB of 3.5 MB"));
    EXPECT_TRUE(form.cmdClear.Enabled());
    form.cmdClear.UserPress();
    EXPECT_EQ(form.lstArtists.ListCount(), 3);
    EXPECT_EQ(form.lblMessage.Caption(), Q("Selected: 513 KB of 3.5 MB"));
}

TEST_F(Form1Test, ASearchThatFindsNothingAndACopyLeaveTheSummaryRight) {
    StartWithSmallLibrary();
    form.lstAlbums.UserTick(2, true);
    form.txtSearch.UserReplace(Q("estuary"));
    form.txtSearch.UserReplace(Q("estuary of no land"));
    ASSERT_EQ(form.lstArtists.ListCount(), 0);
    EXPECT_TRUE(form.cmdCopy.Enabled());
    form.cmdCopy.UserPress();
    EXPECT_EQ(files.FilesBelow(Q("D:\\Music")),
              QStringList({Q("D:\\Music\\Blue River\\Wide\\01 Estuary.mp3")}));
    EXPECT_EQ(form.lblMessage.Caption(), Q("Selected: 512 KB of 3.5 MB"));
    form.txtSearch.UserReplace(QString());
    EXPECT_EQ(form.lstArtists.Texts(),
              QStringList({Q("All (2 Artists)"), Q("Blue River"), Q("The Lamps")}));
    EXPECT_EQ(form.lblMessage.Caption(), Q("Selected: 512 KB of 3.5 MB"));
}

TEST_F(Form1Test, CopyAndClearPressedInASearchsYieldDoNothing) {
    StartWithSmallLibrary();
    form.lstAlbums.UserTick(2, true);
    events.OnYield = [this](int) {
        form.cmdCopy.UserPress();
        form.cmdClear.UserPress();
        form.cmdSearch.UserPress();
        form.lstArtists.UserTick(0, true);
    };
    form.txtSearch.UserReplace(Q("e"));
    events.OnYield = {};
    EXPECT_TRUE(messages.Shown.empty());
    EXPECT_EQ(files.CountOf(FileCall::CopyFile), 0);
    EXPECT_EQ(form.lblMessage.Caption(), Q("Selected: 512 KB of 3.5 MB"));
}

TEST_F(Form1Test, UnpluggingDuringASearchEmptiesTheWindowForGood) {
    StartWithSmallLibrary();
    form.txtSearch.UserReplace(Q("lamps"));
    Unplug(QLatin1Char('E'));
    form.Combo1.UserDropDown();
    EXPECT_EQ(form.lblMessage.Caption(), Q("No compatible iPod detected."));
    EXPECT_EQ(form.lstArtists.ListCount(), 0);
    EXPECT_EQ(form.txtSearch.Text(), QString());
    EXPECT_FALSE(form.txtSearch.Enabled());
    EXPECT_FALSE(form.cmdCopy.Enabled());
    EXPECT_FALSE(form.Picture1.ShowsDevice);
    form.Form1.UserResize(13000, 9000);
    EXPECT_EQ(form.lblFullName.Caption(), QString());
    EXPECT_EQ(form.lblFullName.ToolTip(), QString());

    PlugIn(QLatin1Char('E'), Q("MY IPOD"), SmallLibrary());
    form.timScan.Elapse();
    EXPECT_EQ(form.lstArtists.ListCount(), 3);
    EXPECT_EQ(form.lstArtists.ListIndex(), 1);
}

TEST_F(Form1Test, ADeviceThatWasGoneForAnInstantLoadsWhenItIsChosenAgain) {
    PlugIn(QLatin1Char('E'), Q("ONE"), SmallLibrary());
    PlugIn(QLatin1Char('F'), Q("TWO"), SmallLibrary());
    Start();
    files.FailNthCall(FileCall::FileExists, 1, ErrorNumber::DeviceUnavailable);
    form.Combo1.UserChoose(1);
    EXPECT_EQ(messages.Texts(), QStringList({Q("Error loading iPod.")}));
    EXPECT_EQ(form.lstArtists.ListCount(), 0);
    form.tbsFilter.UserSelectTab(1); // must not show what the first device left
    EXPECT_EQ(form.lstArtists.ListCount(), 0);
    form.Combo1.UserChoose(1);
    EXPECT_EQ(form.lstArtists.ListCount(), 3);
}

TEST_F(Form1Test, AFilterTabWorksAgainAfterAnotherDeviceWasChosen) {
    PlugIn(QLatin1Char('E'), Q("ONE"), SmallLibrary());
    PlugIn(QLatin1Char('F'), Q("TWO"), SmallLibrary());
    Start();
    form.tbsFilter.UserSelectTab(2);
    EXPECT_EQ(form.lstArtists.ListCount(), 2);
    form.Combo1.UserChoose(1);
    EXPECT_EQ(form.tbsFilter.SelectedCaption(), Q("All Files"));
    EXPECT_EQ(form.lstArtists.ListCount(), 3);
    form.tbsFilter.UserSelectTab(2);
    EXPECT_EQ(form.lstArtists.Texts(), QStringList({Q("All (1 Artist)"), Q("The Lamps")}));
}

TEST_F(Form1Test, ClosingTheWindowClosesThePreviewAndThenSavesTheSettings) {
    StartWithSmallLibrary();
    frmPreview.Show();
    frmPreview.QueryUnload = [this](bool&, UnloadMode mode) {
        EXPECT_EQ(mode, UnloadMode::Program);
        EXPECT_TRUE(store.Writes.isEmpty());
    };
    form.chkArtistName.UserPress();
    form.Form1.UserClose();
    EXPECT_TRUE(form.Form1.Closed);
    EXPECT_TRUE(frmPreview.Closed);
    EXPECT_EQ(store.Values.value(Q("TrackNames")), Q("5"));
    EXPECT_EQ(store.Values.value(Q("DestPath")), Q("D:\\Music"));
}

TEST_F(Form1Test, SettingsThatCannotBeSavedAreToldOnceAndTheWindowCloses) {
    Start();
    store.FlushFails = true;
    form.Form1.UserClose();
    EXPECT_TRUE(form.Form1.Closed);
    EXPECT_EQ(messages.Shown, std::vector<ShownMessage>(
                                  {{Q("Your settings could not be saved in \"/home/ana/settings\". "
                                      "The next start will have the earlier ones."),
                                    Q("Error"), MessageButtons::OK, MessageIcon::Exclamation}}));
}

TEST_F(Form1Test, AFilmThatTellsItsSizeLateSizesThePreview) {
    Start();
    player.Move(0, 0, 4800, 3600);
    Raise(player.SizeChanged);
    EXPECT_EQ(frmPreview.Width(), 4800);
    EXPECT_EQ(frmPreview.Height(), 3600);
}

TEST_F(Form1Test, AWindowClosedDuringAJobAsksAndStaysOnNo) {
    StartWithSmallLibrary();
    form.lstArtists.UserTick(0, true);
    events.OnYield = [this](int yield) {
        if (yield == 2) {
            form.Form1.UserClose();
        }
    };
    messages.Answers = {MessageAnswer::No, MessageAnswer::OK};
    form.cmdCopy.UserPress();
    EXPECT_FALSE(form.Form1.Closed);
    EXPECT_EQ(messages.Texts(),
              QStringList({Q("Are you sure you want to quit?"), Q("Copy completed!")}));
    EXPECT_EQ(files.FilesBelow(Q("D:\\Music")).size(), 6);
}

TEST_F(Form1Test, AWindowClosedDuringAJobSavesTheSettingsOnYes) {
    StartWithSmallLibrary();
    form.lstArtists.UserTick(0, true);
    events.OnYield = [this](int yield) {
        if (yield == 2) {
            form.Form1.UserClose();
            EXPECT_FALSE(form.Form1.Closed);
            EXPECT_TRUE(store.Writes.isEmpty());
        }
    };
    messages.Answers = {MessageAnswer::Yes};
    form.cmdCopy.UserPress();
    EXPECT_TRUE(form.Form1.Closed);
    EXPECT_EQ(store.Values.size(), 10);
    EXPECT_EQ(files.FilesBelow(Q("D:\\Music")).size(), 1);
}

TEST_F(Form1Test, AnEarlierFileIsSkippedForAllWhenThePromptSaysSo) {
    StartWithSmallLibrary();
    form.lstArtists.UserTick(1, true);
    form.cmdCopy.UserPress();
    QStringList asked;
    AtPrompt = [&asked](OverwritePrompt& prompt) {
        asked.append(prompt.OverwriteFile);
        prompt.OverwriteAnswer = OverwritePrompt::Skip;
        prompt.OverwriteAll = true;
    };
    form.cmdCopy.UserPress();
    EXPECT_EQ(asked, QStringList({Q("D:\\Music\\Blue River\\Deep\\01 Source.mp3")}));
    EXPECT_EQ(files.CountOf(FileCall::CopyFile), 3);
    EXPECT_EQ(messages.Texts(), QStringList({Q("Copy completed!"), Q("Copy completed!")}));
}

TEST_F(Form1Test, AHandEditedSettingStopsTheStartAndLeavesTheStoreAsItIs) {
    store.Values[Q("WindowState")] = Q("1");
    store.Values[Q("Handle2")] = Q("right");
    EXPECT_THROW(Start(), RuntimeError);
    EXPECT_EQ(form.Form1.ShowCount, 0);
    EXPECT_TRUE(store.Writes.isEmpty());
}
