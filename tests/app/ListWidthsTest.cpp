#include "app/ListWidths.h"

#include <gtest/gtest.h>

namespace {

void ExpectWidths(const ListWidths& widths, const ListWidths& expected) {
    EXPECT_FLOAT_EQ(widths.Artists, expected.Artists);
    EXPECT_FLOAT_EQ(widths.Albums, expected.Albums);
    EXPECT_FLOAT_EQ(widths.Songs, expected.Songs);
}

} // namespace

TEST(ListWidths, ARescaleKeepsTheRatio) {
    ListWidths widths{1000, 2000, 3000};
    widths.Rescale(3000);
    ExpectWidths(widths, {500, 1000, 1500});
}

TEST(ListWidths, AListBelowItsFloorTakesFromTheOthers) {
    // 15 twips to the pixel: the floor of 21 pixels is 315 twips, the limit of a giver 300 twips.
    const struct {
        const char* Rule;
        ListWidths Before, After;
    } cases[] = {
        {"both give half", {1000, 1000, 215}, {950, 950, 315}},
        {"the first gives all when the second cannot", {1000, 330, 215}, {900, 330, 315}},
        {"nobody ends at exactly 20 pixels", {350, 1000, 215}, {350, 900, 315}},
        {"the floor wins over the window's width", {320, 320, 100}, {320, 320, 315}},
        {"the artists ask the songs first", {215, 330, 1000}, {315, 330, 900}},
        {"the albums ask the songs, then the artists", {1000, 215, 330}, {900, 315, 330}},
        // The songs have enough. The artists take their 110 from them; none is left to give to the
        // albums. Any other order of the three ends with other widths.
        {"songs, artists, albums", {205, 235, 415}, {315, 315, 305}},
    };
    for (const auto& [rule, before, after] : cases) {
        SCOPED_TRACE(rule);
        ListWidths widths = before;
        widths.RaiseToFloor(15);
        ExpectWidths(widths, after);
    }
}
