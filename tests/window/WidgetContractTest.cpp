#include "tests/window/ControlKit.h"

using namespace Qt::StringLiterals;

namespace {

/// Counts the clicks that the test lets it hear.
class WidgetContract : public ControlContractTest {
protected:
    int clicks = 0;
    Event count = [this] { ++clicks; };
};

class ButtonContract : public WidgetContract {};

INSTANTIATE_TEST_SUITE_P(Kits, ButtonContract, EveryKit, KitName);

TEST_P(ButtonContract, APressRaisesClickWhileItIsEnabled) {
    kit.Button.Click = [&] {
        ++clicks;
        kit.Button.SetEnabled(false);
    };
    kit.Press(kit.Button);
    EXPECT_EQ(clicks, 1);
    kit.Press(kit.Button);
    EXPECT_EQ(clicks, 1);
}

TEST_P(ButtonContract, KeepsItsCaptionAsSet) {
    for (const QString& caption : {u"&Copy to Destination"_s, u"&Cancel"_s}) {
        kit.Button.SetCaption(caption);
        EXPECT_EQ(kit.Button.Caption(), caption);
    }
}

TEST_P(ButtonContract, KeepsWhetherItIsTheDefault) {
    EXPECT_FALSE(kit.Button.Default());
    kit.Button.SetDefault(true);
    kit.Text.SetFocus();
    EXPECT_TRUE(kit.Button.Default());
    kit.Button.SetDefault(false);
    EXPECT_FALSE(kit.Button.Default());
}

class LabelContract : public WidgetContract {};

INSTANTIATE_TEST_SUITE_P(Kits, LabelContract, EveryKit, KitName);

TEST_P(LabelContract, KeepsItsCaptionAsSetAndItsSize) {
    kit.Label.Move(300, 450, 77, 240);
    for (const QString& caption :
         {u"Simon && Garfunkel"_s, u"&Search:"_s, u"a & b"_s, u"<b>x</b>"_s, QString(),
          u"a text far too long for this label"_s}) {
        kit.Label.SetCaption(caption);
        EXPECT_EQ(kit.Label.Caption(), caption);
        EXPECT_EQ(kit.Label.Width(), 77);
        EXPECT_EQ(kit.Label.Height(), 240);
    }
}

TEST_P(LabelContract, AClickRaisesClickWhileItIsEnabledAndLeavesTheFocusWhereItIs) {
    kit.Label.Click = count;
    kit.List.SetFocus();
    kit.ClickLabel();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(kit.FocusedControl(), kit.List.Handle());
    kit.Label.SetEnabled(false);
    kit.ClickLabel();
    EXPECT_EQ(clicks, 1);
}

TEST_P(LabelContract, SizeToCaptionTakesTheWidthOfTheTextAlone) {
    LabelControl& label = kit.Label;
    const auto widthOf = [&](const QString& caption) {
        label.SetCaption(caption);
        label.SizeToCaption();
        return label.Width();
    };
    label.Move(300, 450, 77, 240);
    EXPECT_GT(widthOf(u"Selected: 0 KB of 1.48 GB"_s), widthOf(u"Selected:"_s));
    EXPECT_EQ(widthOf(u"&Search"_s), widthOf(u"Search"_s));
    EXPECT_GT(widthOf(u"A&&B"_s), widthOf(u"AB"_s));
    EXPECT_EQ(label.Left(), 300);
    EXPECT_EQ(label.Top(), 450);
    EXPECT_EQ(label.Height(), 240);
}

class CheckContract : public WidgetContract {};

INSTANTIATE_TEST_SUITE_P(Kits, CheckContract, EveryKit, KitName);

TEST_P(CheckContract, KeepsItsValueAndRaisesNothingForTheProgram) {
    kit.Check.Click = count;
    EXPECT_FALSE(kit.Check.Value());
    for (const bool enabled : {true, false}) {
        kit.Check.SetEnabled(enabled);
        kit.Check.SetValue(true);
        EXPECT_TRUE(kit.Check.Value());
        kit.Check.SetValue(false);
        EXPECT_FALSE(kit.Check.Value());
    }
    EXPECT_EQ(clicks, 0);
}

TEST_P(CheckContract, APressTogglesThenRaisesClickWhileItIsEnabled) {
    std::vector<bool> values;
    kit.Check.Click = [&] { values.push_back(kit.Check.Value()); };
    kit.PressCheck();
    kit.PressCheck();
    kit.Check.SetEnabled(false);
    kit.PressCheck();
    EXPECT_EQ(values, std::vector<bool>({true, false}));
    EXPECT_FALSE(kit.Check.Value());
}

class ProgressContract : public ControlContractTest {};

INSTANTIATE_TEST_SUITE_P(Kits, ProgressContract, EveryKit, KitName);

TEST_P(ProgressContract, KeepsMaxAndValueWhateverTheyAre) {
    const std::pair<float, float> cases[] = {{10.0F, 25.0F},
                                             {0.0F, 25.0F},
                                             {0.0F, -1.0F},
                                             {1.0F, 0.3F},
                                             {160000000000.0F, 80000000000.0F}};
    for (const auto& [max, value] : cases) {
        kit.Progress.SetMax(max);
        kit.Progress.SetValue(value);
        EXPECT_EQ(kit.Progress.Max(), max);
        EXPECT_EQ(kit.Progress.Value(), value);
    }
}

class HandleContract : public ControlContractTest {};

INSTANTIATE_TEST_SUITE_P(Kits, HandleContract, EveryKit, KitName);

TEST_P(HandleContract, ADragWithTheLeftButtonRaisesDownMoveAndUpWithThePositionInTwips) {
    const auto note = [&](const char* name) {
        return [this, name](const MouseState& mouse) {
            EXPECT_EQ(mouse.Button, 1);
            EXPECT_EQ(mouse.Shift, 0);
            log.push_back(name + std::to_string(int(mouse.X)));
        };
    };
    double movedTo = 0;
    kit.Handle.MouseDown = note("down ");
    kit.Handle.MouseMove = [&](const MouseState& mouse) { movedTo = mouse.X; };
    kit.Handle.MouseUp = note("up ");
    kit.DragHandle(40);
    EXPECT_EQ(log, Log({"down 15", "up 615"}));
    EXPECT_EQ(movedTo, 615);
    kit.DragHandle(-40);
    EXPECT_EQ(movedTo, -585);
}

TEST_P(HandleContract, ADisabledHandleIgnoresTheUser) {
    bool heard = false;
    kit.Handle.MouseDown = kit.Handle.MouseMove =
        kit.Handle.MouseUp = [&](const MouseState&) { heard = true; };
    kit.Handle.SetEnabled(false);
    kit.DragHandle(10);
    EXPECT_FALSE(heard);
}

TEST_P(HandleContract, KeepsItsColour) {
    EXPECT_EQ(kit.Handle.BackColor(), SystemColor::ButtonFace);
    for (const SystemColor color : {SystemColor::DarkShadow3D, SystemColor::ButtonFace}) {
        kit.Handle.SetBackColor(color);
        EXPECT_EQ(kit.Handle.BackColor(), color);
    }
}

TEST_P(HandleContract, ADraggedHandleMayMoveItself) {
    kit.Handle.MouseMove = [&](const MouseState& mouse) {
        kit.Handle.SetLeft(kit.Handle.Left() + mouse.X - 15);
    };
    const double before = kit.Handle.Left();
    kit.DragHandle(10);
    EXPECT_EQ(kit.Handle.Left(), before + 150);
}

class TimerContract : public WidgetContract {};

INSTANTIATE_TEST_SUITE_P(Kits, TimerContract, EveryKit, KitName);

TEST_P(TimerContract, RaisesTimerOnlyWhileEnabled) {
    kit.Timer.Timer = [&] {
        ++clicks;
        kit.Timer.SetEnabled(false);
    };
    kit.Timer.SetEnabled(false);
    EXPECT_FALSE(kit.Timer.Enabled());
    kit.LetTimePass();
    EXPECT_EQ(clicks, 0);
    kit.Timer.SetEnabled(true);
    EXPECT_TRUE(kit.Timer.Enabled());
    kit.LetTimePass();
    kit.LetTimePass();
    EXPECT_EQ(clicks, 1);
}

} // namespace
