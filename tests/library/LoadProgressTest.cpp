#include "library/LoadProgress.h"
#include "tests/library/LoadingWindow.h"

#include <algorithm>
#include <chrono>
#include <thread>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

QByteArray DatabaseOf(int tracks, const ITunesDBLayout& layout = {}) {
    return WriteITunesDB({size_t(tracks), {u"A"_s, u"B"_s, u"C"_s, 1, 1, u"F00/A.mp3"_s}}, layout);
}

} // namespace

class LoadProgressShown : public LoadingWindow {
protected:
    /// Loads 1.5 MB from a device that takes that long for each block; how much was read at most.
    qint64 LargestBlockAt(std::chrono::milliseconds delay) {
        qint64 largest = 0;
        Files.BeforeCall = [&](const RecordedFiles::RecordedCall& call) {
            if (call.Call == FileCall::Read) {
                std::this_thread::sleep_for(delay);
                largest = std::max(largest, call.Size);
            }
        };
        Load(DatabaseOf(6000));
        EXPECT_EQ(Library.TrackCount, 6000);
        return largest;
    }
};

TEST_F(LoadProgressShown, ASlowDeviceIsReadInSmallBlocksSoThatTheBarMovesOften) {
    EXPECT_EQ(LargestBlockAt(20ms), 256 << 10);
    EXPECT_GT(LargestBlockAt(0ms), 512 << 10);
}

TEST_F(LoadProgressShown, TheMessageAsksToWaitThenShowsPercentagesWithTiesRoundedToEven) {
    const auto messages = [this](int tracks) {
        Window.lblMessage.Captions.clear();
        Load(DatabaseOf(tracks));
        return Window.lblMessage.Captions.join(u'|')
            .replace(u"Loading music... "_s, QString())
            .toStdString();
    };
    EXPECT_EQ(messages(4), "Please wait...|25%|50%|75%|100%");
    EXPECT_EQ(messages(3), "Please wait...|33%|67%|100%");
    // 12.5, 25, 37.5, 50, 62.5, 75, 87.5, 100
    EXPECT_EQ(messages(8), "Please wait...|12%|25%|38%|50%|62%|75%|88%|100%");
    // 0.5, which is shown although it is 0; 1; 1.5
    EXPECT_EQ(messages(200).substr(0, 23), "Please wait...|0%|1%|2%");
}

TEST_F(LoadProgressShown, TheMessageIsWrittenOnlyWhenItsTextChanges) {
    Load(DatabaseOf(3000));
    EXPECT_EQ(Window.lblMessage.Captions.size(), 1 + 101);
    EXPECT_EQ(Window.Form1.RefreshCount, 1 + 101);
    EXPECT_EQ(Window.Combo1.RefreshCount, 1);
}

TEST_F(LoadProgressShown, TheBarCountsTheTracksAndGoesBackToZero) {
    Load(DatabaseOf(4));
    EXPECT_EQ(Window.prgCopy.Max(), 4);
    EXPECT_EQ(Window.prgCopy.Values, (std::vector<float>{1, 2, 3, 4, 0}));
}

TEST_F(LoadProgressShown, OnlyAMinimizedWindowShowsTheMessageInItsCaption) {
    Window.Form1.SetCaption(u"Songlift"_s);
    Window.Form1.Captions.clear();
    Load(DatabaseOf(2));
    EXPECT_EQ(Window.Form1.Captions, QStringList());
    Window.Form1.SetState(WindowState::Minimized);
    Load(DatabaseOf(2));
    EXPECT_EQ(Window.Form1.Captions, (QStringList{u"Please wait..."_s, u"Loading music... 50%"_s,
                                                  u"Loading music... 100%"_s, u"Songlift"_s}));
}

TEST_F(LoadProgressShown, TheLibraryCountsAsLoadingAndEmptyUntilTheEnd) {
    int read = 0;
    Library.TrackCount = 7;
    Library.TotalSize = 70;
    Files.BeforeCall = [&](const RecordedFiles::RecordedCall& call) {
        if (call.Call == FileCall::OpenForReading) {
            ++read;
            EXPECT_TRUE(Library.LoadingMusic);
            EXPECT_EQ(Library.TrackCount, 0);
            EXPECT_EQ(Library.TotalSize, 0);
        }
    };
    Load(DatabaseOf(2));
    EXPECT_EQ(read, 1);
    EXPECT_FALSE(Library.LoadingMusic);
}

TEST_F(LoadProgressShown, TheErrorBoxIsShownBeforeTheLoadEnds) {
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
    Load(TitledTrack(u"one"_s) + TitledTrack(u"two"_s));
    ExpectError(u"Error 13: Type mismatch"_s);
    EXPECT_EQ(Library.TrackCount, 1);
    EXPECT_EQ(Window.prgCopy.Max(), 100); // as it was
    EXPECT_EQ(Window.prgCopy.Values, (std::vector<float>{1, 0}));
    EXPECT_EQ(Window.lblMessage.Caption(), u"Please wait..."_s);
}

TEST_F(LoadProgressShown, APercentageBeyondSixteenBitsOverflows) {
    // 327 tracks of 1 are 32,700%, 328 are 32,800%.
    Load(DatabaseOf(400, {.StatedTrackCount = 1}));
    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Library.TrackCount, 328);
    EXPECT_EQ(Window.lblMessage.Caption(), u"Loading music... 32700%"_s);
    ExpectConsistent(Library);
}

TEST_F(LoadProgressShown, AWindowThatIsClosedEndsTheLoadAndNothingCounts) {
    Events.IsClosed = true;

    Load(DatabaseOf(4));

    EXPECT_EQ(Library.TrackCount, 0);
    EXPECT_EQ(Library.TotalSize, 0);
    EXPECT_EQ(Window.lblMessage.Captions.size(), 2); // at the first percentage
    EXPECT_TRUE(Boxes.Shown.empty());
    ExpectEnded();
}
