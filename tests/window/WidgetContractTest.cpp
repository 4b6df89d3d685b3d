#include "tests/window/ControlKit.h"

using namespace Qt::StringLiterals;

namespace {

/// What the controls do that are neither lists nor for input.
class WidgetContract : public ControlContractTest {
protected:
    int clicks = 0;
};

INSTANTIATE_TEST_SUITE_P(Kits, WidgetContract, EveryKit, KitName);

TEST_P(WidgetContract, AClickRaisesClickWhileTheControlIsEnabled) {
    kit.Button.Click = kit.Label.Click = kit.Check.Click = [this] { ++clicks; };
    for (Control* control : std::vector<Control*>{&kit.Button, &kit.Label, &kit.Check}) {
        clicks = 0;
        kit.Click(*control);
        EXPECT_EQ(clicks, 1);
        control->SetEnabled(false);
        kit.Click(*control);
        EXPECT_EQ(clicks, 1);
    }
}

TEST_P(WidgetContract, AButtonsHandlerMayDisableIt) {
    kit.Button.Click = [&] {
        ++clicks;
        kit.Button.SetEnabled(false);
    };
    kit.Click(kit.Button);
    kit.Click(kit.Button);
    EXPECT_EQ(clicks, 1);
}

TEST_P(WidgetContract, AButtonKeepsWhetherItIsTheDefault) {
    EXPECT_FALSE(kit.Button.Default());
    kit.Button.SetDefault(true);
    kit.Text.SetFocus();
    EXPECT_TRUE(kit.Button.Default());
    kit.Button.SetDefault(false);
    EXPECT_FALSE(kit.Button.Default());
}

TEST_P(WidgetContract, CaptionsAreKeptAsSetAndLeaveTheLabelsSize) {
    kit.Label.Move(300, 450, 77, 240);
    for (const QString& caption :
         {u"Simon && Garfunkel"_s, u"&Search:"_s, u"a & b"_s, u"<b>x</b>"_s, QString(),
          u"a text far too long for this label"_s}) {
        kit.Label.SetCaption(caption);
        kit.Button.SetCaption(caption);
        EXPECT_EQ(kit.Label.Caption(), caption);
        EXPECT_EQ(kit.Button.Caption(), caption);
    }
    EXPECT_EQ(kit.Label.Width(), 77);
    EXPECT_EQ(kit.Label.Height(), 240);
}

TEST_P(WidgetContract, AClickOnALabelLeavesTheFocusWhereItIs) {
    kit.List.SetFocus();
    kit.Click(kit.Label);
    EXPECT_EQ(kit.FocusedControl(), kit.List.Handle());
}

TEST_P(WidgetContract, SizeToCaptionTakesTheWidthOfTheTextAlone) {
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

TEST_P(WidgetContract, ACheckBoxObeysTheProgramSilentlyAndTogglesBeforeTheUsersClick) {
    std::vector<bool> values;
    kit.Check.Click = [&] { values.push_back(kit.Check.Value()); };
    EXPECT_FALSE(kit.Check.Value());
    for (const bool value : {true, false}) {
        kit.Check.SetValue(value);
        EXPECT_EQ(kit.Check.Value(), value);
    }
    kit.Click(kit.Check);
    kit.Click(kit.Check);
    kit.Check.SetEnabled(false);
    kit.Click(kit.Check);
    EXPECT_EQ(values, std::vector<bool>({true, false}));
    EXPECT_FALSE(kit.Check.Value());
    kit.Check.SetValue(true);
    EXPECT_TRUE(kit.Check.Value());
}

TEST_P(WidgetContract, AProgressBarKeepsMaxAndValueWhateverTheyAre) {
    const std::pair<float, float> cases[] = {
        {10.0F, 25.0F}, {0.0F, 25.0F}, {1.0F, -1.0F}, {1.0F, 0.3F}, {1.6e11F, 8e10F}};
    for (const auto& [max, value] : cases) {
        kit.Progress.SetMax(max);
        kit.Progress.SetValue(value);
        EXPECT_EQ(kit.Progress.Max(), max);
        EXPECT_EQ(kit.Progress.Value(), value);
    }
}

TEST_P(WidgetContract, ADraggedHandleReportsItsPositionInTwipsWhileItIsEnabled) {
    const auto note = [&](const char* name) {
        return [this, name](const MouseState& mouse) {
            EXPECT_EQ(mouse.Button, 1);
            EXPECT_EQ(mouse.Shift, 0);
            log.push_back(name + std::to_string(int(mouse.X)));
        };
    };
    kit.Handle.MouseDown = note("down ");
    kit.Handle.MouseUp = note("up ");
    double movedTo = 0;
    kit.Handle.MouseMove = [&](const MouseState& mouse) { movedTo = mouse.X; };
    kit.DragHandle(40);
    EXPECT_EQ(log, Log({"down 15", "up 615"}));
    EXPECT_EQ(movedTo, 615);
    kit.DragHandle(-40);
    EXPECT_EQ(movedTo, -585);
    log.clear();
    kit.Handle.SetEnabled(false);
    kit.DragHandle(10);
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(movedTo, -585);
}

TEST_P(WidgetContract, AHandleKeepsItsColour) {
    EXPECT_EQ(kit.Handle.BackColor(), SystemColor::ButtonFace);
    for (const SystemColor color : {SystemColor::DarkShadow3D, SystemColor::ButtonFace}) {
        kit.Handle.SetBackColor(color);
        EXPECT_EQ(kit.Handle.BackColor(), color);
    }
}

TEST_P(WidgetContract, ATimerIsRaisedOnlyWhileItIsEnabled) {
    kit.Timer.Timer = [&] {
        ++clicks;
        kit.Timer.SetEnabled(false);
    };
    for (const bool enabled : {false, true}) {
        kit.Timer.SetEnabled(enabled);
        EXPECT_EQ(kit.Timer.Enabled(), enabled);
        kit.LetTimePass();
        kit.LetTimePass();
        EXPECT_EQ(clicks, enabled ? 1 : 0);
    }
}

} // namespace
