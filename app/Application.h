#pragma once

#include "platform/Messages.h"

#include <QApplication>

#include <functional>

/// Runs `work`. If it fails, tells the user why (or the log, where even that fails) and returns
/// false.
bool TellFailure(Messages& messages, const std::function<void()>& work);

/// The program's event loop. A handler that fails unexpectedly ends with a message, and the program
/// goes on. There can be only one, as of any QApplication.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);
    ~Application() override;

    /// Where failures are shown; null until the window that shows them is built.
    Messages* MessageBoxes = nullptr;

protected:
    bool event(QEvent* event) override;
};
