#pragma once

#include "library/LoadProgress.h"
#include "library/MusicLibrary.h"
#include "platform/EventLoop.h"
#include "platform/Messages.h"
#include "platform/PatientFileSystem.h"

#include <functional>

/// The services of the platform that a load, and the look for what can be loaded, use.
struct LoadServices {
    FileSystem& Files;
    /// Waits for the device.
    Worker& Background;
    EventLoop& Events;
    Messages& MessageBoxes;
};

/// Owns the library and loads it from a device. A load runs to its end with the user's input held
/// back, unless the user closes the window: then nothing counts as loaded. Progress is shown in the
/// window's label, bar and caption. A failure is shown in a message box; the tracks loaded before
/// it stay.
class LoadMusic {
public:
    LoadMusic(const LoadServices& services, const LoadControls& controls);

    MusicLibrary Library;

    /// Loads the binary database of the drive (`driveRoot` is its two-character text, as `E:`).
    void LoadITunesDB(const QString& driveRoot);
    /// Loads the SQLite library that newer devices keep beside the binary database.
    void LoadSQLiteLibrary(const QString& driveRoot);
    /// The last load has not come to its end.
    bool HasFailed() const { return m_hasFailed; }

private:
    bool Run(const std::function<bool()>& reader);

    PatientFileSystem m_files;
    EventLoop& m_events;
    Messages& m_messages;
    LoadControls m_controls;
    bool m_hasFailed = false;
};

/// Where a device keeps its databases, relative to the drive.
namespace DevicePaths {
QString ITunesDB(const QString& driveRoot);
QString LibraryDatabase(const QString& driveRoot);
QString LocationsDatabase(const QString& driveRoot);
} // namespace DevicePaths
