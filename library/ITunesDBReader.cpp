#include "library/ITunesDBReader.h"

#include "library/LoadMusic.h"
#include "platform/Numbers.h"

#include <QHashFunctions>
#include <QStringBuilder>
#include <QtEndian>

#include <cstring>
#include <limits>
#include <memory>
#include <string_view>
#include <unordered_map>

namespace {

/// The track that is being put together from its chunks.
struct PendingTrack {
    QString Title;
    QString Location;
    QString Album;
    QString Artist;
    qint32 TrackNumber = 0;
    qint32 FileSize = 0;
    ::Kind Kind = KindOther;
};

struct NameHash {
    size_t operator()(const QString& name) const { return qHash(name, QHashSeed::globalSeed()); }
};

/// Indices of groups by their lower-cased names. No QHash, which ends the program when it is out of
/// memory.
using GroupTable = std::unordered_map<QString, qsizetype, NameHash>;

template <class Record>
qsizetype FindOrAdd(GroupTable& groups, std::vector<Record>& records, const QString& name) {
    const QString key = name.toLower();
    const auto found = groups.find(key);
    if (found != groups.end()) {
        return found->second;
    }
    records.emplace_back();
    return groups.emplace(key, static_cast<qsizetype>(records.size()) - 1).first->second;
}

/// Adds tracks to the library, grouped by the lower-cased names of artist and album.
class TrackGrouping {
public:
    TrackGrouping(MusicLibrary& library, const QString& driveRoot)
        : m_library(library), m_driveRoot(driveRoot) {}

    /// Throws, and adds nothing, when the library is full (Overflow) or memory runs out.
    void Add(PendingTrack&& track);

private:
    void Put(TrackRecord&& record, QString artistName, QString albumName);
    void DropEmptyGroups();
    qsizetype FindArtist(const QString& name);
    qsizetype FindAlbum(const QString& name);

    MusicLibrary& m_library;
    const QString& m_driveRoot;
    // Tracks of one album mostly follow each other, so the last group is tried first. A group takes
    // over the spelling of its last track, but its lower-cased name, the key, never changes.
    qsizetype m_artist = -1;
    qsizetype m_album = -1;
    GroupTable m_artists;
    /// One table an artist.
    std::vector<GroupTable> m_albums;
};

void TrackGrouping::Add(PendingTrack&& track) {
    if (m_library.TrackCount == std::numeric_limits<qint16>::max()) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    TrackRecord record;
    track.Location.replace(QLatin1Char(':'), QLatin1Char('\\'));
    record.Location = m_driveRoot % track.Location;
    record.TrackNumber = track.TrackNumber;
    record.FileSize = track.FileSize;
    record.Kind = track.Kind;
    record.Title = track.Title.isEmpty() ? UnknownName() : track.Title;
    if (m_library.TrackCount < 1) {
        m_library.Artists.clear();
    }
    try {
        Put(std::move(record), track.Artist.isEmpty() ? UnknownName() : track.Artist,
            track.Album.isEmpty() ? UnknownName() : track.Album);
    } catch (...) {
        DropEmptyGroups();
        throw;
    }
}

void TrackGrouping::Put(TrackRecord&& record, QString artistName, QString albumName) {
    m_artist = FindArtist(artistName);
    m_album = FindAlbum(albumName);
    ArtistRecord& artist = m_library.Artists[m_artist];
    AlbumRecord& album = artist.Albums[m_album];
    const qint32 fileSize = record.FileSize;
    album.Tracks.push_back(std::move(record));
    // From here on nothing fails.
    m_library.TotalSize += fileSize;
    album.Name = std::move(albumName);
    artist.Name = std::move(artistName);
    ++m_library.TrackCount;
}

/// Takes away the artist and the album that were made for a track that then did not fit into the
/// memory. The load ends with it, so the tables of names need not follow.
void TrackGrouping::DropEmptyGroups() {
    std::vector<ArtistRecord>& artists = m_library.Artists;
    for (ArtistRecord& artist : artists) {
        if (!artist.Albums.empty() && artist.Albums.back().Tracks.empty()) {
            artist.Albums.pop_back();
        }
    }
    if (!artists.empty() && artists.back().Albums.empty()) {
        artists.pop_back();
    }
}

qsizetype TrackGrouping::FindArtist(const QString& name) {
    if (m_artist >= 0 && m_library.Artists[m_artist].Name == name) {
        return m_artist;
    }
    m_album = -1;
    const qsizetype artist = FindOrAdd(m_artists, m_library.Artists, name);
    m_albums.resize(m_library.Artists.size());
    return artist;
}

qsizetype TrackGrouping::FindAlbum(const QString& name) {
    std::vector<AlbumRecord>& albums = m_library.Artists[m_artist].Albums;
    if (m_album >= 0 && albums[m_album].Name == name) {
        return m_album;
    }
    return FindOrAdd(m_albums[m_artist], albums, name);
}

/// Walks the bytes of a database from tag to tag. Only the track list is understood; what is in
/// between, and chunks of unknown kinds and lengths, is passed over byte by byte.
class TrackListWalk {
public:
    /// `bytes` holds one more byte, 0, at `lastIndex`, which is the length of the file.
    TrackListWalk(const char* bytes, qint64 lastIndex, TrackGrouping& grouping,
                  LoadProgress& progress)
        : m_bytes(bytes), m_lastIndex(lastIndex), m_grouping(grouping), m_progress(progress) {}

    /// Finds the head of the track list. False when it says that the list is empty.
    bool FindTrackList();
    /// Adds the tracks from the head on; from the first byte on where there is no head.
    void Run();

private:
    /// The first "m" from `position` on, or the first position that is too near to the end of the
    /// bytes to hold a chunk.
    qint64 NextTag(qint64 position) const;
    bool IsTag(qint64 position, const char* tag) const;
    bool IsTextItem(qint64 position) const;
    qint32 LongAt(qint64 position) const;
    QString TextOf(qint64 item, qint32 length) const;
    void TakeItem(qint64 item, qint32 length);
    void CommitTrack();
    void OpenTrack(qint64 position);

    const char* m_bytes;
    qint64 m_lastIndex;
    TrackGrouping& m_grouping;
    LoadProgress& m_progress;
    qint64 m_start = 0;
    PendingTrack m_pending;
};

bool TrackListWalk::FindTrackList() {
    if (m_lastIndex < 12) {
        return true;
    }
    const std::string_view searched(m_bytes, static_cast<size_t>(m_lastIndex - 12 + 4));
    const size_t head = searched.find("mhlt");
    if (head == std::string_view::npos) {
        return true;
    }
    m_start = static_cast<qint64>(head);
    const qint32 trackCount = LongAt(m_start + 8);
    if (trackCount <= 0) {
        return false;
    }
    m_progress.SetTotal(trackCount);
    return true;
}

void TrackListWalk::Run() {
    bool noTrackPending = true;
    bool endOfList = false;
    qint64 position = m_start;
    while (true) {
        position = NextTag(position);
        if (position > m_lastIndex - 41 || IsTag(position, "mhsd")) {
            endOfList = true;
        }
        if (endOfList || IsTag(position, "mhit")) {
            if (noTrackPending) {
                noTrackPending = false;
            } else {
                CommitTrack();
                if (endOfList) {
                    return;
                }
            }
            OpenTrack(position); // fails at the end of the bytes, which ends a list without tracks
            position += 49;
        } else if (IsTextItem(position)) {
            const qint32 length = LongAt(position + 8);
            TakeItem(position, length);
            position += qMax(length, 1); // a damaged item of no length must not hold the walk up
        } else {
            ++position;
        }
    }
}

qint64 TrackListWalk::NextTag(qint64 position) const {
    const qint64 end = m_lastIndex - 40;
    if (position >= end) {
        return position;
    }
    const void* found = std::memchr(m_bytes + position, 'm', static_cast<size_t>(end - position));
    return found ? static_cast<const char*>(found) - m_bytes : end;
}

bool TrackListWalk::IsTag(qint64 position, const char* tag) const {
    return std::memcmp(m_bytes + position, tag, 4) == 0;
}

bool TrackListWalk::IsTextItem(qint64 position) const {
    if (!IsTag(position, "mhod")) {
        return false;
    }
    const char type = m_bytes[position + 12];
    return (type >= 1 && type <= 4) || type == 6;
}

qint32 TrackListWalk::LongAt(qint64 position) const {
    if (position + 3 > m_lastIndex) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    const auto* bytes = reinterpret_cast<const quint8*>(m_bytes + position);
    return BytesToLong(bytes[0], bytes[1], bytes[2], bytes[3]);
}

QString TrackListWalk::TextOf(qint64 item, qint32 length) const {
    // An odd length takes one more byte than the item has.
    const qint64 units = length > 40 ? (qint64(length) - 40 + 1) / 2 : 0;
    if (item + 40 + 2 * units - 1 > m_lastIndex) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    QString text(units, Qt::Uninitialized);
    qFromLittleEndian<quint16>(m_bytes + item + 40, units, text.data());
    return text;
}

void TrackListWalk::TakeItem(qint64 item, qint32 length) {
    const QString text = TextOf(item, length);
    switch (m_bytes[item + 12]) {
    case 1:
        m_pending.Title = text;
        break;
    case 2:
        m_pending.Location = text;
        break;
    case 3:
        m_pending.Album = text;
        break;
    case 4:
        m_pending.Artist = text;
        break;
    case 6:
        m_pending.Kind = KindFromTypeText(text);
        break;
    }
}

void TrackListWalk::CommitTrack() {
    m_grouping.Add(std::move(m_pending));
    m_pending = {};
    m_progress.TrackLoaded();
}

void TrackListWalk::OpenTrack(qint64 position) {
    m_pending.FileSize = LongAt(position + 36);
    m_pending.TrackNumber = LongAt(position + 44);
}

} // namespace

bool ReadITunesDB(FileSystem& files, const QString& driveRoot, MusicLibrary& library,
                  LoadProgress& progress) {
    const QString path = DevicePaths::ITunesDB(driveRoot);
    const qint32 length = ToLong(files.FileLength(path));
    const auto bytes = std::make_unique_for_overwrite<char[]>(static_cast<size_t>(length) + 1);
    files.OpenForReading(path)->Read(bytes.get(), length);
    bytes[length] = 0;

    TrackGrouping grouping(library, driveRoot);
    TrackListWalk walk(bytes.get(), length, grouping, progress);
    if (!walk.FindTrackList()) {
        return false;
    }
    walk.Run();
    return true;
}
