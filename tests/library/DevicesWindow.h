#pragma once

#include "app/Subsystems.h"
#include "tests/fakes/FakeFileSystem.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/library/LibraryText.h"
#include "tests/support/ITunesDBWriter.h"

/// A window on fakes that lists and loads iPods, wired as the program wires it; only what the user
/// does to tabs and search box ends here.
class DevicesWindow : public testing::Test {
protected:
    FakeForm1 Window;
    FakeMessages Boxes;
    FakeFileSystem Files;
    FakeDriveService Drives;
    FakeSettingsStore Store;
    FakeShell Shell;
    FakeEventLoop Events;
    InlineWorker Background;
    Subsystems Parts{
        {Files, Drives, Store, Shell, Window.WindowManager, Boxes, Events, Background, Background},
        Window.Controls};
    LoadMusic& Music = Parts.Loading;
    DeviceSelection& Devices = Parts.Devices;
    /// What DeviceSelection has raised, in order.
    QStringList Raised;
    /// The filter tab's Click events that came while the filter was not locked.
    int UnlockedTabClicks = 0;

    DevicesWindow() {
        Window.txtSearch.Change = {};
        Window.tbsFilter.Click = [this] {
            UnlockedTabClicks += Parts.Filter.FilterLocked() ? 0 : 1;
        };
        Devices.LibraryLeaves = [this, wired = Devices.LibraryLeaves] {
            Raised += QStringLiteral("leaves");
            wired();
        };
        Devices.LibraryLoaded = [this, wired = Devices.LibraryLoaded] {
            Raised += QStringLiteral("loaded");
            wired();
        };
    }

    static QString DatabaseOn(QChar letter) {
        return letter + QStringLiteral(":\\iPod_Control\\iTunes\\iTunesDB");
    }
    static QString LibraryOn(QChar letter) {
        return letter +
               QStringLiteral(":\\iPod_Control\\iTunes\\iTunes Library.itlp\\Library.itdb");
    }

    /// Attaches an iPod whose library holds `titles`, by one artist.
    void AttachIPod(char letter, const QString& name, const QStringList& titles) {
        std::vector<SampleTrack> tracks;
        for (const QString& title : titles) {
            tracks.push_back({QStringLiteral("A"), QStringLiteral("B"), title, 1, 1, {}});
        }
        Drives.Mounted.push_back({QLatin1Char(letter), name});
        Files.AddFile(DatabaseOn(QLatin1Char(letter)), WriteITunesDB(tracks));
    }

    void Detach(char letter) {
        std::erase_if(Drives.Mounted, [letter](const FakeDrive& drive) {
            return drive.Letter == QLatin1Char(letter);
        });
        Files.RemoveDrive(QLatin1Char(letter) + QStringLiteral(":"));
    }

    /// Opens the list of devices and chooses one.
    void Choose(int index) {
        Window.Combo1.UserDropDown();
        Window.Combo1.UserChoose(index);
    }

    /// Does to the window what the browser does with a library.
    void FillWindow() {
        for (FakeListControl* list : {&Window.lstArtists, &Window.lstAlbums, &Window.lstSongs}) {
            list->Fill({{QStringLiteral("row"), false}});
        }
        Window.lblFullName.SetCaption(QStringLiteral("A / B / 1"));
        Window.cmdCopy.SetEnabled(true);
        Window.cmdClear.SetEnabled(true);
        Window.txtSearch.SetText(QStringLiteral("word"));
        Window.tbsFilter.UserSelectTab(1);
        UnlockedTabClicks = 0;
        Raised.clear();
    }

    /// Attaches, loads and fills in an iPod at E:.
    void ShowIPod() {
        AttachIPod('E', QStringLiteral("IPOD"), {QStringLiteral("one")});
        Choose(0);
        FillWindow();
    }

    QStringList Titles() const {
        QStringList titles;
        for (const QString& line : Lines(Music.Library)) {
            titles += line.section(QStringLiteral(" | "), 2, 2).section(u' ', 1);
        }
        return titles;
    }

    void ExpectErrorLoadingIPod() const {
        EXPECT_EQ(Boxes.Shown, (std::vector<ShownMessage>{
                                   {QStringLiteral("Error loading iPod."), QStringLiteral("Error"),
                                    MessageButtons::OK, MessageIcon::Critical}}));
    }

    /// The window is as FillWindow has left it.
    void ExpectFilled() const {
        EXPECT_EQ(Raised, QStringList());
        EXPECT_EQ(Window.lstSongs.ListCount(), 1);
        EXPECT_EQ(Window.lblFullName.Caption(), QStringLiteral("A / B / 1"));
        EXPECT_TRUE(Window.cmdCopy.Enabled());
        EXPECT_EQ(Window.txtSearch.Text(), QStringLiteral("word"));
        EXPECT_EQ(Window.tbsFilter.SelectedCaption(), QStringLiteral("Audio"));
        EXPECT_FALSE(Parts.Filter.FilterLocked());
        EXPECT_EQ(Boxes.Texts(), QStringList());
    }

    /// The window looks as without a chosen device; its label shows `message`.
    void ExpectReset(const QString& message) const {
        EXPECT_EQ(Devices.SelectedDevice, QString());
        EXPECT_EQ(Devices.LoadedDevice, QString());
        EXPECT_EQ(Window.Combo1.Text(), QString());
        EXPECT_EQ(Window.lblMessage.Caption(), message);
        EXPECT_EQ(Window.lblFullName.Caption(), QString());
        EXPECT_FALSE(Window.Picture1.ShowsDevice);
        EXPECT_TRUE(Window.pctNoDevice.Visible());
        EXPECT_EQ(Window.pctNoDevice.Told, Window.Combo1.ListCount() > 0
                                               ? NoDeviceReason::NoneChosen
                                               : NoDeviceReason::NoneConnected);
        for (const FakeListControl* list :
             {&Window.lstArtists, &Window.lstAlbums, &Window.lstSongs}) {
            EXPECT_EQ(list->ListCount(), 0);
            EXPECT_FALSE(list->Enabled());
        }
        EXPECT_FALSE(Window.cmdCopy.Enabled());
        EXPECT_FALSE(Window.cmdSearch.Enabled());
        EXPECT_FALSE(Window.cmdClear.Enabled());
        EXPECT_FALSE(Window.txtSearch.Enabled());
        EXPECT_EQ(Window.txtSearch.Text(), QString());
        EXPECT_EQ(Window.tbsFilter.SelectedCaption(), QStringLiteral("All Files"));
        EXPECT_TRUE(Parts.Filter.FilterLocked());
        EXPECT_FALSE(Devices.SuppressComboClick);
    }
};
