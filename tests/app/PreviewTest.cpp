#include "app/Preview.h"
#include "app/ControlGroups.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/RecordedFiles.h"
#include "tests/fakes/Text.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

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
    const QString film = u"E:\\iPod_Control\\Music\\F00\\FILM.m4v"_s;
    const QString money = u"E:\\iPod_Control\\Music\\F01\\MONE.mp3"_s;
    const QString tiger = u"E:\\iPod_Control\\Music\\F01\\TIGE.m4a"_s;

    FakeForm1 form;
    RecordedFiles files;
    FakeMessages messages;
    MusicLibrary library;
    TextFitting textFitting{form.WindowManager, FittingControlsOf(form.Controls)};
    LinkedLists lists{library, textFitting, ListControlsOf(form.Controls)};
    ObservedWindow frmPreview;
    ObservedPlayer player;
    PreviewControls controls{frmPreview, player};
    InlineWorker worker;
    PatientFileSystem patient{files, worker, worker};
    Preview preview{lists, patient, messages, SongControlsOf(form.Controls), controls};

    PreviewTest() {
        AlbumRecord clips;
        clips.Name = u"Clips"_s;
        clips.Tracks = {{.Location = film, .Title = u"Waterloo"_s}};
        AlbumRecord arrival;
        arrival.Name = u"Arrival"_s;
        arrival.Tracks = {{.Location = tiger, .Title = u"Tiger"_s},
                          {.Location = money, .Title = u"Money"_s}};
        library.Artists = {{.Name = u"Abba"_s, .Albums = {arrival, clips}}};
        library.TrackCount = 3;
        // The rows stand in another order than the records.
        RowTables rows;
        rows.Albums = {.AlbumRowArtist = {0, 0, 0}, .AlbumRowAlbum = {0, 0, 1}};
        rows.Songs = {.SongRowTrack = {0, 1, 0, 0}, .SongRowAlbumRow = {0, 1, 1, 2}};
        lists.PutRowsBack(rows);
        form.lstSongs.Fill({{u"All (3 Songs)"_s}, {u"Money"_s}, {u"Tiger"_s}, {u"Waterloo"_s}});
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

TEST_F(PreviewTest, PlaysTheFileOfTheCurrentSongRowInAWindowOfItsSizeAndName) {
    const struct {
        int Row;
        QString File, Caption;
        double Height;
    } songs[] = {{3, film, u"Waterloo"_s, 3600},
                 {1, money, u"Money"_s, 600},
                 {2, tiger, u"Tiger"_s, 600},
                 {3, film, u"Waterloo"_s, 3600}};
    for (const bool closes : {false, true}) { // the window is used again, closed or not
        for (const auto& song : songs) {
            bool wasReady = false;
            frmPreview.OnShow = [&] {
                wasReady = player.Source() == song.File && frmPreview.Width() == 4800 &&
                           frmPreview.Height() == song.Height &&
                           frmPreview.Caption() == song.Caption;
            };
            files.Calls.clear();
            PreviewRow(song.Row);
            EXPECT_TRUE(wasReady) << song.Row;
            EXPECT_TRUE(frmPreview.Visible);
            EXPECT_EQ(files.CallsOf(FileCall::FileExists), QStringList{song.File});
            EXPECT_EQ(files.Calls.size(), 1U);
            if (closes) {
                frmPreview.UserClose();
            }
        }
    }
    EXPECT_EQ(frmPreview.ShowModalCount, 0);
    EXPECT_EQ(frmPreview.HideCount, 4);
    EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(PreviewTest, AWindowThatIsClosedWhileTheDeviceIsAskedPlaysAndReportsNothing) {
    files.BeforeCall = [](const RecordedFiles::RecordedCall&) { throw OperationStopped(); };
    PreviewRow(1);
    EXPECT_EQ(player.Sources, QStringList());
    EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(PreviewTest, AWindowThatTheUserHasResizedTakesThePlayersSizeAgain) {
    PreviewRow(3);
    frmPreview.UserResize(9000, 9000);
    PreviewRow(3);
    EXPECT_EQ(frmPreview.Width(), 4800);
    EXPECT_EQ(frmPreview.Height(), 3600);
}

TEST_F(PreviewTest, TheCaptionIsTheSongsListText) {
    form.lstSongs.Fill({{u"All (1 Song)"_s}, {u"Money & Co (live) - 3:05"_s}});
    PreviewRow(1);
    EXPECT_EQ(frmPreview.Caption(), u"Money & Co (live) - 3:05"_s);
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
    const ShownMessage expected = {u"File not found: \"E:\\iPod_Control\\Music\\F01\\MONE.mp3\""_s,
                                   u"Error"_s, MessageButtons::OK, MessageIcon::Exclamation};
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
    EXPECT_EQ(frmPreview.Caption(), u"Waterloo"_s);
    EXPECT_EQ(frmPreview.Width(), width);
    EXPECT_TRUE(frmPreview.Visible);
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

TEST_F(PreviewTest, TheProgramMayUnloadTheWindowWhileItPlays) {
    PreviewRow(3);
    frmPreview.Unload();
    EXPECT_TRUE(frmPreview.Closed);
    EXPECT_FALSE(frmPreview.Visible);
    EXPECT_EQ(frmPreview.HideCount, 0); // only the user's close is refused
    EXPECT_EQ(player.Source(), QString()) << "nothing plays on without its window";
}

} // namespace
