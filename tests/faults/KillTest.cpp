// The copy job in a process that is killed (SIGKILL): at each of its calls to the system, and at
// any moment. No half file ever stands under a final name, an earlier file is the old or the new
// one, and the next job clears away what was left.

#include "tests/faults/SweptFolders.h"
#include "tests/platform/LinuxFixture.h"

#include <QDir>

#include <chrono>
#include <csignal>
#include <iostream>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;

/// Starts the job in a process of its own.
pid_t StartJob(const JobFolders& folders, const SystemCallHook& hook) {
    const pid_t child = fork();
    if (child == 0) {
        RealJob job(folders);
        const HookedSystemCalls hooked(hook);
        job.Press();
        _exit(job.IsCompleted() ? 0 : 1);
    }
    return child;
}

/// Whether the process was killed; fails where it ended by itself other than well.
bool WasKilled(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    EXPECT_TRUE(WIFSIGNALED(status) ? WTERMSIG(status) == SIGKILL : WEXITSTATUS(status) == 0);
    return WIFSIGNALED(status);
}

[[noreturn]] void KillSelf() {
    kill(getpid(), SIGKILL);
    std::abort();
}

/// Copies again, and looks at what stands there then. Where the user skips the files that are there
/// already, the leftovers beside them go all the same.
void CopyAgain(const JobFolders& folders, Disk disk, OverwritePrompt::Answer answer) {
    RealJob job(folders);
    job.overwriteAnswer = answer;
    {
        const HookedSystemCalls hooked([disk](SystemCall& call) { return RefusalOf(call, disk); });
        job.Press();
    }
    EXPECT_EQ(job.messages.Texts(), QStringList(u"Copy completed!"_s));
    if (answer == OverwritePrompt::Replace) {
        folders.ExpectAllCopied();
        return;
    }
    folders.ExpectWholeFilesOnly(Leftovers::None);
    EXPECT_FALSE(IsThere(folders.Destination + u"/tmp"_s));
    for (const auto& [path, bytes] : folders.Wanted) {
        EXPECT_TRUE(IsThere(path)) << qPrintable(path);
    }
}

class Kill : public testing::TestWithParam<Disk> {
protected:
    /// Kills the job before its `nth` call; or, where that writes, after half of it was written.
    void KillAtCall(int nth, bool inTheMiddle) {
        SCOPED_TRACE(testing::Message() << "call " << nth);
        const SweptFolders folders;
        const QStringList device = folders.DeviceState();
        int calls = 0;
        const bool wasKilled = WasKilled(StartJob(folders, [&](SystemCall& call) {
            ++calls;
            if (calls == nth && inTheMiddle && call.Size > 1) {
                call.Size /= 2;
            } else if (calls == nth || calls == nth + 1) {
                KillSelf();
            }
            return RefusalOf(call, GetParam());
        }));
        EXPECT_TRUE(wasKilled);
        EXPECT_EQ(folders.DeviceState(), device);
        folders.ExpectWholeFilesOnly(Leftovers::Any);
        CopyAgain(folders, GetParam(),
                  nth % 2 == 0 ? OverwritePrompt::Replace : OverwritePrompt::Skip);
    }
};

/// A large file, whose copying takes a while, between small ones.
class LargeFolders : public JobFolders {
public:
    explicit LargeFolders(const QString& work) : JobFolders(work) {
        AddTrack("Abba", "Arrival", "First", Pattern(40000));
        AddTrack("Abba", "Live", "Film", QByteArray(50000001, 'f'));
        AddTrack("Abba", "Live", "Song", QByteArray(5000000, 's'));
        AddTrack("Beck", "Guero", "Last", Pattern(40000));
    }

    /// An empty destination, or one where some of the files are there already.
    void Reset(bool withOldFiles) {
        QDir(Destination).removeRecursively();
        MakeFolder(Destination);
        Old.clear();
        if (withOldFiles) {
            AddOld(Destination + u"/Abba/Live/Film.mp3"_s, "old film");
            AddOld(Destination + u"/Abba/Live/Song.mp3"_s, QByteArray(6000000, 'o'));
            AddOld(Destination + u"/Beck/Guero/Last.mp3"_s, "old last");
        }
    }
};

/// The number that an environment variable holds.
unsigned NumberFrom(const char* variable, unsigned otherwise) {
    return qEnvironmentVariableIsSet(variable)
               ? static_cast<unsigned>(qEnvironmentVariableIntValue(variable))
               : otherwise;
}

microseconds SinceStart(Clock::time_point start) {
    return std::chrono::duration_cast<microseconds>(Clock::now() - start);
}

} // namespace

TEST_P(Kill, BeforeAnyCallToTheSystemHarmsNothing) {
    const int calls = CallsOfJob(GetParam());
    ASSERT_GT(calls, 100);
    for (int nth = 1; nth <= calls; ++nth) {
        KillAtCall(nth, false);
    }
    RecordProperty("kills", calls);
}

TEST_P(Kill, InTheMiddleOfAnyWriteHarmsNothing) {
    const int calls = CallsOfJob(GetParam());
    std::vector<int> writes;
    {
        const SweptFolders folders;
        RealJob job(folders);
        int nth = 0;
        const HookedSystemCalls hooked([&](SystemCall& call) {
            ++nth;
            if (call.Size > 1 && Text(call.Name) != u"read"_s) {
                writes.push_back(nth);
            }
            return RefusalOf(call, GetParam());
        });
        job.Press();
    }
    ASSERT_GE(writes.size(), 7U); // one for each file at least
    ASSERT_LE(writes.back(), calls);
    for (const int nth : writes) {
        KillAtCall(nth, true);
    }
    RecordProperty("kills", static_cast<int>(writes.size()));
}

// SONGLIFT_KILLS says how often, SONGLIFT_SEED repeats a run.
TEST(KillWhileCopying, AtAnyMomentOfAJobWithALargeFileHarmsNothing) {
    const unsigned wanted = NumberFrom("SONGLIFT_KILLS", 5);
    const unsigned seed = NumberFrom("SONGLIFT_SEED", std::random_device()());
    std::cout << wanted << " kills, SONGLIFT_SEED=" << seed << '\n';
    const QTemporaryDir work(FolderInMemory());
    LargeFolders folders(work.path());
    const QStringList device = folders.DeviceState();
    folders.Reset(false);
    const auto start = Clock::now();
    ASSERT_FALSE(WasKilled(StartJob(folders, nullptr)));
    const microseconds whole = SinceStart(start);
    folders.ExpectAllCopied();

    std::mt19937 random(seed);
    unsigned kills = 0;
    for (unsigned round = 0; round < 4 * wanted && kills < wanted && !testing::Test::HasFailure();
         ++round) {
        SCOPED_TRACE(testing::Message() << "round " << round);
        const Disk disk = round % 2 == 0 ? Disk::WithNamelessFiles : Disk::WithoutNamelessFiles;
        folders.Reset(round % 4 >= 2);
        const pid_t child =
            StartJob(folders, [disk](SystemCall& call) { return RefusalOf(call, disk); });
        std::this_thread::sleep_for(whole * (random() % 1000) / 1000);
        kill(child, SIGKILL);
        kills += WasKilled(child) ? 1 : 0;
        EXPECT_EQ(folders.DeviceState(), device);
        folders.ExpectWholeFilesOnly(Leftovers::Any);
        CopyAgain(folders, disk,
                  random() % 2 == 0 ? OverwritePrompt::Replace : OverwritePrompt::Skip);
    }
    EXPECT_EQ(kills, wanted);
    RecordProperty("kills", static_cast<int>(kills));
}

INSTANTIATE_TEST_SUITE_P(Disks, Kill,
                         testing::Values(Disk::WithNamelessFiles, Disk::WithoutNamelessFiles),
                         [](const auto& disk) {
                             return disk.param == Disk::WithNamelessFiles ? "WithNamelessFiles"
                                                                          : "WithoutNamelessFiles";
                         });
