// One job after another on real files, in each of which another call to the system fails: whatever
// it is and whatever the user answers, no file is half written, none is lost, none is left out
// without a word, and the window comes back to life.

#include "tests/faults/SweptFolders.h"
#include "tests/platform/LinuxFixture.h"

#include <cerrno>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

class SystemCallSweep : public testing::TestWithParam<Disk> {
protected:
    /// Runs the job once for each of its calls and each error.
    void Sweep(Policy policy, const std::vector<int>& errors);

    int m_completed = 0;
    int m_injected = 0;

private:
    void RunWithFailure(Policy policy, int nth, int error);
};

/// A call without which what is left over cannot be found, told from what another copy is writing,
/// or removed.
bool IsPartOfCleaning(const SystemCall& call, const QString& place, const QString& destination) {
    const QString name = Text(call.Name);
    if (name == u"unlinkat"_s) {
        return true;
    }
    const bool isLooking = name.startsWith(u"open"_s) || name.startsWith(u"fstat"_s) ||
                           name == u"statx"_s || name == u"fdopendir"_s || name == u"readdir"_s;
    return isLooking &&
           (place == destination + u"/"_s || place.startsWith(destination + u"/tmp"_s) ||
            place.endsWith(u"/.songlift.part"_s));
}

void SystemCallSweep::RunWithFailure(Policy policy, int nth, int error) {
    const SweptFolders folders;
    const QStringList device = folders.DeviceState();
    RealJob job(folders);
    job.AnswerBy(policy);
    int calls = 0;
    QString struck;
    bool mayHaveLeftovers = false;
    {
        const HookedSystemCalls hooked([&](SystemCall& call) {
            if (++calls == nth) {
                const QString place = PlaceOf(call);
                struck = Text(call.Name) + u" "_s + place;
                mayHaveLeftovers = IsPartOfCleaning(call, place, folders.Destination);
                return error;
            }
            return RefusalOf(call, GetParam());
        });
        job.Press();
    }
    SCOPED_TRACE(testing::Message()
                 << "call " << nth << " (" << qPrintable(struck) << "): " << std::strerror(error)
                 << "; the user was told: " << qPrintable(job.messages.Texts().join(u" | "_s)));
    ASSERT_FALSE(struck.isEmpty());
    ++m_injected;
    m_completed += job.IsCompleted() ? 1 : 0;
    EXPECT_EQ(folders.DeviceState(), device);
    const Leftovers untouched = job.IsCompleted() ? Leftovers::None : Leftovers::Earlier;
    folders.ExpectWholeFilesOnly(mayHaveLeftovers ? Leftovers::Any : untouched);
    job.ExpectIdle();
    EXPECT_FALSE(job.messages.Shown.empty());
    if (job.messages.Texts() == QStringList(u"Copy completed!"_s) ||
        (policy == Policy::Retry && job.IsCompleted())) {
        for (const auto& [path, bytes] : folders.Wanted) {
            EXPECT_EQ(ReadFile(path), bytes) << qPrintable(path);
        }
    }
    if (!job.IsCompleted()) {
        const ShownMessage& last = job.messages.Shown.back();
        EXPECT_TRUE(last.Title == u"Error"_s || last.Text == u"Invalid destination path."_s);
    }
}

void SystemCallSweep::Sweep(Policy policy, const std::vector<int>& errors) {
    const int calls = CallsOfJob(GetParam());
    ASSERT_GT(calls, 100);
    for (const int error : errors) {
        for (int nth = 1; nth <= calls; ++nth) {
            RunWithFailure(policy, nth, error);
        }
    }
    RecordProperty("injected", m_injected);
    RecordProperty("completed", m_completed);
}

} // namespace

TEST_P(SystemCallSweep, RetryCompletesTheJobOrTheUserIsToldWhyNot) {
    Sweep(Policy::Retry, {ENOSPC, EACCES, EIO});
    EXPECT_GT(m_completed, m_injected / 2);
}

TEST_P(SystemCallSweep, IgnoreLeavesNothingHalfDone) {
    Sweep(Policy::Ignore, {EACCES});
    EXPECT_GT(m_completed, m_injected / 2);
}

TEST_P(SystemCallSweep, StoppingLeavesNothingHalfDone) {
    Sweep(Policy::Stop, {ENOSPC, EIO});
    EXPECT_LT(m_completed, m_injected);
}

INSTANTIATE_TEST_SUITE_P(Disks, SystemCallSweep,
                         testing::Values(Disk::WithNamelessFiles, Disk::WithoutNamelessFiles),
                         [](const auto& disk) {
                             return disk.param == Disk::WithNamelessFiles ? "WithNamelessFiles"
                                                                          : "WithoutNamelessFiles";
                         });
