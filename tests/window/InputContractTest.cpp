#include "platform/RuntimeError.h"
#include "tests/window/ControlKit.h"

namespace {

using Log = std::vector<std::string>;

/// An empty text box that logs its events.
class TextContract : public ControlContractTest {
protected:
    TextControl& text = kit.Text();
    Log log;

    TextContract() {
        kit.List().SetFocus();
        text.Change = [this] { log.push_back("Change " + text.Text().toStdString()); };
    }
};

INSTANTIATE_TEST_SUITE_P(Kits, TextContract, EveryKit, KitName);

TEST_P(TextContract, SetTextRaisesChangeBeforeItReturns) {
    text.SetText(QStringLiteral("abc"));
    EXPECT_EQ(log, Log({"Change abc"}));
    text.SetText(QString());
    EXPECT_EQ(log, Log({"Change abc", "Change "}));
}

TEST_P(TextContract, SetTextToTheSameTextRaisesNothing) {
    text.SetText(QString());
    text.SetText(QStringLiteral("abc"));
    text.SetText(QStringLiteral("abc"));
    EXPECT_EQ(log, Log({"Change abc"}));
}

TEST_P(TextContract, EveryTypedCharacterRaisesChange) {
    text.SetFocus();
    kit.TypeText(QStringLiteral("abc"));
    EXPECT_EQ(log, Log({"Change a", "Change ab", "Change abc"}));
}

TEST_P(TextContract, TypingReplacesWhatIsSelected) {
    text.SetText(QStringLiteral("abcdef"));
    text.SetFocus();
    text.Select(2, 3);
    log.clear();
    kit.TypeText(QStringLiteral("x"));
    EXPECT_EQ(text.Text(), QStringLiteral("abxf"));
    kit.TypeText(QStringLiteral("y"));
    EXPECT_EQ(log, Log({"Change abxf", "Change abxyf"}));
}

TEST_P(TextContract, SelectTakesNoMoreThanThereIs) {
    text.SetText(QStringLiteral("abc"));
    text.SetFocus();
    text.Select(1, 100);
    kit.TypeText(QStringLiteral("x"));
    EXPECT_EQ(text.Text(), QStringLiteral("ax"));
}

TEST_P(TextContract, SelectingTheWholeTextOnFocusLetsTheUserTypeOverIt) {
    text.GotFocus = [&] { text.Select(0, int(text.Text().size())); };
    text.SetText(QStringLiteral("old"));
    text.SetFocus();
    kit.TypeText(QStringLiteral("n"));
    EXPECT_EQ(text.Text(), QStringLiteral("n"));
}

TEST_P(TextContract, ADisabledBoxIgnoresTheUserAndObeysTheProgram) {
    text.SetEnabled(false);
    kit.ClickIntoText();
    kit.TypeText(QStringLiteral("abc"));
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(text.Text(), QString());
    text.SetText(QStringLiteral("x"));
    EXPECT_EQ(log, Log({"Change x"}));
}

TEST_P(TextContract, RaisesGotFocusAndLostFocus) {
    text.GotFocus = [&] { log.push_back("GotFocus"); };
    text.LostFocus = [&] { log.push_back("LostFocus"); };
    text.SetFocus();
    text.SetFocus();
    kit.List().SetFocus();
    EXPECT_EQ(log, Log({"GotFocus", "LostFocus"}));
}

TEST_P(TextContract, AClickIntoTheBoxRaisesGotFocus) {
    text.GotFocus = [&] { log.push_back("GotFocus"); };
    kit.ClickIntoText();
    EXPECT_EQ(log, Log({"GotFocus"}));
    EXPECT_EQ(kit.FocusedControl(), text.Handle());
}

TEST_P(TextContract, AChangeHandlerMaySetTheTextAgain) {
    text.Change = [&] {
        log.push_back("Change " + text.Text().toStdString());
        text.SetText(QStringLiteral("fixed"));
    };
    text.SetText(QStringLiteral("abc"));
    EXPECT_EQ(log, Log({"Change abc", "Change fixed"}));
    EXPECT_EQ(text.Text(), QStringLiteral("fixed"));
}

TEST_P(TextContract, AChangeHandlerMayDisableTheBox) {
    text.Change = [&] {
        log.push_back("Change " + text.Text().toStdString());
        text.SetEnabled(false);
    };
    text.SetFocus();
    kit.TypeText(QStringLiteral("a"));
    kit.TypeText(QStringLiteral("b"));
    EXPECT_EQ(log, Log({"Change a"}));
}

/// A combo of three entries, none chosen, that logs its events.
class ComboContract : public ControlContractTest {
protected:
    ComboControl& combo = kit.Combo();
    Log log;

    ComboContract() {
        combo.Click = [this] { log.push_back("Click " + combo.Text().toStdString()); };
        combo.DropDown = [this] { log.push_back("DropDown"); };
        for (const char* entry : {"(E:) IPOD", "(F:) MUSIC", "(G:) ana"}) {
            combo.AddItem(QString::fromLatin1(entry));
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Kits, ComboContract, EveryKit, KitName);

TEST_P(ComboContract, AddingEntriesChoosesNoneAndRaisesNothing) {
    EXPECT_EQ(combo.ListCount(), 3);
    EXPECT_EQ(combo.List(1), QStringLiteral("(F:) MUSIC"));
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(log, Log{});
}

TEST_P(ComboContract, SetTextToAnEntryChoosesItAndRaisesClick) {
    combo.SetText(QStringLiteral("(F:) MUSIC"));
    EXPECT_EQ(combo.Text(), QStringLiteral("(F:) MUSIC"));
    EXPECT_EQ(log, Log({"Click (F:) MUSIC"}));
}

TEST_P(ComboContract, SetTextToTheChosenEntryRaisesClickAgain) {
    combo.SetText(QStringLiteral("(F:) MUSIC"));
    combo.SetText(QStringLiteral("(F:) MUSIC"));
    EXPECT_EQ(log, Log({"Click (F:) MUSIC", "Click (F:) MUSIC"}));
}

TEST_P(ComboContract, SetTextToAMissingTextLeavesNoTextAndRaisesNothing) {
    combo.SetText(QStringLiteral("(F:) MUSIC"));
    log.clear();
    combo.SetText(QStringLiteral("(H:) GONE"));
    EXPECT_EQ(combo.Text(), QString());
    combo.SetText(QStringLiteral("(F:) MUSIC"));
    log.clear();
    combo.SetText(QString());
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(combo.ListCount(), 3);
}

TEST_P(ComboContract, EntriesAreComparedExactly) {
    combo.SetText(QStringLiteral("(G:) ANA"));
    EXPECT_EQ(combo.Text(), QString());
    combo.SetText(QStringLiteral("(G:)"));
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(log, Log{});
}

TEST_P(ComboContract, AddingAnEntryKeepsTheChosenOne) {
    combo.SetText(QStringLiteral("(F:) MUSIC"));
    log.clear();
    combo.AddItem(QStringLiteral("(H:) NEW"));
    EXPECT_EQ(combo.Text(), QStringLiteral("(F:) MUSIC"));
    EXPECT_EQ(log, Log{});
}

TEST_P(ComboContract, ClearRemovesAllAndRaisesNothing) {
    combo.SetText(QStringLiteral("(F:) MUSIC"));
    log.clear();
    combo.Clear();
    EXPECT_EQ(combo.ListCount(), 0);
    EXPECT_EQ(combo.Text(), QString());
    combo.AddItem(QStringLiteral("(H:) NEW"));
    EXPECT_EQ(combo.Text(), QString());
    EXPECT_EQ(log, Log{});
}

TEST_P(ComboContract, AnEntryThatDoesNotExistIsOutOfRange) {
    for (const int index : {-1, 3}) {
        try {
            combo.List(index);
            ADD_FAILURE() << index;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(int(error.Number), 9);
        }
    }
}

TEST_P(ComboContract, OpeningRaisesDropDown) {
    kit.OpenCombo();
    EXPECT_EQ(log, Log({"DropDown"}));
}

TEST_P(ComboContract, TheUsersChoiceRaisesClick) {
    kit.OpenCombo();
    kit.ChooseEntry(2);
    EXPECT_EQ(log, Log({"DropDown", "Click (G:) ana"}));
}

TEST_P(ComboContract, ChoosingTheChosenEntryRaisesClickAgain) {
    combo.SetText(QStringLiteral("(G:) ana"));
    log.clear();
    kit.OpenCombo();
    kit.ChooseEntry(2);
    EXPECT_EQ(log, Log({"DropDown", "Click (G:) ana"}));
}

TEST_P(ComboContract, WhatDropDownFillsInCanBeChosen) {
    combo.Clear();
    combo.DropDown = [&] {
        combo.Clear();
        combo.AddItem(QStringLiteral("first"));
        combo.AddItem(QStringLiteral("second"));
    };
    kit.OpenCombo();
    kit.ChooseEntry(1);
    EXPECT_EQ(log, Log({"Click second"}));
}

TEST_P(ComboContract, AClickHandlerMayFillTheComboAnew) {
    combo.Click = [&] {
        combo.Clear();
        combo.AddItem(QStringLiteral("only"));
    };
    kit.OpenCombo();
    kit.ChooseEntry(2);
    EXPECT_EQ(combo.ListCount(), 1);
    EXPECT_EQ(combo.Text(), QString());
}

TEST_P(ComboContract, ADisabledComboIgnoresTheUserAndObeysTheProgram) {
    combo.SetEnabled(false);
    kit.OpenCombo();
    kit.ChooseEntry(1);
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(combo.Text(), QString());
    combo.SetText(QStringLiteral("(G:) ana"));
    EXPECT_EQ(log, Log({"Click (G:) ana"}));
}

/// The tabs, logging their clicks.
class TabsContract : public ControlContractTest {
protected:
    TabsControl& tabs = kit.Tabs();
    Log log;

    TabsContract() {
        tabs.Click = [this] { log.push_back(tabs.SelectedCaption().toStdString()); };
    }
};

INSTANTIATE_TEST_SUITE_P(Kits, TabsContract, EveryKit, KitName);

TEST_P(TabsContract, TheFirstTabIsSelectedAtFirst) {
    EXPECT_EQ(tabs.SelectedCaption(), QStringLiteral("All Files"));
}

TEST_P(TabsContract, SelectRaisesClickBeforeItReturns) {
    tabs.Select(2);
    EXPECT_EQ(log, Log({"Video"}));
    EXPECT_EQ(tabs.SelectedCaption(), QStringLiteral("Video"));
}

TEST_P(TabsContract, SelectingTheSelectedTabRaisesClickToo) {
    tabs.Select(0);
    tabs.Select(1);
    tabs.Select(1);
    EXPECT_EQ(log, Log({"All Files", "Audio", "Audio"}));
}

TEST_P(TabsContract, TheUsersChoiceRaisesClick) {
    kit.ClickTab(1);
    EXPECT_EQ(log, Log({"Audio"}));
    kit.ClickTab(0);
    EXPECT_EQ(log, Log({"Audio", "All Files"}));
}

TEST_P(TabsContract, ATabThatDoesNotExistIsOutOfRange) {
    for (const int index : {-1, 3}) {
        try {
            tabs.Select(index);
            ADD_FAILURE() << index;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(int(error.Number), 9);
        }
    }
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(tabs.SelectedCaption(), QStringLiteral("All Files"));
}

TEST_P(TabsContract, DisabledTabsIgnoreTheUserAndObeyTheProgram) {
    tabs.SetEnabled(false);
    kit.ClickTab(1);
    EXPECT_EQ(log, Log{});
    EXPECT_EQ(tabs.SelectedCaption(), QStringLiteral("All Files"));
    tabs.Select(2);
    EXPECT_EQ(log, Log({"Video"}));
}

TEST_P(TabsContract, AClickHandlerMaySelectAnotherTab) {
    bool building = false;
    tabs.Click = [&] {
        log.push_back(tabs.SelectedCaption().toStdString());
        if (!building) {
            building = true;
            tabs.Select(0);
        }
    };
    kit.ClickTab(2);
    EXPECT_EQ(log, Log({"Video", "All Files"}));
    EXPECT_EQ(tabs.SelectedCaption(), QStringLiteral("All Files"));
}

} // namespace
