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
