#include "library/LoadMusic.h"

#include "library/ITunesDBReader.h"
#include "library/SqliteLibraryReader.h"
#include "platform/ScopeGuard.h"

#include <new>

using namespace Qt::StringLiterals;

LoadMusic::LoadMusic(const LoadServices& services, const LoadControls& controls)
    : m_files(services.Files, services.Background, services.Background), m_events(services.Events),
      m_messages(services.MessageBoxes), m_controls(controls) {
    m_files.MayGoOn = [this] { return m_events.YieldHoldingInput(); };
}

/// Runs a reader and shows the failure that stops it. False when the reader leaves the load open.
/// Exceptions that no reader is expected to throw pass on: the device must not count as loaded
/// then.
bool LoadMusic::Run(const std::function<bool()>& reader) {
    m_hasFailed = true;
    try {
        const bool hasEnded = reader();
        m_hasFailed = false;
        return hasEnded;
    } catch (const RuntimeError& error) {
        ShowError(m_messages, error);
    } catch (const std::bad_alloc& exception) {
        ShowError(m_messages, ErrorOf(exception));
    } catch (const OperationStopped&) {
        Library.ForgetTracks();
    }
    return true;
}

void LoadMusic::LoadITunesDB(const QString& driveRoot) {
    LoadProgress progress(Library, m_events, m_controls);
    ScopeGuard loading([&progress] { progress.End(); });
    progress.Start();
    // After an empty track list the load never ends: LoadingMusic and the message stay as they are.
    if (Run([&] { return ReadITunesDB(m_files, driveRoot, Library, progress); })) {
        loading.Run();
    } else {
        loading.Dismiss();
    }
}

void LoadMusic::LoadSQLiteLibrary(const QString& driveRoot) {
    LoadProgress progress(Library, m_events, m_controls);
    ScopeGuard loading([&progress] { progress.End(); });
    progress.Start();
    Run([&] {
        ReadSQLiteLibrary(m_files, driveRoot, Library, progress);
        return true;
    });
    loading.Run();
}

namespace DevicePaths {

QString ITunesDB(const QString& driveRoot) {
    return driveRoot + u"\\iPod_Control\\iTunes\\iTunesDB"_s;
}

QString LibraryDatabase(const QString& driveRoot) {
    return driveRoot + u"\\iPod_Control\\iTunes\\iTunes Library.itlp\\Library.itdb"_s;
}

QString LocationsDatabase(const QString& driveRoot) {
    return driveRoot + u"\\iPod_Control\\iTunes\\iTunes Library.itlp\\Locations.itdb"_s;
}

} // namespace DevicePaths
