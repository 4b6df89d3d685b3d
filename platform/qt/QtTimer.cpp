#include "platform/qt/QtTimer.h"

#include "platform/qt/QtFrames.h"

QtTimer::QtTimer(int milliseconds) {
    m_timer.setInterval(milliseconds);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { QtFrames::Raise(Timer); });
}

void QtTimer::SetEnabled(bool enabled) {
    if (enabled == m_timer.isActive()) {
        return;
    }
    if (enabled) {
        m_timer.start();
    } else {
        m_timer.stop();
    }
}
