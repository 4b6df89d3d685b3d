#pragma once

#include "library/LoadProgress.h"
#include "library/MusicLibrary.h"
#include "platform/PatientFileSystem.h"

/// Loads the SQLite library of the drive (`driveRoot` is its two-character text, as `E:`) into
/// `library`, track by track. Throws RuntimeError; the tracks loaded so far stay.
void ReadSQLiteLibrary(PatientFileSystem& files, const QString& driveRoot, MusicLibrary& library,
                       LoadProgress& progress);
