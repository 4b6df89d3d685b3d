#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class LinkedListsTest : public BrowserTest {};

// ---- the albums follow the artist, and the songs the album

TEST_F(LinkedListsTest, TheAlbumsAreThoseOfTheArtistAndTheSongsThoseOfTheAlbum) {
    const struct {
        const char* Steps;
        const char* Rows;
    } cases[] = {
        {"artist Queen", "All (2 Artists), Abba, Queen | All (2 Albums), Innuendo, Jazz | "
                         "All (4 Items), Bicycle Race, Bijou, Headlong, Mustapha"},
        {"artist Queen, album Jazz",
         "All (2 Artists), Abba, Queen | All (2 Albums), Innuendo, Jazz | "
         "All (2 Items), Mustapha, Bicycle Race"},
        {"artist All", "All (2 Artists), Abba, Queen | "
                       "All (3 Albums), Arrival, Innuendo, Jazz | "
                       "All (6 Items), Bicycle Race, Bijou, Headlong, Money, Mustapha, Tiger"},
        {"artist All, album Jazz",
         "All (2 Artists), Abba, Queen | All (3 Albums), Arrival, Innuendo, Jazz | "
         "All (2 Items), Mustapha, Bicycle Race"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Steps);
        BrowserFixture fresh(TwoArtists);
        fresh.Do(each.Steps);
        EXPECT_EQ(fresh.Rows(), each.Rows);
    }
}

TEST_F(LinkedListsTest, BetweenAnAllRowAndAnotherRowWhatIsStillListedStaysCurrent) {
    const struct {
        const char* Steps;
        const char* CurrentRows;
        std::string FullName;
    } cases[] = {
        {"artist All, album Jazz, artist Queen", "Queen | Jazz | All (2 Items)", "Queen / Jazz"},
        // Abba has an album 0 with a song 0, too.
        {"artist All, album Jazz, song Mustapha, artist Abba",
         "Abba | All (1 Album) | All (2 Items)", "Abba"},
        {"artist Queen, album Innuendo, artist All", "All (2 Artists) | Innuendo | All (2 Items)",
         "Queen / Innuendo"},
        {"artist Queen, album Innuendo, song Bijou, artist All",
         "All (2 Artists) | Innuendo | Bijou", "Queen / Innuendo / Bijou"},
        {"artist Queen, song Headlong, artist All", "All (2 Artists) | All (3 Albums) | Headlong",
         "Queen / Innuendo / Headlong"},
        {"artist Queen, song Headlong, artist All, artist Queen",
         "Queen | All (2 Albums) | Headlong", "Queen / Innuendo / Headlong"},
        {"artist Queen, song Bijou, album Innuendo", "Queen | Innuendo | Bijou",
         "Queen / Innuendo / Bijou"},
        {"artist Queen, song Bijou, album Innuendo, album All", "Queen | All (2 Albums) | Bijou",
         "Queen / Innuendo / Bijou"},
        {"artist Queen, song Bijou, album Jazz", "Queen | Jazz | All (2 Items)", "Queen / Jazz"},
        // between two artists or albums
        {"artist All, song Bijou, artist Abba, artist Queen",
         "Queen | All (2 Albums) | All (4 Items)", "Queen"},
        {"artist Queen, album Jazz, song Mustapha, artist Abba",
         "Abba | All (1 Album) | All (2 Items)", "Abba"},
        {"artist Abba, album Arrival, song Tiger, artist Queen",
         "Queen | All (2 Albums) | All (4 Items)", "Queen"},
        {"artist Queen, album Innuendo, song Headlong, album Jazz, album Innuendo",
         "Queen | Innuendo | All (2 Items)", "Queen / Innuendo"},
        // the same row again
        {"artist Queen, album Jazz, song Mustapha, artist Queen, album Jazz",
         "Queen | Jazz | Mustapha", "Queen / Jazz / Mustapha"},
        {"artist All", "All (2 Artists) | All (3 Albums) | All (6 Items)", ""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Steps);
        BrowserFixture fresh(TwoArtists);
        fresh.Do(each.Steps);
        EXPECT_EQ(fresh.CurrentRows(), each.CurrentRows);
        EXPECT_EQ(fresh.FullName(), each.FullName);
    }
}

TEST_F(LinkedListsTest, ClickingTheCurrentRowAgainRebuildsNothing) {
    browser.Do("artist Queen, album Jazz");
    const int fills = browser.Fills();
    browser.Do("artist Queen, album Jazz");
    EXPECT_EQ(browser.Fills(), fills);
}

TEST_F(LinkedListsTest, AForcedRebuildOnTheSameRowHappensOnceAndKeepsNeitherAlbumNorSong) {
    browser.Do("album Arrival, song Tiger");
    browser.Linked.StartOver();
    const int fills = browser.Fills();
    browser.Do("artist Abba, artist Abba");
    EXPECT_EQ(browser.Fills(), fills + 2);
    EXPECT_EQ(browser.CurrentRows(), "Abba | All (1 Album) | All (2 Items)");
}

TEST_F(LinkedListsTest, TheSongsOfAnOnlyAlbumKeepTheAlbumsOrderEvenOnTheAllRow) {
    BrowserFixture one("Queen\n  Jazz\n    Zebra | 1\n    Apple | 2\n    Berry | 2");
    EXPECT_EQ(Texts(one.lstSongs), "All (3 Items), Zebra, Apple, Berry");
    one.Do("artist All");
    EXPECT_EQ(Texts(one.lstSongs), "All (3 Items), Zebra, Apple, Berry");
}

TEST_F(LinkedListsTest, TheTablesLeadFromEveryRowToItsRecord) {
    browser.Do("artist All");
    const RowTables& rows = browser.Linked.Rows();
    EXPECT_EQ(rows.ArtistRows, (RowTable{0, 1, 0}));
    EXPECT_EQ(rows.Albums.AlbumRowArtist, (RowTable{0, 1, 0, 0}));
    EXPECT_EQ(rows.Albums.AlbumRowAlbum, (RowTable{0, 0, 1, 0}));
    EXPECT_EQ(rows.Songs.SongRowAlbumRow, (RowTable{0, 3, 2, 2, 1, 3, 1}));
    EXPECT_EQ(rows.Songs.SongRowTrack, (RowTable{0, 1, 1, 0, 1, 0, 0}));
    EXPECT_EQ(browser.Linked.Album(3).Name, u"Jazz"_s);
    EXPECT_EQ(browser.Linked.Track(5).Title, u"Mustapha"_s);
}

TEST_F(LinkedListsTest, NoCurrentRowCountsAsTheAllRow) {
    browser.Do("album Arrival");
    songs.SetListIndex(-1);
    EXPECT_EQ(browser.FullName(), "Abba / Arrival");
    artists.SetListIndex(-1);
    EXPECT_EQ(Texts(albums), "All (3 Albums), Arrival, Innuendo, Jazz");
    NestedFlag::Guard building = browser.Linked.Building.Set();
    albums.SetListIndex(-1);
    building.End();
    browser.Linked.lstSongs_Click();
    EXPECT_EQ(browser.FullName(), "");
}

// ---- the "All" rows and the check marks

TEST_F(LinkedListsTest, AnAllRowShowsTheNumberOfRows) {
    EXPECT_EQ(AllRowText(1234, u" Song"_s), u"All (1234 Songs)"_s);
    EXPECT_EQ(AllRowText(1, u" Song"_s), u"All (1 Song)"_s);
    EXPECT_EQ(AllRowText(3, QString()), u"All (3s)"_s);
    FakeListControl list;
    FillList(list, std::vector<ListRow>(1), u" Album"_s);
    EXPECT_EQ(Texts(list), "All (0 Albums)");
    EXPECT_EQ(Ticked(list), "All (0 Albums)");
}

TEST_F(LinkedListsTest, RowsShowTheRecordsMarksAndAllIsTickedWhenEveryOtherRowIs) {
    browser.Do("tick artist Abba, artist Queen, tick song Bijou");
    EXPECT_EQ(browser.TickedRows(), "All (2 Artists), Abba, Queen | Innuendo | Bijou");
    browser.Do("artist Abba");
    EXPECT_EQ(Ticked(albums), "All (1 Album), Arrival");
    EXPECT_EQ(Ticked(songs), "All (2 Items), Money, Tiger");
    browser.Do("artist All");
    EXPECT_EQ(Ticked(albums), "Arrival, Innuendo");
    EXPECT_EQ(Ticked(songs), "Bijou, Money, Tiger");
}

// ---- the list of all songs

TEST_F(LinkedListsTest, BuildingTheListOfAllSongsIsAnnouncedAndTheEarlierTextPutBack) {
    ASSERT_EQ(browser.Message(), "Selected: 0 KB of 63 KB");
    form.lblMessage.Captions.clear();
    form.Form1.MousePointers.clear();
    const int repaints = form.lblMessage.RefreshCount;
    browser.Do("artist All");
    EXPECT_EQ(form.lblMessage.Captions.join(u'|'), u"Building lists...|Selected: 0 KB of 63 KB"_s);
    EXPECT_EQ(form.lblMessage.RefreshCount, repaints + 1);
    EXPECT_EQ(form.Form1.MousePointers,
              (std::vector{MousePointer::Hourglass, MousePointer::Default}));
}

TEST_F(LinkedListsTest, TheListOfAllSongsIsBuiltOncePerLibraryAndShowsTheCurrentMarks) {
    browser.Do("artist Queen");
    EXPECT_FALSE(browser.Linked.Rows().AllSongsCached);
    browser.Do("artist All");
    EXPECT_TRUE(browser.Linked.Rows().AllSongsCached);
    const std::string all = browser.Rows();
    form.lblMessage.Captions.clear();
    browser.Do("album Jazz, album All, artist Queen, artist All");
    EXPECT_TRUE(form.lblMessage.Captions.isEmpty());
    EXPECT_EQ(browser.Rows(), all);
    browser.Do("artist Queen, tick song Bijou, artist All");
    EXPECT_EQ(Ticked(songs), "Bijou");
}

// ---- the flags

TEST_F(LinkedListsTest, WhileBuildingNoClickDoesAnything) {
    const NestedFlag::Guard building = browser.Linked.Building.Set();
    const int fills = browser.Fills();
    browser.Do("artist Queen, album Arrival, song Tiger");
    EXPECT_EQ(browser.Fills(), fills);
    EXPECT_EQ(browser.FullName(), "Abba");
}

TEST_F(LinkedListsTest, WhileRestoringTheHandlersNeitherRememberRowsNorBuildTheNextList) {
    browser.Do("artist Queen, album Jazz, song Mustapha");
    const int fills = songs.FillCount;
    const NestedFlag::Guard restoring = browser.Linked.Restoring.Set();
    browser.Do("artist All");
    EXPECT_EQ(albums.ListIndex(), 0);
    EXPECT_EQ(songs.FillCount, fills);
    browser.Linked.lstAlbums_Click();
    EXPECT_EQ(songs.FillCount, fills + 1);
    EXPECT_EQ(songs.ListIndex(), 0);
    EXPECT_EQ(browser.FullName(), "Queen / Jazz / Mustapha"); // not changed yet
}

TEST_F(LinkedListsTest, ListsAreHiddenWhileTheyAreFilled) {
    albums.ChangesWhileVisible = songs.ChangesWhileVisible = 0;
    browser.Do("artist All");
    EXPECT_EQ(albums.ChangesWhileVisible + songs.ChangesWhileVisible, 0);
    EXPECT_TRUE(albums.Visible() && songs.Visible());
}
