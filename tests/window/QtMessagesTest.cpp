#include "platform/qt/QtMessages.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

/// Boxes over a window, with a user who answers each of them.
class MessageTest : public testing::Test {
protected:
    QWidget window;
    QtMessages messages{&window};

    /// Shows a message and lets the user do `act` with the box.
    MessageAnswer Ask(const QString& text, MessageButtons buttons,
                      const std::function<void(QMessageBox&)>& act) {
        QTimer::singleShot(0, [act] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            act(*box);
        });
        return messages.Show(text, QStringLiteral("Songlift"), buttons, MessageIcon::Question);
    }
    MessageAnswer AnswerByKey(MessageButtons buttons, Qt::Key key) {
        return Ask(QStringLiteral("text"), buttons,
                   [key](QMessageBox& box) { QTest::keyClick(&box, key); });
    }
    MessageAnswer AnswerByButton(MessageButtons buttons, const char* caption) {
        return Ask(QStringLiteral("text"), buttons, [caption](QMessageBox& box) {
            for (QAbstractButton* button : box.buttons()) {
                if (button->text() == QString::fromLatin1(caption)) {
                    button->click();
                    return;
                }
            }
            ADD_FAILURE() << "no button " << caption;
            box.reject();
        });
    }
};

TEST_F(MessageTest, EveryButtonHasItsAnswer) {
    EXPECT_EQ(AnswerByButton(MessageButtons::OK, "&OK"), MessageAnswer::OK);
    EXPECT_EQ(AnswerByButton(MessageButtons::OKCancel, "&OK"), MessageAnswer::OK);
    EXPECT_EQ(AnswerByButton(MessageButtons::OKCancel, "&Cancel"), MessageAnswer::Cancel);
    EXPECT_EQ(AnswerByButton(MessageButtons::YesNo, "&Yes"), MessageAnswer::Yes);
    EXPECT_EQ(AnswerByButton(MessageButtons::YesNo, "&No"), MessageAnswer::No);
    EXPECT_EQ(AnswerByButton(MessageButtons::RetryCancel, "&Retry"), MessageAnswer::Retry);
    EXPECT_EQ(AnswerByButton(MessageButtons::RetryCancel, "&Cancel"), MessageAnswer::Cancel);
    EXPECT_EQ(AnswerByButton(MessageButtons::AbortRetryIgnore, "&Abort"), MessageAnswer::Abort);
    EXPECT_EQ(AnswerByButton(MessageButtons::AbortRetryIgnore, "&Retry"), MessageAnswer::Retry);
    EXPECT_EQ(AnswerByButton(MessageButtons::AbortRetryIgnore, "&Ignore"), MessageAnswer::Ignore);
}

TEST_F(MessageTest, EscapeGivesTheMostCarefulAnswer) {
    EXPECT_EQ(AnswerByKey(MessageButtons::OK, Qt::Key_Escape), MessageAnswer::OK);
    EXPECT_EQ(AnswerByKey(MessageButtons::OKCancel, Qt::Key_Escape), MessageAnswer::Cancel);
    EXPECT_EQ(AnswerByKey(MessageButtons::YesNo, Qt::Key_Escape), MessageAnswer::No);
    EXPECT_EQ(AnswerByKey(MessageButtons::RetryCancel, Qt::Key_Escape), MessageAnswer::Cancel);
    EXPECT_EQ(AnswerByKey(MessageButtons::AbortRetryIgnore, Qt::Key_Escape), MessageAnswer::Abort);
}

TEST_F(MessageTest, ClosingTheBoxGivesTheMostCarefulAnswer) {
    const auto close = [](QMessageBox& box) { box.close(); };
    const QString text = QStringLiteral("text");
    EXPECT_EQ(Ask(text, MessageButtons::OK, close), MessageAnswer::OK);
    EXPECT_EQ(Ask(text, MessageButtons::OKCancel, close), MessageAnswer::Cancel);
    EXPECT_EQ(Ask(text, MessageButtons::YesNo, close), MessageAnswer::No);
    EXPECT_EQ(Ask(text, MessageButtons::RetryCancel, close), MessageAnswer::Cancel);
    EXPECT_EQ(Ask(text, MessageButtons::AbortRetryIgnore, close), MessageAnswer::Abort);
}

TEST_F(MessageTest, EnterGoesOn) {
    EXPECT_EQ(AnswerByKey(MessageButtons::OK, Qt::Key_Return), MessageAnswer::OK);
    EXPECT_EQ(AnswerByKey(MessageButtons::OKCancel, Qt::Key_Return), MessageAnswer::OK);
    EXPECT_EQ(AnswerByKey(MessageButtons::YesNo, Qt::Key_Return), MessageAnswer::Yes);
    EXPECT_EQ(AnswerByKey(MessageButtons::RetryCancel, Qt::Key_Return), MessageAnswer::Retry);
    EXPECT_EQ(AnswerByKey(MessageButtons::AbortRetryIgnore, Qt::Key_Return), MessageAnswer::Retry);
}

TEST_F(MessageTest, ShowsMarkupAsItIsAndBreaksTheLineAtACarriageReturn) {
    Ask(QStringLiteral("drive E: to copy all\rof the <b>files</b> & more"), MessageButtons::OK,
        [](QMessageBox& box) {
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.text(),
                      QStringLiteral("drive E: to copy all\nof the <b>files</b> & more"));
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Songlift"));
            EXPECT_EQ(box.icon(), QMessageBox::Question);
            box.accept();
        });
}

TEST_F(MessageTest, NoPartOfALongPathIsCutOff) {
    const QString path = QStringLiteral("E:\\iPod_Control\\") + QString(900, QLatin1Char('M'));
    Ask(QStringLiteral("File not found: \"%1\"").arg(path), MessageButtons::OK,
        [&](QMessageBox& box) {
            const QLabel* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
            ASSERT_NE(label, nullptr);
            EXPECT_TRUE(label->text().remove(QChar(0x200B)).contains(path));
            EXPECT_LE(box.width(), box.screen()->availableSize().width());
            EXPECT_GE(label->height(), label->heightForWidth(label->width()));
            const QRect needed = label->fontMetrics().boundingRect(
                QRect(0, 0, label->width(), 10000), Qt::TextWordWrap, label->text());
            EXPECT_LE(needed.width(), label->width());
            EXPECT_EQ(QAccessible::queryAccessibleInterface(
                          box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label")))
                          ->text(QAccessible::Name),
                      QStringLiteral("File not found: \"%1\"").arg(path));
            box.accept();
        });
}

TEST_F(MessageTest, AnAbsurdTextStaysOnTheScreen) {
    Ask(QString(10000000, QLatin1Char('x')), MessageButtons::OK, [](QMessageBox& box) {
        EXPECT_LE(box.width(), box.screen()->availableSize().width());
        EXPECT_LE(box.height(), box.screen()->availableSize().height());
        box.accept();
    });
}

TEST_F(MessageTest, StandsOverItsWindowOnlyWhileThatIsSeen) {
    Ask(QStringLiteral("text"), MessageButtons::OK, [](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), nullptr);
        box.accept();
    });
    window.show();
    Ask(QStringLiteral("text"), MessageButtons::OK, [this](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        EXPECT_TRUE(box.isModal());
        box.accept();
    });
    window.showMinimized();
    Ask(QStringLiteral("text"), MessageButtons::OK, [](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), nullptr);
        EXPECT_TRUE(box.isModal());
        box.accept();
    });
}

} // namespace
