#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const char* const TwoArtists = R"(
Queen
  Jazz
    Mustapha | 1
    Bicycle Race | 4
  Innuendo
    Headlong | 5
    Bijou | 11
Abba
  Arrival
    Tiger | 2
    Money | 1
)";

} // namespace

// ---- the albums follow the artist

TEST(LinkedLists, ClickingAnArtistShowsItsAlbumsAndTheSongsOfAllOfThem) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    EXPECT_EQ(Texts(browser.lstAlbums), "All (2 Albums), Innuendo, Jazz");
    EXPECT_EQ(Texts(browser.lstSongs), "All (4 Items), Bicycle Race, Bijou, Headlong, Mustapha");
    EXPECT_EQ(browser.lstAlbums.ListIndex(), 0);
    EXPECT_EQ(browser.lstSongs.ListIndex(), 0);
}

TEST(LinkedLists, TheAllArtistsRowShowsEveryAlbumAndEverySong) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(Texts(browser.lstAlbums), "All (3 Albums), Arrival, Innuendo, Jazz");
    EXPECT_EQ(Texts(browser.lstSongs),
              "All (6 Items), Bicycle Race, Bijou, Headlong, Money, Mustapha, Tiger");
}

TEST(LinkedLists, ClickingTheCurrentArtistAgainDoesNotRebuildTheAlbums) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstAlbums, "Jazz");
    const int fills = browser.lstAlbums.FillCount;
    browser.Click(browser.lstArtists, "Queen");
    EXPECT_EQ(browser.lstAlbums.FillCount, fills);
    EXPECT_EQ(Current(browser.lstAlbums), "Jazz");
}

TEST(LinkedLists, RefreshAlbumsForcesOneRebuildOnTheSameRow) {
    BrowserFixture browser(TwoArtists);
    const int albums = browser.lstAlbums.FillCount;
    const int songs = browser.lstSongs.FillCount;
    browser.Linked.StartOver();
    browser.Click(browser.lstArtists, "Abba");
    browser.Click(browser.lstArtists, "Abba");
    EXPECT_EQ(browser.lstAlbums.FillCount, albums + 1);
    EXPECT_EQ(browser.lstSongs.FillCount, songs + 1);
}

TEST(LinkedLists, AForcedRebuildUnderTheSameArtistKeepsNeitherAlbumNorSong) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstAlbums, "Arrival");
    browser.Click(browser.lstSongs, "Tiger");
    browser.Linked.StartOver();
    browser.Click(browser.lstArtists, "Abba");
    EXPECT_EQ(browser.lstAlbums.ListIndex(), 0);
    EXPECT_EQ(browser.lstSongs.ListIndex(), 0);
}

TEST(LinkedLists, FromAllArtistsToAnArtistKeepsTheAlbumIfTheArtistHasIt) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    browser.Click(browser.lstAlbums, "Jazz");
    browser.Click(browser.lstArtists, "Queen");
    EXPECT_EQ(Current(browser.lstAlbums), "Jazz");
    EXPECT_EQ(Texts(browser.lstSongs), "All (2 Items), Mustapha, Bicycle Race");
}

TEST(LinkedLists, FromAllArtistsToAnArtistWithoutTheAlbumTheAllRowIsCurrent) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    browser.Click(browser.lstAlbums, "Jazz"); // artist 0, album 0
    browser.Click(browser.lstSongs, "Mustapha");
    browser.Click(browser.lstArtists, "Abba"); // has an album 0 with a song 0, too
    EXPECT_EQ(browser.lstAlbums.ListIndex(), 0);
    EXPECT_EQ(browser.lstSongs.ListIndex(), 0);
}

TEST(LinkedLists, FromAnArtistToAllArtistsKeepsTheAlbum) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstAlbums, "Innuendo");
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(Texts(browser.lstAlbums), "All (3 Albums), Arrival, Innuendo, Jazz");
    EXPECT_EQ(Current(browser.lstAlbums), "Innuendo");
    EXPECT_EQ(Texts(browser.lstSongs), "All (2 Items), Headlong, Bijou");
}

TEST(LinkedLists, FromAnArtistToAllArtistsKeepsTheSong) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstAlbums, "Innuendo");
    browser.Click(browser.lstSongs, "Bijou");
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(Current(browser.lstSongs), "Bijou");
    EXPECT_EQ(browser.FullName(), "Queen / Innuendo / Bijou");
}

TEST(LinkedLists, BetweenAllAndAnArtistASongIsKeptUnderTheAllAlbumsRowToo) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstSongs, "Headlong");
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(browser.lstAlbums.ListIndex(), 0);
    EXPECT_EQ(Current(browser.lstSongs), "Headlong");
    browser.Click(browser.lstArtists, "Queen");
    EXPECT_EQ(Current(browser.lstSongs), "Headlong");
}

TEST(LinkedLists, BetweenTwoArtistsNeitherAlbumNorSongIsKept) {
    // Both artists share an album's place and a song's: rows would fit if they were tried.
    BrowserFixture browser(R"(
Abba
  Arrival
    Money
  Waterloo
    Suzy
Queen
  Innuendo
    Bijou
  Jazz
    Mustapha
)");
    browser.Click(browser.lstArtists, "Abba");
    browser.Click(browser.lstAlbums, "Arrival");
    browser.Click(browser.lstSongs, "Money");
    browser.Click(browser.lstArtists, "Queen");
    EXPECT_EQ(browser.lstAlbums.ListIndex(), 0);
    EXPECT_EQ(browser.lstSongs.ListIndex(), 0);
    browser.Click(browser.lstArtists, "Abba");
    EXPECT_EQ(browser.lstAlbums.ListIndex(), 0);
    EXPECT_EQ(browser.lstSongs.ListIndex(), 0);
}

TEST(LinkedLists, ASongThatIsNotListedAnyMoreIsForgotten) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    browser.Click(browser.lstSongs, "Bijou");
    browser.Click(browser.lstArtists, "Abba"); // Bijou is not here
    browser.Click(browser.lstArtists, "Queen");
    EXPECT_EQ(browser.lstSongs.ListIndex(), 0); // between two artists nothing is remembered
}

// ---- the songs follow the album

TEST(LinkedLists, ClickingTheCurrentAlbumAgainDoesNotRebuildTheSongs) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstAlbums, "Arrival");
    browser.Click(browser.lstSongs, "Tiger");
    const int fills = browser.lstSongs.FillCount;
    browser.Click(browser.lstAlbums, "Arrival");
    EXPECT_EQ(browser.lstSongs.FillCount, fills);
    EXPECT_EQ(Current(browser.lstSongs), "Tiger");
}

TEST(LinkedLists, BetweenAllAlbumsAndAnAlbumTheSongIsKept) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstSongs, "Bijou");
    browser.Click(browser.lstAlbums, "Innuendo");
    EXPECT_EQ(Current(browser.lstSongs), "Bijou");
    browser.Click(browser.lstAlbums, "All");
    EXPECT_EQ(Current(browser.lstSongs), "Bijou");
    browser.Click(browser.lstAlbums, "Jazz");
    EXPECT_EQ(browser.lstSongs.ListIndex(), 0);
}

TEST(LinkedLists, BetweenTwoAlbumsTheSongIsNotKept) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstAlbums, "Innuendo");
    browser.Click(browser.lstSongs, "Headlong");
    browser.Click(browser.lstAlbums, "Jazz");
    EXPECT_EQ(browser.lstSongs.ListIndex(), 0);
    browser.Click(browser.lstAlbums, "Innuendo");
    EXPECT_EQ(browser.lstSongs.ListIndex(), 0);
}

TEST(LinkedLists, TheOnlyAlbumsSongsStandInAlbumOrderEvenOnTheAllRow) {
    BrowserFixture browser(R"(
Queen
  Jazz
    Zebra | 1
    Apple | 2
    Berry | 2
)");
    EXPECT_EQ(Current(browser.lstAlbums), "All (1 Album)");
    EXPECT_EQ(Texts(browser.lstSongs), "All (3 Items), Zebra, Apple, Berry");
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(Texts(browser.lstSongs), "All (3 Items), Zebra, Apple, Berry");
}

TEST(LinkedLists, TheTablesTieEveryRowToItsRecord) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(browser.Linked.Rows().Albums.AlbumRowArtist, (RowTable{0, 1, 0, 0}));
    EXPECT_EQ(browser.Linked.Rows().Albums.AlbumRowAlbum, (RowTable{0, 0, 1, 0}));
    EXPECT_EQ(browser.Linked.Rows().Songs.SongRowAlbumRow, (RowTable{0, 3, 2, 2, 1, 3, 1}));
    EXPECT_EQ(browser.Linked.Rows().Songs.SongRowTrack, (RowTable{0, 1, 1, 0, 1, 0, 0}));
    EXPECT_EQ(browser.Linked.Album(3).Name, u"Jazz"_s);
    EXPECT_EQ(browser.Linked.Track(5).Title, u"Mustapha"_s);
}

// ---- the "All" rows and the check marks

TEST(LinkedLists, TheAllRowOfOneAlbumAndOneItemIsSingular) {
    BrowserFixture browser(R"(
Abba
  Arrival
    Money
)");
    EXPECT_EQ(browser.lstAlbums.List(0), u"All (1 Album)"_s);
    EXPECT_EQ(browser.lstSongs.List(0), u"All (1 Item)"_s);
}

TEST(LinkedLists, TheSongsAllRowReadsAll1VideoUnderVideoAndAll2SongsUnderAudio) {
    BrowserFixture browser(R"(
Abba
  Arrival
    Money
    Tiger
    Film | 0 | 1024 | video
)");
    browser.ChooseTab("Video");
    EXPECT_EQ(Texts(browser.lstSongs), "All (1 Video), Film");
    browser.ChooseTab("Audio");
    EXPECT_EQ(Texts(browser.lstSongs), "All (2 Songs), Money, Tiger");
    browser.ChooseTab("All Files");
    EXPECT_EQ(browser.lstSongs.List(0), u"All (3 Items)"_s);
}

TEST(LinkedLists, RowsShowTheRecordsMarksAndAllIsTickedWhenEveryOtherRowIs) {
    BrowserFixture browser(TwoArtists);
    browser.Tick(browser.lstArtists, "Abba");
    browser.Click(browser.lstArtists, "Queen");
    browser.Tick(browser.lstSongs, "Bijou");
    EXPECT_EQ(Ticked(browser.lstAlbums), "Innuendo");
    EXPECT_EQ(Ticked(browser.lstSongs), "Bijou");
    browser.Click(browser.lstArtists, "Abba");
    EXPECT_EQ(Ticked(browser.lstAlbums), "All (1 Album), Arrival");
    EXPECT_EQ(Ticked(browser.lstSongs), "All (2 Items), Money, Tiger");
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(Ticked(browser.lstAlbums), "Arrival, Innuendo");
    EXPECT_EQ(Ticked(browser.lstSongs), "Bijou, Money, Tiger");
}

TEST(LinkedLists, AListWithNothingButItsAllRowShowsThatRowChecked) {
    FakeListControl list;
    FillList(list, std::vector<ListRow>(1), u" Album"_s);
    EXPECT_EQ(Texts(list), "All (0 Albums)");
    EXPECT_EQ(Ticked(list), "All (0 Albums)");
}

TEST(LinkedLists, AnAllRowWithoutANounStillCountsInTheMany) {
    EXPECT_EQ(AllRowText(3, QString()), u"All (3s)"_s);
    EXPECT_EQ(AllRowText(1, QString()), u"All (1)"_s);
    EXPECT_EQ(AllRowText(1234, u" Song"_s), u"All (1234 Songs)"_s);
}

// ---- the list of all songs

TEST(LinkedLists, BuildingTheListOfAllSongsIsAnnouncedAndTheEarlierTextPutBack) {
    BrowserFixture browser(TwoArtists);
    ASSERT_EQ(browser.Message(), "Selected: 0 KB of 6 KB");
    browser.Form.lblMessage.Captions.clear();
    browser.Form.Form1.MousePointers.clear();
    const int repaints = browser.Form.lblMessage.RefreshCount;
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(browser.Form.lblMessage.Captions.join(u'|'),
              u"Building lists...|Selected: 0 KB of 6 KB"_s);
    EXPECT_EQ(browser.Form.lblMessage.RefreshCount, repaints + 1);
    const std::vector<MousePointer> pointers = {MousePointer::Hourglass, MousePointer::Default};
    EXPECT_EQ(browser.Form.Form1.MousePointers, pointers);
}

TEST(LinkedLists, TheListOfAllSongsIsBuiltOncePerLibrary) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    EXPECT_TRUE(browser.Linked.Rows().AllSongsCached);
    const std::string songs = Texts(browser.lstSongs);
    browser.Form.lblMessage.Captions.clear();
    browser.Click(browser.lstAlbums, "Jazz");
    browser.Click(browser.lstAlbums, "All");
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstArtists, "All");
    EXPECT_TRUE(browser.Form.lblMessage.Captions.isEmpty());
    EXPECT_EQ(Texts(browser.lstSongs), songs);
}

TEST(LinkedLists, TheSongsOfAnArtistAreNoListOfAllSongs) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    EXPECT_FALSE(browser.Linked.Rows().AllSongsCached);
}

TEST(LinkedLists, TheCachedListShowsTheMarksOfToday) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    browser.Click(browser.lstArtists, "Queen");
    browser.Tick(browser.lstSongs, "Bijou");
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(Ticked(browser.lstSongs), "Bijou");
}

// ---- the flags

TEST(LinkedLists, WhileBuildingNoClickDoesAnything) {
    BrowserFixture browser(TwoArtists);
    const NestedFlag::Guard building = browser.Linked.Building.Set();
    const int albums = browser.lstAlbums.FillCount;
    const int songs = browser.lstSongs.FillCount;
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstAlbums, "Arrival");
    browser.Click(browser.lstSongs, "Tiger");
    EXPECT_EQ(browser.lstAlbums.FillCount, albums);
    EXPECT_EQ(browser.lstSongs.FillCount, songs);
    EXPECT_EQ(browser.FullName(), "Abba");
}

TEST(LinkedLists, WhileRestoringTheHandlersNeitherRememberNorGoOn) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstAlbums, "Jazz");
    browser.Click(browser.lstSongs, "Mustapha");
    const int songs = browser.lstSongs.FillCount;
    const NestedFlag::Guard restoring = browser.Linked.Restoring.Set();
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(browser.lstAlbums.ListIndex(), 0);
    EXPECT_EQ(browser.lstSongs.FillCount, songs);
    browser.Linked.lstAlbums_Click();
    EXPECT_EQ(browser.lstSongs.FillCount, songs + 1);
    EXPECT_EQ(browser.lstSongs.ListIndex(), 0);
    EXPECT_EQ(browser.FullName(), "Queen / Jazz / Mustapha"); // not yet told otherwise
}

TEST(LinkedLists, ListsAreHiddenWhileTheyAreFilled) {
    BrowserFixture browser(TwoArtists);
    const int albums = browser.lstAlbums.ChangesWhileVisible;
    const int songs = browser.lstSongs.ChangesWhileVisible;
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(browser.lstAlbums.ChangesWhileVisible, albums);
    EXPECT_EQ(browser.lstSongs.ChangesWhileVisible, songs);
    EXPECT_TRUE(browser.lstAlbums.Visible());
    EXPECT_TRUE(browser.lstSongs.Visible());
}

// ---- the full name

TEST(LinkedLists, ASongsFullNameIsArtistAlbumAndTitleWhateverTheOtherLists) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    browser.Click(browser.lstSongs, "Bijou");
    EXPECT_EQ(browser.FullName(), "Queen / Innuendo / Bijou");
    browser.Click(browser.lstSongs, "Tiger");
    EXPECT_EQ(browser.FullName(), "Abba / Arrival / Tiger");
}

TEST(LinkedLists, AnAlbumsFullNameIsArtistAndAlbum) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    browser.Click(browser.lstAlbums, "Innuendo");
    EXPECT_EQ(browser.FullName(), "Queen / Innuendo");
}

TEST(LinkedLists, AnArtistsFullNameIsItsRow) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    EXPECT_EQ(browser.FullName(), "Queen");
}

TEST(LinkedLists, OnThreeAllRowsTheFullNameIsEmpty) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(browser.lstAlbums.ListIndex(), 0);
    EXPECT_EQ(browser.lstSongs.ListIndex(), 0);
    EXPECT_EQ(browser.FullName(), "");
}

TEST(LinkedLists, NoCurrentRowCountsAsTheAllRow) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstAlbums, "Arrival");
    browser.lstSongs.SetListIndex(-1);
    EXPECT_EQ(browser.FullName(), "Abba / Arrival");
    NestedFlag::Guard building = browser.Linked.Building.Set();
    browser.lstAlbums.SetListIndex(-1);
    browser.lstArtists.SetListIndex(-1);
    building.End();
    browser.Linked.lstSongs_Click();
    EXPECT_EQ(browser.FullName(), "");
}

TEST(LinkedLists, NoCurrentArtistShowsTheAlbumsOfAll) {
    BrowserFixture browser(TwoArtists);
    browser.lstArtists.SetListIndex(-1);
    EXPECT_EQ(Texts(browser.lstAlbums), "All (3 Albums), Arrival, Innuendo, Jazz");
}
