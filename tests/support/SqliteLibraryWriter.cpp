#include "tests/support/SqliteLibraryWriter.h"

#include <QFile>
#include <QStringList>

#include <sqlite3.h>

#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Close>;

void Require(bool succeeded, sqlite3* database) {
    if (!succeeded) {
        throw std::runtime_error(sqlite3_errmsg(database));
    }
}

Database Open(const QString& file) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open(file.toUtf8().constData(), &opened);
    Database database(opened);
    Require(result == SQLITE_OK, opened);
    return database;
}

void Run(const Database& database, const QByteArray& sql) {
    const int result = sqlite3_exec(database.get(), sql.constData(), nullptr, nullptr, nullptr);
    Require(result == SQLITE_OK, database.get());
}

/// A statement that inserts one row at a time.
class Insert {
public:
    Insert(const Database& database, const char* sql) : m_database(database.get()) {
        sqlite3_stmt* statement = nullptr;
        const int result = sqlite3_prepare_v2(m_database, sql, -1, &statement, nullptr);
        m_statement.reset(statement);
        Require(result == SQLITE_OK, m_database);
    }

    Insert& Number(sqlite3_int64 value) {
        sqlite3_bind_int64(m_statement.get(), ++m_bound, value);
        return *this;
    }
    /// A null text is stored as NULL.
    Insert& Text(const QString& text) {
        const QByteArray bytes = text.toUtf8();
        sqlite3_bind_text(m_statement.get(), ++m_bound, text.isNull() ? nullptr : bytes.constData(),
                          int(bytes.size()), SQLITE_TRANSIENT);
        return *this;
    }
    void Run() {
        const int result = sqlite3_step(m_statement.get());
        Require(result == SQLITE_DONE, m_database);
        sqlite3_reset(m_statement.get());
        m_bound = 0;
    }

private:
    sqlite3* m_database;
    std::unique_ptr<sqlite3_stmt, Close> m_statement;
    int m_bound = 0;
};

const char* const LibraryTables =
    "Create Table item (pid INTEGER NOT NULL, media_kind INTEGER, date_added INTEGER, year "
    "INTEGER, content_rating INTEGER, is_compilation INTEGER, is_protected INTEGER, genre_id "
    "INTEGER, track_number INTEGER, track_count INTEGER, disc_number INTEGER, disc_count INTEGER, "
    "total_time_ms REAL, album_pid INTEGER, artist_pid INTEGER, title TEXT, artist TEXT, album "
    "TEXT, album_artist TEXT, composer TEXT, comment TEXT, Primary Key (pid))";

const char* const LocationTables =
    "Create Table base_location (id INTEGER NOT NULL, path TEXT, Primary Key (id));"
    "Create Table location (item_pid INTEGER NOT NULL, sub_id INTEGER NOT NULL Default 0, "
    "base_location_id INTEGER, location TEXT, extension INTEGER, kind_id INTEGER, date_created "
    "INTEGER, file_size INTEGER, Primary Key (item_pid, sub_id))";

const char* const KindTable =
    "Create Table location_kind_map (id INTEGER NOT NULL, kind TEXT, Primary Key (id))";

/// Persistent ids are random 64-bit numbers, half of them negative.
sqlite3_int64 PersistentId(size_t track) {
    return sqlite3_int64((quint64(track) + 1) * 0x9E3779B97F4A7C15ULL);
}

QString Stored(const QString& text, const SqliteLibraryLayout& layout) {
    if (!text.isEmpty()) {
        return text;
    }
    return layout.EmptyAsNull ? QString() : u""_s;
}

void WriteItems(const Database& library, const std::vector<SampleTrack>& tracks,
                const SqliteLibraryLayout& layout) {
    Run(library, LibraryTables);
    Insert insert(library, "Insert Into item (pid, media_kind, year, track_number, total_time_ms, "
                           "title, artist, album) Values (?, 1, 2004, ?, 215000.0, ?, ?, ?)");
    for (size_t i = 0; i < tracks.size(); ++i) {
        const SampleTrack& track = tracks[i];
        insert.Number(PersistentId(i))
            .Number(track.TrackNumber)
            .Text(Stored(track.Title, layout))
            .Text(Stored(track.Artist, layout))
            .Text(Stored(track.Album, layout))
            .Run();
    }
}

QStringList WriteKinds(const Database& database, const std::vector<SampleTrack>& tracks) {
    QStringList kinds;
    for (const SampleTrack& track : tracks) {
        if (!kinds.contains(track.TypeText)) {
            kinds += track.TypeText;
        }
    }
    Run(database, KindTable);
    Insert insert(database, "Insert Into location_kind_map (id, kind) Values (?, ?)");
    for (qsizetype i = 0; i < kinds.size(); ++i) {
        insert.Number(i + 1).Text(kinds[i]).Run();
    }
    return kinds;
}

void WriteLocations(const Database& locations, const std::vector<SampleTrack>& tracks,
                    const QStringList& kinds, const SqliteLibraryLayout& layout) {
    Run(locations, LocationTables);
    Insert(locations, "Insert Into base_location (id, path) Values (1, ?)")
        .Text(layout.BaseFolder.isEmpty() ? u"iPod_Control/Music"_s : layout.BaseFolder)
        .Run();
    Insert insert(locations, "Insert Into location (item_pid, base_location_id, location, kind_id, "
                             "file_size) Values (?, 1, ?, ?, ?)");
    for (size_t i = 0; i < tracks.size(); ++i) {
        const SampleTrack& track = tracks[i];
        insert.Number(PersistentId(i))
            .Text(track.Location)
            .Number(kinds.indexOf(track.TypeText) + 1)
            .Number(track.FileSize)
            .Run();
    }
}

} // namespace

void WriteSqliteLibrary(const QString& libraryFile, const QString& locationsFile,
                        const std::vector<SampleTrack>& tracks, const SqliteLibraryLayout& layout) {
    QFile::remove(libraryFile);
    QFile::remove(locationsFile);
    const Database library = Open(libraryFile);
    const Database locations = Open(locationsFile);
    Run(library, "Begin");
    Run(locations, "Begin");
    WriteItems(library, tracks, layout);
    const QStringList kinds = WriteKinds(layout.KindsInLibrary ? library : locations, tracks);
    WriteLocations(locations, tracks, kinds, layout);
    Run(library, "Commit");
    Run(locations, "Commit");
}

void RunSql(const QString& file, const QString& sql) {
    Run(Open(file), sql.toUtf8());
}
