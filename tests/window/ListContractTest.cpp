#include "tests/window/ControlKit.h"

using namespace Qt::StringLiterals;

namespace {

ListRow Row(const char* text, bool ticked = false) {
    return {QString::fromLatin1(text), ticked};
}

/// A list of five rows, "b" and "d" ticked, no row current, that logs its events.
class ListContract : public ControlContractTest {
protected:
    ListControl& list = kit.List;

    ListContract() {
        FillRows();
        list.Click = [this] { log.push_back("Click " + std::to_string(list.ListIndex())); };
        list.ItemCheck = [this](int row) {
            log.push_back("ItemCheck " + std::to_string(row) +
                          (list.Selected(row) ? " ticked" : " unticked"));
        };
    }

    void FillRows() { list.Fill({Row("a"), Row("b", true), Row("c"), Row("d", true), Row("e")}); }

    std::string Texts() const {
        std::string texts;
        for (int row = 0; row < list.ListCount(); ++row) {
            texts += list.List(row).toStdString() + (list.Selected(row) ? "+" : "-");
        }
        return texts;
    }
};

INSTANTIATE_TEST_SUITE_P(Kits, ListContract, EveryKit, KitName);

TEST_P(ListContract, FillAndClearRaiseNothingAndLeaveNoCurrentRow) {
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
    EXPECT_EQ(list.SelCount(), 2);
    list.SetListIndex(3);
    log.clear();
    const QString odd = u"Simon & Garfunkel <b>\t\u20AC \U0001F3B5"_s;
    list.Fill({{odd, true}, {QString(), false}});
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(Texts(), odd.toStdString() + "+-");
    EXPECT_EQ(list.SelCount(), 1);
    list.SetListIndex(1);
    log.clear();
    list.Clear();
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.SelCount(), 0);
    EXPECT_EQ(log, Log{});
}

TEST_P(ListContract, SetListIndexRaisesClickEachTimeAndTicksNothing) {
    list.SetListIndex(2);
    EXPECT_EQ(log, Log({"Click 2"}));
    for (const int row : {2, -1, -1}) {
        list.SetListIndex(row);
    }
    list.Clear();
    list.SetListIndex(-1);
    EXPECT_EQ(log, Log({"Click 2", "Click 2", "Click -1", "Click -1", "Click -1"}));
    FillRows();
    list.SetListIndex(1);
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
}

TEST_P(ListContract, SetSelectedRaisesItemCheckWhenItChangesTheState) {
    list.SetListIndex(4);
    log.clear();
    std::vector<int> counts;
    list.ItemCheck = [this, &counts, note = list.ItemCheck](int row) {
        note(row);
        counts.push_back(list.SelCount());
    };
    for (const bool again : {false, true}) {
        SCOPED_TRACE(again);
        list.SetSelected(2, true);
        list.SetSelected(3, false);
        list.SetSelected(1, false);
    }
    EXPECT_EQ(log, Log({"ItemCheck 2 ticked", "ItemCheck 3 unticked", "ItemCheck 1 unticked"}));
    EXPECT_EQ(counts, std::vector<int>({3, 2, 1}));
    EXPECT_EQ(Texts(), "a-b-c+d-e-");
    EXPECT_EQ(list.ListIndex(), 4);
}

TEST_P(ListContract, ARowThatDoesNotExistIsOutOfRange) {
    const auto expectOutOfRange = [this](int row) {
        SCOPED_TRACE(row);
        ExpectOutOfRange([&] { list.SetListIndex(row == -1 ? -2 : row); });
        ExpectOutOfRange([&] { list.SetSelected(row, true); });
        ExpectOutOfRange([&] { list.SetSelected(row, false); });
        ExpectOutOfRange([&] { list.Selected(row); });
        ExpectOutOfRange([&] { list.List(row); });
    };
    for (const int row : {-1, 5, 32767, -32768}) {
        expectOutOfRange(row);
    }
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
    EXPECT_EQ(list.ListIndex(), -1);
    list.Clear();
    expectOutOfRange(0);
}

TEST_P(ListContract, AUserTickMakesTheRowCurrentThenChecksThenClicks) {
    list.SetListIndex(0);
    log.clear();
    list.Click = [&] {
        log.push_back("Click " + std::to_string(list.ListIndex()) + " of " + Texts());
    };
    kit.ClickCheckBox(list, 2);
    EXPECT_EQ(log, Log({"Click 2 of a-b+c-d+e-", "ItemCheck 2 ticked", "Click 2 of a-b+c+d+e-"}));
    EXPECT_EQ(list.SelCount(), 3);
    log.clear();
    kit.ClickCheckBox(list, 2); // the current row
    EXPECT_EQ(log, Log({"ItemCheck 2 unticked", "Click 2 of a-b+c-d+e-"}));
    EXPECT_EQ(list.SelCount(), 2);
}

TEST_P(ListContract, AClickOnTheTextMakesTheRowCurrentAndGivesTheFocusAndTicksNothing) {
    kit.OtherList.SetFocus();
    kit.ClickRow(list, 2);
    EXPECT_EQ(kit.FocusedControl(), list.Handle());
    kit.ClickRow(list, 2);
    EXPECT_EQ(log, Log({"Click 2", "Click 2"}));
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
}

TEST_P(ListContract, SpaceTogglesTheCurrentRow) {
    kit.PressKey(list, Qt::Key_Space); // no row is current
    list.SetListIndex(2);
    kit.PressKey(list, Qt::Key_Space);
    kit.PressKey(list, Qt::Key_Space);
    EXPECT_EQ(log,
              Log({"Click 2", "ItemCheck 2 ticked", "Click 2", "ItemCheck 2 unticked", "Click 2"}));
}

TEST_P(ListContract, ArrowKeysMoveTheCurrentRowBetweenTheEnds) {
    list.SetListIndex(3);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Down, Qt::Key_Down}) {
        kit.PressKey(list, key);
    }
    list.SetListIndex(0);
    kit.PressKey(list, Qt::Key_Up);
    EXPECT_EQ(log, Log({"Click 3", "Click 4", "Click 3", "Click 4", "Click 0"}));
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
}

TEST_P(ListContract, AListThatIsDisabledOrHiddenIgnoresTheUserAndObeysTheProgram) {
    const auto failAtMouse = [](const MouseState&) { ADD_FAILURE() << "a mouse event"; };
    for (const auto set : {&Control::SetEnabled, &Control::SetVisible}) {
        FillRows();
        list.SetListIndex(0);
        list.SetFocus();
        log.clear();
        (list.*set)(false);
        list.MouseDown = failAtMouse;
        kit.ClickRow(list, 2);
        kit.ClickCheckBox(list, 3);
        kit.RightClickRow(list, 4);
        kit.PressKey(list, Qt::Key_Space);
        kit.PressKey(list, Qt::Key_Down);
        if (!list.Visible()) {
            list.MouseMove = failAtMouse;
            kit.HoverAt(list, 12, 7);
        }
        EXPECT_EQ(log, Log{});
        EXPECT_EQ(list.ListIndex(), 0);
        EXPECT_EQ(Texts(), "a-b+c-d+e-");
        list.SetListIndex(2);
        list.SetSelected(2, true);
        EXPECT_EQ(log, Log({"Click 2", "ItemCheck 2 ticked"}));
        (list.*set)(true);
        list.MouseDown = list.MouseMove = {};
        EXPECT_EQ(list.ListIndex(), 2);
        EXPECT_EQ(Texts(), "a-b+c+d+e-");
        kit.ClickRow(list, 3);
        EXPECT_EQ(list.ListIndex(), 3);
    }
}

TEST_P(ListContract, AListThatIsShownAgainHasItsFocusBackUnlessAnotherControlHasIt) {
    list.SetFocus();
    list.SetVisible(false);
    EXPECT_EQ(kit.FocusedControl(), 0U);
    list.SetVisible(false);
    list.SetVisible(true);
    EXPECT_EQ(kit.FocusedControl(), list.Handle());
    list.SetVisible(false);
    kit.Text.SetFocus();
    list.SetVisible(true);
    EXPECT_EQ(kit.FocusedControl(), kit.Text.Handle());
}

TEST_P(ListContract, APressRaisesMouseDownBeforeTheRowIsCurrentAndARightClickAfterwards) {
    list.MouseDown = [&](const MouseState& mouse) {
        log.push_back("MouseDown " + std::to_string(mouse.Button) + " on row " +
                      std::to_string(list.ListIndex()));
    };
    kit.ClickRow(list, 3);
    kit.ClickCheckBox(list, 0);
    EXPECT_EQ(log, Log({"MouseDown 1 on row -1", "Click 3", "MouseDown 1 on row 3", "Click 0",
                        "ItemCheck 0 ticked", "Click 0"}));
    log.clear();
    kit.RightClickRow(list, 4);
    EXPECT_EQ(log, Log({"Click 4", "MouseDown 2 on row 4"}));
    EXPECT_EQ(Texts(), "a+b+c-d+e-");
}

TEST_P(ListContract, MouseMoveReportsThePositionInTwips) {
    MouseState last{.Button = -1};
    list.MouseMove = [&](const MouseState& mouse) { last = mouse; };
    kit.HoverAt(list, 12, 7);
    EXPECT_EQ(last.Button, 0);
    EXPECT_EQ(last.Shift, 0);
    EXPECT_DOUBLE_EQ(last.X, 180);
    EXPECT_DOUBLE_EQ(last.Y, 105);
}

// ---- what a handler may do to the list whose event it handles

TEST_P(ListContract, UnsetEventsDoNothing) {
    list.Click = {};
    list.ItemCheck = {};
    list.SetListIndex(1);
    list.SetSelected(0, true);
    kit.ClickCheckBox(list, 2);
    kit.ClickRow(list, 3);
    kit.RightClickRow(list, 4);
    EXPECT_EQ(Texts(), "a+b+c+d+e-");
}

TEST_P(ListContract, AClickHandlerMayFillTheListWhichDropsATickUnderWay) {
    const std::function<void()> clicks[] = {[&] { list.SetListIndex(4); },
                                            [&] { kit.ClickRow(list, 4); },
                                            [&] { kit.ClickCheckBox(list, 4); }};
    for (const auto& click : clicks) {
        FillRows();
        list.Click = [&] { list.Fill({Row("v"), Row("w", true), Row("x"), Row("y"), Row("z")}); };
        click();
        EXPECT_EQ(Texts(), "v-w+x-y-z-");
        EXPECT_EQ(list.ListIndex(), -1);
        EXPECT_EQ(list.SelCount(), 1);
        list.Click = [&] { list.Clear(); };
        click();
        EXPECT_EQ(list.ListCount(), 0);
        EXPECT_EQ(list.SelCount(), 0);
    }
    EXPECT_EQ(log, Log{});
}

TEST_P(ListContract, AnItemCheckHandlerMayTickOtherRows) {
    bool building = false;
    list.ItemCheck = [&, note = list.ItemCheck](int row) {
        note(row);
        for (int other = 0; !building && other < list.ListCount(); ++other) {
            building = true;
            list.SetSelected(other, list.Selected(row));
            building = false;
        }
    };
    kit.ClickCheckBox(list, 0);
    EXPECT_EQ(log, Log({"Click 0", "ItemCheck 0 ticked", "ItemCheck 2 ticked", "ItemCheck 4 ticked",
                        "Click 0"}));
    EXPECT_EQ(Texts(), "a+b+c+d+e+");
    EXPECT_EQ(list.SelCount(), 5);
}

TEST_P(ListContract, AnItemCheckHandlerMayFillTheSameList) {
    list.ItemCheck = [&](int) {
        list.SetVisible(false);
        list.Fill({Row("x"), Row("y", true)});
        list.SetVisible(true);
        list.SetFocus();
    };
    kit.ClickCheckBox(list, 4);
    EXPECT_EQ(Texts(), "x-y+");
    EXPECT_EQ(list.SelCount(), 1);
    EXPECT_EQ(log, Log({"Click 4", "Click -1"}));
    EXPECT_EQ(kit.FocusedControl(), list.Handle());
}

} // namespace
