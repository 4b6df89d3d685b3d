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

    /// The command that mounts an iPod, for the user to select and copy; hidden where there is
    /// none.
    QLineEdit* Command() const { return m_command; }

private:
    class TextWithPicture;
    TextWithPicture* m_text;
    QLabel* m_title;
    QLabel* m_whatToDo;
    QLineEdit* m_command;
    /// The texts before and behind the command, for iPods that do not appear by themselves.
    QList<QWidget*> m_connecting;

    NoDevicePanel(TextWithPicture* text, const QString& name);
};
