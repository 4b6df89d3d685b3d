#include "app/Settings.h"
#include "app/ControlGroups.h"
#include "platform/RuntimeError.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"

#include <gtest/gtest.h>

namespace {

class SettingsTest : public testing::Test {
protected:
    SettingsTest() {
        layout.KeepDesign();
        form.Form1.Resize = [this] { layout.Form_Resize(); };
        shell.Documents = QStringLiteral("/home/ana/Documents");
    }

    void Restore() {
        settings.RestoreOptions();
        settings.RestoreWindow();
        settings.RestoreHandles();
    }
    void Put(const char* key, const char* value) {
        store.Values[QString::fromLatin1(key)] = QString::fromLatin1(value);
    }
    /// What the settings are refused with; empty when they are not.
    QString Refusal() {
        try {
            settings.Check();
            return {};
        } catch (const RuntimeError& error) {
            return QStringLiteral("%1: %2").arg(int(error.Number)).arg(error.Description);
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

} // namespace

TEST_F(SettingsTest, AFirstStartTicksArtistAlbumAndTrackNumber) {
    Restore();
    EXPECT_TRUE(form.chkArtist.Value());
    EXPECT_TRUE(form.chkAlbum.Value());
    EXPECT_FALSE(form.chkArtistName.Value());
    EXPECT_FALSE(form.chkAlbumName.Value());
    EXPECT_TRUE(form.chkTrackNum.Value());
}

TEST_F(SettingsTest, AFirstStartPointsToMyMusicInTheDocumentsFolder) {
    Restore();
    EXPECT_EQ(form.txtDestination.Text(), QStringLiteral("/home/ana/Documents/My Music"));
    EXPECT_TRUE(form.txtDestination.CompletesPaths);
}

TEST_F(SettingsTest, WithoutADocumentsFolderTheDestinationStaysEmpty) {
    shell.Documents.clear();
    Restore();
    EXPECT_EQ(form.txtDestination.Text(), QString());
}

TEST_F(SettingsTest, AFirstStartCentresTheWindowAtItsDesignSize) {
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Width(), 12000);
    EXPECT_DOUBLE_EQ(form.Form1.Height(), 9000);
    EXPECT_DOUBLE_EQ(form.Form1.Left(), 8400); // (28800 - 12000) / 2
    EXPECT_DOUBLE_EQ(form.Form1.Top(), 3600);  // (16200 - 9000) / 2
    EXPECT_EQ(form.Form1.State(), WindowState::Normal);
}

TEST_F(SettingsTest, TheWindowIsCentredOnWhatTheDesktopLeavesOfTheScreen) {
    form.WindowManager.Work = {1200, 600, 27600, 15600};
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Left(), 9000); // 1200 + (27600 - 12000) / 2
    EXPECT_DOUBLE_EQ(form.Form1.Top(), 3900);  // 600 + (15600 - 9000) / 2
}

TEST_F(SettingsTest, TheBitsOfTheFoldersAndNamesAreReadOneByOne) {
    Put("DestFolders", "2");
    Put("TrackNames", "3");
    Restore();
    EXPECT_FALSE(form.chkArtist.Value());
    EXPECT_TRUE(form.chkAlbum.Value());
    EXPECT_TRUE(form.chkArtistName.Value());
    EXPECT_TRUE(form.chkAlbumName.Value());
    EXPECT_FALSE(form.chkTrackNum.Value());
}

TEST_F(SettingsTest, ASavedLeftBeyondTheScreenCentresHorizontallyAndKeepsTheTop) {
    Put("Left", "28801");
    Put("Top", "1500");
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Left(), 8400);
    EXPECT_DOUBLE_EQ(form.Form1.Top(), 1500);
}

TEST_F(SettingsTest, ASavedTopBeyondTheScreenCentresVerticallyAndKeepsTheLeft) {
    Put("Left", "1500");
    Put("Top", "16201");
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Left(), 1500);
    EXPECT_DOUBLE_EQ(form.Form1.Top(), 3600);
}

TEST_F(SettingsTest, AWindowLeftOnAnotherScreenComesBackThere) {
    form.WindowManager.Screens = {0, -16200, 57600, 32400}; // one at the right, one above
    Put("Left", "57600");
    Put("Top", "-15000");
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Left(), 57600);
    EXPECT_DOUBLE_EQ(form.Form1.Top(), -15000);
}

TEST_F(SettingsTest, AWindowThatTheScreensCannotShowWithItsFrameIsCutAndCentred) {
    form.WindowManager.Work = {600, 300, 28000, 15900};
    form.WindowManager.Screens = {0, 0, 57600, 16200};
    Put("Width", "57571");  // one more than 57600 - 2 pixels
    Put("Height", "15901"); // one more than 16200 - 20 pixels
    Put("Left", "15");
    Put("Top", "30");
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Width(), 26600);  // 0.95 * 28000
    EXPECT_DOUBLE_EQ(form.Form1.Height(), 14310); // 0.9 * 15900
    EXPECT_DOUBLE_EQ(form.Form1.Left(), 1300);    // 600 + (28000 - 26600) / 2
    EXPECT_DOUBLE_EQ(form.Form1.Top(), 1095);     // 300 + (15900 - 14310) / 2
}

TEST_F(SettingsTest, AWindowOverTwoScreensStaysAsItWas) {
    form.WindowManager.Screens = {0, 0, 57600, 16200};
    Put("Width", "57570");
    Put("Height", "15900");
    Put("Left", "15");
    Put("Top", "30");
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Width(), 57570);
    EXPECT_DOUBLE_EQ(form.Form1.Height(), 15900);
    EXPECT_DOUBLE_EQ(form.Form1.Left(), 15);
    EXPECT_DOUBLE_EQ(form.Form1.Top(), 30);
}

TEST_F(SettingsTest, ACentredWindowThatIsLargerThanTheScreenBeginsThere) {
    form.WindowManager.Work = {600, 300, 9000, 7500};
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Left(), 600);
    EXPECT_DOUBLE_EQ(form.Form1.Top(), 300);
}

TEST_F(SettingsTest, AWindowWhollyLeftOfAllScreensOrAboveThemIsCentred) {
    form.WindowManager.Screens = {-600, -300, 29400, 16500};
    Put("Left", "-12600"); // its right edge, at -600, is where the screens begin
    Put("Top", "-9300");
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Left(), 8400);
    EXPECT_DOUBLE_EQ(form.Form1.Top(), 3600);
    Put("Left", "-12599");
    Put("Top", "-9299");
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Left(), -12599);
    EXPECT_DOUBLE_EQ(form.Form1.Top(), -9299);
}

TEST_F(SettingsTest, AWindowPartlyOffTheRightEdgeIsKept) {
    Put("Left", "28800");
    Put("Top", "16200");
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Left(), 28800);
    EXPECT_DOUBLE_EQ(form.Form1.Top(), 16200);
}

TEST_F(SettingsTest, ASavedSizeIsCentredByItself) {
    Put("Width", "14400");
    Put("Height", "9600.5");
    Restore();
    EXPECT_DOUBLE_EQ(form.Form1.Width(), 14400);
    EXPECT_DOUBLE_EQ(form.Form1.Height(), 9600.5);
    EXPECT_DOUBLE_EQ(form.Form1.Left(), 7200);
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
                  QStringLiteral(
                      "13: Type mismatch (setting \"%1\": \"wide\", in \"/home/ana/settings\")")
                      .arg(QLatin1String(key)));
    }
}

TEST_F(SettingsTest, ANumberOutOfRangeIsRefusedNamingTheKey) {
    Put("DestFolders", "99999");
    EXPECT_EQ(Refusal(),
              QStringLiteral(
                  "6: Overflow (setting \"DestFolders\": \"99999\", in \"/home/ana/settings\")"));
    store.Values.clear();
    Put("Left", "1e39");
    EXPECT_EQ(
        Refusal(),
        QStringLiteral("6: Overflow (setting \"Left\": \"1e39\", in \"/home/ana/settings\")"));
}

TEST_F(SettingsTest, EverythingSavedIsText) {
    form.chkAlbum.SetValue(true);
    form.chkAlbumName.SetValue(true);
    form.chkTrackNum.SetValue(true);
    form.txtDestination.SetText(QStringLiteral("/no/such; folder, really"));
    form.Form1.MoveTo(300, 450.5);
    settings.Save();
    EXPECT_EQ(Saved("DestFolders"), QStringLiteral("2"));
    EXPECT_EQ(Saved("TrackNames"), QStringLiteral("6"));
    EXPECT_EQ(Saved("DestPath"), QStringLiteral("/no/such; folder, really"));
    EXPECT_EQ(Saved("Handle1"), QStringLiteral("3120"));
    EXPECT_EQ(Saved("Handle2"), QStringLiteral("6165"));
    EXPECT_EQ(Saved("WindowState"), QStringLiteral("0"));
    EXPECT_EQ(Saved("Left"), QStringLiteral("300"));
    EXPECT_EQ(Saved("Top"), QStringLiteral("450.5"));
    EXPECT_EQ(Saved("Width"), QStringLiteral("12000"));
    EXPECT_EQ(Saved("Height"), QStringLiteral("9000"));
    EXPECT_EQ(store.Values.size(), 10);
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
    EXPECT_EQ(Saved("WindowState"), QStringLiteral("1"));
    EXPECT_EQ(Saved("Left"), QStringLiteral("111"));
    EXPECT_EQ(Saved("Top"), QStringLiteral("222"));
    EXPECT_EQ(Saved("Width"), QStringLiteral("13000"));
    EXPECT_EQ(Saved("Height"), QStringLiteral("9999"));
}

TEST_F(SettingsTest, ClosingWhileMinimisedFromNormalSavesTheNormalWindow) {
    form.Form1.SetState(WindowState::Minimized);
    settings.Save();
    EXPECT_EQ(Saved("WindowState"), QStringLiteral("0"));
    EXPECT_EQ(Saved("Width"), QStringLiteral("12000"));
}
