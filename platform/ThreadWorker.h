#pragma once

#include "platform/Worker.h"

#include <memory>
#include <thread>

/// A Worker with one thread, started when it is first needed. Work that was given up keeps the
/// thread, and later work gets a new one. A QThreadPool would wait for such work when the program
/// ends.
class ThreadWorker : public Worker {
public:
    ThreadWorker() = default;
    ThreadWorker(const ThreadWorker&) = delete;
    ThreadWorker& operator=(const ThreadWorker&) = delete;
    /// Waits a moment for work that is still going on, then leaves it to its thread.
    ~ThreadWorker() override;

    bool Do(std::function<void()> work, const std::function<bool()>& mayGoOn) override;
    void DoLater(std::function<void()> work) override;
    /// For the window's thread, which has no time to wait: does `work` on a thread of its own.
    /// False when that takes more than a moment; then the thread goes on with it alone.
    static bool DoSoon(std::function<void()> work);

private:
    struct Job;
    struct Queue;

    void Start(std::shared_ptr<Job> job);
    void GiveUp();

    /// Shared with the thread, which outlives this object if it hangs.
    std::shared_ptr<Queue> m_queue;
    std::thread m_thread;
};
