#include "selection/SelectionSummary.h"
#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

namespace {

constexpr double KB = 1024;
constexpr double MB = 1024 * KB;
constexpr double GB = 1024 * MB;

/// 1 KB, 2 KB, 4 KB and 8 KB, so that a sum shows what is in it.
const char* const FourSizes = R"(
Queen
  Jazz
    Mustapha | 1 | 1024
    Bicycle Race | 2 | 2048
Abba
  Arrival
    Money | 1 | 4096
    Film | 2 | 8192 | video
)";

} // namespace

TEST(SelectionSummary, ASizeIsShownWithItsUnitAndAFractionOfTheNextSmallerOne) {
    const struct {
        double Bytes;
        const char* Text;
    } cases[] = {
        {0, "0 KB"},
        {1023, "0 KB"},
        {1024, "1 KB"},
        {2047, "1 KB"},
        {MB - 1, "1023 KB"},
        // one digit, cut off
        {MB, "1.0 MB"},
        {MB + 512 * KB, "1.5 MB"},
        {MB + 103 * KB, "1.1 MB"},
        {MB + 103 * KB - 1, "1.0 MB"},
        {GB - 1, "1023.9 MB"},
        // two digits, not padded
        {GB, "1.0 GB"},
        {GB + 50 * MB, "1.4 GB"},
        {GB + 102 * MB, "1.9 GB"},
        {GB + 103 * MB, "1.10 GB"},
        {2 * GB + 1023 * MB, "2.99 GB"},
        {32767.0 * 2147483647.0, "65533.99 GB"},
        {-GB, "0 KB"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(GetSizeInText(each.Bytes).toStdString(), each.Text) << each.Bytes;
    }
}

TEST(SelectionSummary, AnEmptyLibraryHasNoCheckedSongAndNoCheckedSize) {
    BrowserFixture browser("");
    EXPECT_EQ(browser.Summary.GetSelSongCount(), 0);
    browser.Summary.CalculateSize(false);
    EXPECT_EQ(browser.Summary.SelectedSize, 0);
    EXPECT_EQ(browser.Message(), "Selected: 0 KB of 0 KB");
}

TEST(SelectionSummary, OnlyTheTracksFlagsAreCounted) {
    BrowserFixture browser(FourSizes);
    for (ArtistRecord& artist : browser.Library.Artists) {
        artist.Checked = artist.Albums[0].Checked = true;
    }
    EXPECT_EQ(browser.Summary.GetSelSongCount(), 0);
    browser.Library.Artists[0].Checked = browser.Library.Artists[0].Albums[0].Checked = false;
    browser.Library.Artists[0].Albums[0].Tracks[1].Checked = true;
    EXPECT_EQ(browser.Summary.GetSelSongCount(), 1);
    browser.Summary.CalculateSize(false);
    EXPECT_EQ(browser.Summary.SelectedSize, 2048);
}

TEST(SelectionSummary, TheSummaryAndTheBarShowTheSelectedOfTheTotal) {
    BrowserFixture browser(FourSizes);
    EXPECT_EQ(browser.Message(), "Selected: 0 KB of 15 KB");
    browser.Do("artist Queen, tick song Bicycle Race");
    EXPECT_EQ(browser.Message(), "Selected: 2 KB of 15 KB");
    EXPECT_EQ(browser.Form.prgCopy.Max(), 15360.0F);
    EXPECT_EQ(browser.Form.prgCopy.Value(), 2048.0F);
}

TEST(SelectionSummary, SizesAreSummedPastThirtyTwoBits) {
    BrowserFixture browser(R"(
Abba
  Films
    One | 1 | 2147483647 | video
    Two | 2 | 2147483647 | video
    Three | 3 | 2147483647 | video
)");
    browser.Do("tick artist All");
    EXPECT_EQ(browser.Summary.SelectedSize, 6442450941.0);
    EXPECT_EQ(browser.Message(), "Selected: 5.99 GB of 5.99 GB");
}

TEST(SelectionSummary, WhatASearchOrAFilterHidesStillCounts) {
    const struct {
        const char* Steps;
        const char* Message;
    } cases[] = {
        {"tick artist All, type jazz", "Selected: 15 KB of 15 KB"},
        {"tick artist All, type jazz, untick song Bicycle Race", "Selected: 13 KB of 15 KB"},
        {"tick artist All, type jazz, untick song Bicycle Race, untick song Mustapha",
         "Selected: 12 KB of 15 KB"},
        {"tick artist Abba, type queen, tick song Mustapha", "Selected: 13 KB of 15 KB"},
        {"tick artist Abba, type queen, tick song Mustapha, clear", "Selected: 13 KB of 15 KB"},
        {"tick artist Abba, type queen, tick song Mustapha, clear, tick song Bicycle Race",
         "Selected: 15 KB of 15 KB"},
        {"tick artist Abba, tab Video, untick song Film", "Selected: 4 KB of 15 KB"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Steps);
        BrowserFixture browser(FourSizes);
        browser.Do(each.Steps);
        EXPECT_EQ(browser.Message(), each.Message);
    }
}

TEST(SelectionSummary, TheBaselineIsTheResultsCheckedSizeAndMovesWithEveryTick) {
    BrowserFixture browser(FourSizes);
    browser.Do("tick artist All, type money");
    EXPECT_EQ(browser.Summary.SearchBaseSize, 4096);
    browser.Do("untick song Money");
    EXPECT_EQ(browser.Summary.SearchBaseSize, 0);
    browser.Do("tick song Money, type jazz");
    EXPECT_EQ(browser.Summary.SearchBaseSize, 3072);
    EXPECT_EQ(browser.Summary.SelectedSize, 15360);
}

TEST(SelectionSummary, TheSearchesBaselineNeverChangesTheShownSelectedSize) {
    BrowserFixture browser(FourSizes);
    browser.Do("tick artist Abba");
    browser.Library.Artists[0].Albums[0].Tracks[0].Checked = true;
    browser.Summary.CalculateSize(true);
    EXPECT_EQ(browser.Summary.SelectedSize, 12288);
    EXPECT_EQ(browser.Summary.SearchBaseSize, 13312);
    EXPECT_EQ(browser.Message(), "Selected: 12 KB of 15 KB");
    EXPECT_EQ(browser.Form.prgCopy.Value(), 12288.0F);
}

TEST(SelectionSummary, WithoutASearchEveryCallCountsFromScratch) {
    BrowserFixture browser(FourSizes);
    browser.Summary.SelectedSize = 99;
    browser.Summary.SearchBaseSize = 77;
    browser.Summary.CalculateSize(false);
    EXPECT_EQ(browser.Summary.SelectedSize, 0);
    EXPECT_EQ(browser.Summary.SearchBaseSize, 77);
}

TEST(SelectionSummary, TheSizesOfAnEarlierLibraryAreForgotten) {
    BrowserFixture browser(FourSizes);
    browser.Do("tick artist Abba, type film");
    browser.Load({});
    EXPECT_EQ(browser.Summary.SelectedSize, 0);
    EXPECT_EQ(browser.Summary.SearchBaseSize, 0);
    EXPECT_EQ(browser.Form.prgCopy.Value(), 0);
}
