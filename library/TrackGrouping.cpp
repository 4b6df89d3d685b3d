#include "library/TrackGrouping.h"

#include "platform/RuntimeError.h"

#include <limits>
#include <utility>

namespace {

/// Mostly it is the name of the track before, and comparing costs less than sharing a text.
template <class Record>
void Rename(Record& record, const QString& name) {
    if (record.Name != name) {
        record.Name = name;
    }
}

} // namespace

void TrackGrouping::Add(TrackRecord&& track, const QString& artistName, const QString& albumName) {
    if (m_library.TrackCount == std::numeric_limits<qint16>::max()) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    if (m_library.TrackCount < 1) {
        m_library.Artists.clear();
    }
    try {
        Put(std::move(track), artistName, albumName);
    } catch (...) {
        DropEmptyGroups();
        throw;
    }
}

void TrackGrouping::Put(TrackRecord&& track, const QString& artistName, const QString& albumName) {
    m_artist = FindArtist(artistName);
    m_album = FindAlbum(albumName);
    ArtistRecord& artist = m_library.Artists[m_artist];
    AlbumRecord& album = artist.Albums[m_album];
    const qint32 fileSize = track.FileSize;
    album.Tracks.push_back(std::move(track));
    // From here on nothing fails.
    Rename(album, albumName);
    Rename(artist, artistName);
    m_library.CountTrack(fileSize);
}

/// Removes the artist and the album that were added for a track when memory ran out before the
/// track itself was. The load ends with that, so the tables of names may keep their entries.
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

template <class Record>
qsizetype TrackGrouping::FindOrAdd(GroupTable& groups, std::vector<Record>& records,
                                   const QString& name) {
    const QString key = name.toLower();
    const auto found = groups.find(key);
    if (found != groups.end()) {
        return found->second;
    }
    records.emplace_back();
    return groups.emplace(key, static_cast<qsizetype>(records.size()) - 1).first->second;
}
