#pragma once

#include "library/MusicLibrary.h"

#include <QByteArray>

/// The reader's walk written as plainly as can be, byte by byte and with a scan over all groups for
/// each track: slow, and easy to check by eye.
struct PlainITunesDBWalk {
    /// Walks `bytes` for a drive E:.
    explicit PlainITunesDBWalk(const QByteArray& bytes);

    MusicLibrary Library;
    /// The number of the error that stopped the walk, 0 for none.
    int Error = 0;
};

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
