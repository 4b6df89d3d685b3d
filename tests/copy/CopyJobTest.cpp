#include "tests/copy/CopyFixture.h"

namespace {

const ShownMessage Completed{Text("Copy completed!"), Text("Songlift"), MessageButtons::OK,
                             MessageIcon::Information};

class CopyJobTest : public CopyFixture, public testing::Test {
protected:
    QStringList Names() const {
        QStringList names;
        for (const QString& path : Copied()) {
            names += path.mid(9);
        }
        return names;
    }
};

} // namespace

// ---- the walk

TEST_F(CopyJobTest, OnlyTickedRecordsAreCopiedInTheLibrarysOrder) {
    AddTrack("Zappa", "Apostrophe", "Rollo", "rollo");
    AddTrack("Zappa", "Apostrophe", "Montana", "montana").Checked = false;
    AddTrack("Zappa", "Zoot", "Friendly", "friendly");
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    AddTrack("Beck", "Guero", "Girl", "girl");
    library.Artists[0].Albums[1].Checked = false;
    library.Artists[1].Checked = false;
    Press();
    EXPECT_EQ(files.CallsOf(FileCall::CopyFile),
              QStringList({Text("E:\\iPod_Control\\Music\\F00\\1.mp3 > D:\\Music\\Rollo.mp3"),
                           Text("E:\\iPod_Control\\Music\\F00\\5.mp3 > D:\\Music\\Girl.mp3")}));
}

TEST_F(CopyJobTest, TheJobYieldsOncePerFile) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    AddTrack("Abba", "Arrival", "Fernando", "fernando");
    AddTrack("Beck", "Guero", "Girl", "girl");
    Press();
    EXPECT_EQ(events.Yields, 3);
}

TEST_F(CopyJobTest, NothingIsWalkedWithoutALoadedLibrary) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    library.TrackCount = 0;
    Press();
    EXPECT_TRUE(Copied().isEmpty());
    EXPECT_EQ(messages.Shown, std::vector{Completed});
    ExpectIdle();
}

TEST_F(CopyJobTest, TheDeviceIsOnlyRead) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    Press();
    EXPECT_EQ(files.ChangesBelow(Text("E:")), QStringList());
}

TEST_F(CopyJobTest, AnExistingFileOfAnotherNameIsLeftAlone) {
    files.AddFile(Text("D:\\Music\\mine.txt"), "mine");
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    Press();
    EXPECT_EQ(Bytes("D:\\Music\\mine.txt"), QByteArray("mine"));
}

TEST_F(CopyJobTest, TheModificationTimesAreKept) {
    const QString location = AddTrack("Abba", "Arrival", "Tiger", "tiger").Location;
    files.AddFile(location, "tiger", 1234);
    Press();
    EXPECT_EQ(files.ModificationTime(Text("D:\\Music\\Tiger.mp3")), 1234);
}

// ---- large files

TEST_F(CopyJobTest, ATrackOfExactly50000000BytesIsCopiedWhole) {
    const QString location = AddLargeTrack("Abba", "Arrival", "Film", 50000000).Location;
    Press();
    EXPECT_EQ(files.CountOf(FileCall::CopyFile), 1);
    EXPECT_EQ(files.CountOf(FileCall::OpenForReading), 0);
    EXPECT_TRUE(files.SameContent(location, Text("D:\\Music\\Film.mp3")));
}

TEST_F(CopyJobTest, ATrackOf50000001BytesGoesThroughTheTmpFolder) {
    const QString location = AddLargeTrack("Abba", "Arrival", "Film", 50000001).Location;
    SetOptions("A");
    Press();
    EXPECT_EQ(files.CountOf(FileCall::CopyFile), 0);
    EXPECT_EQ(files.CallsOf(FileCall::MoveFile),
              QStringList{Text("D:\\Music\\tmp\\copy.tmp > D:\\Music\\Abba\\Film.mp3")});
    EXPECT_TRUE(files.SameContent(location, Text("D:\\Music\\Abba\\Film.mp3")));
    EXPECT_FALSE(files.HasFolder(Text("D:\\Music\\tmp")));
}

TEST_F(CopyJobTest, TheDatabasesSizeDecidesAboutChunksAndAllBytesOfTheFileAreCopied) {
    TrackRecord& track = AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    files.AddFile(track.Location, "short after all");
    TrackRecord& other = AddTrack("Abba", "Arrival", "Tiger", "tiger");
    files.AddLargeFile(other.Location, 60000000);
    const QString location = other.Location;
    Press();
    EXPECT_EQ(Bytes("D:\\Music\\Film.mp3"), QByteArray("short after all"));
    EXPECT_EQ(files.CallsOf(FileCall::CopyFile).size(), 1);
    EXPECT_TRUE(files.SameContent(location, Text("D:\\Music\\Tiger.mp3")));
}

TEST_F(CopyJobTest, APreexistingTmpFolderInTheDestinationIsDeletedAtTheEnd) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    files.AddFile(Text("D:\\Music\\tmp\\old.txt"), "old");
    Press();
    EXPECT_FALSE(files.HasFolder(Text("D:\\Music\\tmp")));
    EXPECT_EQ(files.CallsOf(FileCall::DeleteFolder), QStringList{Text("D:\\Music\\tmp")});
}

TEST_F(CopyJobTest, ATmpFolderDeeperDownStays) {
    AddTrack("Abba", "tmp", "Tiger", "tiger");
    SetOptions("AB");
    Press();
    EXPECT_EQ(Names(), QStringList{Text("Abba\\tmp\\Tiger.mp3")});
}

// ---- what the user sees

TEST_F(CopyJobTest, TheProgressTextCountsTheFiles) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    AddTrack("Abba", "Arrival", "Fernando", "fernando");
    AddTrack("Beck", "Guero", "Girl", "girl");
    form.lblMessage.Captions.clear();
    Press();
    EXPECT_EQ(form.lblMessage.Captions,
              QStringList({Text("Please wait..."), Text("Copying files... 1 of 3"),
                           Text("Copying files... 2 of 3"), Text("Copying files... 3 of 3"),
                           Text("Selected: 0 KB of 0 KB")}));
}

TEST_F(CopyJobTest, TheNextJobCountsFromOneAgain) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    Press();
    form.lblMessage.Captions.clear();
    promptUses = {PromptUse::Replace};
    Press();
    EXPECT_EQ(form.lblMessage.Captions.at(1), Text("Copying files... 1 of 1"));
    EXPECT_EQ(job.CopiedBytes, 5);
}

TEST_F(CopyJobTest, TheBarCountsBytes) {
    AddTrack("Abba", "Arrival", "Tiger", QByteArray(100, 't'));
    AddTrack("Abba", "Arrival", "Fernando", QByteArray(200, 'f'));
    AddTrack("Beck", "Guero", "Girl", QByteArray(400, 'g'));
    events.OnYield = [this](int) { EXPECT_EQ(form.prgCopy.Max(), 700.0F); };
    Press();
    EXPECT_EQ(form.prgCopy.Values, (std::vector<float>{0, 0, 0, 100, 300, 0, 0, 700}));
    EXPECT_EQ(job.CopiedBytes, 700);
}

TEST_F(CopyJobTest, TheBarMovesWithTheChunksOfALargeFile) {
    AddTrack("Abba", "Arrival", "Tiger", QByteArray(64, 't'));
    AddLargeTrack("Abba", "Arrival", "Film", 100000064);
    Press();
    EXPECT_EQ(form.prgCopy.Values,
              (std::vector<float>{0, 0, 0, 64, 50000064.0F, 100000064.0F, 0, 0, 100000128.0F}));
}

TEST_F(CopyJobTest, AMinimizedWindowShowsTheProgressInItsCaption) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    AddTrack("Beck", "Guero", "Girl", "girl");
    form.Form1.SetState(WindowState::Minimized);
    Press();
    EXPECT_EQ(form.Form1.Captions,
              QStringList({Text("Copying files... 1 of 2"), Text("Copying files... 2 of 2"),
                           Text("Songlift")}));
}

TEST_F(CopyJobTest, AnOpenWindowKeepsItsCaption) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    Press();
    EXPECT_TRUE(form.Form1.Captions.isEmpty());
}

TEST_F(CopyJobTest, WhileTheJobRunsTheControlsAreDisabledAndTheButtonCancels) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    events.OnYield = [this](int) {
        EXPECT_TRUE(job.Copying);
        EXPECT_EQ(form.cmdCopy.Caption(), Text("&Cancel"));
        EXPECT_TRUE(form.cmdCopy.Enabled());
        EXPECT_FALSE(form.lstSongs.Enabled());
        EXPECT_FALSE(form.txtDestination.Enabled());
        EXPECT_FALSE(form.frmDestination.Enabled());
    };
    Press();
    EXPECT_EQ(events.Yields, 1);
    ExpectIdle();
}

TEST_F(CopyJobTest, AfterTheJobTheSummaryIsShownAgain) {
    AddTrack("Abba", "Arrival", "Tiger", QByteArray(2048, 't'));
    AddTrack("Abba", "Arrival", "Fernando", QByteArray(2048, 'f')).Checked = false;
    summary.SelectedSize = 2048;
    Press();
    EXPECT_EQ(form.lblMessage.Caption(), Text("Selected: 2 KB of 4 KB"));
    EXPECT_EQ(form.prgCopy.Max(), 4096.0F);
    EXPECT_EQ(form.prgCopy.Value(), 2048.0F);
}

TEST_F(CopyJobTest, TheClearButtonComesBackOnlyWithATextSearchInForce) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    Press();
    EXPECT_FALSE(form.cmdClear.Enabled());
    form.txtSearch.SetText(Text("tiger"));
    promptUses = {PromptUse::Replace};
    Press();
    EXPECT_TRUE(form.cmdClear.Enabled());
}

TEST_F(CopyJobTest, ACompletedJobFlashesAWindowThatIsNotTheActiveOne) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    form.WindowManager.ActiveWindow = 0;
    messages.WhileShown = [this](const ShownMessage& message) {
        EXPECT_EQ(message, Completed);
        EXPECT_EQ(form.WindowManager.Flashed, std::vector{form.Form1.Handle()});
    };
    Press();
    EXPECT_EQ(messages.Shown.size(), 1U);
}

TEST_F(CopyJobTest, TheActiveWindowIsNotFlashed) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    Press();
    EXPECT_TRUE(form.WindowManager.Flashed.empty());
}

TEST_F(CopyJobTest, TheBarIsEmptyAndTmpGoneWhenTheJobReportsItsEnd) {
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    messages.WhileShown = [this](const ShownMessage&) {
        EXPECT_EQ(form.prgCopy.Value(), 0.0F);
        EXPECT_FALSE(files.HasFolder(Text("D:\\Music\\tmp")));
        EXPECT_TRUE(job.Copying);
        EXPECT_EQ(form.cmdCopy.Caption(), Text("&Cancel"));
    };
    Press();
    EXPECT_EQ(messages.Shown, std::vector{Completed});
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
    EXPECT_EQ(Names(), QStringList({Text("Fernando.mp3"), Text("Girl.mp3")}));
    EXPECT_EQ(form.lblMessage.Captions.at(1), Text("Copying files... 1 of 2"));
    ASSERT_EQ(library.Artists.size(), 1U);
    EXPECT_EQ(library.Artists[0].Name, Text("Abba"));
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
    EXPECT_EQ(Names(), QStringList{Text("Tiger.mp3")});
    EXPECT_EQ(library.Artists.size(), 1U);
    EXPECT_EQ(parts.Result.SavedArtists().size(), 2U);
}

TEST_F(CopyJobTest, FiveThousandEqualTitlesAreCopiedInNoTime) {
    for (int i = 0; i < 5000; ++i) {
        AddTrack("Abba", "Arrival", "Song", "x");
    }
    files.BeforeCall = [this](const FakeFileSystem::RecordedCall&) { files.Calls.clear(); };
    Press();
    EXPECT_TRUE(files.HasFile(Text("D:\\Music\\Song (5000).mp3")));
    EXPECT_EQ(form.lblMessage.Captions.at(5000), Text("Copying files... 5000 of 5000"));
}
