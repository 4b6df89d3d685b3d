#pragma once

#include "app/ControlGroups.h"
#include "library/LoadMusic.h"
#include "tests/fakes/FakeFileSystem.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/library/LibraryText.h"
#include "tests/support/SqliteLibraryWriter.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// A window on fakes that loads the SQLite library of an iPod at E:, whose two files lie in a real
/// folder.
class SqliteDevice : public testing::Test {
protected:
    QTemporaryDir Folder;
    FakeForm1 Window;
    FakeMessages Boxes;
    FakeFileSystem Files;
    LoadMusic Music{Files, Boxes, LoadControlsOf(Window.Controls)};
    MusicLibrary& Library = Music.Library;

    SqliteDevice() { PutFilesInto(Folder.path()); }

    QString LibraryFile() const { return m_folder + QStringLiteral("/Library.itdb"); }
    QString LocationsFile() const { return m_folder + QStringLiteral("/Locations.itdb"); }

    /// From now on the device's two files are those in `folder`.
    void PutFilesInto(const QString& folder) {
        m_folder = folder;
        const QString onDevice = QStringLiteral("E:\\iPod_Control\\iTunes\\iTunes Library.itlp\\");
        for (const QString& name :
             {QStringLiteral("Library.itdb"), QStringLiteral("Locations.itdb")}) {
            Files.AddFile(onDevice + name, {});
            Files.SetNativePath(onDevice + name, folder + QLatin1Char('/') + name);
        }
    }

    void Write(const std::vector<SampleTrack>& tracks, const SqliteLibraryLayout& layout = {}) {
        WriteSqliteLibrary(LibraryFile(), LocationsFile(), tracks, layout);
    }
    void Load() {
        Boxes.Shown.clear();
        Music.LoadSQLiteLibrary(QStringLiteral("E:"));
    }
    void Load(const std::vector<SampleTrack>& tracks, const SqliteLibraryLayout& layout = {}) {
        Write(tracks, layout);
        Load();
    }
    /// Changes what Write has made.
    void InLibrary(const QString& sql) { RunSql(LibraryFile(), sql); }
    void InLocations(const QString& sql) { RunSql(LocationsFile(), sql); }

    void ExpectLoaded(const QStringList& lines) const {
        EXPECT_EQ(Lines(Library), lines);
        EXPECT_EQ(Boxes.Texts(), QStringList());
        ExpectConsistent(Library);
        ExpectEnded();
    }

    /// The load has ended with this error box, and with nothing else on the screen.
    void ExpectError(const QString& text) const {
        ASSERT_EQ(Boxes.Shown.size(), 1U);
        EXPECT_EQ(Boxes.Shown[0], (ShownMessage{text, QStringLiteral("Error"), MessageButtons::OK,
                                                MessageIcon::Critical}));
        ExpectEnded();
    }

    void ExpectEnded() const {
        EXPECT_FALSE(Library.LoadingMusic);
        EXPECT_EQ(Window.prgCopy.Value(), 0);
        EXPECT_EQ(Window.Form1.Caption(), QStringLiteral("Songlift"));
    }

private:
    QString m_folder;
};
