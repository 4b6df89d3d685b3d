#pragma once

#include "platform/qt/QtControl.h"

#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>

/// Stands in place of the lists and says how to attach an iPod. Hidden at first.
class NoDevicePanel : public QtControl<NoDeviceControl, QScrollArea> {
public:
    NoDevicePanel(QWidget* parent, const QString& name);

    void Tell(NoDeviceReason reason) override;

    /// The command that mounts an iPod, for the user to select and copy.
    QLineEdit* Command() const { return m_command; }

private:
    class TextWithPicture;
    TextWithPicture* m_text;
    QLabel* m_title;
    QLabel* m_whatToDo;
    QLineEdit* m_command;
    /// The part for iPods that the desktop does not mount: the command and the texts around it.
    QList<QWidget*> m_mounting;

    NoDevicePanel(TextWithPicture* text, const QString& name);
};
