#pragma once

#include "platform/qt/QtControl.h"

#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>

/// Tells, in the place of the lists, how an iPod gets into the window. Hidden at first.
class NoDevicePanel : public QtControl<NoDeviceControl, QScrollArea> {
public:
    NoDevicePanel(QWidget* parent, const QString& name);

    void Tell(NoDeviceReason reason) override;

    /// The command that mounts an iPod, to be selected and copied.
    QLineEdit* Command() const { return m_command; }

private:
    class TextWithPicture;
    TextWithPicture* m_text;
    QLabel* m_title;
    QLabel* m_whatToDo;
    QLineEdit* m_command;
    /// What stands there for iPods that the desktop does not mount: the command, and texts around.
    QList<QWidget*> m_mounting;

    NoDevicePanel(TextWithPicture* text, const QString& name);
};
