#pragma once

#include "platform/Controls.h"
#include "tests/fakes/PrintText.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

/// One control of each sort, visible and enabled in one active window, with a user to act on them.
/// There is a kit of fakes and a kit of the real controls; what holds for both is the contract.
class ControlKit {
public:
    virtual ~ControlKit() = default;

    virtual ListControl& List() = 0;
    virtual ListControl& OtherList() = 0;
    virtual ComboControl& Combo() = 0;
    virtual TextControl& Text() = 0;
    virtual LabelControl& Label() = 0;
    virtual ButtonControl& Button() = 0;
    virtual CheckControl& Check() = 0;
    /// Three tabs: "All Files", "Audio", "Video".
    virtual TabsControl& Tabs() = 0;
    virtual ProgressControl& Progress() = 0;
    virtual PictureControl& Picture() = 0;
    virtual HandleControl& Handle() = 0;
    virtual Control& Frame() = 0;
    virtual TimerControl& Timer() = 0;
    /// A button inside Frame.
    virtual ButtonControl& ButtonInFrame() = 0;

    virtual WindowHandle FocusedControl() = 0;

    /// On the text of a row, or on its check box.
    virtual void ClickRow(ListControl& list, int row) = 0;
    virtual void ClickCheckBox(ListControl& list, int row) = 0;
    virtual void RightClickRow(ListControl& list, int row) = 0;
    /// The mouse, no button pressed, over the top left corner of the list moved by that many
    /// pixels of 15 twips.
    virtual void HoverAt(ListControl& list, int pixelsX, int pixelsY) = 0;
    /// Keys pressed while the list has the focus.
    virtual void PressSpace(ListControl& list) = 0;
    virtual void PressDown(ListControl& list) = 0;
    virtual void PressUp(ListControl& list) = 0;

    virtual void OpenCombo() = 0;
    virtual void ChooseEntry(int index) = 0;
    virtual void ClickIntoText() = 0;
    virtual void TypeText(const QString& text) = 0;
    virtual void ClickLabel() = 0;
    virtual void Press(ButtonControl& button) = 0;
    virtual void PressCheck() = 0;
    virtual void ClickTab(int index) = 0;
    /// Presses the left mouse button on the handle, moves by that many pixels of 15 twips to the
    /// right and lets go.
    virtual void DragHandle(int pixels) = 0;
    virtual void LetTimePass() = 0;

    std::vector<Control*> AllControls() {
        return {&List(), &OtherList(), &Combo(),   &Text(),   &Label(),         &Button(), &Check(),
                &Tabs(), &Progress(),  &Picture(), &Handle(), &ButtonInFrame(), &Frame()};
    }
    /// The controls that take the keyboard focus.
    std::vector<Control*> FocusableControls() {
        return {&List(), &OtherList(), &Combo(), &Text(), &Button(), &Check(), &Tabs()};
    }
};

/// What a contract test is run with.
struct ControlKitKind {
    const char* Name;
    std::unique_ptr<ControlKit> (*Make)();
};

inline void PrintTo(const ControlKitKind& kind, std::ostream* out) {
    *out << kind.Name;
}

std::unique_ptr<ControlKit> MakeFakeKit();
std::unique_ptr<ControlKit> MakeQtKit();

/// A test that has to hold for every kind of control.
class ControlContractTest : public testing::TestWithParam<ControlKitKind> {
protected:
    std::unique_ptr<ControlKit> m_kit = GetParam().Make();
    ControlKit& kit = *m_kit;
};

inline const auto EveryKit =
    testing::Values(ControlKitKind{"Fakes", MakeFakeKit}, ControlKitKind{"Qt", MakeQtKit});

inline std::string KitName(const testing::TestParamInfo<ControlKitKind>& info) {
    return info.param.Name;
}
