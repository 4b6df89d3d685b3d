#pragma once

#include "tests/library/LibraryLines.h"

#include <gtest/gtest.h>

#include <ostream>

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

/// What holds for every library that holds tracks: no empty group and no empty name, TrackCount and
/// TotalSize are the number and the size of the tracks, and nothing is ticked.
void ExpectConsistent(const MusicLibrary& library);
