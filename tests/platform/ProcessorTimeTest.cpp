#include "platform/ProcessorTime.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace {

/// Works for that much processor time of its thread.
void Work(double seconds) {
    const double start = ThreadProcessorSeconds();
    while (ThreadProcessorSeconds() - start < seconds) {
    }
}

} // namespace

TEST(ThreadProcessorSeconds, CountsWhatThisThreadDoes) {
    const auto start = std::chrono::steady_clock::now();
    Work(0.05);
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    EXPECT_GE(passed.count(), 0.045);
}

TEST(ThreadProcessorSeconds, LeavesOutWhatOtherThreadsDo) {
    const double start = ThreadProcessorSeconds();
    std::thread(Work, 0.2).join();
    EXPECT_LT(ThreadProcessorSeconds() - start, 0.1);
}

TEST(ThreadProcessorSeconds, LeavesOutWaiting) {
    const double start = ThreadProcessorSeconds();
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_LT(ThreadProcessorSeconds() - start, 0.1);
}
