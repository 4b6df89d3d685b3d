#include "platform/qt/BusyPointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace BusyPointer {

namespace {

int works = 0;
int questions = 0;

/// Adds `change` to one of the two counters, and shows the pointer that follows from both.
void Count(int& number, int change) {
    const auto isShown = [] { return works > 0 && questions == 0; };
    const bool wasShown = isShown();
    number += change;
    if (isShown() == wasShown) {
        return;
    }
    if (wasShown) {
        QGuiApplication::restoreOverrideCursor();
    } else {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

} // namespace

void Begin() {
    Count(works, 1);
}

void End() {
    Count(works, -1);
}

Lifted::Lifted() {
    Count(questions, 1);
}

Lifted::~Lifted() {
    Count(questions, -1);
}

} // namespace BusyPointer
