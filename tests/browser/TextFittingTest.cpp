#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

// A character is 100 twips wide.

namespace {

class TextFittingTest : public testing::Test {
protected:
    BrowserFixture browser{"Abba\n  Arrival\n    Money"};
    FakeForm1& form = browser.Form;

    void SetLabelWidth(double width) { form.lblFullName.SetWidth(width); }
    void Show(const char* text) { browser.Fitting.AdjustText(QString::fromUtf8(text)); }
    std::string Shown() const { return form.lblFullName.Caption().toStdString(); }
    std::string ToolTip() const { return form.lblFullName.ToolTip().toStdString(); }
};

} // namespace

// ---- the full name

TEST_F(TextFittingTest, ANameThatDoesNotFitIsShortenedAndShownInTheToolTip) {
    const struct {
        double LabelWidth;
        const char* Name;
        const char* Shown;
        bool IsShortened;
    } cases[] = {
        {1000, "ABCDEFGHIJ", "ABCDEFGHIJ", false}, // exactly as wide
        {1050, "ABCDEFGHIJK", "ABCDEFG...", true},
        {1000, "ABCDEFGHIJK", "ABCDEF...", true}, // narrower than the label
        {1000, "", "", false},
        {0, "", "", false},
        {400, "ABCDEFGHIJK", "...", true},
        {0, "ABCDEFGHIJK", "...", true},
        {50, "A", "...", true},
        // An ampersand is doubled for the label alone.
        {2000, "a&&b&", "a&&&&b&&", false},
        {1000, "Tom & Judy", "Tom && Judy", false},
        {1000, "Tom & Judys", "Tom && ...", true},
        // A smiley of two code units is not cut in half.
        {850, "ABC\xF0\x9F\x98\x80\x44\x45\x46\x47", "ABC\xF0\x9F\x98\x80...", true},
        {750, "ABC\xF0\x9F\x98\x80\x44\x45\x46\x47", "ABC...", true},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::Message() << each.Name << " in " << each.LabelWidth);
        SetLabelWidth(each.LabelWidth);
        Show(each.Name);
        EXPECT_EQ(Shown(), each.Shown);
        EXPECT_EQ(ToolTip(), each.IsShortened ? each.Name : "");
    }
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

TEST_F(TextFittingTest, MovingOverAListTakesTheFocusOnlyFromTheOtherListsAndTheTabs) {
    form.cmdCopy.SetEnabled(true);
    const std::vector<Control*> neighbours = {&form.lstArtists, &form.lstAlbums, &form.lstSongs,
                                              &form.tbsFilter};
    const std::vector<Control*> others = {&form.txtSearch, &form.txtDestination, &form.cmdCopy,
                                          &form.Combo1};
    for (FakeListControl* list : {&form.lstArtists, &form.lstAlbums, &form.lstSongs}) {
        for (Control* neighbour : neighbours) {
            neighbour->SetFocus();
            list->UserMouseMove({});
            EXPECT_TRUE(list->HasFocus());
        }
        for (Control* other : others) {
            other->SetFocus();
            list->UserMouseMove({});
            EXPECT_EQ(form.Focus->Current(), other->Handle());
        }
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

TEST_F(TextFittingTest, TheMenuOpensOnlyForTheRightButtonOnASong) {
    form.lstSongs.UserRightClick(0);
    form.lstSongs.SetListIndex(-1);
    form.lstSongs.MouseDown({.Button = 2});
    form.lstSongs.UserClick(1);
    form.lstSongs.MouseDown({.Button = 1});
    form.lstSongs.MouseDown({.Button = 4});
    form.lstSongs.MouseDown({.Button = 0, .Shift = 2});
    EXPECT_EQ(form.mnuPopup.PopUpCount, 0);
}
