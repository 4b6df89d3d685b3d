#pragma once

#include "library/LoadProgress.h"
#include "library/MusicLibrary.h"
#include "platform/FileSystem.h"

/// Loads the binary database of the drive (`driveRoot` is its two-character text, as `E:`) into
/// `library`, track by track. False when the database says that it lists no track: then nothing has
/// been loaded. Throws RuntimeError; the tracks loaded before it stay unless the file could not be
/// read.
bool ReadITunesDB(FileSystem& files, const QString& driveRoot, MusicLibrary& library,
                  LoadProgress& progress);
