#include "platform/qt/QtButtonControl.h"
#include "platform/qt/QtLabelControl.h"
#include "platform/qt/QtListControl.h"
#include "platform/qt/QtProgressControl.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using Log = std::vector<std::string>;

/// A list that a screen reader listens to: rows "r0", "r1" and so on.
class Accessibility : public testing::Test {
protected:
    QWidget window;
    QtListControl list{&window, QStringLiteral("lstArtists")};
    QtListView& view = *static_cast<QtListView*>(list.Widget());
    /// What a screen reader would have been told.
    Log heard;

    Accessibility() {
        view.IsHeard = [] { return true; };
        view.AnnounceTick = [this](int row) {
            const QAccessibleInterface* told = Row(row);
            heard.push_back(told->text(QAccessible::Name).toStdString() +
                            (told->state().checked ? " ticked" : " unticked"));
        };
        window.resize(400, 400);
        list.Move(0, 0, 4500, 4500);
        window.show();
        Fill(4);
    }

    void Fill(int count, bool ticked = false) {
        std::vector<ListRow> rows;
        for (int row = 0; row < count; ++row) {
            rows.push_back({QStringLiteral("r%1").arg(row), ticked});
        }
        list.Fill(std::move(rows));
        QCoreApplication::processEvents();
        heard.clear();
    }

    QAccessibleInterface* Interface() { return QAccessible::queryAccessibleInterface(&view); }
    QAccessibleInterface* Row(int row) { return Interface()->child(row); }
};

TEST_F(Accessibility, AListIsAListOfCheckBoxes) {
    EXPECT_EQ(Interface()->role(), QAccessible::List);
    EXPECT_EQ(Interface()->childCount(), 4);
    EXPECT_EQ(Row(0)->role(), QAccessible::CheckBox);
}

TEST_F(Accessibility, ARowTellsItsNameAndItsCheck) {
    list.SetSelected(2, true);
    EXPECT_EQ(Row(1)->text(QAccessible::Name), QStringLiteral("r1"));
    EXPECT_TRUE(Row(1)->state().checkable);
    EXPECT_FALSE(Row(1)->state().checked);
    EXPECT_EQ(Row(2)->text(QAccessible::Name), QStringLiteral("r2"));
    EXPECT_TRUE(Row(2)->state().checkable);
    EXPECT_TRUE(Row(2)->state().checked);
}

TEST_F(Accessibility, ARowTellsItsWholeNameHoweverLong) {
    const QString name = QString(3000, QLatin1Char('n'));
    list.Fill({{name, false}});
    EXPECT_EQ(Row(0)->text(QAccessible::Name), name);
}

TEST_F(Accessibility, ATickFromCodeIsHeardWhileTheListIsVisible) {
    list.SetSelected(1, true);
    list.SetSelected(1, true);
    list.SetSelected(1, false);
    EXPECT_EQ(heard, Log({"r1 ticked", "r1 unticked"}));
}

TEST_F(Accessibility, ATickOfTheUserIsHeardBeforeItsHandlersRun) {
    list.SetListIndex(3);
    list.ItemCheck = [this](int) { heard.push_back("ItemCheck"); };
    QTest::keyClick(list.Widget(), Qt::Key_Space);
    EXPECT_EQ(heard, Log({"r3 ticked", "ItemCheck"}));
}

TEST_F(Accessibility, ABulkChangeIsHeardOnceForEachChangedRowInView) {
    list.SetVisible(false);
    list.SetSelected(0, true);
    list.SetSelected(1, true);
    list.SetSelected(2, true);
    list.SetSelected(2, false);
    EXPECT_EQ(heard, Log{});
    list.SetVisible(true);
    EXPECT_EQ(heard, Log({"r0 ticked", "r1 ticked"}));
}

TEST_F(Accessibility, NothingIsAnnouncedWhileNobodyListens) {
    view.IsHeard = [] { return false; };
    list.SetSelected(1, true);
    list.SetVisible(false);
    list.SetSelected(2, true);
    list.SetVisible(true);
    EXPECT_EQ(heard, Log{});
}

TEST_F(Accessibility, ABulkChangeOfThousandsOfRowsTellsOnlyOfThoseInView) {
    Fill(32767);
    list.SetVisible(false);
    for (int row = 0; row < list.ListCount(); ++row) {
        list.SetSelected(row, true);
    }
    list.SetVisible(true);
    ASSERT_GT(heard.size(), 5u);
    EXPECT_LT(heard.size(), 60u);
    EXPECT_EQ(heard[0], "r0 ticked");
}

TEST_F(Accessibility, RowsFilledDuringABulkChangeAreNotTakenForTheEarlierOnes) {
    list.SetVisible(false);
    Fill(2, true);
    list.SetSelected(0, false);
    list.SetVisible(true);
    EXPECT_EQ(heard, Log{});
    EXPECT_FALSE(Row(0)->state().checked);
    EXPECT_TRUE(Row(1)->state().checked);
}

TEST_F(Accessibility, AScreenReadersToggleIsAUsersTick) {
    Log log;
    list.Click = [&] { log.push_back("Click " + std::to_string(list.ListIndex())); };
    list.ItemCheck = [&](int row) { log.push_back("ItemCheck " + std::to_string(row)); };
    Row(2)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(log, Log({"Click 2", "ItemCheck 2", "Click 2"}));
    EXPECT_TRUE(list.Selected(2));
    EXPECT_EQ(heard, Log({"r2 ticked"}));
}

TEST_F(Accessibility, ARowThatAScreenReaderFocusesBecomesCurrent) {
    list.SetListIndex(0);
    Log log;
    list.Click = [&] { log.push_back("Click " + std::to_string(list.ListIndex())); };
    Row(2)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(log, Log({"Click 2"}));
    EXPECT_TRUE(Row(2)->state().selected);
    EXPECT_FALSE(Row(0)->state().selected);
    EXPECT_FALSE(list.Selected(2));
}

TEST_F(Accessibility, AScreenReaderCannotActOnADisabledOrHiddenList) {
    list.SetListIndex(0);
    list.SetEnabled(false);
    Row(2)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    Row(2)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_TRUE(Row(2)->state().disabled);
    list.SetEnabled(true);
    list.SetVisible(false);
    Row(2)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    Row(2)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_FALSE(list.Selected(2));
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(Accessibility, ARowIsWhereItIsOnTheScreen) {
    const QRect row = view.visualRect(view.model()->index(2, 0));
    EXPECT_EQ(Row(2)->rect(), QRect(view.viewport()->mapToGlobal(row.topLeft()), row.size()));
    const QPoint middle = Row(2)->rect().center();
    EXPECT_EQ(Interface()->indexOfChild(Interface()->childAt(middle.x(), middle.y())), 2);
    EXPECT_EQ(Row(2)->parent(), Interface());
}

TEST_F(Accessibility, ARowOutOfViewSaysSo) {
    Fill(1000);
    EXPECT_FALSE(Row(0)->state().offscreen);
    EXPECT_TRUE(Row(900)->state().offscreen);
}

TEST_F(Accessibility, RowsThatAreGoneAreNotValidAndHarmNobody) {
    QAccessibleInterface* gone = Row(3);
    QAccessibleInterface* replaced = Row(0);
    const QAccessible::Id id = QAccessible::uniqueId(replaced);
    list.Fill({{QStringLiteral("new"), true}});
    EXPECT_FALSE(gone->isValid());
    EXPECT_TRUE(gone->state().invalid);
    EXPECT_FALSE(replaced->isValid());
    replaced->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(list.Selected(0));
    EXPECT_EQ(Row(0)->text(QAccessible::Name), QStringLiteral("new"));
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
    EXPECT_EQ(Row(1), nullptr);
    EXPECT_EQ(Row(-1), nullptr);
}

TEST_F(Accessibility, AListThatGetsTheFocusTellsItsCurrentRow) {
    std::vector<int> focused;
    view.AnnounceFocus = [&](int row) { focused.push_back(row); };
    QApplication::setActiveWindow(&window);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QCoreApplication::processEvents();
    view.clearFocus();
    list.SetListIndex(2);
    focused.clear();
    list.SetFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(focused, std::vector<int>({2}));
    EXPECT_TRUE(Row(2)->state().focused);
    EXPECT_EQ(Interface()->focusChild(), Row(2));
}

TEST_F(Accessibility, AProgressBarTellsItsShare) {
    QtProgressControl progress(&window, QStringLiteral("prgCopy"));
    progress.Move(0, 4500, 3000, 150);
    progress.SetMax(32000000000.0F);
    progress.SetValue(8000000000.0F);
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(progress.Widget());
    EXPECT_EQ(bar->role(), QAccessible::ProgressBar);
    QAccessibleValueInterface* value = bar->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->minimumValue().toInt(), 0);
    EXPECT_EQ(value->maximumValue().toInt(), 200);
    EXPECT_EQ(value->currentValue().toInt(), 50);
}

TEST_F(Accessibility, LabelsAndButtonsSpeakWhatTheyShow) {
    QtLabelControl label(&window, QStringLiteral("lblFullName"),
                         QStringLiteral("Simon && Garfunkel"));
    QtButtonControl button(&window, QStringLiteral("cmdCopy"), QStringLiteral("&Cancel"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(label.Widget())->text(QAccessible::Name),
              QStringLiteral("Simon & Garfunkel"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(button.Widget())->text(QAccessible::Name),
              QStringLiteral("Cancel"));
}

} // namespace
