// The list of devices and the poll that waits for one.

#include "app/ControlGroups.h"
#include "platform/RuntimeError.h"
#include "tests/library/DevicesWindow.h"

using namespace Qt::StringLiterals;

class DeviceScan : public DevicesWindow {};

// ---- which drives are listed, and how

TEST_F(DeviceScan, RemovableDrivesFromCOnWithADatabaseAreListedInTheOrderOfTheSystem) {
    AttachIPod('A', u"floppy"_s, {u"1"_s});
    AttachIPod('B', u"floppy"_s, {u"1"_s});
    AttachIPod('G', u"second letter"_s, {u"1"_s});
    AttachIPod('C', u"first letter"_s, {u"1"_s});
    AttachIPod('F', {}, {u"1"_s});
    AttachIPod('D', u"backup"_s, {u"1"_s});
    Drives.Mounted.back().Removable = false;
    Drives.Mounted.push_back({u'H', u"STICK"_s});
    Files.AddDrive(u"H:"_s);
    Drives.Mounted.push_back({u'I', u"only the SQLite library"_s});
    Files.AddFile(LibraryOn(u'I'), "x");
    Files.Calls.clear();
    Devices.Combo1_DropDown();
    EXPECT_EQ(Window.Combo1.Entries(),
              (QStringList{u"(G:) second letter"_s, u"(C:) first letter"_s, u"(F:) "_s}));
    EXPECT_EQ(Files.CallsOf(FileCall::FileExists),
              (QStringList{DatabaseOn(u'G'), DatabaseOn(u'C'), DatabaseOn(u'F'), DatabaseOn(u'H'),
                           DatabaseOn(u'I')}));
    EXPECT_EQ(Files.Calls.size(), 5U);
}

TEST_F(DeviceScan, ADriveThatDoesNotReportItsTypeIsSkippedAndOneWithoutANameIsListed) {
    AttachIPod('E', u"GOING"_s, {u"1"_s});
    AttachIPod('F', u"GOING"_s, {u"1"_s});
    AttachIPod('G', u"STAYING"_s, {u"1"_s});
    Drives.Mounted[0].IsRemovableFails = true;
    Drives.Mounted[1].VolumeNameFails = true;
    Devices.Combo1_DropDown();
    EXPECT_EQ(Window.Combo1.Entries(), (QStringList{u"(F:) "_s, u"(G:) STAYING"_s}));
}

TEST_F(DeviceScan, WhenDrivesCannotBeListedNoDeviceIsFound) {
    struct NoDrives : FakeDriveService {
        std::vector<Drive> Drives() override { throw RuntimeError(ErrorNumber::DeviceUnavailable); }
    } drives;
    DeviceSelection devices(Music, drives, {Files, Background, Events, Boxes}, Window.WindowManager,
                            DeviceControlsOf(Window.Controls));
    devices.Combo1_DropDown();
    EXPECT_EQ(Window.lblMessage.Caption(), u"No compatible iPod detected."_s);
    EXPECT_TRUE(Window.timScan.Enabled());
    EXPECT_FALSE(devices.SuppressComboClick());
}

// ---- what a scan does to the window

TEST_F(DeviceScan, WithoutADeviceTheWindowIsResetAndTheTimerRuns) {
    FillWindow();
    Devices.Combo1_DropDown();
    ExpectReset(u"No compatible iPod detected."_s);
    EXPECT_TRUE(Window.timScan.Enabled());
    EXPECT_EQ(Boxes.Texts(), QStringList());
}

TEST_F(DeviceScan, WithADeviceThatIsNotChosenTheWindowIsResetAndTheTimerStops) {
    AttachIPod('E', u"IPOD"_s, {u"1"_s});
    FillWindow();
    Window.timScan.SetEnabled(true);
    Window.lblMessage.SetCaption(u"old"_s);
    Devices.Combo1_DropDown();
    ExpectReset({});
    EXPECT_FALSE(Window.timScan.Enabled());
    EXPECT_EQ(Music.Library.TrackCount, 0);
}

TEST_F(DeviceScan, TheChosenDeviceIsChosenAgainWithoutALoad) {
    ShowIPod();
    Files.Calls.clear();
    AttachIPod('C', u"OTHER"_s, {u"2"_s});
    std::swap(Drives.Mounted[0], Drives.Mounted[1]);
    Devices.Combo1_DropDown();
    EXPECT_EQ(Window.Combo1.Text(), u"(E:) IPOD"_s);
    EXPECT_EQ(Window.Combo1.ListCount(), 2);
    EXPECT_EQ(Devices.LoadedDevice, u"(E:) IPOD"_s);
    EXPECT_EQ(Files.CountOf(FileCall::OpenForReading), 0);
    ExpectFilled();
}

TEST_F(DeviceScan, ADeviceThatIsGoneOrHasANewNameResetsTheWindow) {
    ShowIPod();
    Detach('E');
    Window.Combo1.UserDropDown();
    ExpectReset(u"No compatible iPod detected."_s);
    EXPECT_TRUE(Window.timScan.Enabled());
    ShowIPod();
    AttachIPod('F', u"OTHER"_s, {u"2"_s});
    Detach('E');
    Window.Combo1.UserDropDown();
    ExpectReset({});
    EXPECT_FALSE(Window.timScan.Enabled());
    EXPECT_EQ(Window.Combo1.Entries(), QStringList{u"(F:) OTHER"_s});
    Choose(0);
    FillWindow();
    Drives.Mounted[0].VolumeName = u"ANA'S IPOD"_s;
    Window.Combo1.UserDropDown();
    ExpectReset({});
    EXPECT_EQ(Boxes.Texts(), QStringList());
}

TEST_F(DeviceScan, TheLibraryIsReportedLostBeforeTheListsAndTheSearchAreEmptied) {
    ShowIPod();
    Detach('E');
    Devices.LibraryLeaves = [this] {
        EXPECT_EQ(Window.lstArtists.ListCount(), 1);
        EXPECT_EQ(Window.txtSearch.Text(), u"word"_s);
        Raised += u"leaves"_s;
    };
    Window.txtSearch.Change = [this] { Raised += u"search changed"_s; };
    Devices.Combo1_DropDown();
    EXPECT_EQ(Raised, (QStringList{u"leaves"_s, u"search changed"_s}));
    EXPECT_EQ(UnlockedTabClicks, 0); // though the first tab was selected
}

TEST_F(DeviceScan, AFailingListenerDoesNotStopTheReset) {
    ShowIPod();
    Detach('E');
    const auto fail = [] { throw RuntimeError(ErrorNumber::SubscriptOutOfRange); };
    Devices.LibraryLeaves = [this, fail] {
        Parts.Fitting.ForgetText();
        fail();
    };
    Window.txtSearch.Change = fail;
    Window.tbsFilter.Click = fail;
    Devices.Combo1_DropDown();
    ExpectReset(u"No compatible iPod detected."_s);
    EXPECT_TRUE(Window.timScan.Enabled());
}

TEST_F(DeviceScan, PollingWithoutADeviceChangesNothingTwice) {
    Devices.Combo1_DropDown();
    Window.lblMessage.Captions.clear();
    Raised.clear();
    const int enabledChanges = Window.lstArtists.EnabledChanges + Window.txtSearch.EnabledChanges;
    Window.txtSearch.Change = [this] { Raised += u"search changed"_s; };
    for (int poll = 0; poll < 5; ++poll) {
        Window.timScan.Elapse();
    }
    EXPECT_EQ(Window.lblMessage.Captions, QStringList());
    EXPECT_EQ(Raised, QStringList());
    EXPECT_EQ(Window.lstArtists.EnabledChanges + Window.txtSearch.EnabledChanges, enabledChanges);
    EXPECT_EQ(Drives.Listed, 6);
    EXPECT_EQ(Boxes.Texts(), QStringList());
    ExpectReset(u"No compatible iPod detected."_s);
}

// ---- the poll

TEST_F(DeviceScan, ThePollLoadsTheFirstDeviceOnceItIsThere) {
    Devices.Combo1_DropDown();
    const int repaints = Window.Combo1.RefreshCount;
    Window.timScan.Elapse();
    EXPECT_EQ(Window.Combo1.RefreshCount, repaints + 1);
    AttachIPod('E', u"IPOD"_s, {u"one"_s});
    AttachIPod('F', u"OTHER"_s, {u"two"_s});
    Window.timScan.Elapse();
    EXPECT_EQ(Window.Combo1.Text(), u"(E:) IPOD"_s);
    EXPECT_EQ(Devices.SelectedDevice, u"(E:) IPOD"_s);
    EXPECT_EQ(Titles(), QStringList{u"one"_s});
    EXPECT_FALSE(Window.timScan.Enabled());
    EXPECT_FALSE(Devices.SuppressComboClick());
    EXPECT_FALSE(Parts.Filter.FilterLocked());
    EXPECT_EQ(Files.CountOf(FileCall::OpenForReading), 1);
    EXPECT_EQ(Raised, (QStringList{u"leaves"_s, u"loaded"_s}));
    Choose(1); // the other one is for the user to choose
    EXPECT_EQ(Titles(), QStringList{u"two"_s});
    EXPECT_EQ(Devices.LoadedDevice, u"(F:) OTHER"_s);
}

TEST_F(DeviceScan, ThePollSetsTheEntryAgainWithoutAccessingTheDevice) {
    AttachIPod('E', u"IPOD"_s, {u"one"_s});
    Devices.LibraryLoaded = [this] { Detach('E'); };
    std::vector<bool> suppressed;
    Window.Combo1.Click = [&] {
        suppressed.push_back(Devices.SuppressComboClick());
        Devices.Combo1_Click();
    };
    Devices.timScan_Timer();
    EXPECT_EQ(suppressed, (std::vector<bool>{false, true}));
    EXPECT_EQ(Window.Combo1.Text(), u"(E:) IPOD"_s);
    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Devices.LoadedDevice, u"(E:) IPOD"_s);
    EXPECT_FALSE(Devices.SuppressComboClick());
}

TEST_F(DeviceScan, ADeviceThatVanishesBetweenPollAndLoadIsReported) {
    AttachIPod('E', u"IPOD"_s, {u"one"_s});
    // The scan asks for the database once, the load once more.
    Files.BeforeCall = [this](const RecordedFiles::RecordedCall& call) {
        if (call.Call == FileCall::FileExists && Files.CountOf(FileCall::FileExists) == 2) {
            Detach('E');
        }
    };
    Devices.timScan_Timer();
    ExpectErrorLoadingIPod();
    ExpectReset(u"No compatible iPod detected."_s);
    EXPECT_TRUE(Window.timScan.Enabled());
    EXPECT_FALSE(Devices.SuppressComboClick());
}
