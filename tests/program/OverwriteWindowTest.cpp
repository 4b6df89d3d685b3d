// The real window of the overwrite prompt.

#include "app/OverwriteWindow.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

TEST(TheOverwriteWindow, HasTheSizeOfItsQuestionAndNoOther) {
    OverwritePrompt prompt;
    prompt.OverwriteFile = QStringLiteral("/home/ana/Music/Blue River/Deep/01 Source.mp3");
    bool asked = false;
    QTimer::singleShot(0, [&asked] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        asked = true;
        EXPECT_EQ(window->minimumSize(), window->size());
        EXPECT_EQ(window->maximumSize(), window->size());
        const auto* question = window->findChild<QLabel*>(QStringLiteral("lblMessage"));
        EXPECT_GE(question->width(), question->sizeHint().width());
        for (const QPushButton* button : window->findChildren<QPushButton*>()) {
            EXPECT_TRUE(window->rect().contains(button->geometry()));
        }
        window->close();
    });
    OverwriteWindow(nullptr, prompt).Ask();
    EXPECT_TRUE(asked);
}
