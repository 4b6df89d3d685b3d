#include "app/Preview.h"
#include "app/ControlGroups.h"
#include "tests/fakes/FakeFileSystem.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/PrintText.h"

#include <gtest/gtest.h>

namespace {

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

/// Tells what is done to it as it happens.
class ObservedPlayer : public FakeMediaPlayerControl {
public:
    std::function<void()> OnSource;

    void SetSource(const QString& path) override {
        FakeMediaPlayerControl::SetSource(path);
        Raise(OnSource);
    }
};

class ObservedWindow : public FakeWindow {
public:
    std::function<void()> OnShow;

    void Show() override {
        Raise(OnShow);
        FakeWindow::Show();
    }
};

/// A song list of two albums: a video and two songs, none of them current yet.
class PreviewTest : public testing::Test {
protected:
    const QString film = Text("E:\\iPod_Control\\Music\\F00\\FILM.m4v");
    const QString money = Text("E:\\iPod_Control\\Music\\F01\\MONE.mp3");
    const QString tiger = Text("E:\\iPod_Control\\Music\\F01\\TIGE.m4a");

    FakeForm1 form;
    FakeFileSystem files;
    FakeMessages messages;
    MusicLibrary library;
    TextFitting textFitting{form.WindowManager, FittingControlsOf(form.Controls)};
    LinkedLists lists{library, textFitting, ListControlsOf(form.Controls)};
    ObservedWindow frmPreview;
    ObservedPlayer player;
    PreviewControls controls{frmPreview, player};
    Preview preview{lists, files, messages, SongControlsOf(form.Controls), controls};

    PreviewTest() {
        AlbumRecord clips;
        clips.Name = Text("Clips");
        clips.Tracks = {{.Location = film, .Title = Text("Waterloo")}};
        AlbumRecord arrival;
        arrival.Name = Text("Arrival");
        arrival.Tracks = {{.Location = tiger, .Title = Text("Tiger")},
                          {.Location = money, .Title = Text("Money")}};
        library.Artists = {{.Name = Text("Abba"), .Albums = {arrival, clips}}};
        library.TrackCount = 3;
        // The rows stand in another order than the records.
        RowTables rows;
        rows.Albums = {.AlbumRowArtist = {0, 0, 0}, .AlbumRowAlbum = {0, 0, 1}};
        rows.Songs = {.SongRowTrack = {0, 1, 0, 0}, .SongRowAlbumRow = {0, 1, 1, 2}};
        lists.PutRowsBack(rows);
        form.lstSongs.Fill(
            {{Text("All (3 Songs)")}, {Text("Money")}, {Text("Tiger")}, {Text("Waterloo")}});
        for (const QString& path : {film, money, tiger}) {
            files.AddFile(path, "media");
        }
        player.FilmSizes[film] = {4800, 3600};
        frmPreview.QueryUnload = [this](bool& cancel, UnloadMode mode) {
            preview.Form_QueryUnload(cancel, mode);
        };
    }

    void PreviewRow(int row) {
        form.lstSongs.SetListIndex(row);
        preview.mnuPreview_Click();
    }
};

TEST_F(PreviewTest, PlaysTheFileOfTheCurrentSongRow) {
    PreviewRow(1);
    EXPECT_EQ(player.Sources, QStringList{money});
    PreviewRow(2);
    EXPECT_EQ(player.Source(), tiger);
    PreviewRow(3);
    EXPECT_EQ(player.Source(), film);
    EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(PreviewTest, TheWindowsInsideEqualsTheFilm) {
    PreviewRow(3);
    EXPECT_EQ(frmPreview.Width(), 4800);
    EXPECT_EQ(frmPreview.Height(), 3600);
}

TEST_F(PreviewTest, AVideoAndThenAnAudioTrackEachSizeTheWindow) {
    PreviewRow(3);
    PreviewRow(1);
    EXPECT_EQ(frmPreview.Width(), 4800);
    EXPECT_EQ(frmPreview.Height(), 600);
    PreviewRow(3);
    EXPECT_EQ(frmPreview.Height(), 3600);
}

TEST_F(PreviewTest, AWindowThatTheUserHasResizedTakesThePlayersSizeAgain) {
    PreviewRow(3);
    frmPreview.UserResize(9000, 9000);
    PreviewRow(3);
    EXPECT_EQ(frmPreview.Width(), 4800);
    EXPECT_EQ(frmPreview.Height(), 3600);
}

TEST_F(PreviewTest, TheCaptionIsTheSongsListText) {
    form.lstSongs.Fill({{Text("All (1 Song)")}, {Text("Money & Co (live) - 3:05")}});
    PreviewRow(1);
    EXPECT_EQ(frmPreview.Caption(), Text("Money & Co (live) - 3:05"));
}

TEST_F(PreviewTest, TheWindowIsShownModeless) {
    PreviewRow(1);
    EXPECT_TRUE(frmPreview.Visible);
    EXPECT_EQ(frmPreview.ShowCount, 1);
    EXPECT_EQ(frmPreview.ShowModalCount, 0);
}

TEST_F(PreviewTest, TheWindowHasSizeAndCaptionBeforeItIsShown) {
    bool wasReady = false;
    frmPreview.OnShow = [&] {
        wasReady = frmPreview.Width() == 4800 && frmPreview.Height() == 3600 &&
                   frmPreview.Caption() == Text("Waterloo") && player.Source() == film;
    };
    PreviewRow(3);
    EXPECT_TRUE(wasReady);
}

TEST_F(PreviewTest, TheHourglassStandsWhileTheFileIsOpened) {
    MousePointer whileOpening = MousePointer::Default;
    MousePointer whileShown = MousePointer::Default;
    player.OnSource = [&] { whileOpening = form.Form1.Pointer(); };
    frmPreview.OnShow = [&] { whileShown = form.Form1.Pointer(); };
    PreviewRow(1);
    EXPECT_EQ(whileOpening, MousePointer::Hourglass);
    EXPECT_EQ(whileShown, MousePointer::Hourglass);
    EXPECT_EQ(form.Form1.Pointer(), MousePointer::Default);
}

TEST_F(PreviewTest, OfATrackWhoseDeviceFileIsGoneGivesTheMessageAndNoWindow) {
    files.Remove(money);
    PreviewRow(1);
    ASSERT_EQ(messages.Shown.size(), 1u);
    const ShownMessage expected = {
        Text("File not found: \"E:\\iPod_Control\\Music\\F01\\MONE.mp3\""), Text("Error"),
        MessageButtons::OK, MessageIcon::Exclamation};
    EXPECT_EQ(messages.Shown[0], expected) << messages.Shown[0].Text.toStdString();
    EXPECT_FALSE(frmPreview.Visible);
    EXPECT_EQ(frmPreview.ShowCount, 0);
    EXPECT_EQ(frmPreview.Caption(), QString());
    EXPECT_TRUE(player.Sources.isEmpty());
    EXPECT_TRUE(form.Form1.MousePointers.empty());
}

TEST_F(PreviewTest, OfAFileThatIsGoneLeavesAnEarlierPreviewPlaying) {
    PreviewRow(3);
    const double width = frmPreview.Width();
    files.Remove(money);
    PreviewRow(1);
    EXPECT_EQ(messages.Shown.size(), 1u);
    EXPECT_EQ(player.Source(), film);
    EXPECT_EQ(frmPreview.Caption(), Text("Waterloo"));
    EXPECT_EQ(frmPreview.Width(), width);
    EXPECT_TRUE(frmPreview.Visible);
}

TEST_F(PreviewTest, OfADeviceThatWasPulledGivesTheMessage) {
    files.RemoveDrive(Text("E:"));
    PreviewRow(2);
    EXPECT_EQ(messages.Texts(),
              QStringList{Text("File not found: \"E:\\iPod_Control\\Music\\F01\\TIGE.m4a\"")});
    EXPECT_EQ(frmPreview.ShowCount, 0);
}

TEST_F(PreviewTest, OfAFolderInTheFilesPlaceGivesTheMessage) {
    files.Remove(money);
    files.AddFolder(money);
    PreviewRow(1);
    EXPECT_EQ(messages.Shown.size(), 1u);
    EXPECT_TRUE(player.Sources.isEmpty());
}

TEST_F(PreviewTest, ReadsAndChangesNothingOnTheDeviceItself) {
    PreviewRow(1);
    EXPECT_EQ(files.CallTexts(),
              QStringList{Text("FileExists E:\\iPod_Control\\Music\\F01\\MONE.mp3")});
}

TEST_F(PreviewTest, OfTheAllRowOrOfNoRowDoesNothing) {
    PreviewRow(0);
    PreviewRow(-1);
    EXPECT_TRUE(player.Sources.isEmpty());
    EXPECT_TRUE(messages.Shown.empty());
    EXPECT_EQ(frmPreview.ShowCount, 0);
}

TEST_F(PreviewTest, WhileTheListsAreBeingChangedDoesNothing) {
    form.lstSongs.SetListIndex(1);
    const NestedFlag::Guard building = lists.Building.Set();
    preview.mnuPreview_Click();
    EXPECT_TRUE(player.Sources.isEmpty());
    EXPECT_EQ(frmPreview.ShowCount, 0);
}

TEST_F(PreviewTest, ClosingWhileItPlaysStopsAndReleasesTheFileAndHidesTheWindow) {
    PreviewRow(3);
    frmPreview.UserClose();
    EXPECT_EQ(player.Sources, (QStringList{film, QString()}));
    EXPECT_EQ(player.Source(), QString());
    EXPECT_FALSE(frmPreview.Visible);
    EXPECT_EQ(frmPreview.HideCount, 1);
    EXPECT_FALSE(frmPreview.Closed) << "the window stays loaded for the next preview";
}

TEST_F(PreviewTest, TheNextPreviewUsesTheClosedWindowAgain) {
    PreviewRow(3);
    frmPreview.UserClose();
    PreviewRow(1);
    EXPECT_TRUE(frmPreview.Visible);
    EXPECT_EQ(frmPreview.Caption(), Text("Money"));
    EXPECT_EQ(player.Source(), money);
    EXPECT_EQ(frmPreview.Height(), 600);
}

TEST_F(PreviewTest, ASecondPreviewReplacesTheMediaInTheOpenWindow) {
    PreviewRow(3);
    PreviewRow(1);
    EXPECT_EQ(player.Sources, (QStringList{film, money}));
    EXPECT_EQ(frmPreview.Captions, (QStringList{Text("Waterloo"), Text("Money")}));
    EXPECT_TRUE(frmPreview.Visible);
    EXPECT_EQ(frmPreview.HideCount, 0);
}

TEST_F(PreviewTest, TheProgramMayUnloadTheWindowWhileItPlays) {
    PreviewRow(3);
    frmPreview.Unload();
    EXPECT_TRUE(frmPreview.Closed);
    EXPECT_FALSE(frmPreview.Visible);
    EXPECT_EQ(frmPreview.HideCount, 0);
    EXPECT_EQ(player.Source(), QString()) << "nothing plays on without its window";
}

TEST_F(PreviewTest, TheProgramMayUnloadAWindowThatWasNeverShown) {
    frmPreview.Unload();
    EXPECT_TRUE(frmPreview.Closed);
}

TEST_F(PreviewTest, OnlyTheUsersCloseIsRefused) {
    bool cancel = false;
    preview.Form_QueryUnload(cancel, UnloadMode::Program);
    EXPECT_FALSE(cancel);
    preview.Form_QueryUnload(cancel, UnloadMode::User);
    EXPECT_TRUE(cancel);
}

} // namespace
