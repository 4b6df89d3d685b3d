#include "tests/window/ListContract.h"

namespace {

/// What a handler may do to the list whose event it handles.
class ListReentrancyContract : public ListContractTest {};

INSTANTIATE_TEST_SUITE_P(Kits, ListReentrancyContract, EveryKit, KitName);

TEST_P(ListReentrancyContract, UnsetEventsDoNothing) {
    list.Click = {};
    list.ItemCheck = {};
    list.SetListIndex(1);
    list.SetSelected(0, true);
    kit.ClickCheckBox(list, 2);
    kit.ClickRow(list, 3);
    kit.RightClickRow(list, 4);
    EXPECT_EQ(Texts(), "a+b+c+d+e-");
}

TEST_P(ListReentrancyContract, AClickHandlerMayFillTheSameListFromCode) {
    list.Click = [&] { list.Fill({Row("only", true)}); };
    list.SetListIndex(4);
    EXPECT_EQ(Texts(), "only+");
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST_P(ListReentrancyContract, AClickHandlerMayFillTheSameListUnderTheUsersMouse) {
    list.Click = [&] { list.Fill({Row("only", true)}); };
    kit.ClickRow(list, 4);
    EXPECT_EQ(Texts(), "only+");
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.SelCount(), 1);
}

TEST_P(ListReentrancyContract, ATickOfARowThatTheClickHandlerRemovedIsDropped) {
    list.Click = [&] { list.Fill({Row("only", true)}); };
    kit.ClickCheckBox(list, 4);
    EXPECT_EQ(Texts(), "only+");
    EXPECT_EQ(list.SelCount(), 1);
    EXPECT_EQ(log, Log{});
}

TEST_P(ListReentrancyContract, ATickIsDroppedWhenTheClickHandlerFillsInOtherRows) {
    list.Click = [&] { list.Fill({Row("v"), Row("w"), Row("x"), Row("y"), Row("z")}); };
    kit.ClickCheckBox(list, 4);
    EXPECT_EQ(Texts(), "v-w-x-y-z-");
    EXPECT_EQ(log, Log{});
}

TEST_P(ListReentrancyContract, AClickHandlerMayClearTheSameListUnderTheUsersTick) {
    list.Click = [&] { list.Clear(); };
    kit.ClickCheckBox(list, 4);
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.SelCount(), 0);
}

TEST_P(ListReentrancyContract, AnItemCheckHandlerMayTickOtherRows) {
    bool building = false;
    list.ItemCheck = [&](int row) {
        log.push_back("ItemCheck " + std::to_string(row));
        if (!building) {
            building = true;
            for (int other = 0; other < list.ListCount(); ++other) {
                list.SetSelected(other, list.Selected(row));
            }
            building = false;
        }
    };
    kit.ClickCheckBox(list, 0);
    EXPECT_EQ(log, Log({"Click 0", "ItemCheck 0", "ItemCheck 2", "ItemCheck 4", "Click 0"}));
    EXPECT_EQ(Texts(), "a+b+c+d+e+");
    EXPECT_EQ(list.SelCount(), 5);
}

TEST_P(ListReentrancyContract, AnItemCheckHandlerMayFillTheSameList) {
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

TEST_P(ListReentrancyContract, AnItemCheckHandlerMayUndoTheTick) {
    bool building = false;
    list.ItemCheck = [&](int row) {
        if (!building) {
            building = true;
            list.SetSelected(row, false);
            building = false;
        }
    };
    kit.ClickCheckBox(list, 2);
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
    EXPECT_EQ(list.SelCount(), 2);
}

TEST_P(ListReentrancyContract, AClickHandlerMayDisableTheList) {
    list.Click = [&] {
        log.push_back("Click");
        list.SetEnabled(false);
    };
    kit.ClickRow(list, 3);
    kit.ClickRow(list, 4);
    EXPECT_EQ(log, Log({"Click"}));
    EXPECT_EQ(list.ListIndex(), 3);
}

} // namespace
