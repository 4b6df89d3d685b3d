#include "library/SqliteLibraryReader.h"

#include "library/LoadMusic.h"
#include "library/SqliteDatabase.h"
#include "platform/ScopeGuard.h"

#include <QStringBuilder>

#include <atomic>
#include <exception>
#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// Many times the length of all paths of the largest library. Every path begins with the base path,
/// so a long one could turn a small file into gigabytes.
constexpr qint64 MaxLocationBytes = 256 << 20;

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

/// The kinds that the file-type texts stand for, in the order of their ids, after one for the empty
/// text; none at all if the device has no such texts.
std::vector<Kind> ReadKinds(SqliteDatabase& database) {
    const SqliteRows texts = database.Query("Select kind From location_kind_map Order By id");
    std::vector<Kind> kinds;
    if (texts.RowCount() > 0) {
        kinds.resize(texts.RowCount() + 1);
    }
    for (qsizetype row = 0; row < texts.RowCount(); ++row) {
        kinds[row + 1] = KindFromTypeText(texts.Text(row, 0));
    }
    return kinds;
}

QString WithBackslashes(QString path) {
    return path.replace(u'/', u'\\');
}

/// The folder of the media files, with a separator at its end.
QString ReadBasePath(SqliteDatabase& database, const QString& driveRoot) {
    const SqliteRows locations = database.Query("Select * From base_location");
    const QString base = WithBackslashes(locations.Text(0, 1));
    return driveRoot + u'\\' + base + u'\\';
}

/// What was read from a device's two databases.
struct DeviceRows {
    std::vector<Kind> Kinds;
    QString BasePath;
    SqliteRows Tracks;
    /// The failure after which further tracks are missing; null if there was none.
    std::exception_ptr Failure;
};

/// The databases are closed at the end, so that SQLite's cache is freed before the library is
/// built. `partRead` is kept up to date meanwhile.
DeviceRows ReadDevice(FileSystem& files, const QString& driveRoot, std::atomic<float>& partRead) {
    SqliteDatabase database(NativeFile(files, DevicePaths::LibraryDatabase(driveRoot)));
    database.Attach(NativeFile(files, DevicePaths::LocationsDatabase(driveRoot)), u"main2"_s);
    DeviceRows device;
    device.Kinds = ReadKinds(database);
    device.BasePath = ReadBasePath(database, driveRoot);
    // The number of rows is needed before the first one is shown. Sorting makes SQLite work through
    // all of them before the first anyway, so keeping them costs less than counting them
    // separately.
    const char* tracks =
        "Select item.title, item.artist, item.album, item.track_number, location.file_size, "
        "location.location, location.kind_id From location Inner Join item On location.item_pid = "
        "item.pid Order By item.artist, item.album";
    database.PartRead = [&partRead](float part) { partRead = part; };
    try {
        database.Query(tracks, device.Tracks);
    } catch (...) {
        if (device.Tracks.RowCount() == 0) {
            throw;
        }
        device.Failure = std::current_exception(); // reported once the rows before it are loaded
    }
    return device;
}

/// Adds the rows of the tracks to the library. They come sorted, so that each group's rows follow
/// each other; a new group begins where the name changes, whatever its case.
class RowGrouping {
public:
    RowGrouping(const DeviceRows& device, MusicLibrary& library)
        : m_rows(device.Tracks), m_kinds(device.Kinds), m_basePath(device.BasePath),
          m_library(library) {}

    /// Throws, and adds nothing, when the row makes no track, the library is full or memory runs
    /// out.
    void Add(qsizetype row);

private:
    TrackRecord ReadTrack(qsizetype row) const;
    Kind KindOf(qsizetype row) const;
    QString NameAt(qsizetype row, Column column) const;
    bool BeginsArtist(qsizetype row) const;
    bool BeginsAlbum(qsizetype row) const;

    const SqliteRows& m_rows;
    const std::vector<Kind>& m_kinds;
    const QString& m_basePath;
    MusicLibrary& m_library;
    qint64 m_locationBytes = 0;
};

void RowGrouping::Add(qsizetype row) {
    TrackRecord track = ReadTrack(row);
    const qint32 fileSize = track.FileSize;
    m_locationBytes += track.Location.size() * qsizetype(sizeof(QChar));
    if (m_locationBytes > MaxLocationBytes) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    if (m_library.TrackCount == std::numeric_limits<qint16>::max()) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    if (BeginsArtist(row)) {
        ArtistRecord artist;
        artist.Name = NameAt(row, Artist);
        AlbumRecord& album = artist.Albums.emplace_back();
        album.Name = NameAt(row, Album);
        album.Tracks.push_back(std::move(track));
        if (m_library.TrackCount < 1) {
            m_library.Artists.back() = std::move(artist); // in place of the blank one
        } else {
            m_library.Artists.push_back(std::move(artist));
        }
    } else if (BeginsAlbum(row)) {
        AlbumRecord album;
        album.Name = NameAt(row, Album);
        album.Tracks.push_back(std::move(track));
        m_library.Artists.back().Albums.push_back(std::move(album));
    } else {
        m_library.Artists.back().Albums.back().Tracks.push_back(std::move(track));
    }
    m_library.CountTrack(fileSize);
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

bool RowGrouping::BeginsArtist(qsizetype row) const {
    if (m_library.TrackCount < 1) {
        return true;
    }
    return !m_rows.IsRepeated(row, Artist) &&
           m_library.Artists.back().Name.toLower() != NameAt(row, Artist).toLower();
}

bool RowGrouping::BeginsAlbum(qsizetype row) const {
    return !m_rows.IsRepeated(row, Album) &&
           m_library.Artists.back().Albums.back().Name.toLower() != NameAt(row, Album).toLower();
}

/// Reads the device, and shows the progress.
std::shared_ptr<const DeviceRows> WaitForDevice(PatientFileSystem& files, const QString& driveRoot,
                                                LoadProgress& progress) {
    const auto read = std::make_shared<DeviceRows>();
    const auto partRead = std::make_shared<std::atomic<float>>(0.0F);
    const auto mayGoOn = files.MayGoOn;
    const ScopeGuard waited([&] { files.MayGoOn = mayGoOn; });
    files.MayGoOn = [&] {
        progress.ShowPartRead(*partRead);
        return mayGoOn();
    };
    files.Do([read, driveRoot, partRead](FileSystem& device) {
        *read = ReadDevice(device, driveRoot, *partRead);
    });
    return read;
}

} // namespace

void ReadSQLiteLibrary(PatientFileSystem& files, const QString& driveRoot, MusicLibrary& library,
                       LoadProgress& progress) {
    const auto read = WaitForDevice(files, driveRoot, progress);
    const DeviceRows& device = *read;
    progress.SetTotal(device.Tracks.RowCount());

    library.Artists.assign(1, ArtistRecord());
    library.Artists.back().Albums.emplace_back().Tracks.emplace_back();
    RowGrouping grouping(device, library);
    for (qsizetype row = 0; row < device.Tracks.RowCount(); ++row) {
        grouping.Add(row);
        progress.TrackLoaded();
    }
    if (device.Failure) {
        std::rethrow_exception(device.Failure);
    }
}
