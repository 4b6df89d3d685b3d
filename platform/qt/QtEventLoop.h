#pragma once

#include "platform/EventLoop.h"

#include <QElapsedTimer>

class QtEventLoop : public EventLoop {
public:
    /// Asks the system about every 10 ms; calls in between do nothing.
    void Yield() override;

private:
    QElapsedTimer m_sinceYield;
};
