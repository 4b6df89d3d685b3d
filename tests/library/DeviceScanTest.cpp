// The list of devices and the poll that waits for one.

#include "app/ControlGroups.h"
#include "platform/RuntimeError.h"
#include "tests/library/DevicesWindow.h"

using namespace Qt::StringLiterals;

class DeviceScan : public DevicesWindow {};

// ---- which drives are listed, and how

TEST_F(DeviceScan, AnIPodIsListedByItsLetterAndName) {
    AttachIPod('E', u"MY IPOD"_s, {u"1"_s});

    Devices.Combo1_DropDown();

    EXPECT_EQ(Window.Combo1.Entries(), QStringList{u"(E:) MY IPOD"_s});
}

TEST_F(DeviceScan, AnEmptyVolumeNameLeavesATrailingBlank) {
    AttachIPod('F', {}, {u"1"_s});

    Devices.Combo1_DropDown();

    EXPECT_EQ(Window.Combo1.Entries(), QStringList{u"(F:) "_s});
}

TEST_F(DeviceScan, DevicesAreListedInTheOrderOfTheSystem) {
    AttachIPod('G', u"second letter"_s, {u"1"_s});
    AttachIPod('E', u"first letter"_s, {u"1"_s});

    Devices.Combo1_DropDown();

    EXPECT_EQ(Window.Combo1.Entries(),
              (QStringList{u"(G:) second letter"_s, u"(E:) first letter"_s}));
}

TEST_F(DeviceScan, DrivesAAndBAreNeverLookedAt) {
    AttachIPod('A', u"floppy"_s, {u"1"_s});
    AttachIPod('B', u"floppy"_s, {u"1"_s});
    AttachIPod('C', u"IPOD"_s, {u"1"_s});

    Devices.Combo1_DropDown();

    EXPECT_EQ(Window.Combo1.Entries(), QStringList{u"(C:) IPOD"_s});
    EXPECT_EQ(Files.CallTexts(), QStringList{u"FileExists C:\\iPod_Control\\iTunes\\iTunesDB"_s});
}

TEST_F(DeviceScan, ADriveThatIsNotRemovableIsNotLookedAt) {
    AttachIPod('D', u"backup"_s, {u"1"_s});
    Drives.Mounted[0].Removable = false;

    Devices.Combo1_DropDown();

    EXPECT_EQ(Window.Combo1.ListCount(), 0);
    EXPECT_EQ(Files.CallTexts(), QStringList());
}

TEST_F(DeviceScan, ADriveWithoutDatabaseIsNotListed) {
    Drives.Mounted.push_back({u'E', u"STICK"_s});
    Files.AddDrive(u"E:"_s);

    Devices.Combo1_DropDown();

    EXPECT_EQ(Window.Combo1.ListCount(), 0);
}

TEST_F(DeviceScan, ADeviceWithOnlyTheSQLiteLibraryIsNotListed) {
    Drives.Mounted.push_back({u'E', u"IPOD"_s});
    Files.AddFile(LibraryOn(u'E'), "x");

    Devices.Combo1_DropDown();

    EXPECT_EQ(Window.Combo1.ListCount(), 0);
}

TEST_F(DeviceScan, ADriveThatCannotTellItsTypeIsPassedOver) {
    AttachIPod('E', u"GOING"_s, {u"1"_s});
    AttachIPod('F', u"STAYING"_s, {u"1"_s});
    Drives.Mounted[0].IsRemovableFails = true;

    Devices.Combo1_DropDown();

    EXPECT_EQ(Window.Combo1.Entries(), QStringList{u"(F:) STAYING"_s});
}

TEST_F(DeviceScan, ADriveThatCannotTellItsNameIsListedWithoutOne) {
    AttachIPod('E', u"GOING"_s, {u"1"_s});
    AttachIPod('F', u"STAYING"_s, {u"1"_s});
    Drives.Mounted[0].VolumeNameFails = true;

    Devices.Combo1_DropDown();

    EXPECT_EQ(Window.Combo1.Entries(), (QStringList{u"(E:) "_s, u"(F:) STAYING"_s}));
}

TEST_F(DeviceScan, DrivesThatCannotBeListedAreNone) {
    struct NoDrives : FakeDriveService {
        std::vector<Drive> Drives() override { throw RuntimeError(ErrorNumber::DeviceUnavailable); }
    } drives;
    DeviceSelection devices(Music, drives, Files, Boxes, Window.WindowManager,
                            DeviceControlsOf(Window.Controls));

    devices.Combo1_DropDown();

    EXPECT_EQ(Window.lblMessage.Caption(), u"No compatible iPod detected."_s);
    EXPECT_TRUE(Window.timScan.Enabled());
    EXPECT_FALSE(devices.SuppressComboClick);
}

// ---- what a scan does to the window

TEST_F(DeviceScan, WithoutADeviceTheWindowIsResetAndTheTimerRuns) {
    FillWindow();

    Devices.Combo1_DropDown();

    ExpectReset(u"No compatible iPod detected."_s);
    EXPECT_TRUE(Window.timScan.Enabled());
    EXPECT_EQ(Boxes.Texts(), QStringList());
}

TEST_F(DeviceScan, WithADeviceThatIsNotChosenTheWindowIsResetAndTheTimerStands) {
    AttachIPod('E', u"IPOD"_s, {u"1"_s});
    FillWindow();
    Window.timScan.SetEnabled(true);
    Window.lblMessage.SetCaption(u"old"_s);

    Devices.Combo1_DropDown();

    ExpectReset({});
    EXPECT_FALSE(Window.timScan.Enabled());
    EXPECT_EQ(Music.Library.TrackCount, 0);
}

TEST_F(DeviceScan, WhatToDoIsShownJustAsLongAsNoDeviceIsChosen) {
    Devices.Combo1_DropDown();
    EXPECT_TRUE(Window.pctNoDevice.Visible());
    AttachIPod('E', u"IPOD"_s, {u"1"_s});
    Devices.LibraryLeaves = [this] { EXPECT_FALSE(Window.pctNoDevice.Visible()); };

    Window.timScan.Elapse();

    EXPECT_FALSE(Window.pctNoDevice.Visible());
    Devices.LibraryLeaves = {};
    Detach('E');
    AttachIPod('F', u"OTHER"_s, {u"2"_s});
    Devices.Combo1_DropDown();
    EXPECT_TRUE(Window.pctNoDevice.Visible());
    EXPECT_EQ(Window.pctNoDevice.Told, NoDeviceReason::NoneChosen);

    Window.Combo1.UserChoose(0);
    EXPECT_FALSE(Window.pctNoDevice.Visible());
    Detach('F');
    Devices.Combo1_DropDown();
    EXPECT_TRUE(Window.pctNoDevice.Visible());
    EXPECT_EQ(Window.pctNoDevice.Told, NoDeviceReason::NoneConnected);
}

TEST_F(DeviceScan, TheChosenDeviceIsChosenAgainWithoutALoad) {
    AttachIPod('E', u"IPOD"_s, {u"1"_s});
    Choose(0);
    FillWindow();
    Files.Calls.clear();

    AttachIPod('C', u"OTHER"_s, {u"2"_s});
    std::swap(Drives.Mounted[0], Drives.Mounted[1]);
    Devices.Combo1_DropDown();

    EXPECT_EQ(Window.Combo1.Text(), u"(E:) IPOD"_s);
    EXPECT_EQ(Window.Combo1.ListCount(), 2);
    EXPECT_EQ(Devices.LoadedDevice, u"(E:) IPOD"_s);
    EXPECT_EQ(Files.CountOf(FileCall::OpenForReading), 0);
    EXPECT_EQ(Raised, QStringList());
    EXPECT_EQ(Window.lstArtists.ListCount(), 1);
    EXPECT_TRUE(Window.cmdCopy.Enabled());
    EXPECT_EQ(Window.txtSearch.Text(), u"word"_s);
    EXPECT_EQ(Window.tbsFilter.SelectedCaption(), u"Audio"_s);
    EXPECT_FALSE(Parts.Filter.FilterLocked());
}

TEST_F(DeviceScan, ADeviceThatHasLeftResetsTheWindow) {
    AttachIPod('E', u"IPOD"_s, {u"1"_s});
    Choose(0);
    FillWindow();
    Detach('E');

    Window.Combo1.UserDropDown();

    ExpectReset(u"No compatible iPod detected."_s);
    EXPECT_TRUE(Window.timScan.Enabled());
    EXPECT_EQ(Boxes.Texts(), QStringList());
}

TEST_F(DeviceScan, ADeviceThatHasLeftResetsTheWindowAlsoWhereAnotherIsListed) {
    AttachIPod('E', u"IPOD"_s, {u"1"_s});
    AttachIPod('F', u"OTHER"_s, {u"2"_s});
    Choose(0);
    FillWindow();
    Detach('E');

    Window.Combo1.UserDropDown();

    ExpectReset({});
    EXPECT_FALSE(Window.timScan.Enabled());
    EXPECT_EQ(Window.Combo1.Entries(), QStringList{u"(F:) OTHER"_s});
}

TEST_F(DeviceScan, ADeviceWithANewNameIsAnotherDevice) {
    AttachIPod('E', u"IPOD"_s, {u"1"_s});
    Choose(0);
    FillWindow();
    Drives.Mounted[0].VolumeName = u"ANA'S IPOD"_s;

    Window.Combo1.UserDropDown();

    ExpectReset({});
}

TEST_F(DeviceScan, WhoeverShowsTheLibraryHearsThatItLeavesBeforeTheListsAndTheSearchAreEmptied) {
    AttachIPod('E', u"IPOD"_s, {u"1"_s});
    Choose(0);
    FillWindow();
    Detach('E');
    Devices.LibraryLeaves = [this] {
        EXPECT_EQ(Window.lstArtists.ListCount(), 1);
        EXPECT_EQ(Window.txtSearch.Text(), u"word"_s);
        Raised += u"leaves"_s;
    };
    Window.txtSearch.Change = [this] { Raised += u"search changed"_s; };

    Devices.Combo1_DropDown();

    EXPECT_EQ(Raised, (QStringList{u"leaves"_s, u"search changed"_s}));
}

TEST_F(DeviceScan, TheFilterIsLockedWhenItsFirstTabIsSelectedAndStaysSo) {
    AttachIPod('E', u"IPOD"_s, {u"1"_s});
    Choose(0);
    FillWindow();
    EXPECT_FALSE(Parts.Filter.FilterLocked());
    Detach('E');

    Devices.Combo1_DropDown();

    EXPECT_EQ(UnlockedTabClicks, 0);
    EXPECT_TRUE(Parts.Filter.FilterLocked());

    AttachIPod('E', u"IPOD"_s, {u"1"_s});
    Window.timScan.Elapse();
    EXPECT_FALSE(Parts.Filter.FilterLocked());
    EXPECT_EQ(UnlockedTabClicks, 0);
}

TEST_F(DeviceScan, AFailingListenerDoesNotStopTheReset) {
    AttachIPod('E', u"IPOD"_s, {u"1"_s});
    Choose(0);
    FillWindow();
    Detach('E');
    const auto fail = [] { throw RuntimeError(ErrorNumber::SubscriptOutOfRange); };
    Devices.LibraryLeaves = fail;
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
    int changes = 0;
    Window.txtSearch.Change = [&changes] { ++changes; };

    for (int poll = 0; poll < 5; ++poll) {
        Window.timScan.Elapse();
    }

    EXPECT_EQ(Window.lblMessage.Captions, QStringList());
    EXPECT_EQ(Raised, QStringList());
    EXPECT_EQ(Window.lstArtists.EnabledChanges + Window.txtSearch.EnabledChanges, enabledChanges);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(Drives.Listed, 6);
    EXPECT_EQ(Boxes.Texts(), QStringList());
    ExpectReset(u"No compatible iPod detected."_s);
}

// ---- the poll

TEST_F(DeviceScan, ThePollLoadsTheFirstDeviceOnceItIsThere) {
    Devices.Combo1_DropDown();
    Window.timScan.Elapse();
    AttachIPod('E', u"IPOD"_s, {u"one"_s});
    AttachIPod('F', u"OTHER"_s, {u"two"_s});

    Window.timScan.Elapse();

    EXPECT_EQ(Window.Combo1.Text(), u"(E:) IPOD"_s);
    EXPECT_EQ(Devices.SelectedDevice, u"(E:) IPOD"_s);
    EXPECT_EQ(Titles(), QStringList{u"one"_s});
    EXPECT_FALSE(Window.timScan.Enabled());
    EXPECT_FALSE(Devices.SuppressComboClick);
    EXPECT_EQ(Files.CountOf(FileCall::OpenForReading), 1);
    EXPECT_EQ(Raised, (QStringList{u"leaves"_s, u"loaded"_s}));
}

TEST_F(DeviceScan, ThePollSetsTheEntryOnceMoreWithoutLookingAtTheDevice) {
    AttachIPod('E', u"IPOD"_s, {u"one"_s});
    Devices.LibraryLoaded = [this] { Detach('E'); };
    std::vector<bool> suppressed;
    Window.Combo1.Click = [&] {
        suppressed.push_back(Devices.SuppressComboClick);
        Devices.Combo1_Click();
    };

    Devices.timScan_Timer();

    EXPECT_EQ(suppressed, (std::vector<bool>{false, true}));
    EXPECT_EQ(Window.Combo1.Text(), u"(E:) IPOD"_s);
    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Devices.LoadedDevice, u"(E:) IPOD"_s);
    EXPECT_FALSE(Devices.SuppressComboClick);
}

TEST_F(DeviceScan, ThePollRepaintsTheListOfDevices) {
    Devices.Combo1_DropDown();
    const int before = Window.Combo1.RefreshCount;

    Window.timScan.Elapse();

    EXPECT_EQ(Window.Combo1.RefreshCount, before + 1);
}

TEST_F(DeviceScan, TheOtherOfTwoDevicesIsForTheUserToChoose) {
    AttachIPod('E', u"IPOD"_s, {u"one"_s});
    AttachIPod('F', u"OTHER"_s, {u"two"_s});
    Devices.timScan_Timer();

    Choose(1);

    EXPECT_EQ(Titles(), QStringList{u"two"_s});
    EXPECT_EQ(Devices.LoadedDevice, u"(F:) OTHER"_s);
}

TEST_F(DeviceScan, ADeviceThatVanishesBetweenPollAndLoadIsReported) {
    AttachIPod('E', u"IPOD"_s, {u"one"_s});
    // The scan asks for the database once, the load once more.
    Files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) {
        if (call.Call == FileCall::FileExists && Files.CountOf(FileCall::FileExists) == 2) {
            Detach('E');
        }
    };

    Devices.timScan_Timer();

    ExpectErrorLoadingIPod();
    ExpectReset(u"No compatible iPod detected."_s);
    EXPECT_TRUE(Window.timScan.Enabled());
    EXPECT_FALSE(Devices.SuppressComboClick);
}
