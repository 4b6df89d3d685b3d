#pragma once

#include "platform/qt/QtControl.h"

#include <QLineEdit>

/// A box for one line of text. For GotFocus and LostFocus, it has the focus until another control
/// of its window gets it; a menu or another window only borrows it.
class QtTextControl : public QtControl<TextControl, QLineEdit> {
public:
    QtTextControl(QWidget* parent, const QString& name);

    QString Text() const override { return Widget()->text(); }
    void SetText(const QString& text) override;
    void Select(int start, int length) override;
    void CompletePaths() override;

private:
    bool m_hasFocus = false;
    bool m_setting = false;
    /// The last member, so that it ends all connections before the other members go.
    QObject m_listener;

    void FocusMovedTo(const QWidget* widget);
};
