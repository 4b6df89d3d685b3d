#include "tests/copy/CopyFixture.h"

using namespace Qt::StringLiterals;

namespace {

const ShownMessage QuitQuestion{u"Are you sure you want to quit?"_s, u"Songlift"_s,
                                MessageButtons::YesNo, MessageIcon::Question};
const QString Film = u"D:\\Music\\Film.mp3"_s;

class CopyCancelTest : public CopyFixture, public testing::Test {
protected:
    CopyCancelTest() { AddTracks({"One", "Two", "Three"}); }

    /// The fourth track, two chunks and a rest long: the fifth yield is that of its first chunk.
    QString AddFilm() { return AddLargeTrack("Abba", "Arrival", "Film", 120000000).Location; }

    /// The progress texts of the job.
    QStringList Progress() const { return form.lblMessage.Captions.filter(u"Copying files"_s); }

    void ExpectAllCopied() const {
        EXPECT_EQ(Names(), QStringList({u"One.mp3"_s, u"Three.mp3"_s, u"Two.mp3"_s}));
    }
};

} // namespace

// ---- the button

TEST_F(CopyCancelTest, CancelStopsAtTheNextFileWithoutAMessageAndTheNextJobRuns) {
    AtYield(2, [this] {
        Press();
        // The press itself only raises the flag.
        EXPECT_TRUE(job.CancelCopy());
        EXPECT_TRUE(job.Copying);
        EXPECT_EQ(form.cmdCopy.Caption(), u"&Cancel"_s);
        EXPECT_FALSE(form.lstArtists.Enabled());
    });
    Press();
    EXPECT_EQ(events.Yields, 2);
    EXPECT_EQ(Names(), QStringList{u"One.mp3"_s});
    EXPECT_TRUE(messages.Shown.empty());
    ExpectIdle();
    promptUses = {PromptUse::Skip};
    Press();
    ExpectAllCopied();
}

TEST_F(CopyCancelTest, CancelDuringALargeFileStopsWithinOneChunkAndRemovesWhatWasWritten) {
    AddFilm();
    CancelAtYield(5);
    Press();
    EXPECT_EQ(files.CountOf(FileCall::Write), 1);
    EXPECT_FALSE(files.HasFolder(Tmp));
    EXPECT_TRUE(messages.Shown.empty());
    ExpectAllCopied(); // and nothing of the film
    ExpectIdle();
}

TEST_F(CopyCancelTest, CancelDuringALargeFileLeavesTheEarlierFileAlone) {
    AddFilm();
    files.AddFile(Film, "old film");
    promptUses = {PromptUse::Replace};
    CancelAtYield(6);
    Press();
    EXPECT_EQ(files.CountOf(FileCall::Write), 2);
    EXPECT_EQ(files.Bytes(Film), QByteArray("old film"));
}

TEST_F(CopyCancelTest, ACancelAfterTheLastCheckIsForgottenWithTheJob) {
    files.BeforeCall = [this](const RecordedFiles::RecordedCall& call) {
        if (call.Target.endsWith(u"Three.mp3"_s)) {
            Press();
        }
    };
    Press();
    ExpectAllCopied();
    EXPECT_EQ(messages.Shown, std::vector{Completed});
    ExpectIdle();
}

// ---- the closed window

TEST_F(CopyCancelTest, ClosingTheWindowAsksToQuitAndNoGoesOnWithTheTrackAtHand) {
    CloseAtYield(2);
    messages.WhileShown = [this](const ShownMessage& message) {
        if (message == QuitQuestion) {
            EXPECT_FALSE(form.Form1.Closed);
            EXPECT_TRUE(job.Copying);
            EXPECT_EQ(files.CountOf(FileCall::CopyFile), 1);
        }
    };
    messages.Answers = {MessageAnswer::No, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown, (std::vector{QuitQuestion, Completed}));
    ExpectAllCopied();
    EXPECT_EQ(closed, 0);
    EXPECT_EQ(Progress(), QStringList({u"Copying files... 1 of 3"_s, u"Copying files... 2 of 3"_s,
                                       u"Copying files... 3 of 3"_s}));
    ExpectIdle();
}

TEST_F(CopyCancelTest, YesLeavesTheJobAtOnceWithoutCleanupAndEndsTheProgram) {
    CloseAtYield(2);
    files.AddFolder(Tmp);
    messages.Answers = {MessageAnswer::Yes};
    Press();
    EXPECT_EQ(messages.Shown, std::vector{QuitQuestion});
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(form.Form1.Closed);
    EXPECT_FALSE(job.Copying);
    EXPECT_EQ(Names(), QStringList{u"One.mp3"_s});
    EXPECT_TRUE(files.HasFolder(Tmp));
    EXPECT_FALSE(form.lstArtists.Enabled());
    EXPECT_EQ(form.cmdCopy.Caption(), u"&Cancel"_s);
}

TEST_F(CopyCancelTest, AfterNoTheWindowCountsAsClosedForTheRestOfTheJob) {
    events.OnYield = [this](int number) {
        if (number == 1) {
            form.Form1.UserClose();
        } else if (number == 3) {
            Press();
        }
    };
    messages.Answers = {MessageAnswer::No, MessageAnswer::No, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown, (std::vector{QuitQuestion, QuitQuestion, Completed}));
    ExpectAllCopied();
}

TEST_F(CopyCancelTest, AStopOfTheNextJobAsksNoQuitQuestion) {
    CloseAtYield(1);
    messages.Answers = {MessageAnswer::No, MessageAnswer::OK};
    Press();
    messages.Shown.clear();
    events.Yields = 0;
    CancelAtYield(1);
    Press();
    EXPECT_TRUE(messages.Shown.empty());
    ExpectIdle();
}

TEST_F(CopyCancelTest, WhenTheSystemEndsTheProgramDuringTheQuestionNobodyIsAskedAndTheJobStops) {
    CloseAtYield(2);
    messages.WhileShown = [this](const ShownMessage&) { job.QuitUnasked(); };
    messages.Answers = {MessageAnswer::No}; // what closing the question stands for
    Press();
    EXPECT_EQ(messages.Shown, std::vector{QuitQuestion});
    EXPECT_EQ(Names(), QStringList{u"One.mp3"_s});
    EXPECT_TRUE(form.Form1.Closed);
}

TEST_F(CopyCancelTest, AClosedWindowTurnsTheCancelOfThePromptIntoTheQuitQuestion) {
    files.AddFile(u"D:\\Music\\Two.mp3"_s, "old");
    CloseAtYield(2);
    promptUses = {PromptUse::Cancel};
    messages.Answers = {MessageAnswer::No, MessageAnswer::Yes};
    Press();
    EXPECT_EQ(messages.Shown, (std::vector{QuitQuestion, QuitQuestion}));
    EXPECT_EQ(closed, 1);
}

TEST_F(CopyCancelTest, NoAfterTheCancelOfThePromptCountsTheTrackAgainAndAsksAboutItAgain) {
    files.AddFile(u"D:\\Music\\Two.mp3"_s, "old");
    CloseAtYield(2);
    promptUses = {PromptUse::Cancel, PromptUse::Replace};
    messages.Answers = {MessageAnswer::No, MessageAnswer::No, MessageAnswer::OK};
    Press();
    EXPECT_EQ(prompted, QStringList({u"D:\\Music\\Two.mp3"_s, u"D:\\Music\\Two.mp3"_s}));
    EXPECT_EQ(Progress(),
              QStringList({u"Copying files... 1 of 3"_s, u"Copying files... 2 of 3"_s,
                           u"Copying files... 3 of 3"_s, u"Copying files... 4 of 3"_s}));
    EXPECT_EQ(Bytes("D:\\Music\\Two.mp3"), QByteArray("Two"));
    ExpectAllCopied();
}

TEST_F(CopyCancelTest, ClosingDuringALargeFileAsksToQuitAndYesLeavesNoHalfOfItBehind) {
    AddFilm();
    CloseAtYield(5);
    messages.Answers = {MessageAnswer::Yes};
    Press();
    EXPECT_EQ(messages.Shown, std::vector{QuitQuestion});
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(form.Form1.Closed);
    ExpectAllCopied(); // and nothing of the film
    EXPECT_FALSE(files.HasFolder(Tmp));
    EXPECT_EQ(files.OpenFiles, 0);
}

TEST_F(CopyCancelTest, AfterYesInsideALargeFileTheWindowClosesEvenIfThatFailsAtFirst) {
    AddFilm();
    CloseAtYield(5);
    messages.Answers = {MessageAnswer::Yes, MessageAnswer::OK};
    bool hasFailed = false;
    form.Form1.QueryUnload = [&](bool& cancel, UnloadMode) {
        cancel = job.StopToClose();
        if (!cancel && !std::exchange(hasFailed, true)) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
    };
    Press();
    EXPECT_EQ(messages.Texts(), QStringList({QuitQuestion.Text, u"Error 6: Overflow"_s}));
    EXPECT_TRUE(form.Form1.Closed);
    EXPECT_FALSE(files.HasFolder(Tmp));
}

TEST_F(CopyCancelTest, ClosingDuringALargeFileAndNoGoesOnWhereItWas) {
    const QString location = AddFilm();
    CloseAtYield(5);
    messages.Answers = {MessageAnswer::No, MessageAnswer::OK};
    Press();
    EXPECT_EQ(files.CountOf(FileCall::Write), 3);
    EXPECT_EQ(Progress().last(), u"Copying files... 4 of 4"_s);
    EXPECT_TRUE(files.SameContent(location, Film));
    EXPECT_EQ(Copied().size(), 4);
    EXPECT_EQ(messages.Shown, (std::vector{QuitQuestion, Completed}));
    ExpectIdle();
}

TEST_F(CopyCancelTest, AfterAStopNoFurtherFolderIsMadeByAnAttemptThatHung) {
    PatientFileSystem patient(files, worker, worker);
    CopyTargets targets(patient);
    targets.StartOver(u"D:\\Music\\"_s);
    const FolderAhead ahead = targets.ChooseAhead({u"Abba"_s, u"Live"_s});
    const CopyControl control;
    files.BeforeCall = [&](const RecordedFiles::RecordedCall& call) {
        if (call.Call == FileCall::CreateFolder) {
            control.Stop();
        }
    };
    EXPECT_FALSE(ahead.Enter(files, control));
    EXPECT_EQ(files.CallsOf(FileCall::CreateFolder), QStringList(u"D:\\Music\\Abba"_s));
    EXPECT_EQ(files.ClearedFolders, QStringList());
}
