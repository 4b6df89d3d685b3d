#pragma once

#include "platform/qt/QtControl.h"

class QtHandleControl : public QtControl<HandleControl, QWidget> {
public:
    QtHandleControl(QWidget* parent, const QString& name);

    SystemColor BackColor() const override { return m_color; }
    void SetBackColor(SystemColor color) override;

private:
    SystemColor m_color = SystemColor::ButtonFace;
};
