// The real window of the overwrite prompt.

#include "app/OverwriteWindow.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

/// Asks about a file, lets the user do `act` with the prompt, and then close it with its close box.
void Ask(const QString& file, const std::function<void(QWidget& window, QLabel& question)>& act,
         QWidget* owner = nullptr) {
    OverwritePrompt prompt;
    prompt.OverwriteFile = file;
    bool asked = false;
    QTimer::singleShot(0, [&] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        asked = true;
        act(*window, *window->findChild<QLabel*>(QStringLiteral("lblMessage")));
        window->close();
    });
    OverwriteWindow(owner, prompt).Ask();
    EXPECT_TRUE(asked);
    EXPECT_EQ(prompt.OverwriteAnswer, OverwritePrompt::Cancel);
}

QString Repeated(const char* text, int times) {
    return QString::fromUtf8(text).repeated(times);
}

} // namespace

TEST(TheOverwriteWindow, HasTheSizeOfItsQuestionAndNoOther) {
    Ask(QStringLiteral("/home/ana/Music/Blue River/Deep/01 Source.mp3"),
        [](QWidget& window, QLabel& question) {
            EXPECT_EQ(window.minimumSize(), window.size());
            EXPECT_EQ(window.maximumSize(), window.size());
            EXPECT_EQ(question.text(),
                      QStringLiteral("File already exists: \"/home/ana/Music/Blue River/Deep/"
                                     "01 Source.mp3\". Replace it?"));
            EXPECT_EQ(question.toolTip(), QString());
            EXPECT_GE(question.width(), question.sizeHint().width());
            for (const QPushButton* button : window.findChildren<QPushButton*>()) {
                EXPECT_TRUE(window.rect().contains(button->geometry()));
            }
        });
}

TEST(TheOverwriteWindow, OfALongPathLeavesOutTheMiddleOfTheFoldersAndTellsItElsewhere) {
    const QString path = QStringLiteral("/home/ana") + Repeated("/A Folder", 440) +
                         QStringLiteral("/01 Source & Mouth.mp3");
    Ask(path, [&path](QWidget& window, QLabel& question) {
        const QString shown = question.text();
        EXPECT_TRUE(shown.startsWith(QStringLiteral("File already exists: \"/home/ana/A Folder")));
        EXPECT_TRUE(shown.contains(QChar(u'\u2026')));
        EXPECT_TRUE(
            shown.endsWith(QStringLiteral("A Folder/01 Source & Mouth.mp3\". Replace it?")));
        EXPECT_GE(question.width(), question.sizeHint().width());
        EXPECT_LE(window.width(), window.screen()->availableSize().width());
        EXPECT_GT(window.width(), window.screen()->availableSize().width() * 9 / 10);
        const QString whole = QStringLiteral("File already exists: \"%1\". Replace it?").arg(path);
        EXPECT_EQ(question.toolTip(), whole);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&question)->text(QAccessible::Name), whole);
    });
}

TEST(TheOverwriteWindow, OfAFileNameWiderThanTheScreenKeepsBothItsEnds) {
    const QString path =
        QStringLiteral("/home/ana/01 ") + Repeated("M", 240) + QStringLiteral(" Mouth.mp3");
    Ask(path, [](QWidget& window, QLabel& question) {
        const QString shown = question.text();
        EXPECT_TRUE(shown.startsWith(QStringLiteral("File already exists: \"\u202601 MM")));
        EXPECT_TRUE(shown.endsWith(QStringLiteral("MM Mouth.mp3\". Replace it?")));
        EXPECT_GE(question.width(), question.sizeHint().width());
        EXPECT_LE(window.width(), window.screen()->availableSize().width());
    });
}

TEST(TheOverwriteWindow, StandsOverItsOwnerOnlyWhileThatIsSeen) {
    QWidget owner;
    const QString file = QStringLiteral("/home/ana/01 Source.mp3");
    owner.show();
    Ask(
        file, [&](QWidget& window, QLabel&) { EXPECT_EQ(window.parentWidget(), &owner); }, &owner);
    owner.showMinimized();
    Ask(
        file, [](QWidget& window, QLabel&) { EXPECT_EQ(window.parentWidget(), nullptr); }, &owner);
}
