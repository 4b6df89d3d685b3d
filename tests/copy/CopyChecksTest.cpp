#include "tests/copy/CopyFixture.h"

#include "platform/RuntimeError.h"

namespace {

const ShownMessage CreateQuestion{Text("Destination folder does not exist. Create?"),
                                  Text("Songlift"), MessageButtons::OKCancel,
                                  MessageIcon::Question};
const ShownMessage InvalidPath{Text("Invalid destination path."), Text("Songlift"),
                               MessageButtons::OK, MessageIcon::Exclamation};

class CopyChecksTest : public CopyFixture, public testing::Test {
protected:
    CopyChecksTest() { AddTrack("Abba", "Arrival", "Tiger", "tiger"); }

    void SetDestination(const char* path) { form.txtDestination.SetText(Text(path)); }

    /// The click ended before the job began.
    void ExpectNothingStarted() const {
        EXPECT_FALSE(job.Copying);
        EXPECT_TRUE(form.cmdCopy.Captions.isEmpty());
        EXPECT_EQ(form.lstArtists.EnabledChanges, 0);
        EXPECT_EQ(files.CountOf(FileCall::CopyFile), 0);
        EXPECT_EQ(events.Yields, 0);
    }
};

} // namespace

TEST_F(CopyChecksTest, AnEmptyDestinationGivesItsMessageAndNothingElse) {
    SetDestination("");
    Press();
    EXPECT_EQ(messages.Shown, (std::vector<ShownMessage>{
                                  {Text("Please specify a destination path."), Text("Songlift"),
                                   MessageButtons::OK, MessageIcon::Exclamation}}));
    EXPECT_TRUE(form.txtDestination.HasFocus());
    EXPECT_TRUE(files.Calls.empty());
    ExpectNothingStarted();
}

TEST_F(CopyChecksTest, AnInvalidDestinationIsSelectedForTheUserToMend) {
    SetDestination("Q:\\Music");
    int selectedAtFocus = -1;
    form.txtDestination.GotFocus = [&] { selectedAtFocus = form.txtDestination.SelectionLength; };
    Press();
    EXPECT_EQ(messages.Shown, std::vector{InvalidPath});
    EXPECT_TRUE(form.txtDestination.HasFocus());
    EXPECT_EQ(selectedAtFocus, 0); // a box that gets the focus may change what is selected
    EXPECT_EQ(form.txtDestination.SelectionStart, 0);
    EXPECT_EQ(form.txtDestination.SelectionLength, 8);
    ExpectNothingStarted();
}

TEST_F(CopyChecksTest, ADestinationOnTheIpodIsInvalidWhetherItExistsOrNot) {
    files.IpodRoot = Text("E:");
    for (const char* path : {"E:\\", "e:\\iPod_Control", "E:\\New\\Sub"}) {
        messages.Shown.clear();
        SetDestination(path);
        Press();
        EXPECT_EQ(messages.Shown, std::vector{InvalidPath}) << path;
        EXPECT_TRUE(form.txtDestination.HasFocus());
        EXPECT_EQ(form.txtDestination.SelectionLength, Text(path).size());
        EXPECT_TRUE(files.Calls.empty());
        EXPECT_FALSE(destination.CreateFailed);
        ExpectNothingStarted();
    }
}

TEST_F(CopyChecksTest, TheTestFolderIsRemovedAtOnceThenTheQuestionIsAskedAndOKCreatesTheChain) {
    SetDestination("D:\\New\\Sub");
    messages.Answers = {MessageAnswer::OK, MessageAnswer::OK};
    messages.WhileShown = [this](const ShownMessage& message) {
        if (message == CreateQuestion) {
            EXPECT_FALSE(files.HasFolder(Text("D:\\New")));
            EXPECT_EQ(files.CallsOf(FileCall::CreateFolder),
                      QStringList({Text("D:\\New"), Text("D:\\New\\Sub")}));
            EXPECT_EQ(files.CallsOf(FileCall::DeleteFolder), QStringList{Text("D:\\New")});
        }
    };
    Press();
    EXPECT_EQ(messages.Shown.at(0), CreateQuestion);
    EXPECT_EQ(files.CallsOf(FileCall::CreateFolderChain), QStringList{Text("D:\\New\\Sub")});
    EXPECT_EQ(destination.ProbeFolder, QString());
    EXPECT_EQ(Bytes("D:\\New\\Sub\\Tiger.mp3"), QByteArray("tiger"));
}

TEST_F(CopyChecksTest, CancellingTheCreationLeavesNothingBehind) {
    SetDestination("D:\\New\\Sub");
    messages.Answers = {MessageAnswer::Cancel};
    Press();
    EXPECT_EQ(messages.Shown, std::vector{CreateQuestion});
    EXPECT_FALSE(files.HasFolder(Text("D:\\New")));
    ExpectNothingStarted();
}

TEST_F(CopyChecksTest, AFailedCreationIsInvalidAtOnceAndToldOnTheNextConfirmedAttempt) {
    SetDestination("D:\\New");
    files.FailNthCall(FileCall::CreateFolder, 1, ErrorNumber::PermissionDenied);
    Press();
    EXPECT_EQ(messages.Shown, std::vector{InvalidPath});
    EXPECT_TRUE(destination.CreateFailed);

    messages.Shown.clear();
    messages.Answers = {MessageAnswer::OK, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown,
              (std::vector<ShownMessage>{CreateQuestion,
                                         {Text("Unable to create folder."), Text("Error"),
                                          MessageButtons::OK, MessageIcon::Critical}}));
    EXPECT_FALSE(destination.CreateFailed);
    EXPECT_FALSE(files.HasFolder(Text("D:\\New")));
    ExpectNothingStarted();

    messages.Answers = {MessageAnswer::OK, MessageAnswer::OK};
    Press();
    EXPECT_EQ(Bytes("D:\\New\\Tiger.mp3"), QByteArray("tiger"));
}

TEST_F(CopyChecksTest, CreateFailedOutlivesAnAttemptThatIsNotConfirmed) {
    SetDestination("D:\\New");
    destination.CreateFailed = true;
    messages.Answers = {MessageAnswer::Cancel};
    Press();
    EXPECT_EQ(messages.Shown, std::vector{CreateQuestion});
    EXPECT_TRUE(destination.CreateFailed);
}

TEST_F(CopyChecksTest, WhatWasCreatedBeforeAFailureLowerDownIsRemovedToo) {
    SetDestination("D:\\New\\Wh?t");
    Press();
    EXPECT_EQ(messages.Shown, std::vector{InvalidPath});
    EXPECT_FALSE(files.HasFolder(Text("D:\\New")));
}

TEST_F(CopyChecksTest, AProbeFolderThatCouldNotBeDeletedIsNeverDeletedLater) {
    SetDestination("D:\\New");
    files.FailNthCall(FileCall::DeleteFolder, 1, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Abort};
    Press();
    ASSERT_EQ(messages.Texts(), QStringList{Text("Unable to create file: \"D:\\New\"")});
    ASSERT_TRUE(files.HasFolder(Text("D:\\New")));
    // The folder is there now: a job fills it. Then another destination turns out invalid.
    Press();
    ASSERT_EQ(Bytes("D:\\New\\Tiger.mp3"), QByteArray("tiger"));
    SetDestination("Q:\\Music");
    Press();
    EXPECT_EQ(messages.Shown.back(), InvalidPath);
    EXPECT_EQ(Bytes("D:\\New\\Tiger.mp3"), QByteArray("tiger"));
}

TEST_F(CopyChecksTest, AProbeFolderOfAnEarlierClickIsNotDeleted) {
    files.AddFile(Text("D:\\New\\mine.txt"), "mine");
    destination.ProbeFolder = Text("D:\\New"); // that click failed before it could delete it
    SetDestination("Q:\\Music");
    Press();
    EXPECT_EQ(messages.Shown.back(), InvalidPath);
    EXPECT_EQ(Bytes("D:\\New\\mine.txt"), QByteArray("mine"));
}

TEST_F(CopyChecksTest, RetryDeletesTheProbeFolderAndTheChecksGoOn) {
    SetDestination("D:\\New");
    files.FailNthCall(FileCall::DeleteFolder, 1, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::Cancel};
    Press();
    EXPECT_EQ(messages.Shown.back(), CreateQuestion);
    EXPECT_FALSE(files.HasFolder(Text("D:\\New")));
    ExpectNothingStarted();
}

TEST_F(CopyChecksTest, AFailedFolderChainIsReportedByTheFirstStepThatNeedsTheFolder) {
    SetDestination("D:\\New");
    files.FailNthCall(FileCall::CreateFolderChain, 1, ErrorNumber::DiskFull);
    messages.Answers = {MessageAnswer::OK, MessageAnswer::Abort};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList({Text("Destination folder does not exist. Create?"),
                           Text("Path not found: \"E:\\iPod_Control\\Music\\F00\"")}));
    ExpectIdle();
}

TEST_F(CopyChecksTest, ADriveWithLessSpaceThanSelectedIsAskedAboutAndCancelCopiesNothing) {
    files.SetFreeBytes(Text("D:"), 4);
    messages.Answers = {MessageAnswer::Cancel};
    Press();
    EXPECT_EQ(messages.Shown,
              (std::vector<ShownMessage>{{Text("There is not enough space on drive D: to copy all"
                                               "\rof the selected files. Copy as much as "
                                               "possible?"),
                                          Text("Songlift"), MessageButtons::OKCancel,
                                          MessageIcon::Exclamation}}));
    ExpectNothingStarted();
}

TEST_F(CopyChecksTest, WithTooLittleSpaceOKCopiesUntilTheDiskFullMessage) {
    AddTrack("Abba", "Arrival", "Fernando", "fernando");
    files.SetFreeBytes(Text("D:"), 9);
    messages.Answers = {MessageAnswer::OK, MessageAnswer::Cancel};
    Press();
    EXPECT_EQ(messages.Texts().mid(1), QStringList{Text("This drive is full.")});
    EXPECT_EQ(Copied(), QStringList{Text("D:\\Music\\Tiger.mp3")});
    EXPECT_EQ(Bytes("D:\\Music\\Tiger.mp3"), QByteArray("tiger"));
    ExpectIdle();
}

TEST_F(CopyChecksTest, SpaceForExactlyTheSelectedBytesIsEnough) {
    files.SetFreeBytes(Text("D:"), 5);
    Press();
    EXPECT_EQ(messages.Texts(), QStringList{Text("Copy completed!")});
}

TEST_F(CopyChecksTest, TheFreeSpaceOfANativePathIsThatOfItsMountPoint) {
    files.AddDrive(Text("/media/stick"), 4);
    files.AddFolder(Text("/media/stick/Music"));
    SetDestination("/media/stick/Music");
    messages.Answers = {MessageAnswer::Cancel};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList{Text("There is not enough space on drive /media/stick to copy all\rof "
                               "the selected files. Copy as much as possible?")});
}

TEST_F(CopyChecksTest, ADriveThatVanishesDuringTheChecksEndsTheClickWithoutCleanup) {
    files.AddFolder(Text("D:\\Music\\tmp"));
    files.FailNthCall(FileCall::FreeBytes, 1, ErrorNumber::DeviceUnavailable);
    Press();
    EXPECT_EQ(messages.Shown,
              (std::vector<ShownMessage>{{Text("Error 68: Device unavailable"), Text("Error"),
                                          MessageButtons::OK, MessageIcon::Critical}}));
    EXPECT_TRUE(files.HasFolder(Text("D:\\Music\\tmp")));
    ExpectNothingStarted();
}

TEST_F(CopyChecksTest, AnEndedCheckDeletesNoTemporaryFolderOfAnEarlierJob) {
    Press();
    files.AddFile(Text("D:\\Music\\tmp\\mine.txt"), "mine");
    files.FailNthCall(FileCall::FreeBytes, 1, ErrorNumber::DeviceUnavailable);
    Press();
    EXPECT_EQ(Bytes("D:\\Music\\tmp\\mine.txt"), QByteArray("mine"));
}

TEST_F(CopyChecksTest, AFailedFreeSpaceTestThatIsIgnoredLetsTheJobStart) {
    files.FailNthCall(FileCall::FreeBytes, 1, ErrorNumber::PathNotFound);
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList({Text("Path not found: \"\""), Text("Copy completed!")}));
    EXPECT_EQ(Bytes("D:\\Music\\Tiger.mp3"), QByteArray("tiger"));
}

TEST_F(CopyChecksTest, AFailedCheckNamesNoTrackOfAnEarlierJob) {
    Press();
    messages.Shown.clear();
    files.FailNthCall(FileCall::FreeBytes, 1, ErrorNumber::PathNotFound);
    messages.Answers = {MessageAnswer::Abort};
    Press();
    EXPECT_EQ(messages.Texts(), QStringList{Text("Path not found: \"\"")});
}

TEST_F(CopyChecksTest, ThePressInASearchThatIsStillRunningDoesNothing) {
    events.OnYield = [this](int yield) {
        if (yield == 1) {
            Press();
            EXPECT_TRUE(messages.Shown.empty());
            EXPECT_FALSE(job.Copying);
            EXPECT_TRUE(form.cmdCopy.Captions.isEmpty());
        }
    };
    form.txtSearch.SetText(Text("tiger"));
    EXPECT_GE(events.Yields, 1);
    EXPECT_EQ(library.Artists.size(), 1U);
}
