#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Rows, indices and names all differ in their order: Abba is artist 1 and row 1, Queen artist 0
/// and row 2; each has an album with the index 0, and that a song with the index 0.
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

std::vector<ArtistRecord> ArtistsNamed(const QStringList& names) {
    std::vector<ArtistRecord> artists;
    for (const QString& name : names) {
        ArtistRecord& artist = artists.emplace_back();
        artist.Name = name;
        artist.Albums.resize(1);
        artist.Albums[0].Tracks.resize(1);
    }
    return artists;
}

} // namespace

// ---- the artist rows

TEST(ArtistList, OneArtistReadsAll1ArtistAndItsTickTicksTheAllRow) {
    BrowserFixture browser(R"(
Abba
  Arrival
    Money
)");
    EXPECT_EQ(Texts(browser.lstArtists), "All (1 Artist), Abba");
    EXPECT_EQ(Ticked(browser.lstArtists), "");
    browser.Tick(browser.lstArtists, "Abba");
    EXPECT_EQ(Ticked(browser.lstArtists), "All (1 Artist), Abba");
}

TEST(ArtistList, SeveralArtistsReadAllArtists) {
    BrowserFixture browser(TwoArtists);
    EXPECT_EQ(Texts(browser.lstArtists), "All (2 Artists), Abba, Queen");
    EXPECT_EQ(browser.Linked.Rows().ArtistRows, (RowTable{0, 1, 0}));
}

TEST(ArtistList, OfTwoArtistsNamedAbbaTheOneAtIndex12StandsBeforeTheOneAtIndex7) {
    QStringList names;
    for (int i = 0; i < 13; ++i) {
        names.append(i == 7 || i == 12 ? u"Abba"_s : u"Z"_s + QChar(u'a' + i));
    }
    BrowserFixture browser(ArtistsNamed(names));
    EXPECT_EQ(browser.Linked.Rows().ArtistRows,
              (RowTable{0, 12, 7, 0, 1, 2, 3, 4, 5, 6, 8, 9, 10, 11}));
}

TEST(ArtistList, OfTwoArtistsNamedAbbaTheOneAtIndex10StandsBeforeTheOneAtIndex9) {
    QStringList names(11, u"Zappa"_s);
    names[9] = names[10] = u"Abba"_s;
    BrowserFixture browser(ArtistsNamed(names));
    EXPECT_EQ(browser.Linked.Rows().ArtistRows, (RowTable{0, 10, 9, 0, 1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(ArtistList, AnArtistNamedAbba2StandsBeforeAbba) {
    BrowserFixture browser(ArtistsNamed({u"Abba"_s, u"Abba 2"_s}));
    EXPECT_EQ(Texts(browser.lstArtists), "All (2 Artists), Abba 2, Abba");
}

TEST(ArtistList, AnEmptyLibraryShowsAll0ArtistsChecked) {
    BrowserFixture browser("");
    browser.Artists.RebuildLists();
    EXPECT_EQ(Texts(browser.lstArtists), "All (0 Artists)");
    EXPECT_EQ(Ticked(browser.lstArtists), "All (0 Artists)");
    EXPECT_EQ(Texts(browser.lstAlbums), "All (0 Albums)");
    EXPECT_EQ(Texts(browser.lstSongs), "All (0 Items)");
}

TEST(ArtistList, BuildingTheArtistRowsTouchesNoListAndKeepsTheRecordsInTheirOrder) {
    BrowserFixture browser("");
    browser.Library.Artists = RecordsOf(TwoArtists);
    browser.Linked.BuildArtistList();
    EXPECT_EQ(browser.Linked.Rows().ArtistRows, (RowTable{0, 1, 0}));
    EXPECT_EQ(browser.lstArtists.FillCount, 0);
    EXPECT_EQ(browser.Library.Artists[0].Name, u"Queen"_s);
}

TEST(ArtistList, ANewLibraryShowsTheAlbumsOfTheFirstArtist) {
    BrowserFixture browser(TwoArtists);
    EXPECT_EQ(Current(browser.lstArtists), "Abba");
    EXPECT_EQ(Texts(browser.lstAlbums), "All (1 Album), Arrival");
    EXPECT_EQ(Current(browser.lstAlbums), "All (1 Album)");
    EXPECT_EQ(Texts(browser.lstSongs), "All (2 Items), Money, Tiger");
    EXPECT_EQ(Current(browser.lstSongs), "All (2 Items)");
    EXPECT_EQ(browser.FullName(), "Abba");
    EXPECT_FALSE(browser.Linked.Building);
}

TEST(ArtistList, AnotherLibraryStartsOnItsFirstArtistTooWhateverWasCurrentBefore) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    browser.Click(browser.lstAlbums, "Jazz");
    browser.Load(RecordsOf(R"(
Zappa
  Jazz
    Peaches
)"));
    EXPECT_EQ(Texts(browser.lstArtists), "All (1 Artist), Zappa");
    EXPECT_EQ(Current(browser.lstAlbums), "All (1 Album)");
    EXPECT_EQ(Texts(browser.lstSongs), "All (1 Item), Peaches");
}

TEST(ArtistList, TheListIsHiddenWhileItIsFilled) {
    BrowserFixture browser(TwoArtists);
    EXPECT_EQ(browser.lstArtists.ChangesWhileVisible, 1); // the emptying before the load
    EXPECT_TRUE(browser.lstArtists.Visible());
}

// ---- the check marks on the way back

TEST(ArtistList, ATickOnATrackOfAResultSurvivesAndTicksItsAlbumAndArtist) {
    BrowserFixture browser(TwoArtists);
    browser.Type("bijou");
    browser.Tick(browser.lstSongs, "Bijou");
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(CheckedRecords(browser.Library.Artists),
              "Queen, Queen/Innuendo, Queen/Innuendo/Bijou");
    EXPECT_EQ(Ticked(browser.lstArtists), "Queen");
}

TEST(ArtistList, ATickTakenOffAnAlbumOfAResultStaysOnTheTracksThatTheResultHid) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    browser.Tick(browser.lstAlbums, "Innuendo");
    browser.Type("bijou");
    browser.Untick(browser.lstAlbums, "Innuendo");
    EXPECT_EQ(CheckedRecords(browser.Library.Artists), "");
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(CheckedRecords(browser.Library.Artists),
              "Queen, Queen/Innuendo, Queen/Innuendo/Headlong");
}

TEST(ArtistList, AnAlbumsFlagAloneDoesNotUncheckItsTracks) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    browser.Tick(browser.lstAlbums, "Jazz");
    browser.Type("jazz");
    browser.Library.Artists[0].Albums[0].Checked = false;
    browser.Library.Artists[0].Checked = false;
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(CheckedRecords(browser.Library.Artists),
              "Queen, Queen/Jazz, Queen/Jazz/Mustapha, Queen/Jazz/Bicycle Race");
}

TEST(ArtistList, WhatIsWrittenBackIsFoundThroughSourceIndex) {
    BrowserFixture browser(TwoArtists);
    browser.Type("tiger");
    ASSERT_EQ(browser.Library.Artists.size(), 1U);
    EXPECT_EQ(browser.Library.Artists[0].SourceIndex, 1);
    browser.Library.Artists[0].Checked = true;
    browser.Library.Artists[0].Albums[0].Checked = true;
    browser.Library.Artists[0].Albums[0].Tracks[0].Checked = true;
    browser.Result.UpdateOldArtists();
    EXPECT_EQ(CheckedRecords(browser.Result.SavedArtists()),
              "Abba, Abba/Arrival, Abba/Arrival/Tiger");
}

TEST(ArtistList, ThePassOverTheFullLibraryOnlyEverTicks) {
    BrowserFixture browser(TwoArtists);
    browser.Library.Artists[0].Albums[1].Checked = true; // no track under it is
    browser.Type("tiger");
    browser.Result.UpdateOldArtists();
    EXPECT_EQ(CheckedRecords(browser.Result.SavedArtists()), "Queen/Innuendo");
}

TEST(ArtistList, NothingIsWrittenBackFromASearchThatFoundNothing) {
    BrowserFixture browser(TwoArtists);
    browser.Library.Artists[0].Albums[0].Tracks[0].Checked = true;
    browser.Type("nowhere");
    browser.Result.UpdateOldArtists();
    EXPECT_EQ(CheckedRecords(browser.Result.SavedArtists()), "Queen/Jazz/Mustapha");
}

// ---- the way back to the full library

TEST(ArtistList, ClearWithNoFoundLeavesEveryListOnItsAllRow) {
    BrowserFixture browser(TwoArtists);
    browser.Type("bijou");
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstAlbums, "Innuendo");
    browser.Click(browser.lstSongs, "Bijou");
    browser.Result.End();
    browser.Artists.Clear(true);
    EXPECT_EQ(Current(browser.lstArtists), "All (2 Artists)");
    EXPECT_EQ(Current(browser.lstAlbums), "All (3 Albums)");
    EXPECT_EQ(Current(browser.lstSongs), "All (6 Items)");
    EXPECT_EQ(browser.FullName(), "");
}

TEST(ArtistList, ClearKeepsTheArtistTheAlbumAndTheSongCurrent) {
    BrowserFixture browser(TwoArtists);
    browser.Type("bijou");
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstAlbums, "Innuendo");
    browser.Click(browser.lstSongs, "Bijou");
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(Texts(browser.lstArtists), "All (2 Artists), Abba, Queen");
    EXPECT_EQ(Current(browser.lstArtists), "Queen");
    EXPECT_EQ(Texts(browser.lstAlbums), "All (2 Albums), Innuendo, Jazz");
    EXPECT_EQ(Current(browser.lstAlbums), "Innuendo");
    EXPECT_EQ(Texts(browser.lstSongs), "All (2 Items), Headlong, Bijou");
    EXPECT_EQ(Current(browser.lstSongs), "Bijou");
    EXPECT_EQ(browser.FullName(), "Queen / Innuendo / Bijou");
}

TEST(ArtistList, ClearKeepsASongCurrentUnderTheAllRowsOfTheOtherLists) {
    BrowserFixture browser(TwoArtists);
    browser.Type("i"); // Bicycle Race, all of Innuendo, Abba's Arrival
    browser.Click(browser.lstArtists, "All");
    browser.Click(browser.lstSongs, "Headlong");
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(Current(browser.lstArtists), "All (2 Artists)");
    EXPECT_EQ(Current(browser.lstAlbums), "All (3 Albums)");
    EXPECT_EQ(Current(browser.lstSongs), "Headlong");
}

TEST(ArtistList, ClearKeepsAnAlbumCurrentUnderTheAllArtistsRow) {
    BrowserFixture browser(TwoArtists);
    browser.Type("i");
    browser.Click(browser.lstArtists, "All");
    browser.Click(browser.lstAlbums, "Jazz");
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(Current(browser.lstArtists), "All (2 Artists)");
    EXPECT_EQ(Current(browser.lstAlbums), "Jazz");
    EXPECT_EQ(Texts(browser.lstSongs), "All (2 Items), Mustapha, Bicycle Race");
    EXPECT_EQ(Current(browser.lstSongs), "All (2 Items)");
}

TEST(ArtistList, TheRememberedArtistIsFoundByItsIndexAndNotByItsName) {
    BrowserFixture browser(R"(
Abba
  Arrival
    Money
Abba
  Waterloo
    Suzy
)");
    browser.Type("suzy");
    browser.Click(browser.lstArtists, "Abba");
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(browser.lstArtists.ListIndex(), 2);
    EXPECT_EQ(Texts(browser.lstAlbums), "All (1 Album), Waterloo");
}

TEST(ArtistList, TheFullLibraryComesBackWholeAndIsKeptNowhereElse) {
    BrowserFixture browser(TwoArtists);
    browser.Type("tiger");
    EXPECT_EQ(browser.Result.SavedArtists().size(), 2U);
    browser.Form.cmdClear.UserPress();
    ASSERT_EQ(browser.Library.Artists.size(), 2U);
    EXPECT_EQ(browser.Library.Artists[0].Albums[1].Tracks[1].Title, u"Bijou"_s);
    EXPECT_EQ(browser.Library.Artists[1].Albums[0].Tracks.size(), 2U);
    EXPECT_TRUE(browser.Result.SavedArtists().empty());
    EXPECT_FALSE(browser.Result.Search());
    EXPECT_FALSE(browser.Linked.Building);
    EXPECT_FALSE(browser.Linked.Restoring);
}

TEST(ArtistList, TheFirstHalfOfClearPutsTheLibraryAndItsTablesBackAndShowsNothingYet) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "All");
    const RowTables before = browser.Linked.Rows();
    browser.Type("bijou");
    ASSERT_NE(browser.Linked.Rows().Albums.AlbumRowArtist, before.Albums.AlbumRowArtist);
    ASSERT_NE(browser.Linked.Rows().Albums.AlbumRowAlbum, before.Albums.AlbumRowAlbum);
    ASSERT_NE(browser.Linked.Rows().Songs.SongRowTrack, before.Songs.SongRowTrack);
    ASSERT_NE(browser.Linked.Rows().Songs.SongRowAlbumRow, before.Songs.SongRowAlbumRow);
    const int fills = browser.lstArtists.FillCount;
    browser.Artists.PutLibraryBack(false);
    EXPECT_EQ(browser.Library.Artists.size(), 2U);
    EXPECT_EQ(browser.Linked.Rows().Albums.AlbumRowArtist, before.Albums.AlbumRowArtist);
    EXPECT_EQ(browser.Linked.Rows().Albums.AlbumRowAlbum, before.Albums.AlbumRowAlbum);
    EXPECT_EQ(browser.Linked.Rows().Songs.SongRowTrack, before.Songs.SongRowTrack);
    EXPECT_EQ(browser.Linked.Rows().Songs.SongRowAlbumRow, before.Songs.SongRowAlbumRow);
    EXPECT_EQ(browser.Linked.Rows().AllSongsCache.SongRowTrack, before.AllSongsCache.SongRowTrack);
    EXPECT_EQ(browser.lstArtists.FillCount, fills);
    EXPECT_EQ(Texts(browser.lstArtists), "All (1 Artist), Queen");
    EXPECT_FALSE(browser.Linked.Building);
}

TEST(ArtistList, TheFirstHalfOfClearEnablesTheListsThatASearchHadDisabled) {
    BrowserFixture browser(TwoArtists);
    browser.Type("nowhere");
    browser.Artists.PutLibraryBack(true);
    EXPECT_TRUE(browser.lstArtists.Enabled());
    EXPECT_TRUE(browser.lstAlbums.Enabled());
    EXPECT_TRUE(browser.lstSongs.Enabled());
    EXPECT_EQ(browser.lstArtists.ListCount(), 0);
}

TEST(ArtistList, ASearchThatStartsAgainNeitherRemembersRowsNorWritesMarksBack) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstArtists, "Queen");
    browser.Events.OnYield = [&browser](int yield) {
        if (yield == 1) {
            browser.lstArtists.SetListIndex(0); // whatever happens to the lists meanwhile
            browser.Type("jazz");
        }
    };
    browser.Type("bijou");
    EXPECT_EQ(browser.Artists.AllRowWasCurrent(), (std::array<bool, 3>{false, true, true}));
    EXPECT_EQ(CheckedRecords(browser.Library.Artists), "");
}

TEST(ArtistList, ClearPaintsEachListOnce) {
    BrowserFixture browser(TwoArtists);
    browser.Type("bijou");
    const int artists = browser.lstArtists.ChangesWhileVisible;
    const int songs = browser.lstSongs.ChangesWhileVisible;
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(browser.lstArtists.ChangesWhileVisible, artists);
    EXPECT_EQ(browser.lstSongs.ChangesWhileVisible, songs + 1); // the row is put back last
    EXPECT_TRUE(browser.lstArtists.Visible());
    EXPECT_TRUE(browser.lstAlbums.Visible());
    EXPECT_TRUE(browser.lstSongs.Visible());
}

TEST(ArtistList, PuttingTheRowsBackFillsEachListOnce) {
    BrowserFixture browser(TwoArtists);
    browser.Type("i");
    browser.Click(browser.lstArtists, "All");
    browser.Click(browser.lstAlbums, "Jazz");
    const int artists = browser.lstArtists.FillCount;
    const int albums = browser.lstAlbums.FillCount;
    const int songs = browser.lstSongs.FillCount;
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(browser.lstArtists.FillCount, artists + 1);
    EXPECT_EQ(browser.lstAlbums.FillCount, albums + 1);
    EXPECT_EQ(browser.lstSongs.FillCount, songs + 1);
}

TEST(ArtistList, AfterClearCopyIsEnabledExactlyWhenAnArtistIsTicked) {
    BrowserFixture browser(TwoArtists);
    browser.Type("bijou");
    browser.Tick(browser.lstSongs, "Bijou");
    browser.Form.cmdClear.UserPress();
    EXPECT_TRUE(browser.Form.cmdCopy.Enabled());
    browser.Type("bijou");
    browser.Untick(browser.lstSongs, "Bijou");
    browser.Form.cmdClear.UserPress();
    EXPECT_FALSE(browser.Form.cmdCopy.Enabled());
}

// ---- the button

TEST(ArtistList, CmdClearTakesTheFocusToTheSearchBoxAndEndsTheSearch) {
    BrowserFixture browser(TwoArtists);
    browser.Type("bijou");
    browser.Form.cmdClear.UserPress();
    EXPECT_TRUE(browser.Form.txtSearch.HasFocus());
    EXPECT_FALSE(browser.Form.cmdClear.Enabled());
    EXPECT_FALSE(browser.WordSearch.SearchingText());
    EXPECT_EQ(browser.WordSearch.SearchString(), QString());
    EXPECT_EQ(browser.Form.txtSearch.Text(), u"bijou"_s);
}

TEST(ArtistList, CmdClearWithoutASearchTouchesNoList) {
    BrowserFixture browser(TwoArtists);
    browser.Form.cmdClear.SetEnabled(true);
    const int fills = browser.lstArtists.FillCount;
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(browser.lstArtists.FillCount, fills);
    EXPECT_EQ(browser.Library.Artists.size(), 2U);
    EXPECT_TRUE(browser.Form.txtSearch.HasFocus());
    EXPECT_FALSE(browser.Form.cmdClear.Enabled());
}

TEST(ArtistList, CmdClearUnderTheTabAudioRunsTheFilterAgain) {
    BrowserFixture browser(R"(
Abba
  Arrival
    Money
    Tiger
    Film | 0 | 1024 | video
)");
    browser.ChooseTab("Audio");
    browser.Type("tiger");
    EXPECT_EQ(Texts(browser.lstSongs), "All (1 Song), Tiger");
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(Texts(browser.lstSongs), "All (2 Songs), Money, Tiger");
    EXPECT_TRUE(browser.Result.Search());
    EXPECT_FALSE(browser.WordSearch.SearchingText());
    EXPECT_FALSE(browser.Form.cmdClear.Enabled());
}

TEST(ArtistList, CmdClearAfterASearchThatFoundNothingShowsEverythingOnTheAllRows) {
    BrowserFixture browser(TwoArtists);
    browser.Click(browser.lstSongs, "Tiger");
    browser.Type("nowhere");
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(Texts(browser.lstArtists), "All (2 Artists), Abba, Queen");
    EXPECT_EQ(Current(browser.lstArtists), "All (2 Artists)");
    EXPECT_EQ(Current(browser.lstAlbums), "All (3 Albums)");
    EXPECT_EQ(Current(browser.lstSongs), "All (6 Items)");
    EXPECT_TRUE(browser.lstArtists.Enabled());
}
