#pragma once

#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

/// Abba is artist 1 and row 1, Queen artist 0 and row 2. By number, Queen's albums stand the other
/// way round than by row, and so do the songs.
inline const char* const TwoArtists = R"(
Queen
  Jazz
    Mustapha | 1 | 1024
    Bicycle Race | 4 | 2048
  Innuendo
    Headlong | 5 | 4096
    Bijou | 11 | 8192
Abba
  Arrival
    Tiger | 2 | 16384
    Money | 1 | 32768
)";

inline const char* const AllOfQueen =
    "Queen, Queen/Jazz, Queen/Jazz/Mustapha, Queen/Jazz/Bicycle Race, "
    "Queen/Innuendo, Queen/Innuendo/Headlong, Queen/Innuendo/Bijou";
inline const char* const AllOfAbba = "Abba, Abba/Arrival, Abba/Arrival/Tiger, Abba/Arrival/Money";

class CheckPropagationFixture : public testing::Test {
protected:
    BrowserFixture browser{TwoArtists};
    FakeListControl& artists = browser.lstArtists;
    FakeListControl& albums = browser.lstAlbums;
    FakeListControl& songs = browser.lstSongs;

    std::string Checked() const { return CheckedRecords(browser.Library.Artists); }
};
