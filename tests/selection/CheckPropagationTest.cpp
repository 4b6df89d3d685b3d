#include "tests/selection/CheckPropagationFixture.h"

namespace {

class CheckPropagationTest : public CheckPropagationFixture {};

} // namespace

// ---- artists

TEST_F(CheckPropagationTest, TickingAllArtistsTicksEverythingAndTheSummaryShowsIt) {
    browser.Tick(artists, "All");
    EXPECT_EQ(Ticked(artists), "All (2 Artists), Abba, Queen");
    EXPECT_EQ(Ticked(albums), "All (3 Albums), Arrival, Innuendo, Jazz");
    EXPECT_EQ(Ticked(songs),
              "All (6 Items), Bicycle Race, Bijou, Headlong, Money, Mustapha, Tiger");
    EXPECT_EQ(Checked(), std::string(AllOfQueen) + ", " + AllOfAbba);
    EXPECT_EQ(browser.Message(), "Selected: 63 KB of 63 KB");
}

TEST_F(CheckPropagationTest, UntickingAllArtistsUnticksEverything) {
    browser.Tick(artists, "All");
    browser.Untick(artists, "All");
    EXPECT_EQ(Ticked(artists), "");
    EXPECT_EQ(Ticked(albums), "");
    EXPECT_EQ(Ticked(songs), "");
    EXPECT_EQ(Checked(), "");
    EXPECT_EQ(browser.Message(), "Selected: 0 KB of 63 KB");
}

TEST_F(CheckPropagationTest, UntickingOneOfAllArtistsUnticksAllAndTickingItAgainTicksAll) {
    browser.Tick(artists, "All");
    browser.Untick(artists, "Queen");
    EXPECT_EQ(Ticked(artists), "Abba");
    browser.Tick(artists, "Queen");
    EXPECT_EQ(Ticked(artists), "All (2 Artists), Abba, Queen");
}

TEST_F(CheckPropagationTest, TickingAnArtistTicksItsAlbumsAndTracksAndNobodyElses) {
    browser.Tick(artists, "Queen");
    EXPECT_EQ(Ticked(artists), "Queen");
    EXPECT_EQ(Current(artists), "Queen");
    EXPECT_EQ(Ticked(albums), "All (2 Albums), Innuendo, Jazz");
    EXPECT_EQ(Ticked(songs), "All (4 Items), Bicycle Race, Bijou, Headlong, Mustapha");
    EXPECT_EQ(Checked(), AllOfQueen);
    browser.Untick(artists, "Queen");
    EXPECT_EQ(Checked(), "");
}

TEST_F(CheckPropagationTest, UntickingAnArtistOfWhichSomeSongsAreTickedUnticksThose) {
    browser.Click(artists, "Queen");
    browser.Tick(songs, "Bijou");
    browser.Untick(artists, "Queen");
    EXPECT_EQ(Checked(), "");
    EXPECT_EQ(Ticked(albums), "");
    EXPECT_EQ(Ticked(songs), "");
}

TEST_F(CheckPropagationTest, AnArtistIsTickedWholeWhileOneOfItsAlbumsIsCurrent) {
    browser.Click(artists, "Queen");
    browser.Click(albums, "Jazz");
    browser.Tick(artists, "Queen");
    EXPECT_EQ(Checked(), AllOfQueen);
    EXPECT_EQ(Current(albums), "Jazz");
    EXPECT_EQ(Ticked(songs), "All (2 Items), Mustapha, Bicycle Race");
}

TEST_F(CheckPropagationTest, TheAllArtistsRowTicksEverythingWhileAnAlbumIsKeptCurrent) {
    browser.Click(artists, "Queen");
    browser.Click(albums, "Jazz");
    browser.Tick(artists, "All");
    EXPECT_EQ(Current(albums), "Jazz");
    EXPECT_EQ(Ticked(songs), "All (2 Items), Mustapha, Bicycle Race");
    EXPECT_EQ(Checked(), std::string(AllOfQueen) + ", " + AllOfAbba);
}

// ---- albums

TEST_F(CheckPropagationTest, TickingAnAlbumTicksItsSongsAndItsArtist) {
    browser.Click(artists, "Queen");
    browser.Tick(albums, "Jazz");
    EXPECT_EQ(Ticked(artists), "Queen");
    EXPECT_EQ(Ticked(albums), "Jazz");
    EXPECT_EQ(Ticked(songs), "All (2 Items), Mustapha, Bicycle Race");
    EXPECT_EQ(Checked(), "Queen, Queen/Jazz, Queen/Jazz/Mustapha, Queen/Jazz/Bicycle Race");
}

TEST_F(CheckPropagationTest, TickingTheLastAlbumTicksAllAlbumsAndUntickingOneUnticksIt) {
    browser.Click(artists, "Queen");
    browser.Tick(albums, "Jazz");
    browser.Tick(albums, "Innuendo");
    EXPECT_EQ(Ticked(albums), "All (2 Albums), Innuendo, Jazz");
    browser.Untick(albums, "Jazz");
    EXPECT_EQ(Ticked(albums), "Innuendo");
    EXPECT_EQ(Ticked(artists), "Queen");
    browser.Untick(albums, "Innuendo");
    EXPECT_EQ(Ticked(albums), "");
    EXPECT_EQ(Ticked(artists), "");
    EXPECT_EQ(Checked(), "");
}

TEST_F(CheckPropagationTest, AllAlbumsOfOneArtistTicksThatArtistAlone) {
    browser.Click(artists, "Queen");
    browser.Tick(albums, "All");
    EXPECT_EQ(Checked(), AllOfQueen);
    EXPECT_EQ(Ticked(artists), "Queen");
    browser.Untick(albums, "All");
    EXPECT_EQ(Checked(), "");
    EXPECT_EQ(Ticked(artists), "");
}

TEST_F(CheckPropagationTest, AllAlbumsUnderAllArtistsTicksEverything) {
    browser.Click(artists, "All");
    browser.Tick(albums, "All");
    EXPECT_EQ(Ticked(artists), "All (2 Artists), Abba, Queen");
    EXPECT_EQ(Checked(), std::string(AllOfQueen) + ", " + AllOfAbba);
    browser.Untick(albums, "All");
    EXPECT_EQ(Ticked(artists), "");
    EXPECT_EQ(Checked(), "");
}

TEST_F(CheckPropagationTest, AnAlbumUnderAllArtistsTicksTheArtistFoundThroughArtistRows) {
    browser.Click(artists, "All");
    browser.Tick(albums, "Jazz"); // of artist 0, who stands in row 2
    EXPECT_EQ(Ticked(artists), "Queen");
    EXPECT_TRUE(browser.Library.Artists[0].Checked);
    EXPECT_FALSE(browser.Library.Artists[1].Checked);
    browser.Untick(albums, "Jazz");
    EXPECT_EQ(Ticked(artists), "");
    EXPECT_EQ(Checked(), "");
}

TEST_F(CheckPropagationTest, UnderAllArtistsAnArtistStaysTickedWhileAnAlbumOfItIs) {
    browser.Click(artists, "All");
    browser.Tick(albums, "Jazz");
    browser.Tick(albums, "Innuendo");
    browser.Untick(albums, "Jazz");
    EXPECT_EQ(Ticked(artists), "Queen");
}

TEST_F(CheckPropagationTest, TheLastAlbumUnderAllArtistsTicksTheAllArtistsRow) {
    browser.Click(artists, "All");
    browser.Tick(albums, "Arrival");
    browser.Tick(albums, "Jazz"); // the artists are complete, the albums are not
    EXPECT_EQ(Ticked(artists), "All (2 Artists), Abba, Queen");
    EXPECT_EQ(Ticked(albums), "Arrival, Jazz");
    browser.Untick(albums, "Arrival");
    EXPECT_EQ(Ticked(artists), "Queen");
}

// ---- songs

TEST_F(CheckPropagationTest, ASongOfTheCurrentAlbumTicksTheAlbumAndTheArtist) {
    browser.Click(artists, "Queen");
    browser.Click(albums, "Innuendo");
    browser.Tick(songs, "Bijou");
    EXPECT_EQ(Ticked(songs), "Bijou");
    EXPECT_EQ(Ticked(albums), "Innuendo");
    EXPECT_EQ(Ticked(artists), "Queen");
    EXPECT_EQ(Checked(), "Queen, Queen/Innuendo, Queen/Innuendo/Bijou");
}

TEST_F(CheckPropagationTest, UntickingTheOnlyTickedSongUnticksTheAlbumAndAtLastTheArtist) {
    browser.Click(artists, "Queen");
    browser.Tick(songs, "Mustapha");
    browser.Click(albums, "Innuendo");
    browser.Tick(songs, "Bijou");
    browser.Untick(songs, "Bijou");
    EXPECT_EQ(Ticked(albums), "Jazz");
    EXPECT_EQ(Ticked(artists), "Queen");
    EXPECT_EQ(Checked(), "Queen, Queen/Jazz, Queen/Jazz/Mustapha");
    browser.Click(albums, "Jazz");
    browser.Untick(songs, "Mustapha");
    EXPECT_EQ(Ticked(albums), "");
    EXPECT_EQ(Ticked(artists), "");
    EXPECT_EQ(Checked(), "");
}

TEST_F(CheckPropagationTest, UntickingTheOnlyTickedSongOfAnOnlyAlbumUnticksTheArtistToo) {
    for (const char* album : {"Arrival", "All"}) {
        browser.Click(albums, album);
        browser.Tick(songs, "Money");
        EXPECT_EQ(Ticked(albums), "All (1 Album), Arrival");
        EXPECT_EQ(Ticked(artists), "Abba");
        browser.Untick(songs, "Money");
        EXPECT_EQ(Ticked(albums), "") << album;
        EXPECT_EQ(Ticked(artists), "") << album;
        EXPECT_EQ(Checked(), "") << album;
        EXPECT_FALSE(browser.Form.cmdCopy.Enabled()) << album;
    }
}

TEST_F(CheckPropagationTest, UntickingAllSongsOfAnOnlyAlbumUnticksTheArtistToo) {
    for (const char* album : {"Arrival", "All"}) {
        browser.Click(albums, album);
        browser.Tick(songs, "All");
        EXPECT_EQ(Checked(), AllOfAbba);
        browser.Untick(songs, "All");
        EXPECT_EQ(Ticked(albums), "") << album;
        EXPECT_EQ(Ticked(artists), "") << album;
        EXPECT_EQ(Checked(), "") << album;
    }
}

TEST_F(CheckPropagationTest, UntickingOneOfSeveralSongsKeepsTheAlbumTicked) {
    browser.Click(artists, "Queen");
    browser.Click(albums, "Innuendo");
    browser.Tick(songs, "All");
    EXPECT_EQ(Ticked(songs), "All (2 Items), Headlong, Bijou");
    browser.Untick(songs, "Headlong");
    EXPECT_EQ(Ticked(songs), "Bijou");
    EXPECT_EQ(Ticked(albums), "Innuendo");
    EXPECT_EQ(Ticked(artists), "Queen");
}

TEST_F(CheckPropagationTest, TheOnlySongOfAnAlbumGoesWithItsAllRow) {
    BrowserFixture one(R"(
Abba
  Arrival
    Money
)");
    one.Tick(one.lstSongs, "Money");
    EXPECT_EQ(Ticked(one.lstSongs), "All (1 Item), Money");
    EXPECT_EQ(Ticked(one.lstAlbums), "All (1 Album), Arrival");
    EXPECT_EQ(Ticked(one.lstArtists), "All (1 Artist), Abba");
    one.Untick(one.lstSongs, "Money");
    EXPECT_EQ(Ticked(one.lstSongs), "");
    EXPECT_EQ(Ticked(one.lstAlbums), "");
    EXPECT_EQ(Ticked(one.lstArtists), "");
    EXPECT_EQ(CheckedRecords(one.Library.Artists), "");
}

TEST_F(CheckPropagationTest, UnderAllAlbumsASongTicksItsAlbumThroughSongRowAlbumRowAndItsArtist) {
    browser.Click(artists, "All");
    browser.Tick(songs, "Mustapha"); // song row 5, album row 3, artist row 2
    EXPECT_EQ(Ticked(albums), "Jazz");
    EXPECT_EQ(Ticked(artists), "Queen");
    EXPECT_EQ(Checked(), "Queen, Queen/Jazz, Queen/Jazz/Mustapha");
    browser.Tick(songs, "Bicycle Race");
    browser.Untick(songs, "Mustapha");
    EXPECT_EQ(Ticked(albums), "Jazz");
    browser.Untick(songs, "Bicycle Race");
    EXPECT_EQ(Ticked(albums), "");
    EXPECT_EQ(Ticked(artists), "");
    EXPECT_EQ(Checked(), "");
}

TEST_F(CheckPropagationTest, UnderAllAlbumsOfAnArtistTheLastSongsTickTheAllAlbumsRow) {
    browser.Click(artists, "Queen");
    browser.Tick(songs, "Mustapha");
    EXPECT_EQ(Ticked(albums), "Jazz");
    browser.Tick(songs, "Bijou");
    EXPECT_EQ(Ticked(albums), "All (2 Albums), Innuendo, Jazz");
    EXPECT_EQ(Ticked(songs), "Bijou, Mustapha");
    browser.Untick(songs, "Bijou");
    EXPECT_EQ(Ticked(albums), "Jazz");
    EXPECT_EQ(Ticked(artists), "Queen");
}

TEST_F(CheckPropagationTest, AllSongsUnderAllAlbumsOfAnArtistTicksThatArtist) {
    browser.Click(artists, "Queen");
    browser.Tick(songs, "All");
    EXPECT_EQ(Checked(), AllOfQueen);
    EXPECT_EQ(Ticked(albums), "All (2 Albums), Innuendo, Jazz");
    EXPECT_EQ(Ticked(artists), "Queen");
    browser.Untick(songs, "All");
    EXPECT_EQ(Checked(), "");
    EXPECT_EQ(Ticked(albums), "");
    EXPECT_EQ(Ticked(artists), "");
}

TEST_F(CheckPropagationTest, AllSongsUnderAllOfEverythingTicksEverything) {
    browser.Click(artists, "All");
    browser.Tick(songs, "All");
    EXPECT_EQ(Checked(), std::string(AllOfQueen) + ", " + AllOfAbba);
    EXPECT_EQ(Ticked(artists), "All (2 Artists), Abba, Queen");
    browser.Untick(songs, "All");
    EXPECT_EQ(Checked(), "");
    EXPECT_EQ(Ticked(artists), "");
}

TEST_F(CheckPropagationTest, AllSongsOfAnAlbumUnderAllArtistsTicksThatAlbumAlone) {
    browser.Click(artists, "All");
    browser.Click(albums, "Jazz");
    browser.Tick(songs, "All");
    EXPECT_EQ(Checked(), "Queen, Queen/Jazz, Queen/Jazz/Mustapha, Queen/Jazz/Bicycle Race");
    EXPECT_EQ(Ticked(artists), "Queen");
    EXPECT_EQ(Ticked(albums), "Jazz");
}

TEST_F(CheckPropagationTest, TheLastArtistBySongTicksTheAllArtistsRow) {
    browser.Click(artists, "All");
    browser.Tick(songs, "Tiger");
    browser.Tick(songs, "Bijou");
    EXPECT_EQ(Ticked(artists), "All (2 Artists), Abba, Queen");
    browser.Untick(songs, "Tiger");
    EXPECT_EQ(Ticked(artists), "Queen");
}

TEST_F(CheckPropagationTest, ARollUpUnticksAnAllRowThatMissesMoreThanOneRow) {
    browser.Click(artists, "All");
    NestedFlag::Guard building = browser.Linked.Building.Set();
    albums.SetSelected(0, true); // of three albums none is ticked
    building.End();
    browser.Tick(songs, "Bijou");
    EXPECT_EQ(Ticked(albums), "Innuendo");
}

TEST_F(CheckPropagationTest, AnAlbumsChangeShowsItsSongsFirstEvenWithoutAClick) {
    browser.Click(artists, "Queen");
    browser.Click(albums, "Innuendo");
    NestedFlag::Guard building = browser.Linked.Building.Set();
    albums.SetListIndex(2); // Jazz
    building.End();
    albums.SetSelected(2, true);
    EXPECT_EQ(Ticked(songs), "All (2 Items), Mustapha, Bicycle Race");
    EXPECT_EQ(Checked(), "Queen, Queen/Jazz, Queen/Jazz/Mustapha, Queen/Jazz/Bicycle Race");
}

TEST_F(CheckPropagationTest, AnArtistsChangeShowsItsAlbumsFirstEvenWithoutAClick) {
    NestedFlag::Guard building = browser.Linked.Building.Set();
    artists.SetListIndex(2); // Queen
    building.End();
    artists.SetSelected(2, true);
    EXPECT_EQ(Ticked(albums), "All (2 Albums), Innuendo, Jazz");
    EXPECT_EQ(Checked(), AllOfQueen);
}
