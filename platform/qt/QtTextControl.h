#pragma once

#include "platform/qt/QtControl.h"

#include <QLineEdit>

/// A box for one line of text. It has the focus, as far as its events are concerned, until another
/// control of its window gets it; a menu or another window only borrows it.
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
    /// Ends what this control listens to before the rest of it goes.
    QObject m_listener;

    void FocusMovedTo(const QWidget* widget);
};
