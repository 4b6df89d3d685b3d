#include "app/Application.h"

#include "app/FocusRing.h"
#include "platform/ScopeGuard.h"
#include "platform/qt/BoxPalette.h"
#include "platform/qt/QtFrames.h"
#include "platform/qt/SessionEnd.h"

#include <QStyle>

#include <cstdio>
#include <exception>

using namespace Qt::StringLiterals;

namespace {

void Tell(Messages& messages, const std::exception& failure) {
    try {
        ShowError(messages, ErrorOf(failure));
    } catch (const std::exception& second) {
        // Memory has most likely run out, so the second failure would not be shown either.
        std::fprintf(stderr, "songlift: %s (not shown: %s)\n", failure.what(), second.what());
    }
}

} // namespace

bool TellFailure(Messages& messages, const std::function<void()>& work) {
    try {
        work();
        return true;
    } catch (const std::exception& failure) {
        Tell(messages, failure);
        return false;
    }
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    if (style()->objectName() == u"fusion"_s) {
        setStyle(new FocusRing);
    }
    setPalette(WithReadableSelection(palette()));
    QtFrames::SetTeller([this](const std::exception& failure) {
        if (MessageBoxes == nullptr) {
            throw;
        }
        Tell(*MessageBoxes, failure);
    });
}

Application::~Application() {
    QtFrames::SetTeller({});
}

bool Application::event(QEvent* event) {
    if (event->type() != QEvent::Quit) {
        return QApplication::event(event);
    }
    ScopeGuard over([before = SessionEnd::IsNow()] { SessionEnd::SetNow(before); });
    SessionEnd::SetNow(true);
    return QApplication::event(event);
}
