// The desktop ends the session while the program runs.

#include "platform/qt/QtMessages.h"
#include "platform/qt/QtWindow.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

TEST(ASessionsEnd, WaitsForNoAnswerToAMessage) {
    QtWindow window(nullptr, QStringLiteral("Form1"));
    QtMessages messages(window.Widget());
    MessageAnswer answer = MessageAnswer::Yes;
    int closes = 0;
    window.QueryUnload = [&](bool& cancel, UnloadMode) {
        ++closes;
        QTimer::singleShot(0, qApp, [] {
            if (QWidget* box = QApplication::activeModalWidget()) {
                ADD_FAILURE() << "a message waits";
                box->close();
            }
        });
        answer = messages.Show({}, {}, MessageButtons::YesNo, MessageIcon::Question);
        cancel = true; // the tests go on
    };
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.Widget()));
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    EXPECT_EQ(closes, 1);
    EXPECT_EQ(answer, MessageAnswer::No);

    QCoreApplication::processEvents();
    // It was called off; the next message is for the user again.
    QTimer::singleShot(0, [] {
        ASSERT_NE(QApplication::activeModalWidget(), nullptr);
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
    });
    EXPECT_EQ(messages.Show({}, {}, MessageButtons::YesNo, MessageIcon::Question),
              MessageAnswer::Yes);
}
