#pragma once

#include <QObject>

#include <functional>

/// Hears that the user signs out or the system shuts down, as long as it lives. Qt itself would
/// close the windows only after the system has stopped waiting.
class QuitRequests {
public:
    /// Calls `asked`; once that returns, the system may end the program at any moment.
    explicit QuitRequests(std::function<void()> asked);

private:
    QObject m_receiver;
};
