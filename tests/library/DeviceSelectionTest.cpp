// Choosing a device and loading its library.

#include "platform/RuntimeError.h"
#include "tests/library/DevicesWindow.h"
#include "tests/support/SqliteLibraryWriter.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class DeviceChoice : public DevicesWindow {};

TEST_F(DeviceChoice, ADeviceLoadsItsLibraryAndIsOnlyRead) {
    AttachIPod('E', u"IPOD"_s, {u"one"_s, u"two"_s});
    // The drive of the entry is the one that is read.
    AttachIPod('K', u"(E:) IPOD"_s, {u"three"_s});
    Choose(0);
    EXPECT_EQ(Titles(), (QStringList{u"one"_s, u"two"_s}));
    EXPECT_EQ(Devices.SelectedDevice, u"(E:) IPOD"_s);
    EXPECT_EQ(Devices.LoadedDevice, u"(E:) IPOD"_s);
    EXPECT_TRUE(Window.Picture1.ShowsDevice);
    EXPECT_FALSE(Window.pctNoDevice.Visible());
    Choose(1);
    EXPECT_EQ(Titles(), QStringList{u"three"_s});
    EXPECT_TRUE(Music.Library.Artists[0].Albums[0].Tracks[0].Location.startsWith(u"K:"_s));
    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Files.ChangesBelow(u"E:\\"_s) + Files.ChangesBelow(u"K:\\"_s), QStringList());
}

TEST_F(DeviceChoice, TheSQLiteLibraryIsTakenWhereThereIsOne) {
    AttachIPod('E', u"IPOD"_s, {u"binary"_s});
    const QTemporaryDir folder;
    WriteSqliteLibrary(folder.filePath(u"Library.itdb"_s), folder.filePath(u"Locations.itdb"_s),
                       {{u"A"_s, u"B"_s, u"sqlite"_s, 1, 1, u"x"_s}});
    PutSqliteLibrary(Files, folder.path());
    Choose(0);
    EXPECT_EQ(Titles(), QStringList{u"sqlite"_s});
    EXPECT_EQ(Files.CountOf(FileCall::OpenForReading), 0);
}

TEST_F(DeviceChoice, ADeviceThatHasOnlyTheSQLiteLibraryIsNotLoaded) {
    AttachIPod('E', u"IPOD"_s, {u"one"_s});
    Files.AddFile(LibraryOn(u'E'), {});
    Window.Combo1.UserDropDown();
    Files.Remove(DatabaseOn(u'E'));
    Window.Combo1.UserChoose(0);
    ExpectErrorLoadingIPod();
    ExpectReset(u"No compatible iPod detected."_s);
    EXPECT_EQ(Files.CountOf(FileCall::NativePath), 0);
}

TEST_F(DeviceChoice, TheEarlierLibraryIsForgottenAndTheListsArePreparedBeforeTheLoad) {
    ShowIPod();
    AttachIPod('F', u"OTHER"_s, {u"two"_s});
    Devices.LibraryLeaves = [this, wired = Devices.LibraryLeaves] {
        EXPECT_EQ(Window.lstArtists.ListCount(), 1);
        EXPECT_EQ(Window.txtSearch.Text(), u"word"_s);
        wired();
    };
    Window.txtSearch.Change = [this] { Raised += u"search changed"_s; };
    Files.BeforeCall = [&](const RecordedFiles::RecordedCall& call) {
        if (call.Call != FileCall::OpenForReading) {
            return;
        }
        Raised += u"read"_s;
        for (const FakeListControl* list :
             {&Window.lstArtists, &Window.lstAlbums, &Window.lstSongs}) {
            EXPECT_TRUE(list->Enabled());
            EXPECT_EQ(list->ListCount(), 0);
        }
        EXPECT_EQ(Window.lblFullName.Caption(), QString());
        EXPECT_FALSE(Window.cmdCopy.Enabled());
        EXPECT_FALSE(Window.cmdClear.Enabled());
        EXPECT_EQ(Window.txtSearch.Text(), QString());
        EXPECT_EQ(Window.tbsFilter.SelectedCaption(), u"All Files"_s);
        EXPECT_FALSE(Parts.Filter.FilterLocked());
        EXPECT_FALSE(Window.pctNoDevice.Visible());
        EXPECT_EQ(Window.Form1.Pointer(), MousePointer::Hourglass);
    };

    Choose(1);

    EXPECT_EQ(Raised, (QStringList{u"leaves"_s, u"search changed"_s, u"read"_s, u"loaded"_s}));
    EXPECT_EQ(UnlockedTabClicks, 0);
}

TEST_F(DeviceChoice, TheListsAreBuiltBeforeTheSearchIsOffered) {
    AttachIPod('E', u"IPOD"_s, {u"one"_s});
    Devices.Combo1_DropDown();
    int refreshes = 0;
    Devices.LibraryLoaded = [&, wired = Devices.LibraryLoaded] {
        EXPECT_EQ(Window.lblMessage.Caption(), u"Building lists..."_s);
        EXPECT_EQ(Music.Library.TrackCount, 1);
        EXPECT_FALSE(Music.Library.LoadingMusic);
        EXPECT_FALSE(Window.txtSearch.Enabled());
        EXPECT_FALSE(Window.cmdSearch.Enabled());
        EXPECT_EQ(Window.Form1.Pointer(), MousePointer::Hourglass);
        refreshes = Window.Form1.RefreshCount;
        wired();
    };

    Choose(0);

    EXPECT_EQ(refreshes, 3); // "Please wait...", "Loading music... 100%", "Building lists..."
    EXPECT_EQ(Window.lblMessage.Caption(), u"Selected: 0 KB of 0 KB"_s);
    EXPECT_TRUE(Window.txtSearch.Enabled());
    EXPECT_TRUE(Window.cmdSearch.Enabled());
    EXPECT_FALSE(Window.cmdClear.Enabled());
    EXPECT_FALSE(Window.cmdCopy.Enabled());
    EXPECT_TRUE(Window.lstArtists.HasFocus());
    EXPECT_EQ(Window.Form1.Pointer(), MousePointer::Default);
}

TEST_F(DeviceChoice, ADeviceWithoutMusicIsReported) {
    AttachIPod('E', u"IPOD"_s, {});
    Choose(0);
    EXPECT_EQ(Window.lblMessage.Caption(), u"No music found."_s);
    EXPECT_TRUE(Window.pctNoDevice.Visible());
    EXPECT_EQ(Window.pctNoDevice.Told, NoDeviceReason::NoMusic);
    for (const FakeListControl* list : {&Window.lstArtists, &Window.lstAlbums, &Window.lstSongs}) {
        EXPECT_FALSE(list->Enabled());
    }
    EXPECT_FALSE(Window.cmdSearch.Enabled());
    EXPECT_FALSE(Window.cmdClear.Enabled());
    EXPECT_FALSE(Window.txtSearch.Enabled());
    EXPECT_EQ(Raised, QStringList{u"leaves"_s});
    EXPECT_EQ(Devices.LoadedDevice, u"(E:) IPOD"_s);
    EXPECT_TRUE(Window.Picture1.ShowsDevice);
    EXPECT_EQ(Window.Form1.Pointer(), MousePointer::Default);
    EXPECT_TRUE(Music.Library.LoadingMusic);
}

TEST_F(DeviceChoice, ADeviceThatCannotBeReadIsNotTakenForOneWithoutMusic) {
    AttachIPod('E', u"IPOD"_s, {});
    AttachIPod('F', u"EMPTY"_s, {});
    Files.FailNthCall(FileCall::Read, 1, ErrorNumber::DeviceIOError);
    Choose(0);
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    EXPECT_EQ(Window.pctNoDevice.Told, NoDeviceReason::NotRead);
    Choose(1);
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    EXPECT_EQ(Window.pctNoDevice.Told, NoDeviceReason::NoMusic);
}

TEST_F(DeviceChoice, ADeviceWhoseDatabaseFailsShowsWhatWasLoaded) {
    AttachIPod('E', u"IPOD"_s, {});
    using namespace ITunesDBChunks;
    Files.AddFile(DatabaseOn(u'E'),
                  ListHead("mhlt", 2) + Track(1, 1, {Item(1, u"one"_s)}) + Track(1LL << 31, 1, {}));
    Choose(0);
    EXPECT_EQ(Boxes.Texts(), QStringList{u"Error 6: Overflow"_s});
    EXPECT_EQ(Titles(), QStringList{u"one"_s});
    EXPECT_EQ(Raised, (QStringList{u"leaves"_s, u"loaded"_s}));
    EXPECT_TRUE(Window.txtSearch.Enabled());
    EXPECT_EQ(Window.Form1.Pointer(), MousePointer::Default);
}

TEST_F(DeviceChoice, ThePointerIsRestoredWhateverHappens) {
    AttachIPod('E', u"IPOD"_s, {u"one"_s});
    Devices.LibraryLoaded = [] { throw RuntimeError(ErrorNumber::OutOfMemory); };
    Window.Combo1.UserDropDown();
    EXPECT_THROW(Window.Combo1.UserChoose(0), RuntimeError);
    EXPECT_EQ(Window.Form1.MousePointers,
              (std::vector{MousePointer::Hourglass, MousePointer::Default}));
}

// ---- the device that is loaded already

TEST_F(DeviceChoice, TheLoadedDeviceIsNeitherReloadedNorAreItsListsCleared) {
    ShowIPod();
    Files.Calls.clear();
    Window.Form1.MousePointers.clear();
    Choose(0);
    EXPECT_EQ(Files.CountOf(FileCall::OpenForReading), 0);
    ExpectFilled();
    EXPECT_TRUE(Window.Form1.MousePointers.empty());
}

TEST_F(DeviceChoice, WhenTheLoadedDeviceIsGoneItIsReportedAndTheWindowReset) {
    ShowIPod();
    AttachIPod('F', u"OTHER"_s, {u"two"_s});
    Window.Combo1.UserDropDown();
    Window.Form1.MousePointers.clear();
    Detach('E');
    Window.Combo1.UserChoose(0);
    ExpectErrorLoadingIPod();
    ExpectReset({});
    EXPECT_EQ(Raised, QStringList{u"leaves"_s});
    EXPECT_TRUE(Window.Form1.MousePointers.empty());
    Choose(0); // another one
    EXPECT_EQ(Devices.LoadedDevice, u"(F:) OTHER"_s);
    EXPECT_EQ(Titles(), QStringList{u"two"_s});
    EXPECT_TRUE(Window.lstArtists.Enabled());
    EXPECT_FALSE(Parts.Filter.FilterLocked());
}

TEST_F(DeviceChoice, AClickWithoutAnEntryDoesNothing) {
    Devices.Combo1_DropDown();
    Files.Calls.clear();
    Devices.Combo1_Click();
    EXPECT_TRUE(Files.Calls.empty());
    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Raised, QStringList());
}

// ---- the failure report

TEST_F(DeviceChoice, AWindowInTheBackgroundIsFlashedBeforeTheReport) {
    size_t flashedAtReport = 0;
    Boxes.WhileShown = [&](const ShownMessage&) {
        flashedAtReport = Window.WindowManager.Flashed.size();
    };
    const auto loseDevice = [this] {
        AttachIPod('E', u"IPOD"_s, {u"one"_s});
        Window.Combo1.UserDropDown();
        Detach('E');
        Window.Combo1.UserChoose(0);
        ExpectErrorLoadingIPod();
        Boxes.Shown.clear();
    };
    loseDevice();
    EXPECT_EQ(flashedAtReport, 0U);
    Window.WindowManager.ActiveWindow = 0;
    loseDevice();
    EXPECT_EQ(flashedAtReport, 1U);
    EXPECT_EQ(Window.WindowManager.Flashed, (std::vector{Window.Form1.Handle()}));
}
