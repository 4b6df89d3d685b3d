#pragma once

#include "platform/Messages.h"

#include <QPointer>
#include <QWidget>

/// Message boxes, shown by Qt and not by the desktop, so that their texts are what was asked for.
/// At a session's end none is shown, since it would wait for ever and the session with it: the most
/// careful answer stands.
class QtMessages : public Messages {
public:
    /// The boxes stand over `owner`.
    explicit QtMessages(QWidget* owner) : m_owner(owner) {}

    MessageAnswer Show(const QString& text, const QString& title, MessageButtons buttons,
                       MessageIcon icon) override;

private:
    QPointer<QWidget> m_owner;
};
