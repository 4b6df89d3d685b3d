#include "platform/qt/QtListControl.h"
#include "tests/window/QtInput.h"

#include <QElapsedTimer>
#include <QHelpEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

constexpr int MostRows = 32767;

std::vector<ListRow> Rows(int count) {
    std::vector<ListRow> rows;
    for (int row = 0; row < count; ++row) {
        rows.push_back({u"Row %1"_s.arg(row)});
    }
    return rows;
}

/// A real list of 100 rows in an active window, high enough for some 15 of them, all painted.
class QtList : public testing::Test {
protected:
    QWidget window;
    QtListControl list{&window, u"lstSongs"_s};
    QListView& view = *list.Widget();
    PaintSpy spy{view.viewport()};
    int clicks = 0;
    int checks = 0;
    int scrolls = 0;

    QtList() {
        window.resize(400, 400);
        list.Move(0, 0, 4500, 4500);
        list.Fill(Rows(100));
        QtInput::ShowActive(window);
        list.SetFocus();
        QtInput::Settle();
        spy.Paints = 0;
        spy.Painted = {};
        list.Click = [this] { ++clicks; };
        list.ItemCheck = [this](int) { ++checks; };
        list.Scroll = [this] { ++scrolls; };
    }

    QRect RowArea(int row) const { return view.visualRect(view.model()->index(row, 0)); }
    bool IsInView(int row) const { return view.viewport()->rect().contains(RowArea(row)); }
    QImage Picture() { return view.viewport()->grab().toImage(); }

    void TickAll() {
        for (int row = 0; row < list.ListCount(); ++row) {
            list.SetSelected(row, true);
        }
    }

    /// Fills in two rows, the second one current.
    void FillTwo() {
        list.Fill(Rows(2));
        list.SetListIndex(1);
        QtInput::Settle();
        clicks = 0;
    }

    void ExpectMarked(const std::vector<int>& rows) {
        std::vector<int> marked;
        for (const QModelIndex& index : view.selectionModel()->selectedIndexes()) {
            marked.push_back(index.row());
        }
        EXPECT_EQ(marked, rows);
    }
};

// ---- painting

TEST_F(QtList, PaintsNothingWhileItIsHiddenAndEverythingOnceItIsShown) {
    QSignalSpy changes(view.model(), &QAbstractItemModel::dataChanged);
    list.SetVisible(false);
    list.Fill(Rows(2000));
    QtInput::Settle();
    TickAll();
    list.SetListIndex(1);
    list.Refresh();
    QtInput::Settle();
    EXPECT_EQ(spy.Paints, 0);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_TRUE(view.isVisible()); // it stays in its place
    list.SetVisible(true);
    QtInput::Settle();
    EXPECT_EQ(spy.Paints, 1);
    EXPECT_TRUE(spy.Painted.contains(RowArea(3)));
    const QImage ticked = Picture();
    list.SetSelected(3, false);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_NE(Picture(), ticked);
}

TEST_F(QtList, PaintsTicksAndNewRowsAtOnceOnRefreshAndAnAbsurdNameInNoTime) {
    list.SetSelected(1, true);
    EXPECT_EQ(spy.Paints, 0);
    list.Refresh();
    EXPECT_EQ(spy.Paints, 1);
    list.Fill(Rows(3));
    EXPECT_EQ(spy.Paints, 1);
    list.Refresh();
    EXPECT_EQ(spy.Paints, 2);
    QElapsedTimer timer;
    timer.start();
    list.Fill({{QString(20000000, u'x'), false}, {u"a\nb"_s, true}});
    list.Refresh();
    EXPECT_EQ(spy.Paints, 3);
    EXPECT_LT(timer.elapsed(), 2000);
}

TEST_F(QtList, ATickPaintsItsRowAndNoOther) {
    list.SetSelected(90, true); // out of view
    QtInput::Settle();
    EXPECT_EQ(spy.Paints, 0);
    list.SetSelected(3, true);
    QtInput::Settle();
    EXPECT_EQ(spy.Paints, 1);
    EXPECT_TRUE(RowArea(3).contains(spy.Painted.boundingRect()));
}

TEST_F(QtList, FillsAndTicksThirtyTwoThousandRowsInBoundedTimeHiddenOrShown) {
    for (const bool shown : {false, true}) {
        checks = 0;
        QElapsedTimer clock;
        clock.start();
        list.SetVisible(shown);
        list.Fill(Rows(MostRows));
        TickAll();
        list.SetListIndex(MostRows - 1);
        list.SetVisible(true);
        QtInput::Settle();
        EXPECT_LT(clock.elapsed(), 3000);
        EXPECT_EQ(list.SelCount(), 32767);
        EXPECT_EQ(checks, 32767);
        EXPECT_TRUE(IsInView(32766));
    }
}

// ---- rows

TEST_F(QtList, RowsHaveOneHeightWhateverTheirNamesAndTheScriptOfTheLastOne) {
    const int height = RowArea(0).height();
    for (const QString& last : {u"\u9752\u3044"_s, u"\u0642\u0645\u0631"_s, u"\u0E17\u0E35\u0E48"_s,
                                QString(), u"b\nc\nd"_s}) {
        list.Fill({{u"Latin"_s}, {last}});
        EXPECT_EQ(RowArea(0).height(), height) << last.toStdString();
        EXPECT_EQ(RowArea(1), RowArea(0).translated(0, height)) << last.toStdString();
    }
}

TEST_F(QtList, RowsGrowWithTheLettersAndKeepTheirBoxesApart) {
    QFont font = view.font();
    for (const double factor : {0.5, 1.0, 2.0}) {
        font.setPointSizeF(QApplication::font().pointSizeF() * factor);
        view.setFont(font);
        QtInput::Settle();
        const int height = RowArea(0).height();
        EXPECT_GE(height, view.style()->pixelMetric(QStyle::PM_IndicatorHeight) + 5);
        EXPECT_GE(height, 1.1 * view.fontMetrics().height());
        EXPECT_EQ(height % 2, 0);
    }
}

TEST_F(QtList, TheToolTipIsTheWholeNameOnARowThatIsCutOffAndTheListsOnTheOthers) {
    const QString name = u"W"_s.repeated(100);
    list.SetToolTip(u"What is on the iPod"_s);
    list.Fill({{name}, {u"short"_s}});
    const auto hoverOver = [this](int row) {
        const QPoint place = RowArea(row).center();
        QHelpEvent event(QEvent::ToolTip, place, view.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(view.viewport(), &event);
        return QToolTip::text().remove(QChar(0x200B)); // where it may be broken
    };
    EXPECT_EQ(hoverOver(0), u"<qt>%1</qt>"_s.arg(name));
    EXPECT_EQ(hoverOver(1), u"<qt>What is on the iPod</qt>"_s);
    QToolTip::hideText();
}

TEST_F(QtList, OnlyTheCurrentRowIsMarkedWhicheverKeysAreHeld) {
    list.SetListIndex(7);
    ExpectMarked({7});
    int shift = 0;
    list.MouseDown = [&](const MouseState& mouse) { shift = mouse.Shift; };
    for (const auto key : {Qt::ControlModifier, Qt::ShiftModifier}) {
        const int row = key == Qt::ShiftModifier ? 6 : 4;
        QTest::mouseClick(view.viewport(), Qt::LeftButton, key,
                          view.viewport()->mapFrom(&view, QtInput::TextOf(view, row)));
        ExpectMarked({row});
        EXPECT_EQ(list.ListIndex(), row);
        EXPECT_EQ(shift, key == Qt::ShiftModifier ? 1 : 2);
    }
    list.SetListIndex(-1);
    ExpectMarked({});
}

// ---- scrolling

TEST_F(QtList, ACurrentRowSetByTheProgramComesIntoViewAndFillShowsTheFirst) {
    EXPECT_FALSE(IsInView(60));
    list.SetListIndex(60);
    QtInput::Settle();
    EXPECT_TRUE(IsInView(60));
    list.SetVisible(false);
    list.Fill(Rows(5000));
    EXPECT_TRUE(IsInView(0));
    list.SetListIndex(4000);
    list.SetVisible(true);
    QtInput::Settle();
    EXPECT_TRUE(IsInView(4000));
}

TEST_F(QtList, ScrollingByTheProgramRaisesNoScroll) {
    list.SetListIndex(99);
    list.SetListIndex(0);
    list.Fill(Rows(3));
    list.Fill(Rows(300));
    list.SetListIndex(299);
    list.SetHeight(3000);
    list.Clear();
    QtInput::Settle();
    EXPECT_EQ(scrolls, 0);
}

TEST_F(QtList, TheWheelAndTheScrollBarRaiseScrollWhereThereIsMoreToSee) {
    QtInput::WheelDown(*view.viewport());
    EXPECT_EQ(scrolls, 1);
    EXPECT_FALSE(IsInView(0));
    QScrollBar& bar = *view.verticalScrollBar();
    ASSERT_TRUE(bar.isVisible());
    QtInput::Click(bar, QPoint(bar.width() / 2, bar.height() - bar.width() - 4));
    EXPECT_EQ(scrolls, 2);
    EXPECT_EQ(clicks, 0);
    list.SetListIndex(99);
    QtInput::WheelDown(*view.viewport()); // in vain, and then forgotten
    list.SetListIndex(0);
    EXPECT_EQ(scrolls, 2);
}

// ---- mouse and keys

TEST_F(QtList, AClickInAScrolledListFindsItsRowAndScrollsNoFurther) {
    list.SetListIndex(60);
    QtInput::Settle();
    const int last = view.indexAt(QPoint(0, view.viewport()->height() - 1)).row();
    ASSERT_FALSE(IsInView(last)); // but for a part
    const QRect before = RowArea(last);
    QtInput::Click(view, QtInput::TextOf(view, last));
    EXPECT_EQ(list.ListIndex(), last);
    QtInput::Click(view, QtInput::CheckBoxOf(view, 58));
    EXPECT_TRUE(list.Selected(58));
    EXPECT_EQ(list.SelCount(), 1);
    EXPECT_EQ(RowArea(last), before);
}

TEST_F(QtList, AClickBelowTheLastRowChangesNothing) {
    FillTwo();
    int button = 0;
    list.MouseDown = [&](const MouseState& mouse) { button = mouse.Button; };
    QtInput::Click(view, QPoint(5, view.height() - 10));
    QtInput::Click(view, QPoint(100, view.height() - 10));
    EXPECT_EQ(button, 1);
    QtInput::Click(view, QPoint(100, view.height() - 10), Qt::RightButton);
    EXPECT_EQ(button, 2);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(list.SelCount(), 0);
    EXPECT_EQ(clicks, 0);
}

TEST_F(QtList, APressThatIsDraggedOffOrOntoACheckBoxTicksNothing) {
    QtInput::Press(view, QtInput::CheckBoxOf(view, 2));
    QtInput::MoveTo(view, QtInput::TextOf(view, 4));
    QtInput::Release(view, QtInput::TextOf(view, 4));
    EXPECT_EQ(list.ListIndex(), 2);
    QtInput::Press(view, QtInput::TextOf(view, 3));
    QtInput::Release(view, QtInput::CheckBoxOf(view, 3));
    EXPECT_EQ(list.ListIndex(), 3);
    EXPECT_EQ(checks, 0);
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

TEST_F(QtList, ATickIsDroppedWhenTheRowsHaveChangedBeforeTheRelease) {
    QtInput::Press(view, QtInput::CheckBoxOf(view, 2));
    list.Fill(Rows(100));
    QtInput::Release(view, QtInput::CheckBoxOf(view, 2));
    EXPECT_EQ(list.ListIndex(), -1);
    QtInput::Press(view, QtInput::CheckBoxOf(view, 2));
    list.SetListIndex(5);
    list.Click = [&] { list.Fill(Rows(100)); };
    QtInput::Release(view, QtInput::CheckBoxOf(view, 2));
    EXPECT_EQ(list.SelCount(), 0);
    EXPECT_EQ(checks, 0);
}

TEST_F(QtList, ADoubleClickIsTwoClicks) {
    QtInput::DoubleClick(view, QtInput::CheckBoxOf(view, 2));
    EXPECT_EQ(checks, 2);
    EXPECT_FALSE(list.Selected(2));
    clicks = 0;
    QtInput::DoubleClick(view, QtInput::TextOf(view, 3));
    EXPECT_EQ(checks, 2);
    EXPECT_EQ(clicks, 2);
}

TEST_F(QtList, KeysMakeARowCurrentAndTheFocusDoesNot) {
    view.clearFocus();
    view.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(clicks, 0);
    list.SetListIndex(5);
    clicks = 0;
    QtInput::Key(view, Qt::Key_End);
    EXPECT_EQ(list.ListIndex(), 99);
    QtInput::Key(view, Qt::Key_Home);
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(clicks, 2);
    list.Fill({{u"Abba"_s}, {u"Queen"_s}});
    QtInput::Type(view, u"q"_s);
    EXPECT_EQ(list.ListIndex(), 1);
    EXPECT_EQ(clicks, 3);
    EXPECT_EQ(checks, 0);
}

TEST_F(QtList, TheMenuKeysPressTheRightButtonInTheMiddleOfTheCurrentRow) {
    std::vector<MouseState> presses;
    list.MouseDown = [&](const MouseState& mouse) { presses.push_back(mouse); };
    const auto pressMenuKeys = [this] {
        QTest::keyClick(window.windowHandle(), Qt::Key_F10, Qt::ShiftModifier);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(view.viewport(), &event);
    };
    pressMenuKeys(); // no row is current
    EXPECT_TRUE(presses.empty());
    list.SetListIndex(0);
    QtInput::WheelDown(*view.viewport());
    ASSERT_FALSE(IsInView(0));
    pressMenuKeys();
    ASSERT_EQ(presses.size(), 2u);
    for (const MouseState& press : presses) {
        EXPECT_EQ(press.Button, 2);
        EXPECT_TRUE(RowArea(0).contains(QPoint(int(press.X / 15), int(press.Y / 15)) -
                                        view.viewport()->pos()));
    }
}

TEST_F(QtList, AListThatGoesBeforeOrAfterItsWindowTakesItsWidgetAlong) {
    auto parent = std::make_unique<QWidget>();
    auto inner = std::make_unique<QtListControl>(parent.get(), u"inner"_s);
    inner->Fill(Rows(10));
    parent.reset();
    inner.reset();
    auto otherParent = std::make_unique<QWidget>();
    QtListControl(otherParent.get(), u"inner"_s).Fill(Rows(10));
    EXPECT_TRUE(otherParent->findChildren<QListView*>().isEmpty());
}

} // namespace
