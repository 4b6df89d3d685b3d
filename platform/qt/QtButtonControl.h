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
    /// Makes it the window's default button, which replaces the one before, or no default button
    /// any more.
    void SetDefault(bool isDefault) override;

    /// Makes it look like the most important button of its window. Unlike SetDefault, this does not
    /// change what presses it.
    void MakePrimary();

private:
    class PushButton;
    PushButton* m_button;

    QtButtonControl(PushButton* button, const QString& name);
};
