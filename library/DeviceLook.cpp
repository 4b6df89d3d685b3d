#include "library/DeviceLook.h"

#include "platform/ScopeGuard.h"

#include <atomic>

namespace {

/// In milliseconds. An old disk takes seconds to start.
constexpr qint64 Patience = 5000;
/// For how many milliseconds the window is not served at first. Nobody notices, and what the user
/// types during a quick poll is not lost.
constexpr qint64 Moment = 50;

} // namespace

/// Shared with the thread that asks.
struct DeviceLook::Question {
    std::atomic<bool> IsBeingAsked = false;
    bool Answer = false;
};

DeviceLook::DeviceLook(FileSystem& files, Worker& background, EventLoop& events)
    : m_files(files, background, background), m_events(events) {
    m_files.MayGoOn = [this] { return MayGoOn(); };
}

std::optional<bool> DeviceLook::FileExists(const QString& path) {
    m_windowWasClosed = false;
    std::shared_ptr<Question>& last = m_questions[path.left(2)];
    if (last && last->IsBeingAsked) {
        return std::nullopt;
    }
    const auto question = std::make_shared<Question>();
    last = question;
    m_clock.start();
    try {
        m_files.Do([question, path](FileSystem& files) {
            question->IsBeingAsked = true;
            const ScopeGuard asked([&question] { question->IsBeingAsked = false; });
            question->Answer = files.FileExists(path);
        });
    } catch (const OperationStopped&) {
        return std::nullopt;
    }
    return question->Answer;
}

bool DeviceLook::MayGoOn() {
    if (m_clock.elapsed() < Moment) {
        return true;
    }
    m_windowWasClosed = !m_events.YieldHoldingInput();
    return !m_windowWasClosed && m_clock.elapsed() < Patience;
}
