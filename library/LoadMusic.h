#pragma once

#include "library/LoadProgress.h"
#include "library/MusicLibrary.h"
#include "platform/FileSystem.h"
#include "platform/Messages.h"

/// Owns the library and loads it from a device. A load runs to its end without yielding; it reports
/// its progress through the window's label, bar and caption, and a failure by a message box, after
/// which the tracks loaded so far stay.
class LoadMusic {
public:
    LoadMusic(FileSystem& files, Messages& messages, const LoadControls& controls);

    MusicLibrary Library;

    /// Loads the binary database of the drive (`driveRoot` is its two-character text, as `E:`).
    void LoadITunesDB(const QString& driveRoot);
    /// Loads the SQLite library that newer devices keep beside the binary database.
    void LoadSQLiteLibrary(const QString& driveRoot);

private:
    FileSystem& m_files;
    Messages& m_messages;
    LoadControls m_controls;
};

/// Where a device keeps its databases, relative to the drive.
namespace DevicePaths {
QString ITunesDB(const QString& driveRoot);
QString LibraryDatabase(const QString& driveRoot);
QString LocationsDatabase(const QString& driveRoot);
} // namespace DevicePaths
