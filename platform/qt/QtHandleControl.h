#pragma once

#include "platform/qt/QtControl.h"

/// A splitter bar. It keeps the mouse from a press to the release, wherever the pointer goes.
class QtHandleControl : public QtControl<HandleControl, QWidget> {
public:
    QtHandleControl(QWidget* parent, const QString& name);

    SystemColor BackColor() const override { return m_color; }
    void SetBackColor(SystemColor color) override;

private:
    class SplitterBar;

    QtHandleControl(SplitterBar* bar, const QString& name);

    SystemColor m_color = SystemColor::ButtonFace;
};
