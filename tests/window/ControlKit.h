#pragma once

#include "platform/Controls.h"
#include "platform/RuntimeError.h"
#include "tests/fakes/Text.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// One control of each sort, visible and enabled in one active window.
struct KitControls {
    ListControl& List;
    ListControl& OtherList;
    ComboControl& Combo;
    TextControl& Text;
    LabelControl& Label;
    ButtonControl& Button;
    CheckControl& Check;
    /// Three tabs: "All Files", "Audio", "Video".
    TabsControl& Tabs;
    ProgressControl& Progress;
    PictureControl& Picture;
    HandleControl& Handle;
    Control& Frame;
    ButtonControl& ButtonInFrame;
    TimerControl& Timer;
};

/// The controls with a user to act on them. There is a kit of fakes and a kit of the real controls;
/// what holds for both is the contract.
class ControlKit : public KitControls {
public:
    explicit ControlKit(const KitControls& controls) : KitControls(controls) {}
    virtual ~ControlKit() = default;

    virtual WindowHandle FocusedControl() = 0;

    /// On the text of a row, or on its check box.
    virtual void ClickRow(ListControl& list, int row) = 0;
    virtual void ClickCheckBox(ListControl& list, int row) = 0;
    virtual void RightClickRow(ListControl& list, int row) = 0;
    /// The mouse, no button pressed, over the top left corner of the list moved by that many
    /// pixels of 15 twips.
    virtual void HoverAt(ListControl& list, int pixelsX, int pixelsY) = 0;
    /// The space bar or an arrow key, while the list has the focus.
    virtual void PressKey(ListControl& list, Qt::Key key) = 0;

    /// Into a combo, which opens it, a text box, a label, a button or a check box.
    virtual void Click(Control& control) = 0;
    virtual void ChooseEntry(int index) = 0;
    virtual void TypeText(const QString& text) = 0;
    virtual void ClickTab(int index) = 0;
    /// Presses the left mouse button on the handle, moves by that many pixels of 15 twips to the
    /// right and lets go.
    virtual void DragHandle(int pixels) = 0;
    virtual void LetTimePass() = 0;

    std::vector<Control*> AllControls() {
        return {&List, &OtherList, &Combo,   &Text,   &Label,         &Button, &Check,
                &Tabs, &Progress,  &Picture, &Handle, &ButtonInFrame, &Frame};
    }
    /// The controls that take the keyboard focus.
    std::vector<Control*> FocusableControls() {
        return {&List, &OtherList, &Combo, &Text, &Button, &Check, &Tabs};
    }
};

std::unique_ptr<ControlKit> MakeFakeKit();
std::unique_ptr<ControlKit> MakeQtKit();

/// A test that has to hold for the fakes and for the real controls.
class ControlContractTest : public testing::TestWithParam<bool> {
protected:
    using Log = std::vector<std::string>;

    std::unique_ptr<ControlKit> m_kit = GetParam() ? MakeQtKit() : MakeFakeKit();
    ControlKit& kit = *m_kit;
    Log log;

    static void ExpectOutOfRange(const std::function<void()>& step);
};

inline const auto EveryKit = testing::Bool();

inline std::string KitName(const testing::TestParamInfo<bool>& isReal) {
    return isReal.param ? "Qt" : "Fakes";
}
