#include "tests/copy/CopyFixture.h"

#include "platform/RuntimeError.h"

namespace {

ShownMessage ErrorBox(const char* text, MessageButtons buttons, MessageIcon icon) {
    return {Text(text), Text("Error"), buttons, icon};
}

const ShownMessage FileNotFound =
    ErrorBox("File not found: \"E:\\iPod_Control\\Music\\F00\\2.mp3\"",
             MessageButtons::AbortRetryIgnore, MessageIcon::Exclamation);
const ShownMessage PathNotFound =
    ErrorBox("Path not found: \"E:\\iPod_Control\\Music\\F00\"", MessageButtons::AbortRetryIgnore,
             MessageIcon::Exclamation);
const ShownMessage DiskFull =
    ErrorBox("This drive is full.", MessageButtons::RetryCancel, MessageIcon::Exclamation);
const ShownMessage PermissionDenied =
    ErrorBox("Unable to create file: \"D:\\Music\\Two.mp3\"", MessageButtons::AbortRetryIgnore,
             MessageIcon::Critical);
const ShownMessage Completed{Text("Copy completed!"), Text("Songlift"), MessageButtons::OK,
                             MessageIcon::Information};

/// Three tracks, of which the second one fails.
class CopyErrorsTest : public CopyFixture, public testing::Test {
protected:
    CopyErrorsTest() {
        AddTrack("Abba", "Arrival", "One", "one");
        AddTrack("Abba", "Arrival", "Two", "two");
        AddTrack("Abba", "Arrival", "Three", "three");
    }

    /// The second copy fails `times` times.
    void FailCopy(ErrorNumber number, int times = 1) {
        for (int i = 0; i < times; ++i) {
            files.FailNthCall(FileCall::CopyFile, 2 + i, number);
        }
    }

    QStringList Names() const {
        QStringList names;
        for (const QString& path : Copied()) {
            names += path.mid(9);
        }
        return names;
    }

    void ExpectAllCopied() const {
        EXPECT_EQ(Names(), QStringList({Text("One.mp3"), Text("Three.mp3"), Text("Two.mp3")}));
        EXPECT_EQ(messages.Shown.back(), Completed);
        ExpectIdle();
    }

    void ExpectStoppedAfterTheFirst(const ShownMessage& message) const {
        EXPECT_EQ(Names(), QStringList{Text("One.mp3")});
        EXPECT_EQ(messages.Shown, std::vector{message});
        ExpectIdle();
    }

    void ExpectTheSecondLeftOut(const ShownMessage& message) const {
        EXPECT_EQ(Names(), QStringList({Text("One.mp3"), Text("Three.mp3")}));
        EXPECT_EQ(messages.Shown, (std::vector{message, Completed}));
        EXPECT_EQ(job.CopiedBytes, 3 + 3 + 5);
        ExpectIdle();
    }
};

} // namespace

// ---- 53

TEST_F(CopyErrorsTest, FileNotFoundNamesTheSourceAndRetryCopiesIt) {
    FailCopy(ErrorNumber::FileNotFound, 2);
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown, (std::vector{FileNotFound, FileNotFound, Completed}));
    ExpectAllCopied();
}

TEST_F(CopyErrorsTest, FileNotFoundIgnoredLeavesThatFileOut) {
    FailCopy(ErrorNumber::FileNotFound);
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    ExpectTheSecondLeftOut(FileNotFound);
}

TEST_F(CopyErrorsTest, FileNotFoundAbortedStopsTheJob) {
    FailCopy(ErrorNumber::FileNotFound);
    messages.Answers = {MessageAnswer::Abort};
    Press();
    ExpectStoppedAfterTheFirst(FileNotFound);
}

// ---- 76

TEST_F(CopyErrorsTest, PathNotFoundNamesTheSourcesFolderAndRetryCopiesIt) {
    FailCopy(ErrorNumber::PathNotFound);
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown, (std::vector{PathNotFound, Completed}));
    ExpectAllCopied();
}

TEST_F(CopyErrorsTest, PathNotFoundIgnoredLeavesThatFileOut) {
    FailCopy(ErrorNumber::PathNotFound);
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    ExpectTheSecondLeftOut(PathNotFound);
}

TEST_F(CopyErrorsTest, PathNotFoundAbortedStopsTheJob) {
    FailCopy(ErrorNumber::PathNotFound);
    messages.Answers = {MessageAnswer::Abort};
    Press();
    ExpectStoppedAfterTheFirst(PathNotFound);
}

// ---- 61

TEST_F(CopyErrorsTest, DiskFullRetriedAfterRoomWasMadeCopiesTheFile) {
    files.DiskFullAfter(5);
    messages.WhileShown = [this](const ShownMessage& message) {
        if (message == DiskFull) {
            EXPECT_EQ(Names(), QStringList{Text("One.mp3")});
            files.ClearFailures();
        }
    };
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown, (std::vector{DiskFull, Completed}));
    ExpectAllCopied();
}

TEST_F(CopyErrorsTest, DiskFullCancelledStopsTheJob) {
    FailCopy(ErrorNumber::DiskFull);
    messages.Answers = {MessageAnswer::Cancel};
    Press();
    ExpectStoppedAfterTheFirst(DiskFull);
}

// ---- 70

TEST_F(CopyErrorsTest, PermissionDeniedNamesTheCopyAndRetryCopiesIt) {
    FailCopy(ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Shown, (std::vector{PermissionDenied, Completed}));
    ExpectAllCopied();
}

TEST_F(CopyErrorsTest, PermissionDeniedIgnoredLeavesThatFileOut) {
    FailCopy(ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    ExpectTheSecondLeftOut(PermissionDenied);
}

TEST_F(CopyErrorsTest, PermissionDeniedAbortedStopsTheJob) {
    FailCopy(ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Abort};
    Press();
    ExpectStoppedAfterTheFirst(PermissionDenied);
}

TEST_F(CopyErrorsTest, AFileNameThatTheDriveRefusesCanBeLeftOut) {
    // It holds less than it has told.
    events.OnYield = [this](int yield) { files.Limits.Longest = yield == 2 ? 6 : 255; };
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    EXPECT_EQ(Names(), QStringList({Text("One.mp3"), Text("Three.mp3")}));
    EXPECT_EQ(messages.Texts(), QStringList({Text("Unable to create file: \"D:\\Music\\Two.mp3\""),
                                             Text("Copy completed!")}));
}

// ---- any other

TEST_F(CopyErrorsTest, AnyOtherErrorIsToldWithItsNumberAndEndsTheJobWithoutCompletion) {
    FailCopy(ErrorNumber::DeviceIOError);
    Press();
    ExpectStoppedAfterTheFirst(
        ErrorBox("Error 57: Device I/O error", MessageButtons::OK, MessageIcon::Critical));
}

TEST_F(CopyErrorsTest, AnyOtherErrorAsksNoQuitQuestionEvenWhenTheWindowWasClosed) {
    FailCopy(ErrorNumber::DeviceUnavailable);
    files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) {
        if (call.Call == FileCall::CopyFile) {
            job.CUnload = true;
        }
    };
    Press();
    ExpectStoppedAfterTheFirst(
        ErrorBox("Error 68: Device unavailable", MessageButtons::OK, MessageIcon::Critical));
}

TEST_F(CopyErrorsTest, ADevicePulledOutIsReportedAndTheJobCanBeStopped) {
    events.OnYield = [this](int number) {
        if (number == 2) {
            files.RemoveDrive(Text("E:"));
        }
    };
    messages.Answers = {MessageAnswer::Abort};
    Press();
    ExpectStoppedAfterTheFirst(PathNotFound);
}

// ---- the closed window

TEST_F(CopyErrorsTest, AbortWithAClosedWindowAsksToQuitAndNoStartsTheSameTrackAgain) {
    FailCopy(ErrorNumber::FileNotFound, 2);
    files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) {
        job.CUnload = job.CUnload || call.Call == FileCall::CopyFile;
    };
    messages.Answers = {MessageAnswer::Abort, MessageAnswer::No, MessageAnswer::Abort,
                        MessageAnswer::No, MessageAnswer::OK};
    form.lblMessage.Captions.clear();
    Press();
    EXPECT_EQ(
        messages.Texts(),
        QStringList({FileNotFound.Text, Text("Are you sure you want to quit?"), FileNotFound.Text,
                     Text("Are you sure you want to quit?"), Text("Copy completed!")}));
    EXPECT_EQ(form.lblMessage.Captions.mid(1, 5),
              QStringList({Text("Copying files... 1 of 3"), Text("Copying files... 2 of 3"),
                           Text("Copying files... 3 of 3"), Text("Copying files... 4 of 3"),
                           Text("Copying files... 5 of 3")}));
    ExpectAllCopied();
}

// ---- folders

TEST_F(CopyErrorsTest, AFailedFolderRetriedIsMadeAndTheJobGoesOn) {
    SetOptions("AB");
    files.FailNthCall(FileCall::CreateFolder, 2, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList({Text("Unable to create file: \"D:\\Music\\Abba\\Arrival\""),
                           Text("Copy completed!")}));
    EXPECT_EQ(Copied().size(), 3);
}

TEST_F(CopyErrorsTest, AFailedFolderIgnoredGoesOnInsideTheMissingFolder) {
    SetOptions("A");
    files.FailPath(FileCall::CreateFolder, Text("D:\\Music\\Abba"), ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::Ignore, MessageAnswer::Abort};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList({Text("Unable to create file: \"D:\\Music\\Abba\""),
                           Text("Path not found: \"E:\\iPod_Control\\Music\\F00\""),
                           Text("Unable to create file: \"D:\\Music\\Abba\"")}));
    EXPECT_TRUE(Copied().isEmpty());
    ExpectIdle();
}

TEST_F(CopyErrorsTest, AFailedFolderThatIsBackByTheTimeOfTheRetryIsUsed) {
    SetOptions("A");
    files.FailNthCall(FileCall::CreateFolder, 1, ErrorNumber::PathNotFound);
    messages.WhileShown = [this](const ShownMessage&) { files.AddFolder(Text("D:\\Music\\Abba")); };
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_TRUE(messages.Texts()[0].startsWith(Text("Path not found: ")));
    EXPECT_EQ(messages.Texts().mid(1), QStringList(Text("Copy completed!")));
    EXPECT_EQ(Copied().size(), 3);
}

TEST_F(CopyErrorsTest, AFailedFolderAbortedStopsTheJob) {
    SetOptions("A");
    files.FailNthCall(FileCall::CreateFolder, 1, ErrorNumber::PathNotFound);
    messages.Answers = {MessageAnswer::Abort};
    Press();
    EXPECT_TRUE(Copied().isEmpty());
    ExpectIdle();
}

TEST_F(CopyErrorsTest, AFileInTheWayOfAFolderStaysAndCanBePutAside) {
    SetOptions("A");
    files.AddFile(Text("D:\\Music\\Abba"), "mine");
    messages.WhileShown = [this](const ShownMessage& message) {
        if (message.Title == Text("Error")) {
            EXPECT_EQ(Bytes("D:\\Music\\Abba"), QByteArray("mine"));
            files.Remove(Text("D:\\Music\\Abba"));
        }
    };
    messages.Answers = {MessageAnswer::Retry};
    Press();
    EXPECT_EQ(messages.Texts(), QStringList({Text("Unable to create file: \"D:\\Music\\Abba\""),
                                             Text("Copy completed!")}));
    EXPECT_TRUE(files.HasFolder(Text("D:\\Music\\Abba")));
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
    EXPECT_TRUE(files.SameContent(location, Text("D:\\Music\\Film.mp3")));
}

TEST_F(CopyErrorsTest, AnErrorInsideALargeFileIgnoredLeavesTheEarlierFileAndGoesOn) {
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    AddTrack("Abba", "Arrival", "Last", "last");
    files.AddFile(Text("D:\\Music\\Film.mp3"), "old film");
    files.FailNthCall(FileCall::Read, 1, ErrorNumber::FileNotFound);
    promptUses = {PromptUse::Replace};
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    EXPECT_EQ(Bytes("D:\\Music\\Film.mp3"), QByteArray("old film"));
    EXPECT_EQ(Bytes("D:\\Music\\Last.mp3"), QByteArray("last"));
    EXPECT_EQ(job.CopiedBytes, 3 + 3 + 5 + 50000001 + 4);
    EXPECT_FALSE(files.HasFolder(Text("D:\\Music\\tmp")));
}

TEST_F(CopyErrorsTest, AnErrorInsideALargeFileAbortedRemovesTheTmpFolder) {
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    files.FailNthCall(FileCall::MoveFile, 1, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Abort};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList{Text("Unable to create file: \"D:\\Music\\Film.mp3\"")});
    EXPECT_FALSE(files.HasFile(Text("D:\\Music\\Film.mp3")));
    EXPECT_FALSE(files.HasFolder(Text("D:\\Music\\tmp")));
    ExpectIdle();
}

// ---- the end of the job

TEST_F(CopyErrorsTest, TheTmpFolderThatCannotBeDeletedIsRetried) {
    files.AddFolder(Text("D:\\Music\\tmp"));
    files.FailNthCall(FileCall::DeleteFolder, 1, ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    Press();
    EXPECT_FALSE(files.HasFolder(Text("D:\\Music\\tmp")));
    ExpectAllCopied();
}

TEST_F(CopyErrorsTest, TheTmpFolderThatCannotBeDeletedIsReportedTwiceAndTheJobEnds) {
    files.AddFolder(Text("D:\\Music\\tmp"));
    files.FailPath(FileCall::DeleteFolder, Text("D:\\Music\\tmp"), ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK, MessageAnswer::Ignore};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList({Text("Unable to create file: \"D:\\Music\\Three.mp3\""),
                           Text("Copy completed!"),
                           Text("Unable to create file: \"D:\\Music\\Three.mp3\"")}));
    ExpectIdle();
}

TEST_F(CopyErrorsTest, AnAbortedDeletionAtTheEndGoesToTheCleanupWhichNeverLoops) {
    files.AddFolder(Text("D:\\Music\\tmp"));
    files.FailPath(FileCall::DeleteFolder, Text("D:\\Music\\tmp"), ErrorNumber::PermissionDenied);
    messages.Answers = {MessageAnswer::Abort, MessageAnswer::Abort};
    Press();
    EXPECT_EQ(messages.Shown.size(), 2U);
    EXPECT_EQ(Copied().size(), 3);
    ExpectIdle();
}

TEST_F(CopyErrorsTest, AnyOtherErrorInTheCleanupIsToldAndTheCleanupGoesOn) {
    files.AddFolder(Text("D:\\Music\\tmp"));
    files.FailPath(FileCall::DeleteFolder, Text("D:\\Music\\tmp"), ErrorNumber::DeviceIOError);
    Press();
    EXPECT_EQ(messages.Texts(), QStringList({Text("Error 57: Device I/O error"),
                                             Text("Error 57: Device I/O error")}));
    ExpectIdle();
}

TEST_F(CopyErrorsTest, AnAbortInTheCleanupAsksNoQuitQuestion) {
    files.AddFolder(Text("D:\\Music\\tmp"));
    files.FailPath(FileCall::DeleteFolder, Text("D:\\Music\\tmp"), ErrorNumber::PermissionDenied);
    files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) {
        job.CUnload = job.CUnload || call.Call == FileCall::DeleteFolder;
    };
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK, MessageAnswer::Abort};
    Press();
    EXPECT_FALSE(messages.Texts().contains(Text("Are you sure you want to quit?")));
    EXPECT_EQ(closed, 0);
    ExpectIdle();
}

TEST_F(CopyErrorsTest, AnOverflowOfTheFileCountIsAnErrorLikeAnyOther) {
    for (int i = 3; i < 32767; ++i) {
        TrackRecord track;
        track.Checked = true;
        track.Title = Text("x");
        track.Location = library.Artists[0].Albums[0].Tracks[0].Location;
        library.Artists[0].Albums[0].Tracks.push_back(track);
    }
    files.BeforeCall = [this](const FakeFileSystem::RecordedCall&) { files.Calls.clear(); };
    // Closing the window at the last track and going on counts that track once more.
    CloseAtYield(32767);
    files.AddFile(Text("D:\\Music\\x (32764).mp3"), "old");
    promptUses = {PromptUse::Cancel};
    messages.Answers = {MessageAnswer::No, MessageAnswer::No, MessageAnswer::OK};
    Press();
    EXPECT_EQ(messages.Texts(),
              QStringList({Text("Are you sure you want to quit?"),
                           Text("Are you sure you want to quit?"), Text("Error 6: Overflow")}));
    EXPECT_EQ(Bytes("D:\\Music\\x (32764).mp3"), QByteArray("old"));
    ExpectIdle();
}
