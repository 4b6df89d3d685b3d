#pragma once

#include "library/MusicLibrary.h"
#include "tests/fakes/RecordedFiles.h"

#include <QStringList>

/// One line a track, in library order: "artist | album | number title | size | kind | location".
QStringList Lines(const MusicLibrary& library);

/// What is wrong with a library of E: that holds tracks: an empty group or name, a place elsewhere,
/// a tick, or totals that are not those of the tracks. Empty when nothing is.
QString WrongWithTracks(const MusicLibrary& library);

/// Lets the SQLite library of an iPod at E: be the two files in `folder`.
void PutSqliteLibrary(RecordedFiles& files, const QString& folder);

/// A file's bytes. Both end the program when the file cannot be opened.
QByteArray ReadAll(const QString& path);
void WriteAll(const QString& path, const QByteArray& bytes);
