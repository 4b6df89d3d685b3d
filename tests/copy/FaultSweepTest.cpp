// One job after another, each on files that fail at another call: whatever fails, and whatever the
// user answers, no file is half written, none is lost, and the window comes back to life.

#include "tests/copy/CopyFixture.h"

#include "platform/RuntimeError.h"

#include <algorithm>
#include <functional>
#include <map>

using namespace Qt::StringLiterals;

namespace {

enum class Policy { Retry, Ignore, Stop, StopAndQuit };

/// The large file of the job: one that goes by the way of large files in spite of its length, since
/// whole ones take their time.
enum class Large { None, Short, Whole };

/// The job that is swept: two artists, an existing file to be replaced, a folder "tmp" of an
/// earlier job, and a file of the user's own. A search shows only the first artist.
class SweptJob : public CopyFixture {
public:
    SweptJob(Policy policy, Large large) {
        Expect(AddTrack("Abba", "Arrival", "One", "one"), "D:\\Music\\Abba\\Arrival\\One.mp3");
        Expect(AddTrack("Abba", "Arrival", "Two", "new two"), "D:\\Music\\Abba\\Arrival\\Two.mp3");
        if (large != Large::None) {
            TrackRecord& film = large == Large::Whole
                                    ? AddLargeTrack("Abba", "Live", "Film", 50000001)
                                    : AddTrack("Abba", "Live", "Film", "a short film");
            film.FileSize = 50000001;
            Expect(film, Film);
            AddOld(Film, "old film");
        }
        Expect(AddTrack("Beck", "Guero", "Girl", "girl"), "D:\\Music\\Beck\\Guero\\Girl.mp3");
        AddOld("D:\\Music\\Abba\\Arrival\\Two.mp3", "old two");
        AddOld("D:\\Music\\mine.txt", "mine");
        files.AddFile(u"D:\\Music\\tmp\\copy.tmp"_s, "left behind");
        files.AddFile(u"D:\\other.txt"_s, "other");
        SetOptions("AB");
        events.ToYield = 1000;
        promptUses = {PromptUse::ReplaceAll};
        ShowFirstArtistOnly();
        messages.WhileShown = [this, policy](const ShownMessage& message) {
            messages.Answers = {AnswerTo(message.Buttons, policy)};
        };
    }

    /// Runs the job with its `nth` call failing.
    void Run(int nth, ErrorNumber errorNumber) {
        files.FailNthCall(nth, errorNumber);
        Press();
    }

    const FakeFileSystem::RecordedCall& Struck(int nth) const { return files.Calls.at(nth - 1); }

    /// Runs the job with its `nth` call failing after the user has closed the window.
    void RunClosed(int nth, ErrorNumber errorNumber) {
        int count = 0;
        files.BeforeCall = [this, nth, count](const FakeFileSystem::RecordedCall&) mutable {
            if (++count == nth && job.Copying) {
                form.Form1.UserClose();
            }
        };
        Run(nth, errorNumber);
    }

    bool IsCompleted() const { return messages.Texts().contains(u"Copy completed!"_s); }

    void ExpectNothingHarmed() const {
        for (const QString& path : Copied()) {
            if (path == u"D:\\Music\\tmp\\copy.tmp"_s && (closed != 0 || job.CopiedBytes() == 0)) {
                EXPECT_EQ(files.Bytes(path), QByteArray("left behind")); // no job came to its end
                continue;
            }
            const bool isOld = m_old.count(path) != 0 && files.Bytes(path) == m_old.at(path);
            const bool isWhole =
                m_sources.count(path) != 0 && files.SameContent(path, m_sources.at(path));
            EXPECT_TRUE(isOld || isWhole) << path.toStdString();
        }
        for (const auto& [path, bytes] : m_old) {
            EXPECT_TRUE(files.HasFile(path)) << path.toStdString();
        }
        EXPECT_EQ(Bytes("D:\\Music\\mine.txt"), QByteArray("mine"));
        EXPECT_EQ(Bytes("D:\\other.txt"), QByteArray("other"));
        EXPECT_EQ(files.ChangesBelow(u"E:"_s), QStringList());
        const bool isOpen = closed == 0; // else the program ends with the window
        EXPECT_EQ(library.Artists.size(), isOpen ? 1U : 2U);
        EXPECT_EQ(parts.Result.SavedArtists().size(), isOpen ? 2U : 1U);
    }

    /// The job ran and is over.
    void ExpectOver() const {
        ExpectIdle();
        EXPECT_FALSE(files.HasFolder(u"D:\\Music\\tmp"_s));
    }

    bool IsCopied(const QString& path) const {
        return files.HasFile(path) && files.SameContent(path, m_sources.at(path));
    }

    /// The call gives a copy a name that no file has.
    bool IsNewCopy(int nth) const {
        const FakeFileSystem::RecordedCall& call = Struck(nth);
        if (call.Call == FileCall::RequireTarget) {
            return m_old.count(call.Path) == 0;
        }
        return (call.Call == FileCall::CopyFile || call.Call == FileCall::MoveFile) &&
               m_old.count(call.Target) == 0;
    }

    QStringList Targets() const {
        QStringList targets;
        for (const auto& [path, source] : m_sources) {
            targets += path;
        }
        return targets;
    }

    static constexpr const char* Film = "D:\\Music\\Abba\\Live\\Film.mp3";

private:
    void Expect(const TrackRecord& track, const char* path) {
        m_sources[Text(path)] = track.Location;
    }

    void AddOld(const char* path, const QByteArray& bytes) {
        files.AddFile(Text(path), bytes);
        m_old[Text(path)] = bytes;
    }

    static MessageAnswer AnswerTo(MessageButtons buttons, Policy policy) {
        switch (buttons) {
        case MessageButtons::AbortRetryIgnore:
            return policy == Policy::Retry    ? MessageAnswer::Retry
                   : policy == Policy::Ignore ? MessageAnswer::Ignore
                                              : MessageAnswer::Abort;
        case MessageButtons::RetryCancel:
            return policy == Policy::Retry ? MessageAnswer::Retry : MessageAnswer::Cancel;
        case MessageButtons::YesNo:
            return policy == Policy::StopAndQuit ? MessageAnswer::Yes : MessageAnswer::No;
        default:
            return MessageAnswer::OK;
        }
    }

    std::map<QString, QString> m_sources; // by the path of the copy
    std::map<QString, QByteArray> m_old;  // what stands in the destination before the job
};

const QString Quit = u"Are you sure you want to quit?"_s;

bool IsExistenceTest(FileCall call) {
    return call == FileCall::FileExists || call == FileCall::FolderExists;
}

/// Number of calls of the job when nothing fails.
int CallsOfJob(Large large) {
    SweptJob job(Policy::Stop, large);
    job.Press();
    EXPECT_TRUE(job.IsCompleted());
    job.ExpectNothingHarmed();
    job.ExpectOver();
    for (const QString& target : job.Targets()) {
        EXPECT_TRUE(job.IsCopied(target));
    }
    return static_cast<int>(job.files.Calls.size());
}

/// The copies that are left out when the user ignores a failure of that call.
bool IsLeftOut(const QString& target, const FakeFileSystem::RecordedCall& call) {
    switch (call.Call) {
    case FileCall::CopyFile:
        return target == call.Target;
    case FileCall::CreateFolder:
        return target.startsWith(call.Path + u"\\"_s);
    case FileCall::FileLength:
    case FileCall::OpenForReading:
    case FileCall::RequireTarget:
    case FileCall::OpenForReadingAndWriting:
    case FileCall::Read:
    case FileCall::Write:
    case FileCall::Truncate:
    case FileCall::Close:
    case FileCall::MoveFile:
        return target == Text(SweptJob::Film);
    default:
        return false;
    }
}

/// Runs the job with every error at every call.
void Sweep(Large large, Policy policy, const std::vector<int>& numbers,
           const std::function<void(SweptJob&, int nth, ErrorNumber)>& check) {
    const int calls = CallsOfJob(large);
    for (const int number : numbers) {
        for (int nth = 1; nth <= calls; ++nth) {
            SCOPED_TRACE(testing::Message() << "call " << nth << ", error " << number);
            SweptJob job(policy, large);
            job.Run(nth, ErrorNumber(number));
            EXPECT_EQ(job.files.FailuresStruck, 1);
            job.ExpectNothingHarmed();
            check(job, nth, ErrorNumber(number));
        }
    }
}

/// Retry, or Ignore, which leaves out what the failed call was for.
void SweepGoingOn(Large large, Policy policy, const std::vector<int>& numbers) {
    Sweep(large, policy, numbers, [policy](const SweptJob& job, int nth, ErrorNumber) {
        if (IsExistenceTest(job.Struck(nth).Call)) {
            return;
        }
        EXPECT_TRUE(job.IsCompleted());
        job.ExpectOver();
        for (const QString& target : job.Targets()) {
            EXPECT_EQ(job.IsCopied(target),
                      policy == Policy::Retry || !IsLeftOut(target, job.Struck(nth)))
                << target.toStdString();
        }
    });
}

/// Abort and Cancel where the failure asks, OK where it only tells.
void SweepStop(Large large, const std::vector<int>& numbers) {
    Sweep(large, Policy::Stop, numbers, [](const SweptJob& job, int nth, ErrorNumber number) {
        const FileCall struck = job.Struck(nth).Call;
        if (IsExistenceTest(struck) || struck == FileCall::TakeModificationTime) {
            return; // no failure that the user is told
        }
        if (number == ErrorNumber::FileAlreadyExists && job.IsNewCopy(nth)) {
            EXPECT_TRUE(job.IsCompleted()); // it is asked about, and may be replaced
            job.ExpectOver();
            return;
        }
        EXPECT_FALSE(job.IsCompleted());
        EXPECT_EQ(job.messages.Shown.size(), 1U);
        if (struck == FileCall::DriveOf || struck == FileCall::FreeBytes) {
            EXPECT_TRUE(job.form.cmdCopy.Captions.isEmpty());
            EXPECT_EQ(job.form.lstArtists.EnabledChanges, 0);
        } else {
            job.ExpectOver();
        }
        for (const QString& target : job.Targets()) {
            const bool wasCopiedBefore =
                std::any_of(job.files.Calls.begin(), job.files.Calls.begin() + nth - 1,
                            [&target](const auto& call) { return call.Target == target; });
            EXPECT_EQ(job.IsCopied(target), wasCopiedBefore) << target.toStdString();
        }
    });
}

/// A failure in a job whose window was closed: the question whether to quit comes with the answer
/// that stops the job, and No begins the track at hand once more.
void SweepClosed(Large large, const std::vector<int>& numbers, Policy policy) {
    const int calls = CallsOfJob(large);
    int quitted = 0;
    for (const int number : numbers) {
        for (int nth = 1; nth <= calls; ++nth) {
            SCOPED_TRACE(testing::Message() << "call " << nth << ", error " << number);
            SweptJob job(policy, large);
            job.RunClosed(nth, ErrorNumber(number));
            EXPECT_EQ(job.files.FailuresStruck, 1);
            job.ExpectNothingHarmed();
            EXPECT_FALSE(job.job.Copying);
            const bool wasAsked = job.messages.Texts().contains(Quit);
            EXPECT_EQ(job.closed, wasAsked && policy == Policy::StopAndQuit ? 1 : 0);
            quitted += job.closed;
            if (job.closed == 0) {
                EXPECT_TRUE(job.form.lstArtists.Enabled());
            } else {
                EXPECT_EQ(job.messages.Texts().back(), Quit);
            }
            if (wasAsked && policy == Policy::Stop && job.IsCompleted()) {
                for (const QString& target : job.Targets()) {
                    EXPECT_TRUE(job.IsCopied(target)) << target.toStdString();
                }
            }
        }
    }
    EXPECT_EQ(quitted > 0, policy == Policy::StopAndQuit);
}

} // namespace

TEST(FaultSweep, RetryAfterTheCauseIsGoneCompletesTheJob) {
    SweepGoingOn(Large::None, Policy::Retry, {53, 61, 70, 76});
}

TEST(FaultSweep, IgnoreLeavesOutWhatTheFailedStepWasFor) {
    SweepGoingOn(Large::None, Policy::Ignore, {53, 70, 76});
}

TEST(FaultSweep, AbortCancelAndAnyOtherErrorEndTheJobWhereItIs) {
    SweepStop(Large::None, {53, 61, 70, 76, 5, 57, 58, 68, 75});
}

TEST(FaultSweep, EveryAnswerToEveryFailureOfAShortLargeFile) {
    SweepGoingOn(Large::Short, Policy::Retry, {53, 61, 70, 76});
    SweepGoingOn(Large::Short, Policy::Ignore, {53, 70, 76});
    SweepStop(Large::Short, {53, 61, 70, 76, 5, 57, 58, 68, 75});
}

TEST(FaultSweep, AClosedWindowAndAFailureAtAnyCallQuitOrGoOnAsTheUserSays) {
    for (const Large large : {Large::None, Large::Short}) {
        SweepClosed(large, {53, 57, 61, 70, 75, 76}, Policy::StopAndQuit);
        SweepClosed(large, {53, 57, 61, 70, 75, 76}, Policy::Stop);
    }
}

TEST(FaultSweep, RetryCompletesALargeFile) {
    SweepGoingOn(Large::Whole, Policy::Retry, {61});
}

TEST(FaultSweep, ADiskThatFillsUpAtAnyByteLeavesWholeFilesOnly) {
    // 14 bytes are copied; the file that does not fit leaves nothing behind.
    for (int room = 0; room <= 14; ++room) {
        SCOPED_TRACE(room);
        SweptJob job(Policy::Stop, Large::None);
        job.files.DiskFullAfter(room);
        job.Press();
        job.ExpectNothingHarmed();
        job.ExpectOver();
        EXPECT_EQ(job.IsCompleted(), room == 14);
    }
}

TEST(FaultSweep, ADriveThatIsPulledAtAnyCallLeavesTheDeviceAndTheWindowWell) {
    const int calls = CallsOfJob(Large::None);
    for (int nth = 1; nth <= calls; ++nth) {
        SCOPED_TRACE(nth);
        SweptJob job(Policy::Stop, Large::None);
        int count = 0;
        job.files.BeforeCall = [&](const FakeFileSystem::RecordedCall&) {
            if (++count == nth) {
                job.files.RemoveDrive(u"D:"_s);
            }
        };
        job.Press();
        EXPECT_EQ(job.files.FilesBelow(u"E:"_s).size(), 3);
        EXPECT_FALSE(job.job.Copying);
        EXPECT_TRUE(job.form.lstArtists.Enabled());
        EXPECT_EQ(job.library.Artists.size(), 1U);
    }
}

TEST(FaultSweep, ADestinationThatIsStillToBeMadeHarmsNothingWhateverFails) {
    for (const int number : {52, 57, 61, 70, 76}) {
        for (int nth = 1; nth <= 40; ++nth) {
            for (const Policy policy : {Policy::Retry, Policy::Ignore, Policy::Stop}) {
                SCOPED_TRACE(testing::Message() << "call " << nth << ", error " << number);
                SweptJob job(policy, Large::None);
                job.form.txtDestination.SetText(u"D:\\Music\\New\\Sub"_s);
                // The chain that was not made would be missed for ever.
                int asked = 0;
                const auto answer = job.messages.WhileShown;
                job.messages.WhileShown = [&](const ShownMessage& message) {
                    answer(message);
                    if (++asked > 20 && message.Buttons == MessageButtons::AbortRetryIgnore) {
                        job.messages.Answers = {MessageAnswer::Abort};
                    }
                };
                job.Run(nth, ErrorNumber(number));
                EXPECT_EQ(u"old two"_s,
                          QString::fromLatin1(job.Bytes("D:\\Music\\Abba\\Arrival\\Two.mp3")));
                EXPECT_EQ(job.Bytes("D:\\Music\\mine.txt"), QByteArray("mine"));
                EXPECT_EQ(job.Bytes("D:\\Music\\tmp\\copy.tmp"), QByteArray("left behind"));
                EXPECT_EQ(job.Bytes("D:\\other.txt"), QByteArray("other"));
                EXPECT_EQ(job.destination.ProbeFolder(), QString());
                EXPECT_FALSE(job.job.Copying);
                EXPECT_TRUE(job.form.lstArtists.Enabled());
            }
        }
    }
}
