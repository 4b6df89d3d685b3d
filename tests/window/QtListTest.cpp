#include "platform/qt/QtListControl.h"
#include "tests/window/QtInput.h"

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace {

constexpr int MostRows = 32767;

std::vector<ListRow> Rows(int count) {
    std::vector<ListRow> rows;
    rows.reserve(size_t(count));
    for (int row = 0; row < count; ++row) {
        rows.push_back({QStringLiteral("Row %1").arg(row), false});
    }
    return rows;
}

/// Counts what a widget paints.
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

/// A real list of 100 rows in an active window, high enough for some 15 of them.
class QtList : public testing::Test {
protected:
    QWidget window;
    QtListControl list{&window, QStringLiteral("lstSongs")};
    QListView& view = *list.Widget();
    int clicks = 0;
    int checks = 0;
    int scrolls = 0;

    QtList() {
        window.resize(400, 400);
        list.Move(0, 0, 4500, 4500);
        list.Fill(Rows(100));
        window.show();
        QApplication::setActiveWindow(&window);
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        list.SetFocus();
        QApplication::processEvents();
        list.Click = [this] { ++clicks; };
        list.ItemCheck = [this](int) { ++checks; };
        list.Scroll = [this] { ++scrolls; };
    }

    bool IsInView(int row) const {
        return view.viewport()->rect().contains(view.visualRect(view.model()->index(row, 0)));
    }
    QImage Picture() { return view.viewport()->grab().toImage(); }
};

TEST_F(QtList, PaintsNothingWhileItIsNotVisible) {
    PaintCounter counter(view.viewport());
    list.SetVisible(false);
    list.Fill(Rows(200));
    list.SetSelected(1, true);
    list.SetListIndex(3);
    list.Refresh();
    QApplication::processEvents();
    EXPECT_EQ(counter.Paints, 0);
}

TEST_F(QtList, PaintsWhatHasChangedOnceItIsVisibleAgain) {
    const QImage before = Picture();
    list.SetVisible(false);
    list.SetSelected(1, true);
    list.SetVisible(true);
    QApplication::processEvents();
    EXPECT_NE(Picture(), before);
    PaintCounter counter(view.viewport());
    list.SetVisible(false);
    list.Fill(Rows(200));
    list.SetVisible(true);
    QApplication::processEvents();
    EXPECT_GE(counter.Paints, 1);
    EXPECT_LE(counter.Paints, 2);
}

TEST_F(QtList, PaintsATickAtOnceOnRefresh) {
    QApplication::processEvents();
    PaintCounter counter(view.viewport());
    list.SetSelected(1, true);
    EXPECT_EQ(counter.Paints, 0);
    list.Refresh();
    EXPECT_EQ(counter.Paints, 1);
}

TEST_F(QtList, PaintsNewRowsAtOnceOnRefresh) {
    QApplication::processEvents();
    PaintCounter counter(view.viewport());
    list.Fill(Rows(3));
    EXPECT_EQ(counter.Paints, 0);
    list.Refresh();
    EXPECT_EQ(counter.Paints, 1);
}

TEST_F(QtList, StaysInItsPlaceWhileItIsNotVisible) {
    list.SetVisible(false);
    EXPECT_TRUE(view.isVisible());
    EXPECT_FALSE(list.Visible());
}

TEST_F(QtList, FillsAndTicksThirtyTwoThousandRowsInBoundedTime) {
    QElapsedTimer clock;
    clock.start();
    list.SetVisible(false);
    list.Fill(Rows(MostRows));
    for (int row = 0; row < MostRows; ++row) {
        list.SetSelected(row, true);
    }
    list.SetListIndex(MostRows - 1);
    list.SetVisible(true);
    QApplication::processEvents();
    EXPECT_LT(clock.elapsed(), 3000);
    EXPECT_EQ(list.ListCount(), 32767);
    EXPECT_EQ(list.SelCount(), 32767);
    EXPECT_EQ(checks, 32767);
    EXPECT_TRUE(IsInView(32766));
}

TEST_F(QtList, TicksThirtyTwoThousandRowsInBoundedTimeBeforeTheUsersEyes) {
    list.Fill(Rows(MostRows));
    QElapsedTimer clock;
    clock.start();
    for (int row = 0; row < MostRows; ++row) {
        list.SetSelected(row, true);
    }
    QApplication::processEvents();
    EXPECT_LT(clock.elapsed(), 3000);
    EXPECT_EQ(list.SelCount(), 32767);
}

TEST_F(QtList, ACurrentRowSetByTheProgramComesIntoView) {
    EXPECT_FALSE(IsInView(60));
    list.SetListIndex(60);
    QApplication::processEvents();
    EXPECT_TRUE(IsInView(60));
}

TEST_F(QtList, ACurrentRowSetWhileHiddenComesIntoView) {
    list.SetVisible(false);
    list.Fill(Rows(5000));
    list.SetListIndex(4000);
    list.SetVisible(true);
    QApplication::processEvents();
    EXPECT_TRUE(IsInView(4000));
}

TEST_F(QtList, FillShowsTheFirstRow) {
    list.SetListIndex(99);
    QApplication::processEvents();
    list.Fill(Rows(100));
    QApplication::processEvents();
    EXPECT_TRUE(IsInView(0));
}

TEST_F(QtList, WhatTheProgramScrollsRaisesNoScroll) {
    list.SetListIndex(99);
    list.SetListIndex(0);
    list.Fill(Rows(3));
    list.Fill(Rows(300));
    list.SetListIndex(299);
    list.SetHeight(3000);
    list.Clear();
    QApplication::processEvents();
    EXPECT_EQ(scrolls, 0);
}

TEST_F(QtList, TheWheelRaisesScroll) {
    QtInput::WheelDown(*view.viewport());
    EXPECT_EQ(scrolls, 1);
    EXPECT_EQ(clicks, 0);
    EXPECT_FALSE(IsInView(0));
}

TEST_F(QtList, TheWheelAtTheEndRaisesNoScroll) {
    list.Fill(Rows(2));
    QApplication::processEvents();
    QtInput::WheelDown(*view.viewport());
    EXPECT_EQ(scrolls, 0);
}

TEST_F(QtList, TheScrollBarRaisesScroll) {
    QScrollBar& bar = *view.verticalScrollBar();
    ASSERT_TRUE(bar.isVisible());
    QtInput::Click(bar, QPoint(bar.width() / 2, bar.height() - bar.width() - 4));
    EXPECT_GE(scrolls, 1);
    EXPECT_FALSE(IsInView(0));
}

TEST_F(QtList, AClickInAScrolledListFindsItsRow) {
    list.SetListIndex(60);
    QApplication::processEvents();
    QtInput::Click(view, QtInput::TextOf(view, 59));
    EXPECT_EQ(list.ListIndex(), 59);
    QtInput::Click(view, QtInput::CheckBoxOf(view, 58));
    EXPECT_TRUE(list.Selected(58));
    EXPECT_EQ(list.SelCount(), 1);
}

TEST_F(QtList, AClickOnTheTextTicksNothingAndAClickOnTheCheckBoxDoes) {
    QtInput::Click(view, QtInput::TextOf(view, 2));
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_FALSE(list.Selected(2));
    QtInput::Click(view, QtInput::CheckBoxOf(view, 2));
    EXPECT_TRUE(list.Selected(2));
}

TEST_F(QtList, AClickBelowTheLastRowChangesNothing) {
    list.Fill(Rows(2));
    list.SetListIndex(1);
    clicks = 0;
    QtInput::Click(view, QPoint(5, view.height() - 10));
    QtInput::Click(view, QPoint(100, view.height() - 10));
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.SelCount(), 0);
    EXPECT_EQ(clicks, 0);
}

TEST_F(QtList, ARightClickBelowTheLastRowKeepsTheCurrentRow) {
    list.Fill(Rows(2));
    list.SetListIndex(1);
    clicks = 0;
    int button = 0;
    list.MouseDown = [&](const MouseState& mouse) { button = mouse.Button; };
    QtInput::Click(view, QPoint(100, view.height() - 10), Qt::RightButton);
    EXPECT_EQ(button, 2);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(clicks, 0);
}

TEST_F(QtList, APressThatIsDraggedOffTheCheckBoxTicksNothing) {
    QtInput::Press(view, QtInput::CheckBoxOf(view, 2));
    QtInput::MoveTo(view, QtInput::TextOf(view, 4));
    QtInput::Release(view, QtInput::TextOf(view, 4));
    EXPECT_EQ(checks, 0);
    EXPECT_EQ(list.ListIndex(), 2);
    QtInput::Press(view, QtInput::TextOf(view, 3));
    QtInput::Release(view, QtInput::CheckBoxOf(view, 3));
    EXPECT_EQ(checks, 0);
    EXPECT_EQ(list.ListIndex(), 3);
}

TEST_F(QtList, ATickMakesItsRowCurrentAgainWhenTheProgramMadeAnotherCurrentMeanwhile) {
    QtInput::Press(view, QtInput::CheckBoxOf(view, 2));
    list.SetListIndex(5);
    clicks = 0;
    QtInput::Release(view, QtInput::CheckBoxOf(view, 2));
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_TRUE(list.Selected(2));
    EXPECT_EQ(clicks, 2);
}

TEST_F(QtList, ATickIsDroppedWhenTheClickHandlerFillsInOtherRowsOnRelease) {
    QtInput::Press(view, QtInput::CheckBoxOf(view, 2));
    list.SetListIndex(5);
    list.Click = [&] { list.Fill(Rows(100)); };
    QtInput::Release(view, QtInput::CheckBoxOf(view, 2));
    EXPECT_EQ(checks, 0);
    EXPECT_EQ(list.SelCount(), 0);
}

TEST_F(QtList, ATickIsDroppedWhenTheRowsAreOthersOnRelease) {
    QtInput::Press(view, QtInput::CheckBoxOf(view, 2));
    list.Fill(Rows(100));
    QtInput::Release(view, QtInput::CheckBoxOf(view, 2));
    EXPECT_EQ(checks, 0);
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(QtList, ADoubleClickOnTheCheckBoxTicksTwice) {
    QtInput::DoubleClick(view, QtInput::CheckBoxOf(view, 2));
    EXPECT_EQ(checks, 2);
    EXPECT_FALSE(list.Selected(2));
}

TEST_F(QtList, ADoubleClickOnTheTextTicksNothing) {
    QtInput::DoubleClick(view, QtInput::TextOf(view, 2));
    EXPECT_EQ(checks, 0);
    EXPECT_EQ(clicks, 2);
}

TEST_F(QtList, ShiftAndControlSelectNoFurtherRows) {
    QtInput::Click(view, QtInput::TextOf(view, 2));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      view.viewport()->mapFrom(&view, QtInput::TextOf(view, 4)));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      view.viewport()->mapFrom(&view, QtInput::TextOf(view, 6)));
    EXPECT_EQ(list.ListIndex(), 6);
    EXPECT_EQ(view.selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(view.selectionModel()->selectedIndexes().value(0).row(), 6);
}

TEST_F(QtList, TheCurrentRowIsTheMarkedOne) {
    list.SetListIndex(7);
    ASSERT_EQ(view.selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(view.selectionModel()->selectedIndexes().value(0).row(), 7);
    list.SetListIndex(-1);
    EXPECT_TRUE(view.selectionModel()->selectedIndexes().isEmpty());
}

TEST_F(QtList, GettingTheFocusMakesNoRowCurrent) {
    window.setFocus();
    view.clearFocus();
    view.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(clicks, 0);
}

TEST_F(QtList, EndAndHomeMoveTheCurrentRow) {
    list.SetListIndex(5);
    clicks = 0;
    QtInput::Key(view, Qt::Key_End);
    EXPECT_EQ(list.ListIndex(), 99);
    QtInput::Key(view, Qt::Key_Home);
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(clicks, 2);
}

TEST_F(QtList, ATypedLetterFindsARowAndRaisesClickOnce) {
    list.Fill({{QStringLiteral("Abba"), false}, {QStringLiteral("Queen"), false}});
    list.SetListIndex(0);
    clicks = 0;
    QtInput::Type(view, QStringLiteral("q"));
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(checks, 0);
}

TEST_F(QtList, AScreenReaderIsToldTheCheckOfEveryRow) {
    list.SetSelected(1, true);
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(reader, nullptr);
    ASSERT_NE(reader->child(1), nullptr);
    EXPECT_EQ(reader->child(1)->text(QAccessible::Name), QStringLiteral("Row 1"));
    EXPECT_TRUE(reader->child(1)->state().checkable);
    EXPECT_TRUE(reader->child(1)->state().checked);
    EXPECT_FALSE(reader->child(2)->state().checked);
}

TEST_F(QtList, AListThatGoesWithItsWindowTakesItsWidgetAlong) {
    auto parent = std::make_unique<QWidget>();
    auto inner = std::make_unique<QtListControl>(parent.get(), QStringLiteral("inner"));
    inner->Fill(Rows(10));
    parent.reset();
    inner.reset();
    auto otherParent = std::make_unique<QWidget>();
    QtListControl(otherParent.get(), QStringLiteral("inner")).Fill(Rows(10));
    EXPECT_TRUE(otherParent->findChildren<QListView*>().isEmpty());
}

} // namespace
