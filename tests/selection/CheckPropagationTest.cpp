// What a tick does to the records and to the rows of the three lists, and what surrounds it.

#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const std::string Jazz = "Queen, Queen/Jazz, Queen/Jazz/Mustapha, Queen/Jazz/Bicycle Race";
const std::string Queen = Jazz + ", Queen/Innuendo, Queen/Innuendo/Headlong, Queen/Innuendo/Bijou";
const std::string Innuendo = "Queen, Queen/Innuendo, Queen/Innuendo/Headlong, Queen/Innuendo/Bijou";
const std::string Abba = "Abba, Abba/Arrival, Abba/Arrival/Tiger, Abba/Arrival/Money";
const std::string Everything = Queen + ", " + Abba;

const std::string AllOfQueen = "Queen | All (2 Albums), Innuendo, Jazz | "
                               "All (4 Items), Bicycle Race, Bijou, Headlong, Mustapha";
const std::string AllOfEverything =
    "All (2 Artists), Abba, Queen | All (3 Albums), Arrival, Innuendo, Jazz | "
    "All (6 Items), Bicycle Race, Bijou, Headlong, Money, Mustapha, Tiger";
const std::string Nothing = " |  | ";

struct Case {
    const char* Steps;
    std::string TickedRows;
    std::string Checked;
};

class CheckPropagationTest : public BrowserTest {
protected:
    FakeButtonControl& cmdCopy = browser.Form.cmdCopy;

    static void ExpectEach(const std::vector<Case>& cases) {
        for (const Case& each : cases) {
            SCOPED_TRACE(each.Steps);
            BrowserFixture fresh(TwoArtists);
            fresh.Do(each.Steps);
            EXPECT_EQ(fresh.TickedRows(), each.TickedRows);
            EXPECT_EQ(fresh.Checked(), each.Checked);
            EXPECT_EQ(fresh.Form.cmdCopy.Enabled(), !each.Checked.empty());
        }
    }
};

} // namespace

TEST_F(CheckPropagationTest, AnArtistsTickIsThatOfAllItsAlbumsAndSongs) {
    ExpectEach({
        {"tick artist Queen", AllOfQueen, Queen},
        {"tick artist Queen, untick artist Queen", Nothing, ""},
        {"artist Queen, tick song Bijou, untick artist Queen", Nothing, ""},
        {"artist Queen, album Jazz, tick artist Queen",
         "Queen | All (2 Albums), Innuendo, Jazz | All (2 Items), Mustapha, Bicycle Race", Queen},
        {"tick artist All", AllOfEverything, Everything},
        {"tick artist All, untick artist All", Nothing, ""},
        {"tick artist All, untick artist Queen", "Abba |  | ", Abba},
        {"tick artist Abba, tick artist Queen", "All (2 Artists), Abba, " + AllOfQueen, Everything},
        {"artist Queen, album Jazz, tick artist All",
         "All (2 Artists), Abba, Queen | All (3 Albums), Arrival, Innuendo, Jazz | "
         "All (2 Items), Mustapha, Bicycle Race",
         Everything},
    });
}

TEST_F(CheckPropagationTest, AnAlbumsTickIsThatOfItsSongsAndReachesItsArtist) {
    const std::string jazzRows = "Queen | Jazz | All (2 Items), Mustapha, Bicycle Race";
    ExpectEach({
        {"artist Queen, tick album Jazz", jazzRows, Jazz},
        {"artist Queen, tick album Jazz, untick album Jazz", Nothing, ""},
        {"artist Queen, tick album Jazz, tick album Innuendo",
         "Queen | All (2 Albums), Innuendo, Jazz | All (2 Items), Headlong, Bijou", Queen},
        {"artist Queen, tick album All", AllOfQueen, Queen},
        {"artist Queen, tick album All, untick album All", Nothing, ""},
        {"artist Queen, tick album All, untick album Jazz", "Queen | Innuendo | ", Innuendo},
        // Under all artists the artist is found through ArtistRows.
        {"artist All, tick album Jazz", jazzRows, Jazz},
        {"artist All, tick album Jazz, untick album Jazz", Nothing, ""},
        {"artist All, tick album Jazz, tick album Innuendo, untick album Jazz",
         "Queen | Innuendo | ", Innuendo},
        {"artist All, tick album Arrival, tick album Jazz",
         "All (2 Artists), Abba, Queen | Arrival, Jazz | All (2 Items), Mustapha, Bicycle Race",
         Jazz + ", " + Abba},
        {"artist All, tick album Arrival, tick album Jazz, untick album Arrival", "Queen | Jazz | ",
         Jazz},
        {"artist All, tick album All", AllOfEverything, Everything},
        {"artist All, tick album All, untick album All", Nothing, ""},
    });
}

TEST_F(CheckPropagationTest, ASongsTickReachesItsAlbumAndItsArtist) {
    const std::string bijou = "Queen, Queen/Innuendo, Queen/Innuendo/Bijou";
    const std::string mustapha = "Queen, Queen/Jazz, Queen/Jazz/Mustapha";
    ExpectEach({
        // of one album
        {"artist Queen, album Innuendo, tick song Bijou", "Queen | Innuendo | Bijou", bijou},
        {"artist Queen, album Innuendo, tick song All, untick song Headlong",
         "Queen | Innuendo | Bijou", bijou},
        {"artist Queen, tick song Mustapha, album Innuendo, tick song Bijou, untick song Bijou",
         "Queen | Jazz | ", mustapha},
        {"artist All, album Jazz, tick song All",
         "Queen | Jazz | All (2 Items), Mustapha, Bicycle Race", Jazz},
        // of an artist's only album, whose "All" row stands for it alone
        {"album Arrival, tick song Money, untick song Money", Nothing, ""},
        {"tick song Money, untick song Money", Nothing, ""},
        {"tick song All", "Abba | All (1 Album), Arrival | All (2 Items), Money, Tiger", Abba},
        {"tick song All, untick song All", Nothing, ""},
        {"album Arrival, tick song All, untick song All", Nothing, ""},
        // of all albums of an artist
        {"artist Queen, tick song Mustapha, tick song Bijou",
         "Queen | All (2 Albums), Innuendo, Jazz | Bijou, Mustapha",
         mustapha + ", Queen/Innuendo, Queen/Innuendo/Bijou"},
        {"artist Queen, tick song Mustapha, tick song Bijou, untick song Bijou",
         "Queen | Jazz | Mustapha", mustapha},
        {"artist Queen, tick song All", AllOfQueen, Queen},
        {"artist Queen, tick song All, untick song All", Nothing, ""},
        // of all artists
        {"artist All, tick song Mustapha", "Queen | Jazz | Mustapha", mustapha},
        {"artist All, tick song Mustapha, tick song Bicycle Race, untick song Bicycle Race",
         "Queen | Jazz | Mustapha", mustapha},
        {"artist All, tick song Mustapha, untick song Mustapha", Nothing, ""},
        {"artist All, tick song Tiger, tick song Bijou",
         "All (2 Artists), Abba, Queen | Arrival, Innuendo | Bijou, Tiger",
         bijou + ", Abba, Abba/Arrival, Abba/Arrival/Tiger"},
        {"artist All, tick song Tiger, tick song Bijou, untick song Tiger",
         "Queen | Innuendo | Bijou", bijou},
        {"artist All, tick song All", AllOfEverything, Everything},
        {"artist All, tick song All, untick song All", Nothing, ""},
    });
}

TEST_F(CheckPropagationTest, TheOnlySongIsTickedTogetherWithEveryAllRow) {
    BrowserFixture one("Abba\n  Arrival\n    Money");
    one.Do("tick song Money");
    EXPECT_EQ(one.TickedRows(),
              "All (1 Artist), Abba | All (1 Album), Arrival | All (1 Item), Money");
    one.Do("untick song Money");
    EXPECT_EQ(one.TickedRows(), Nothing);
    EXPECT_EQ(one.Checked(), "");
}

TEST_F(CheckPropagationTest, ArtistsOfEqualNamesAreTickedEachByItself) {
    BrowserFixture twins("Abba\n  Live\n    Money\nAbba\n  Live\n    Money");
    twins.lstArtists.UserTick(2, true);
    EXPECT_FALSE(twins.Library.Artists[0].Checked);
    EXPECT_TRUE(twins.Library.Artists[1].Checked);
}

TEST_F(CheckPropagationTest, ARollUpUnticksAnAllRowWhenMoreThanOneRowIsNotTicked) {
    browser.Do("artist All");
    NestedFlag::Guard building = browser.Linked.Building.Set();
    albums.SetSelected(0, true); // of three albums none is ticked
    building.End();
    browser.Do("tick song Bijou");
    EXPECT_EQ(Ticked(albums), "Innuendo");
}

TEST_F(CheckPropagationTest, AChangeFirstShowsTheContentsOfItsRowEvenWithoutAClick) {
    const auto tickWithoutClick = [this](FakeListControl& list, int row) {
        NestedFlag::Guard building = browser.Linked.Building.Set();
        list.SetListIndex(row);
        building.End();
        list.SetSelected(row, true);
    };
    tickWithoutClick(artists, 2); // Queen
    EXPECT_EQ(browser.TickedRows(), AllOfQueen);
    EXPECT_EQ(browser.Checked(), Queen);
    browser.Do("untick artist Queen, album Innuendo");
    tickWithoutClick(albums, 2); // Jazz
    EXPECT_EQ(browser.TickedRows(), "Queen | Jazz | All (2 Items), Mustapha, Bicycle Race");
    EXPECT_EQ(browser.Checked(), Jazz);
}

// ---- in a result

TEST_F(CheckPropagationTest, InAResultTheAllArtistsRowTicksOnlyTheResult) {
    browser.Do("type a, artist All");
    ASSERT_EQ(Texts(songs), "All (5 Items), Bicycle Race, Headlong, Money, Mustapha, Tiger");
    browser.Do("tick artist All, clear");
    EXPECT_EQ(browser.Checked(), Jazz + ", Queen/Innuendo, Queen/Innuendo/Headlong, " + Abba);
}

TEST_F(CheckPropagationTest, InAResultAnAlbumStaysTickedForItsHiddenSongsUntilItIsTouched) {
    browser.Do("artist Queen, tick song Bijou, type headlong");
    EXPECT_EQ(browser.TickedRows(), "All (1 Artist), Queen | All (1 Album), Innuendo | ");
    browser.Do("tick song Headlong, untick song Headlong");
    EXPECT_EQ(browser.TickedRows(), Nothing);
    EXPECT_TRUE(cmdCopy.Enabled());
    browser.Do("clear");
    EXPECT_EQ(browser.Checked(), "Queen, Queen/Innuendo, Queen/Innuendo/Bijou");
}

// ---- what surrounds every change

TEST_F(CheckPropagationTest, AChangeByCodeThatBuildsListsChangesNothingElse) {
    const NestedFlag::Guard building = browser.Linked.Building.Set();
    browser.Form.lblMessage.SetCaption(u"untouched"_s);
    for (FakeListControl* list : {&artists, &albums, &songs}) {
        list->SetSelected(1, true);
    }
    EXPECT_EQ(browser.TickedRows(), "Abba | Arrival | Money");
    EXPECT_EQ(browser.Checked(), "");
    EXPECT_EQ(browser.Message(), "untouched");
    EXPECT_FALSE(cmdCopy.Enabled());
}

TEST_F(CheckPropagationTest, ASongsTickRebuildsNoList) {
    const int fills = browser.Fills();
    browser.Do("tick song Money, tick song All");
    EXPECT_EQ(browser.Fills(), fills);
}

TEST_F(CheckPropagationTest, TheCurrentRowsOfAllListsStay) {
    browser.Do("artist Queen, album Innuendo, song Bijou");
    artists.UserSpace();
    EXPECT_EQ(browser.CurrentRows(), "Queen | Innuendo | Bijou");
    albums.UserSpace();
    EXPECT_EQ(browser.CurrentRows(), "Queen | Innuendo | Bijou");
    EXPECT_EQ(browser.Checked(), Jazz);
    EXPECT_EQ(browser.FullName(), "Queen / Innuendo / Bijou");
}

TEST_F(CheckPropagationTest, TheFocusReturnsToTheListThatWasTicked) {
    for (FakeListControl* list : {&artists, &albums, &songs}) {
        browser.Form.txtSearch.SetFocus();
        list->SetSelected(1, !list->Selected(1));
        EXPECT_TRUE(list->HasFocus());
    }
}

TEST_F(CheckPropagationTest, TheListsAreHiddenDuringTheChangeAndShownOnce) {
    browser.Do("artist All, album All");
    for (FakeListControl* list : {&artists, &albums, &songs}) {
        list->ChangesWhileVisible = list->VisibleChanges = 0;
    }
    browser.Do("tick artist All");
    for (FakeListControl* list : {&artists, &albums, &songs}) {
        EXPECT_EQ(list->VisibleChanges, 2);
        // the current row, and of the artists the user's own tick
        EXPECT_EQ(list->ChangesWhileVisible, list == &artists ? 2 : 1);
    }
}

TEST_F(CheckPropagationTest, TheSummaryIsComputedOncePerChange) {
    browser.Form.prgCopy.Values.clear();
    browser.Do("tick artist All");
    EXPECT_EQ(browser.Form.prgCopy.Values, std::vector<float>{64512.0F});
    EXPECT_EQ(browser.Message(), "Selected: 63 KB of 63 KB");
}
