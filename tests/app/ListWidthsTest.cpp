#include "app/ListWidths.h"

#include <gtest/gtest.h>

// 15 twips to the pixel: the floor of 21 pixels is 315 twips, the limit of a giver 300 twips.

TEST(ListWidths, ARescaleKeepsTheRatio) {
    ListWidths widths{1000, 2000, 3000};
    widths.Rescale(3000);
    EXPECT_FLOAT_EQ(widths.Artists, 500);
    EXPECT_FLOAT_EQ(widths.Albums, 1000);
    EXPECT_FLOAT_EQ(widths.Songs, 1500);
}

TEST(ListWidths, BothNeighboursGiveHalfWhenBothStayAboveTheLimit) {
    ListWidths widths{1000, 1000, 215};
    widths.RaiseToFloor(15);
    EXPECT_FLOAT_EQ(widths.Songs, 315);
    EXPECT_FLOAT_EQ(widths.Artists, 950);
    EXPECT_FLOAT_EQ(widths.Albums, 950);
}

TEST(ListWidths, TheFirstNeighbourGivesAllWhenTheSecondCannotGiveHalf) {
    ListWidths widths{1000, 330, 215};
    widths.RaiseToFloor(15);
    EXPECT_FLOAT_EQ(widths.Songs, 315);
    EXPECT_FLOAT_EQ(widths.Artists, 900);
    EXPECT_FLOAT_EQ(widths.Albums, 330);
}

TEST(ListWidths, ANeighbourThatWouldEndExactlyAtTwentyPixelsDoesNotGive) {
    ListWidths widths{350, 1000, 215}; // half of 100 leaves the artists exactly 300
    widths.RaiseToFloor(15);
    EXPECT_FLOAT_EQ(widths.Songs, 315);
    EXPECT_FLOAT_EQ(widths.Artists, 350);
    EXPECT_FLOAT_EQ(widths.Albums, 900);
}

TEST(ListWidths, TheFloorWinsOverTheWindowsWidthWhenNobodyCanGive) {
    ListWidths widths{320, 320, 100};
    widths.RaiseToFloor(15);
    EXPECT_FLOAT_EQ(widths.Songs, 315);
    EXPECT_FLOAT_EQ(widths.Artists, 320);
    EXPECT_FLOAT_EQ(widths.Albums, 320);
}

TEST(ListWidths, TheArtistsAskTheSongsFirst) {
    ListWidths widths{215, 330, 1000};
    widths.RaiseToFloor(15);
    EXPECT_FLOAT_EQ(widths.Artists, 315);
    EXPECT_FLOAT_EQ(widths.Songs, 900);
    EXPECT_FLOAT_EQ(widths.Albums, 330);
}

TEST(ListWidths, TheSongsAreRaisedFirstThenTheArtistsThenTheAlbums) {
    // The songs have enough. The artists take their 110 from them; nobody is left for the albums.
    // Any other order of the three ends with other widths.
    ListWidths widths{205, 235, 415};
    widths.RaiseToFloor(15);
    EXPECT_FLOAT_EQ(widths.Artists, 315);
    EXPECT_FLOAT_EQ(widths.Albums, 315);
    EXPECT_FLOAT_EQ(widths.Songs, 305);
}

TEST(ListWidths, TheAlbumsAskTheSongsFirstThenTheArtists) {
    ListWidths widths{1000, 215, 330};
    widths.RaiseToFloor(15);
    EXPECT_FLOAT_EQ(widths.Albums, 315);
    EXPECT_FLOAT_EQ(widths.Songs, 330);
    EXPECT_FLOAT_EQ(widths.Artists, 900);
}
