#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// A character is 100 twips wide.

namespace {

class TextFittingTest : public testing::Test {
protected:
    BrowserFixture browser{R"(
Abba
  Arrival
    Money
)"};
    FakeForm1& form = browser.Form;

    void SetLabelWidth(double width) { form.lblFullName.SetWidth(width); }
    void Show(const char* text) { browser.Fitting.AdjustText(QString::fromUtf8(text)); }
    std::string Shown() const { return form.lblFullName.Caption().toStdString(); }
    std::string ToolTip() const { return form.lblFullName.ToolTip().toStdString(); }
};

} // namespace

// ---- the full name

TEST_F(TextFittingTest, ANameThatFitsExactlyHasNoToolTipAndNoDots) {
    SetLabelWidth(1000);
    Show("ABCDEFGHIJ");
    EXPECT_EQ(Shown(), "ABCDEFGHIJ");
    EXPECT_EQ(ToolTip(), "");
}

TEST_F(TextFittingTest, ANameOneCharacterTooLongShowsTheTextLessFourCharactersAndDots) {
    SetLabelWidth(1050); // room for ten characters and a half
    Show("ABCDEFGHIJK");
    EXPECT_EQ(Shown(), "ABCDEFG...");
    EXPECT_EQ(ToolTip(), "ABCDEFGHIJK");
}

TEST_F(TextFittingTest, AShortenedNameMustBeNarrowerThanTheLabel) {
    SetLabelWidth(1000);
    Show("ABCDEFGHIJK");
    EXPECT_EQ(Shown(), "ABCDEF..."); // nine: a tenth would be exactly as wide
}

TEST_F(TextFittingTest, ANameThatFitsLosesTheToolTipOfTheOneBefore) {
    SetLabelWidth(1050);
    Show("ABCDEFGHIJK");
    Show("ABC");
    EXPECT_EQ(Shown(), "ABC");
    EXPECT_EQ(ToolTip(), "");
}

TEST_F(TextFittingTest, TheResultIsThatOfDroppingOneCharacterAtATime) {
    const QString text = u"The quick brown fox jumps over the lazy dog"_s;
    for (int width = 400; width < 5000; width += 50) {
        SetLabelWidth(width);
        browser.Fitting.AdjustText(text);
        QString expected = text;
        if (form.Form1.TextWidth(expected) > width) {
            expected += u"..."_s;
            while (form.Form1.TextWidth(expected) >= width) {
                expected = expected.left(expected.size() - 4) + u"..."_s;
            }
        }
        ASSERT_EQ(Shown(), expected.toStdString()) << width;
    }
}

TEST_F(TextFittingTest, AnAmpersandIsShownAsOne) {
    Show("Simon & Garfunkel");
    EXPECT_EQ(Shown(), "Simon && Garfunkel");
    Show("a&&b&");
    EXPECT_EQ(Shown(), "a&&&&b&&");
}

TEST_F(TextFittingTest, TheAmpersandIsMeasuredOnceAndStandsInTheToolTipOnce) {
    SetLabelWidth(1000);
    Show("Tom & Judy"); // ten characters
    EXPECT_EQ(Shown(), "Tom && Judy");
    EXPECT_EQ(ToolTip(), "");
    Show("Tom & Judys");
    EXPECT_EQ(Shown(), "Tom && ..."); // six characters and three dots
    EXPECT_EQ(ToolTip(), "Tom & Judys");
}

TEST_F(TextFittingTest, ALabelTooNarrowForACharacterShowsTheDots) {
    for (const double width : {400.0, 300.0, 100.0, 0.0}) {
        SetLabelWidth(width);
        Show("ABCDEFGHIJK");
        EXPECT_EQ(Shown(), "...") << width;
        EXPECT_EQ(ToolTip(), "ABCDEFGHIJK");
    }
    SetLabelWidth(50);
    Show("A");
    EXPECT_EQ(Shown(), "...");
}

TEST_F(TextFittingTest, AnEmptyTextIsNeverShortened) {
    SetLabelWidth(0);
    Show("");
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(ToolTip(), "");
}

TEST_F(TextFittingTest, ALetterOfTwoCodeUnitsIsNeverCutInHalf) {
    SetLabelWidth(850);
    Show("ABC\xF0\x9F\x98\x80\x44\x45\x46\x47"); // ABC, a smiley of two units, DEFG
    EXPECT_EQ(Shown(), "ABC\xF0\x9F\x98\x80...");
    SetLabelWidth(750);
    browser.Fitting.AdjustTextAgain();
    EXPECT_EQ(Shown(), "ABC...");
}

TEST_F(TextFittingTest, AVeryLongNameIsShortenedInNoTime) {
    SetLabelWidth(1050);
    const QString name(1'000'000, u'x');
    browser.Fitting.AdjustText(name);
    EXPECT_EQ(Shown(), "xxxxxxx...");
    EXPECT_EQ(form.lblFullName.ToolTip(), name);
}

TEST_F(TextFittingTest, AWiderLabelShowsTheWholeTextAgain) {
    SetLabelWidth(1050);
    Show("Tom & Judy's");
    EXPECT_EQ(Shown(), "Tom && J...");
    SetLabelWidth(2000);
    browser.Fitting.AdjustTextAgain();
    EXPECT_EQ(Shown(), "Tom && Judy's");
    EXPECT_EQ(ToolTip(), "");
}

// ---- the focus follows the mouse

TEST_F(TextFittingTest, MovingOverAListTakesTheFocusFromTheOtherListsAndTheTabs) {
    FakeListControl* const lists[] = {&form.lstArtists, &form.lstAlbums, &form.lstSongs};
    for (FakeListControl* list : lists) {
        for (FakeListControl* other : lists) {
            other->SetFocus();
            list->UserMouseMove({});
            EXPECT_TRUE(list->HasFocus());
        }
        form.tbsFilter.SetFocus();
        list->UserMouseMove({});
        EXPECT_TRUE(list->HasFocus());
    }
}

TEST_F(TextFittingTest, MovingOverAlbumsWhileTypingLeavesTheFocusInTheSearchBox) {
    form.txtSearch.SetFocus();
    form.lstAlbums.UserMouseMove({});
    EXPECT_TRUE(form.txtSearch.HasFocus());
}

TEST_F(TextFittingTest, MovingOverAListTakesTheFocusFromNothingElse) {
    form.cmdCopy.SetEnabled(true);
    for (FakeListControl* list : {&form.lstArtists, &form.lstAlbums, &form.lstSongs}) {
        form.txtDestination.SetFocus();
        list->UserMouseMove({});
        EXPECT_TRUE(form.txtDestination.HasFocus());
        form.cmdCopy.SetFocus();
        list->UserMouseMove({});
        EXPECT_TRUE(form.cmdCopy.HasFocus());
        form.Combo1.SetFocus();
        list->UserMouseMove({});
        EXPECT_TRUE(form.Combo1.HasFocus());
    }
}

TEST_F(TextFittingTest, MovingOverAListWhileAnotherWindowIsActiveLeavesTheFocus) {
    form.lstArtists.SetFocus();
    form.WindowManager.ActiveWindow = 0;
    form.lstSongs.UserMouseMove({});
    EXPECT_TRUE(form.lstArtists.HasFocus());
    form.WindowManager.ActiveWindow = form.Form1.Handle() + 1;
    form.lstSongs.UserMouseMove({});
    EXPECT_TRUE(form.lstArtists.HasFocus());
}

TEST_F(TextFittingTest, MovingOverAListWhileNothingHasTheFocusLeavesItThere) {
    form.Focus->TakeFrom(form.Focus->Current());
    form.lstAlbums.UserMouseMove({});
    EXPECT_EQ(form.Focus->Current(), WindowHandle{0});
}

TEST_F(TextFittingTest, ScrollingAListTakesTheFocusWhoeverHasIt) {
    for (FakeListControl* list : {&form.lstArtists, &form.lstAlbums, &form.lstSongs}) {
        form.txtSearch.SetFocus();
        form.WindowManager.ActiveWindow = 0;
        list->UserScroll();
        EXPECT_TRUE(list->HasFocus());
    }
}

// ---- the menu

TEST_F(TextFittingTest, RightClickingASongOpensTheMenuThere) {
    form.lstSongs.UserClick(1);
    form.lstSongs.MouseDown({.Button = 2, .X = 300, .Y = 450});
    EXPECT_EQ(form.mnuPopup.PopUpCount, 1);
    EXPECT_EQ(form.mnuPopup.Over, form.lstSongs.Handle());
    EXPECT_EQ(form.mnuPopup.X, 300);
    EXPECT_EQ(form.mnuPopup.Y, 450);
}

TEST_F(TextFittingTest, RightClickingTheAllSongsRowOpensNoMenu) {
    form.lstSongs.UserRightClick(0);
    EXPECT_EQ(form.mnuPopup.PopUpCount, 0);
}

TEST_F(TextFittingTest, WithoutACurrentSongNoMenuOpens) {
    form.lstSongs.SetListIndex(-1);
    form.lstSongs.MouseDown({.Button = 2});
    EXPECT_EQ(form.mnuPopup.PopUpCount, 0);
}

TEST_F(TextFittingTest, OnlyTheRightButtonOpensTheMenu) {
    form.lstSongs.UserClick(1);
    form.lstSongs.MouseDown({.Button = 1});
    form.lstSongs.MouseDown({.Button = 4});
    form.lstSongs.MouseDown({.Button = 0, .Shift = 2});
    EXPECT_EQ(form.mnuPopup.PopUpCount, 0);
}
