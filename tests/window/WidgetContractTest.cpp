#include "tests/window/ControlKit.h"

namespace {

class ButtonContract : public ControlContractTest {};

INSTANTIATE_TEST_SUITE_P(Kits, ButtonContract, EveryKit, KitName);

TEST_P(ButtonContract, APressRaisesClickOnce) {
    int clicks = 0;
    kit.Button().Click = [&] { ++clicks; };
    kit.Press(kit.Button());
    EXPECT_EQ(clicks, 1);
}

TEST_P(ButtonContract, ADisabledButtonIgnoresTheUser) {
    int clicks = 0;
    kit.Button().Click = [&] { ++clicks; };
    kit.Button().SetEnabled(false);
    kit.Press(kit.Button());
    EXPECT_EQ(clicks, 0);
}

TEST_P(ButtonContract, AHandlerMayDisableItsButton) {
    int clicks = 0;
    kit.Button().Click = [&] {
        ++clicks;
        kit.Button().SetEnabled(false);
    };
    kit.Press(kit.Button());
    kit.Press(kit.Button());
    EXPECT_EQ(clicks, 1);
}

TEST_P(ButtonContract, KeepsItsCaptionAsSet) {
    kit.Button().SetCaption(QStringLiteral("&Copy to Destination"));
    EXPECT_EQ(kit.Button().Caption(), QStringLiteral("&Copy to Destination"));
    kit.Button().SetCaption(QStringLiteral("&Cancel"));
    EXPECT_EQ(kit.Button().Caption(), QStringLiteral("&Cancel"));
}

TEST_P(ButtonContract, KeepsWhetherItIsTheDefault) {
    EXPECT_FALSE(kit.Button().Default());
    kit.Button().SetDefault(true);
    EXPECT_TRUE(kit.Button().Default());
    kit.Text().SetFocus();
    EXPECT_TRUE(kit.Button().Default());
    kit.Button().SetDefault(false);
    EXPECT_FALSE(kit.Button().Default());
}

class LabelContract : public ControlContractTest {};

INSTANTIATE_TEST_SUITE_P(Kits, LabelContract, EveryKit, KitName);

TEST_P(LabelContract, KeepsItsCaptionAsSet) {
    for (const QString& caption :
         {QStringLiteral("Simon && Garfunkel"), QStringLiteral("&Search:"), QStringLiteral("a & b"),
          QStringLiteral("<b>x</b>"), QString()}) {
        kit.Label().SetCaption(caption);
        EXPECT_EQ(kit.Label().Caption(), caption);
    }
}

TEST_P(LabelContract, AClickRaisesClick) {
    int clicks = 0;
    kit.Label().Click = [&] { ++clicks; };
    kit.ClickLabel();
    EXPECT_EQ(clicks, 1);
}

TEST_P(LabelContract, ADisabledLabelIgnoresTheUser) {
    int clicks = 0;
    kit.Label().Click = [&] { ++clicks; };
    kit.Label().SetEnabled(false);
    kit.ClickLabel();
    EXPECT_EQ(clicks, 0);
}

TEST_P(LabelContract, AClickLeavesTheFocusWhereItIs) {
    kit.List().SetFocus();
    kit.ClickLabel();
    EXPECT_EQ(kit.FocusedControl(), kit.List().Handle());
}

TEST_P(LabelContract, SizeToCaptionTakesTheWidthOfTheTextAlone) {
    LabelControl& label = kit.Label();
    const auto widthOf = [&](const char* caption) {
        label.SetCaption(QString::fromLatin1(caption));
        label.SizeToCaption();
        return label.Width();
    };
    label.Move(300, 450, 77, 240);
    EXPECT_GT(widthOf("Selected: 0 KB of 1.48 GB"), widthOf("Selected:"));
    EXPECT_EQ(widthOf("&Search"), widthOf("Search"));
    EXPECT_GT(widthOf("A&&B"), widthOf("AB"));
    EXPECT_EQ(label.Left(), 300);
    EXPECT_EQ(label.Top(), 450);
    EXPECT_EQ(label.Height(), 240);
}

TEST_P(LabelContract, SettingTheCaptionKeepsTheSize) {
    kit.Label().Move(300, 450, 77, 240);
    kit.Label().SetCaption(QStringLiteral("a text far too long for this label"));
    EXPECT_EQ(kit.Label().Width(), 77);
    EXPECT_EQ(kit.Label().Height(), 240);
}

class CheckContract : public ControlContractTest {};

INSTANTIATE_TEST_SUITE_P(Kits, CheckContract, EveryKit, KitName);

TEST_P(CheckContract, KeepsItsValueAndRaisesNothingForTheProgram) {
    int clicks = 0;
    kit.Check().Click = [&] { ++clicks; };
    EXPECT_FALSE(kit.Check().Value());
    kit.Check().SetValue(true);
    EXPECT_TRUE(kit.Check().Value());
    kit.Check().SetValue(false);
    EXPECT_FALSE(kit.Check().Value());
    EXPECT_EQ(clicks, 0);
}

TEST_P(CheckContract, APressTogglesThenRaisesClick) {
    std::vector<bool> values;
    kit.Check().Click = [&] { values.push_back(kit.Check().Value()); };
    kit.PressCheck();
    kit.PressCheck();
    EXPECT_EQ(values, std::vector<bool>({true, false}));
}

TEST_P(CheckContract, ADisabledCheckBoxIgnoresTheUser) {
    int clicks = 0;
    kit.Check().Click = [&] { ++clicks; };
    kit.Check().SetEnabled(false);
    kit.PressCheck();
    EXPECT_FALSE(kit.Check().Value());
    EXPECT_EQ(clicks, 0);
    kit.Check().SetValue(true);
    EXPECT_TRUE(kit.Check().Value());
}

class ProgressContract : public ControlContractTest {};

INSTANTIATE_TEST_SUITE_P(Kits, ProgressContract, EveryKit, KitName);

TEST_P(ProgressContract, KeepsMaxAndValueEvenBeyondEachOther) {
    ProgressControl& progress = kit.Progress();
    progress.SetMax(10);
    progress.SetValue(25);
    EXPECT_EQ(progress.Value(), 25);
    EXPECT_EQ(progress.Max(), 10);
    progress.SetMax(0);
    EXPECT_EQ(progress.Max(), 0);
    EXPECT_EQ(progress.Value(), 25);
    progress.SetValue(-1);
    EXPECT_EQ(progress.Value(), -1);
}

TEST_P(ProgressContract, KeepsBytesOfALibraryFarBeyond32Bits) {
    kit.Progress().SetMax(160000000000.0F);
    kit.Progress().SetValue(80000000000.0F);
    EXPECT_EQ(kit.Progress().Max(), 160000000000.0F);
    EXPECT_EQ(kit.Progress().Value(), 80000000000.0F);
}

TEST_P(ProgressContract, KeepsFractions) {
    kit.Progress().SetMax(1);
    kit.Progress().SetValue(0.3F);
    EXPECT_EQ(kit.Progress().Value(), 0.3F);
}

class HandleContract : public ControlContractTest {};

INSTANTIATE_TEST_SUITE_P(Kits, HandleContract, EveryKit, KitName);

TEST_P(HandleContract, ADragRaisesDownMoveAndUpWithThePositionInTwips) {
    std::vector<std::string> log;
    const auto note = [&](const char* name) {
        return [&log, name](const MouseState& mouse) {
            log.push_back(name + std::to_string(int(mouse.X)));
        };
    };
    double movedTo = 0;
    kit.Handle().MouseDown = note("down ");
    kit.Handle().MouseMove = [&](const MouseState& mouse) { movedTo = mouse.X; };
    kit.Handle().MouseUp = note("up ");
    kit.DragHandle(40);
    EXPECT_EQ(log, std::vector<std::string>({"down 15", "up 615"}));
    EXPECT_EQ(movedTo, 615);
}

TEST_P(HandleContract, ADragToTheLeftHasANegativePosition) {
    double movedTo = 0;
    kit.Handle().MouseMove = [&](const MouseState& mouse) { movedTo = mouse.X; };
    kit.DragHandle(-40);
    EXPECT_EQ(movedTo, -585);
}

TEST_P(HandleContract, TellsTheLeftButton) {
    MouseState pressed;
    kit.Handle().MouseDown = [&](const MouseState& mouse) { pressed = mouse; };
    kit.DragHandle(1);
    EXPECT_EQ(pressed.Button, 1);
    EXPECT_EQ(pressed.Shift, 0);
}

TEST_P(HandleContract, ADisabledHandleIgnoresTheUser) {
    bool heard = false;
    kit.Handle().MouseDown = [&](const MouseState&) { heard = true; };
    kit.Handle().MouseMove = kit.Handle().MouseDown;
    kit.Handle().MouseUp = kit.Handle().MouseDown;
    kit.Handle().SetEnabled(false);
    kit.DragHandle(10);
    EXPECT_FALSE(heard);
}

TEST_P(HandleContract, KeepsItsColour) {
    EXPECT_EQ(kit.Handle().BackColor(), SystemColor::ButtonFace);
    kit.Handle().SetBackColor(SystemColor::DarkShadow3D);
    EXPECT_EQ(kit.Handle().BackColor(), SystemColor::DarkShadow3D);
    kit.Handle().SetBackColor(SystemColor::ButtonFace);
    EXPECT_EQ(kit.Handle().BackColor(), SystemColor::ButtonFace);
}

TEST_P(HandleContract, ADraggedHandleMayMoveItself) {
    kit.Handle().MouseMove = [&](const MouseState& mouse) {
        kit.Handle().SetLeft(kit.Handle().Left() + mouse.X - 15);
    };
    const double before = kit.Handle().Left();
    kit.DragHandle(10);
    EXPECT_EQ(kit.Handle().Left(), before + 150);
}

class TimerContract : public ControlContractTest {};

INSTANTIATE_TEST_SUITE_P(Kits, TimerContract, EveryKit, KitName);

TEST_P(TimerContract, RaisesTimerOnlyWhileEnabled) {
    int ticks = 0;
    kit.Timer().Timer = [&] { ++ticks; };
    kit.Timer().SetEnabled(false);
    EXPECT_FALSE(kit.Timer().Enabled());
    kit.LetTimePass();
    EXPECT_EQ(ticks, 0);
    kit.Timer().SetEnabled(true);
    EXPECT_TRUE(kit.Timer().Enabled());
    kit.LetTimePass();
    EXPECT_GE(ticks, 1);
}

TEST_P(TimerContract, AHandlerMayDisableItsTimer) {
    int ticks = 0;
    kit.Timer().Timer = [&] {
        ++ticks;
        kit.Timer().SetEnabled(false);
    };
    kit.Timer().SetEnabled(true);
    kit.LetTimePass();
    kit.LetTimePass();
    EXPECT_EQ(ticks, 1);
}

} // namespace
