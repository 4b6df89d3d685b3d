#include "app/Application.h"

#include "app/FocusRing.h"
#include "platform/ScopeGuard.h"
#include "platform/qt/BoxPalette.h"
#include "platform/qt/SessionEnd.h"

#include <QStyle>

#include <exception>

bool TellFailure(Messages& messages, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::exception& exception) {
        ShowError(messages, ErrorOf(exception));
    }
    return false;
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    if (style()->objectName() == QLatin1String("fusion")) {
        setStyle(new FocusRing);
    }
    setPalette(WithReadableSelection(palette()));
}

bool Application::notify(QObject* receiver, QEvent* event) {
    bool handled = false;
    const auto handle = [&] { handled = QApplication::notify(receiver, event); };
    if (MessageBoxes == nullptr) {
        handle();
    } else {
        // By reference: a copy of it would take memory, and nobody would tell when there is none.
        TellFailure(*MessageBoxes, std::ref(handle));
    }
    return handled;
}

bool Application::event(QEvent* event) {
    if (event->type() != QEvent::Quit) {
        return QApplication::event(event);
    }
    ScopeGuard over([] { SessionEnd::SetNow(false); });
    SessionEnd::SetNow(true);
    return QApplication::event(event);
}
