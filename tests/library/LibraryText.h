#pragma once

#include "tests/fakes/Text.h"
#include "tests/library/LibraryLines.h"

#include <gtest/gtest.h>

/// How GoogleTest prints a kind that is not the expected one.
inline void PrintTo(Kind kind, std::ostream* out) {
    *out << int(kind);
}

inline void ExpectConsistent(const MusicLibrary& library) {
    EXPECT_EQ(WrongWithTracks(library), QString());
}
