// The three lists rebuilt: for a library that was loaded, and for the way back from a result.
// What a user sees of that way is shown in tests/selection/SearchResultTest.cpp.

#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ArtistList, ALibraryIsShownWithTheAlbumsOfItsFirstArtist) {
    BrowserFixture browser(TwoArtists);
    EXPECT_EQ(browser.Rows(), "All (2 Artists), Abba, Queen | All (1 Album), Arrival | "
                              "All (2 Items), Money, Tiger");
    EXPECT_EQ(browser.CurrentRows(), "Abba | All (1 Album) | All (2 Items)");
    EXPECT_EQ(browser.FullName(), "Abba");
    EXPECT_EQ(browser.lstArtists.ChangesWhileVisible, 1); // the emptying before the load
    EXPECT_TRUE(browser.lstArtists.Visible());
    EXPECT_FALSE(browser.Linked.Building);
}

TEST(ArtistList, AnEmptyLibraryShowsOnlyTickedAllRows) {
    BrowserFixture browser("");
    browser.Artists.RebuildLists();
    EXPECT_EQ(browser.Rows(), "All (0 Artists) | All (0 Albums) | All (0 Items)");
    EXPECT_EQ(browser.TickedRows(), browser.Rows());
}

TEST(ArtistList, BuildingTheArtistRowsTouchesNoListAndKeepsTheRecordsInTheirOrder) {
    BrowserFixture browser("");
    browser.Library.Artists = RecordsOf(TwoArtists);
    browser.Linked.BuildArtistList();
    EXPECT_EQ(browser.Linked.Rows().ArtistRows, (RowTable{0, 1, 0}));
    EXPECT_EQ(browser.Fills(), 0);
    EXPECT_EQ(browser.Library.Artists[0].Name, u"Queen"_s);
}

// ---- the way back

TEST(ArtistList, AnAlbumsMarkAloneDoesNotUncheckItsTracks) {
    BrowserFixture browser(TwoArtists);
    browser.Do("artist Queen, tick album Jazz, type jazz");
    browser.Library.Artists[0].Checked = browser.Library.Artists[0].Albums[0].Checked = false;
    browser.Do("clear");
    EXPECT_EQ(browser.Checked(), "Queen, Queen/Jazz, Queen/Jazz/Mustapha, Queen/Jazz/Bicycle Race");
}

TEST(ArtistList, NothingIsWrittenBackFromASearchThatFoundNothing) {
    BrowserFixture browser(TwoArtists);
    browser.Library.Artists[0].Albums[0].Tracks[0].Checked = true;
    browser.Do("type nowhere");
    browser.Result.UpdateOldArtists();
    EXPECT_EQ(CheckedRecords(browser.Result.SavedArtists()), "Queen/Jazz/Mustapha");
}
