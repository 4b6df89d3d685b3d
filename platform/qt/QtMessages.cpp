#include "platform/qt/QtMessages.h"

#include "platform/qt/BusyPointer.h"
#include "platform/qt/ControlWidget.h"
#include "platform/qt/SessionEnd.h"
#include "platform/qt/ShownText.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Button {
    MessageAnswer Answer;
    QMessageBox::StandardButton Standard;
    const char* Caption;
};

constexpr Button OK = {MessageAnswer::OK, QMessageBox::Ok, "&OK"};
constexpr Button Cancel = {MessageAnswer::Cancel, QMessageBox::Cancel, "&Cancel"};
constexpr Button Yes = {MessageAnswer::Yes, QMessageBox::Yes, "&Yes"};
constexpr Button No = {MessageAnswer::No, QMessageBox::No, "&No"};
constexpr Button Abort = {MessageAnswer::Abort, QMessageBox::Abort, "&Abort"};
constexpr Button Retry = {MessageAnswer::Retry, QMessageBox::Retry, "&Retry"};
constexpr Button Ignore = {MessageAnswer::Ignore, QMessageBox::Ignore, "&Ignore"};

/// The buttons of a set. Enter presses the first one; closing the box stands for the last one,
/// which is the most careful answer.
std::vector<Button> ButtonsOf(MessageButtons set) {
    switch (set) {
    case MessageButtons::OKCancel:
        return {OK, Cancel};
    case MessageButtons::YesNo:
        return {Yes, No};
    case MessageButtons::RetryCancel:
        return {Retry, Cancel};
    case MessageButtons::AbortRetryIgnore:
        return {Retry, Ignore, Abort};
    case MessageButtons::OK:
        break;
    }
    return {OK};
}

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Critical:
        break;
    }
    return QMessageBox::Critical;
}

/// Gives a long text enough width to be read, and gives screen readers the text without the
/// characters at which a line may be broken.
void FitText(QMessageBox& box, QString text) {
    constexpr qsizetype longText = 500;
    text.replace(u'\r', u'\n');
    if (QLabel* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s)) {
        label->setAccessibleName(text);
        if (text.size() > longText) {
            label->setMinimumWidth(box.screen()->availableSize().width() / 2);
        }
    }
}

} // namespace

MessageAnswer QtMessages::Show(const QString& text, const QString& title, MessageButtons buttons,
                               MessageIcon icon) {
    const std::vector<Button> set = ButtonsOf(buttons);
    if (SessionEnd::IsNow()) {
        return set.back().Answer;
    }
    const BusyPointer::Lifted lifted;
    QMessageBox box(ControlWidget::SeenOwner(m_owner));
    box.setObjectName(u"Message"_s);
    box.setWindowTitle(title);
    box.setWindowModality(Qt::ApplicationModal);
    box.setTextFormat(Qt::PlainText);
    box.setText(ShownText::Message(text));
    box.setIcon(IconOf(icon));
    FitText(box, text);
    for (const Button& button : set) {
        box.addButton(button.Standard)->setText(QString::fromLatin1(button.Caption));
    }
    box.setDefaultButton(set.front().Standard);
    box.setEscapeButton(set.back().Standard);

    const int pressed = box.exec();
    for (const Button& button : set) {
        if (button.Standard == pressed) {
            return button.Answer;
        }
    }
    return set.back().Answer;
}
