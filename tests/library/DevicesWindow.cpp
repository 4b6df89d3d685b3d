#include "tests/library/DevicesWindow.h"

using namespace Qt::StringLiterals;

DevicesWindow::DevicesWindow() {
    Window.txtSearch.Change = {};
    Window.tbsFilter.Click = [this] { UnlockedTabClicks += Parts.Filter.FilterLocked() ? 0 : 1; };
    Devices.LibraryLeaves = [this, wired = Devices.LibraryLeaves] {
        Raised += u"leaves"_s;
        wired();
    };
    Devices.LibraryLoaded = [this, wired = Devices.LibraryLoaded] {
        Raised += u"loaded"_s;
        wired();
    };
}

QString DevicesWindow::DatabaseOn(QChar letter) {
    return letter + u":\\iPod_Control\\iTunes\\iTunesDB"_s;
}

QString DevicesWindow::LibraryOn(QChar letter) {
    return letter + u":\\iPod_Control\\iTunes\\iTunes Library.itlp\\Library.itdb"_s;
}

void DevicesWindow::AttachIPod(char letter, const QString& name, const QStringList& titles) {
    std::vector<SampleTrack> tracks;
    for (const QString& title : titles) {
        tracks.push_back({u"A"_s, u"B"_s, title, 1, 1, {}});
    }
    Drives.Mounted.push_back({QLatin1Char(letter), name});
    Files.AddFile(DatabaseOn(QLatin1Char(letter)), WriteITunesDB(tracks));
}

void DevicesWindow::Detach(char letter) {
    std::erase_if(Drives.Mounted,
                  [letter](const FakeDrive& drive) { return drive.Letter == QLatin1Char(letter); });
    Files.RemoveDrive(QLatin1Char(letter) + u":"_s);
}

void DevicesWindow::FillWindow() {
    for (FakeListControl* list : {&Window.lstArtists, &Window.lstAlbums, &Window.lstSongs}) {
        list->Fill({{u"row"_s, false}});
    }
    Window.lblFullName.SetCaption(u"A / B / 1"_s);
    Window.cmdCopy.SetEnabled(true);
    Window.cmdClear.SetEnabled(true);
    Window.txtSearch.SetText(u"word"_s);
    Window.tbsFilter.UserSelectTab(1);
    UnlockedTabClicks = 0;
    Raised.clear();
}

void DevicesWindow::ShowIPod() {
    AttachIPod('E', u"IPOD"_s, {u"one"_s});
    Choose(0);
    FillWindow();
}

QStringList DevicesWindow::Titles() const {
    QStringList titles;
    for (const QString& line : Lines(Music.Library)) {
        titles += line.section(u" | "_s, 2, 2).section(u' ', 1);
    }
    return titles;
}

void DevicesWindow::ExpectErrorLoadingIPod() const {
    EXPECT_EQ(Boxes.Shown,
              (std::vector<ShownMessage>{{u"Error loading iPod."_s, u"Error"_s, MessageButtons::OK,
                                          MessageIcon::Critical}}));
}

void DevicesWindow::ExpectFilled() const {
    EXPECT_EQ(Raised, QStringList());
    EXPECT_EQ(Window.lstSongs.ListCount(), 1);
    EXPECT_EQ(Window.lblFullName.Caption(), u"A / B / 1"_s);
    EXPECT_TRUE(Window.cmdCopy.Enabled());
    EXPECT_EQ(Window.txtSearch.Text(), u"word"_s);
    EXPECT_EQ(Window.tbsFilter.SelectedCaption(), u"Audio"_s);
    EXPECT_FALSE(Parts.Filter.FilterLocked());
    EXPECT_EQ(Boxes.Texts(), QStringList());
}

void DevicesWindow::ExpectReset(const QString& message) const {
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
    for (const FakeListControl* list : {&Window.lstArtists, &Window.lstAlbums, &Window.lstSongs}) {
        EXPECT_EQ(list->ListCount(), 0);
        EXPECT_FALSE(list->Enabled());
    }
    EXPECT_FALSE(Window.cmdCopy.Enabled());
    EXPECT_FALSE(Window.cmdSearch.Enabled());
    EXPECT_FALSE(Window.cmdClear.Enabled());
    EXPECT_FALSE(Window.txtSearch.Enabled());
    EXPECT_EQ(Window.txtSearch.Text(), QString());
    EXPECT_EQ(Window.tbsFilter.SelectedCaption(), u"All Files"_s);
    EXPECT_TRUE(Parts.Filter.FilterLocked());
    EXPECT_FALSE(Devices.SuppressComboClick());
}
