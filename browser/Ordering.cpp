#include "browser/Ordering.h"

#include "browser/SortedOrder.h"

#include <algorithm>
#include <numeric>

Ordering::Ordering(BrowserState& state, const MusicLibrary& library)
    : m_state(state), m_library(library) {
}

void Ordering::SortAlbums(bool All, qint32 Artist) {
    struct Row {
        QString Key;
        qint32 Artist, Album;
    };
    std::vector<Row> rows;
    const qint32 first = All ? 0 : Artist;
    const qint32 end = All ? static_cast<qint32>(m_library.Artists.size()) : Artist + 1;
    for (qint32 artist = first; artist < end; ++artist) {
        qint32 index = 0;
        for (const AlbumRecord& album : m_library.Artists.at(artist).Albums) {
            rows.push_back({album.Name.toLower(), artist, index++});
        }
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Row& left, const Row& right) { return left.Key < right.Key; });

    m_state.AlbumRowArtist.assign(1, 0);
    m_state.AlbumRowAlbum.assign(1, 0);
    for (const Row& row : rows) {
        m_state.AlbumRowArtist.push_back(row.Artist);
        m_state.AlbumRowAlbum.push_back(row.Album);
    }
}

void Ordering::SortTracks(bool AllAlbums, qint32 AlbumListIndex) {
    m_state.SongRowTrack.assign(1, 0);
    m_state.SongRowAlbumRow.assign(1, 0);
    if (!AllAlbums) {
        AppendTracks(AlbumListIndex);
        return;
    }
    for (qint32 row = 1; row < static_cast<qint32>(m_state.AlbumRowAlbum.size()); ++row) {
        AppendTracks(row);
    }
}

void Ordering::AppendTracks(qint32 albumRow) {
    const std::vector<TrackRecord>& tracks = Album(albumRow).Tracks;
    std::vector<QString> titles;
    titles.reserve(tracks.size());
    for (const TrackRecord& track : tracks) {
        titles.push_back(track.Title.toLower());
    }
    RowTable order(tracks.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](qint32 left, qint32 right) {
        const qint32 leftNumber = tracks[left].TrackNumber;
        const qint32 rightNumber = tracks[right].TrackNumber;
        return leftNumber != rightNumber ? leftNumber < rightNumber : titles[left] < titles[right];
    });

    m_state.SongRowTrack.insert(m_state.SongRowTrack.end(), order.begin(), order.end());
    m_state.SongRowAlbumRow.insert(m_state.SongRowAlbumRow.end(), order.size(), albumRow);
}

void Ordering::SortTracks5() {
    RowTable tracks, albumRows;
    std::vector<const QString*> titles;
    for (qint32 row = 1; row < static_cast<qint32>(m_state.AlbumRowAlbum.size()); ++row) {
        qint32 index = 0;
        for (const TrackRecord& track : Album(row).Tracks) {
            tracks.push_back(index++);
            albumRows.push_back(row);
            titles.push_back(&track.Title);
        }
    }

    m_state.SongRowTrack.assign(1, 0);
    m_state.SongRowAlbumRow.assign(1, 0);
    m_state.SongRowTrack.reserve(titles.size() + 1);
    m_state.SongRowAlbumRow.reserve(titles.size() + 1);
    for (const qint32 position : SortedOrder(titles, 1)) {
        m_state.SongRowTrack.push_back(tracks[position]);
        m_state.SongRowAlbumRow.push_back(albumRows[position]);
    }
}

const AlbumRecord& Ordering::Album(qint32 albumRow) const {
    const ArtistRecord& artist = m_library.Artists.at(m_state.AlbumRowArtist.at(albumRow));
    return artist.Albums.at(m_state.AlbumRowAlbum.at(albumRow));
}
