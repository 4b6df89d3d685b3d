// What the user does fails at one call after another, in ways that nobody expects. The window must
// be fit for use afterwards: nothing hidden, nothing locked, lists, marks and summary in step.

#include "tests/fakes/UnexpectedFailure.h"
#include "tests/selection/BrowserInvariants.h"

#include <gtest/gtest.h>

#include <set>

namespace {

constexpr const char* Library = R"(
Abba
  Arrival
    Money | 1 | 2048
    Tiger | 2 | 1024 | video
  River Live
    Money | 1 | 3072
Beck
  Guero
    Girl | 3 | 4096
    River | 4 | 1024
Blue River
  Deep
    Delta | 1 | 512
    Source | 2 | 512 | other
)";

using Act = std::function<void(BrowserFixture&)>;

struct Failing {
    const char* Name;
    Act Prepare;
    Act Handler;
};

void PrintTo(const Failing& failing, std::ostream* out) {
    *out << failing.Name;
}

/// A model of what is shown, whatever that is.
SelectionModel ModelOf(const BrowserFixture& browser) {
    SelectionModel model(browser.Library.Artists);
    model.Saved = browser.Result.SavedArtists();
    model.Search = browser.Result.Search();
    model.SearchingText = browser.WordSearch.SearchingText();
    model.SearchString = browser.WordSearch.SearchString();
    model.Box = browser.Form.txtSearch.Text();
    model.Tab = browser.Form.tbsFilter.SelectedCaption();
    return model;
}

/// The titles of the ticked tracks of the whole library, with their albums.
std::multiset<QString> TickedTracks(const BrowserFixture& browser) {
    std::multiset<QString> ticked;
    for (const ArtistRecord& artist : ModelOf(browser).Merged()) {
        for (const AlbumRecord& album : artist.Albums) {
            for (const TrackRecord& track : album.Tracks) {
                if (track.Checked) {
                    ticked.insert(artist.Name + album.Name + track.Title);
                }
            }
        }
    }
    return ticked;
}

void ClickFirstRow(FakeListControl& list) {
    if (list.ListCount() > 0) {
        list.UserClick(0);
    }
}

/// A list that could not be filled is empty until the next click fills it; that click is done here,
/// and everything must fit.
void ExpectFitForUse(BrowserFixture& browser) {
    EXPECT_FALSE(browser.Linked.Building);
    EXPECT_FALSE(browser.Linked.Restoring);
    EXPECT_FALSE(browser.WordSearch.SearchRunning());
    EXPECT_FALSE(browser.WordSearch.SearchPending());
    EXPECT_EQ(browser.Result.Search(), !browser.Result.SavedArtists().empty());
    if (browser.Linked.RefreshAlbums()) {
        EXPECT_EQ(browser.lstAlbums.ListCount(), 0);
    }
    if (browser.Linked.RefreshSongs()) {
        EXPECT_EQ(browser.lstSongs.ListCount(), 0);
    }
    for (const FakeListControl* list :
         {&browser.lstArtists, &browser.lstAlbums, &browser.lstSongs}) {
        EXPECT_TRUE(list->Visible());
    }
    EXPECT_EQ(browser.Form.Form1.Pointer(), MousePointer::Default);
    ClickFirstRow(browser.lstArtists);
    ClickFirstRow(browser.lstAlbums);
    ClickFirstRow(browser.lstSongs);
    ExpectInvariants(browser, ModelOf(browser));
}

/// What the user does next works: tick, search, filter, clear.
void ExpectNextRequestsWork(BrowserFixture& browser) {
    browser.Type("");
    browser.ChooseTab("Audio");
    browser.ChooseTab("All Files");
    EXPECT_EQ(Texts(browser.lstArtists), "All (3 Artists), Abba, Beck, Blue River");
    browser.Type("girl");
    EXPECT_EQ(Texts(browser.lstArtists), "All (1 Artist), Beck");
    ExpectInvariants(browser, ModelOf(browser));
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(Texts(browser.lstArtists), "All (3 Artists), Abba, Beck, Blue River");
    BrowserFixture::Tick(browser.lstArtists, "All");
    BrowserFixture::Untick(browser.lstArtists, "All");
    BrowserFixture::Tick(browser.lstArtists, "Beck");
    EXPECT_EQ(browser.Message(), "Selected: 5 KB of 12 KB");
    ExpectInvariants(browser, ModelOf(browser));
}

class FailingCalls : public testing::TestWithParam<Failing> {};

const Act Nothing = [](BrowserFixture&) {};
const Act ShowAll = [](BrowserFixture& browser) {
    BrowserFixture::Click(browser.lstArtists, "All");
};
const Act TickGuero = [](BrowserFixture& browser) {
    BrowserFixture::Click(browser.lstArtists, "Beck");
    BrowserFixture::Tick(browser.lstAlbums, "Guero");
};
const Act TickAndSearch = [](BrowserFixture& browser) {
    TickGuero(browser);
    browser.Type("river");
    BrowserFixture::Click(browser.lstArtists, "Blue River");
    BrowserFixture::Tick(browser.lstSongs, "Delta");
};
const Act TickAndFilter = [](BrowserFixture& browser) {
    TickGuero(browser);
    browser.ChooseTab("Audio");
    BrowserFixture::Tick(browser.lstSongs, "River");
};

const Failing Clicks[] = {
    {"click an artist", Nothing,
     [](BrowserFixture& browser) { BrowserFixture::Click(browser.lstArtists, "Beck"); }},
    {"click all artists", Nothing, ShowAll},
    {"click an artist from All", ShowAll,
     [](BrowserFixture& browser) { BrowserFixture::Click(browser.lstArtists, "Abba"); }},
    {"click an album", Nothing,
     [](BrowserFixture& browser) { BrowserFixture::Click(browser.lstAlbums, "Arrival"); }},
    {"click a song", Nothing,
     [](BrowserFixture& browser) { BrowserFixture::Click(browser.lstSongs, "Tiger"); }},
};

const Failing Ticks[] = {
    {"tick an artist", Nothing,
     [](BrowserFixture& browser) { BrowserFixture::Tick(browser.lstArtists, "Beck"); }},
    {"tick all artists", TickGuero,
     [](BrowserFixture& browser) { BrowserFixture::Tick(browser.lstArtists, "All"); }},
    {"tick an album", Nothing,
     [](BrowserFixture& browser) { BrowserFixture::Tick(browser.lstAlbums, "Arrival"); }},
    {"untick the only album", TickGuero,
     [](BrowserFixture& browser) { BrowserFixture::Untick(browser.lstAlbums, "Guero"); }},
    {"tick all albums of all artists", ShowAll,
     [](BrowserFixture& browser) { BrowserFixture::Tick(browser.lstAlbums, "All"); }},
    {"tick a song", ShowAll,
     [](BrowserFixture& browser) { BrowserFixture::Tick(browser.lstSongs, "Girl"); }},
    {"tick all songs of an album", Nothing,
     [](BrowserFixture& browser) {
         BrowserFixture::Click(browser.lstAlbums, "Arrival");
         BrowserFixture::Tick(browser.lstSongs, "All");
     }},
    {"tick a song of a result", TickAndSearch,
     [](BrowserFixture& browser) { BrowserFixture::Tick(browser.lstSongs, "Source"); }},
};

const Failing Searches[] = {
    {"search", TickGuero, [](BrowserFixture& browser) { browser.Type("river"); }},
    {"search for nothing", TickGuero, [](BrowserFixture& browser) { browser.Type("nowhere"); }},
    {"search on", TickAndSearch, [](BrowserFixture& browser) { browser.Type("river l"); }},
    {"search again", TickAndSearch, [](BrowserFixture& browser) { browser.Type("money"); }},
    {"find nothing after a result", TickAndSearch,
     [](BrowserFixture& browser) { browser.Type("nowhere"); }},
    {"search after nothing was found",
     [](BrowserFixture& browser) {
         TickAndSearch(browser);
         browser.Type("nowhere");
     },
     [](BrowserFixture& browser) { browser.Type("money"); }},
    {"type on while the search runs", TickAndSearch,
     [](BrowserFixture& browser) {
         const int first = browser.Events.Yields + 1;
         browser.Events.OnYield = [&browser, first](int yield) {
             if (yield == first) {
                 RunHandler([&browser] { browser.Type("abba"); });
             }
         };
         browser.Type("money");
     }},
    {"delete the text", TickAndSearch, [](BrowserFixture& browser) { browser.Type(""); }},
    {"clear", TickAndSearch, [](BrowserFixture& browser) { browser.Form.cmdClear.UserPress(); }},
    {"filter", TickGuero, [](BrowserFixture& browser) { browser.ChooseTab("Audio"); }},
    {"filter otherwise", TickAndFilter,
     [](BrowserFixture& browser) { browser.ChooseTab("Video"); }},
    {"filter no more", TickAndFilter,
     [](BrowserFixture& browser) { browser.ChooseTab("All Files"); }},
    {"search what is filtered", TickAndFilter,
     [](BrowserFixture& browser) { browser.Type("river"); }},
    {"clear with a filter",
     [](BrowserFixture& browser) {
         TickAndFilter(browser);
         browser.Type("girl");
     },
     [](BrowserFixture& browser) { browser.Form.cmdClear.UserPress(); }},
};

/// Fails each call of the handler once. Ticks end half done, whatever else fails loses none.
void Sweep(const Failing& failing, bool keepsTicks) {
    int nth = 0;
    for (bool struck = true; struck && !testing::Test::HasFailure();) {
        ++nth;
        for (int kind = 0; kind < 3; ++kind) {
            SCOPED_TRACE(testing::Message() << "call " << nth << ", kind " << kind);
            BrowserFixture browser(Library);
            failing.Prepare(browser);
            const std::multiset<QString> ticked = TickedTracks(browser);
            struck = RunFailing([&] { failing.Handler(browser); }, nth, kind);
            browser.Events.OnYield = {};
            if (keepsTicks) {
                EXPECT_EQ(TickedTracks(browser), ticked);
            }
            ExpectFitForUse(browser);
            ExpectNextRequestsWork(browser);
        }
    }
    EXPECT_GT(nth, 1);
    testing::Test::RecordProperty("failures", 3 * (nth - 1));
}

class FailingClicks : public FailingCalls {};
class FailingTicks : public FailingCalls {};
class FailingSearches : public FailingCalls {};

} // namespace

TEST_P(FailingClicks, LeaveTheListsFitForUse) {
    Sweep(GetParam(), true);
}
INSTANTIATE_TEST_SUITE_P(Handlers, FailingClicks, testing::ValuesIn(Clicks));

TEST_P(FailingTicks, LeaveTheListsFitForUse) {
    Sweep(GetParam(), false);
}
INSTANTIATE_TEST_SUITE_P(Handlers, FailingTicks, testing::ValuesIn(Ticks));

TEST_P(FailingSearches, LeaveTheListsFitForUse) {
    Sweep(GetParam(), true);
}
INSTANTIATE_TEST_SUITE_P(Handlers, FailingSearches, testing::ValuesIn(Searches));
