#include "platform/qt/QtButtonControl.h"
#include "platform/qt/QtLabelControl.h"
#include "platform/qt/QtListControl.h"
#include "platform/qt/QtProgressControl.h"
#include "tests/window/QtInput.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace {

using Log = std::vector<std::string>;

/// A list that a screen reader listens to: rows "r0", "r1" and so on.
class Accessibility : public testing::Test {
protected:
    QWidget window;
    QtListControl list{&window, u"lstArtists"_s};
    QtListView& view = *static_cast<QtListView*>(list.Widget());
    /// What would have been announced to a screen reader, and the list's events in between.
    Log heard;

    Accessibility() {
        view.IsHeard = [] { return true; };
        view.AnnounceTick = [this](int row) {
            const QAccessibleInterface* told = Row(row);
            heard.push_back(told->text(QAccessible::Name).toStdString() +
                            (told->state().checked ? " ticked" : " unticked"));
        };
        list.Click = [this] { heard.push_back("Click " + std::to_string(list.ListIndex())); };
        list.ItemCheck = [this](int row) { heard.push_back("ItemCheck " + std::to_string(row)); };
        window.resize(400, 400);
        list.Move(0, 0, 4500, 4500);
        QtInput::ShowActive(window);
        Fill(4);
    }

    void Fill(int count, bool ticked = false) {
        std::vector<ListRow> rows;
        for (int row = 0; row < count; ++row) {
            rows.push_back({u"r%1"_s.arg(row), ticked});
        }
        list.Fill(std::move(rows));
        QCoreApplication::processEvents();
        heard.clear();
    }

    QAccessibleInterface* Interface() { return QAccessible::queryAccessibleInterface(&view); }
    QAccessibleInterface* Row(int row) { return Interface()->child(row); }
    void Do(int row, const QString& action) { Row(row)->actionInterface()->doAction(action); }
    static QString NameOf(QWidget* widget) {
        return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
    }

    const QString toggle = QAccessibleActionInterface::toggleAction();
    const QString focus = QAccessibleActionInterface::setFocusAction();
};

TEST_F(Accessibility, AListIsAListOfCheckBoxesWithTheirNamesAndChecks) {
    const QString longName(3000, u'n');
    list.Fill({{u"r0"_s, false}, {longName, true}});
    EXPECT_EQ(Interface()->role(), QAccessible::List);
    EXPECT_EQ(Interface()->childCount(), 2);
    for (const int row : {0, 1}) {
        EXPECT_EQ(Row(row)->role(), QAccessible::CheckBox);
        EXPECT_EQ(Row(row)->text(QAccessible::Name), row == 0 ? u"r0"_s : longName);
        EXPECT_TRUE(Row(row)->state().checkable);
        EXPECT_EQ(Row(row)->state().checked, row == 1);
    }
}

TEST_F(Accessibility, ATickIsHeardBeforeItsHandlersRun) {
    list.SetSelected(1, true);
    list.SetSelected(1, true);
    list.SetSelected(1, false);
    EXPECT_EQ(heard, Log({"r1 ticked", "ItemCheck 1", "r1 unticked", "ItemCheck 1"}));
    list.SetListIndex(3);
    heard.clear();
    QTest::keyClick(list.Widget(), Qt::Key_Space);
    EXPECT_EQ(heard, Log({"r3 ticked", "ItemCheck 3", "Click 3"}));
}

TEST_F(Accessibility, ABulkChangeIsHeardOnceForEachChangedRowInView) {
    Fill(32767);
    list.ItemCheck = {};
    list.SetVisible(false);
    for (int row = 0; row < list.ListCount(); ++row) {
        list.SetSelected(row, true);
    }
    list.SetSelected(1, false);
    EXPECT_EQ(heard, Log{});
    list.SetVisible(true);
    ASSERT_GT(heard.size(), 5u);
    EXPECT_LT(heard.size(), 60u);
    EXPECT_EQ(heard[0], "r0 ticked");
    EXPECT_EQ(heard[1], "r2 ticked");
    heard.clear();
    view.IsHeard = [] { return false; }; // nobody listens
    list.SetSelected(1, true);
    list.SetVisible(false);
    list.SetSelected(2, false);
    list.SetVisible(true);
    EXPECT_EQ(heard, Log{});
}

TEST_F(Accessibility, RowsFilledDuringABulkChangeAreNotTakenForTheEarlierOnes) {
    list.ItemCheck = {};
    list.SetVisible(false);
    Fill(2, true);
    list.SetSelected(0, false);
    list.SetVisible(true);
    EXPECT_EQ(heard, Log{});
    EXPECT_FALSE(Row(0)->state().checked);
    EXPECT_TRUE(Row(1)->state().checked);
}

TEST_F(Accessibility, AScreenReadersActionsCountAsTheUsersWhileTheListIsUsable) {
    list.SetListIndex(0);
    heard.clear();
    for (const auto set : {&Control::SetEnabled, &Control::SetVisible}) {
        (list.*set)(false);
        Do(2, toggle);
        Do(2, focus);
        EXPECT_EQ(Row(2)->state().disabled, !list.Enabled());
        (list.*set)(true);
    }
    EXPECT_EQ(heard, Log{});
    Do(2, focus);
    EXPECT_EQ(heard, Log({"Click 2"}));
    EXPECT_TRUE(Row(2)->state().selected);
    EXPECT_FALSE(Row(0)->state().selected);
    EXPECT_FALSE(list.Selected(2));
    heard.clear();
    Do(1, toggle);
    EXPECT_EQ(heard, Log({"Click 1", "r1 ticked", "ItemCheck 1", "Click 1"}));
    EXPECT_TRUE(list.Selected(1));
}

TEST_F(Accessibility, ARowIsWhereItIsOnTheScreenAndSaysWhenItIsOutOfView) {
    const QRect row = view.visualRect(view.model()->index(2, 0));
    EXPECT_EQ(Row(2)->rect(), QRect(view.viewport()->mapToGlobal(row.topLeft()), row.size()));
    const QPoint middle = Row(2)->rect().center();
    EXPECT_EQ(Interface()->indexOfChild(Interface()->childAt(middle.x(), middle.y())), 2);
    EXPECT_EQ(Row(2)->parent(), Interface());
    Fill(1000);
    EXPECT_FALSE(Row(0)->state().offscreen);
    EXPECT_TRUE(Row(900)->state().offscreen);
}

TEST_F(Accessibility, RowsThatAreGoneAreInvalidAndDoNoHarm) {
    QAccessibleInterface* gone = Row(3);
    QAccessibleInterface* replaced = Row(0);
    const QAccessible::Id id = QAccessible::uniqueId(replaced);
    list.Fill({{u"new"_s, true}});
    EXPECT_FALSE(gone->isValid());
    EXPECT_TRUE(gone->state().invalid);
    EXPECT_FALSE(replaced->isValid());
    replaced->actionInterface()->doAction(toggle);
    EXPECT_TRUE(list.Selected(0));
    EXPECT_EQ(Row(0)->text(QAccessible::Name), u"new"_s);
    EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
    EXPECT_EQ(Row(1), nullptr);
    EXPECT_EQ(Row(-1), nullptr);
}

TEST_F(Accessibility, AListThatGetsTheFocusAnnouncesItsCurrentRow) {
    std::vector<int> focused;
    view.AnnounceFocus = [&](int row) { focused.push_back(row); };
    view.clearFocus();
    list.SetListIndex(2);
    QCoreApplication::processEvents();
    EXPECT_EQ(focused, std::vector<int>{});
    EXPECT_EQ(Interface()->focusChild(), nullptr);
    EXPECT_FALSE(Row(2)->state().focused);
    list.SetFocus();
    QCoreApplication::processEvents();
    EXPECT_EQ(focused, std::vector<int>({2}));
    EXPECT_TRUE(Row(2)->state().focused);
    EXPECT_EQ(Interface()->focusChild(), Row(2));
}

TEST_F(Accessibility, AProgressBarReportsItsShare) {
    QtProgressControl progress(&window, u"prgCopy"_s);
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
    const QtLabelControl label(&window, u"lblFullName"_s, u"Simon && Garfunkel"_s);
    const QtButtonControl button(&window, u"cmdCopy"_s, u"&Cancel"_s);
    EXPECT_EQ(NameOf(label.Widget()), u"Simon & Garfunkel"_s);
    EXPECT_EQ(NameOf(button.Widget()), u"Cancel"_s);
}

} // namespace
