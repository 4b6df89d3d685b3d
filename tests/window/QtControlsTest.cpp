#include "platform/qt/QtButtonControl.h"
#include "platform/qt/QtCheckControl.h"
#include "platform/qt/QtComboControl.h"
#include "platform/qt/QtLabelControl.h"
#include "platform/qt/QtProgressControl.h"
#include "platform/qt/QtTabsControl.h"
#include "platform/qt/QtTextControl.h"
#include "tests/window/QtInput.h"

#include <QDialog>
#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace {

/// A window for the real controls.
class QtControls : public testing::Test {
protected:
    QDialog window;
    int clicks = 0;
    Event count = [this] { ++clicks; };

    QtControls() { window.resize(600, 400); }

    void Show() { QtInput::ShowActive(window); }

    /// Waits longer than a button that was pressed by its shortcut stays down.
    static void LetShortcutsClick() { QTest::qWait(250); }
};

TEST_F(QtControls, TwipsAreAFifteenthOfAPixelAndTouchingControlsTouchOnTheScreen) {
    QtLabelControl left(&window, u"left"_s);
    QtLabelControl right(&window, u"right"_s);
    left.Move(150, 300, 1500, 450);
    EXPECT_EQ(left.Widget()->geometry(), QRect(10, 20, 100, 30));
    for (double width = 1000; width < 1015; width += 0.7) {
        left.Move(7, 0, width, 300);
        right.Move(7 + width, 0, 1000 - width / 3, 300);
        EXPECT_EQ(left.Widget()->geometry().right() + 1, right.Widget()->geometry().left());
    }
    left.Move(1e30, -1e30, -5, 1e300); // nonsense does no harm
    EXPECT_EQ(left.Width(), -5);
    EXPECT_GE(left.Widget()->width(), 0);
    EXPECT_LE(left.Widget()->height(), QWIDGETSIZE_MAX);
}

TEST_F(QtControls, AShortcutsClickThatComesLateIsLostOnADisabledButtonAndBehindAMessage) {
    QtButtonControl button(&window, u"button"_s, u"&Go"_s);
    button.Click = count;
    Show();
    QTest::keyClick(&window, Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(button.Widget()->isDown());
    button.SetEnabled(false);
    LetShortcutsClick();
    EXPECT_EQ(clicks, 0);
    button.SetEnabled(true);
    QTest::keyClick(&window, Qt::Key_G, Qt::AltModifier);
    LetShortcutsClick();
    EXPECT_EQ(clicks, 1);
    QTest::keyClick(&window, Qt::Key_G, Qt::AltModifier);
    QDialog message(&window);
    message.setWindowModality(Qt::ApplicationModal);
    message.show();
    LetShortcutsClick();
    EXPECT_EQ(clicks, 1);
}

TEST_F(QtControls, ALateClickOfAScreenReaderDoesNotTickADisabledBox) {
    QtCheckControl box(&window, u"box"_s, u"Artist"_s);
    box.Click = count;
    Show();
    box.Widget()->animateClick();
    box.SetEnabled(false);
    LetShortcutsClick();
    EXPECT_FALSE(box.Value());
    box.SetEnabled(true);
    box.Widget()->animateClick();
    LetShortcutsClick();
    EXPECT_TRUE(box.Value());
    EXPECT_EQ(clicks, 1);
}

TEST_F(QtControls, AWidgetHasItsControlsNameAndALabelShowsADoubledAmpersandAsOneAndMarkupAsItIs) {
    QtLabelControl label(&window, u"label"_s);
    EXPECT_EQ(window.findChild<QLabel*>(u"label"_s), label.Widget());
    label.SetCaption(u"<b>Simon && Garfunkel</b>"_s);
    EXPECT_EQ(label.Widget()->textFormat(), Qt::PlainText);
    EXPECT_EQ(label.Widget()->text(), u"<b>Simon & Garfunkel</b>"_s);
}

TEST_F(QtControls, TheWheelOverAClosedComboOrTheTabsChoosesNothing) {
    QtComboControl combo(&window, u"combo"_s);
    QtTabsControl tabs(&window, u"tabs"_s, {u"All Files"_s, u"Audio"_s});
    combo.AddItem(u"(E:) A"_s);
    combo.AddItem(u"(F:) B"_s);
    combo.SetText(u"(E:) A"_s);
    Show();
    combo.SetFocus();
    QtInput::WheelDown(*combo.Widget());
    EXPECT_EQ(combo.Text(), u"(E:) A"_s);
    tabs.SetFocus();
    QtInput::WheelDown(*tabs.Widget());
    EXPECT_EQ(tabs.SelectedCaption(), u"All Files"_s);
}

TEST_F(QtControls, AMenuOrAnotherWindowOnlyBorrowsTheFocusOfATextBox) {
    QtTextControl text(&window, u"text"_s);
    QtButtonControl button(&window, u"button"_s);
    Show();
    button.SetFocus();
    int got = 0;
    int lost = 0;
    text.GotFocus = [&] { ++got; };
    text.LostFocus = [&] { ++lost; };
    text.SetFocus();
    QDialog other;
    QLineEdit inOther(&other);
    QtInput::ShowActive(other);
    inOther.setFocus();
    other.hide();
    QtInput::ShowActive(window);
    EXPECT_EQ(got, 1);
    EXPECT_EQ(lost, 0);
    button.SetFocus();
    EXPECT_EQ(lost, 1);
}

/// Two text boxes, the first of which selects its text when it gets the focus.
class ClicksIntoABox : public QtControls {
protected:
    QtTextControl box{&window, u"txtSearch"_s};
    QtTextControl other{&window, u"txtDestination"_s};
    QPoint inText;

    ClicksIntoABox() {
        box.Move(0, 0, 3000, 450);
        other.Move(0, 600, 3000, 450);
        box.SetText(u"RIVERSONGS"_s);
        box.GotFocus = [this] { box.Select(0, int(box.Text().size())); };
        other.SetFocus();
        Show();
        inText = QPoint(box.Widget()->fontMetrics().horizontalAdvance(u"RIVER"_s) + 5,
                        box.Widget()->height() / 2);
    }
};

TEST_F(ClicksIntoABox, TheFirstLeavesTheTextSelectedAndTheSecondPlacesTheCaret) {
    QtInput::Click(*box.Widget(), inText);
    EXPECT_EQ(box.Widget()->selectedText(), u"RIVERSONGS"_s);
    QTest::qWait(QApplication::doubleClickInterval() + 1);
    QtInput::Click(*box.Widget(), inText);
    EXPECT_EQ(box.Widget()->selectedText(), QString());
    EXPECT_EQ(box.Widget()->cursorPosition(), 5);
}

TEST_F(ClicksIntoABox, ADragSelectsWhatItPassesOver) {
    const QPoint behindText(box.Widget()->width() - 5, inText.y());
    QtInput::Press(*box.Widget(), inText);
    QtInput::MoveTo(*box.Widget(), behindText);
    QtInput::Release(*box.Widget(), behindText);
    EXPECT_EQ(box.Widget()->selectedText(), u"SONGS"_s);
}

/// A bar 300 pixels wide on the screen.
class Progress : public QtControls {
protected:
    QtProgressControl progress{&window, u"prgCopy"_s};

    Progress() {
        progress.Move(0, 0, 4500, 300);
        Show();
    }

    void ExpectFilled(float value, float max, int pixels) {
        progress.SetMax(max);
        progress.SetValue(value);
        EXPECT_EQ(progress.Widget()->value(), pixels) << value << " of " << max;
    }
};

TEST_F(Progress, IsFilledInProportionFromEmptyToFull) {
    ExpectFilled(25, 50, 150);
    ExpectFilled(25, 10, 300);
    ExpectFilled(25, 0, 0);
    ExpectFilled(-5, 10, 0);
    EXPECT_EQ(progress.Widget()->minimum(), 0);
    ExpectFilled(1, 4, 75);
    progress.SetWidth(6000);
    EXPECT_EQ(progress.Widget()->maximum(), 400);
    EXPECT_EQ(progress.Widget()->value(), 100);
    progress.SetWidth(0);
    EXPECT_EQ(progress.Value(), 1);
    EXPECT_GT(progress.Widget()->maximum(), 0); // else it would look as if the end were unknown
}

TEST_F(Progress, PaintsOnlyWhenAnotherPixelIsFilled) {
    progress.SetMax(32767);
    QtInput::Settle();
    PaintSpy spy(progress.Widget());
    for (int value = 1; value <= 32767; ++value) {
        progress.SetValue(float(value));
    }
    QtInput::Settle();
    EXPECT_GE(spy.Paints, 1);
    EXPECT_LE(spy.Paints, 301);
    progress.SetMax(1000000000);
    progress.SetValue(500000000);
    QtInput::Settle();
    spy.Paints = 0;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 32767; ++i) {
        progress.SetValue(500000000.0F + float(i));
    }
    EXPECT_LT(timer.elapsed(), 200);
    QtInput::Settle();
    EXPECT_EQ(spy.Paints, 0);
}

} // namespace
