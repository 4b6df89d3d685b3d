#pragma once

#include "platform/qt/QtControl.h"

#include <QPushButton>

/// A push button. Enter presses it while it has the focus.
class QtButtonControl : public QtControl<ButtonControl, QPushButton> {
public:
    QtButtonControl(QWidget* parent, const QString& name, const QString& caption = {});

    QString Caption() const override { return Widget()->text(); }
    void SetCaption(const QString& caption) override { Widget()->setText(caption); }
    bool Default() const override { return Widget()->isDefault(); }
    /// There is one default button in a window: the last one set.
    void SetDefault(bool isDefault) override;

    /// Makes it look like the one button of its window that matters. Unlike the default button, it
    /// is pressed by nothing else than before.
    void MakePrimary();

private:
    class PushButton;
    PushButton* m_button;

    QtButtonControl(PushButton* button, const QString& name);
};
