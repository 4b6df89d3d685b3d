#include "tests/fakes/FakeControls.h"
#include "tests/window/ControlKit.h"

namespace {

struct Fakes {
    std::shared_ptr<FakeFocus> focus = std::make_shared<FakeFocus>();
    FakeListControl list{focus}, otherList{focus};
    FakeComboControl combo{focus};
    FakeTextControl text{focus};
    FakeLabelControl label{focus};
    FakeButtonControl button{focus}, buttonInFrame{focus};
    FakeCheckControl check{focus};
    FakeTabsControl tabs{focus};
    FakeProgressControl progress{focus};
    FakePictureControl picture{focus};
    FakeHandleControl handle{focus};
    FakeControl frame{focus};
    FakeTimerControl timer;
};

class FakeKit : private Fakes, public ControlKit {
public:
    FakeKit()
        : ControlKit({list, otherList, combo, text, label, button, check, tabs, progress, picture,
                      handle, frame, buttonInFrame, timer}) {
        buttonInFrame.Container = &frame;
        for (Control* control : AllControls()) {
            control->Move(0, 0, 1500, 1500);
        }
    }

    WindowHandle FocusedControl() override { return focus->Current(); }

    void ClickRow(ListControl& target, int row) override { Fake(target).UserClick(row); }
    void ClickCheckBox(ListControl& target, int row) override { Fake(target).UserToggle(row); }
    void RightClickRow(ListControl& target, int row) override { Fake(target).UserRightClick(row); }
    void HoverAt(ListControl& target, int pixelsX, int pixelsY) override {
        Fake(target).UserMouseMove({.X = pixelsX * 15.0, .Y = pixelsY * 15.0});
    }
    void PressKey(ListControl& target, Qt::Key key) override {
        if (key == Qt::Key_Space) {
            Fake(target).UserSpace();
        } else {
            Fake(target).UserArrow(key == Qt::Key_Down ? 1 : -1);
        }
    }

    void Click(Control& target) override {
        if (&target == &combo) {
            combo.UserDropDown();
        } else if (&target == &text) {
            text.UserEnter();
        } else if (&target == &label) {
            label.UserClick();
        } else if (&target == &check) {
            check.UserPress();
        } else {
            static_cast<FakeButtonControl&>(target).UserPress();
        }
    }
    void ChooseEntry(int index) override { combo.UserChoose(index); }
    void TypeText(const QString& typed) override { text.UserType(typed); }
    void ClickTab(int index) override { tabs.UserSelectTab(index); }
    void DragHandle(int pixels) override {
        handle.UserMouseDown(15);
        handle.UserMouseMove(15 + pixels * 15);
        handle.UserMouseUp(15 + pixels * 15);
    }
    void LetTimePass() override { timer.Elapse(); }

private:
    static FakeListControl& Fake(ListControl& target) {
        return static_cast<FakeListControl&>(target);
    }
};

} // namespace

std::unique_ptr<ControlKit> MakeFakeKit() {
    return std::make_unique<FakeKit>();
}
