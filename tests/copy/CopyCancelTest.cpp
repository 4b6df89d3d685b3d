#include "tests/copy/CopyFixture.h"

namespace {

const ShownMessage QuitQuestion{Text("Are you sure you want to quit?"), Text("Songlift"),
                                MessageButtons::YesNo, MessageIcon::Question};

class CopyCancelTest : public CopyFixture, public testing::Test {
protected:
    CopyCancelTest() {
        AddTrack("Abba", "Arrival", "One", "one");
        AddTrack("Abba", "Arrival", "Two", "two");
        AddTrack("Abba", "Arrival", "Three", "three");
    }

    void ExpectAllCopied() const {
        EXPECT_EQ(Copied(), QStringList({Text("D:\\Music\\One.mp3"), Text("D:\\Music\\Three.mp3"),
                                         Text("D:\\Music\\Two.mp3")}));
    }
};

} // namespace

// ---- the button

TEST_F(CopyCancelTest, CancelStopsAtTheNextFileWithoutAMessage) {
    CancelAtYield(2);
    Press();
    EXPECT_EQ(Copied(), QStringList{Text("D:\\Music\\One.mp3")});
    EXPECT_TRUE(messages.Shown.empty());
    ExpectIdle();
}

TEST_F(CopyCancelTest, ThePressItselfOnlyRaisesTheFlag) {
    events.OnYield = [this](int number) {
        if (number == 2) {
            Press();
            EXPECT_TRUE(job.CancelCopy);
            EXPECT_TRUE(job.Copying);
            EXPECT_EQ(form.cmdCopy.Caption(), Text("&Cancel"));
            EXPECT_FALSE(form.lstArtists.Enabled());
        }
    };
    Press();
    EXPECT_EQ(events.Yields, 2);
}

TEST_F(CopyCancelTest, TheNextJobRunsAfterACancelledOne) {
    CancelAtYield(1);
    Press();
    EXPECT_TRUE(Copied().isEmpty());
    events.OnYield = nullptr;
    Press();
    ExpectAllCopied();
}

TEST_F(CopyCancelTest, CancelDuringALargeFileStopsWithinOneChunkAndRemovesWhatWasWritten) {
    AddLargeTrack("Abba", "Arrival", "Film", 120000000);
    CancelAtYield(5); // the fourth file's own yield and its first chunk's
    Press();
    EXPECT_EQ(files.CountOf(FileCall::Write), 1);
    EXPECT_FALSE(files.HasFolder(Text("D:\\Music\\tmp")));
    EXPECT_FALSE(files.HasFile(Text("D:\\Music\\Film.mp3")));
    EXPECT_TRUE(messages.Shown.empty());
    ExpectAllCopied();
    ExpectIdle();
}

TEST_F(CopyCancelTest, CancelDuringALargeFileLeavesTheEarlierFileAlone) {
    AddLargeTrack("Abba", "Arrival", "Film", 120000000);
    files.AddFile(Text("D:\\Music\\Film.mp3"), "old film");
    promptUses = {PromptUse::Replace};
    CancelAtYield(6);
    Press();
    EXPECT_EQ(files.CountOf(FileCall::Write), 2);
    EXPECT_EQ(Bytes("D:\\Music\\Film.mp3"), QByteArray("old film"));
}

TEST_F(CopyCancelTest, ACancelAfterTheLastCheckIsForgottenWithTheJob) {
    AddTrack("Abba", "Arrival", "Four", "four");
    files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) {
        if (call.Target.endsWith(Text("Four.mp3"))) {
            Press();
        }
    };
    Press();
    EXPECT_EQ(Copied().size(), 4);
    EXPECT_EQ(messages.Texts(), QStringList{Text("Copy completed!")});
    ExpectIdle();
}

// ---- the closed window

TEST_F(CopyCancelTest, ClosingTheWindowKeepsItAndAsksToQuitAtTheNextCheck) {
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
    EXPECT_EQ(messages.Shown.front(), QuitQuestion);
}

TEST_F(CopyCancelTest, YesDuringALargeFileLeavesNoHalfOfItBehind) {
    AddLargeTrack("Abba", "Arrival", "Film", 120000000);
    CloseAtYield(5); // the large file's first chunk
    messages.Answers = {MessageAnswer::Yes};
    Press();
    EXPECT_EQ(messages.Shown, std::vector{QuitQuestion});
    EXPECT_TRUE(form.Form1.Closed);
    EXPECT_FALSE(files.HasFolder(Text("D:\\Music\\tmp")));
    EXPECT_FALSE(files.HasFile(Text("D:\\Music\\Film.mp3")));
}

TEST_F(CopyCancelTest, YesLeavesTheJobAtOnceWithoutCleanupAndEndsTheProgram) {
    CloseAtYield(2);
    files.AddFolder(Text("D:\\Music\\tmp"));
    messages.Answers = {MessageAnswer::Yes};
    Press();
    EXPECT_EQ(messages.Shown, std::vector{QuitQuestion});
    EXPECT_EQ(closed, 1);
    EXPECT_TRUE(form.Form1.Closed);
    EXPECT_FALSE(job.Copying);
    EXPECT_EQ(Copied(), QStringList{Text("D:\\Music\\One.mp3")});
    EXPECT_TRUE(files.HasFolder(Text("D:\\Music\\tmp")));
    EXPECT_FALSE(form.lstArtists.Enabled());
    EXPECT_EQ(form.cmdCopy.Caption(), Text("&Cancel"));
}

TEST_F(CopyCancelTest, NoGoesOnWithTheTrackAtHandAndCountsItOnce) {
    CloseAtYield(2);
    messages.Answers = {MessageAnswer::No, MessageAnswer::OK};
    form.lblMessage.Captions.clear();
    Press();
    ExpectAllCopied();
    EXPECT_EQ(closed, 0);
    EXPECT_EQ(form.lblMessage.Captions.mid(1, 3),
              QStringList({Text("Copying files... 1 of 3"), Text("Copying files... 2 of 3"),
                           Text("Copying files... 3 of 3")}));
    ExpectIdle();
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
    EXPECT_EQ(messages.Texts(),
              QStringList({QuitQuestion.Text, QuitQuestion.Text, Text("Copy completed!")}));
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

TEST_F(CopyCancelTest, AClosedWindowTurnsTheCancelOfThePromptIntoTheQuitQuestion) {
    files.AddFile(Text("D:\\Music\\Two.mp3"), "old");
    CloseAtYield(2);
    promptUses = {PromptUse::Cancel};
    messages.Answers = {MessageAnswer::No, MessageAnswer::Yes};
    Press();
    EXPECT_EQ(messages.Shown, (std::vector{QuitQuestion, QuitQuestion}));
    EXPECT_EQ(closed, 1);
}

TEST_F(CopyCancelTest, NoAfterTheCancelOfThePromptCountsTheTrackAgainAndAsksAboutItAgain) {
    files.AddFile(Text("D:\\Music\\Two.mp3"), "old");
    CloseAtYield(2);
    promptUses = {PromptUse::Cancel, PromptUse::Replace};
    messages.Answers = {MessageAnswer::No, MessageAnswer::No, MessageAnswer::OK};
    form.lblMessage.Captions.clear();
    Press();
    EXPECT_EQ(prompted, QStringList({Text("D:\\Music\\Two.mp3"), Text("D:\\Music\\Two.mp3")}));
    EXPECT_EQ(form.lblMessage.Captions.mid(1, 4),
              QStringList({Text("Copying files... 1 of 3"), Text("Copying files... 2 of 3"),
                           Text("Copying files... 3 of 3"), Text("Copying files... 4 of 3")}));
    EXPECT_EQ(Bytes("D:\\Music\\Two.mp3"), QByteArray("two"));
    ExpectAllCopied();
}

TEST_F(CopyCancelTest, ClosingDuringALargeFileAsksToQuitAndYesEndsTheProgram) {
    AddLargeTrack("Abba", "Arrival", "Film", 120000000);
    CloseAtYield(5);
    messages.Answers = {MessageAnswer::Yes};
    Press();
    EXPECT_EQ(messages.Shown, std::vector{QuitQuestion});
    EXPECT_EQ(closed, 1);
    ExpectAllCopied(); // and nothing of the film
    EXPECT_FALSE(files.HasFolder(Text("D:\\Music\\tmp")));
    EXPECT_EQ(files.OpenFiles, 0);
}

TEST_F(CopyCancelTest, ClosingDuringALargeFileAndNoGoesOnWhereItWas) {
    const QString location = AddLargeTrack("Abba", "Arrival", "Film", 120000000).Location;
    CloseAtYield(5);
    messages.Answers = {MessageAnswer::No, MessageAnswer::OK};
    Press();
    EXPECT_EQ(files.CountOf(FileCall::Write), 3); // two chunks and the rest
    EXPECT_EQ(form.lblMessage.Captions.filter(Text("Copying files...")).last(),
              Text("Copying files... 4 of 4"));
    EXPECT_TRUE(files.SameContent(location, Text("D:\\Music\\Film.mp3")));
    EXPECT_EQ(Copied().size(), 4);
    EXPECT_EQ(messages.Texts(), QStringList({QuitQuestion.Text, Text("Copy completed!")}));
    ExpectIdle();
}
