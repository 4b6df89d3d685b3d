#pragma once

#include "platform/Messages.h"

#include <QPointer>
#include <QWidget>

/// Message boxes, shown by Qt and not by the desktop, so that their texts stay as they are. At the
/// end of a session none is shown, since the box and with it the session would wait for ever: the
/// most careful answer is taken.
class QtMessages : public Messages {
public:
    /// The boxes are shown over `owner`.
    explicit QtMessages(QWidget* owner) : m_owner(owner) {}

    MessageAnswer Show(const QString& text, const QString& title, MessageButtons buttons,
                       MessageIcon icon) override;

private:
    QPointer<QWidget> m_owner;
};
