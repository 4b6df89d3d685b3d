// The real window of the overwrite prompt.

#include "app/OverwriteWindow.h"
#include "tests/window/QtInput.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

/// Asks about a file, lets the user do `act` with the prompt, and then close it with its close box.
/// The question is always whole in one line.
OverwritePrompt::Answer Ask(const QString& file,
                            const std::function<void(QWidget& window, QLabel& question)>& act,
                            QWidget* owner = nullptr) {
    OverwritePrompt prompt;
    prompt.AskAbout(file);
    bool asked = false;
    QTimer::singleShot(0, [&] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        asked = true;
        auto& question = *window->findChild<QLabel*>(u"lblMessage"_s);
        EXPECT_GE(question.width(), question.sizeHint().width());
        EXPECT_LE(window->width(), window->screen()->availableSize().width());
        act(*window, question);
        window->close();
    });
    OverwriteWindow(owner, prompt).Ask();
    EXPECT_TRUE(asked);
    return prompt.OverwriteAnswer();
}

} // namespace

TEST(TheOverwriteWindow, HasTheSizeOfItsQuestionAndNoOther) {
    Ask(u"/home/ana/Music/Blue River/Deep/01 Source.mp3"_s, [](QWidget& window, QLabel& question) {
        EXPECT_EQ(window.minimumSize(), window.size());
        EXPECT_EQ(window.maximumSize(), window.size());
        EXPECT_EQ(question.text(),
                  u"File already exists: \"/home/ana/Music/Blue River/Deep/01 Source.mp3\". "
                  u"Replace it?"_s);
        EXPECT_EQ(question.toolTip(), QString());
    });
}

TEST(TheOverwriteWindow, CancelsWhenItIsClosedAndEnterReplacesNoFileByAccident) {
    const QString file = u"/home/ana/01 Source.mp3"_s;
    EXPECT_EQ(Ask(file, [](QWidget&, QLabel&) {}), OverwritePrompt::Cancel);
    for (const QString& focus : {u"cmdOverwrite1"_s, u"chkSame"_s}) {
        const auto pressEnter = [&focus](QWidget& window, QLabel&) {
            window.findChild<QWidget*>(focus)->setFocus();
            QTest::keyClick(window.windowHandle(), Qt::Key_Return);
        };
        EXPECT_EQ(Ask(file, pressEnter), OverwritePrompt::Skip);
    }
}

TEST(TheOverwriteWindow, LeavesOutTheMiddleOfALongPathsFoldersAndShowsItInTheToolTip) {
    const QString path =
        u"/home/ana"_s + u"/A Folder"_s.repeated(440) + u"/01 Source & Mouth.mp3"_s;
    Ask(path, [&path](QWidget& window, QLabel& question) {
        const QString shown = question.text();
        EXPECT_TRUE(shown.startsWith(u"File already exists: \"/home/ana/A Folder"_s));
        EXPECT_TRUE(shown.contains(u'\u2026'));
        EXPECT_TRUE(shown.endsWith(u"A Folder/01 Source & Mouth.mp3\". Replace it?"_s));
        EXPECT_GT(window.width(), window.screen()->availableSize().width() * 9 / 10);
        const QString whole = u"File already exists: \"%1\". Replace it?"_s.arg(path);
        EXPECT_EQ(question.toolTip(), whole);
        EXPECT_EQ(QAccessible::queryAccessibleInterface(&question)->text(QAccessible::Name), whole);
    });
}

TEST(TheOverwriteWindow, KeepsBothEndsOfAFileNameThatIsWiderThanTheScreen) {
    const QString path = u"/home/ana/01 "_s + u"M"_s.repeated(240) + u" Mouth.mp3"_s;
    Ask(path, [](QWidget&, QLabel& question) {
        EXPECT_TRUE(question.text().startsWith(u"File already exists: \"\u202601 MM"_s));
        EXPECT_TRUE(question.text().endsWith(u"MM Mouth.mp3\". Replace it?"_s));
    });
}

TEST(TheOverwriteWindow, StaysAboveItsOwnerOnlyWhileThatIsVisible) {
    QWidget owner;
    const auto expectOver = [&owner](const QWidget* expected) {
        const auto look = [&](QWidget& window, QLabel&) {
            EXPECT_EQ(window.parentWidget(), expected);
        };
        Ask(u"/home/ana/01 Source.mp3"_s, look, &owner);
    };
    owner.show();
    expectOver(&owner);
    owner.showMinimized();
    expectOver(nullptr);
}
