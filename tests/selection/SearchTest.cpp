// What a search finds, and what starts and ends one.

#include "tests/selection/SearchFixture.h"

using namespace Qt::StringLiterals;

class SearchTest : public SearchFixture {};

TEST(SplitSearch, EveryWordMustOccurInAnyOrderLetterByLetter) {
    const struct {
        QString Find, In;
        bool Matches;
    } cases[] = {
        {u"blue river"_s, u"river so blue"_s, true},
        {u"riv"_s, u"blue river"_s, true},
        {u"blue river"_s, u"blue lake"_s, false},
        {u"lake river"_s, u"blue river"_s, false},
        {u"aa a"_s, u"aa"_s, true},
        {u"River"_s, u"river"_s, false},
        {u"e"_s, u"é"_s, false},
        {u"a.c"_s, u"abc"_s, false},
        {u"a*"_s, u"aaa"_s, false},
        {u"%1"_s, u"100%1"_s, true},
        // Blanks alone separate words, and never prevent a match.
        {u"  blue   river "_s, u"blue river"_s, true},
        {u"blue\triver"_s, u"river blue"_s, false},
        {u"blue\triver"_s, u"a blue\triver"_s, true},
        {u" "_s, u"blue"_s, true},
        {{}, u"blue"_s, true},
        {{}, {}, true},
        {u"a"_s, {}, false},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(SplitSearch(each.Find, each.In), each.Matches)
            << each.Find.toStdString() << " in " << each.In.toStdString();
    }
}

// ---- what is found

TEST_F(SearchTest, RecordsWithAllWordsInOneNameAreFoundIfTheyPassTheFilter) {
    const struct {
        const char* Steps;
        const char* Rows;
    } cases[] = {
        // in an artist's name: everything of it
        {"type river blue", "All (1 Artist), Blue River | All (2 Albums), First, Second | "
                            "All (3 Items), Film, Old Song, Stone"},
        {"type BLUE riVER, tab Audio",
         "All (1 Artist), Blue River | All (2 Albums), First, Second | "
         "All (2 Songs), Old Song, Stone"},
        {"type blue, tab Video",
         "All (1 Artist), Blue River | All (1 Album), First | All (1 Video), Film"},
        // in an album's name
        {"type jazz river", "All (1 Artist), Queen | All (1 Album), River Jazz | "
                            "All (3 Items), Dance, Let Me, Notes"},
        {"type river jazz, tab Audio",
         "All (1 Artist), Queen | All (1 Album), River Jazz | All (1 Song), Let Me"},
        {"type river jazz, tab Video",
         "All (1 Artist), Queen | All (1 Album), River Jazz | All (1 Video), Dance"},
        // in a title
        {"type song tiger",
         "All (1 Artist), Abba | All (1 Album), Arrival | All (1 Item), Tiger Song"},
        {"artist All, type song", "All (2 Artists), Abba, Blue River | "
                                  "All (2 Albums), Arrival, First | "
                                  "All (2 Items), Old Song, Tiger Song"},
        {"artist All, type song, tab Audio", "All (2 Artists), Abba, Blue River | "
                                             "All (2 Albums), Arrival, First | "
                                             "All (2 Songs), Old Song, Tiger Song"},
        {"type song, tab Video", " |  | "},
        // one word of an artist's name and one of a title's
        {"type river song", " |  | "},
        // in names of different kinds
        {"type RIVER", "All (2 Artists), Blue River, Queen | "
                       "All (3 Albums), First, River Jazz, Second | "
                       "All (6 Items), Dance, Film, Let Me, Notes, Old Song, Stone"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Steps);
        BrowserFixture fresh(ThreeArtists);
        fresh.Do(each.Steps);
        EXPECT_EQ(fresh.Rows(), each.Rows);
    }
}

TEST_F(SearchTest, ARecordOfTheResultIsAWholeCopyThatKnowsWhereItCameFrom) {
    browser.Do("artist Queen, tick song Let Me, type let");
    const ArtistRecord& queen = browser.Library.Artists.at(0);
    const AlbumRecord& album = queen.Albums.at(0);
    const TrackRecord& track = album.Tracks.at(0);
    EXPECT_EQ(browser.Checked(), "Queen, Queen/River Jazz, Queen/River Jazz/Let Me");
    EXPECT_EQ(queen.SourceIndex, 1);
    EXPECT_EQ(album.SourceIndex, 1);
    EXPECT_EQ(track.SourceIndex, 1);
    EXPECT_EQ(track.Location, u"E:\\Let Me.mp3"_s);
    EXPECT_EQ(track.TrackNumber, 2);
    EXPECT_EQ(track.FileSize, 65536);
    EXPECT_EQ(track.Kind, KindAudio);
    browser.Do("type queen");
    const AlbumRecord& second = browser.Library.Artists.at(0).Albums.at(1); // of another result
    EXPECT_EQ(second.SourceIndex, 1);
    EXPECT_EQ(second.Tracks.at(2).SourceIndex, 2);
}

TEST_F(SearchTest, ALibraryLoadedLaterIsSearchedByItsOwnNames) {
    browser.Do("type money");
    browser.Load(RecordsOf("Zappa\n  Apostrophe\n    Stink Foot"));
    EXPECT_FALSE(browser.WordSearch.SearchingText());
    browser.Do("type money");
    EXPECT_EQ(artists.ListCount(), 0);
    browser.Do("type foot");
    EXPECT_EQ(Texts(songs), "All (1 Item), Stink Foot");
}

TEST_F(SearchTest, ASearchFromAResultStartsFromTheFullLibrary) {
    browser.Do("type money, type stone");
    EXPECT_EQ(Texts(artists), "All (1 Artist), Blue River");
    EXPECT_EQ(browser.Result.SavedArtists().size(), 3U);
}

// ---- starting and ending

TEST_F(SearchTest, EveryKeystrokeSearches) {
    const int fills = artists.FillCount;
    form.txtSearch.UserType(u"mon"_s);
    EXPECT_EQ(artists.FillCount, fills + 3);
    EXPECT_EQ(Texts(artists), "All (1 Artist), Abba");
}

TEST_F(SearchTest, ATextOfBlanksCountsAsEmpty) {
    const int fills = browser.Fills();
    browser.Do("type    ");
    EXPECT_EQ(browser.Fills(), fills);
    for (const char* none : {"type", "type   "}) {
        browser.Do("type money");
        browser.Do(none);
        ExpectFullLibrary();
    }
    EXPECT_EQ(form.txtSearch.Text(), u"  "_s);
    browser.Do("type \t");
    EXPECT_TRUE(browser.Result.Search());
    EXPECT_EQ(artists.ListCount(), 0);
}

TEST_F(SearchTest, TheButtonSearchesForTheTextAndGivesTheFocusToTheBox) {
    browser.Do("type money, clear");
    ExpectFullLibrary();
    form.cmdSearch.UserPress();
    EXPECT_EQ(Texts(artists), "All (1 Artist), Abba");
    EXPECT_TRUE(form.txtSearch.HasFocus());
}

TEST_F(SearchTest, TheButtonWithoutATextOnlyTakesTheFocus) {
    const int fills = browser.Fills();
    form.cmdSearch.UserPress();
    EXPECT_EQ(browser.Fills(), fills);
    ExpectFullLibrary();
    EXPECT_TRUE(form.txtSearch.HasFocus());
    browser.Do("tab Video");
    const std::string found = browser.Rows();
    form.cmdSearch.UserPress();
    EXPECT_EQ(browser.Rows(), found);
    EXPECT_TRUE(browser.Result.Search());
    EXPECT_FALSE(browser.WordSearch.SearchingText());
}

TEST_F(SearchTest, ClearIsEnabledWhileATextSearchIsInForceAndEndsIt) {
    browser.Do("tab Audio");
    EXPECT_FALSE(form.cmdClear.Enabled());
    browser.Do("type money");
    EXPECT_TRUE(form.cmdClear.Enabled());
    browser.Do("clear");
    EXPECT_FALSE(form.cmdClear.Enabled());
    EXPECT_TRUE(form.txtSearch.HasFocus());
    EXPECT_EQ(form.txtSearch.Text(), u"money"_s);
    EXPECT_EQ(browser.WordSearch.SearchString(), QString());
    EXPECT_EQ(Texts(artists), "All (3 Artists), Abba, Blue River, Queen"); // the tab stays
    EXPECT_TRUE(browser.Result.Search());
}

TEST_F(SearchTest, ClearWithoutASearchTouchesNoList) {
    form.cmdClear.SetEnabled(true);
    const int fills = browser.Fills();
    browser.Do("clear");
    EXPECT_EQ(browser.Fills(), fills);
    EXPECT_TRUE(form.txtSearch.HasFocus());
    ExpectFullLibrary();
}

TEST_F(SearchTest, EnteringTheBoxSelectsItsTextAndMakesSearchTheDefaultButton) {
    browser.Do("type money");
    songs.SetFocus();
    EXPECT_FALSE(form.cmdSearch.Default());
    form.lblSearch.UserClick();
    EXPECT_TRUE(form.txtSearch.HasFocus());
    EXPECT_EQ(form.txtSearch.SelectionStart, 0);
    EXPECT_EQ(form.txtSearch.SelectionLength, 5);
    EXPECT_TRUE(form.cmdSearch.Default());
}

TEST_F(SearchTest, WithoutTracksNothingIsSearched) {
    browser.Library.TrackCount = 0;
    browser.Do("type money");
    EXPECT_FALSE(browser.Result.Search());
    EXPECT_EQ(browser.Library.Artists.size(), 3U);
}
