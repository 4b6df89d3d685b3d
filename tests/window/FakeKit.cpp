#include "tests/fakes/FakeControls.h"
#include "tests/window/ControlKit.h"

namespace {

class FakeKit : public ControlKit {
public:
    FakeKit() {
        buttonInFrame.Container = &frame;
        for (Control* control : AllControls()) {
            control->Move(0, 0, 1500, 1500);
        }
    }

    ListControl& List() override { return list; }
    ListControl& OtherList() override { return otherList; }
    ComboControl& Combo() override { return combo; }
    TextControl& Text() override { return text; }
    LabelControl& Label() override { return label; }
    ButtonControl& Button() override { return button; }
    CheckControl& Check() override { return check; }
    TabsControl& Tabs() override { return tabs; }
    ProgressControl& Progress() override { return progress; }
    PictureControl& Picture() override { return picture; }
    HandleControl& Handle() override { return handle; }
    Control& Frame() override { return frame; }
    TimerControl& Timer() override { return timer; }
    ButtonControl& ButtonInFrame() override { return buttonInFrame; }

    WindowHandle FocusedControl() override { return focus->Current(); }

    void ClickRow(ListControl& target, int row) override { Fake(target).UserClick(row); }
    void ClickCheckBox(ListControl& target, int row) override { Fake(target).UserToggle(row); }
    void RightClickRow(ListControl& target, int row) override { Fake(target).UserRightClick(row); }
    void HoverAt(ListControl& target, int pixelsX, int pixelsY) override {
        Fake(target).UserMouseMove({.X = pixelsX * 15.0, .Y = pixelsY * 15.0});
    }
    void PressSpace(ListControl& target) override { Fake(target).UserSpace(); }
    void PressDown(ListControl& target) override { Fake(target).UserArrow(1); }
    void PressUp(ListControl& target) override { Fake(target).UserArrow(-1); }

    void OpenCombo() override { combo.UserDropDown(); }
    void ChooseEntry(int index) override { combo.UserChoose(index); }
    void ClickIntoText() override { text.UserEnter(); }
    void TypeText(const QString& typed) override { text.UserType(typed); }
    void ClickLabel() override { label.UserClick(); }
    void Press(ButtonControl& target) override {
        static_cast<FakeButtonControl&>(target).UserPress();
    }
    void PressCheck() override { check.UserPress(); }
    void ClickTab(int index) override { tabs.UserSelectTab(index); }
    void DragHandle(int pixels) override {
        handle.UserMouseDown(15);
        handle.UserMouseMove(15 + pixels * 15);
        handle.UserMouseUp(15 + pixels * 15);
    }
    void LetTimePass() override { timer.Elapse(); }

private:
    std::shared_ptr<FakeFocus> focus = std::make_shared<FakeFocus>();
    FakeListControl list{focus};
    FakeListControl otherList{focus};
    FakeComboControl combo{focus};
    FakeTextControl text{focus};
    FakeLabelControl label{focus};
    FakeButtonControl button{focus};
    FakeCheckControl check{focus};
    FakeTabsControl tabs{focus};
    FakeProgressControl progress{focus};
    FakePictureControl picture{focus};
    FakeHandleControl handle{focus};
    FakeControl frame{focus};
    FakeTimerControl timer;
    FakeButtonControl buttonInFrame{focus};

    static FakeListControl& Fake(ListControl& target) {
        return static_cast<FakeListControl&>(target);
    }
};

} // namespace

std::unique_ptr<ControlKit> MakeFakeKit() {
    return std::make_unique<FakeKit>();
}
