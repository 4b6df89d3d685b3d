#include "library/SqliteLibraryReader.h"

#include "library/LoadMusic.h"
#include "library/SqliteDatabase.h"

#include <QStringBuilder>

#include <algorithm>
#include <limits>

namespace {

/// The columns of the query for the tracks.
enum Column { Title, Artist, Album, TrackNumber, FileSize, Location, KindId };

/// The native path of a database on the device. It must be a regular file: SQLite would wait for
/// ever on a pipe of that name.
QString NativeFile(FileSystem& files, const QString& path) {
    if (!files.FileExists(path)) {
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    return files.NativePath(path);
}

/// The file-type texts, from index 1 on in the order of their ids; index 0 is empty. There is no
/// entry at all when the device knows no kinds.
std::vector<QString> ReadKindNames(SqliteDatabase& database) {
    const SqliteRows kinds = database.Query("Select kind From location_kind_map Order By id");
    std::vector<QString> kindNames;
    if (kinds.RowCount() > 0) {
        kindNames.resize(kinds.RowCount() + 1);
    }
    for (qsizetype row = 0; row < kinds.RowCount(); ++row) {
        kindNames[row + 1] = kinds.Text(row, 0);
    }
    return kindNames;
}

QString WithBackslashes(QString path) {
    return path.replace(QLatin1Char('/'), QLatin1Char('\\'));
}

/// The folder of the media files, with a separator at its end.
QString ReadBasePath(SqliteDatabase& database, const QString& driveRoot) {
    const SqliteRows locations = database.Query("Select * From base_location");
    const QString base = WithBackslashes(locations.Text(0, 1));
    return driveRoot + QLatin1Char('\\') + base + QLatin1Char('\\');
}

/// Adds the rows of the tracks to the library. They come sorted, so that each group's rows follow
/// each other; a new group begins where the name changes, whatever its case.
class RowGrouping {
public:
    RowGrouping(const SqliteRows& rows, const std::vector<QString>& kindNames,
                const QString& basePath, MusicLibrary& library);

    /// Throws, and adds nothing, when the row makes no track or the library is full.
    void Add(qsizetype row);

private:
    TrackRecord ReadTrack(qsizetype row) const;
    Kind KindOf(qsizetype row) const;
    QString NameAt(qsizetype row, Column column) const;
    void EnterArtist(qsizetype row);
    void EnterAlbum(qsizetype row);

    const SqliteRows& m_rows;
    /// The kinds of kindNames.
    std::vector<Kind> m_kinds;
    const QString& m_basePath;
    MusicLibrary& m_library;
    QString m_previousArtist;
    QString m_previousAlbum;
    size_t m_track = 0;
};

RowGrouping::RowGrouping(const SqliteRows& rows, const std::vector<QString>& kindNames,
                         const QString& basePath, MusicLibrary& library)
    : m_rows(rows), m_kinds(kindNames.size()), m_basePath(basePath), m_library(library) {
    std::transform(kindNames.begin(), kindNames.end(), m_kinds.begin(), KindFromTypeText);
}

void RowGrouping::Add(qsizetype row) {
    TrackRecord track = ReadTrack(row);
    if (m_library.TrackCount == std::numeric_limits<qint16>::max()) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    EnterArtist(row);
    EnterAlbum(row);
    std::vector<TrackRecord>& tracks = m_library.Artists.back().Albums.back().Tracks;
    if (m_track > 0) {
        tracks.emplace_back();
    }
    m_library.TotalSize += track.FileSize;
    tracks[m_track] = std::move(track);
    ++m_track;
    ++m_library.TrackCount;
}

TrackRecord RowGrouping::ReadTrack(qsizetype row) const {
    TrackRecord track;
    track.Title = NameAt(row, Title);
    track.Kind = KindOf(row);
    track.TrackNumber = m_rows.Long(row, TrackNumber);
    track.FileSize = m_rows.Long(row, FileSize);
    track.Location = m_basePath % WithBackslashes(m_rows.Text(row, Location));
    return track;
}

Kind RowGrouping::KindOf(qsizetype row) const {
    const qint32 kindId = m_rows.Long(row, KindId);
    if (kindId < 0 || kindId >= static_cast<qint64>(m_kinds.size())) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return m_kinds[kindId];
}

QString RowGrouping::NameAt(qsizetype row, Column column) const {
    QString name = m_rows.Text(row, column);
    return name.isEmpty() ? UnknownName() : name;
}

void RowGrouping::EnterArtist(qsizetype row) {
    if (m_rows.IsRepeated(row, Artist)) {
        return;
    }
    const QString artist = NameAt(row, Artist);
    if (m_previousArtist.toLower() == artist.toLower()) {
        return;
    }
    if (!m_previousArtist.isEmpty()) {
        m_track = 0;
        m_library.Artists.emplace_back().Albums.emplace_back().Tracks.emplace_back();
        m_previousAlbum.clear();
    }
    m_previousArtist = artist;
    m_library.Artists.back().Name = artist;
}

void RowGrouping::EnterAlbum(qsizetype row) {
    if (!m_previousAlbum.isEmpty() && m_rows.IsRepeated(row, Album)) {
        return;
    }
    const QString album = NameAt(row, Album);
    if (m_previousAlbum.toLower() == album.toLower()) {
        return;
    }
    std::vector<AlbumRecord>& albums = m_library.Artists.back().Albums;
    if (!m_previousAlbum.isEmpty()) {
        m_track = 0;
        albums.emplace_back().Tracks.emplace_back();
    }
    m_previousAlbum = album;
    albums.back().Name = album;
}

} // namespace

void ReadSQLiteLibrary(FileSystem& files, const QString& driveRoot, MusicLibrary& library,
                       LoadProgress& progress) {
    SqliteDatabase database(NativeFile(files, DevicePaths::LibraryDatabase(driveRoot)));
    database.Attach(NativeFile(files, DevicePaths::LocationsDatabase(driveRoot)),
                    QStringLiteral("main2"));
    const std::vector<QString> kindNames = ReadKindNames(database);
    const QString basePath = ReadBasePath(database, driveRoot);
    // The number of rows is needed before the first one is shown. Sorting makes SQLite work through
    // all of them before the first anyway, so keeping them costs less than counting them apart.
    const SqliteRows rows = database.Query(
        "Select item.title, item.artist, item.album, item.track_number, location.file_size, "
        "location.location, location.kind_id From location Inner Join item On location.item_pid = "
        "item.pid Order By item.artist, item.album");
    progress.SetTotal(rows.RowCount());

    library.Artists.assign(1, ArtistRecord());
    library.Artists.back().Albums.emplace_back().Tracks.emplace_back();
    RowGrouping grouping(rows, kindNames, basePath, library);
    for (qsizetype row = 0; row < rows.RowCount(); ++row) {
        grouping.Add(row);
        progress.TrackLoaded();
    }
}
