#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const char* const AllKinds = R"(
Queen
  Jazz
    Mustapha
    Notes | 0 | 1024 | other
  Films
    Headlong | 0 | 1024 | video
Abba
  Arrival
    Money
    Tiger | 0 | 1024 | video
Books
  Texts
    Poem | 0 | 1024 | other
)";

} // namespace

TEST(MediaFilter, EveryKindPassesUnderAllFilesAndOneUnderEachOtherTab) {
    FakeTabsControl tabs;
    const auto passing = [&tabs] {
        std::string kinds;
        for (const Kind kind : {KindOther, KindAudio, KindVideo, Kind(3), Kind(-1)}) {
            kinds += CorrectFiletype(SelectedFilter(tabs), kind) ? "+" : "-";
        }
        return kinds;
    };
    EXPECT_EQ(passing(), "+++++");
    tabs.Select(1);
    EXPECT_EQ(passing(), "-+---");
    tabs.Select(2);
    EXPECT_EQ(passing(), "--+--");
}

TEST(MediaFilter, ATabOfAnotherNameLetsNothingPassAndHasNoNoun) {
    FakeTabsControl tabs;
    tabs.Captions = {u"all files"_s, u"audio"_s};
    EXPECT_FALSE(CorrectFiletype(SelectedFilter(tabs), KindOther));
    EXPECT_EQ(GetCorrectName(SelectedFilter(tabs)), QString());
    tabs.Select(1);
    EXPECT_FALSE(CorrectFiletype(SelectedFilter(tabs), KindAudio));
    EXPECT_EQ(GetCorrectName(SelectedFilter(tabs)), QString());
}

TEST(MediaFilter, TheNounsAreItemSongAndVideoWithALeadingBlank) {
    FakeTabsControl tabs;
    EXPECT_EQ(GetCorrectName(SelectedFilter(tabs)), u" Item"_s);
    tabs.Select(1);
    EXPECT_EQ(GetCorrectName(SelectedFilter(tabs)), u" Song"_s);
    tabs.Select(2);
    EXPECT_EQ(GetCorrectName(SelectedFilter(tabs)), u" Video"_s);
}

TEST(MediaFilter, TheSongsAllRowReadsSongsVideosAndItems) {
    BrowserFixture browser(AllKinds);
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(browser.lstSongs.List(0), u"All (6 Items)"_s);
    browser.ChooseTab("Audio");
    EXPECT_EQ(browser.lstSongs.List(0), u"All (2 Songs)"_s);
    browser.ChooseTab("Video");
    EXPECT_EQ(browser.lstSongs.List(0), u"All (2 Videos)"_s);
}

TEST(MediaFilter, ATrackOfKindZeroIsListedUnderAllFilesOnly) {
    BrowserFixture browser(AllKinds);
    browser.Click(browser.lstArtists, "All");
    EXPECT_EQ(Texts(browser.lstSongs),
              "All (6 Items), Headlong, Money, Mustapha, Notes, Poem, Tiger");
    browser.ChooseTab("Audio");
    EXPECT_EQ(Texts(browser.lstSongs), "All (2 Songs), Money, Mustapha");
    browser.ChooseTab("Video");
    EXPECT_EQ(Texts(browser.lstSongs), "All (2 Videos), Headlong, Tiger");
    EXPECT_EQ(Texts(browser.lstArtists), "All (2 Artists), Abba, Queen");
    EXPECT_EQ(Texts(browser.lstAlbums), "All (2 Albums), Arrival, Films");
}

TEST(MediaFilter, BackToAllFilesTheFullLibraryAndTheRowsFromBeforeReturn) {
    BrowserFixture browser(AllKinds);
    browser.Click(browser.lstArtists, "Queen");
    browser.Click(browser.lstAlbums, "Jazz");
    browser.Click(browser.lstSongs, "Mustapha");
    browser.ChooseTab("Audio");
    EXPECT_EQ(Current(browser.lstArtists), "Queen");
    EXPECT_EQ(Texts(browser.lstAlbums), "All (1 Album), Jazz");
    EXPECT_EQ(Current(browser.lstAlbums), "Jazz");
    EXPECT_EQ(Current(browser.lstSongs), "Mustapha");
    browser.ChooseTab("All Files");
    EXPECT_EQ(Texts(browser.lstArtists), "All (3 Artists), Abba, Books, Queen");
    EXPECT_EQ(Current(browser.lstArtists), "Queen");
    EXPECT_EQ(Texts(browser.lstAlbums), "All (2 Albums), Films, Jazz");
    EXPECT_EQ(Current(browser.lstAlbums), "Jazz");
    EXPECT_EQ(Texts(browser.lstSongs), "All (2 Items), Mustapha, Notes");
    EXPECT_EQ(Current(browser.lstSongs), "Mustapha");
    EXPECT_FALSE(browser.Result.Search());
}

TEST(MediaFilter, BackToAllFilesWithASearchTextTheSearchRunsWithoutTheKind) {
    BrowserFixture browser(AllKinds);
    browser.ChooseTab("Audio");
    browser.Type("arrival");
    EXPECT_EQ(Texts(browser.lstSongs), "All (1 Song), Money");
    browser.ChooseTab("All Files");
    EXPECT_EQ(Texts(browser.lstSongs), "All (2 Items), Money, Tiger");
    EXPECT_EQ(Texts(browser.lstArtists), "All (1 Artist), Abba");
    EXPECT_TRUE(browser.Result.Search());
    EXPECT_TRUE(browser.Form.cmdClear.Enabled());
}

TEST(MediaFilter, ATextThatWasClearedButStillStandsInTheBoxDoesNotFilter) {
    BrowserFixture browser(AllKinds);
    browser.Type("abba");
    browser.Form.cmdClear.UserPress();
    browser.ChooseTab("Audio");
    EXPECT_EQ(Texts(browser.lstArtists), "All (2 Artists), Abba, Queen");
    browser.ChooseTab("All Files");
    EXPECT_EQ(Texts(browser.lstArtists), "All (3 Artists), Abba, Books, Queen");
}

TEST(MediaFilter, ClickingTheSelectedTabChangesNothing) {
    BrowserFixture browser(AllKinds);
    int fills = browser.lstArtists.FillCount;
    browser.ChooseTab("All Files");
    EXPECT_EQ(browser.lstArtists.FillCount, fills);
    EXPECT_FALSE(browser.Result.Search());
    browser.ChooseTab("Video");
    fills = browser.lstArtists.FillCount;
    browser.ChooseTab("Video");
    EXPECT_EQ(browser.lstArtists.FillCount, fills);
}

TEST(MediaFilter, WhileTheFilterIsLockedAClickDoesNothingAndIsNotRemembered) {
    BrowserFixture browser(AllKinds);
    browser.Filter.ShowNoDevice();
    browser.ChooseTab("Video");
    EXPECT_FALSE(browser.Result.Search());
    browser.Filter.AwaitLibrary();
    browser.ChooseTab("Video");
    EXPECT_EQ(browser.lstSongs.List(0), u"All (1 Video)"_s);
}

TEST(MediaFilter, WithoutTracksAClickDoesNothing) {
    BrowserFixture browser("");
    browser.Library.Artists = RecordsOf(AllKinds); // what an earlier device left
    browser.ChooseTab("Audio");
    EXPECT_FALSE(browser.Result.Search());
    EXPECT_EQ(browser.lstArtists.ListCount(), 0);
    EXPECT_EQ(browser.Library.Artists.size(), 3U);
}

TEST(MediaFilter, ATabWithoutAnyFileShowsEmptyListsAndAllFilesLeadsBack) {
    BrowserFixture browser(R"(
Abba
  Arrival
    Money
)");
    browser.ChooseTab("Video");
    EXPECT_EQ(browser.lstArtists.ListCount(), 0);
    EXPECT_FALSE(browser.lstArtists.Enabled());
    EXPECT_FALSE(browser.Form.cmdClear.Enabled());
    browser.ChooseTab("All Files");
    EXPECT_EQ(Texts(browser.lstArtists), "All (1 Artist), Abba");
    EXPECT_EQ(browser.lstArtists.ListIndex(), 0);
    EXPECT_TRUE(browser.lstArtists.Enabled());
}

TEST(MediaFilter, BetweenAudioAndVideoTheFilterStartsFromTheFullLibrary) {
    BrowserFixture browser(AllKinds);
    browser.ChooseTab("Audio");
    browser.ChooseTab("Video");
    EXPECT_EQ(Texts(browser.lstArtists), "All (2 Artists), Abba, Queen");
    EXPECT_EQ(browser.Result.SavedArtists().size(), 3U);
    browser.ChooseTab("All Files");
    EXPECT_EQ(browser.Library.Artists.size(), 3U);
}

TEST(MediaFilter, ANewLibraryIsShownUnfilteredAndEveryTabWorksOnIt) {
    BrowserFixture browser(AllKinds);
    browser.ChooseTab("Audio");
    browser.Load(RecordsOf(AllKinds));
    EXPECT_EQ(browser.Form.tbsFilter.SelectedCaption(), u"All Files"_s);
    EXPECT_EQ(Texts(browser.lstArtists), "All (3 Artists), Abba, Books, Queen");
    browser.ChooseTab("Audio");
    EXPECT_EQ(Texts(browser.lstArtists), "All (2 Artists), Abba, Queen");
}
