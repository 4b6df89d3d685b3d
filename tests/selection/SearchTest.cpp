#include "tests/selection/SearchFixture.h"

namespace {

bool Splits(const char* find, const char* in) {
    return SplitSearch(QString::fromUtf8(find), QString::fromUtf8(in));
}

class SearchTest : public SearchFixture {};

} // namespace

// ---- the words

TEST(SplitSearch, EveryWordMustOccurInAnyOrder) {
    EXPECT_TRUE(Splits("blue river", "river so blue"));
    EXPECT_TRUE(Splits("riv", "blue river"));
    EXPECT_FALSE(Splits("blue river", "blue lake"));
    EXPECT_FALSE(Splits("lake river", "blue river"));
    EXPECT_TRUE(Splits("aa a", "aa"));
}

TEST(SplitSearch, LettersAreComparedAsTheyAre) {
    EXPECT_FALSE(Splits("River", "river"));
    EXPECT_FALSE(Splits("e", "é"));
    EXPECT_FALSE(Splits("a.c", "abc"));
    EXPECT_FALSE(Splits("a*", "aaa"));
    EXPECT_TRUE(Splits("%1", "100%1"));
}

TEST(SplitSearch, ExtraBlanksNeverPreventAMatch) {
    EXPECT_TRUE(Splits("  blue   river ", "blue river"));
    EXPECT_TRUE(Splits(" ", "blue"));
}

TEST(SplitSearch, ATextWithoutWordsMatchesEverything) {
    EXPECT_TRUE(Splits("", "blue"));
    EXPECT_TRUE(Splits("", ""));
    EXPECT_TRUE(SplitSearch(QString(), QString()));
    EXPECT_FALSE(Splits("a", ""));
}

TEST(SplitSearch, OnlyTheBlankSeparatesWords) {
    EXPECT_FALSE(Splits("blue\triver", "river blue"));
    EXPECT_TRUE(Splits("blue\triver", "a blue\triver"));
}

// ---- what is found

TEST_F(SearchTest, OneWordOfTheArtistAndOneOfTheTitleFindNothing) {
    EXPECT_EQ(Found("river song"), "");
    EXPECT_EQ(artists.ListCount(), 0);
}

TEST_F(SearchTest, AllWordsInOneFieldFindItWhicheverFieldItIs) {
    EXPECT_EQ(Found("song tiger"), "All (1 Item), Tiger Song");
    EXPECT_EQ(Found("jazz river"), "All (3 Items), Dance, Let Me, Notes");
    EXPECT_EQ(Found("river blue"), "All (3 Items), Film, Old Song, Stone");
}

TEST_F(SearchTest, CapitalRiverFindsTheArtistBlueRiver) {
    browser.Type("RIVER");
    EXPECT_EQ(Texts(artists), "All (2 Artists), Blue River, Queen");
    browser.Type("BLUE riVER");
    EXPECT_EQ(Texts(artists), "All (1 Artist), Blue River");
}

TEST_F(SearchTest, AnArtistThatMatchesShowsAllUnderAllFilesAndItsAudioUnderAudio) {
    EXPECT_EQ(Found("blue"), "All (3 Items), Film, Old Song, Stone");
    EXPECT_EQ(Texts(albums), "All (2 Albums), First, Second");
    browser.ChooseTab("Audio");
    browser.Click(albums, "All");
    EXPECT_EQ(Texts(songs), "All (2 Songs), Old Song, Stone");
    browser.ChooseTab("Video");
    EXPECT_EQ(Texts(albums), "All (1 Album), First");
    EXPECT_EQ(Texts(songs), "All (1 Video), Film");
}

TEST_F(SearchTest, AnAlbumThatMatchesListsAllItsTracksThatPassTheFilter) {
    EXPECT_EQ(Found("river jazz"), "All (3 Items), Dance, Let Me, Notes");
    browser.ChooseTab("Audio");
    EXPECT_EQ(Texts(songs), "All (1 Song), Let Me");
    browser.ChooseTab("Video");
    EXPECT_EQ(Texts(songs), "All (1 Video), Dance");
}

TEST_F(SearchTest, ATitleThatMatchesMustPassTheFilterToo) {
    EXPECT_EQ(Found("song"), "All (2 Items), Old Song, Tiger Song");
    browser.ChooseTab("Audio");
    EXPECT_EQ(Texts(songs), "All (2 Songs), Old Song, Tiger Song");
    browser.ChooseTab("Video");
    EXPECT_EQ(artists.ListCount(), 0);
}

TEST_F(SearchTest, ArtistsAndAlbumsWithNothingLeftAreNotInTheResult) {
    browser.Type("stone");
    EXPECT_EQ(Texts(artists), "All (1 Artist), Blue River");
    browser.Click(artists, "Blue River");
    EXPECT_EQ(Texts(albums), "All (1 Album), Second");
}

TEST_F(SearchTest, TheAllRowReadsAll1ArtistAndAll3Artists) {
    browser.Type("money");
    EXPECT_EQ(artists.List(0), QStringLiteral("All (1 Artist)"));
    browser.Type("e");
    EXPECT_EQ(artists.List(0), QStringLiteral("All (3 Artists)"));
}

TEST_F(SearchTest, TheResultKeepsLibraryOrderAndKnowsWhereItCameFrom) {
    browser.Type("song");
    const std::vector<ArtistRecord>& result = browser.Library.Artists;
    ASSERT_EQ(result.size(), 2U);
    EXPECT_EQ(result[0].Name, QStringLiteral("Blue River"));
    EXPECT_EQ(result[0].SourceIndex, 0);
    EXPECT_EQ(result[1].Name, QStringLiteral("Abba"));
    EXPECT_EQ(result[1].SourceIndex, 2);
    browser.Type("let");
    ASSERT_EQ(result.size(), 1U);
    EXPECT_EQ(result[0].SourceIndex, 1);
    ASSERT_EQ(result[0].Albums.size(), 1U);
    EXPECT_EQ(result[0].Albums[0].SourceIndex, 1);
    ASSERT_EQ(result[0].Albums[0].Tracks.size(), 1U);
    EXPECT_EQ(result[0].Albums[0].Tracks[0].SourceIndex, 1);
}

TEST_F(SearchTest, AWholeArtistKnowsWhereEachOfItsRecordsCameFrom) {
    browser.Type("queen");
    const ArtistRecord& queen = browser.Library.Artists.at(0);
    EXPECT_EQ(queen.SourceIndex, 1);
    ASSERT_EQ(queen.Albums.size(), 2U);
    EXPECT_EQ(queen.Albums[1].SourceIndex, 1);
    EXPECT_EQ(queen.Albums[1].Tracks[0].SourceIndex, 0);
    EXPECT_EQ(queen.Albums[1].Tracks[2].SourceIndex, 2);
}

TEST_F(SearchTest, ARecordOfTheResultIsAWholeCopy) {
    browser.Click(artists, "Queen");
    browser.Tick(songs, "Let Me");
    browser.Type("let");
    const ArtistRecord& queen = browser.Library.Artists.at(0);
    const AlbumRecord& album = queen.Albums.at(0);
    const TrackRecord& track = album.Tracks.at(0);
    EXPECT_EQ(queen.Name, QStringLiteral("Queen"));
    EXPECT_TRUE(queen.Checked);
    EXPECT_EQ(album.Name, QStringLiteral("River Jazz"));
    EXPECT_TRUE(album.Checked);
    EXPECT_EQ(track.Title, QStringLiteral("Let Me"));
    EXPECT_EQ(track.Location, QStringLiteral("E:\\Let Me.mp3"));
    EXPECT_EQ(track.TrackNumber, 2);
    EXPECT_EQ(track.FileSize, 65536);
    EXPECT_EQ(track.Kind, KindAudio);
    EXPECT_TRUE(track.Checked);
}

TEST_F(SearchTest, ALibraryLoadedLaterIsSearchedByItsOwnNames) {
    browser.Type("money");
    browser.Load(RecordsOf(R"(
Zappa
  Apostrophe
    Stink Foot
)"));
    EXPECT_EQ(Found("money"), "");
    EXPECT_EQ(Found("foot"), "All (1 Item), Stink Foot");
}

// ---- starting and ending

TEST_F(SearchTest, ATextOfOnlyBlanksStartsNoSearch) {
    const int fills = artists.FillCount;
    browser.Type("   ");
    EXPECT_EQ(artists.FillCount, fills);
    ExpectFullLibrary();
}

TEST_F(SearchTest, ATextOfOnlyBlanksEndsASearchThatIsShown) {
    browser.Type("money");
    browser.Type("  ");
    ExpectFullLibrary();
    EXPECT_FALSE(form.cmdClear.Enabled());
    EXPECT_EQ(form.txtSearch.Text(), QStringLiteral("  "));
}

TEST_F(SearchTest, DeletingTheTextEndsTheSearch) {
    browser.Type("money");
    browser.Type("");
    ExpectFullLibrary();
}

TEST_F(SearchTest, EveryKeystrokeSearches) {
    const int fills = artists.FillCount;
    form.txtSearch.UserType(QStringLiteral("mon"));
    EXPECT_EQ(artists.FillCount, fills + 3);
    EXPECT_EQ(Texts(artists), "All (1 Artist), Abba");
}

TEST_F(SearchTest, ATabOrAnotherCharacterThanTheBlankIsAText) {
    browser.Type("\t");
    EXPECT_TRUE(browser.WordSearch.AllowSearch());
    EXPECT_TRUE(browser.Result.Search());
    EXPECT_EQ(artists.ListCount(), 0);
    browser.Type(" a ");
    EXPECT_TRUE(browser.WordSearch.AllowSearch());
}

TEST_F(SearchTest, TheButtonSearchesForTheTextAndGivesTheFocusToTheBox) {
    browser.Type("money");
    form.cmdClear.UserPress();
    ExpectFullLibrary();
    form.cmdSearch.UserPress();
    EXPECT_EQ(Texts(artists), "All (1 Artist), Abba");
    EXPECT_TRUE(form.txtSearch.HasFocus());
}

TEST_F(SearchTest, TheButtonWithoutATextOnlyTakesTheFocus) {
    const int fills = artists.FillCount;
    form.cmdSearch.UserPress();
    EXPECT_EQ(artists.FillCount, fills);
    ExpectFullLibrary();
    EXPECT_TRUE(form.txtSearch.HasFocus());
}

TEST_F(SearchTest, TheButtonWithoutATextUnderAFilterLeavesTheFilter) {
    browser.ChooseTab("Video");
    const std::string found = Texts(artists);
    form.cmdSearch.UserPress();
    EXPECT_EQ(Texts(artists), found);
    EXPECT_TRUE(browser.Result.Search());
    EXPECT_FALSE(browser.WordSearch.SearchingText());
}

TEST_F(SearchTest, ClearIsEnabledWhileATextSearchIsInForce) {
    EXPECT_FALSE(form.cmdClear.Enabled());
    browser.ChooseTab("Audio");
    EXPECT_FALSE(form.cmdClear.Enabled());
    browser.Type("money");
    EXPECT_TRUE(form.cmdClear.Enabled());
    form.cmdClear.UserPress();
    EXPECT_FALSE(form.cmdClear.Enabled());
}

TEST_F(SearchTest, EnteringTheBoxSelectsItsTextAndMakesSearchTheDefaultButton) {
    browser.Type("money");
    songs.SetFocus();
    EXPECT_FALSE(form.cmdSearch.Default());
    form.txtSearch.UserEnter();
    EXPECT_EQ(form.txtSearch.SelectionStart, 0);
    EXPECT_EQ(form.txtSearch.SelectionLength, 5);
    EXPECT_TRUE(form.cmdSearch.Default());
}

TEST_F(SearchTest, ClickingTheLabelEntersTheBox) {
    form.lblSearch.UserClick();
    EXPECT_TRUE(form.txtSearch.HasFocus());
}

TEST_F(SearchTest, WithoutTracksNothingIsSearched) {
    browser.Library.TrackCount = 0;
    browser.Type("money");
    EXPECT_FALSE(browser.Result.Search());
    EXPECT_EQ(browser.Library.Artists.size(), 3U);
}

TEST_F(SearchTest, ASearchFromAResultStartsFromTheFullLibrary) {
    browser.Type("money");
    browser.Type("stone");
    EXPECT_EQ(Texts(artists), "All (1 Artist), Blue River");
    EXPECT_EQ(browser.Result.SavedArtists().size(), 3U);
    browser.Type("");
    ExpectFullLibrary();
}
