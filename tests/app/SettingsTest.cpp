#include "app/Settings.h"
#include "app/ControlGroups.h"
#include "platform/RuntimeError.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// The settings of a window and what they were saved in.
class SettingsScene {
public:
    SettingsScene() {
        layout.KeepDesign();
        form.Form1.Resize = [this] { layout.Form_Resize(); };
        shell.Documents = u"/home/ana/Documents"_s;
    }

    void Restore() {
        settings.RestoreOptions();
        settings.RestoreWindow();
        settings.RestoreHandles();
    }
    void Put(const char* key, const char* value) {
        store.Values[QString::fromLatin1(key)] = QString::fromLatin1(value);
    }
    void PutUnlessNull(const char* key, const char* value) {
        if (value != nullptr) {
            Put(key, value);
        }
    }
    /// What the settings are refused with; empty when they are not.
    QString Refusal() {
        try {
            settings.Check();
            return {};
        } catch (const RuntimeError& error) {
            return u"%1: %2"_s.arg(int(error.Number)).arg(error.Description);
        }
    }
    QString Saved(const char* key) const { return store.Values.value(QString::fromLatin1(key)); }

    FakeForm1 form;
    FakeSettingsStore store;
    FakeShell shell;
    MusicLibrary library;
    TextFitting textFitting{form.WindowManager, FittingControlsOf(form.Controls)};
    Layout layout{form.WindowManager, library, [] { return false; }, textFitting, form.Controls};
    Settings settings{store, shell, form.WindowManager, layout, SettingsControlsOf(form.Controls)};
};

class SettingsTest : public SettingsScene, public testing::Test {};

} // namespace

TEST_F(SettingsTest, TheBitsOfTheFoldersAndNamesAreReadOneByOne) {
    const struct {
        const char *Folders, *Names;
        bool Artist, Album, ArtistName, AlbumName, TrackNum;
    } cases[] = {{nullptr, nullptr, true, true, false, false, true}, // the first start
                 {"2", "3", false, true, true, true, false},
                 {"1", "4", true, false, false, false, true}};
    for (const auto& saved : cases) {
        SettingsScene fresh;
        fresh.PutUnlessNull("DestFolders", saved.Folders);
        fresh.PutUnlessNull("TrackNames", saved.Names);
        fresh.Restore();
        EXPECT_EQ(fresh.form.chkArtist.Value(), saved.Artist);
        EXPECT_EQ(fresh.form.chkAlbum.Value(), saved.Album);
        EXPECT_EQ(fresh.form.chkArtistName.Value(), saved.ArtistName);
        EXPECT_EQ(fresh.form.chkAlbumName.Value(), saved.AlbumName);
        EXPECT_EQ(fresh.form.chkTrackNum.Value(), saved.TrackNum);
    }
}

TEST_F(SettingsTest, AFirstStartPointsToMyMusicInTheDocumentsFolderIfThereIsOne) {
    Restore();
    EXPECT_EQ(form.txtDestination.Text(), u"/home/ana/Documents/My Music"_s);
    EXPECT_TRUE(form.txtDestination.CompletesPaths);
    form.txtDestination.SetText({});
    shell.Documents.clear();
    Restore();
    EXPECT_EQ(form.txtDestination.Text(), QString());
}

TEST_F(SettingsTest, TheWindowComesBackWhereTheScreensShowItAndIsCentredElsewhere) {
    const ScreenArea one = {0, 0, 28800, 16200};
    const ScreenArea two = {0, 0, 57600, 16200};
    const ScreenArea moved = {-600, -300, 29400, 16500};
    const ScreenArea wide = {0, -16200, 57600, 32400};
    const ScreenArea bars = {600, 300, 28000, 15900}; // the desktop has bars
    const struct {
        const char* Rule;
        ScreenArea Work, Screens;
        struct {
            const char *Left = nullptr, *Top = nullptr, *Width = nullptr, *Height = nullptr;
        } Saved;
        ScreenArea Restored;
    } cases[] = {
        {"a first start", one, one, {}, {8400, 3600, 12000, 9000}},
        {"beside bars", {1200, 600, 27600, 15600}, one, {}, {9000, 3900, 12000, 9000}},
        {"larger than the screen", {600, 300, 9000, 7500}, one, {}, {600, 300, 12000, 9000}},
        {"right of the screen", one, one, {"28801", "1500"}, {8400, 1500, 12000, 9000}},
        {"below the screen", one, one, {"1500", "16201"}, {1500, 3600, 12000, 9000}},
        {"just on the screen", one, one, {"28800", "16200"}, {28800, 16200, 12000, 9000}},
        // Its right and its lower edge are where the screens begin.
        {"left of all, and above", one, moved, {"-12600", "-9300"}, {8400, 3600, 12000, 9000}},
        {"just right of there", one, moved, {"-12599", "-9299"}, {-12599, -9299, 12000, 9000}},
        {"at the right and above", one, wide, {"57600", "-15000"}, {57600, -15000, 12000, 9000}},
        {"another size", one, one, {{}, {}, "14400", "9600.5"}, {7200, 3299.75, 14400, 9600.5}},
        {"over two screens", one, two, {"15", "30", "57570", "15900"}, {15, 30, 57570, 15900}},
        // 95 and 90 percent of the work area
        {"one twip more", bars, two, {"15", "30", "57571", "15901"}, {1300, 1095, 26600, 14310}},
    };
    for (const auto& start : cases) {
        SCOPED_TRACE(start.Rule);
        SettingsScene fresh;
        fresh.form.WindowManager.Work = start.Work;
        fresh.form.WindowManager.Screens = start.Screens;
        fresh.PutUnlessNull("Left", start.Saved.Left);
        fresh.PutUnlessNull("Top", start.Saved.Top);
        fresh.PutUnlessNull("Width", start.Saved.Width);
        fresh.PutUnlessNull("Height", start.Saved.Height);
        fresh.Restore();
        EXPECT_DOUBLE_EQ(fresh.form.Form1.Left(), start.Restored.Left);
        EXPECT_DOUBLE_EQ(fresh.form.Form1.Top(), start.Restored.Top);
        EXPECT_DOUBLE_EQ(fresh.form.Form1.Width(), start.Restored.Width);
        EXPECT_DOUBLE_EQ(fresh.form.Form1.Height(), start.Restored.Height);
        EXPECT_EQ(fresh.form.Form1.State(), WindowState::Normal);
    }
}

TEST_F(SettingsTest, AWindowClosedMaximisedComesBackMaximised) {
    Put("WindowState", "1");
    Restore();
    EXPECT_EQ(form.Form1.State(), WindowState::Maximized);
    EXPECT_EQ(form.Form1.ShowCount, 1);
}

TEST_F(SettingsTest, TheHandlesComeBackAndTheListsBetweenThem) {
    Put("Handle1", "2120");
    Put("Handle2", "7120");
    Restore();
    EXPECT_DOUBLE_EQ(form.lstArtists.Width(), 2000);
    EXPECT_DOUBLE_EQ(form.lstAlbums.Left(), 2165);
    EXPECT_DOUBLE_EQ(form.lstAlbums.Width(), 4955);
    EXPECT_DOUBLE_EQ(form.lstSongs.Left(), 7165);
}

TEST_F(SettingsTest, ATextWhereANumberIsExpectedIsRefusedNamingTheKeyAndTheFile) {
    for (const char* key :
         {"DestFolders", "TrackNames", "Width", "Height", "Left", "Top", "Handle1", "Handle2"}) {
        store.Values.clear();
        Put(key, "wide");
        EXPECT_EQ(Refusal(),
                  u"13: Type mismatch (setting \"%1\": \"wide\", in \"/home/ana/settings\")"_s.arg(
                      QLatin1String(key)));
    }
}

TEST_F(SettingsTest, ANumberOutOfRangeIsRefusedNamingTheKey) {
    Put("DestFolders", "99999");
    EXPECT_EQ(Refusal(),
              u"6: Overflow (setting \"DestFolders\": \"99999\", in \"/home/ana/settings\")"_s);
    store.Values.clear();
    Put("Left", "1e39");
    EXPECT_EQ(Refusal(), u"6: Overflow (setting \"Left\": \"1e39\", in \"/home/ana/settings\")"_s);
}

TEST_F(SettingsTest, EverythingSavedIsText) {
    form.chkAlbum.SetValue(true);
    form.chkAlbumName.SetValue(true);
    form.chkTrackNum.SetValue(true);
    form.txtDestination.SetText(u"/no/such; folder, really"_s);
    form.Form1.MoveTo(300, 450.5);
    settings.Save();
    EXPECT_EQ(store.Values, (QMap<QString, QString>{{u"DestFolders"_s, u"2"_s},
                                                    {u"TrackNames"_s, u"6"_s},
                                                    {u"DestPath"_s, u"/no/such; folder, really"_s},
                                                    {u"Handle1"_s, u"3120"_s},
                                                    {u"Handle2"_s, u"6165"_s},
                                                    {u"WindowState"_s, u"0"_s},
                                                    {u"Left"_s, u"300"_s},
                                                    {u"Top"_s, u"450.5"_s},
                                                    {u"Width"_s, u"12000"_s},
                                                    {u"Height"_s, u"9000"_s}}));
    EXPECT_EQ(store.Flushes, 1);
}

TEST_F(SettingsTest, ClosingWhileMinimisedFromMaximisedKeepsTheNormalSizeOfAnEarlierExit) {
    Put("Left", "111");
    Put("Top", "222");
    Put("Width", "13000");
    Put("Height", "9999");
    form.Form1.SetState(WindowState::Maximized);
    form.Form1.SetState(WindowState::Minimized);
    settings.Save();
    EXPECT_EQ(Saved("WindowState"), u"1"_s);
    EXPECT_EQ(Saved("Left"), u"111"_s);
    EXPECT_EQ(Saved("Top"), u"222"_s);
    EXPECT_EQ(Saved("Width"), u"13000"_s);
    EXPECT_EQ(Saved("Height"), u"9999"_s);
}

TEST_F(SettingsTest, ClosingWhileMinimisedFromNormalSavesTheNormalWindow) {
    form.Form1.SetState(WindowState::Minimized);
    settings.Save();
    EXPECT_EQ(Saved("WindowState"), u"0"_s);
    EXPECT_EQ(Saved("Width"), u"12000"_s);
}
