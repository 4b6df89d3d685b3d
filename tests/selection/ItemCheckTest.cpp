// What surrounds every change of a check mark.

#include "tests/selection/CheckPropagationFixture.h"

namespace {

class ItemCheckTest : public CheckPropagationFixture {};

} // namespace

TEST_F(ItemCheckTest, AProgrammaticChangeWhileBuildingChangesNoRecordAndComputesNothing) {
    const NestedFlag::Guard building = browser.Linked.Building.Set();
    const QString message = QStringLiteral("untouched");
    browser.Form.lblMessage.SetCaption(message);
    artists.SetSelected(1, true);
    albums.SetSelected(1, true);
    songs.SetSelected(1, true);
    EXPECT_EQ(Checked(), "");
    EXPECT_EQ(browser.Form.lblMessage.Caption(), message);
    EXPECT_FALSE(browser.Form.cmdCopy.Enabled());
    EXPECT_EQ(Ticked(albums), "Arrival");
    EXPECT_EQ(Ticked(songs), "Money");
}

TEST_F(ItemCheckTest, CopyIsEnabledExactlyWhenAnArtistIsTickedOrTicksAreHidden) {
    EXPECT_FALSE(browser.Form.cmdCopy.Enabled());
    browser.Tick(songs, "Money");
    EXPECT_TRUE(browser.Form.cmdCopy.Enabled());
    browser.Untick(songs, "Money");
    EXPECT_FALSE(browser.Form.cmdCopy.Enabled());
    browser.Tick(albums, "Arrival");
    EXPECT_TRUE(browser.Form.cmdCopy.Enabled());
    browser.Untick(artists, "Abba");
    EXPECT_FALSE(browser.Form.cmdCopy.Enabled());
    browser.Result.SetCheckedHidden();
    browser.Tick(songs, "Money");
    browser.Untick(songs, "Money");
    EXPECT_TRUE(browser.Form.cmdCopy.Enabled());
}

TEST_F(ItemCheckTest, TickingARowThatIsNotCurrentShowsItsChildrenFirst) {
    browser.Tick(artists, "Queen");
    EXPECT_EQ(Texts(albums), "All (2 Albums), Innuendo, Jazz");
    browser.Untick(albums, "Jazz");
    EXPECT_EQ(Texts(songs), "All (2 Items), Mustapha, Bicycle Race");
    EXPECT_EQ(Ticked(songs), "");
}

TEST_F(ItemCheckTest, ASongsTickRebuildsNoList) {
    const int fills = artists.FillCount + albums.FillCount + songs.FillCount;
    browser.Tick(songs, "Money");
    browser.Tick(songs, "All");
    EXPECT_EQ(artists.FillCount + albums.FillCount + songs.FillCount, fills);
}

TEST_F(ItemCheckTest, TheCurrentRowsOfAllListsStay) {
    browser.Click(artists, "Queen");
    browser.Click(albums, "Innuendo");
    browser.Click(songs, "Bijou");
    artists.UserSpace();
    EXPECT_EQ(Current(artists), "Queen");
    EXPECT_EQ(Current(albums), "Innuendo");
    EXPECT_EQ(Current(songs), "Bijou");
    albums.UserSpace();
    EXPECT_EQ(Current(songs), "Bijou");
    EXPECT_EQ(Checked(), "Queen, Queen/Jazz, Queen/Jazz/Mustapha, Queen/Jazz/Bicycle Race");
    EXPECT_EQ(browser.FullName(), "Queen / Innuendo / Bijou");
}

TEST_F(ItemCheckTest, TheFocusReturnsToTheListThatWasTicked) {
    for (FakeListControl* list : {&artists, &albums, &songs}) {
        browser.Form.txtSearch.SetFocus();
        list->SetSelected(1, !list->Selected(1));
        EXPECT_TRUE(list->HasFocus());
    }
}

TEST_F(ItemCheckTest, TheListsAreHiddenDuringTheChangeAndShownOnce) {
    browser.Click(artists, "All");
    browser.Click(albums, "All");
    for (FakeListControl* list : {&artists, &albums, &songs}) {
        list->ChangesWhileVisible = list->VisibleChanges = 0;
    }
    browser.Tick(artists, "All");
    EXPECT_EQ(artists.VisibleChanges, 2);
    EXPECT_EQ(albums.VisibleChanges, 2);
    EXPECT_EQ(songs.VisibleChanges, 2);
    EXPECT_EQ(artists.ChangesWhileVisible, 2); // the user's own tick, and the current row
    EXPECT_EQ(albums.ChangesWhileVisible, 1);  // the current row
    EXPECT_EQ(songs.ChangesWhileVisible, 1);
}

TEST_F(ItemCheckTest, TheSummaryIsComputedOnceAChange) {
    browser.Form.prgCopy.Values.clear();
    browser.Tick(artists, "All");
    EXPECT_EQ(browser.Form.prgCopy.Values, std::vector<float>{64512.0F});
    EXPECT_FALSE(browser.Linked.Building);
}

TEST_F(ItemCheckTest, InAResultAllArtistsTicksTheResultAlone) {
    browser.Type("a"); // Bicycle Race, Mustapha, Headlong; Abba whole
    browser.Click(artists, "All");
    ASSERT_EQ(Texts(songs), "All (5 Items), Bicycle Race, Headlong, Money, Mustapha, Tiger");
    browser.Tick(artists, "All");
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(Checked(), std::string("Queen, Queen/Jazz, Queen/Jazz/Mustapha, "
                                     "Queen/Jazz/Bicycle Race, Queen/Innuendo, "
                                     "Queen/Innuendo/Headlong, ") +
                             AllOfAbba);
}

TEST_F(ItemCheckTest, InAResultAnAlbumStaysTickedForItsHiddenSongsUntilItIsTouched) {
    browser.Click(artists, "Queen");
    browser.Tick(songs, "Bijou");
    browser.Type("headlong");
    EXPECT_EQ(Ticked(artists), "All (1 Artist), Queen");
    EXPECT_EQ(Ticked(albums), "All (1 Album), Innuendo");
    EXPECT_EQ(Ticked(songs), "");
    browser.Tick(songs, "Headlong");
    browser.Untick(songs, "Headlong");
    EXPECT_EQ(Ticked(artists), "");
    EXPECT_EQ(Ticked(albums), "");
    EXPECT_TRUE(browser.Form.cmdCopy.Enabled());
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(Checked(), "Queen, Queen/Innuendo, Queen/Innuendo/Bijou");
}
