#include "tests/copy/CopyFixture.h"

using namespace Qt::StringLiterals;

namespace {

/// Three tracks of which two exist in the destination already.
class CopyPromptTest : public CopyFixture, public testing::Test {
protected:
    CopyPromptTest() {
        AddTrack("Abba", "Arrival", "One", "new one");
        AddTrack("Abba", "Arrival", "Two", "new two");
        AddTrack("Abba", "Arrival", "Three", "new three");
        files.AddFile(u"D:\\Music\\One.mp3"_s, "old one");
        files.AddFile(u"D:\\Music\\Three.mp3"_s, "old three");
    }

    const QString one = u"D:\\Music\\One.mp3"_s;
    const QString two = u"D:\\Music\\Two.mp3"_s;
    const QString three = u"D:\\Music\\Three.mp3"_s;
};

} // namespace

TEST_F(CopyPromptTest, EachExistingFileIsReplacedOrSkippedAsTheUserSays) {
    struct Case {
        std::deque<PromptUse> Uses;
        QByteArray One, Three;
        QStringList Prompted;
    };
    using enum PromptUse;
    for (const Case& answered : {Case{{Replace, Replace}, "new one", "new three", {one, three}},
                                 Case{{Replace, Skip}, "new one", "old three", {one, three}},
                                 Case{{Skip, Replace}, "old one", "new three", {one, three}},
                                 Case{{ReplaceAll}, "new one", "new three", {one}},
                                 Case{{SkipAll}, "old one", "old three", {one}}}) {
        files.Remove(two);
        files.AddFile(one, "old one");
        files.AddFile(three, "old three");
        prompted.clear();
        messages.Shown.clear();
        promptUses = answered.Uses;
        Press();
        EXPECT_EQ(prompted, answered.Prompted);
        EXPECT_EQ(files.Bytes(one), answered.One);
        EXPECT_EQ(files.Bytes(two), QByteArray("new two"));
        EXPECT_EQ(files.Bytes(three), answered.Three);
        EXPECT_EQ(job.CopiedBytes(), 7 + 7 + 9); // a skipped file's size counts, too
        EXPECT_EQ(messages.Shown, std::vector{Completed});
        EXPECT_FALSE(prompt.OverwriteAll()); // the next job asks again
    }
}

TEST_F(CopyPromptTest, CancelAndTheCloseBoxStopTheJobWithoutAMessage) {
    for (const PromptUse use : {PromptUse::Cancel, PromptUse::CancelAll, PromptUse::CloseBox}) {
        prompted.clear();
        promptUses = {use};
        Press();
        EXPECT_EQ(prompted, QStringList{one});
        EXPECT_EQ(files.Bytes(one), QByteArray("old one"));
        EXPECT_FALSE(files.HasFile(two));
        EXPECT_TRUE(messages.Shown.empty());
        ExpectIdle();
    }
}

TEST_F(CopyPromptTest, AnAnswerForAllFilesIsForgottenWhenTheJobIsStopped) {
    promptUses = {PromptUse::SkipAll};
    CancelAtYield(2);
    Press();
    EXPECT_FALSE(prompt.OverwriteAll());
}

TEST_F(CopyPromptTest, AWindowThatIsNotTheActiveOneIsFlashedBeforeThePrompt) {
    promptUses = {PromptUse::Cancel, PromptUse::Cancel};
    Press();
    EXPECT_TRUE(form.WindowManager.Flashed.empty());
    form.WindowManager.ActiveWindow = 0;
    const Event show = job.ShowOverwrite;
    job.ShowOverwrite = [&] {
        EXPECT_EQ(form.WindowManager.Flashed, std::vector{form.Form1.Handle()});
        show();
    };
    Press();
    EXPECT_EQ(prompted.size(), 2);
}

TEST_F(CopyPromptTest, AFileThatDiffersOnlyInLetterCaseIsAskedAbout) {
    library.Artists[0].Albums[0].Tracks[0].Title = u"Bj\u00F6rk"_s;
    library.Artists[0].Albums[0].Tracks[1].Title = u"BJ\u00D6RK"_s;
    promptUses = {PromptUse::Skip, PromptUse::Skip};
    Press();
    EXPECT_EQ(prompted, QStringList({u"D:\\Music\\BJ\u00D6RK.mp3"_s, three}));
    EXPECT_EQ(files.Bytes(u"D:\\Music\\Bj\u00F6rk.mp3"_s), QByteArray("new one"));
}

TEST_F(CopyPromptTest, ALargeFileReplacesAnExistingOneOnlyWhenAsked) {
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    files.AddFile(u"D:\\Music\\Film.mp3"_s, "old film");
    promptUses = {PromptUse::Skip, PromptUse::Skip, PromptUse::Skip};
    Press();
    EXPECT_EQ(Bytes("D:\\Music\\Film.mp3"), QByteArray("old film"));
    promptUses = {PromptUse::ReplaceAll};
    Press();
    EXPECT_EQ(files.Length(u"D:\\Music\\Film.mp3"_s), 50000001);
}

TEST_F(CopyPromptTest, AFileThatAppearsDuringTheCopyIsAskedAboutAndReplacedOnlyIfTheUserSaysSo) {
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    files.BeforeCall = [this](const RecordedFiles::RecordedCall& call) {
        const bool arrives = call.Call == FileCall::CopyFile || call.Call == FileCall::MoveFile;
        if (arrives && !files.HasFile(call.Target)) {
            files.AddFile(call.Target, "another's");
        }
    };
    for (const PromptUse use : {PromptUse::Skip, PromptUse::Replace}) {
        prompted.clear();
        promptUses = {use, use, use, use};
        Press();
        EXPECT_EQ(messages.Shown.back(), Completed);
        const bool isReplaced = use == PromptUse::Replace;
        const QString film = u"D:\\Music\\Film.mp3"_s;
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
        if (message.Text == u"This drive is full."_s) {
            files.AddFile(two, "another's");
        }
    };
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    promptUses = {PromptUse::Skip, PromptUse::Skip, PromptUse::Skip};
    Press();
    EXPECT_EQ(prompted, QStringList({one, two, three}));
    EXPECT_EQ(files.Bytes(two), QByteArray("another's"));
}
