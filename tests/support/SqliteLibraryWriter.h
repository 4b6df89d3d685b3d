#pragma once

#include "tests/support/SampleTrack.h"

#include <vector>

/// How the two SQLite files of a device are laid out.
struct SqliteLibraryLayout {
    /// The table of kinds lies in the library's file and not beside the locations.
    bool KindsInLibrary = false;
    /// Folder of the media files, from the drive's root; where it usually is when empty.
    QString BaseFolder = {};
    /// What an empty text is stored as.
    bool EmptyAsNull = true;
};

/// Writes the two SQLite files, in place of earlier ones. Throws std::runtime_error.
void WriteSqliteLibrary(const QString& libraryFile, const QString& locationsFile,
                        const std::vector<SampleTrack>& tracks,
                        const SqliteLibraryLayout& layout = {});

/// Runs SQL on a database file, which is made when it is missing. Throws std::runtime_error.
void RunSql(const QString& file, const QString& sql);
