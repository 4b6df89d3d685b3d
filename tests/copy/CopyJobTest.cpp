#include "tests/copy/CopyFixture.h"

using namespace Qt::StringLiterals;

namespace {

class CopyJobTest : public CopyFixture, public testing::Test {
protected:
    /// Two files for a folder and one for another, which are copied together.
    void AddTwoAlbums() {
        events.ToYield = 1000;
        SetOptions("B");
        AddTracks({"One", "Two"});
        AddTrack("Abba", "Live", "Three", "three");
    }
};

} // namespace

// ---- the walk

TEST_F(CopyJobTest, OnlyTickedRecordsAreCopiedInTheLibrarysOrderWithOneYieldAFile) {
    AddTrack("Zappa", "Apostrophe", "Rollo", "rollo");
    AddTrack("Zappa", "Apostrophe", "Montana", "montana").Checked = false;
    AddTrack("Zappa", "Zoot", "Friendly", "friendly");
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    AddTrack("Beck", "Guero", "Girl", "girl");
    library.Artists[0].Albums[1].Checked = false;
    library.Artists[1].Checked = false;
    Press();
    EXPECT_EQ(files.CallsOf(FileCall::CopyFile),
              QStringList({u"E:\\iPod_Control\\Music\\F00\\1.mp3 > D:\\Music\\Rollo.mp3"_s,
                           u"E:\\iPod_Control\\Music\\F00\\5.mp3 > D:\\Music\\Girl.mp3"_s}));
    EXPECT_EQ(events.Yields, 2);
}

TEST_F(CopyJobTest, UntilAYieldIsDueFilesAreCopiedTogether) {
    events.ToYield = 1000;
    SetOptions("B");
    AddTracks({"Two", "One", "One"});
    AddTrack("Abba", "Live", "Three", "three");
    AddTrack("Abba", "Live", "Four", "four");
    AddLargeTrack("Abba", "Live", "Film", 50000001);
    files.Limits = {100, NameLimits::Unit::Utf8Bytes, true};
    AtYield(2, [this] {
        EXPECT_EQ(Names(),
                  QStringList({u"Arrival\\One (2).mp3"_s, u"Arrival\\One.mp3"_s,
                               u"Arrival\\Two.mp3"_s, u"Live\\Four.mp3"_s, u"Live\\Three.mp3"_s}));
    });
    Press();
    EXPECT_EQ(events.Yields, 7); // one of them between the film's two chunks
    EXPECT_EQ(Copied().size(), 6);
}

TEST_F(CopyJobTest, AFailureAmongFilesThatAreCopiedTogetherIsAskedAboutInItsTurn) {
    events.ToYield = 1000;
    AddTracks({"One", "Two", "Three"});
    files.FailNthCall(FileCall::CopyFile, 2, ErrorNumber::FileNotFound);
    messages.WhileShown = [this](const ShownMessage& message) {
        EXPECT_TRUE(message == Completed || events.Yields == 2);
    };
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown.size(), 2U);
    EXPECT_EQ(files.CountOf(FileCall::CopyFile), 3);
    EXPECT_EQ(Names(), QStringList({u"One.mp3"_s, u"Three.mp3"_s}));
}

TEST_F(CopyJobTest, AfterAFileThatFailsTheNextFolderIsNotEnteredBeforeTheUserAnswers) {
    AddTwoAlbums();
    files.FailNthCall(FileCall::CopyFile, 2, ErrorNumber::FileNotFound);
    messages.Answers = {MessageAnswer::Abort};
    Press();
    EXPECT_EQ(Names(), QStringList{u"Arrival\\One.mp3"_s});
    EXPECT_FALSE(files.HasFolder(u"D:\\Music\\Live"_s));
}

TEST_F(CopyJobTest, AFolderThatCannotBeEnteredAheadIsAskedAboutInItsTurn) {
    AddTwoAlbums();
    files.FailPath(FileCall::CreateFolder, u"D:\\Music\\Live"_s, ErrorNumber::PermissionDenied);
    messages.WhileShown = [this](const ShownMessage& message) {
        EXPECT_TRUE(message == Completed || events.Yields == 3);
        // Tried once so far: what a device refuses can cost half a minute.
        EXPECT_EQ(files.CallsOf(FileCall::CreateFolder).count(u"D:\\Music\\Live"_s),
                  message == Completed ? 2 : 1);
        files.ClearFailures();
    };
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList({u"Unable to create file: \"D:\\Music\\Live\""_s, Completed.Text}));
    EXPECT_EQ(Copied().size(), 3);
}

TEST_F(CopyJobTest, AFolderEnteredAheadThatIsGoneWhenItsTurnComesIsMadeAnew) {
    AddTwoAlbums();
    files.FailNthCall(FileCall::CopyFile, 3, ErrorNumber::FileNotFound);
    messages.WhileShown = [this](const ShownMessage& message) {
        if (message != Completed) {
            files.Remove(u"D:\\Music\\Live"_s);
        }
    };
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown.size(), 2U);
    EXPECT_EQ(Copied().size(), 3);
}

TEST_F(CopyJobTest, WhatACancelledJobHasEnteredAheadIsNothingToTheNextJob) {
    AddTwoAlbums();
    CancelAtYield(3);
    Press();
    files.Remove(u"D:\\Music\\Live\\Three.mp3"_s);
    library.Artists[0].Albums[0].Checked = false;
    files.AddFolder(u"D:\\Backup"_s);
    form.txtDestination.SetText(u"D:\\Backup"_s);
    Press();
    EXPECT_TRUE(files.HasFile(u"D:\\Backup\\Live\\Three.mp3"_s));
}

TEST_F(CopyJobTest, NothingIsWalkedWithoutALoadedLibrary) {
    AddTracks({"Tiger"});
    library.TrackCount = 0;
    Press();
    EXPECT_TRUE(Copied().isEmpty());
    EXPECT_EQ(messages.Shown, std::vector{Completed});
    ExpectIdle();
}

TEST_F(CopyJobTest, TheDeviceIsOnlyReadAndOtherFilesAreLeftAlone) {
    files.AddFile(u"D:\\Music\\mine.txt"_s, "mine");
    AddTracks({"Tiger"});
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    Press();
    EXPECT_EQ(files.ChangesBelow(u"E:"_s), QStringList());
    EXPECT_EQ(Bytes("D:\\Music\\mine.txt"), QByteArray("mine"));
}

TEST_F(CopyJobTest, TheModificationTimesAreKept) {
    const QString location = AddTrack("Abba", "Arrival", "Tiger", "tiger").Location;
    files.AddFile(location, "tiger", 1234);
    Press();
    EXPECT_EQ(files.ModificationTime(u"D:\\Music\\Tiger.mp3"_s), 1234);
}

// ---- large files

TEST_F(CopyJobTest, ATrackOfExactly50000000BytesIsCopiedWhole) {
    const QString location = AddLargeTrack("Abba", "Arrival", "Film", 50000000).Location;
    Press();
    EXPECT_EQ(files.CountOf(FileCall::CopyFile), 1);
    EXPECT_EQ(files.CountOf(FileCall::OpenForReading), 0);
    EXPECT_TRUE(files.SameContent(location, u"D:\\Music\\Film.mp3"_s));
}

TEST_F(CopyJobTest, ATrackOf50000001BytesGoesThroughTheTmpFolder) {
    const QString location = AddLargeTrack("Abba", "Arrival", "Film", 50000001).Location;
    SetOptions("A");
    messages.WhileShown = [this](const ShownMessage&) {
        EXPECT_FALSE(files.HasFolder(u"D:\\Music\\tmp"_s));
    };
    Press();
    EXPECT_EQ(files.CountOf(FileCall::CopyFile), 0);
    EXPECT_EQ(files.CallsOf(FileCall::MoveFile),
              QStringList{u"D:\\Music\\tmp\\copy.tmp > D:\\Music\\Abba\\Film.mp3"_s});
    EXPECT_TRUE(files.SameContent(location, u"D:\\Music\\Abba\\Film.mp3"_s));
    EXPECT_EQ(messages.Shown, std::vector{Completed});
}

TEST_F(CopyJobTest, TheDatabasesSizeDecidesAboutChunksAndAllBytesOfTheFileAreCopied) {
    files.AddFile(AddLargeTrack("Abba", "Arrival", "Film", 50000001).Location, "short after all");
    const QString location = AddTrack("Abba", "Arrival", "Tiger", "tiger").Location;
    files.AddLargeFile(location, 60000000);
    Press();
    EXPECT_EQ(Bytes("D:\\Music\\Film.mp3"), QByteArray("short after all"));
    EXPECT_EQ(files.CallsOf(FileCall::CopyFile).size(), 1);
    EXPECT_TRUE(files.SameContent(location, u"D:\\Music\\Tiger.mp3"_s));
}

TEST_F(CopyJobTest, ATmpFolderInTheDestinationIsDeletedAtTheEndAndOneDeeperDownStays) {
    AddTrack("Abba", "tmp", "Tiger", "tiger");
    files.AddFile(u"D:\\Music\\tmp\\old.txt"_s, "old");
    SetOptions("AB");
    Press();
    EXPECT_EQ(Names(), QStringList{u"Abba\\tmp\\Tiger.mp3"_s});
    EXPECT_FALSE(files.HasFolder(u"D:\\Music\\tmp"_s));
    EXPECT_EQ(files.CallsOf(FileCall::DeleteFolder), QStringList{u"D:\\Music\\tmp"_s});
}

// ---- what the user sees

TEST_F(CopyJobTest, TheProgressTextCountsTheFilesOfEachJobAnew) {
    AddTracks({"Tiger", "Fernando", "Money"});
    for (const PromptUse use : {PromptUse::CloseBox, PromptUse::ReplaceAll}) {
        promptUses = {use};
        form.lblMessage.Captions.clear();
        Press();
        EXPECT_EQ(form.lblMessage.Captions,
                  QStringList({u"Please wait..."_s, u"Copying files... 1 of 3"_s,
                               u"Copying files... 2 of 3"_s, u"Copying files... 3 of 3"_s,
                               u"Selected: 0 KB of 0 KB"_s}));
        EXPECT_EQ(job.CopiedBytes(), 5 + 8 + 5);
    }
}

TEST_F(CopyJobTest, TheBarCountsBytes) {
    AddTrack("Abba", "Arrival", "Tiger", QByteArray(100, 't'));
    AddTrack("Abba", "Arrival", "Fernando", QByteArray(200, 'f'));
    AddTrack("Beck", "Guero", "Girl", QByteArray(400, 'g'));
    events.OnYield = [this](int) { EXPECT_EQ(form.prgCopy.Max(), 700.0F); };
    messages.WhileShown = [this](const ShownMessage&) { EXPECT_EQ(form.prgCopy.Value(), 0.0F); };
    Press();
    EXPECT_EQ(form.prgCopy.Values, (std::vector<float>{0, 0, 0, 100, 300, 0, 0, 700}));
    EXPECT_EQ(job.CopiedBytes(), 700);
}

TEST_F(CopyJobTest, TheBarMovesWithTheChunksOfALargeFile) {
    AddTrack("Abba", "Arrival", "Tiger", QByteArray(64, 't'));
    AddLargeTrack("Abba", "Arrival", "Film", 100000064);
    Press();
    EXPECT_EQ(form.prgCopy.Values,
              (std::vector<float>{0, 0, 0, 64, 50000064.0F, 100000064.0F, 0, 0, 100000128.0F}));
}

TEST_F(CopyJobTest, OnlyAMinimizedWindowShowsTheProgressInItsCaption) {
    AddTracks({"Tiger", "Fernando"});
    Press();
    EXPECT_TRUE(form.Form1.Captions.isEmpty());
    form.Form1.SetState(WindowState::Minimized);
    promptUses = {PromptUse::ReplaceAll};
    Press();
    EXPECT_EQ(form.Form1.Captions, QStringList({u"Copying files... 1 of 2"_s,
                                                u"Copying files... 2 of 2"_s, u"Songlift"_s}));
}

TEST_F(CopyJobTest, WhileTheJobRunsTheControlsAreDisabledAndTheButtonCancels) {
    AddTracks({"Tiger"});
    form.cmdClear.SetEnabled(true);
    const auto expectRunning = [this] {
        EXPECT_TRUE(job.Copying);
        EXPECT_EQ(form.cmdCopy.Caption(), u"&Cancel"_s);
        EXPECT_TRUE(form.cmdCopy.Enabled());
        EXPECT_FALSE(form.cmdClear.Enabled());
        ExpectEnabled(false);
    };
    events.OnYield = [&](int) { expectRunning(); };
    messages.WhileShown = [&](const ShownMessage&) { expectRunning(); };
    Press();
    EXPECT_EQ(messages.Shown, std::vector{Completed});
    ExpectIdle();
}

TEST_F(CopyJobTest, AfterTheJobTheSummaryIsShownAgain) {
    AddTrack("Abba", "Arrival", "Tiger", QByteArray(2048, 't'));
    AddTrack("Abba", "Arrival", "Fernando", QByteArray(2048, 'f')).Checked = false;
    summary.SelectedSize = 2048;
    Press();
    EXPECT_EQ(form.lblMessage.Caption(), u"Selected: 2 KB of 4 KB"_s);
    EXPECT_EQ(form.prgCopy.Max(), 4096.0F);
    EXPECT_EQ(form.prgCopy.Value(), 2048.0F);
}

TEST_F(CopyJobTest, TheClearButtonComesBackOnlyWithATextSearchInForce) {
    AddTracks({"Tiger"});
    Press();
    EXPECT_FALSE(form.cmdClear.Enabled());
    form.txtSearch.SetText(u"tiger"_s);
    promptUses = {PromptUse::Replace};
    Press();
    EXPECT_TRUE(form.cmdClear.Enabled());
}

TEST_F(CopyJobTest, ACompletedJobFlashesAWindowThatIsNotTheActiveOne) {
    AddTracks({"Tiger"});
    Press();
    EXPECT_TRUE(form.WindowManager.Flashed.empty());
    form.WindowManager.ActiveWindow = 0;
    messages.WhileShown = [this](const ShownMessage& message) {
        EXPECT_EQ(message, Completed);
        EXPECT_EQ(form.WindowManager.Flashed.back(), form.Form1.Handle());
    };
    files.Remove(u"D:\\Music\\Tiger.mp3"_s);
    Press();
    EXPECT_EQ(messages.Shown.size(), 2U);
    EXPECT_EQ(form.WindowManager.Flashed.size(), 1U);
}

// ---- a search result is shown

TEST_F(CopyJobTest, TickedTracksThatASearchHidesAreCopiedToo) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    AddTrack("Abba", "Arrival", "Fernando", "fernando").Checked = false;
    AddTrack("Beck", "Guero", "Girl", "girl");
    // The result shows Abba alone, and in it the user has ticked Fernando and unticked Tiger.
    ShowFirstArtistOnly();
    library.Artists[0].Albums[0].Tracks[0].Checked = false;
    library.Artists[0].Albums[0].Tracks[1].Checked = true;
    form.lblMessage.Captions.clear();
    Press();
    EXPECT_EQ(Names(), QStringList({u"Fernando.mp3"_s, u"Girl.mp3"_s}));
    EXPECT_EQ(form.lblMessage.Captions.at(1), u"Copying files... 1 of 2"_s);
    ASSERT_EQ(library.Artists.size(), 1U);
    EXPECT_EQ(library.Artists[0].Name, u"Abba"_s);
    ASSERT_EQ(parts.Result.SavedArtists().size(), 2U);
    EXPECT_FALSE(parts.Result.SavedArtists()[0].Albums[0].Tracks[0].Checked);
    EXPECT_TRUE(parts.Result.SavedArtists()[0].Albums[0].Tracks[1].Checked);
}

TEST_F(CopyJobTest, AStoppedJobPutsTheSearchResultBackToo) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    AddTrack("Beck", "Guero", "Girl", "girl");
    ShowFirstArtistOnly();
    CancelAtYield(2);
    Press();
    EXPECT_EQ(Names(), QStringList{u"Tiger.mp3"_s});
    EXPECT_EQ(library.Artists.size(), 1U);
    EXPECT_EQ(parts.Result.SavedArtists().size(), 2U);
}
