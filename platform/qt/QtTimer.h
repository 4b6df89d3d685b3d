#pragma once

#include "platform/Controls.h"

#include <QTimer>

/// A timer that raises its event every `milliseconds` while it is enabled; disabled at first.
class QtTimer : public TimerControl {
public:
    explicit QtTimer(int milliseconds);

    bool Enabled() const override { return m_timer.isActive(); }
    void SetEnabled(bool enabled) override;

private:
    QTimer m_timer;
};
