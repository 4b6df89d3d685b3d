#include "platform/qt/QtMessages.h"
#include "tests/window/QtInput.h"

#include <QAccessible>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

/// Boxes over a window, with a user who answers each of them.
class MessageTest : public testing::Test {
protected:
    using Act = std::function<void(QMessageBox&)>;

    QWidget window;
    QtMessages messages{&window};

    /// Shows a message and lets the user do `act` with the box, and closes it if it is still open.
    MessageAnswer Ask(const QString& text, MessageButtons buttons, const Act& act,
                      MessageIcon icon = MessageIcon::Question) {
        QTimer::singleShot(0, [act] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            EXPECT_TRUE(box->isModal());
            act(*box);
            box->close();
        });
        return messages.Show(text, u"Songlift"_s, buttons, icon);
    }

    static Act ByKey(Qt::Key key) {
        return [key](QMessageBox& box) {
            QTest::keyClick(&box, key);
            EXPECT_FALSE(box.isVisible());
        };
    }
    static Act ByButton(const QString& caption) {
        return [caption](QMessageBox& box) {
            for (QAbstractButton* button : box.buttons()) {
                if (button->text() == caption) {
                    button->click();
                    EXPECT_FALSE(box.isVisible());
                    return;
                }
            }
            ADD_FAILURE() << "no button " << caption.toStdString();
        };
    }
};

TEST_F(MessageTest, EveryButtonHasItsAnswerEnterGoesOnAndClosingIsTheMostCarefulAnswer) {
    using enum MessageAnswer;
    using Buttons = std::vector<std::pair<QString, MessageAnswer>>;
    struct Case {
        MessageButtons Set;
        Buttons Each;
        MessageAnswer Enter, Closed;
    };
    const Case cases[] = {
        {MessageButtons::OK, {{u"&OK"_s, OK}}, OK, OK},
        {MessageButtons::OKCancel, {{u"&OK"_s, OK}, {u"&Cancel"_s, Cancel}}, OK, Cancel},
        {MessageButtons::YesNo, {{u"&Yes"_s, Yes}, {u"&No"_s, No}}, Yes, No},
        {MessageButtons::RetryCancel, Buttons{{u"&Retry"_s, Retry}, {u"&Cancel"_s, Cancel}}, Retry,
         Cancel},
        {MessageButtons::AbortRetryIgnore,
         Buttons{{u"&Abort"_s, Abort}, {u"&Retry"_s, Retry}, {u"&Ignore"_s, Ignore}}, Retry,
         Abort}};
    for (const auto& [set, each, enter, closed] : cases) {
        for (const auto& [caption, answer] : each) {
            EXPECT_EQ(Ask({}, set, ByButton(caption)), answer) << caption.toStdString();
        }
        EXPECT_EQ(Ask({}, set, ByKey(Qt::Key_Return)), enter);
        EXPECT_EQ(Ask({}, set, ByKey(Qt::Key_Escape)), closed);
        EXPECT_EQ(Ask({}, set, [](QMessageBox&) {}), closed);
    }
}

TEST_F(MessageTest, ShowsItsIconAndMarkupAsItIsAndBreaksTheLineAtACarriageReturn) {
    const std::pair<MessageIcon, QMessageBox::Icon> icons[] = {
        {MessageIcon::Information, QMessageBox::Information},
        {MessageIcon::Question, QMessageBox::Question},
        {MessageIcon::Exclamation, QMessageBox::Warning},
        {MessageIcon::Critical, QMessageBox::Critical}};
    for (const auto& [icon, shown] : icons) {
        const auto expect = [shown = shown](const QMessageBox& box) {
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.text(), u"drive E: to copy all\nof the <b>files</b> & more"_s);
            EXPECT_EQ(box.windowTitle(), u"Songlift"_s);
            EXPECT_EQ(box.icon(), shown);
        };
        Ask(u"drive E: to copy all\rof the <b>files</b> & more"_s, MessageButtons::OK, expect,
            icon);
    }
}

TEST_F(MessageTest, NoPartOfALongPathIsCutOffAndAnAbsurdOneStaysOnTheScreen) {
    const QString path = u"E:\\iPod_Control\\"_s + u"M"_s.repeated(900);
    const QString text = u"File not found: \"%1\""_s.arg(path);
    Ask(text, MessageButtons::OK, [&](QMessageBox& box) {
        QLabel* label = box.findChild<QLabel*>(u"qt_msgbox_label"_s);
        ASSERT_NE(label, nullptr);
        EXPECT_TRUE(label->text().remove(QChar(0x200B)).contains(path));
        EXPECT_LE(box.width(), box.screen()->availableSize().width());
        EXPECT_GE(label->width(), box.screen()->availableSize().width() / 2);
        EXPECT_GE(label->height(), label->heightForWidth(label->width()));
        const QRect needed = label->fontMetrics().boundingRect(QRect(0, 0, label->width(), 10000),
                                                               Qt::TextWordWrap, label->text());
        EXPECT_LE(needed.width(), label->width());
        EXPECT_EQ(QAccessible::queryAccessibleInterface(label)->text(QAccessible::Name), text);
    });
    Ask(u"x"_s.repeated(10000000), MessageButtons::OK, [](QMessageBox& box) {
        EXPECT_LE(box.width(), box.screen()->availableSize().width());
        EXPECT_LE(box.height(), box.screen()->availableSize().height());
    });
}

TEST_F(MessageTest, IsOwnedByItsWindowOnlyWhileThatIsVisible) {
    const auto expectOver = [this](const QWidget* owner) {
        Ask({}, MessageButtons::OK,
            [owner](QMessageBox& box) { EXPECT_EQ(box.parentWidget(), owner); });
    };
    expectOver(nullptr);
    window.show();
    expectOver(&window);
    window.showMinimized();
    expectOver(nullptr);
}

} // namespace
