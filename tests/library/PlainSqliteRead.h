#pragma once

#include "library/MusicLibrary.h"

/// The SQLite reader's steps written as plainly as can be, with an index for each of the artist,
/// the album and the track, and none of the reader's limits: only for what the reader has read
/// without an error.
struct PlainSqliteRead {
    /// Reads the two files for a drive E:.
    PlainSqliteRead(const QString& libraryFile, const QString& locationsFile);

    MusicLibrary Library;
    /// Why it could not be read; empty when it could.
    QString Error;
};
