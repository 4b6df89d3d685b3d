#pragma once

#include "tests/fakes/PrintText.h"
#include "tests/library/LibraryLines.h"

#include <gtest/gtest.h>

/// How GoogleTest prints a kind that is not the expected one.
inline void PrintTo(Kind kind, std::ostream* out) {
    *out << int(kind);
}

/// What holds for every library that holds tracks: no empty group and no empty name, TrackCount and
/// TotalSize are the number and the size of the tracks, and nothing is ticked.
void ExpectConsistent(const MusicLibrary& library);
