// What a result does to the current rows, the check marks and the way back.

#include "tests/selection/SearchFixture.h"

class SearchResultTest : public SearchFixture {};

// ---- the rows

TEST_F(SearchResultTest, TheRecordsThatAreShownStayCurrent) {
    const struct {
        const char* Steps;
        const char* CurrentRows;
    } cases[] = {
        {"artist Queen, album River Jazz, song Let Me, type e", "Queen | River Jazz | Let Me"},
        {"artist Queen, album River Jazz, song Let Me, type let", "Queen | River Jazz | Let Me"},
        {"artist Queen, album River Jazz, song Let Me, type let, clear",
         "Queen | River Jazz | Let Me"},
        // another place in the result than in the library
        {"artist Queen, album River Jazz, song Dance, type dance", "Queen | River Jazz | Dance"},
        {"artist Queen, album River Jazz, song Dance, tab Video, tab All Files",
         "Queen | River Jazz | Dance"},
        {"type dance, artist Queen, album River Jazz, song Dance, clear",
         "Queen | River Jazz | Dance"},
        // not in the result
        {"artist Queen, album Jazz, song Mustapha, type let",
         "Queen | All (1 Album) | All (1 Item)"},
        {"artist Queen, album Jazz, song Mustapha, type let, type stone",
         "All (1 Artist) | All (1 Album) | All (1 Item)"},
        // "All" rows
        {"artist All, album Second, type stone", "All (1 Artist) | Second | All (1 Item)"},
        {"artist All, album Second, type stone, clear", "All (3 Artists) | Second | All (1 Item)"},
        {"artist All, type stone, song Stone, clear", "All (3 Artists) | All (5 Albums) | Stone"},
        // nothing was found
        {"artist Queen, song Mustapha, type moneyx, type money",
         "All (1 Artist) | All (1 Album) | All (1 Item)"},
        {"song Money, type nowhere, clear", "All (3 Artists) | All (5 Albums) | All (10 Items)"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Steps);
        BrowserFixture fresh(ThreeArtists);
        fresh.Do(each.Steps);
        EXPECT_EQ(fresh.CurrentRows(), each.CurrentRows);
    }
}

TEST_F(SearchResultTest, TheFullNameIsThatOfTheRowThatIsCurrentNow) {
    browser.Do("artist Queen, album Jazz, song Mustapha, type let");
    EXPECT_EQ(browser.FullName(), "Queen");
}

TEST_F(SearchResultTest, TheRememberedArtistIsFoundByItsIndexAndNotByItsName) {
    BrowserFixture twins("Abba\n  Arrival\n    Money\nAbba\n  Waterloo\n    Suzy");
    twins.Do("type suzy, artist Abba, clear");
    EXPECT_EQ(twins.lstArtists.ListIndex(), 2);
    EXPECT_EQ(Texts(twins.lstAlbums), "All (1 Album), Waterloo");
}

TEST_F(SearchResultTest, TheWayBackFillsAndPaintsEachListOnce) {
    browser.Do("type e, artist All, album Second");
    const int fills = browser.Fills();
    for (FakeListControl* list : {&artists, &albums, &songs}) {
        list->ChangesWhileVisible = 0;
    }
    browser.Do("clear");
    EXPECT_EQ(browser.Fills(), fills + 3);
    EXPECT_EQ(artists.ChangesWhileVisible, 0);
    EXPECT_EQ(songs.ChangesWhileVisible, 1); // the row that is put back last
    EXPECT_TRUE(artists.Visible() && albums.Visible() && songs.Visible());
}

// ---- the check marks

TEST_F(SearchResultTest, CopyIsEnabledForTicksThatTheResultShowsOrHides) {
    const struct {
        const char* Steps;
        bool CheckedHidden, CanCopy;
    } cases[] = {
        {"type money", false, false},
        {"type nowhere", false, false},
        {"type money, tick song Money", false, true},
        {"tick song Money, type money", false, true},
        {"tick song Money, type money, untick song Money", false, false},
        {"tick song Money, type money, untick song Money, type stone", false, false},
        {"tick song Money, type stone", true, true},
        {"tick song Money, type stone, tick song Stone, untick song Stone", true, true},
        {"tick song Money, type nowhere", true, true},
        {"tick song Money, type stone, type money", false, true},
        {"tick song Money, type stone, clear", false, true},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Steps);
        BrowserFixture fresh(ThreeArtists);
        fresh.Do(each.Steps);
        EXPECT_EQ(fresh.Result.CheckedHidden(), each.CheckedHidden);
        EXPECT_EQ(fresh.Form.cmdCopy.Enabled(), each.CanCopy);
    }
}

TEST_F(SearchResultTest, EverySearchAndEveryWayBackSetsTheCopyButton) {
    browser.Do("tick song Money");
    for (const char* step : {"type money", "type stone", "type nowhere", "clear"}) {
        form.cmdCopy.SetEnabled(false);
        browser.Do(step);
        EXPECT_TRUE(form.cmdCopy.Enabled()) << step;
    }
}

TEST_F(SearchResultTest, TicksOfSeveralResultsInARowAreAllKept) {
    browser.Do("type dance, tick song Dance, type song, tick artist All, type old, "
               "untick song Old Song, tab Video, type, tab All Files");
    EXPECT_EQ(browser.Checked(), "Queen, Queen/River Jazz, Queen/River Jazz/Dance, "
                                 "Abba, Abba/Arrival, Abba/Arrival/Tiger Song");
    EXPECT_EQ(browser.Message(), "Selected: 384 KB of 1023 KB");
}

TEST_F(SearchResultTest, UntickingAnAlbumLeavesTheSongsThatTheResultHidTicked) {
    browser.Do("artist Queen, tick album Jazz, type mustapha, untick album Jazz");
    EXPECT_EQ(browser.Checked(), "");
    browser.Do("clear");
    EXPECT_EQ(browser.Checked(), "Queen, Queen/Jazz, Queen/Jazz/Bicycle Race");
}

TEST_F(SearchResultTest, ThePassOverTheFullLibraryNeverUnticks) {
    browser.Library.Artists[1].Albums[0].Checked = true; // no song under it is
    browser.Do("type tiger");
    browser.Result.UpdateOldArtists();
    EXPECT_EQ(CheckedRecords(browser.Result.SavedArtists()), "Queen/Jazz");
}

// ---- searches that find nothing

TEST_F(SearchResultTest, NothingFoundShowsEmptyDisabledLists) {
    browser.Do("song Money, tick song Money, type nowhere");
    EXPECT_EQ(browser.Rows(), " |  | ");
    EXPECT_FALSE(artists.Enabled() || albums.Enabled() || songs.Enabled());
    EXPECT_TRUE(form.cmdClear.Enabled());
    EXPECT_TRUE(form.tbsFilter.Enabled());
    EXPECT_TRUE(form.Picture2.Enabled());
    EXPECT_EQ(browser.FullName(), "");
    EXPECT_EQ(browser.Message(), "Selected: 512 KB of 1023 KB");
    EXPECT_TRUE(browser.Messages.Shown.empty());
    EXPECT_FALSE(browser.Linked.Building);
}

TEST_F(SearchResultTest, AfterNothingWasFoundEveryWayBackKeepsTheTicks) {
    browser.Do("tick song Money");
    for (const char* wayBack : {"clear", "type", "tab Audio, type, tab All Files"}) {
        SCOPED_TRACE(wayBack);
        browser.Do("type nowhere");
        browser.Do(wayBack);
        ExpectFullLibrary();
        EXPECT_EQ(browser.Checked(), "Abba, Abba/Arrival, Abba/Arrival/Money");
        EXPECT_EQ(browser.Message(), "Selected: 512 KB of 1023 KB");
        EXPECT_TRUE(form.cmdCopy.Enabled());
    }
}

// ---- the list of all songs

TEST_F(SearchResultTest, AResultHasItsOwnListOfAllSongsAndThatOfTheLibraryIsKept) {
    browser.Do("artist All");
    const std::string all = Texts(songs);
    browser.Do("type song");
    EXPECT_EQ(Texts(songs), "All (2 Items), Old Song, Tiger Song");
    browser.Do("type stone, album Second, album All");
    EXPECT_EQ(Texts(songs), "All (1 Item), Stone");
    form.lblMessage.Captions.clear();
    browser.Do("type");
    EXPECT_EQ(Texts(songs), all);
    EXPECT_TRUE(form.lblMessage.Captions.isEmpty()); // nothing was built
}

TEST_F(SearchResultTest, AfterASearchTheListOfAllSongsIsBuiltIfItNeverWasBefore) {
    browser.Do("type money, artist All, artist Abba, type");
    EXPECT_FALSE(browser.Linked.Rows().AllSongsCached);
    browser.Do("artist All");
    EXPECT_EQ(songs.ListCount(), 11);
    EXPECT_TRUE(browser.Linked.Rows().AllSongsCached);
}
