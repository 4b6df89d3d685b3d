#include "platform/qt/QtWindow.h"
#include "platform/qt/QtButtonControl.h"
#include "platform/qt/QtLabelControl.h"
#include "platform/qt/QtWindowManager.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Log = std::vector<std::string>;

class PaintCounter : public QObject {
public:
    int Paints = 0;

    explicit PaintCounter(QWidget* widget) { widget->installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        Paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

class WindowTest : public testing::Test {
protected:
    QtWindow window{nullptr, QStringLiteral("Form1")};

    void Show() {
        window.Show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.Widget()));
        QCoreApplication::processEvents();
    }
};

TEST_F(WindowTest, IsHiddenAtFirstAndBearsItsName) {
    EXPECT_FALSE(window.Widget()->isVisible());
    EXPECT_EQ(window.Widget()->objectName(), QStringLiteral("Form1"));
    EXPECT_NE(window.Handle(), 0u);
}

TEST_F(WindowTest, TheSizeIsExactlyWhatWasSetBeforeAndAfterItIsShown) {
    window.SetSize(9003.5, 6001.25);
    EXPECT_EQ(window.Width(), 9003.5);
    EXPECT_EQ(window.Height(), 6001.25);
    Show();
    EXPECT_EQ(window.Width(), 9003.5);
    EXPECT_EQ(window.Height(), 6001.25);
    EXPECT_EQ(window.Widget()->size(), QSize(600, 400)); // without border and title bar
    window.Hide();
    EXPECT_EQ(window.Width(), 9003.5);
    EXPECT_EQ(window.Height(), 6001.25);
}

TEST_F(WindowTest, ManyRunsThatSaveAndRestoreTheSizeDoNotLetItDrift) {
    double width = 9001;
    double height = 6007;
    for (int run = 0; run < 5; ++run) {
        QtWindow again(nullptr, QStringLiteral("Form1"));
        again.SetSize(width, height);
        again.Show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(again.Widget()));
        width = again.Width();
        height = again.Height();
    }
    EXPECT_EQ(width, 9001);
    EXPECT_EQ(height, 6007);
}

TEST_F(WindowTest, ThePositionIsExactlyWhatWasSet) {
    window.MoveTo(1503.25, 757.5);
    EXPECT_EQ(window.Left(), 1503.25);
    EXPECT_EQ(window.Top(), 757.5);
    EXPECT_EQ(window.Widget()->pos(), QPoint(100, 51));
}

TEST_F(WindowTest, ASizeThatTheUserChangedIsTheNewOne) {
    window.SetSize(9003.5, 6001.25);
    Show();
    window.Widget()->resize(300, 200);
    EXPECT_EQ(window.Width(), 4500);
    EXPECT_EQ(window.Height(), 3000);
}

TEST_F(WindowTest, SetSizeRaisesResizeBeforeItReturnsAlsoWhileHidden) {
    int resizes = 0;
    window.Resize = [&] { ++resizes; };
    window.SetSize(9000, 6000);
    EXPECT_EQ(resizes, 1);
    window.SetSize(9000, 6000);
    EXPECT_EQ(resizes, 1);
    Show();
    resizes = 0;
    window.SetSize(7500, 6000);
    EXPECT_EQ(resizes, 1);
}

TEST_F(WindowTest, AResizeHandlerMayCorrectTheSize) {
    window.Resize = [&] {
        if (window.Width() < 6000) {
            window.SetSize(6000, window.Height());
        }
    };
    Show();
    window.SetSize(3000, 4500);
    EXPECT_EQ(window.Width(), 6000);
    EXPECT_EQ(window.Height(), 4500);
}

TEST_F(WindowTest, AChangeOfTheStateRaisesResizeAndCanBeReadInIt) {
    window.SetSize(9000, 6000);
    Show();
    std::vector<WindowState> states;
    window.Resize = [&] { states.push_back(window.State()); };
    window.SetState(WindowState::Maximized);
    QCoreApplication::processEvents();
    ASSERT_FALSE(states.empty());
    EXPECT_EQ(states.back(), WindowState::Maximized);
    window.SetState(WindowState::Minimized);
    QCoreApplication::processEvents();
    EXPECT_EQ(states.back(), WindowState::Minimized);
    EXPECT_TRUE(window.Minimized());
    window.SetState(WindowState::Normal);
    QCoreApplication::processEvents();
    EXPECT_EQ(states.back(), WindowState::Normal);
    EXPECT_EQ(window.Width(), 9000);
    EXPECT_EQ(window.Height(), 6000);
}

TEST_F(WindowTest, AStateThatIsSetBeforeTheWindowIsShownHolds) {
    window.SetState(WindowState::Maximized);
    EXPECT_EQ(window.State(), WindowState::Maximized);
    Show();
    EXPECT_EQ(window.State(), WindowState::Maximized);
    EXPECT_GT(window.Width(), 9000);
}

TEST_F(WindowTest, AMaximisedWindowTakesItsNewSizeWhenItIsNormalAgain) {
    window.SetSize(9000, 6000);
    Show();
    window.SetState(WindowState::Maximized);
    QCoreApplication::processEvents();
    const double maximized = window.Width();
    window.SetSize(7500, 4500);
    EXPECT_EQ(window.Width(), maximized);
    window.SetState(WindowState::Normal);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.Width(), 7500);
    EXPECT_EQ(window.Height(), 4500);
}

TEST_F(WindowTest, TheUsersCloseAsksAndCloses) {
    Log log;
    window.QueryUnload = [&](bool&, UnloadMode mode) {
        log.push_back(mode == UnloadMode::User ? "user" : "program");
    };
    Show();
    window.Widget()->close();
    EXPECT_EQ(log, Log({"user"}));
    EXPECT_FALSE(window.Widget()->isVisible());
}

TEST_F(WindowTest, ACancelledCloseKeepsTheWindowOpen) {
    window.QueryUnload = [](bool& cancel, UnloadMode mode) { cancel = mode == UnloadMode::User; };
    Show();
    window.Widget()->close();
    EXPECT_TRUE(window.Widget()->isVisible());
    window.Unload();
    EXPECT_FALSE(window.Widget()->isVisible());
}

TEST_F(WindowTest, WindowsThatHideInsteadOfClosingDoNotKeepTheProgramFromQuitting) {
    // Two of them: the first refusal would leave the other one standing.
    QtWindow other(nullptr, QStringLiteral("frmPreview"));
    for (QtWindow* hiding : {&window, &other}) {
        hiding->QueryUnload = [hiding](bool& cancel, UnloadMode) {
            cancel = true;
            hiding->Hide();
        };
    }
    Show();
    other.Show();
    QTimer::singleShot(0, [] { QCoreApplication::quit(); });
    QTimer::singleShot(1000, qApp, [] { QCoreApplication::exit(1); });
    EXPECT_EQ(QApplication::exec(), 0);
}

TEST_F(WindowTest, UnloadAsksForTheProgramAlsoWhileHidden) {
    Log log;
    window.QueryUnload = [&](bool&, UnloadMode mode) {
        log.push_back(mode == UnloadMode::User ? "user" : "program");
    };
    window.Unload();
    EXPECT_EQ(log, Log({"program"}));
    Show();
    window.Unload();
    window.Widget()->close();
    EXPECT_EQ(log[1], "program");
}

TEST_F(WindowTest, WhatIsClosedCanBeShownAgain) {
    Show();
    window.Widget()->close();
    Show();
    EXPECT_TRUE(window.Widget()->isVisible());
}

TEST_F(WindowTest, ShowModalWaitsUntilTheWindowIsClosed) {
    Log log;
    QTimer::singleShot(0, [&] {
        log.push_back(window.Widget()->isModal() ? "modal" : "modeless");
        window.Unload();
    });
    window.ShowModal();
    log.push_back("returned");
    EXPECT_EQ(log, Log({"modal", "returned"}));
}

TEST_F(WindowTest, ACancelledCloseDoesNotEndShowModal) {
    int asked = 0;
    window.QueryUnload = [&](bool& cancel, UnloadMode) { cancel = ++asked == 1; };
    QTimer::singleShot(0, [&] {
        window.Widget()->close();
        QTimer::singleShot(0, [&] { window.Widget()->close(); });
    });
    window.ShowModal();
    EXPECT_EQ(asked, 2);
}

TEST_F(WindowTest, EscapeClosesAModalWindowAndNoOther) {
    Show();
    QTest::keyClick(window.Widget(), Qt::Key_Escape);
    EXPECT_TRUE(window.Widget()->isVisible());
    window.Hide();
    QTimer::singleShot(0, [&] { QTest::keyClick(window.Widget(), Qt::Key_Escape); });
    window.ShowModal();
    EXPECT_FALSE(window.Widget()->isVisible());
}

TEST_F(WindowTest, EnterPressesTheDefaultButton) {
    QtButtonControl button(window.Widget(), QStringLiteral("cmdSearch"));
    QtButtonControl other(window.Widget(), QStringLiteral("cmdClear"));
    int presses = 0;
    button.Click = [&] { ++presses; };
    other.Click = [&] { presses += 100; };
    Show();
    button.SetDefault(true);
    QTest::keyClick(window.Widget(), Qt::Key_Return);
    QTest::keyClick(window.Widget(), Qt::Key_Enter);
    EXPECT_EQ(presses, 2);
    button.SetEnabled(false);
    QTest::keyClick(window.Widget(), Qt::Key_Return);
    EXPECT_EQ(presses, 2);
    button.SetEnabled(true);
    QTest::keyClick(other.Widget(), Qt::Key_Return);
    EXPECT_EQ(presses, 102);
}

TEST_F(WindowTest, RefreshPaintsWhatHasChangedBeforeTheEventLoopRuns) {
    QtLabelControl label(window.Widget(), QStringLiteral("lblMessage"));
    label.Move(0, 0, 3000, 300);
    PaintCounter counter(label.Widget());
    window.Show();
    window.Refresh();
    EXPECT_GE(counter.Paints, 1);
    QTest::qWait(20);
    counter.Paints = 0;
    label.SetCaption(QStringLiteral("Loading music... 1%"));
    window.Refresh();
    EXPECT_EQ(counter.Paints, 1);
    QTest::qWait(20);
    window.Refresh();
    EXPECT_EQ(counter.Paints, 1);
}

TEST_F(WindowTest, RefreshPaintsNoOftenerThanCanBeSeen) {
    QtLabelControl label(window.Widget(), QStringLiteral("lblMessage"));
    label.Move(0, 0, 3000, 300);
    Show();
    QTest::qWait(20);
    PaintCounter counter(label.Widget());
    QElapsedTimer clock;
    clock.start();
    for (int percent = 0; percent < 1000; ++percent) {
        label.SetCaption(QStringLiteral("Loading music... %1%").arg(percent));
        window.Refresh();
    }
    EXPECT_GE(counter.Paints, 1);
    EXPECT_LE(counter.Paints, 2 + clock.elapsed() / 16);
}

TEST_F(WindowTest, RefreshHandlesNoInput) {
    QtButtonControl button(window.Widget(), QStringLiteral("cmdCopy"));
    int presses = 0;
    button.Click = [&] { ++presses; };
    window.Show();
    QCoreApplication::postEvent(button.Widget(),
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier));
    window.Widget()->update();
    window.Refresh();
    QTest::qWait(20);
    presses = 0;
    QCoreApplication::postEvent(button.Widget(),
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier));
    window.Widget()->update();
    window.Refresh();
    EXPECT_EQ(presses, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(presses, 1);
}

TEST_F(WindowTest, RefreshOfAHiddenWindowDoesNothing) {
    window.Refresh();
    EXPECT_FALSE(window.Widget()->isVisible());
}

TEST_F(WindowTest, TheHourglassIsShownOnceAndTakenBackOnce) {
    window.SetMousePointer(MousePointer::Hourglass);
    window.SetMousePointer(MousePointer::Hourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    window.SetMousePointer(MousePointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    window.SetMousePointer(MousePointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(WindowTest, AWindowThatGoesTakesItsHourglassAlong) {
    {
        QtWindow other(nullptr, QStringLiteral("frmPreview"));
        other.SetMousePointer(MousePointer::Hourglass);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(WindowTest, TextWidthIsMeasuredInTwips) {
    EXPECT_EQ(window.TextWidth(QString()), 0);
    const double one = window.TextWidth(QStringLiteral("MMMM"));
    EXPECT_GT(one, 4 * 4 * 15);
    EXPECT_NEAR(window.TextWidth(QStringLiteral("MMMMMMMM")), 2 * one, 15);
}

TEST_F(WindowTest, KeepsItsCaptionAndShowsItAsItIs) {
    EXPECT_EQ(window.Caption(), QString());
    window.SetCaption(QStringLiteral("Songlift"));
    EXPECT_EQ(window.Caption(), QStringLiteral("Songlift"));
    EXPECT_EQ(window.Widget()->windowTitle(), QStringLiteral("Songlift"));
    window.SetCaption(QStringLiteral("A [*] song & more"));
    EXPECT_EQ(window.Caption(), QStringLiteral("A [*] song & more"));
    window.Widget()->setWindowModified(true);
    EXPECT_EQ(window.Widget()->windowTitle(), QStringLiteral("A [*][*] song & more"));
}

TEST_F(WindowTest, AnOwnedWindowGoesWithItsOwner) {
    auto owner = std::make_unique<QtWindow>(nullptr, QStringLiteral("Form1"));
    QtWindow owned(owner->Widget(), QStringLiteral("frmPreview"));
    EXPECT_TRUE(owned.Widget()->isWindow());
    owner.reset();
    EXPECT_EQ(owned.Widget(), nullptr);
}

TEST_F(WindowTest, AnOwnedWindowLiesOnItsScreenWheneverItIsShownOrSized) {
    Show();
    QtWindow owned(window.Widget(), QStringLiteral("frmPreview"));
    owned.SetSize(300 * 15, 200 * 15);
    owned.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(owned.Widget()));
    const QRect screen(0, 0, 800, 800);
    owned.Widget()->move(450, 550);
    owned.SetSize(500 * 15, 400 * 15);
    EXPECT_EQ(owned.Widget()->frameGeometry().bottomRight(), screen.bottomRight());
    owned.Hide();
    owned.Widget()->move(-50, 600);
    owned.Show();
    EXPECT_EQ(owned.Widget()->frameGeometry().bottomLeft(), screen.bottomLeft());
    owned.SetSize(900 * 15, 100 * 15); // the beginning of a larger one is seen
    EXPECT_EQ(owned.Widget()->frameGeometry().left(), 0);
    EXPECT_TRUE(owned.Widget()->isVisible());
}

TEST_F(WindowTest, TheWindowManagerNamesTheActiveWindowAndTheFocusedControl) {
    QtWindowManager windowManager;
    QtButtonControl button(window.Widget(), QStringLiteral("cmdCopy"));
    Show();
    QApplication::setActiveWindow(window.Widget());
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.Widget()));
    button.SetFocus();
    EXPECT_EQ(windowManager.GetActiveWindow(), window.Handle());
    EXPECT_EQ(windowManager.GetFocus(), button.Handle());
    QtWindow other(nullptr, QStringLiteral("frmPreview"));
    other.Show();
    QApplication::setActiveWindow(other.Widget());
    ASSERT_TRUE(QTest::qWaitForWindowActive(other.Widget()));
    EXPECT_EQ(windowManager.GetActiveWindow(), other.Handle());
    EXPECT_NE(windowManager.GetFocus(), button.Handle());
}

TEST_F(WindowTest, TheScreenIsMeasuredInTwips) {
    QtWindowManager windowManager;
    EXPECT_EQ(windowManager.TwipsPerPixelX(), 15);
    EXPECT_EQ(windowManager.TwipsPerPixelY(), 15);
    EXPECT_EQ(windowManager.WorkArea().Width, 800 * 15);
    EXPECT_EQ(windowManager.WorkArea().Height, 800 * 15);
    EXPECT_EQ(windowManager.AllScreens().Width, 800 * 15);
    EXPECT_EQ(windowManager.AllScreens().Height, 800 * 15);
}

TEST_F(WindowTest, FlashingAWindowThatIsGoneDoesNothing) {
    QtWindowManager windowManager;
    windowManager.FlashWindow(0);
    windowManager.FlashWindow(12345);
    windowManager.FlashWindow(window.Handle());
    EXPECT_FALSE(window.Widget()->isVisible());
}

} // namespace
