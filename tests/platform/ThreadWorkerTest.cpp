#include "platform/ThreadWorker.h"

#include "platform/RuntimeError.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <thread>

namespace {

using namespace std::chrono_literals;

bool GoOn() {
    return true;
}

bool Stop() {
    return false;
}

/// Work that hangs until the test lets it come back.
struct Hanging {
    std::promise<void> ComesBack;
    std::promise<void> HasEnded;

    static std::function<void()> WorkOf(const std::shared_ptr<Hanging>& hanging) {
        return [hanging] {
            hanging->ComesBack.get_future().wait();
            hanging->HasEnded.set_value();
        };
    }
};

TEST(ThreadWorker, WorkIsDoneOnAnotherThreadAndWhatItThrowsReachesTheCaller) {
    ThreadWorker worker;
    std::thread::id thread;

    EXPECT_TRUE(worker.Do([&] { thread = std::this_thread::get_id(); }, GoOn));
    EXPECT_NE(thread, std::this_thread::get_id());

    const auto failing = [] { throw RuntimeError(ErrorNumber::DeviceIOError); };
    EXPECT_THROW(worker.Do(failing, GoOn), RuntimeError);
    EXPECT_TRUE(worker.Do([] {}, GoOn));
}

TEST(ThreadWorker, OneThreadDoesAllWorkThatEnds) {
    static thread_local int works = 0;
    ThreadWorker worker;
    int last = 0;
    for (int i = 0; i < 3; ++i) {
        worker.Do([&] { last = ++works; }, GoOn);
    }
    EXPECT_EQ(last, 3);
}

TEST(ThreadWorker, TheCallerIsCalledAgainAndAgainWhileWorkLasts) {
    ThreadWorker worker;
    const auto slow = std::make_shared<Hanging>();
    int calls = 0;
    const auto mayGoOn = [&] {
        if (++calls == 1) {
            slow->ComesBack.set_value();
        }
        return true;
    };

    EXPECT_TRUE(worker.Do(Hanging::WorkOf(slow), mayGoOn));
    EXPECT_GE(calls, 1);
}

TEST(ThreadWorker, WorkThatHangsIsGivenUpOnRequestAndDoesNotBlockOtherWork) {
    const auto hanging = std::make_shared<Hanging>();
    {
        ThreadWorker worker;
        EXPECT_FALSE(worker.Do(Hanging::WorkOf(hanging), Stop));
        EXPECT_TRUE(worker.Do([] {}, GoOn));
    }
    hanging->ComesBack.set_value();
    EXPECT_EQ(hanging->HasEnded.get_future().wait_for(10s), std::future_status::ready);
}

TEST(ThreadWorker, AFailureOfTheCallerGivesUpTheWorkAndPassesOn) {
    ThreadWorker worker;
    const auto hanging = std::make_shared<Hanging>();
    const auto failing = []() -> bool { throw RuntimeError(ErrorNumber::OutOfMemory); };

    EXPECT_THROW(worker.Do(Hanging::WorkOf(hanging), failing), RuntimeError);
    EXPECT_TRUE(worker.Do([] {}, GoOn));
    hanging->ComesBack.set_value();
    EXPECT_EQ(hanging->HasEnded.get_future().wait_for(10s), std::future_status::ready);
}

TEST(ThreadWorker, LaterWorkIsDoneInTurnAndTheDestructorDoesNotWaitForWorkThatHangs) {
    const auto hanging = std::make_shared<Hanging>();
    {
        ThreadWorker worker;
        bool isDone = false;
        worker.DoLater([&] { isDone = true; });
        EXPECT_TRUE(worker.Do([&] { EXPECT_TRUE(isDone); }, GoOn));
        worker.DoLater(Hanging::WorkOf(hanging));
    }
    hanging->ComesBack.set_value();
    EXPECT_EQ(hanging->HasEnded.get_future().wait_for(10s), std::future_status::ready);
}

} // namespace
