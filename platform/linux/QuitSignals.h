#pragma once

#include "platform/linux/FileDescriptor.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>

/// Hears the signals that ask a program to end (SIGTERM, SIGINT, SIGHUP) as events, as long as it
/// lives. One that the program was started to ignore stays ignored.
class QuitSignals {
public:
    /// Calls `asked` from the event loop whenever such a signal has come.
    explicit QuitSignals(std::function<void()> asked);
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

private:
    /// A pipe: a signal handler may do next to nothing, but it may write a byte.
    FileDescriptor m_readEnd, m_writeEnd;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::function<void()> m_asked;

    void Hear();
};
