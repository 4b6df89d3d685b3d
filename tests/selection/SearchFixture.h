#pragma once

#include "tests/browser/BrowserFixture.h"

/// Abba is artist 2 and row 1, Blue River artist 0 and row 2, Queen artist 1 and row 3.
inline const char* const ThreeArtists = R"(
Blue River
  First
    Old Song | 2 | 1024
    Film | 1 | 2048 | video
  Second
    Stone | 1 | 4096
Queen
  Jazz
    Mustapha | 1 | 8192
    Bicycle Race | 4 | 16384
  River Jazz
    Notes | 3 | 32768 | other
    Let Me | 2 | 65536
    Dance | 1 | 131072 | video
Abba
  Arrival
    Tiger Song | 2 | 262144
    Money | 1 | 524288
)";

class SearchFixture : public BrowserTest {
protected:
    SearchFixture() : BrowserTest(ThreeArtists) {}

    void ExpectFullLibrary() {
        EXPECT_EQ(Texts(artists), "All (3 Artists), Abba, Blue River, Queen");
        EXPECT_TRUE(artists.Enabled() && albums.Enabled() && songs.Enabled());
        EXPECT_FALSE(browser.Result.Search());
        EXPECT_TRUE(browser.Result.SavedArtists().empty());
        EXPECT_FALSE(form.cmdClear.Enabled());
    }
};
