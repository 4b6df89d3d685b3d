#include "platform/qt/QtWindow.h"
#include "platform/qt/QtButtonControl.h"
#include "platform/qt/QtLabelControl.h"
#include "platform/qt/QtTextControl.h"
#include "platform/qt/QtWindowManager.h"
#include "tests/window/QtInput.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace {

class WindowTest : public testing::Test {
protected:
    QtWindow window{nullptr, u"Form1"_s};
    QWidget& widget = *window.Widget();

    void Show() {
        window.Show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
        QCoreApplication::processEvents();
    }

    static void ExpectSize(const QtWindow& sized, double width, double height) {
        EXPECT_EQ(sized.Width(), width);
        EXPECT_EQ(sized.Height(), height);
    }
};

TEST_F(WindowTest, IsHiddenAtFirstAndHasItsNameAndRole) {
    EXPECT_FALSE(widget.isVisible());
    EXPECT_EQ(widget.objectName(), u"Form1"_s);
    EXPECT_NE(window.Handle(), 0u);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&widget)->role(), QAccessible::Window);
    const QtWindow prompt(&widget, u"frmOverwrite"_s, Qt::Dialog);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(prompt.Widget())->role(), QAccessible::Dialog);
}

TEST_F(WindowTest, SizeAndPositionAreExactlyWhatWasSetBeforeAndAfterItIsShown) {
    window.SetSize(9003.5, 6001.25);
    window.MoveTo(1503.25, 757.5);
    ExpectSize(window, 9003.5, 6001.25);
    Show();
    ExpectSize(window, 9003.5, 6001.25);
    EXPECT_EQ(window.Left(), 1503.25);
    EXPECT_EQ(window.Top(), 757.5);
    EXPECT_EQ(widget.pos(), QPoint(100, 51));
    EXPECT_EQ(widget.size(), QSize(600, 400)); // without border and title bar
    window.Hide();
    ExpectSize(window, 9003.5, 6001.25);
    widget.resize(300, 200); // as the user does
    ExpectSize(window, 4500, 3000);
}

TEST_F(WindowTest, AResizeHandlerMayCorrectTheSize) {
    window.Resize = [&] {
        if (window.Width() < 6000) {
            window.SetSize(6000, window.Height());
        }
    };
    Show();
    window.SetSize(3000, 4500);
    ExpectSize(window, 6000, 4500);
}

TEST_F(WindowTest, AChangeOfTheStateCanBeReadInResize) {
    Show();
    std::vector<WindowState> states;
    window.Resize = [&] { states.push_back(window.State()); };
    for (const auto state : {WindowState::Maximized, WindowState::Minimized, WindowState::Normal}) {
        states.clear();
        window.SetState(state);
        QCoreApplication::processEvents();
        ASSERT_FALSE(states.empty());
        EXPECT_EQ(states.back(), state);
        EXPECT_EQ(window.Minimized(), state == WindowState::Minimized);
    }
}

TEST_F(WindowTest, AStateThatIsSetBeforeTheWindowIsShownHoldsAndANewSizeWaitsForIt) {
    window.SetState(WindowState::Maximized);
    Show();
    EXPECT_EQ(window.State(), WindowState::Maximized);
    const double maximized = window.Width();
    EXPECT_GT(maximized, 9000);
    window.SetSize(7500, 4500);
    EXPECT_EQ(window.Width(), maximized);
    window.SetState(WindowState::Normal);
    QCoreApplication::processEvents();
    ExpectSize(window, 7500, 4500);
}

TEST_F(WindowTest, WindowsThatHideInsteadOfClosingDoNotKeepTheProgramFromQuitting) {
    // Two of them: the first refusal would leave the other one standing.
    QtWindow other(nullptr, u"frmPreview"_s);
    for (QtWindow* hiding : {&window, &other}) {
        hiding->QueryUnload = [hiding](bool& cancel, UnloadMode) {
            cancel = true;
            hiding->Hide();
        };
        hiding->Show();
    }
    QTimer::singleShot(0, [] { QCoreApplication::quit(); });
    QTimer timeout; // which must not end a later test
    timeout.callOnTimeout([] { QCoreApplication::exit(1); });
    timeout.start(1000);
    EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(WindowTest, EscapeClosesAModalWindowAndNoOther) {
    Show();
    QTest::keyClick(&widget, Qt::Key_Escape);
    EXPECT_TRUE(widget.isVisible());
    window.Hide();
    QTimer::singleShot(0, [&] {
        EXPECT_TRUE(widget.isModal());
        QTest::keyClick(&widget, Qt::Key_Escape);
    });
    window.ShowModal();
    EXPECT_FALSE(widget.isVisible());
    EXPECT_FALSE(widget.isModal());
}

TEST_F(WindowTest, EnterPressesTheButtonThatHasTheFocusElseTheDefaultOne) {
    QtTextControl text(&widget, u"txtSearch"_s);
    QtButtonControl button(&widget, u"cmdSearch"_s);
    QtButtonControl other(&widget, u"cmdClear"_s);
    int presses = 0;
    button.Click = [&] { ++presses; };
    other.Click = [&] { presses += 100; };
    QtInput::ShowActive(widget);
    text.SetFocus();
    const auto expectPresses = [&](int expected) {
        QtInput::Key(widget, Qt::Key_Return);
        EXPECT_EQ(presses, expected);
    };
    expectPresses(0);
    button.SetDefault(true);
    expectPresses(1);
    QtInput::Key(widget, Qt::Key_Enter);
    button.SetEnabled(false);
    expectPresses(2);
    button.SetEnabled(true);
    other.SetDefault(true); // the only one
    EXPECT_FALSE(button.Default());
    expectPresses(102);
    button.SetFocus();
    expectPresses(103);
}

TEST_F(WindowTest, RefreshPaintsWhatHasChangedAtOnceButNoOftenerThanCanBeSeen) {
    QtLabelControl label(&widget, u"lblMessage"_s);
    label.Move(0, 0, 3000, 300);
    PaintSpy spy(label.Widget());
    window.Refresh();
    EXPECT_FALSE(widget.isVisible());
    window.Show();
    window.Refresh();
    EXPECT_GE(spy.Paints, 1);
    for (const bool changed : {true, false}) {
        QTest::qWait(20);
        spy.Paints = 0;
        label.SetCaption(u"Loading music... 1%"_s);
        window.Refresh();
        EXPECT_EQ(spy.Paints, changed ? 1 : 0);
    }
    QElapsedTimer clock;
    clock.start();
    for (int percent = 0; percent < 1000; ++percent) {
        label.SetCaption(u"Loading music... %1%"_s.arg(percent));
        window.Refresh();
    }
    EXPECT_LE(spy.Paints, 2 + clock.elapsed() / 16);
}

TEST_F(WindowTest, RefreshHandlesNoInput) {
    QtButtonControl button(&widget, u"cmdCopy"_s);
    int presses = 0;
    button.Click = [&] { ++presses; };
    Show();
    QCoreApplication::postEvent(button.Widget(),
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier));
    widget.update();
    window.Refresh();
    EXPECT_EQ(presses, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(presses, 1);
}

TEST_F(WindowTest, TheHourglassIsShownOnceAndRemovedOnceAlsoWithItsWindow) {
    {
        QtWindow other(nullptr, u"frmPreview"_s);
        other.SetMousePointer(MousePointer::Hourglass);
        other.SetMousePointer(MousePointer::Hourglass);
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        other.SetMousePointer(MousePointer::Default);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        other.SetMousePointer(MousePointer::Hourglass);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(WindowTest, ShowsItsCaptionAsItIs) {
    window.SetCaption(u"A [*] song & more"_s);
    EXPECT_EQ(window.Caption(), u"A [*] song & more"_s);
    widget.setWindowModified(true);
    EXPECT_EQ(widget.windowTitle(), u"A [*][*] song & more"_s);
}

TEST_F(WindowTest, AnOwnedWindowGoesWithItsOwner) {
    auto owner = std::make_unique<QtWindow>(nullptr, u"Form1"_s);
    QtWindow owned(owner->Widget(), u"frmPreview"_s);
    EXPECT_TRUE(owned.Widget()->isWindow());
    owner.reset();
    EXPECT_EQ(owned.Widget(), nullptr);
}

TEST_F(WindowTest, AnOwnedWindowAppearsOverItsOwnerAndLiesOnItsScreenWheneverItIsShownOrSized) {
    window.MoveTo(100 * 15, 200 * 15);
    window.SetSize(600 * 15, 400 * 15);
    Show();
    QtWindow owned(&widget, u"frmPreview"_s);
    owned.SetSize(300 * 15, 200 * 15);
    owned.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(owned.Widget()));
    const QWidget& seen = *owned.Widget();
    const QRect screen(0, 0, 800, 800);
    EXPECT_LE((seen.geometry().center() - widget.geometry().center()).manhattanLength(), 4);
    owned.Widget()->move(450, 550);
    owned.SetSize(500 * 15, 400 * 15);
    EXPECT_EQ(seen.frameGeometry().bottomRight(), screen.bottomRight());
    owned.Hide();
    owned.Widget()->move(-50, 600);
    owned.Show();
    EXPECT_EQ(seen.frameGeometry().bottomLeft(), screen.bottomLeft());
    owned.SetSize(900 * 15, 100 * 15); // the beginning of a larger one is seen
    EXPECT_EQ(seen.frameGeometry().left(), 0);
    EXPECT_TRUE(seen.isVisible());
}

TEST_F(WindowTest, TheWindowManagerNamesTheActiveWindowAndTheFocusedControl) {
    QtWindowManager windowManager;
    QtButtonControl button(&widget, u"cmdCopy"_s);
    QtInput::ShowActive(widget);
    button.SetFocus();
    EXPECT_EQ(windowManager.GetActiveWindow(), window.Handle());
    EXPECT_EQ(windowManager.GetFocus(), button.Handle());
    QtWindow other(nullptr, u"frmPreview"_s);
    QtInput::ShowActive(*other.Widget());
    EXPECT_EQ(windowManager.GetActiveWindow(), other.Handle());
    EXPECT_NE(windowManager.GetFocus(), button.Handle());
    windowManager.FlashWindow(12345); // one that is gone
}

TEST_F(WindowTest, ScreenAndTextAreMeasuredInTwips) {
    QtWindowManager windowManager;
    EXPECT_EQ(windowManager.TwipsPerPixelX(), 15);
    EXPECT_EQ(windowManager.TwipsPerPixelY(), 15);
    for (const ScreenArea& area : {windowManager.WorkArea(), windowManager.AllScreens()}) {
        EXPECT_EQ(area.Width, 800 * 15);
        EXPECT_EQ(area.Height, 800 * 15);
    }
    EXPECT_EQ(window.TextWidth(QString()), 0);
    const double one = window.TextWidth(u"MMMM"_s);
    EXPECT_GT(one, 4 * 4 * 15);
    EXPECT_NEAR(window.TextWidth(u"MMMMMMMM"_s), 2 * one, 15);
}

} // namespace
