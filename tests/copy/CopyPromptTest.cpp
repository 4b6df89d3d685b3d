#include "tests/copy/CopyFixture.h"

namespace {

/// Three tracks of which two exist in the destination already.
class CopyPromptTest : public CopyFixture, public testing::Test {
protected:
    CopyPromptTest() {
        AddTrack("Abba", "Arrival", "One", "new one");
        AddTrack("Abba", "Arrival", "Two", "new two");
        AddTrack("Abba", "Arrival", "Three", "new three");
        files.AddFile(Text("D:\\Music\\One.mp3"), "old one");
        files.AddFile(Text("D:\\Music\\Three.mp3"), "old three");
    }

    const QString one = Text("D:\\Music\\One.mp3");
    const QString three = Text("D:\\Music\\Three.mp3");
};

} // namespace

TEST_F(CopyPromptTest, ReplaceCopiesOverTheExistingFile) {
    promptUses = {PromptUse::Replace, PromptUse::Replace};
    Press();
    EXPECT_EQ(prompted, QStringList({one, three}));
    EXPECT_EQ(files.Bytes(one), QByteArray("new one"));
    EXPECT_EQ(files.Bytes(three), QByteArray("new three"));
}

TEST_F(CopyPromptTest, SkipLeavesTheFileAndItsSizeStillCounts) {
    promptUses = {PromptUse::Skip, PromptUse::Skip};
    Press();
    EXPECT_EQ(files.Bytes(one), QByteArray("old one"));
    EXPECT_EQ(files.Bytes(three), QByteArray("old three"));
    EXPECT_EQ(Bytes("D:\\Music\\Two.mp3"), QByteArray("new two"));
    EXPECT_EQ(job.CopiedBytes, 7 + 7 + 9);
    EXPECT_EQ(messages.Texts(), QStringList{Text("Copy completed!")});
}

TEST_F(CopyPromptTest, CancelStopsTheJobWithoutAMessage) {
    promptUses = {PromptUse::Cancel};
    Press();
    EXPECT_EQ(prompted, QStringList{one});
    EXPECT_EQ(files.Bytes(one), QByteArray("old one"));
    EXPECT_FALSE(files.HasFile(Text("D:\\Music\\Two.mp3")));
    EXPECT_TRUE(messages.Shown.empty());
    ExpectIdle();
}

TEST_F(CopyPromptTest, ThePromptsCloseBoxStopsTheJob) {
    promptUses = {PromptUse::CloseBox};
    Press();
    EXPECT_EQ(prompted, QStringList{one});
    EXPECT_FALSE(files.HasFile(Text("D:\\Music\\Two.mp3")));
    ExpectIdle();
}

TEST_F(CopyPromptTest, SkipForAllFilesSkipsEveryLaterExistingFileAndTheNextJobAsksAgain) {
    promptUses = {PromptUse::SkipAll};
    Press();
    EXPECT_EQ(prompted, QStringList{one});
    EXPECT_EQ(files.Bytes(three), QByteArray("old three"));
    EXPECT_EQ(Bytes("D:\\Music\\Two.mp3"), QByteArray("new two"));
    EXPECT_FALSE(prompt.OverwriteAll);

    prompted.clear();
    promptUses = {PromptUse::SkipAll};
    Press();
    EXPECT_EQ(prompted, QStringList{one});
}

TEST_F(CopyPromptTest, ReplaceForAllFilesReplacesEveryLaterExistingFile) {
    promptUses = {PromptUse::ReplaceAll};
    Press();
    EXPECT_EQ(prompted, QStringList{one});
    EXPECT_EQ(files.Bytes(one), QByteArray("new one"));
    EXPECT_EQ(files.Bytes(three), QByteArray("new three"));
}

TEST_F(CopyPromptTest, CancelForAllFilesStopsTheJobAndIsNotKept) {
    promptUses = {PromptUse::CancelAll};
    Press();
    EXPECT_FALSE(prompt.OverwriteAll);
    EXPECT_EQ(files.Bytes(three), QByteArray("old three"));
    ExpectIdle();
}

TEST_F(CopyPromptTest, AnAnswerForAllFilesIsForgottenWhenTheJobIsStopped) {
    promptUses = {PromptUse::SkipAll};
    CancelAtYield(2);
    Press();
    EXPECT_FALSE(prompt.OverwriteAll);
}

TEST_F(CopyPromptTest, AWindowThatIsNotTheActiveOneIsFlashedBeforeThePrompt) {
    form.WindowManager.ActiveWindow = 0;
    const Event show = job.ShowOverwrite;
    job.ShowOverwrite = [&] {
        EXPECT_EQ(form.WindowManager.Flashed, std::vector{form.Form1.Handle()});
        show();
    };
    promptUses = {PromptUse::Cancel};
    Press();
    EXPECT_EQ(prompted.size(), 1);
}

TEST_F(CopyPromptTest, TheActiveWindowIsNotFlashed) {
    promptUses = {PromptUse::Cancel};
    Press();
    EXPECT_TRUE(form.WindowManager.Flashed.empty());
}

TEST_F(CopyPromptTest, AFileThatDiffersOnlyInLetterCaseIsAskedAbout) {
    library.Artists[0].Albums[0].Tracks[1].Title = Text("ONE");
    promptUses = {PromptUse::Replace, PromptUse::Skip, PromptUse::Skip};
    Press();
    EXPECT_EQ(prompted, QStringList({one, Text("D:\\Music\\ONE.mp3"), three}));
    EXPECT_EQ(files.Bytes(one), QByteArray("new one"));
}

TEST_F(CopyPromptTest, AFileWhoseAccentsAreComposedOtherwiseIsAskedAbout) {
    library.Artists[0].Albums[0].Tracks[0].Title = Text("Bj\u00F6rk");
    library.Artists[0].Albums[0].Tracks[1].Title = Text("BJO\u0308RK");
    promptUses = {PromptUse::Skip, PromptUse::Skip};
    Press();
    EXPECT_EQ(prompted, QStringList({Text("D:\\Music\\BJO\u0308RK.mp3"), three}));
    EXPECT_EQ(files.Bytes(Text("D:\\Music\\Bj\u00F6rk.mp3")), QByteArray("new one"));
}

TEST_F(CopyPromptTest, ALargeFileReplacesAnExistingOneOnlyWhenAsked) {
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    files.AddFile(Text("D:\\Music\\Film.mp3"), "old film");
    promptUses = {PromptUse::Skip, PromptUse::Skip, PromptUse::Skip};
    Press();
    EXPECT_EQ(Bytes("D:\\Music\\Film.mp3"), QByteArray("old film"));
    promptUses = {PromptUse::ReplaceAll};
    Press();
    EXPECT_EQ(files.Length(Text("D:\\Music\\Film.mp3")), 50000001);
}

TEST_F(CopyPromptTest, AFileThatAppearsDuringTheCopyIsAskedAboutAndReplacedOnlyIfTheUserSaysSo) {
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) {
        const bool arrives = call.Call == FileCall::CopyFile || call.Call == FileCall::MoveFile;
        if (arrives && !files.HasFile(call.Target)) {
            files.AddFile(call.Target, "another's");
        }
    };
    for (const PromptUse use : {PromptUse::Skip, PromptUse::Replace}) {
        prompted.clear();
        promptUses = {use, use, use, use};
        Press();
        EXPECT_EQ(messages.Texts().last(), Text("Copy completed!"));
        const bool isReplaced = use == PromptUse::Replace;
        const QString film = Text("D:\\Music\\Film.mp3");
        const QString two = Text("D:\\Music\\Two.mp3");
        EXPECT_EQ(prompted, QStringList({one, two, three, film}));
        EXPECT_EQ(files.Bytes(two), QByteArray(isReplaced ? "new two" : "another's"));
        EXPECT_EQ(files.Length(film), isReplaced ? 50000001 : 9);
        files.Remove(two);
        files.Remove(film);
        messages.Shown.clear();
    }
}

TEST_F(CopyPromptTest, AFileThatAppearsAfterAFailureIsAskedAboutByTheRetry) {
    files.FailNthCall(FileCall::CopyFile, 1, ErrorNumber::DiskFull);
    messages.WhileShown = [this](const ShownMessage& message) {
        if (message.Text == Text("This drive is full.")) {
            files.AddFile(Text("D:\\Music\\Two.mp3"), "another's");
        }
    };
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    promptUses = {PromptUse::Skip, PromptUse::Skip, PromptUse::Skip};
    Press();
    EXPECT_EQ(prompted, QStringList({one, Text("D:\\Music\\Two.mp3"), three}));
    EXPECT_EQ(Bytes("D:\\Music\\Two.mp3"), QByteArray("another's"));
}
