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

TEST(MediaFilter, EveryTabLetsItsKindsPassAndHasItsNoun) {
    FakeTabsControl tabs;
    tabs.Captions += {u"all files"_s, u"audio"_s}; // not exactly the names
    const struct {
        const char* Passing; // of other, audio, video and two that are no kinds
        QString Noun;
    } expected[] = {
        {"+++++", u" Item"_s}, {"-+---", u" Song"_s}, {"--+--", u" Video"_s},
        {"-----", {}},         {"-----", {}},
    };
    for (int tab = 0; tab < 5; ++tab) {
        tabs.Select(tab);
        std::string passing;
        for (const Kind kind : {KindOther, KindAudio, KindVideo, Kind(3), Kind(-1)}) {
            passing += CorrectFiletype(SelectedFilter(tabs), kind) ? "+" : "-";
        }
        EXPECT_EQ(passing, expected[tab].Passing) << tab;
        EXPECT_EQ(GetCorrectName(SelectedFilter(tabs)), expected[tab].Noun) << tab;
    }
}

TEST(MediaFilter, ATabShowsOnlyItsKindOfTheSearchResult) {
    const std::string allFiles =
        "All (3 Artists), Abba, Books, Queen | All (4 Albums), Arrival, Films, Jazz, Texts | "
        "All (6 Items), Headlong, Money, Mustapha, Notes, Poem, Tiger";
    const std::string audio = "All (2 Artists), Abba, Queen | All (2 Albums), Arrival, Jazz | "
                              "All (2 Songs), Money, Mustapha";
    const struct {
        const char* Steps;
        std::string Rows;
    } cases[] = {
        {"artist All", allFiles},
        {"artist All, tab Audio", audio},
        {"artist All, tab Video", "All (2 Artists), Abba, Queen | "
                                  "All (2 Albums), Arrival, Films | "
                                  "All (2 Videos), Headlong, Tiger"},
        {"artist All, tab Video, tab Audio", audio}, // from the full library
        {"artist All, tab Audio, tab All Files", allFiles},
        {"tab Audio, type arrival",
         "All (1 Artist), Abba | All (1 Album), Arrival | All (1 Song), Money"},
        {"tab Audio, type arrival, tab All Files",
         "All (1 Artist), Abba | All (1 Album), Arrival | All (2 Items), Money, Tiger"},
        {"artist All, tab Audio, type arrival, clear", audio},
        // A text that was cleared but is still in the box is not searched for any more.
        {"artist All, type abba, clear, tab Audio", audio},
        {"artist All, type abba, clear, tab Audio, tab All Files", allFiles},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Steps);
        BrowserFixture browser(AllKinds);
        browser.Do(each.Steps);
        EXPECT_EQ(browser.Rows(), each.Rows);
    }
}

TEST(MediaFilter, ClickingTheSelectedTabChangesNothing) {
    BrowserFixture browser(AllKinds);
    for (const char* tab : {"tab All Files", "tab Video"}) {
        browser.Do(tab);
        const int fills = browser.Fills();
        browser.Do(tab);
        EXPECT_EQ(browser.Fills(), fills) << tab;
    }
}

TEST(MediaFilter, WhileTheFilterIsLockedAClickDoesNothingAndIsNotRemembered) {
    BrowserFixture browser(AllKinds);
    browser.Filter.ShowNoDevice();
    browser.Do("tab Video");
    EXPECT_FALSE(browser.Result.Search());
    browser.Filter.AwaitLibrary();
    browser.Do("tab Video");
    EXPECT_EQ(browser.lstSongs.List(0), u"All (1 Video)"_s);
}

TEST(MediaFilter, WithoutTracksAClickDoesNothing) {
    BrowserFixture browser("");
    browser.Library.Artists = RecordsOf(AllKinds); // what an earlier device left
    browser.Do("tab Audio");
    EXPECT_FALSE(browser.Result.Search());
    EXPECT_EQ(browser.lstArtists.ListCount(), 0);
    EXPECT_EQ(browser.Library.Artists.size(), 3U);
}

TEST(MediaFilter, ANewLibraryIsShownUnfilteredFromItsFirstArtistAndEveryTabWorksOnIt) {
    BrowserFixture browser(AllKinds);
    browser.Do("artist All, album Jazz, tab Audio");
    browser.Load(RecordsOf(AllKinds));
    EXPECT_EQ(browser.Form.tbsFilter.SelectedCaption(), u"All Files"_s);
    EXPECT_EQ(Texts(browser.lstArtists), "All (3 Artists), Abba, Books, Queen");
    EXPECT_EQ(browser.CurrentRows(), "Abba | All (1 Album) | All (2 Items)");
    browser.Do("tab Audio");
    EXPECT_EQ(Texts(browser.lstArtists), "All (2 Artists), Abba, Queen");
}
