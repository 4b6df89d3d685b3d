#pragma once

#include <QByteArray>

#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>

/// Which of the attached folders exist. Each is asked for on a thread of its own, and never while
/// an earlier answer is still due. May be used by several threads.
class AttachedFolders {
public:
    /// Waits a moment for a disk that hangs, and longer where it was never asked for; then the last
    /// answer counts, at first false.
    bool Exists(const QByteArray& path);

private:
    struct Answer {
        std::mutex Mutex;
        std::condition_variable Given;
        bool IsDue = false;
        /// Until when it is waited for.
        std::chrono::steady_clock::time_point Until;
        bool Exists = false;
    };

    std::mutex m_mutex;
    /// Shared with the threads, which outlive this object if they hang.
    std::map<QByteArray, std::shared_ptr<Answer>> m_answers;
};
