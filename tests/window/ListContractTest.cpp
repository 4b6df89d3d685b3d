#include "tests/window/ListContract.h"

namespace {

class ListContract : public ListContractTest {};

INSTANTIATE_TEST_SUITE_P(Kits, ListContract, EveryKit, KitName);

TEST_P(ListContract, FillShowsTheRowsInTheirOrderWithTheirChecks) {
    EXPECT_EQ(list.ListCount(), 5);
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
    EXPECT_EQ(list.SelCount(), 2);
}

TEST_P(ListContract, FillRaisesNothingAndLeavesNoCurrentRow) {
    list.SetListIndex(3);
    log.clear();
    list.Fill({Row("x", true), Row("y")});
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(Texts(), "x+y-");
    EXPECT_EQ(list.SelCount(), 1);
}

TEST_P(ListContract, FillWithNoRowsEmptiesTheList) {
    list.Fill({});
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.SelCount(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST_P(ListContract, ClearRaisesNothingAndLeavesNoRowAndNoCurrentRow) {
    list.SetListIndex(3);
    log.clear();
    list.Clear();
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.SelCount(), 0);
}

TEST_P(ListContract, SetListIndexRaisesClickBeforeItReturns) {
    list.SetListIndex(2);
    EXPECT_EQ(log, Log({"Click 2"}));
    EXPECT_EQ(list.ListIndex(), 2);
}

TEST_P(ListContract, SetListIndexToTheCurrentRowRaisesClickAgain) {
    list.SetListIndex(2);
    list.SetListIndex(2);
    EXPECT_EQ(log, Log({"Click 2", "Click 2"}));
}

TEST_P(ListContract, SetListIndexToNoRowRaisesClick) {
    list.SetListIndex(2);
    list.SetListIndex(-1);
    list.SetListIndex(-1);
    EXPECT_EQ(log, Log({"Click 2", "Click -1", "Click -1"}));
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST_P(ListContract, SetListIndexToNoRowOfAnEmptyListRaisesClick) {
    list.Clear();
    list.SetListIndex(-1);
    EXPECT_EQ(log, Log({"Click -1"}));
}

TEST_P(ListContract, SetListIndexTicksNothing) {
    list.SetListIndex(0);
    list.SetListIndex(1);
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
}

TEST_P(ListContract, SetSelectedRaisesItemCheckWithTheNewStateReadable) {
    list.SetSelected(2, true);
    list.SetSelected(3, false);
    EXPECT_EQ(log, Log({"ItemCheck 2 ticked", "ItemCheck 3 unticked"}));
    EXPECT_EQ(Texts(), "a-b+c+d-e-");
}

TEST_P(ListContract, SelCountIsRightInsideItemCheck) {
    std::vector<int> counts;
    list.ItemCheck = [&](int) { counts.push_back(list.SelCount()); };
    list.SetSelected(2, true);
    list.SetSelected(1, false);
    EXPECT_EQ(counts, std::vector<int>({3, 2}));
}

TEST_P(ListContract, SetSelectedToTheSameStateRaisesNothing) {
    list.SetSelected(1, true);
    list.SetSelected(2, false);
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(list.SelCount(), 2);
}

TEST_P(ListContract, SetSelectedLeavesTheCurrentRow) {
    list.SetListIndex(4);
    log.clear();
    list.SetSelected(2, true);
    EXPECT_EQ(list.ListIndex(), 4);
    EXPECT_EQ(log, Log({"ItemCheck 2 ticked"}));
}

TEST_P(ListContract, SelCountIsKeptThroughEveryWayToTick) {
    list.SetSelected(0, true);
    EXPECT_EQ(list.SelCount(), 3);
    list.SetSelected(0, true);
    EXPECT_EQ(list.SelCount(), 3);
    list.SetSelected(1, false);
    EXPECT_EQ(list.SelCount(), 2);
    kit.ClickCheckBox(list, 4);
    EXPECT_EQ(list.SelCount(), 3);
    kit.ClickCheckBox(list, 4);
    EXPECT_EQ(list.SelCount(), 2);
    list.Fill({Row("x", true), Row("y", true), Row("z", true), Row("w")});
    EXPECT_EQ(list.SelCount(), 3);
    kit.ClickCheckBox(list, 0);
    EXPECT_EQ(list.SelCount(), 2);
    list.Clear();
    EXPECT_EQ(list.SelCount(), 0);
}

TEST_P(ListContract, ARowThatDoesNotExistIsOutOfRange) {
    for (const int row : {-2, 5, 32767, -32768}) {
        ExpectOutOfRange("SetListIndex", [&] { list.SetListIndex(row); });
    }
    for (const int row : {-1, 5, 32767, -32768}) {
        ExpectOutOfRange("SetSelected", [&] { list.SetSelected(row, true); });
        ExpectOutOfRange("SetSelected", [&] { list.SetSelected(row, false); });
        ExpectOutOfRange("Selected", [&] { list.Selected(row); });
        ExpectOutOfRange("List", [&] { list.List(row); });
    }
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST_P(ListContract, AnEmptyListHasNoRowInRange) {
    list.Clear();
    ExpectOutOfRange("SetListIndex", [&] { list.SetListIndex(0); });
    ExpectOutOfRange("SetSelected", [&] { list.SetSelected(0, true); });
}

TEST_P(ListContract, AUserTickMakesTheRowCurrentThenChecksThenClicks) {
    list.SetListIndex(0);
    log.clear();
    kit.ClickCheckBox(list, 2);
    EXPECT_EQ(log, Log({"Click 2", "ItemCheck 2 ticked", "Click 2"}));
    EXPECT_EQ(Texts(), "a-b+c+d+e-");
}

TEST_P(ListContract, TheCheckIsUnchangedWhenAUserTickMakesTheRowCurrent) {
    std::vector<std::string> states;
    list.Click = [&] { states.push_back(Texts()); };
    kit.ClickCheckBox(list, 3);
    EXPECT_EQ(states, Log({"a-b+c-d+e-", "a-b+c-d-e-"}));
}

TEST_P(ListContract, AUserTickOnTheCurrentRowChecksThenClicks) {
    list.SetListIndex(2);
    log.clear();
    kit.ClickCheckBox(list, 2);
    kit.ClickCheckBox(list, 2);
    EXPECT_EQ(log, Log({"ItemCheck 2 ticked", "Click 2", "ItemCheck 2 unticked", "Click 2"}));
}

TEST_P(ListContract, AClickOnTheTextMakesTheRowCurrentAndTicksNothing) {
    kit.ClickRow(list, 2);
    EXPECT_EQ(log, Log({"Click 2"}));
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
}

TEST_P(ListContract, AClickOnTheTextOfTheCurrentRowRaisesClickAgain) {
    kit.ClickRow(list, 2);
    kit.ClickRow(list, 2);
    EXPECT_EQ(log, Log({"Click 2", "Click 2"}));
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
}

TEST_P(ListContract, SpaceTogglesTheCurrentRow) {
    list.SetListIndex(2);
    log.clear();
    kit.PressSpace(list);
    kit.PressSpace(list);
    EXPECT_EQ(log, Log({"ItemCheck 2 ticked", "Click 2", "ItemCheck 2 unticked", "Click 2"}));
}

TEST_P(ListContract, SpaceWithoutACurrentRowDoesNothing) {
    kit.PressSpace(list);
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
}

TEST_P(ListContract, ArrowKeysMoveTheCurrentRowAndRaiseClick) {
    list.SetListIndex(1);
    log.clear();
    kit.PressDown(list);
    kit.PressDown(list);
    kit.PressUp(list);
    EXPECT_EQ(log, Log({"Click 2", "Click 3", "Click 2"}));
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
}

TEST_P(ListContract, ArrowKeysStopAtTheEnds) {
    list.SetListIndex(4);
    kit.PressDown(list);
    EXPECT_EQ(list.ListIndex(), 4);
    list.SetListIndex(0);
    kit.PressUp(list);
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST_P(ListContract, ADisabledListIgnoresTheUser) {
    list.SetListIndex(0);
    log.clear();
    list.SetEnabled(false);
    bool mouseDown = false;
    list.MouseDown = [&](const MouseState&) { mouseDown = true; };
    kit.ClickRow(list, 2);
    kit.ClickCheckBox(list, 3);
    kit.RightClickRow(list, 4);
    kit.PressSpace(list);
    kit.PressDown(list);
    EXPECT_EQ(log, Log{});
    EXPECT_FALSE(mouseDown);
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
}

TEST_P(ListContract, ADisabledListObeysTheProgram) {
    list.SetEnabled(false);
    list.SetListIndex(2);
    list.SetSelected(2, true);
    EXPECT_EQ(log, Log({"Click 2", "ItemCheck 2 ticked"}));
    list.SetEnabled(true);
    kit.ClickRow(list, 3);
    EXPECT_EQ(list.ListIndex(), 3);
}

TEST_P(ListContract, AHiddenListKeepsItsRowsAndItsCurrentRow) {
    list.SetListIndex(2);
    list.SetVisible(false);
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
    list.SetVisible(true);
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
    EXPECT_EQ(log, Log({"Click 2"}));
}

TEST_P(ListContract, AHiddenListRaisesWhatTheProgramCauses) {
    list.SetVisible(false);
    list.SetListIndex(2);
    list.SetSelected(2, true);
    EXPECT_EQ(log, Log({"Click 2", "ItemCheck 2 ticked"}));
    list.SetVisible(true);
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(Texts(), "a-b+c+d+e-");
}

TEST_P(ListContract, AHiddenListIgnoresTheUser) {
    list.SetListIndex(0);
    log.clear();
    bool mouse = false;
    list.MouseDown = [&](const MouseState&) { mouse = true; };
    list.MouseMove = [&](const MouseState&) { mouse = true; };
    list.SetFocus();
    list.SetVisible(false);
    kit.ClickRow(list, 2);
    kit.ClickCheckBox(list, 3);
    kit.RightClickRow(list, 4);
    kit.HoverAt(list, 12, 7);
    kit.PressSpace(list);
    kit.PressDown(list);
    EXPECT_EQ(log, Log{});
    EXPECT_FALSE(mouse);
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
}

TEST_P(ListContract, AListHasItsFocusBackWhenItIsShownAgain) {
    list.SetFocus();
    list.SetVisible(false);
    EXPECT_NE(kit.FocusedControl(), list.Handle());
    list.SetVisible(false);
    list.SetVisible(true);
    EXPECT_EQ(kit.FocusedControl(), list.Handle());
}

TEST_P(ListContract, AListDoesNotTakeItsFocusBackFromAnotherControl) {
    list.SetFocus();
    list.SetVisible(false);
    kit.Text().SetFocus();
    list.SetVisible(true);
    EXPECT_EQ(kit.FocusedControl(), kit.Text().Handle());
    kit.OtherList().SetFocus();
    list.SetVisible(false);
    list.SetVisible(true);
    EXPECT_EQ(kit.FocusedControl(), kit.OtherList().Handle());
}

TEST_P(ListContract, ALeftPressRaisesMouseDownBeforeTheRowIsCurrent) {
    list.MouseDown = [&](const MouseState& mouse) {
        log.push_back("MouseDown " + std::to_string(mouse.Button) + " on row " +
                      std::to_string(list.ListIndex()));
    };
    kit.ClickRow(list, 3);
    kit.ClickCheckBox(list, 0);
    EXPECT_EQ(log, Log({"MouseDown 1 on row -1", "Click 3", "MouseDown 1 on row 3", "Click 0",
                        "ItemCheck 0 ticked", "Click 0"}));
}

TEST_P(ListContract, ARightClickMakesTheRowCurrentBeforeMouseDown) {
    list.MouseDown = [&](const MouseState& mouse) {
        log.push_back("MouseDown " + std::to_string(mouse.Button) + " on row " +
                      std::to_string(list.ListIndex()));
    };
    kit.RightClickRow(list, 3);
    EXPECT_EQ(log, Log({"Click 3", "MouseDown 2 on row 3"}));
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
}

TEST_P(ListContract, MouseMoveTellsWhereInTwips) {
    std::vector<MouseState> moves;
    list.MouseMove = [&](const MouseState& mouse) { moves.push_back(mouse); };
    kit.HoverAt(list, 12, 7);
    ASSERT_FALSE(moves.empty());
    EXPECT_EQ(moves.back().Button, 0);
    EXPECT_EQ(moves.back().Shift, 0);
    EXPECT_DOUBLE_EQ(moves.back().X, 180);
    EXPECT_DOUBLE_EQ(moves.back().Y, 105);
}

TEST_P(ListContract, AClickGivesTheFocus) {
    kit.OtherList().SetFocus();
    kit.ClickRow(list, 1);
    EXPECT_EQ(kit.FocusedControl(), list.Handle());
}

TEST_P(ListContract, TwoListsKeepTheirOwnRows) {
    kit.OtherList().Fill({Row("other", true)});
    kit.OtherList().SetListIndex(0);
    EXPECT_EQ(Texts(), "a-b+c-d+e-");
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(kit.OtherList().SelCount(), 1);
    EXPECT_EQ(log, Log{});
}

TEST_P(ListContract, TextsAreShownAsTheyAre) {
    const QString odd = QString::fromUtf8("Simon & Garfunkel <b>\t\xE2\x82\xAC \xF0\x9F\x8E\xB5");
    list.Fill({{odd, false}, {QString(), true}});
    EXPECT_EQ(list.List(0), odd);
    EXPECT_EQ(list.List(1), QString());
}

} // namespace
