#include "tests/app/ProgramFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class Form1Test : public testing::Test, protected ProgramFixture {
protected:
    void StartWithSmallLibrary() {
        PlugIn(u'E', u"MY IPOD"_s, SmallLibrary());
        Start();
        form.txtDestination.SetText(u"D:\\Music"_s);
    }
};

} // namespace

TEST_F(Form1Test, TheFirstIpodIsLoadedAtTheStartWithItsFirstArtistCurrent) {
    PlugIn(u'E', u"MY IPOD"_s, SmallLibrary());
    PlugIn(u'F', u"OTHER"_s, {});
    Start();
    EXPECT_EQ(form.Combo1.Text(), u"(E:) MY IPOD"_s);
    EXPECT_EQ(form.lstArtists.Texts(),
              QStringList({u"All (2 Artists)"_s, u"Blue River"_s, u"The Lamps"_s}));
    EXPECT_EQ(form.lstArtists.ListIndex(), 1);
    EXPECT_EQ(form.lstAlbums.Texts(), QStringList({u"All (2 Albums)"_s, u"Deep"_s, u"Wide"_s}));
    EXPECT_EQ(form.lstSongs.Texts(),
              QStringList({u"All (3 Items)"_s, u"Delta"_s, u"Estuary"_s, u"Source"_s}));
    EXPECT_EQ(form.lblMessage.Caption(), u"Selected: 0 KB of 63 KB"_s);
    EXPECT_EQ(form.lblFullName.Caption(), u"Blue River"_s);
    EXPECT_TRUE(form.lstArtists.HasFocus());
    EXPECT_TRUE(form.Picture1.ShowsDevice);
    EXPECT_FALSE(form.cmdCopy.Enabled());
    EXPECT_EQ(form.Form1.ShowCount, 1);
    EXPECT_EQ(form.Form1.Pointer(), MousePointer::Default);
}

TEST_F(Form1Test, WithoutAnIpodThePollFindsTheOneThatIsPluggedIn) {
    Start();
    EXPECT_EQ(form.lblMessage.Caption(), u"No compatible iPod detected."_s);
    EXPECT_FALSE(form.lstArtists.Enabled());
    form.timScan.Elapse();
    EXPECT_EQ(form.lblMessage.Caption(), u"No compatible iPod detected."_s);
    PlugIn(u'E', u"MY IPOD"_s, SmallLibrary());
    form.timScan.Elapse();
    EXPECT_EQ(form.lstArtists.ListCount(), 3);
    EXPECT_FALSE(form.timScan.Enabled());
    EXPECT_EQ(files.CountOf(FileCall::OpenForReading), 1);
}

TEST_F(Form1Test, ATypicalRequestCopiesTheTickedAlbumAndSong) {
    StartWithSmallLibrary();
    form.lstAlbums.UserTick(1, true); // Deep
    EXPECT_EQ(form.lblMessage.Caption(), u"Selected: 48 KB of 63 KB"_s);
    form.lstArtists.UserClick(2);
    form.lstSongs.UserTick(2, true); // Night Bus
    form.cmdCopy.UserPress();

    EXPECT_EQ(messages.Texts(), QStringList({u"Copy completed!"_s}));
    EXPECT_EQ(files.FilesBelow(u"D:\\Music"_s),
              QStringList({u"D:\\Music\\Blue River\\Deep\\01 Source.mp3"_s,
                           u"D:\\Music\\Blue River\\Deep\\02 Delta.mp3"_s,
                           u"D:\\Music\\The Lamps\\Evening\\01 Night Bus.mp3"_s}));
    EXPECT_TRUE(files.SameContent(u"D:\\Music\\The Lamps\\Evening\\01 Night Bus.mp3"_s,
                                  u"E:\\iPod_Control\\Music\\F01\\AAAE.mp3"_s));
    EXPECT_EQ(files.ChangesBelow(u"E:"_s), QStringList());
    EXPECT_EQ(form.lblMessage.Caption(), u"Selected: 50 KB of 63 KB"_s);
    EXPECT_EQ(form.cmdCopy.Caption(), u"&Copy to destination"_s);
}

TEST_F(Form1Test, ACopyDuringASearchTakesTheHiddenMarksTooAndKeepsTheResult) {
    StartWithSmallLibrary();
    form.lstAlbums.UserTick(2, true); // Wide, with Estuary
    form.txtSearch.UserReplace(u"lamps"_s);
    ASSERT_EQ(form.lstArtists.Texts(), QStringList({u"All (1 Artist)"_s, u"The Lamps"_s}));
    form.lstSongs.UserTick(3, true); // Dusk
    form.cmdCopy.UserPress();

    EXPECT_EQ(files.FilesBelow(u"D:\\Music"_s),
              QStringList({u"D:\\Music\\Blue River\\Wide\\01 Estuary.mp3"_s,
                           u"D:\\Music\\The Lamps\\Evening\\02 Dusk.mp3"_s}));
    EXPECT_EQ(form.lstArtists.Texts(), QStringList({u"All (1 Artist)"_s, u"The Lamps"_s}));
    EXPECT_EQ(form.lblMessage.Caption(), u"Selected: 9 KB of 63 KB"_s);
    EXPECT_TRUE(form.cmdClear.Enabled());
    form.cmdClear.UserPress();
    EXPECT_EQ(form.lstArtists.ListCount(), 3);
    EXPECT_EQ(form.lblMessage.Caption(), u"Selected: 9 KB of 63 KB"_s);
}

TEST_F(Form1Test, ASearchThatFindsNothingAndACopyLeaveTheSummaryRight) {
    StartWithSmallLibrary();
    form.lstAlbums.UserTick(2, true);
    form.txtSearch.UserReplace(u"estuary"_s);
    form.txtSearch.UserReplace(u"estuary of no land"_s);
    ASSERT_EQ(form.lstArtists.ListCount(), 0);
    EXPECT_TRUE(form.cmdCopy.Enabled());
    form.cmdCopy.UserPress();
    EXPECT_EQ(files.FilesBelow(u"D:\\Music"_s),
              QStringList({u"D:\\Music\\Blue River\\Wide\\01 Estuary.mp3"_s}));
    EXPECT_EQ(form.lblMessage.Caption(), u"Selected: 8 KB of 63 KB"_s);
    form.txtSearch.UserReplace(QString());
    EXPECT_EQ(form.lstArtists.Texts(),
              QStringList({u"All (2 Artists)"_s, u"Blue River"_s, u"The Lamps"_s}));
    EXPECT_EQ(form.lblMessage.Caption(), u"Selected: 8 KB of 63 KB"_s);
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
    form.txtSearch.UserReplace(u"e"_s);
    events.OnYield = {};
    EXPECT_TRUE(messages.Shown.empty());
    EXPECT_EQ(files.CountOf(FileCall::CopyFile), 0);
    EXPECT_EQ(form.lblMessage.Caption(), u"Selected: 8 KB of 63 KB"_s);
}

TEST_F(Form1Test, UnpluggingDuringASearchEmptiesTheWindowForGood) {
    StartWithSmallLibrary();
    form.txtSearch.UserReplace(u"lamps"_s);
    Unplug(u'E');
    form.Combo1.UserDropDown();
    EXPECT_EQ(form.lblMessage.Caption(), u"No compatible iPod detected."_s);
    EXPECT_EQ(form.lstArtists.ListCount(), 0);
    EXPECT_EQ(form.txtSearch.Text(), QString());
    EXPECT_FALSE(form.txtSearch.Enabled());
    EXPECT_FALSE(form.cmdCopy.Enabled());
    EXPECT_FALSE(form.Picture1.ShowsDevice);
    form.Form1.UserResize(13000, 9000);
    EXPECT_EQ(form.lblFullName.Caption(), QString());
    EXPECT_EQ(form.lblFullName.ToolTip(), QString());

    PlugIn(u'E', u"MY IPOD"_s, SmallLibrary());
    form.timScan.Elapse();
    EXPECT_EQ(form.lstArtists.ListCount(), 3);
    EXPECT_EQ(form.lstArtists.ListIndex(), 1);
}

TEST_F(Form1Test, ADeviceThatWasGoneForAnInstantLoadsWhenItIsChosenAgain) {
    PlugIn(u'E', u"ONE"_s, SmallLibrary());
    PlugIn(u'F', u"TWO"_s, SmallLibrary());
    Start();
    files.FailNthCall(FileCall::FileExists, 1, ErrorNumber::DeviceUnavailable);
    form.Combo1.UserChoose(1);
    EXPECT_EQ(messages.Texts(), QStringList({u"Error loading iPod."_s}));
    EXPECT_EQ(form.lstArtists.ListCount(), 0);
    form.tbsFilter.UserSelectTab(1); // must not show what the first device left
    EXPECT_EQ(form.lstArtists.ListCount(), 0);
    form.Combo1.UserChoose(1);
    EXPECT_EQ(form.lstArtists.ListCount(), 3);
}

TEST_F(Form1Test, AnIpodWithoutMusicOffersNothingUntilOneWithMusicIsChosen) {
    PlugIn(u'E', u"MY IPOD"_s, SmallLibrary());
    PlugIn(u'F', u"EMPTY"_s, {});
    Start();
    for (const bool hasMusic : {false, true}) {
        form.Combo1.UserChoose(hasMusic ? 0 : 1);
        EXPECT_EQ(form.lstArtists.Enabled(), hasMusic);
        EXPECT_EQ(form.txtSearch.Enabled(), hasMusic);
        EXPECT_EQ(form.cmdSearch.Enabled(), hasMusic);
        EXPECT_FALSE(form.cmdClear.Enabled());
        EXPECT_FALSE(form.cmdCopy.Enabled());
    }
}

TEST_F(Form1Test, AFilterTabWorksAgainAfterAnotherDeviceWasChosen) {
    PlugIn(u'E', u"ONE"_s, SmallLibrary());
    PlugIn(u'F', u"TWO"_s, SmallLibrary());
    Start();
    form.tbsFilter.UserSelectTab(2);
    EXPECT_EQ(form.lstArtists.ListCount(), 2);
    form.Combo1.UserChoose(1);
    EXPECT_EQ(form.tbsFilter.SelectedCaption(), u"All Files"_s);
    EXPECT_EQ(form.lstArtists.ListCount(), 3);
    form.tbsFilter.UserSelectTab(2);
    EXPECT_EQ(form.lstArtists.Texts(), QStringList({u"All (1 Artist)"_s, u"The Lamps"_s}));
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
    EXPECT_EQ(store.Values.value(u"TrackNames"_s), u"5"_s);
    EXPECT_EQ(store.Values.value(u"DestPath"_s), u"D:\\Music"_s);
}

TEST_F(Form1Test, SettingsThatCannotBeSavedAreToldOnceAndTheWindowCloses) {
    Start();
    store.FlushFails = true;
    form.Form1.UserClose();
    EXPECT_TRUE(form.Form1.Closed);
    EXPECT_EQ(messages.Shown, std::vector<ShownMessage>(
                                  {{u"Your settings could not be saved in \"/home/ana/settings\". "
                                    "The next start will have the earlier ones."_s,
                                    u"Error"_s, MessageButtons::OK, MessageIcon::Exclamation}}));
}

TEST_F(Form1Test, AFilmThatTellsItsSizeLateSizesThePreview) {
    Start();
    player.Move(0, 0, 4800, 3600);
    Raise(player.SizeChanged);
    EXPECT_EQ(frmPreview.Width(), 4800);
    EXPECT_EQ(frmPreview.Height(), 3600);
}

TEST_F(Form1Test, AWindowClosedDuringAJobStaysOnNoAndSavesTheSettingsOnYes) {
    StartWithSmallLibrary();
    form.lstArtists.UserTick(0, true);
    events.OnYield = [this](int yield) {
        if (yield == 2 || yield == 6) {
            form.Form1.UserClose();
            EXPECT_FALSE(form.Form1.Closed);
            EXPECT_TRUE(store.Writes.isEmpty());
        }
    };
    const QString quit = u"Are you sure you want to quit?"_s;
    messages.Answers = {MessageAnswer::No, MessageAnswer::Yes};
    form.cmdCopy.UserPress();
    EXPECT_EQ(messages.Texts(), QStringList({quit, quit}));
    EXPECT_TRUE(form.Form1.Closed);
    EXPECT_EQ(store.Values.size(), 10);
    EXPECT_EQ(files.FilesBelow(u"D:\\Music"_s).size(), 5);
}

TEST_F(Form1Test, AnEarlierFileIsSkippedForAllWhenThePromptSaysSo) {
    StartWithSmallLibrary();
    form.lstArtists.UserTick(1, true);
    form.cmdCopy.UserPress();
    QStringList asked;
    AtPrompt = [&asked](OverwritePrompt& prompt) {
        asked.append(prompt.OverwriteFile());
        prompt.Take(OverwritePrompt::Skip, true);
    };
    form.cmdCopy.UserPress();
    EXPECT_EQ(asked, QStringList({u"D:\\Music\\Blue River\\Deep\\01 Source.mp3"_s}));
    EXPECT_EQ(files.CountOf(FileCall::CopyFile), 3);
    EXPECT_EQ(messages.Texts(), QStringList({u"Copy completed!"_s, u"Copy completed!"_s}));
}

TEST_F(Form1Test, AHandEditedSettingStopsTheStartAndLeavesTheStoreAsItIs) {
    store.Values[u"WindowState"_s] = u"1"_s;
    store.Values[u"Handle2"_s] = u"right"_s;
    EXPECT_THROW(Start(), RuntimeError);
    EXPECT_EQ(form.Form1.ShowCount, 0);
    EXPECT_TRUE(store.Writes.isEmpty());
}
