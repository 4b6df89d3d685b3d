#pragma once

#include "tests/library/LoadingWindow.h"
#include "tests/support/SqliteLibraryWriter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// A window on fakes that loads the SQLite library of an iPod at E:, whose two files lie in a real
/// folder.
class SqliteDevice : public LoadingWindow {
protected:
    QTemporaryDir Folder;

    SqliteDevice() { PutFilesInto(Folder.path()); }

    QString LibraryFile() const;
    QString LocationsFile() const;

    /// From now on the device's two files are those in `folder`.
    void PutFilesInto(const QString& folder) {
        m_folder = folder;
        PutSqliteLibrary(Files, folder);
    }

    void Write(const std::vector<SampleTrack>& tracks, const SqliteLibraryLayout& layout = {}) {
        WriteSqliteLibrary(LibraryFile(), LocationsFile(), tracks, layout);
    }
    void Load();
    void Load(const std::vector<SampleTrack>& tracks, const SqliteLibraryLayout& layout = {}) {
        Write(tracks, layout);
        Load();
    }
    /// Changes what Write has made.
    void InLibrary(const QString& sql) { RunSql(LibraryFile(), sql); }
    void InLocations(const QString& sql) { RunSql(LocationsFile(), sql); }

private:
    QString m_folder;
};
