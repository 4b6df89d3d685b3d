#include "library/LoadProgress.h"
#include "tests/library/LoadingWindow.h"

using namespace Qt::StringLiterals;

namespace {

std::vector<SampleTrack> Tracks(int count) {
    std::vector<SampleTrack> tracks;
    for (int i = 0; i < count; ++i) {
        tracks.push_back({u"A"_s, u"B"_s, u"C"_s, i, 1, u"F00/A.mp3"_s});
    }
    return tracks;
}

} // namespace

class LoadProgressShown : public LoadingWindow {};

TEST_F(LoadProgressShown, TheMessageAsksToWaitThenTellsPercentages) {
    Load(WriteITunesDB(Tracks(4)));

    EXPECT_EQ(
        Window.lblMessage.Captions,
        (QStringList{u"Please wait..."_s, u"Loading music... 25%"_s, u"Loading music... 50%"_s,
                     u"Loading music... 75%"_s, u"Loading music... 100%"_s}));
}

TEST_F(LoadProgressShown, TiesOfThePercentageGoToTheEvenNumber) {
    Load(WriteITunesDB(Tracks(8)));

    // 12.5, 25, 37.5, 50, 62.5, 75, 87.5, 100
    EXPECT_EQ(
        Window.lblMessage.Captions,
        (QStringList{u"Please wait..."_s, u"Loading music... 12%"_s, u"Loading music... 25%"_s,
                     u"Loading music... 38%"_s, u"Loading music... 50%"_s,
                     u"Loading music... 62%"_s, u"Loading music... 75%"_s,
                     u"Loading music... 88%"_s, u"Loading music... 100%"_s}));
}

TEST_F(LoadProgressShown, TheFirstPercentageIsShownEvenWhenItIsZero) {
    Load(WriteITunesDB(Tracks(200)));

    EXPECT_EQ(Window.lblMessage.Captions.value(1), u"Loading music... 0%"_s); // 0.5
    EXPECT_EQ(Window.lblMessage.Captions.value(2), u"Loading music... 1%"_s); // 1, after 2 tracks
    EXPECT_EQ(Window.lblMessage.Captions.value(3), u"Loading music... 2%"_s); // 1.5
}

TEST_F(LoadProgressShown, ThePercentageIsComputedAsAHundredthTimesTheCount) {
    Load(WriteITunesDB(Tracks(3)));

    // 33.3..., 66.6..., 100
    EXPECT_EQ(Window.lblMessage.Captions,
              (QStringList{u"Please wait..."_s, u"Loading music... 33%"_s,
                           u"Loading music... 67%"_s, u"Loading music... 100%"_s}));
}

TEST_F(LoadProgressShown, TheMessageIsWrittenOnlyWhenItsTextChanges) {
    Load(WriteITunesDB(Tracks(3000)));

    EXPECT_EQ(Window.lblMessage.Captions.size(), 1 + 101);
    EXPECT_EQ(Window.Form1.RefreshCount, 1 + 101);
    EXPECT_EQ(Window.Combo1.RefreshCount, 1);
}

TEST_F(LoadProgressShown, TheBarCountsTheTracksAndGoesBackToZero) {
    Load(WriteITunesDB(Tracks(4)));

    EXPECT_EQ(Window.prgCopy.Max(), 4);
    EXPECT_EQ(Window.prgCopy.Values, (std::vector<float>{1, 2, 3, 4, 0}));
}

TEST_F(LoadProgressShown, TheCaptionStaysWhileTheWindowIsOpen) {
    Window.Form1.SetCaption(u"Songlift"_s);
    Window.Form1.Captions.clear();

    Load(WriteITunesDB(Tracks(2)));

    EXPECT_EQ(Window.Form1.Captions, QStringList());
}

TEST_F(LoadProgressShown, AMinimizedWindowShowsTheMessageInItsCaption) {
    Window.Form1.SetState(WindowState::Minimized);
    Window.Form1.Captions.clear();

    Load(WriteITunesDB(Tracks(2)));

    EXPECT_EQ(Window.Form1.Captions, (QStringList{u"Please wait..."_s, u"Loading music... 50%"_s,
                                                  u"Loading music... 100%"_s, u"Songlift"_s}));
}

TEST_F(LoadProgressShown, TheLibraryCountsAsLoadingUntilTheEnd) {
    bool loadingAtRead = false;
    qint16 countAtRead = -1;
    double sizeAtRead = -1;
    Library.TrackCount = 7;
    Library.TotalSize = 70;
    Files.BeforeCall = [&](const FakeFileSystem::RecordedCall& call) {
        if (call.Call == FileCall::OpenForReading) {
            loadingAtRead = Library.LoadingMusic;
            countAtRead = Library.TrackCount;
            sizeAtRead = Library.TotalSize;
        }
    };

    Load(WriteITunesDB(Tracks(2)));

    EXPECT_TRUE(loadingAtRead);
    EXPECT_EQ(countAtRead, 0);
    EXPECT_EQ(sizeAtRead, 0);
    EXPECT_FALSE(Library.LoadingMusic);
}

TEST_F(LoadProgressShown, TheErrorBoxComesBeforeTheEnding) {
    bool loading = false;
    float value = 0;
    Boxes.WhileShown = [&](const ShownMessage&) {
        loading = Library.LoadingMusic;
        value = Window.prgCopy.Value();
    };

    LoadTracks(2, {TitledTrack(u"A"_s), ITunesDBChunks::Track(1LL << 31, 1, {})});

    EXPECT_TRUE(loading);
    EXPECT_EQ(value, 1);
    ExpectError(u"Error 6: Overflow"_s);
}

TEST_F(LoadProgressShown, ATrackWithoutATotalIsATypeMismatch) {
    LoadProgress progress(Library, LoadControlsOf(Window.Controls));
    progress.Start();
    Library.TrackCount = 1;
    try {
        progress.TrackLoaded();
        FAIL() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(int(error.Number), 13);
    }
    EXPECT_EQ(Window.prgCopy.Value(), 1);
    EXPECT_EQ(Window.lblMessage.Caption(), u"Please wait..."_s);
}

TEST_F(LoadProgressShown, APercentageBeyondSixteenBitsOverflows) {
    // 327 tracks of 1 are 32,700%, 328 are 32,800%.
    ITunesDBLayout layout;
    layout.StatedTrackCount = 1;

    Load(WriteITunesDB(Tracks(400), layout));

    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Library.TrackCount, 328);
    EXPECT_EQ(Window.lblMessage.Caption(), u"Loading music... 32700%"_s);
    ExpectConsistent(Library);
}
