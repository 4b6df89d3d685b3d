#pragma once

#include "platform/Messages.h"

#include <QApplication>

#include <functional>

/// Runs `work` and tells the user what it fails with, or the log where even that fails. False when
/// it failed.
bool TellFailure(Messages& messages, const std::function<void()>& work);

/// The program's event loop. A handler that fails unexpectedly ends with a message, and the program
/// goes on. There is one of these, as of any QApplication.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);
    ~Application() override;

    /// Where failures are told; null until the window that shows them is built.
    Messages* MessageBoxes = nullptr;

protected:
    bool event(QEvent* event) override;
};
