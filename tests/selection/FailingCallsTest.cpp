// What the user does fails at one call after another, in ways that nobody expects. The window must
// be fit for use afterwards: nothing hidden, nothing locked, lists, marks and summary in step.

#include "tests/fakes/UnexpectedFailure.h"
#include "tests/selection/BrowserInvariants.h"

#include <gtest/gtest.h>

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

struct Failing {
    const char* Prepare;
    const char* Handler;
    /// What is done in the first yield of the handler's search.
    const char* Meanwhile = nullptr;
};

void PrintTo(const Failing& failing, std::ostream* out) {
    *out << failing.Prepare << ", and then " << failing.Handler;
}

const char* const OnAbba = "artist Abba";
const char* const OnGuero = "artist Beck, tick album Guero";
const char* const Result =
    "artist Beck, tick album Guero, type river, artist Blue River, tick song Delta";
const char* const Filtered = "artist Beck, tick album Guero, tab Audio, tick song River";

const Failing ClicksAndSearches[] = {
    {OnAbba, "artist Beck"},
    {OnAbba, "artist All"},
    {"artist All", "artist Abba"},
    {OnAbba, "album Arrival"},
    {OnAbba, "song Tiger"},
    {OnGuero, "type river"},
    {OnGuero, "type nowhere"},
    {Result, "type river l"},
    {Result, "type money"},
    {Result, "type nowhere"},
    {"artist Beck, tick album Guero, type nowhere", "type money"},
    {Result, "type money", "type abba"},
    {Result, "type"},
    {Result, "clear"},
    {OnGuero, "tab Audio"},
    {Filtered, "tab Video"},
    {Filtered, "tab All Files"},
    {Filtered, "type river"},
    {"artist Beck, tick album Guero, tab Audio, type girl", "clear"},
};

const Failing Ticks[] = {
    {OnAbba, "tick artist Beck"},       {OnGuero, "tick artist All"},
    {OnAbba, "tick album Arrival"},     {OnGuero, "untick album Guero"},
    {"artist All", "tick album All"},   {"artist All", "tick song Girl"},
    {"album Arrival", "tick song All"}, {Result, "tick song Source"},
};

/// A list that could not be filled is empty until the next click fills it; that click is done here,
/// and everything must fit.
void ExpectFitForUse(BrowserFixture& browser) {
    const int songs = browser.lstSongs.ListCount();
    EXPECT_TRUE(!browser.Linked.RefreshSongs() || songs == 0);
    EXPECT_TRUE(!browser.Linked.RefreshAlbums() || browser.lstAlbums.ListCount() + songs == 0);
    for (FakeListControl* list : {&browser.lstArtists, &browser.lstAlbums, &browser.lstSongs}) {
        if (list->ListCount() > 0) {
            list->UserClick(0);
        }
    }
    ExpectInvariants(browser);
}

/// What the user does next works: tick, search, filter, clear.
void ExpectNextRequestsWork(BrowserFixture& browser) {
    browser.Do("type, tab Audio, tab All Files");
    EXPECT_EQ(Texts(browser.lstArtists), "All (3 Artists), Abba, Beck, Blue River");
    browser.Do("type girl");
    EXPECT_EQ(Texts(browser.lstArtists), "All (1 Artist), Beck");
    ExpectInvariants(browser);
    browser.Do("clear");
    EXPECT_EQ(Texts(browser.lstArtists), "All (3 Artists), Abba, Beck, Blue River");
    browser.Do("tick artist All, untick artist All, tick artist Beck");
    EXPECT_EQ(browser.Message(), "Selected: 5 KB of 12 KB");
    ExpectInvariants(browser);
}

/// Fails each call of the handler once. A tick may end half done; other failures lose none.
void Sweep(const Failing& failing, bool keepsTicks) {
    int nth = 0;
    for (bool struck = true; struck && !testing::Test::HasFailure();) {
        ++nth;
        for (int kind = 0; kind < 3; ++kind) {
            SCOPED_TRACE(testing::Message() << "call " << nth << ", kind " << kind);
            BrowserFixture browser(Library);
            browser.Do(failing.Prepare);
            const std::string ticked = CheckedRecords(WholeLibrary(browser));
            const int first = browser.Events.Yields + 1;
            browser.Events.OnYield = [&](int yield) {
                if (yield == first && failing.Meanwhile) {
                    RunHandler([&] { browser.Do(failing.Meanwhile); });
                }
            };
            struck = RunFailing([&] { browser.Do(failing.Handler); }, nth, kind);
            browser.Events.OnYield = {};
            if (keepsTicks) {
                EXPECT_EQ(CheckedRecords(WholeLibrary(browser)), ticked);
            }
            ExpectFitForUse(browser);
            ExpectNextRequestsWork(browser);
        }
    }
    EXPECT_GT(nth, 1);
    testing::Test::RecordProperty("failures", 3 * (nth - 1));
}

class FailingSearches : public testing::TestWithParam<Failing> {};
class FailingTicks : public testing::TestWithParam<Failing> {};

} // namespace

TEST_P(FailingSearches, AndClicksLoseNoTickAndLeaveTheListsFitForUse) {
    Sweep(GetParam(), true);
}
INSTANTIATE_TEST_SUITE_P(Handlers, FailingSearches, testing::ValuesIn(ClicksAndSearches));

TEST_P(FailingTicks, LeaveTheListsFitForUse) {
    Sweep(GetParam(), false);
}
INSTANTIATE_TEST_SUITE_P(Handlers, FailingTicks, testing::ValuesIn(Ticks));
