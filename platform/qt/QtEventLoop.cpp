#include "platform/qt/QtEventLoop.h"

#include <QCoreApplication>

void QtEventLoop::Yield() {
    // Asking costs more than a small file does, and nobody acts a hundred times a second.
    constexpr qint64 pauseMilliseconds = 10;
    if (m_sinceYield.isValid() && m_sinceYield.elapsed() < pauseMilliseconds) {
        return;
    }
    QCoreApplication::processEvents();
    m_sinceYield.start();
}
