#include "platform/qt/QtButtonControl.h"
#include "platform/qt/QtCheckControl.h"
#include "platform/qt/QtComboControl.h"
#include "platform/qt/QtLabelControl.h"
#include "platform/qt/QtProgressControl.h"
#include "platform/qt/QtTextControl.h"
#include "tests/window/QtInput.h"

#include <QApplication>
#include <QDialog>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// A window for the real controls, active.
class QtControls : public testing::Test {
protected:
    QDialog window;

    void Show() {
        window.resize(600, 400);
        window.show();
        QApplication::setActiveWindow(&window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
};

TEST_F(QtControls, TouchingControlsTouchOnTheScreen) {
    QtLabelControl left(&window, QStringLiteral("left"));
    QtLabelControl right(&window, QStringLiteral("right"));
    for (double width = 1000; width < 1015; width += 0.7) {
        left.Move(7, 0, width, 300);
        right.Move(7 + width, 0, 1000 - width / 3, 300);
        EXPECT_EQ(left.Widget()->geometry().right() + 1, right.Widget()->geometry().left());
    }
}

TEST_F(QtControls, TwipsAreAFifteenthOfAPixel) {
    QtLabelControl label(&window, QStringLiteral("label"));
    label.Move(150, 300, 1500, 450);
    EXPECT_EQ(label.Widget()->geometry(), QRect(10, 20, 100, 30));
}

TEST_F(QtControls, NonsenseGeometryDoesNoHarm) {
    QtLabelControl label(&window, QStringLiteral("label"));
    label.Move(1e30, -1e30, -5, 1e300);
    EXPECT_EQ(label.Width(), -5);
    EXPECT_GE(label.Widget()->width(), 0);
    EXPECT_LE(label.Widget()->height(), QWIDGETSIZE_MAX);
}

TEST_F(QtControls, EveryWidgetBearsTheNameOfItsControl) {
    QtTextControl text(&window, QStringLiteral("txtSearch"));
    EXPECT_EQ(window.findChild<QLineEdit*>(QStringLiteral("txtSearch")), text.Widget());
}

/// Longer than a button that was pressed by its shortcut stays down.
constexpr int AfterTheClick = 250;

TEST_F(QtControls, AShortcutsClickThatComesLateIsLostOnAButtonThatWasDisabled) {
    QtButtonControl button(&window, QStringLiteral("button"), QStringLiteral("&Go"));
    int clicks = 0;
    button.Click = [&clicks] { ++clicks; };
    Show();
    QTest::keyClick(&window, Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(button.Widget()->isDown());
    button.SetEnabled(false);
    QTest::qWait(AfterTheClick);
    EXPECT_EQ(clicks, 0);
    button.SetEnabled(true);
    QTest::keyClick(&window, Qt::Key_G, Qt::AltModifier);
    QTest::qWait(AfterTheClick);
    EXPECT_EQ(clicks, 1);
}

TEST_F(QtControls, AShortcutsClickThatComesLateIsLostBehindAMessage) {
    QtButtonControl button(&window, QStringLiteral("button"), QStringLiteral("&Go"));
    int clicks = 0;
    button.Click = [&clicks] { ++clicks; };
    Show();
    QTest::keyClick(&window, Qt::Key_G, Qt::AltModifier);
    QDialog message(&window);
    message.setWindowModality(Qt::ApplicationModal);
    message.show();
    QTest::qWait(AfterTheClick);
    EXPECT_EQ(clicks, 0);
}

TEST_F(QtControls, ALateClickOfAScreenReaderTicksNoDisabledBox) {
    QtCheckControl box(&window, QStringLiteral("box"), QStringLiteral("Artist"));
    int clicks = 0;
    box.Click = [&clicks] { ++clicks; };
    Show();
    box.Widget()->animateClick();
    box.SetEnabled(false);
    QTest::qWait(AfterTheClick);
    EXPECT_EQ(box.Value(), 0);
    box.SetEnabled(true);
    box.Widget()->animateClick();
    QTest::qWait(AfterTheClick);
    EXPECT_EQ(box.Value(), 1);
    EXPECT_EQ(clicks, 1);
}

TEST_F(QtControls, EnterInATextBoxPressesTheDefaultButton) {
    QtTextControl text(&window, QStringLiteral("text"));
    QtButtonControl search(&window, QStringLiteral("search"));
    QtButtonControl other(&window, QStringLiteral("other"));
    int presses = 0;
    search.Click = [&] { ++presses; };
    Show();
    text.SetFocus();
    QtInput::Key(window, Qt::Key_Return);
    EXPECT_EQ(presses, 0);
    search.SetDefault(true);
    QtInput::Key(window, Qt::Key_Return);
    EXPECT_EQ(presses, 1);
    other.SetDefault(true);
    EXPECT_FALSE(search.Default());
    QtInput::Key(window, Qt::Key_Return);
    EXPECT_EQ(presses, 1);
}

TEST_F(QtControls, ALabelShowsADoubledAmpersandAsOne) {
    QtLabelControl label(&window, QStringLiteral("label"));
    label.SetCaption(QStringLiteral("Simon && Garfunkel"));
    EXPECT_EQ(label.Widget()->text(), QStringLiteral("Simon & Garfunkel"));
}

TEST_F(QtControls, ALabelShowsMarkupAsItIs) {
    QtLabelControl label(&window, QStringLiteral("label"));
    label.SetCaption(QStringLiteral("<b>x</b>"));
    EXPECT_EQ(label.Widget()->textFormat(), Qt::PlainText);
    EXPECT_EQ(label.Widget()->text(), QStringLiteral("<b>x</b>"));
}

TEST_F(QtControls, ProgressBeyondItsMaximumIsFull) {
    QtProgressControl progress(&window, QStringLiteral("progress"));
    progress.Move(0, 0, 3000, 300);
    Show();
    progress.SetMax(10);
    progress.SetValue(25);
    EXPECT_EQ(progress.Widget()->value(), progress.Widget()->maximum());
    progress.SetMax(0);
    EXPECT_EQ(progress.Widget()->value(), 0);
    EXPECT_GT(progress.Widget()->maximum(), progress.Widget()->minimum());
    progress.SetMax(50);
    EXPECT_EQ(progress.Widget()->value(), 100);
}

TEST_F(QtControls, TheWheelOverAClosedComboChoosesNothing) {
    QtComboControl combo(&window, QStringLiteral("combo"));
    combo.AddItem(QStringLiteral("(E:) A"));
    combo.AddItem(QStringLiteral("(F:) B"));
    combo.SetText(QStringLiteral("(E:) A"));
    Show();
    combo.SetFocus();
    QtInput::WheelDown(*combo.Widget());
    EXPECT_EQ(combo.Text(), QStringLiteral("(E:) A"));
}

/// Two text boxes, the first of which selects its text when it gets the focus.
class ClicksIntoABox : public QtControls {
protected:
    QtTextControl box{&window, QStringLiteral("txtSearch")};
    QtTextControl other{&window, QStringLiteral("txtDestination")};
    QPoint inText;
    QPoint behindText;

    ClicksIntoABox() {
        box.Move(0, 0, 3000, 450);
        other.Move(0, 600, 3000, 450);
        box.SetText(QStringLiteral("RIVERSONGS"));
        box.GotFocus = [this] { box.Select(0, int(box.Text().size())); };
        other.SetFocus();
        Show();
        inText = QPoint(box.Widget()->fontMetrics().horizontalAdvance(QStringLiteral("RIVER")) + 5,
                        box.Widget()->height() / 2);
        behindText = QPoint(box.Widget()->width() - 5, inText.y());
    }
    QString Selected() const { return box.Widget()->selectedText(); }
};

TEST_F(ClicksIntoABox, TheFirstLeavesTheTextSelectedAndTheSecondPlacesTheCaret) {
    QtInput::Click(*box.Widget(), inText);
    EXPECT_EQ(Selected(), QStringLiteral("RIVERSONGS"));
    QTest::qWait(QApplication::doubleClickInterval() + 1);
    QtInput::Click(*box.Widget(), inText);
    EXPECT_EQ(Selected(), QString());
    EXPECT_EQ(box.Widget()->cursorPosition(), 5);
}

TEST_F(ClicksIntoABox, ADragSelectsWhatItPassesOver) {
    QtInput::Press(*box.Widget(), inText);
    QtInput::MoveTo(*box.Widget(), behindText);
    QtInput::Release(*box.Widget(), behindText);
    EXPECT_EQ(Selected(), QStringLiteral("SONGS"));
}

TEST_F(QtControls, AMenuOrAnotherWindowOnlyBorrowsTheFocusOfATextBox) {
    QtTextControl text(&window, QStringLiteral("text"));
    QtButtonControl button(&window, QStringLiteral("button"));
    Show();
    button.SetFocus();
    int got = 0;
    int lost = 0;
    text.GotFocus = [&] { ++got; };
    text.LostFocus = [&] { ++lost; };
    text.SetFocus();
    QDialog other;
    other.show();
    QApplication::setActiveWindow(&other);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    other.hide();
    QApplication::setActiveWindow(&window);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_EQ(got, 1);
    EXPECT_EQ(lost, 0);
    button.SetFocus();
    EXPECT_EQ(lost, 1);
}

} // namespace
