// What the user does while a search runs: the event loop's yields are where that happens.

#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const char* const WithFilm = R"(
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

class SearchRunTest : public BrowserTest {
protected:
    SearchRunTest() : BrowserTest(WithFilm) {}

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

TEST_F(SearchRunTest, TheSearchYieldsAtEachRecordThatItLooksInto) {
    const auto yieldsOf = [this](const char* steps) {
        browser.Events.Yields = 0;
        browser.Do(steps);
        return browser.Events.Yields;
    };
    EXPECT_EQ(yieldsOf("type nowhere"), 8); // 2 artists, 3 albums, 3 times tracks
    EXPECT_EQ(yieldsOf("type queen"), 4);   // Queen; Abba, Arrival, its tracks
    EXPECT_EQ(yieldsOf("type jazz"), 7);    // not the tracks of Jazz
    EXPECT_EQ(yieldsOf("tab Audio"), 8);    // under a filter all tracks
}

TEST_F(SearchRunTest, DuringTheSearchTheTabsAndTheDeviceRowAreDisabled) {
    int checked = 0;
    InYield(1, [&] {
        ++checked;
        EXPECT_FALSE(form.tbsFilter.Enabled());
        EXPECT_FALSE(form.Picture2.Enabled());
        EXPECT_TRUE(browser.Linked.Building);
        EXPECT_TRUE(browser.WordSearch.SearchRunning());
    });
    browser.Do("type money");
    EXPECT_EQ(checked, 1);
    EXPECT_TRUE(form.tbsFilter.Enabled());
    EXPECT_TRUE(form.Picture2.Enabled());
    EXPECT_FALSE(browser.Linked.Building);
    EXPECT_FALSE(browser.WordSearch.SearchRunning());
}

TEST_F(SearchRunTest, TheFullLibraryStandsInArtistsWhileTheSearchRunsFromAResult) {
    browser.Do("type money");
    size_t artistCount = 0;
    InYield(1, [&] { artistCount = browser.Library.Artists.size(); });
    browser.Do("type tiger");
    EXPECT_EQ(artistCount, 2U);
}

// ---- the text changes

TEST_F(SearchRunTest, TypingQuicklyEndsWithTheResultForTheLastText) {
    browser.Events.OnYield = [this](int yield) {
        if (yield == 2) {
            browser.Do("type mone, type money");
        } else if (yield == 9) {
            browser.Do("type headlong");
        }
    };
    browser.Do("type tig");
    EXPECT_EQ(browser.WordSearch.SearchString(), u"headlong"_s);
    EXPECT_EQ(Texts(artists), "All (1 Artist), Queen");
    EXPECT_EQ(Texts(songs), "All (1 Item), Headlong");
    EXPECT_EQ(browser.Result.SavedArtists().size(), 2U);
    EXPECT_FALSE(browser.WordSearch.SearchPending());
}

TEST_F(SearchRunTest, ATextTypedAtAnyYieldIsSearchedForAndNoOutdatedResultIsShown) {
    for (int yield = 1; yield <= 8; ++yield) {
        BrowserFixture fresh(WithFilm);
        fresh.Events.OnYield = [&](int now) {
            if (now == yield) {
                fresh.Do("type tiger, type money");
            }
        };
        const int fills = fresh.lstArtists.FillCount;
        fresh.Do("type nowhere");
        EXPECT_EQ(fresh.lstArtists.FillCount, fills + 1) << yield;
        EXPECT_EQ(Texts(fresh.lstSongs), "All (1 Item), Money") << yield;
    }
}

TEST_F(SearchRunTest, AChangedTextStopsTheScanOfAnArtistsAlbumsBeforeTheirTracks) {
    InYield(1, [this] { browser.Do("type headlong"); });
    browser.Do("type nowhere");
    // Of the first run: Queen, Jazz, before its tracks; Abba, Arrival, before its tracks.
    EXPECT_EQ(browser.Events.Yields, 6 + 8);
}

TEST_F(SearchRunTest, ATextThatIsChangedAndChangedBackIsSearchedAgain) {
    InYield(2, [this] { browser.Do("type moneyx, type money"); });
    browser.Do("type money");
    EXPECT_EQ(Texts(songs), "All (1 Item), Money");
}

TEST_F(SearchRunTest, ATextDeletedWhileTheSearchRunsEndsTheSearch) {
    InYield(2, [this] { browser.Do("type"); });
    browser.Do("type money");
    EXPECT_FALSE(browser.Result.Search());
    EXPECT_FALSE(browser.WordSearch.SearchingText());
    EXPECT_EQ(Texts(artists), "All (2 Artists), Abba, Queen");
    EXPECT_TRUE(browser.Result.SavedArtists().empty());
    EXPECT_FALSE(form.cmdClear.Enabled());
}

TEST_F(SearchRunTest, ATextDeletedWhileTheSearchRunsUnderAFilterLeavesTheFilter) {
    browser.Do("tab Video");
    InYield(2, [this] { browser.Do("type   "); });
    browser.Do("type money");
    EXPECT_TRUE(browser.Result.Search());
    EXPECT_FALSE(browser.WordSearch.SearchingText());
    EXPECT_EQ(Texts(songs), "All (1 Video), Film");
    EXPECT_FALSE(form.cmdClear.Enabled());
}

TEST_F(SearchRunTest, ATextTypedWhileAFilterIsAppliedBecomesATextSearch) {
    InYield(2, [this] { browser.Do("type tiger"); });
    browser.Do("tab Audio");
    EXPECT_TRUE(browser.WordSearch.SearchingText());
    EXPECT_TRUE(form.cmdClear.Enabled());
    EXPECT_EQ(Texts(songs), "All (1 Song), Tiger");
    browser.Do("tab All Files");
    EXPECT_EQ(Texts(songs), "All (1 Item), Tiger");
}

TEST_F(SearchRunTest, TheRowsFromBeforeSurviveARestart) {
    browser.Do("artist Queen, album Innuendo, song Headlong");
    InYield(2, [this] {
        artists.SetListIndex(0); // whatever happens to the lists meanwhile
        browser.Do("type o");
    });
    browser.Do("type money");
    EXPECT_EQ(browser.CurrentRows(), "Queen | Innuendo | Headlong");
}

TEST_F(SearchRunTest, TheTicksOfTheEarlierResultSurviveARestart) {
    browser.Do("type money, tick song Money");
    InYield(2, [this] { browser.Do("type headlong"); });
    browser.Do("type tiger");
    EXPECT_TRUE(browser.Result.CheckedHidden());
    EXPECT_TRUE(form.cmdCopy.Enabled());
    browser.Do("type");
    EXPECT_EQ(browser.Checked(), "Abba, Abba/Arrival, Abba/Arrival/Money");
    EXPECT_EQ(browser.Message(), "Selected: 1 KB of 6 KB");
}

TEST_F(SearchRunTest, WhatAnOutdatedResultWouldHaveHiddenDoesNotCount) {
    browser.Do("tick song Money");
    InYield(8, [this] { browser.Do("type money"); });
    browser.Do("type nowhere");
    EXPECT_FALSE(browser.Result.CheckedHidden());
}

// ---- clicks

TEST_F(SearchRunTest, ClicksAndTicksInAYieldChangeNothing) {
    browser.Do("artist Queen, album Jazz, song Mustapha");
    InYield(3, [&] {
        browser.Do("artist Abba, album Innuendo, tick artist All, tick album Jazz, "
                   "tick song Bicycle Race");
        EXPECT_EQ(browser.FullName(), "Queen / Jazz / Mustapha");
        EXPECT_EQ(Texts(albums), "All (2 Albums), Innuendo, Jazz");
    });
    browser.Do("type a");
    EXPECT_EQ(browser.CurrentRows(), "Queen | Jazz | Mustapha");
    EXPECT_EQ(browser.TickedRows(), " |  | ");
    EXPECT_FALSE(form.cmdCopy.Enabled());
    browser.Do("type");
    EXPECT_EQ(browser.Checked(), "");
    EXPECT_EQ(browser.Message(), "Selected: 0 KB of 6 KB");
}

TEST_F(SearchRunTest, TheButtonsAndTheTabsInAYieldDoNothing) {
    InYield(3, [this] {
        browser.Do("clear, tab Video");
        form.cmdSearch.UserPress();
        browser.WordSearch.DoSearch();
        EXPECT_TRUE(browser.WordSearch.SearchingText());
        EXPECT_EQ(browser.WordSearch.SearchString(), u"money"_s);
    });
    browser.Do("type money");
    EXPECT_EQ(Texts(songs), "All (1 Item), Money");
    EXPECT_EQ(form.tbsFilter.SelectedCaption(), u"All Files"_s);
    EXPECT_EQ(browser.Events.Yields, 8);
    EXPECT_TRUE(form.cmdClear.Enabled());
}

TEST_F(SearchRunTest, TheSearchButtonPressedWhileAFilterIsAppliedDoesNotMixWithIt) {
    browser.Do("type money, clear"); // the text stays in the box, and is in force no more
    InYield(2, [this] { form.cmdSearch.UserPress(); });
    browser.Do("tab Audio");
    EXPECT_FALSE(browser.WordSearch.SearchingText());
    EXPECT_EQ(browser.WordSearch.SearchString(), QString());
    EXPECT_FALSE(form.cmdClear.Enabled());
    EXPECT_EQ(Texts(artists), "All (2 Artists), Abba, Queen");
}

TEST_F(SearchRunTest, TheControlThatHadTheFocusHasItAfterTheSearch) {
    InYield(1, [this] { EXPECT_FALSE(form.tbsFilter.HasFocus()); });
    browser.Do("tab Audio");
    EXPECT_TRUE(form.tbsFilter.HasFocus());
    InYield(2, [this] { form.txtSearch.SetFocus(); });
    browser.Do("tab Video");
    EXPECT_TRUE(form.txtSearch.HasFocus());
    browser.Do("type film");
    EXPECT_TRUE(form.txtSearch.HasFocus());
}
