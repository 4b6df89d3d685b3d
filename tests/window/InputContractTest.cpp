#include "tests/window/ControlKit.h"

using namespace Qt::StringLiterals;

namespace {

/// An empty text box that logs its events.
class TextContract : public ControlContractTest {
protected:
    TextControl& text = kit.Text;

    TextContract() {
        kit.List.SetFocus();
        text.Change = [this] { log.push_back("Change " + text.Text().toStdString()); };
        text.GotFocus = [this] { log.push_back("GotFocus"); };
        text.LostFocus = [this] { log.push_back("LostFocus"); };
    }
};

INSTANTIATE_TEST_SUITE_P(Kits, TextContract, EveryKit, KitName);

TEST_P(TextContract, SetTextRaisesChangeBeforeItReturnsWhenTheTextIsAnother) {
    text.SetText(QString());
    EXPECT_EQ(log, Log{});
    text.SetText(u"abc"_s);
    EXPECT_EQ(log, Log({"Change abc"}));
    text.SetText(u"abc"_s);
    text.SetText(QString());
    EXPECT_EQ(log, Log({"Change abc", "Change "}));
}

TEST_P(TextContract, EveryTypedCharacterRaisesChange) {
    text.SetFocus();
    kit.TypeText(u"abc"_s);
    EXPECT_EQ(log, Log({"GotFocus", "Change a", "Change ab", "Change abc"}));
}

TEST_P(TextContract, TypingReplacesWhatIsSelectedOfTheText) {
    text.SetFocus();
    text.SetText(u"abcdef"_s);
    text.Select(2, 3);
    kit.TypeText(u"x"_s);
    EXPECT_EQ(text.Text(), u"abxf"_s);
    kit.TypeText(u"y"_s);
    EXPECT_EQ(text.Text(), u"abxyf"_s);
    text.Select(1, 100); // more than there is
    kit.TypeText(u"z"_s);
    EXPECT_EQ(text.Text(), u"az"_s);
}

TEST_P(TextContract, ADisabledBoxIgnoresTheUserAndObeysTheProgram) {
    text.SetEnabled(false);
    kit.Click(kit.Text);
    kit.TypeText(u"abc"_s);
    EXPECT_EQ(text.Text(), QString());
    text.SetText(u"x"_s);
    EXPECT_EQ(log, Log({"Change x"}));
}

TEST_P(TextContract, TheProgramAndAClickGiveTheFocusOnce) {
    text.SetFocus();
    text.SetFocus();
    kit.List.SetFocus();
    EXPECT_EQ(log, Log({"GotFocus", "LostFocus"}));
    kit.Click(kit.Text);
    EXPECT_EQ(log, Log({"GotFocus", "LostFocus", "GotFocus"}));
    EXPECT_EQ(kit.FocusedControl(), text.Handle());
}

TEST_P(TextContract, AChangeHandlerMaySetTheTextAgain) {
    text.Change = [&, note = text.Change] {
        note();
        text.SetText(u"fixed"_s);
    };
    text.SetText(u"abc"_s);
    EXPECT_EQ(log, Log({"Change abc", "Change fixed"}));
    EXPECT_EQ(text.Text(), u"fixed"_s);
}

/// A combo of three entries, none chosen, that logs its events.
class ComboContract : public ControlContractTest {
protected:
    ComboControl& combo = kit.Combo;

    ComboContract() {
        combo.Click = [this] { log.push_back("Click " + combo.Text().toStdString()); };
        combo.DropDown = [this] { log.push_back("DropDown"); };
        for (const QString& entry : {u"(E:) IPOD"_s, u"(F:) MUSIC"_s, u"(G:) ana"_s}) {
            combo.AddItem(entry);
        }
    }

    void UserChooses(int index) {
        kit.Click(kit.Combo);
        kit.ChooseEntry(index);
    }
};

INSTANTIATE_TEST_SUITE_P(Kits, ComboContract, EveryKit, KitName);

TEST_P(ComboContract, AddingAndRemovingEntriesChoosesNoneAndRaisesNothing) {
    EXPECT_EQ(combo.ListCount(), 3);
    EXPECT_EQ(combo.List(1), u"(F:) MUSIC"_s);
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(log, Log{});
    combo.SetText(u"(F:) MUSIC"_s);
    combo.AddItem(u"(H:) NEW"_s);
    EXPECT_EQ(combo.Text(), u"(F:) MUSIC"_s);
    combo.Clear();
    EXPECT_EQ(combo.ListCount(), 0);
    combo.AddItem(u"(H:) NEW"_s);
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(log, Log({"Click (F:) MUSIC"}));
}

TEST_P(ComboContract, SetTextToAnEntryChoosesItAndRaisesClickEachTime) {
    combo.SetText(u"(F:) MUSIC"_s);
    EXPECT_EQ(combo.Text(), u"(F:) MUSIC"_s);
    combo.SetText(u"(F:) MUSIC"_s);
    EXPECT_EQ(log, Log({"Click (F:) MUSIC", "Click (F:) MUSIC"}));
}

TEST_P(ComboContract, SetTextToWhatIsNoEntryLeavesNoTextAndRaisesNothing) {
    for (const QString& text : {u"(H:) GONE"_s, u"(G:) ANA"_s, u"(G:)"_s, QString()}) {
        combo.SetText(u"(F:) MUSIC"_s);
        log.clear();
        combo.SetText(text);
        EXPECT_EQ(combo.Text(), QString());
        EXPECT_EQ(log, Log{});
    }
    EXPECT_EQ(combo.ListCount(), 3);
}

TEST_P(ComboContract, AnEntryThatDoesNotExistIsOutOfRange) {
    ExpectOutOfRange([&] { combo.List(-1); });
    ExpectOutOfRange([&] { combo.List(3); });
}

TEST_P(ComboContract, OpeningRaisesDropDownAndTheUsersChoiceClickEachTime) {
    kit.Click(kit.Combo);
    EXPECT_EQ(log, Log({"DropDown"}));
    kit.ChooseEntry(2);
    UserChooses(2);
    EXPECT_EQ(log, Log({"DropDown", "Click (G:) ana", "DropDown", "Click (G:) ana"}));
}

TEST_P(ComboContract, WhatDropDownFillsInCanBeChosen) {
    combo.DropDown = [&] {
        combo.Clear();
        combo.AddItem(u"first"_s);
        combo.AddItem(u"second"_s);
    };
    UserChooses(1);
    EXPECT_EQ(log, Log({"Click second"}));
}

TEST_P(ComboContract, AClickHandlerMayFillTheComboAgain) {
    combo.Click = [&] {
        combo.Clear();
        combo.AddItem(u"only"_s);
    };
    UserChooses(2);
    EXPECT_EQ(combo.ListCount(), 1);
    EXPECT_EQ(combo.Text(), QString());
}

TEST_P(ComboContract, ADisabledComboIgnoresTheUserAndObeysTheProgram) {
    combo.SetEnabled(false);
    UserChooses(1);
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(combo.Text(), QString());
    combo.SetText(u"(G:) ana"_s);
    EXPECT_EQ(log, Log({"Click (G:) ana"}));
}

/// The tabs, logging their clicks.
class TabsContract : public ControlContractTest {
protected:
    TabsControl& tabs = kit.Tabs;

    TabsContract() {
        tabs.Click = [this] { log.push_back(tabs.SelectedCaption().toStdString()); };
    }
};

INSTANTIATE_TEST_SUITE_P(Kits, TabsContract, EveryKit, KitName);

TEST_P(TabsContract, TheFirstIsSelectedAndEverySelectionRaisesClick) {
    EXPECT_EQ(tabs.SelectedCaption(), u"All Files"_s);
    tabs.Select(0);
    EXPECT_EQ(log, Log({"All Files"}));
    tabs.Select(2);
    tabs.Select(2);
    kit.ClickTab(1);
    kit.ClickTab(1);
    EXPECT_EQ(log, Log({"All Files", "Video", "Video", "Audio", "Audio"}));
}

TEST_P(TabsContract, ATabThatDoesNotExistIsOutOfRange) {
    ExpectOutOfRange([&] { tabs.Select(-1); });
    ExpectOutOfRange([&] { tabs.Select(3); });
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(tabs.SelectedCaption(), u"All Files"_s);
}

TEST_P(TabsContract, DisabledTabsIgnoreTheUserAndObeyTheProgram) {
    tabs.SetEnabled(false);
    kit.ClickTab(1);
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(tabs.SelectedCaption(), u"All Files"_s);
    tabs.Select(2);
    EXPECT_EQ(log, Log({"Video"}));
}

TEST_P(TabsContract, AClickHandlerMaySelectAnotherTab) {
    tabs.Click = [&, note = tabs.Click] {
        note();
        if (log.size() == 1) {
            tabs.Select(0);
        }
    };
    kit.ClickTab(2);
    EXPECT_EQ(log, Log({"Video", "All Files"}));
    EXPECT_EQ(tabs.SelectedCaption(), u"All Files"_s);
}

} // namespace
