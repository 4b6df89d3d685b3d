// What a result does to the rows, the check marks and the way back.

#include "tests/selection/SearchFixture.h"

namespace {

class SearchResultTest : public SearchFixture {};

} // namespace

// ---- the rows

TEST_F(SearchResultTest, TheArtistTheAlbumAndTheSongStayCurrentInTheResult) {
    browser.Click(artists, "Queen");
    browser.Click(albums, "River Jazz");
    browser.Click(songs, "Let Me");
    browser.Type("e");
    EXPECT_EQ(Current(artists), "Queen");
    EXPECT_EQ(Current(albums), "River Jazz");
    EXPECT_EQ(Current(songs), "Let Me");
    EXPECT_EQ(browser.FullName(), "Queen / River Jazz / Let Me");
    browser.Type("let");
    EXPECT_EQ(Texts(songs), "All (1 Item), Let Me");
    EXPECT_EQ(Current(songs), "Let Me");
    browser.Type("");
    EXPECT_EQ(Current(artists), "Queen");
    EXPECT_EQ(Current(albums), "River Jazz");
    EXPECT_EQ(Current(songs), "Let Me");
}

TEST_F(SearchResultTest, ARecordThatIsNotInTheResultLeavesTheAllRowCurrent) {
    browser.Click(artists, "Queen");
    browser.Click(albums, "Jazz");
    browser.Click(songs, "Mustapha");
    browser.Type("let");
    EXPECT_EQ(Current(artists), "Queen");
    EXPECT_EQ(Current(albums), "All (1 Album)");
    EXPECT_EQ(Current(songs), "All (1 Item)");
    browser.Type("stone");
    EXPECT_EQ(Current(artists), "All (1 Artist)");
    EXPECT_EQ(browser.FullName(), "");
}

TEST_F(SearchResultTest, AListOnItsAllRowStaysThere) {
    browser.Click(artists, "All");
    browser.Click(albums, "Second");
    browser.Type("stone");
    EXPECT_EQ(Current(artists), "All (1 Artist)");
    EXPECT_EQ(Current(albums), "Second");
    EXPECT_EQ(Current(songs), "All (1 Item)");
    browser.Type("");
    EXPECT_EQ(Current(artists), "All (3 Artists)");
    EXPECT_EQ(Current(albums), "Second");
}

TEST_F(SearchResultTest, RowsAreMatchedThroughSourceIndexAndNotByTheirPlaceInTheResult) {
    browser.Click(artists, "Queen"); // artist 1 of the library, artist 0 of the result
    browser.Click(albums, "River Jazz");
    browser.Click(songs, "Dance"); // track 2 of the library, track 0 of the result
    browser.Type("dance");
    EXPECT_EQ(Current(artists), "Queen");
    EXPECT_EQ(Current(albums), "River Jazz");
    EXPECT_EQ(Current(songs), "Dance");
    browser.Type("");
    EXPECT_EQ(Current(artists), "Queen");
    EXPECT_EQ(Current(albums), "River Jazz");
    EXPECT_EQ(Current(songs), "Dance");
}

// ---- the check marks

TEST_F(SearchResultTest, CopyStaysEnabledForTicksThatTheResultHides) {
    browser.Tick(songs, "Money");
    browser.Type("stone");
    EXPECT_EQ(Ticked(artists), "");
    EXPECT_TRUE(browser.Result.CheckedHidden());
    EXPECT_TRUE(form.cmdCopy.Enabled());
    browser.Tick(songs, "Stone");
    browser.Untick(songs, "Stone");
    EXPECT_TRUE(form.cmdCopy.Enabled());
}

TEST_F(SearchResultTest, WithoutHiddenTicksCopyGoesByTheResultAlone) {
    browser.Tick(songs, "Money");
    browser.Type("money");
    EXPECT_FALSE(browser.Result.CheckedHidden());
    EXPECT_TRUE(form.cmdCopy.Enabled());
    browser.Untick(songs, "Money");
    EXPECT_FALSE(form.cmdCopy.Enabled());
    browser.Type("stone");
    EXPECT_FALSE(form.cmdCopy.Enabled());
}

TEST_F(SearchResultTest, EverySearchAndEveryWayBackSetsTheCopyButtonAnew) {
    form.cmdCopy.SetEnabled(true);
    browser.Type("money");
    EXPECT_FALSE(form.cmdCopy.Enabled());
    browser.Tick(songs, "Money");
    form.cmdCopy.SetEnabled(false);
    browser.Type("stone");
    EXPECT_TRUE(form.cmdCopy.Enabled());
    form.cmdCopy.SetEnabled(false);
    browser.Type("nowhere");
    EXPECT_TRUE(form.cmdCopy.Enabled());
    form.cmdCopy.SetEnabled(false);
    form.cmdClear.UserPress();
    EXPECT_TRUE(form.cmdCopy.Enabled());
}

TEST_F(SearchResultTest, HiddenTicksAreForgottenWithTheResult) {
    browser.Tick(songs, "Money");
    browser.Type("stone");
    browser.Type("money");
    EXPECT_FALSE(browser.Result.CheckedHidden());
    browser.Type("stone");
    form.cmdClear.UserPress();
    EXPECT_FALSE(browser.Result.CheckedHidden());
    EXPECT_TRUE(form.cmdCopy.Enabled());
}

TEST_F(SearchResultTest, ATickInsideAResultStaysInTheFullLibrary) {
    browser.Type("dance");
    browser.Tick(songs, "Dance");
    browser.Type("");
    EXPECT_EQ(Checked(), "Queen, Queen/River Jazz, Queen/River Jazz/Dance");
    EXPECT_EQ(browser.Message(), "Selected: 128 KB of 1023 KB");
}

TEST_F(SearchResultTest, TicksOfSeveralResultsInARowAreAllKept) {
    browser.Type("dance");
    browser.Tick(songs, "Dance");
    browser.Type("song");
    browser.Tick(artists, "All");
    browser.Type("old");
    browser.Untick(songs, "Old Song");
    browser.ChooseTab("Video");
    browser.Type("");
    browser.ChooseTab("All Files");
    EXPECT_EQ(Checked(), "Queen, Queen/River Jazz, Queen/River Jazz/Dance, Abba, Abba/Arrival, "
                         "Abba/Arrival/Tiger Song");
    EXPECT_EQ(browser.Message(), "Selected: 384 KB of 1023 KB");
}

// ---- searches that find nothing

TEST_F(SearchResultTest, NothingFoundShowsEmptyDisabledLists) {
    browser.Click(songs, "Money");
    browser.Tick(songs, "Money");
    browser.Type("nowhere");
    EXPECT_EQ(artists.ListCount() + albums.ListCount() + songs.ListCount(), 0);
    EXPECT_FALSE(artists.Enabled() || albums.Enabled() || songs.Enabled());
    EXPECT_TRUE(form.cmdClear.Enabled());
    EXPECT_TRUE(form.tbsFilter.Enabled());
    EXPECT_TRUE(form.Picture2.Enabled());
    EXPECT_TRUE(form.cmdCopy.Enabled()); // Money is hidden
    EXPECT_EQ(browser.FullName(), "");
    EXPECT_EQ(browser.Message(), "Selected: 512 KB of 1023 KB");
    EXPECT_TRUE(browser.Messages.Shown.empty());
    EXPECT_FALSE(browser.Linked.Building);
}

TEST_F(SearchResultTest, NothingFoundAndNothingTickedDisablesCopy) {
    browser.Type("nowhere");
    EXPECT_FALSE(form.cmdCopy.Enabled());
    EXPECT_FALSE(browser.Result.CheckedHidden());
}

TEST_F(SearchResultTest, FromNothingFoundAShorterTextFindsAgainOnTheAllRows) {
    browser.Click(songs, "Money");
    browser.Tick(songs, "Money");
    browser.Type("moneyx");
    browser.Type("money");
    EXPECT_EQ(Texts(artists), "All (1 Artist), Abba");
    EXPECT_EQ(Current(artists), "All (1 Artist)");
    EXPECT_EQ(Current(songs), "All (1 Item)");
    EXPECT_EQ(Ticked(songs), "All (1 Item), Money");
    EXPECT_TRUE(artists.Enabled() && albums.Enabled() && songs.Enabled());
}

TEST_F(SearchResultTest, FromNothingFoundEveryWayBackKeepsTheTicks) {
    browser.Tick(songs, "Money");
    for (int way = 0; way < 3; ++way) {
        browser.Type("nowhere");
        if (way == 0) {
            form.cmdClear.UserPress();
        } else if (way == 1) {
            browser.Type("");
        } else {
            browser.ChooseTab("Audio");
            browser.Type("");
            browser.ChooseTab("All Files");
        }
        ExpectFullLibrary();
        EXPECT_EQ(Checked(), "Abba, Abba/Arrival, Abba/Arrival/Money");
        EXPECT_EQ(browser.Message(), "Selected: 512 KB of 1023 KB");
        EXPECT_TRUE(form.cmdCopy.Enabled());
    }
}

// ---- the list of all songs

TEST_F(SearchResultTest, AfterASearchTheListOfAllSongsIsBuiltIfItNeverWasBefore) {
    browser.Type("money");
    browser.Click(artists, "All");
    browser.Click(artists, "Abba");
    browser.Type("");
    EXPECT_FALSE(browser.Linked.Rows().AllSongsCached);
    browser.Click(artists, "All");
    EXPECT_EQ(songs.ListCount(), 11);
    EXPECT_TRUE(browser.Linked.Rows().AllSongsCached);
}

TEST_F(SearchResultTest, AfterASearchTheListOfAllSongsIsStillThereIfItWasBefore) {
    browser.Click(artists, "All");
    const std::string all = Texts(songs);
    browser.Type("money");
    EXPECT_EQ(Texts(songs), "All (1 Item), Money");
    form.lblMessage.Captions.clear();
    browser.Type("");
    EXPECT_EQ(Texts(songs), all);
    EXPECT_TRUE(browser.Linked.Rows().AllSongsCached);
    EXPECT_TRUE(form.lblMessage.Captions.isEmpty()); // nothing was built
}

TEST_F(SearchResultTest, AResultsListOfAllSongsIsItsOwn) {
    browser.Click(artists, "All");
    browser.Type("song");
    EXPECT_EQ(Texts(songs), "All (2 Items), Old Song, Tiger Song");
    browser.Type("stone");
    EXPECT_EQ(Texts(songs), "All (1 Item), Stone");
    browser.Click(albums, "Second");
    browser.Click(albums, "All");
    EXPECT_EQ(Texts(songs), "All (1 Item), Stone");
}
