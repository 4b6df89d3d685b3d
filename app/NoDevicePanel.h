#pragma once

#include "platform/qt/QtControl.h"

#include <QLineEdit>
#include <QScrollArea>

/// Tells, in the place of the lists, how an iPod gets into the window. Hidden at first.
class NoDevicePanel : public QtControl<Control, QScrollArea> {
public:
    NoDevicePanel(QWidget* parent, const QString& name);

    /// The command that mounts an iPod, to be selected and copied.
    QLineEdit* Command() const { return m_command; }

private:
    QLineEdit* m_command;
};
