#include "platform/qt/QtEventLoop.h"

#include "platform/qt/HeldInput.h"

#include <QCoreApplication>

void QtEventLoop::Yield() {
    if (IsDue()) {
        QCoreApplication::processEvents();
        m_sinceYield.start();
    }
}

bool QtEventLoop::YieldHoldingInput() {
    if (!IsDue()) {
        return true;
    }
    const bool goesOn = HeldInput::ProcessEvents();
    m_sinceYield.start();
    return goesOn;
}

bool QtEventLoop::IsDue() const {
    // Handling events costs more than copying a small file, and nobody acts a hundred times a
    // second.
    constexpr qint64 pauseMilliseconds = 10;
    return !m_sinceYield.isValid() || m_sinceYield.elapsed() >= pauseMilliseconds;
}
