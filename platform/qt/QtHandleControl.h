#pragma once

#include "platform/qt/QtControl.h"

/// A splitter bar. It has the mouse from a press until the release, wherever the pointer moves. A
/// QSplitter would place and size the lists by itself; here the rules of the layout do.
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
