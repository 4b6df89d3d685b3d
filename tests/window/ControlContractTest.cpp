#include "tests/window/ControlKit.h"

#include <set>

using namespace Qt::StringLiterals;

void ControlContractTest::ExpectOutOfRange(const std::function<void()>& step) {
    try {
        step();
        ADD_FAILURE() << "nothing was raised";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, ErrorNumber::SubscriptOutOfRange);
        EXPECT_EQ(error.Description, u"Subscript out of range"_s);
    }
}

namespace {

/// What every control does alike.
class ControlContract : public ControlContractTest {
protected:
    void ExpectGeometry(const Control& control, double left, double top, double width,
                        double height) {
        EXPECT_EQ(control.Left(), left);
        EXPECT_EQ(control.Top(), top);
        EXPECT_EQ(control.Width(), width);
        EXPECT_EQ(control.Height(), height);
    }
};

INSTANTIATE_TEST_SUITE_P(Kits, ControlContract, EveryKit, KitName);

TEST_P(ControlContract, BeginsEnabledAndVisibleAndKeepsEachIndependently) {
    for (Control* control : kit.AllControls()) {
        EXPECT_TRUE(control->Enabled());
        EXPECT_TRUE(control->Visible());
        control->SetEnabled(false);
        EXPECT_FALSE(control->Enabled());
        EXPECT_TRUE(control->Visible());
        control->SetVisible(false);
        control->SetEnabled(true);
        EXPECT_TRUE(control->Enabled());
        EXPECT_FALSE(control->Visible());
        control->SetVisible(true);
        EXPECT_TRUE(control->Visible());
    }
}

TEST_P(ControlContract, EnabledAndVisibleAreTheControlsOwnWhateverItsFrameIs) {
    kit.Frame.SetEnabled(false);
    EXPECT_TRUE(kit.ButtonInFrame.Enabled());
    kit.ButtonInFrame.SetEnabled(false);
    kit.Frame.SetEnabled(true);
    EXPECT_FALSE(kit.ButtonInFrame.Enabled());
    kit.Frame.SetVisible(false);
    EXPECT_TRUE(kit.ButtonInFrame.Visible());
}

TEST_P(ControlContract, ADisabledFrameDisablesItsContentsForTheUser) {
    int presses = 0;
    kit.ButtonInFrame.Click = [&] { ++presses; };
    kit.Frame.SetEnabled(false);
    kit.Click(kit.ButtonInFrame);
    EXPECT_EQ(presses, 0);
    kit.Frame.SetEnabled(true);
    kit.Click(kit.ButtonInFrame);
    EXPECT_EQ(presses, 1);
}

TEST_P(ControlContract, KeepsItsToolTip) {
    for (Control* control : kit.AllControls()) {
        EXPECT_EQ(control->ToolTip(), QString());
        control->SetToolTip(u"Simon & Garfunkel"_s);
        EXPECT_EQ(control->ToolTip(), u"Simon & Garfunkel"_s);
    }
}

TEST_P(ControlContract, EveryHandleIsItsOwn) {
    std::set<WindowHandle> handles = {0};
    for (Control* control : kit.AllControls()) {
        EXPECT_EQ(control->Handle(), control->Handle());
        EXPECT_TRUE(handles.insert(control->Handle()).second);
    }
}

TEST_P(ControlContract, GeometryIsExactlyWhatWasSetAlsoWhileHidden) {
    for (Control* control : kit.AllControls()) {
        control->Move(1003.5, 607.25, 2222.2, 1111.1);
        ExpectGeometry(*control, 1003.5, 607.25, 2222.2, 1111.1);
        control->SetLeft(1.25);
        control->SetTop(2.5);
        ExpectGeometry(*control, 1.25, 2.5, 2222.2, 1111.1);
        control->SetWidth(333.3);
        control->SetHeight(444.4);
        ExpectGeometry(*control, 1.25, 2.5, 333.3, 444.4);
        control->SetVisible(false);
        control->Move(-7.5, 11.25, 0, 15);
        control->SetVisible(true);
        ExpectGeometry(*control, -7.5, 11.25, 0, 15);
    }
}

TEST_P(ControlContract, OnlyAControlThatIsEnabledAndVisibleHasTheFocus) {
    for (const auto set : {&Control::SetEnabled, &Control::SetVisible}) {
        for (Control* control : kit.FocusableControls()) {
            Control& other = control == &kit.List ? kit.OtherList : kit.List;
            other.SetFocus();
            (control->*set)(false);
            control->SetFocus();
            EXPECT_EQ(kit.FocusedControl(), other.Handle());
            (control->*set)(true);
            EXPECT_EQ(kit.FocusedControl(), other.Handle());
            control->SetFocus();
            EXPECT_EQ(kit.FocusedControl(), control->Handle());
            (control->*set)(false);
            EXPECT_NE(kit.FocusedControl(), control->Handle());
            (control->*set)(true);
        }
    }
}

} // namespace
