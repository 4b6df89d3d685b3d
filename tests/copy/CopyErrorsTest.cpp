#include "tests/copy/CopyFixture.h"

#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace {

ShownMessage ErrorBox(const QString& text, MessageButtons buttons, MessageIcon icon) {
    return {text, u"Error"_s, buttons, icon};
}

const ShownMessage FileNotFound =
    ErrorBox(u"File not found: \"E:\\iPod_Control\\Music\\F00\\2.mp3\""_s,
             MessageButtons::AbortRetryIgnore, MessageIcon::Exclamation);
const ShownMessage PathNotFound =
    ErrorBox(u"Path not found: \"E:\\iPod_Control\\Music\\F00\""_s,
             MessageButtons::AbortRetryIgnore, MessageIcon::Exclamation);
const ShownMessage DiskFull =
    ErrorBox(u"This drive is full."_s, MessageButtons::RetryCancel, MessageIcon::Exclamation);
const ShownMessage PermissionDenied =
    ErrorBox(u"Unable to create file: \"D:\\Music\\Two.mp3\""_s, MessageButtons::AbortRetryIgnore,
             MessageIcon::Critical);
const QString Quit = u"Are you sure you want to quit?"_s;

/// Three tracks, of which the second one fails.
class CopyErrorsTest : public CopyFixture, public testing::Test {
protected:
    CopyErrorsTest() { AddTracks({"One", "Two", "Three"}); }

    /// The second copy fails `times` times.
    void FailCopy(ErrorNumber number, int times = 1) {
        for (int i = 0; i < times; ++i) {
            files.FailNthCall(FileCall::CopyFile, 2 + i, number);
        }
    }

    /// The user closes the window at every message.
    void CloseAtMessages() {
        messages.WhileShown = [this](const ShownMessage&) { form.Form1.UserClose(); };
    }

    void ExpectAllCopied() const {
        EXPECT_EQ(Names(), QStringList({u"One.mp3"_s, u"Three.mp3"_s, u"Two.mp3"_s}));
        EXPECT_EQ(messages.Shown.back(), Completed);
        ExpectIdle();
    }

    void ExpectStoppedAfterTheFirst(const ShownMessage& message) const {
        EXPECT_EQ(Names(), QStringList{u"One.mp3"_s});
        EXPECT_EQ(messages.Shown, std::vector{message});
        ExpectIdle();
    }
};

struct AskedError {
    ErrorNumber Number;
    ShownMessage Message;
};

void PrintTo(const AskedError& error, std::ostream* out) {
    *out << int(error.Number);
}

class AskedErrors : public CopyErrorsTest, public testing::WithParamInterface<AskedError> {};

} // namespace

// ---- the failures that the user is asked about

TEST_P(AskedErrors, AreAskedAboutUntilARetryCopiesTheFile) {
    FailCopy(GetParam().Number, 2);
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown, (std::vector{GetParam().Message, GetParam().Message, Completed}));
    ExpectAllCopied();
}

TEST_P(AskedErrors, LeaveThatFileOutWhenTheyAreIgnored) {
    if (GetParam().Message.Buttons != MessageButtons::AbortRetryIgnore) {
        return; // a full drive stays full
    }
    FailCopy(GetParam().Number);
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    EXPECT_EQ(Names(), QStringList({u"One.mp3"_s, u"Three.mp3"_s}));
    EXPECT_EQ(messages.Shown, (std::vector{GetParam().Message, Completed}));
    EXPECT_EQ(job.CopiedBytes(), 3 + 3 + 5);
    ExpectIdle();
}

TEST_P(AskedErrors, StopTheJobByTheirFirstOrLastButton) {
    FailCopy(GetParam().Number);
    messages.Answers = {GetParam().Message.Buttons == MessageButtons::AbortRetryIgnore
                            ? MessageAnswer::Abort
                            : MessageAnswer::Cancel};
    Press();
    ExpectStoppedAfterTheFirst(GetParam().Message);
}

INSTANTIATE_TEST_SUITE_P(Numbers, AskedErrors,
                         testing::Values(AskedError{ErrorNumber::FileNotFound, FileNotFound},
                                         AskedError{ErrorNumber::PathNotFound, PathNotFound},
                                         AskedError{ErrorNumber::DiskFull, DiskFull},
                                         AskedError{ErrorNumber::PermissionDenied,
                                                    PermissionDenied}));

TEST_F(CopyErrorsTest, AFileNameThatTheDriveRefusesCanBeLeftOut) {
    files.Limits.Longest = 1000; // it holds less than it has told
    AddTracks({QByteArray(300, 'x').constData()});
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    EXPECT_TRUE(messages.Texts()[0].startsWith(u"Unable to create file: \"D:\\Music\\xxx"_s));
    ExpectAllCopied();
}

TEST_F(CopyErrorsTest, AnyOtherErrorEndsTheJobWithNoQuestionEvenWhenTheWindowWasClosed) {
    FailCopy(ErrorNumber::DeviceUnavailable);
    CloseAtMessages();
    Press();
    ExpectStoppedAfterTheFirst(
        ErrorBox(u"Error 68: Device unavailable"_s, MessageButtons::OK, MessageIcon::Critical));
}

TEST_F(CopyErrorsTest, ADevicePulledOutIsReportedAndTheJobCanBeStopped) {
    AtYield(2, [this] { files.RemoveDrive(u"E:"_s); });
    messages.Answers = {MessageAnswer::Abort};
    Press();
    ExpectStoppedAfterTheFirst(PathNotFound);
}

// ---- the closed window

TEST_F(CopyErrorsTest, AbortWithAClosedWindowAsksToQuitAndNoStartsTheSameTrackAgain) {
    FailCopy(ErrorNumber::FileNotFound, 2);
    CloseAtMessages();
    messages.Answers = {MessageAnswer::Abort, MessageAnswer::No, MessageAnswer::Abort,
                        MessageAnswer::No, MessageAnswer::OK};
    form.lblMessage.Captions.clear();
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList({FileNotFound.Text, Quit, FileNotFound.Text, Quit, Completed.Text}));
    EXPECT_EQ(form.lblMessage.Captions.mid(1, 5),
              QStringList({u"Copying files... 1 of 3"_s, u"Copying files... 2 of 3"_s,
                           u"Copying files... 3 of 3"_s, u"Copying files... 4 of 3"_s,
                           u"Copying files... 5 of 3"_s}));
    ExpectAllCopied();
}

// ---- folders

TEST_F(CopyErrorsTest, AFailedFolderRetriedIsMadeAndTheJobGoesOn) {
    SetOptions("AB");
    files.FailNthCall(FileCall::CreateFolder, 2, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_EQ(
        messages.Texts(),
        QStringList({u"Unable to create file: \"D:\\Music\\Abba\\Arrival\""_s, Completed.Text}));
    EXPECT_EQ(Copied().size(), 3);
}

TEST_F(CopyErrorsTest, AFailedFolderIgnoredGoesOnInsideTheMissingFolderUntilAbortStopsTheJob) {
    SetOptions("A");
    files.FailPath(FileCall::CreateFolder, u"D:\\Music\\Abba"_s, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::Ignore, MessageAnswer::Abort};
    Press();
    EXPECT_EQ(messages.Texts(), QStringList({u"Unable to create file: \"D:\\Music\\Abba\""_s,
                                             u"Path not found: \"E:\\iPod_Control\\Music\\F00\""_s,
                                             u"Unable to create file: \"D:\\Music\\Abba\""_s}));
    EXPECT_TRUE(Copied().isEmpty());
    ExpectIdle();
}

TEST_F(CopyErrorsTest, AfterAFailedFolderThatIsIgnoredTheNextOneIsTried) {
    SetOptions("AB");
    files.FailPath(FileCall::CreateFolder, u"D:\\Music\\Abba"_s, ErrorNumber::PermissionDenied);
    files.FailPath(FileCall::CreateFolder, u"D:\\Music\\Abba\\Arrival"_s,
                   ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::Abort};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList({u"Unable to create file: \"D:\\Music\\Abba\""_s,
                           u"Unable to create file: \"D:\\Music\\Abba\\Arrival\""_s}));
    ExpectIdle();
}

TEST_F(CopyErrorsTest, AFailedFolderThatIsBackByTheTimeOfTheRetryIsUsed) {
    SetOptions("A");
    files.FailNthCall(FileCall::CreateFolder, 1, ErrorNumber::PathNotFound);
    messages.WhileShown = [this](const ShownMessage&) { files.AddFolder(u"D:\\Music\\Abba"_s); };
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_TRUE(messages.Texts()[0].startsWith(u"Path not found: "_s));
    EXPECT_EQ(messages.Texts().mid(1), QStringList{Completed.Text});
    EXPECT_EQ(Copied().size(), 3);
}

TEST_F(CopyErrorsTest, AFileInTheWayOfAFolderStaysAndCanBePutAside) {
    SetOptions("A");
    const QString inTheWay = u"D:\\Music\\Abba"_s;
    files.AddFile(inTheWay, "mine");
    messages.WhileShown = [&](const ShownMessage& message) {
        if (message != Completed) {
            EXPECT_EQ(files.Bytes(inTheWay), QByteArray("mine"));
            files.Remove(inTheWay);
        }
    };
    messages.Answers = {MessageAnswer::Retry};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList({u"Unable to create file: \"D:\\Music\\Abba\""_s, Completed.Text}));
    EXPECT_TRUE(files.HasFolder(inTheWay));
    ExpectIdle();
}

// ---- large files

TEST_F(CopyErrorsTest, AnErrorInsideALargeFileIsRetriedFromTheFilesBeginning) {
    const QString location = AddLargeTrack("Abba", "Arrival", "Film", 50000001).Location;
    files.FailNthCall(FileCall::Write, 2, ErrorNumber::DiskFull);
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown, (std::vector{DiskFull, Completed}));
    EXPECT_EQ(files.CountOf(FileCall::OpenForReading), 2);
    EXPECT_TRUE(files.SameContent(location, u"D:\\Music\\Film.mp3"_s));
}

TEST_F(CopyErrorsTest, AnErrorInsideALargeFileIgnoredLeavesTheEarlierFileAndGoesOn) {
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    AddTrack("Abba", "Arrival", "Last", "last");
    files.AddFile(u"D:\\Music\\Film.mp3"_s, "old film");
    files.FailNthCall(FileCall::Read, 1, ErrorNumber::FileNotFound);
    promptUses = {PromptUse::Replace};
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    EXPECT_EQ(Bytes("D:\\Music\\Film.mp3"), QByteArray("old film"));
    EXPECT_EQ(Bytes("D:\\Music\\Last.mp3"), QByteArray("last"));
    EXPECT_EQ(job.CopiedBytes(), 3 + 3 + 5 + 50000001 + 4);
    EXPECT_FALSE(files.HasFolder(Tmp));
}

TEST_F(CopyErrorsTest, AnErrorInsideALargeFileAbortedRemovesTheTmpFolder) {
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    files.FailNthCall(FileCall::MoveFile, 1, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Abort};
    Press();
    EXPECT_EQ(messages.Texts(), QStringList{u"Unable to create file: \"D:\\Music\\Film.mp3\""_s});
    EXPECT_FALSE(files.HasFile(u"D:\\Music\\Film.mp3"_s));
    EXPECT_FALSE(files.HasFolder(Tmp));
    ExpectIdle();
}

// ---- the end of the job

TEST_F(CopyErrorsTest, TheTmpFolderThatCannotBeDeletedIsRetried) {
    files.AddFolder(Tmp);
    files.FailNthCall(FileCall::DeleteFolder, 1, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_FALSE(files.HasFolder(Tmp));
    ExpectAllCopied();
}

TEST_F(CopyErrorsTest, TheTmpFolderThatCannotBeDeletedIsReportedTwiceAndTheJobEnds) {
    using enum MessageAnswer;
    const QString refused = u"Unable to create file: \"D:\\Music\\Three.mp3\""_s;
    const QString failed = u"Error 57: Device I/O error"_s;
    struct Case {
        ErrorNumber Number;
        std::deque<MessageAnswer> Answers;
        QStringList Texts;
    };
    files.AddFolder(Tmp);
    CloseAtMessages(); // nothing asks whether to quit in the cleanup
    for (const Case& end : {
             Case{ErrorNumber::PermissionDenied,
                  {Ignore, OK, Ignore},
                  {refused, Completed.Text, refused}},
             Case{ErrorNumber::PermissionDenied,
                  {Ignore, OK, Abort},
                  {refused, Completed.Text, refused}},
             Case{ErrorNumber::PermissionDenied,
                  {Abort, No, OK, Abort},
                  {refused, Quit, Completed.Text, refused}},
             Case{ErrorNumber::DeviceIOError, {}, {failed, failed}},
         }) {
        files.ClearFailures();
        files.FailPath(FileCall::DeleteFolder, Tmp, end.Number);
        messages.Shown.clear();
        messages.Answers = end.Answers;
        promptUses = {PromptUse::SkipAll};
        Press();
        EXPECT_EQ(messages.Texts(), end.Texts);
        EXPECT_EQ(Copied().size(), 3);
        EXPECT_EQ(closed, 0);
        ExpectIdle();
    }
}

TEST_F(CopyErrorsTest, AnAbortedDeletionAtTheEndGoesToTheCleanupWhichNeverLoops) {
    files.AddFolder(Tmp);
    files.FailPath(FileCall::DeleteFolder, Tmp, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Abort, MessageAnswer::Abort};
    Press();
    EXPECT_EQ(messages.Shown.size(), 2U);
    EXPECT_EQ(Copied().size(), 3);
    ExpectIdle();
}

TEST_F(CopyErrorsTest, AnOverflowOfTheFileCountIsAnErrorLikeAnyOther) {
    for (int i = 3; i < 32767; ++i) {
        TrackRecord track;
        track.Checked = true;
        track.Title = u"x"_s;
        track.Location = u"E:\\x.mp3"_s;
        library.Artists[0].Albums[0].Tracks.push_back(track);
    }
    const QString last = u"D:\\Music\\x (32764).mp3"_s;
    files.AddFile(last, "old");
    files.BeforeCall = [&](const RecordedFiles::RecordedCall& call) {
        files.Calls.clear();
        if (job.Copying && call.Path != last) { // to copy that many would take long
            throw RuntimeError(ErrorNumber::FileNotFound);
        }
    };
    messages.WhileShown = [&](const ShownMessage& message) {
        const bool fails = message.Buttons == MessageButtons::AbortRetryIgnore;
        messages.Answers = {fails                  ? MessageAnswer::Ignore
                            : message.Text == Quit ? MessageAnswer::No
                                                   : MessageAnswer::OK};
    };
    // Closing the window at the last track and going on counts that track once more.
    CloseAtYield(32767);
    promptUses = {PromptUse::Cancel};
    Press();
    EXPECT_EQ(messages.Texts().mid(32766), QStringList({Quit, Quit, u"Error 6: Overflow"_s}));
    EXPECT_EQ(files.Bytes(last), QByteArray("old"));
    ExpectIdle();
}
