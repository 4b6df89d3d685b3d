#pragma once

#include "tools/sample-ipod/Catalogue.h"

#include <QString>

#include <stdexcept>
#include <utility>
#include <vector>

/// A track and the path its file is wanted at.
using WantedFile = std::pair<CatalogueTrack, QString>;

/// Makes playable files: tones, each track's a little higher than the one before, and test
/// pictures. Needs the program ffmpeg; throws std::runtime_error with what it said.
void MakePlayableFiles(const std::vector<WantedFile>& files);

/// Makes files of the tracks' StandInBytes whose bytes mean nothing and differ from file to file.
/// Those past 50,000,000 bytes hold their bytes in patches, with holes in between. Throws
/// std::runtime_error.
void MakeStandIns(const std::vector<WantedFile>& files);
