#include "platform/qt/QtEventLoop.h"

#include "platform/qt/HeldInput.h"

#include <QCoreApplication>

#include <algorithm>

void QtEventLoop::Yield() {
    if (MillisecondsToYield() == 0) {
        QCoreApplication::processEvents();
        m_sinceYield.start();
    }
}

bool QtEventLoop::YieldHoldingInput() {
    if (MillisecondsToYield() > 0) {
        return true;
    }
    const bool goesOn = HeldInput::ProcessEvents();
    m_sinceYield.start();
    return goesOn;
}

qint64 QtEventLoop::MillisecondsToYield() const {
    // Handling events costs more than copying a small file, and nobody acts a hundred times a
    // second.
    constexpr qint64 pauseMilliseconds = 10;
    return m_sinceYield.isValid() ? std::max(pauseMilliseconds - m_sinceYield.elapsed(), qint64{0})
                                  : 0;
}
