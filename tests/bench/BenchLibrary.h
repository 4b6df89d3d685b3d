#pragma once

#include "tests/support/SampleTrack.h"

#include <vector>

/// A library of `count` tracks with names as people have them, some of them not Latin; the same for
/// the same count. About ten songs an album, three albums an artist.
std::vector<SampleTrack> MakeLibrary(int count);

/// Makes a device of that library at `folder`: its binary database, with `sqlite` its SQLite files
/// as well. No media files.
void MakeDevice(const QString& folder, const std::vector<SampleTrack>& tracks, bool sqlite);
