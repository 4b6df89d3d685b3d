#include "tests/copy/CopyFixture.h"

#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

const ShownMessage CreateQuestion{u"Destination folder does not exist. Create?"_s, u"Songlift"_s,
                                  MessageButtons::OKCancel, MessageIcon::Question};
const ShownMessage InvalidPath{u"Invalid destination path."_s, u"Songlift"_s, MessageButtons::OK,
                               MessageIcon::Exclamation};

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
    EXPECT_EQ(messages.Shown,
              (std::vector<ShownMessage>{{u"Please specify a destination path."_s, u"Songlift"_s,
                                          MessageButtons::OK, MessageIcon::Exclamation}}));
    EXPECT_TRUE(form.txtDestination.HasFocus());
    EXPECT_TRUE(files.Calls.empty());
    ExpectNothingStarted();
}

TEST_F(CopyChecksTest, AnInvalidDestinationIsSelectedForTheUserToMend) {
    files.IpodRoot = u"E:"_s;
    destination.ValidatePath(u"D:\\Mine"_s); // a click that failed before it could delete it
    files.AddFile(u"D:\\Mine\\mine.txt"_s, "mine");
    for (const char* path :
         {"Q:\\Music", "D:\\New\\Wh?t", "E:\\", "e:\\iPod_Control", "E:\\New\\Sub"}) {
        SCOPED_TRACE(path);
        messages.Shown.clear();
        files.Calls.clear();
        form.txtSearch.SetFocus();
        SetDestination(path);
        int selectedAtFocus = -1;
        form.txtDestination.GotFocus = [&] {
            selectedAtFocus = form.txtDestination.SelectionLength;
        };
        Press();
        EXPECT_EQ(messages.Shown, std::vector{InvalidPath});
        EXPECT_TRUE(form.txtDestination.HasFocus());
        EXPECT_EQ(selectedAtFocus, 0); // a box that gets the focus may change what is selected
        EXPECT_EQ(form.txtDestination.SelectionStart, 0);
        EXPECT_EQ(form.txtDestination.SelectionLength, Text(path).size());
        EXPECT_FALSE(destination.CreateFailed());
        EXPECT_FALSE(files.HasFolder(u"D:\\New"_s)); // made to try the path
        EXPECT_TRUE(files.HasFile(u"D:\\Mine\\mine.txt"_s));
        EXPECT_EQ(files.ChangesBelow(u"E:"_s), QStringList());
        ExpectNothingStarted();
    }
}

TEST_F(CopyChecksTest, TheTestFolderIsRemovedAtOnceThenTheQuestionIsAskedAndOKCreatesTheChain) {
    SetDestination("D:\\New\\Sub");
    messages.Answers = {MessageAnswer::OK, MessageAnswer::OK};
    messages.WhileShown = [this](const ShownMessage& message) {
        if (message == CreateQuestion) {
            EXPECT_FALSE(files.HasFolder(u"D:\\New"_s));
            EXPECT_EQ(files.CallsOf(FileCall::CreateFolder),
                      QStringList({u"D:\\New"_s, u"D:\\New\\Sub"_s}));
            EXPECT_EQ(files.CallsOf(FileCall::DeleteFolder), QStringList{u"D:\\New"_s});
        }
    };
    Press();
    EXPECT_EQ(messages.Shown.at(0), CreateQuestion);
    EXPECT_EQ(files.CallsOf(FileCall::CreateFolderChain), QStringList{u"D:\\New\\Sub"_s});
    EXPECT_EQ(destination.ProbeFolder(), QString());
    EXPECT_EQ(Bytes("D:\\New\\Sub\\Tiger.mp3"), QByteArray("tiger"));
}

TEST_F(CopyChecksTest, AFailedCreationIsInvalidAtOnceAndToldOnTheNextConfirmedAttempt) {
    SetDestination("D:\\New");
    files.FailNthCall(FileCall::CreateFolder, 1, ErrorNumber::PermissionDenied);
    Press();
    EXPECT_EQ(messages.Shown, std::vector{InvalidPath});
    EXPECT_TRUE(destination.CreateFailed());

    messages.Shown.clear();
    messages.Answers = {MessageAnswer::Cancel};
    Press();
    EXPECT_EQ(messages.Shown, std::vector{CreateQuestion});
    EXPECT_FALSE(files.HasFolder(u"D:\\New"_s));
    EXPECT_TRUE(destination.CreateFailed()); // the attempt was not confirmed
    ExpectNothingStarted();

    messages.Shown.clear();
    messages.Answers = {MessageAnswer::OK, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown,
              (std::vector<ShownMessage>{CreateQuestion,
                                         {u"Unable to create folder."_s, u"Error"_s,
                                          MessageButtons::OK, MessageIcon::Critical}}));
    EXPECT_FALSE(destination.CreateFailed());
    EXPECT_FALSE(files.HasFolder(u"D:\\New"_s));
    ExpectNothingStarted();

    messages.Answers = {MessageAnswer::OK, MessageAnswer::OK};
    Press();
    EXPECT_EQ(Bytes("D:\\New\\Tiger.mp3"), QByteArray("tiger"));
}

TEST_F(CopyChecksTest, AProbeFolderThatCouldNotBeDeletedIsNeverDeletedLater) {
    SetDestination("D:\\New");
    files.FailNthCall(FileCall::DeleteFolder, 1, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Abort};
    Press();
    ASSERT_EQ(messages.Texts(), QStringList{u"Unable to create file: \"D:\\New\""_s});
    ASSERT_TRUE(files.HasFolder(u"D:\\New"_s));
    // The folder is there now: a job fills it. Then another destination turns out invalid.
    Press();
    ASSERT_EQ(Bytes("D:\\New\\Tiger.mp3"), QByteArray("tiger"));
    SetDestination("Q:\\Music");
    Press();
    EXPECT_EQ(messages.Shown.back(), InvalidPath);
    EXPECT_EQ(Bytes("D:\\New\\Tiger.mp3"), QByteArray("tiger"));
}

TEST_F(CopyChecksTest, RetryDeletesTheProbeFolderAndTheChecksGoOn) {
    SetDestination("D:\\New");
    files.FailNthCall(FileCall::DeleteFolder, 1, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::Cancel};
    Press();
    EXPECT_EQ(messages.Shown.back(), CreateQuestion);
    EXPECT_FALSE(files.HasFolder(u"D:\\New"_s));
    ExpectNothingStarted();
}

TEST_F(CopyChecksTest, AFailedFolderChainIsReportedByTheFirstStepThatNeedsTheFolder) {
    SetDestination("D:\\New");
    files.FailNthCall(FileCall::CreateFolderChain, 1, ErrorNumber::DiskFull);
    messages.Answers = {MessageAnswer::OK, MessageAnswer::Abort};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList({u"Destination folder does not exist. Create?"_s,
                           u"Path not found: \"E:\\iPod_Control\\Music\\F00\""_s}));
    ExpectIdle();
}

TEST_F(CopyChecksTest, ADriveWithLessSpaceThanSelectedIsAskedAboutAndCancelCopiesNothing) {
    files.AddDrive(u"/media/stick"_s, 4);
    files.AddFolder(u"/media/stick/Music"_s);
    files.SetFreeBytes(u"D:"_s, 4);
    for (const auto& [path, drive] :
         {std::pair("D:\\Music", u"D:"_s), std::pair("/media/stick/Music", u"/media/stick"_s)}) {
        messages.Shown.clear();
        messages.Answers = {MessageAnswer::Cancel};
        SetDestination(path);
        Press();
        EXPECT_EQ(messages.Shown,
                  (std::vector<ShownMessage>{
                      {u"There is not enough space on drive "_s + drive +
                           u" to copy all\rof the selected files. Copy as much as possible?"_s,
                       u"Songlift"_s, MessageButtons::OKCancel, MessageIcon::Exclamation}}));
        ExpectNothingStarted();
    }
    files.SetFreeBytes(u"/media/stick"_s, 5);
    messages.Shown.clear();
    Press();
    EXPECT_EQ(messages.Shown, std::vector{Completed}); // room for exactly the selected bytes
}

TEST_F(CopyChecksTest, WithTooLittleSpaceOKCopiesUntilTheDiskFullMessage) {
    AddTrack("Abba", "Arrival", "Fernando", "fernando");
    files.SetFreeBytes(u"D:"_s, 9);
    files.FailNthCall(FileCall::CopyFile, 2, ErrorNumber::DiskFull);
    messages.Answers = {MessageAnswer::OK, MessageAnswer::Cancel};
    Press();
    EXPECT_EQ(messages.Texts().mid(1), QStringList{u"This drive is full."_s});
    EXPECT_EQ(Copied(), QStringList{u"D:\\Music\\Tiger.mp3"_s});
    EXPECT_EQ(Bytes("D:\\Music\\Tiger.mp3"), QByteArray("tiger"));
    ExpectIdle();
}

TEST_F(CopyChecksTest, ADriveThatVanishesDuringTheChecksEndsTheClickWithoutCleanup) {
    Press();
    messages.Shown.clear();
    form.cmdCopy.Captions.clear();
    form.lstArtists.EnabledChanges = events.Yields = 0;
    files.Calls.clear();
    files.AddFolder(u"D:\\Music\\tmp"_s); // not that of the earlier job
    files.FailNthCall(FileCall::FreeBytes, 1, ErrorNumber::DeviceUnavailable);
    Press();
    EXPECT_EQ(messages.Shown,
              (std::vector<ShownMessage>{{u"Error 68: Device unavailable"_s, u"Error"_s,
                                          MessageButtons::OK, MessageIcon::Critical}}));
    EXPECT_TRUE(files.HasFolder(u"D:\\Music\\tmp"_s));
    ExpectNothingStarted();
}

TEST_F(CopyChecksTest, AFailedFreeSpaceTestNamesNoTrackAndMayBeIgnored) {
    for (const bool ignores : {true, false}) { // the second time after a job
        messages.Shown.clear();
        files.FailNthCall(FileCall::FreeBytes, 1, ErrorNumber::PathNotFound);
        messages.Answers = {ignores ? MessageAnswer::Ignore : MessageAnswer::Abort};
        Press();
        EXPECT_EQ(messages.Texts().first(), u"Path not found: \"\""_s);
        EXPECT_EQ(messages.Texts().contains(Completed.Text), ignores);
    }
    EXPECT_EQ(Bytes("D:\\Music\\Tiger.mp3"), QByteArray("tiger"));
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
    form.txtSearch.SetText(u"tiger"_s);
    EXPECT_GE(events.Yields, 1);
    EXPECT_EQ(library.Artists.size(), 1U);
}
