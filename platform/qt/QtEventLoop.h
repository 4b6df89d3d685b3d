#pragma once

#include "platform/EventLoop.h"

#include <QElapsedTimer>

/// The event loop of the user interface's thread.
class QtEventLoop : public EventLoop {
public:
    void BeginWork() override { m_sinceYield.start(); }
    /// Handles events about every 10 ms; calls in between do nothing.
    void Yield() override;
    qint64 MillisecondsToYield() const override;
    bool YieldHoldingInput() override;

private:
    QElapsedTimer m_sinceYield;
};
