#include "selection/SelectionSummary.h"
#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

namespace {

constexpr double KB = 1024;
constexpr double MB = 1024 * KB;
constexpr double GB = 1024 * MB;

std::string Size(double bytes) {
    return GetSizeInText(bytes).toStdString();
}

/// 1 KB, 2 KB, 4 KB and 8 KB, so that a sum tells what is in it.
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

// ---- the size texts

TEST(SelectionSummary, SizesBelowAMegabyteAreWholeKilobytes) {
    EXPECT_EQ(Size(0), "0 KB");
    EXPECT_EQ(Size(1), "0 KB");
    EXPECT_EQ(Size(1023), "0 KB");
    EXPECT_EQ(Size(1024), "1 KB");
    EXPECT_EQ(Size(1536), "1 KB");
    EXPECT_EQ(Size(2047), "1 KB");
    EXPECT_EQ(Size(MB - 1), "1023 KB");
}

TEST(SelectionSummary, SizesBelowAGigabyteHaveOneDigitMadeOfWholeKilobytes) {
    EXPECT_EQ(Size(1048576), "1.0 MB");
    EXPECT_EQ(Size(1048576 + 524288), "1.5 MB");
    EXPECT_EQ(Size(MB + 102 * KB), "1.0 MB");
    EXPECT_EQ(Size(MB + 103 * KB), "1.1 MB");
    EXPECT_EQ(Size(MB + 103 * KB - 1), "1.0 MB");
    EXPECT_EQ(Size(GB - 1), "1023.9 MB");
}

TEST(SelectionSummary, OneGigabyteIsOnePointZero) {
    EXPECT_EQ(Size(1073741824), "1.0 GB");
    EXPECT_EQ(Size(GB + MB), "1.0 GB");
}

TEST(SelectionSummary, TheTwoDigitsOfAGigabyteAreNotPadded) {
    EXPECT_EQ(Size(GB + 50 * MB), "1.4 GB");
    EXPECT_EQ(Size(GB + 512 * MB), "1.50 GB");
    EXPECT_EQ(Size(GB + 103 * MB), "1.10 GB");
    EXPECT_EQ(Size(GB + 102 * MB), "1.9 GB");
    EXPECT_EQ(Size(2 * GB + 1023 * MB), "2.99 GB");
}

TEST(SelectionSummary, LargeSizesAreWrittenWithoutGrouping) {
    EXPECT_EQ(Size(1024 * GB), "1024.0 GB");
    EXPECT_EQ(Size(32767.0 * 2147483647.0), "65533.99 GB");
}

TEST(SelectionSummary, ANegativeSizeWithoutMegabytesIsInKilobytes) {
    EXPECT_EQ(Size(-GB), "0 KB");
}

// ---- the count and the summary

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

TEST(SelectionSummary, TheSummaryShowsTheSelectedOfTheTotalAndTheBarTheSame) {
    BrowserFixture browser(FourSizes);
    EXPECT_EQ(browser.Message(), "Selected: 0 KB of 15 KB");
    browser.Click(browser.lstArtists, "Queen");
    browser.Tick(browser.lstSongs, "Bicycle Race");
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
    browser.Tick(browser.lstArtists, "All");
    EXPECT_EQ(browser.Summary.SelectedSize, 6442450941.0);
    EXPECT_EQ(browser.Message(), "Selected: 5.99 GB of 5.99 GB");
}

TEST(SelectionSummary, UncheckingAVisibleTrackInASearchLeavesTheHiddenOnesCounted) {
    BrowserFixture browser(FourSizes);
    browser.Tick(browser.lstArtists, "All");
    EXPECT_EQ(browser.Message(), "Selected: 15 KB of 15 KB");
    browser.Type("jazz");
    EXPECT_EQ(browser.Message(), "Selected: 15 KB of 15 KB");
    browser.Untick(browser.lstSongs, "Bicycle Race");
    EXPECT_EQ(browser.Message(), "Selected: 13 KB of 15 KB");
    browser.Untick(browser.lstSongs, "Mustapha");
    EXPECT_EQ(browser.Message(), "Selected: 12 KB of 15 KB");
    EXPECT_EQ(browser.Summary.SelectedSize, 12288);
    EXPECT_EQ(browser.Form.prgCopy.Value(), 12288.0F);
}

TEST(SelectionSummary, TickingInASearchAddsToWhatWasSelected) {
    BrowserFixture browser(FourSizes);
    browser.Tick(browser.lstArtists, "Abba");
    browser.Type("queen");
    browser.Tick(browser.lstSongs, "Mustapha");
    EXPECT_EQ(browser.Message(), "Selected: 13 KB of 15 KB");
    browser.Form.cmdClear.UserPress();
    EXPECT_EQ(browser.Message(), "Selected: 13 KB of 15 KB");
    browser.Tick(browser.lstSongs, "Bicycle Race");
    EXPECT_EQ(browser.Message(), "Selected: 15 KB of 15 KB");
}

TEST(SelectionSummary, TheSearchesBaselineNeverChangesTheShownSelectedSize) {
    BrowserFixture browser(FourSizes);
    browser.Tick(browser.lstArtists, "Abba");
    browser.Library.Artists[0].Albums[0].Tracks[0].Checked = true;
    browser.Summary.CalculateSize(true);
    EXPECT_EQ(browser.Summary.SelectedSize, 12288);
    EXPECT_EQ(browser.Summary.SearchBaseSize, 13312);
    EXPECT_EQ(browser.Message(), "Selected: 12 KB of 15 KB");
    EXPECT_EQ(browser.Form.prgCopy.Value(), 12288.0F);
}

TEST(SelectionSummary, TheBaselineIsTheResultsCheckedSizeAndMovesWithEveryTick) {
    BrowserFixture browser(FourSizes);
    browser.Tick(browser.lstArtists, "All");
    browser.Type("money");
    EXPECT_EQ(browser.Summary.SearchBaseSize, 4096);
    browser.Untick(browser.lstSongs, "Money");
    EXPECT_EQ(browser.Summary.SearchBaseSize, 0);
    browser.Tick(browser.lstSongs, "Money");
    EXPECT_EQ(browser.Summary.SearchBaseSize, 4096);
    EXPECT_EQ(browser.Summary.SelectedSize, 15360);
    browser.Type("jazz");
    EXPECT_EQ(browser.Summary.SearchBaseSize, 3072);
    EXPECT_EQ(browser.Summary.SelectedSize, 15360);
}

TEST(SelectionSummary, WithoutASearchEveryCallCountsFromScratch) {
    BrowserFixture browser(FourSizes);
    browser.Summary.SelectedSize = 99;
    browser.Summary.SearchBaseSize = 77;
    browser.Summary.CalculateSize(false);
    EXPECT_EQ(browser.Summary.SelectedSize, 0);
    EXPECT_EQ(browser.Summary.SearchBaseSize, 77);
}

TEST(SelectionSummary, ATrackHiddenByTheFilterTabStillCountsInTheSize) {
    BrowserFixture browser(FourSizes);
    browser.Tick(browser.lstArtists, "Abba");
    browser.ChooseTab("Video");
    browser.Untick(browser.lstSongs, "Film");
    EXPECT_EQ(browser.Message(), "Selected: 4 KB of 15 KB"); // Money
}

TEST(SelectionSummary, TheCountAsksNoFilterTab) {
    BrowserFixture browser(FourSizes);
    browser.Tick(browser.lstArtists, "All");
    browser.Filter.ShowNoDevice();
    browser.ChooseTab("Video");
    EXPECT_EQ(browser.Summary.GetSelSongCount(), 4);
    browser.Summary.CalculateSize(false);
    EXPECT_EQ(browser.Summary.SelectedSize, 15360);
}
