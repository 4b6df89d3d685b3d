#include "platform/ThreadWorker.h"

#include "platform/ScopeGuard.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <utility>

namespace {

using namespace std::chrono_literals;

/// Short enough that a window which is served between two calls never seems to hang.
constexpr auto BetweenCalls = 10ms;
/// Work that obeys a stop ends sooner. The window is not served meanwhile, so it must be too short
/// to notice.
constexpr auto MomentToEnd = 80ms;

} // namespace

struct ThreadWorker::Job {
    std::function<void()> Work;
    std::exception_ptr Failure = {};
    bool IsDone = false;
};

struct ThreadWorker::Queue {
    std::mutex Mutex;
    std::condition_variable HasWork;
    std::condition_variable HasEnded;
    std::deque<std::shared_ptr<Job>> Jobs;
    /// No more work will be added.
    bool IsClosed = false;
    bool ThreadHasEnded = false;

    void Run();
};

/// Runs on the thread: does one job after the other until the queue is closed and empty.
void ThreadWorker::Queue::Run() {
    std::unique_lock lock(Mutex);
    while (true) {
        HasWork.wait(lock, [this] { return IsClosed || !Jobs.empty(); });
        if (Jobs.empty()) {
            break;
        }
        const std::shared_ptr<Job> job = std::move(Jobs.front());
        Jobs.pop_front();
        lock.unlock();
        try {
            job->Work();
        } catch (...) {
            job->Failure = std::current_exception();
        }
        // On this thread, since releasing what the work holds (a file, say) can take long as well.
        job->Work = nullptr;
        lock.lock();
        job->IsDone = true;
        // Without the lock, which the thread that wakes needs at once.
        lock.unlock();
        HasEnded.notify_all();
        lock.lock();
    }
    ThreadHasEnded = true;
    HasEnded.notify_all();
}

ThreadWorker::~ThreadWorker() {
    if (!m_queue) {
        return;
    }
    std::unique_lock lock(m_queue->Mutex);
    m_queue->IsClosed = true;
    m_queue->HasWork.notify_all();
    const bool hasEnded =
        m_queue->HasEnded.wait_for(lock, MomentToEnd, [this] { return m_queue->ThreadHasEnded; });
    lock.unlock();
    if (hasEnded) {
        m_thread.join();
    } else {
        m_thread.detach();
    }
}

bool ThreadWorker::Do(std::function<void()> work, const std::function<bool()>& mayGoOn) {
    const auto job = std::make_shared<Job>(Job{std::move(work)});
    Start(job);
    ScopeGuard abandoned([this] { GiveUp(); });
    const std::shared_ptr<Queue> queue = m_queue;
    const auto isDone = [&job] { return job->IsDone; };
    std::unique_lock lock(queue->Mutex);
    while (!queue->HasEnded.wait_for(lock, BetweenCalls, isDone)) {
        lock.unlock();
        const bool goesOn = mayGoOn();
        lock.lock();
        if (!goesOn && !queue->HasEnded.wait_for(lock, MomentToEnd, isDone)) {
            return false;
        }
    }
    lock.unlock();
    abandoned.Dismiss();
    if (job->Failure) {
        std::rethrow_exception(job->Failure);
    }
    return true;
}

bool ThreadWorker::DoSoon(std::function<void()> work) {
    return ThreadWorker().Do(std::move(work), [] { return false; });
}

void ThreadWorker::DoLater(std::function<void()> work) {
    Start(std::make_shared<Job>(Job{std::move(work)}));
}

void ThreadWorker::Start(std::shared_ptr<Job> job) {
    if (!m_queue) {
        const auto queue = std::make_shared<Queue>();
        m_thread = std::thread([queue] { queue->Run(); });
        m_queue = queue;
    }
    {
        const std::lock_guard lock(m_queue->Mutex);
        m_queue->Jobs.push_back(std::move(job));
    }
    m_queue->HasWork.notify_all();
}

/// Leaves the thread to the work that hangs; it ends once that returns.
void ThreadWorker::GiveUp() {
    {
        const std::lock_guard lock(m_queue->Mutex);
        m_queue->IsClosed = true;
        m_queue->HasWork.notify_all();
    }
    m_thread.detach();
    m_queue.reset();
}
