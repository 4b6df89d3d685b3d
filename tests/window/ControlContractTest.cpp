#include "tests/window/ControlKit.h"

#include <set>

namespace {

/// What every control does alike.
class ControlContract : public ControlContractTest {};

INSTANTIATE_TEST_SUITE_P(Kits, ControlContract, EveryKit, KitName);

TEST_P(ControlContract, BeginsEnabledAndVisible) {
    for (Control* control : kit.AllControls()) {
        EXPECT_TRUE(control->Enabled());
        EXPECT_TRUE(control->Visible());
        EXPECT_EQ(control->ToolTip(), QString());
    }
}

TEST_P(ControlContract, KeepsEnabledAndVisible) {
    for (Control* control : kit.AllControls()) {
        control->SetEnabled(false);
        EXPECT_FALSE(control->Enabled());
        EXPECT_TRUE(control->Visible());
        control->SetVisible(false);
        EXPECT_FALSE(control->Visible());
        control->SetEnabled(true);
        EXPECT_TRUE(control->Enabled());
        EXPECT_FALSE(control->Visible());
        control->SetVisible(true);
        EXPECT_TRUE(control->Visible());
    }
}

TEST_P(ControlContract, EnabledAndVisibleAreTheControlsOwn) {
    kit.Frame().SetEnabled(false);
    EXPECT_TRUE(kit.ButtonInFrame().Enabled());
    kit.Frame().SetEnabled(true);
    kit.ButtonInFrame().SetEnabled(false);
    kit.Frame().SetEnabled(false);
    kit.Frame().SetEnabled(true);
    EXPECT_FALSE(kit.ButtonInFrame().Enabled());
    kit.ButtonInFrame().SetEnabled(true);
    kit.Frame().SetVisible(false);
    EXPECT_TRUE(kit.ButtonInFrame().Visible());
}

TEST_P(ControlContract, ADisabledFrameKeepsTheUserFromWhatItHolds) {
    int presses = 0;
    kit.ButtonInFrame().Click = [&] { ++presses; };
    kit.Frame().SetEnabled(false);
    kit.Press(kit.ButtonInFrame());
    EXPECT_EQ(presses, 0);
    kit.Frame().SetEnabled(true);
    kit.Press(kit.ButtonInFrame());
    EXPECT_EQ(presses, 1);
}

TEST_P(ControlContract, KeepsItsToolTip) {
    const QString text = QStringLiteral("Simon & Garfunkel");
    for (Control* control : kit.AllControls()) {
        control->SetToolTip(text);
        EXPECT_EQ(control->ToolTip(), text);
        control->SetToolTip(QString());
        EXPECT_EQ(control->ToolTip(), QString());
    }
}

TEST_P(ControlContract, EveryHandleIsItsOwn) {
    std::set<WindowHandle> handles;
    for (Control* control : kit.AllControls()) {
        EXPECT_NE(control->Handle(), 0u);
        EXPECT_EQ(control->Handle(), control->Handle());
        handles.insert(control->Handle());
    }
    EXPECT_EQ(handles.size(), kit.AllControls().size());
}

TEST_P(ControlContract, GeometryIsExactlyWhatWasSet) {
    for (Control* control : kit.AllControls()) {
        control->Move(1003.5, 607.25, 2222.2, 1111.1);
        EXPECT_EQ(control->Left(), 1003.5);
        EXPECT_EQ(control->Top(), 607.25);
        EXPECT_EQ(control->Width(), 2222.2);
        EXPECT_EQ(control->Height(), 1111.1);
    }
}

TEST_P(ControlContract, SettingOneMeasureKeepsTheOthers) {
    for (Control* control : kit.AllControls()) {
        control->Move(1003.5, 607.25, 2222.2, 1111.1);
        control->SetLeft(1.25);
        control->SetTop(2.5);
        EXPECT_EQ(control->Width(), 2222.2);
        EXPECT_EQ(control->Height(), 1111.1);
        control->SetWidth(333.3);
        control->SetHeight(444.4);
        EXPECT_EQ(control->Left(), 1.25);
        EXPECT_EQ(control->Top(), 2.5);
        EXPECT_EQ(control->Width(), 333.3);
        EXPECT_EQ(control->Height(), 444.4);
    }
}

TEST_P(ControlContract, AThousandMovesDoNotDrift) {
    for (Control* control : kit.AllControls()) {
        control->Move(100, 100, 1000, 1000);
        for (int i = 0; i < 1000; ++i) {
            control->SetLeft(control->Left() + 0.25);
            control->SetWidth(control->Width() + 0.5);
            control->SetTop(control->Top() - 0.25);
            control->SetHeight(control->Height() - 0.5);
        }
        EXPECT_EQ(control->Left(), 350);
        EXPECT_EQ(control->Width(), 1500);
        EXPECT_EQ(control->Top(), -150);
        EXPECT_EQ(control->Height(), 500);
    }
}

TEST_P(ControlContract, GeometryIsKeptWhileHidden) {
    for (Control* control : kit.AllControls()) {
        control->SetVisible(false);
        control->Move(-7.5, 11.25, 0, 15);
        control->SetVisible(true);
        EXPECT_EQ(control->Left(), -7.5);
        EXPECT_EQ(control->Top(), 11.25);
        EXPECT_EQ(control->Width(), 0);
        EXPECT_EQ(control->Height(), 15);
    }
}

TEST_P(ControlContract, SetFocusGivesTheFocus) {
    for (Control* control : kit.FocusableControls()) {
        control->SetFocus();
        EXPECT_EQ(kit.FocusedControl(), control->Handle());
    }
}

TEST_P(ControlContract, ADisabledControlDoesNotTakeTheFocus) {
    for (Control* control : kit.FocusableControls()) {
        Control& holder = control == &kit.List() ? kit.OtherList() : kit.List();
        holder.SetFocus();
        control->SetEnabled(false);
        control->SetFocus();
        EXPECT_EQ(kit.FocusedControl(), holder.Handle());
        control->SetEnabled(true);
        EXPECT_EQ(kit.FocusedControl(), holder.Handle());
    }
}

TEST_P(ControlContract, AHiddenControlDoesNotTakeTheFocus) {
    for (Control* control : kit.FocusableControls()) {
        Control& holder = control == &kit.List() ? kit.OtherList() : kit.List();
        holder.SetFocus();
        control->SetVisible(false);
        control->SetFocus();
        EXPECT_EQ(kit.FocusedControl(), holder.Handle());
        control->SetVisible(true);
        EXPECT_EQ(kit.FocusedControl(), holder.Handle());
    }
}

TEST_P(ControlContract, AControlThatIsDisabledOrHiddenLosesTheFocus) {
    for (Control* control : kit.FocusableControls()) {
        control->SetFocus();
        control->SetEnabled(false);
        EXPECT_NE(kit.FocusedControl(), control->Handle());
        control->SetEnabled(true);
        control->SetFocus();
        control->SetVisible(false);
        EXPECT_NE(kit.FocusedControl(), control->Handle());
        control->SetVisible(true);
    }
}

TEST_P(ControlContract, RefreshMayBeCalledAtAnyTime) {
    for (Control* control : kit.AllControls()) {
        control->Refresh();
        control->SetVisible(false);
        control->Refresh();
        EXPECT_FALSE(control->Visible());
    }
}

} // namespace
