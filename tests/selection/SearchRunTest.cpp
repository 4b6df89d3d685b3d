// What the user does while a search runs: the event loop's yields are where that happens.

#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

namespace {

const char* const TwoArtists = R"(
Queen
  Jazz
    Mustapha
    Bicycle Race
  Innuendo
    Headlong
    Film | 0 | 1024 | video
Abba
  Arrival
    Tiger
    Money
)";

class SearchRunTest : public testing::Test {
protected:
    BrowserFixture browser{TwoArtists};
    FakeForm1& form = browser.Form;
    FakeListControl& artists = browser.lstArtists;
    FakeListControl& albums = browser.lstAlbums;
    FakeListControl& songs = browser.lstSongs;

    /// Does something in one yield, counted from 1 and from now on.
    void InYield(int number, Event action) {
        browser.Events.Yields = 0;
        browser.Events.OnYield = [number, action = std::move(action)](int yield) {
            if (yield == number) {
                action();
            }
        };
    }
};

} // namespace

TEST_F(SearchRunTest, TheSearchYieldsAtEachArtistEachAlbumAndBeforeItsTracks) {
    browser.Type("nowhere");
    EXPECT_EQ(browser.Events.Yields, 8); // 2 artists, 3 albums, 3 times tracks
}

TEST_F(SearchRunTest, WholeRecordsAreCopiedWithoutLookingInside) {
    browser.Type("queen");
    EXPECT_EQ(browser.Events.Yields, 4); // Queen; Abba, Arrival, its tracks
    browser.Events.Yields = 0;
    browser.Type("jazz");
    EXPECT_EQ(browser.Events.Yields, 7); // not the tracks of Jazz
    browser.Events.Yields = 0;
    browser.ChooseTab("Audio");
    EXPECT_EQ(browser.Events.Yields, 8); // under a filter all tracks
}

TEST_F(SearchRunTest, DuringTheSearchTheTabsAndTheDeviceRowAreDisabled) {
    bool tabs = true;
    bool device = true;
    bool building = false;
    InYield(1, [&] {
        tabs = form.tbsFilter.Enabled();
        device = form.Picture2.Enabled();
        building = browser.Linked.Building && browser.WordSearch.SearchRunning();
    });
    browser.Type("money");
    EXPECT_FALSE(tabs);
    EXPECT_FALSE(device);
    EXPECT_TRUE(building);
    EXPECT_TRUE(form.tbsFilter.Enabled());
    EXPECT_TRUE(form.Picture2.Enabled());
    EXPECT_FALSE(browser.Linked.Building);
    EXPECT_FALSE(browser.WordSearch.SearchRunning());
}

TEST_F(SearchRunTest, TypingQuicklyEndsWithTheResultForTheLastText) {
    browser.Events.OnYield = [this](int yield) {
        if (yield == 2) {
            browser.Type("mone");
        } else if (yield == 3) {
            browser.Type("money");
        } else if (yield == 9) {
            browser.Type("headlong");
        }
    };
    browser.Type("tig");
    EXPECT_EQ(browser.WordSearch.SearchString(), QStringLiteral("headlong"));
    EXPECT_EQ(Texts(songs), "All (1 Item), Headlong");
    EXPECT_EQ(Texts(artists), "All (1 Artist), Queen");
    EXPECT_EQ(browser.Result.SavedArtists().size(), 2U);
    EXPECT_FALSE(browser.WordSearch.SearchPending());
}

TEST_F(SearchRunTest, NoResultForAnOutdatedTextIsShown) {
    const int fills = artists.FillCount;
    InYield(1, [this] { browser.Type("money"); });
    browser.Type("tiger");
    EXPECT_EQ(artists.FillCount, fills + 1);
    EXPECT_EQ(Texts(songs), "All (1 Item), Money");
}

TEST_F(SearchRunTest, ATextTypedAtTheVeryLastYieldIsStillSearchedFor) {
    InYield(8, [this] { browser.Type("money"); });
    browser.Type("nowhere");
    EXPECT_EQ(Texts(songs), "All (1 Item), Money");
}

TEST_F(SearchRunTest, AChangedTextStopsTheScanOfAnArtistsAlbumsBeforeTheirTracks) {
    InYield(1, [this] { browser.Type("headlong"); });
    browser.Type("nowhere");
    // Of the first run: Queen, Jazz, before its tracks; Abba, Arrival, before its tracks.
    EXPECT_EQ(browser.Events.Yields, 6 + 8);
}

TEST_F(SearchRunTest, ATextThatComesBackToWhatItWasIsSearchedAgainAllTheSame) {
    InYield(2, [this] {
        browser.Type("moneyx");
        browser.Type("money");
    });
    browser.Type("money");
    EXPECT_EQ(Texts(songs), "All (1 Item), Money");
}

TEST_F(SearchRunTest, ATextDeletedWhileTheSearchRunsEndsTheSearch) {
    InYield(2, [this] { browser.Type(""); });
    browser.Type("money");
    EXPECT_FALSE(browser.Result.Search());
    EXPECT_FALSE(browser.WordSearch.SearchingText());
    EXPECT_EQ(Texts(artists), "All (2 Artists), Abba, Queen");
    EXPECT_TRUE(browser.Result.SavedArtists().empty());
    EXPECT_FALSE(form.cmdClear.Enabled());
}

TEST_F(SearchRunTest, ATextDeletedWhileTheSearchRunsUnderAFilterLeavesTheFilter) {
    browser.ChooseTab("Video");
    InYield(2, [this] { browser.Type("  "); });
    browser.Type("money");
    EXPECT_TRUE(browser.Result.Search());
    EXPECT_FALSE(browser.WordSearch.SearchingText());
    EXPECT_EQ(Texts(songs), "All (1 Video), Film");
    EXPECT_FALSE(form.cmdClear.Enabled());
}

TEST_F(SearchRunTest, ATextTypedWhileAFilterIsAppliedBecomesATextSearch) {
    InYield(2, [this] { browser.Type("tiger"); });
    browser.ChooseTab("Audio");
    EXPECT_TRUE(browser.WordSearch.SearchingText());
    EXPECT_TRUE(form.cmdClear.Enabled());
    EXPECT_EQ(Texts(songs), "All (1 Song), Tiger");
    browser.ChooseTab("All Files");
    EXPECT_EQ(Texts(songs), "All (1 Item), Tiger");
}

TEST_F(SearchRunTest, TheRowsFromBeforeSurviveARestart) {
    browser.Click(artists, "Queen");
    browser.Click(albums, "Innuendo");
    browser.Click(songs, "Headlong");
    InYield(2, [this] { browser.Type("o"); });
    browser.Type("money");
    EXPECT_EQ(Current(artists), "Queen");
    EXPECT_EQ(Current(albums), "Innuendo");
    EXPECT_EQ(Current(songs), "Headlong");
}

TEST_F(SearchRunTest, TheTicksOfTheEarlierResultSurviveARestart) {
    browser.Type("money");
    browser.Tick(songs, "Money");
    InYield(2, [this] { browser.Type("headlong"); });
    browser.Type("tiger");
    EXPECT_TRUE(browser.Result.CheckedHidden());
    EXPECT_TRUE(form.cmdCopy.Enabled());
    browser.Events.OnYield = {};
    browser.Type("");
    EXPECT_EQ(CheckedRecords(browser.Library.Artists), "Abba, Abba/Arrival, Abba/Arrival/Money");
    EXPECT_EQ(browser.Message(), "Selected: 1 KB of 6 KB");
}

TEST_F(SearchRunTest, WhatAnOutdatedResultWouldHaveHiddenDoesNotCount) {
    browser.Tick(songs, "Money");
    InYield(8, [this] { browser.Type("money"); });
    browser.Type("nowhere");
    EXPECT_FALSE(browser.Result.CheckedHidden());
}

TEST_F(SearchRunTest, ClicksAndTicksInAYieldChangeNothing) {
    browser.Click(artists, "Queen");
    browser.Click(albums, "Jazz");
    browser.Click(songs, "Mustapha");
    const std::string name = browser.FullName();
    InYield(3, [&] {
        browser.Click(artists, "Abba");
        browser.Click(albums, "Innuendo");
        browser.Tick(artists, "All");
        browser.Tick(albums, "Jazz");
        browser.Tick(songs, "Bicycle Race");
        EXPECT_EQ(browser.FullName(), name);
        EXPECT_EQ(Texts(albums), "All (2 Albums), Innuendo, Jazz");
    });
    browser.Type("a");
    EXPECT_EQ(Current(artists), "Queen");
    EXPECT_EQ(Current(albums), "Jazz");
    EXPECT_EQ(Current(songs), "Mustapha");
    EXPECT_EQ(Ticked(artists) + Ticked(albums) + Ticked(songs), "");
    EXPECT_FALSE(form.cmdCopy.Enabled());
    browser.Events.OnYield = {};
    browser.Type("");
    EXPECT_EQ(CheckedRecords(browser.Library.Artists), "");
    EXPECT_EQ(browser.Message(), "Selected: 0 KB of 6 KB");
}

TEST_F(SearchRunTest, ClicksAndTicksAfterARestartChangeNothingEither) {
    browser.Events.OnYield = [this](int yield) {
        if (yield == 2) {
            browser.Type("a");
        } else if (yield > 8) { // the first run has 6 yields
            artists.UserToggle(0);
            songs.UserToggle(1);
        }
    };
    browser.Type("nowhere");
    ASSERT_GT(browser.Events.Yields, 9);
    EXPECT_EQ(CheckedRecords(browser.Library.Artists), "");
    EXPECT_EQ(CheckedRecords(browser.Result.SavedArtists()), "");
    EXPECT_EQ(browser.Message(), "Selected: 0 KB of 6 KB");
}

TEST_F(SearchRunTest, TheSearchButtonPressedWhileAFilterIsAppliedDoesNotMixWithIt) {
    browser.Type("money");
    form.cmdClear.UserPress(); // the text stays in the box, and is in force no more
    InYield(2, [this] { form.cmdSearch.UserPress(); });
    browser.ChooseTab("Audio");
    EXPECT_FALSE(browser.WordSearch.SearchingText());
    EXPECT_EQ(browser.WordSearch.SearchString(), QString());
    EXPECT_FALSE(form.cmdClear.Enabled());
    EXPECT_EQ(Texts(artists), "All (2 Artists), Abba, Queen");
}

TEST_F(SearchRunTest, TheButtonsPressedInAYieldDoNothing) {
    InYield(3, [this] {
        form.cmdClear.UserPress();
        form.cmdSearch.UserPress();
        browser.WordSearch.DoSearch();
        EXPECT_TRUE(browser.WordSearch.SearchingText());
        EXPECT_EQ(browser.WordSearch.SearchString(), QStringLiteral("money"));
    });
    browser.Type("money");
    EXPECT_EQ(Texts(songs), "All (1 Item), Money");
    EXPECT_EQ(browser.Events.Yields, 8);
    EXPECT_TRUE(form.cmdClear.Enabled());
}

TEST_F(SearchRunTest, ATabClickedInAYieldIsNotTaken) {
    InYield(3, [this] { browser.ChooseTab("Video"); });
    browser.Type("money");
    EXPECT_EQ(form.tbsFilter.SelectedCaption(), QStringLiteral("All Files"));
    EXPECT_EQ(Texts(songs), "All (1 Item), Money");
}

TEST_F(SearchRunTest, TheTabsKeepTheFocusThatTheyLoseWhileDisabled) {
    InYield(1, [this] { EXPECT_FALSE(form.tbsFilter.HasFocus()); });
    browser.ChooseTab("Audio");
    EXPECT_TRUE(form.tbsFilter.HasFocus());
}

TEST_F(SearchRunTest, ASearchFromTheBoxKeepsTheFocusThere) {
    browser.Type("money");
    EXPECT_TRUE(form.txtSearch.HasFocus());
}

TEST_F(SearchRunTest, TheFullLibraryStandsInArtistsWhileTheSearchRunsFromAResult) {
    browser.Type("money");
    size_t artistCount = 0;
    InYield(1, [&] { artistCount = browser.Library.Artists.size(); });
    browser.Type("tiger");
    EXPECT_EQ(artistCount, 2U);
}

TEST_F(SearchRunTest, TheListsAreHiddenWhileTheResultIsFilledIn) {
    artists.ChangesWhileVisible = 0;
    songs.ChangesWhileVisible = 0;
    browser.Type("money");
    EXPECT_EQ(artists.ChangesWhileVisible, 0);
    EXPECT_EQ(songs.ChangesWhileVisible, 1); // the row that is put back last
    EXPECT_TRUE(artists.Visible() && albums.Visible() && songs.Visible());
}
