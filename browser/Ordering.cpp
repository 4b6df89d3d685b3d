#include "browser/Ordering.h"

#include "browser/SortedOrder.h"

#include <algorithm>
#include <numeric>

namespace {

SongTables EmptySongTables() {
    return {RowTable(1), RowTable(1)};
}

const AlbumRecord& AlbumAt(const MusicLibrary& library, const AlbumTables& albums,
                           qint32 albumRow) {
    const ArtistRecord& artist = library.Artists.at(albums.AlbumRowArtist.at(albumRow));
    return artist.Albums.at(albums.AlbumRowAlbum.at(albumRow));
}

void AppendTracks(SongTables& songs, const std::vector<TrackRecord>& tracks, qint32 albumRow) {
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
    songs.SongRowTrack.insert(songs.SongRowTrack.end(), order.begin(), order.end());
    songs.SongRowAlbumRow.insert(songs.SongRowAlbumRow.end(), order.size(), albumRow);
}

} // namespace

AlbumTables SortAlbums(const MusicLibrary& library, bool All, qint32 Artist) {
    struct Row {
        QString Key;
        qint32 Artist, Album;
    };
    std::vector<Row> rows;
    const qint32 first = All ? 0 : Artist;
    const qint32 end = All ? static_cast<qint32>(library.Artists.size()) : Artist + 1;
    for (qint32 artist = first; artist < end; ++artist) {
        qint32 index = 0;
        for (const AlbumRecord& album : library.Artists.at(artist).Albums) {
            rows.push_back({album.Name.toLower(), artist, index++});
        }
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Row& left, const Row& right) { return left.Key < right.Key; });

    AlbumTables albums{RowTable(1), RowTable(1)};
    for (const Row& row : rows) {
        albums.AlbumRowArtist.push_back(row.Artist);
        albums.AlbumRowAlbum.push_back(row.Album);
    }
    return albums;
}

SongTables SortTracks(const MusicLibrary& library, const AlbumTables& albums, bool AllAlbums,
                      qint32 AlbumListIndex) {
    SongTables songs = EmptySongTables();
    const auto count = static_cast<qint32>(albums.AlbumRowAlbum.size());
    const qint32 first = AllAlbums ? 1 : AlbumListIndex;
    const qint32 end = AllAlbums ? count : AlbumListIndex + 1;
    for (qint32 row = first; row < end; ++row) {
        AppendTracks(songs, AlbumAt(library, albums, row).Tracks, row);
    }
    return songs;
}

SongTables SortTracks5(const MusicLibrary& library, const AlbumTables& albums) {
    RowTable tracks, albumRows;
    std::vector<const QString*> titles;
    for (qint32 row = 1; row < static_cast<qint32>(albums.AlbumRowAlbum.size()); ++row) {
        qint32 index = 0;
        for (const TrackRecord& track : AlbumAt(library, albums, row).Tracks) {
            tracks.push_back(index++);
            albumRows.push_back(row);
            titles.push_back(&track.Title);
        }
    }

    SongTables songs = EmptySongTables();
    songs.SongRowTrack.reserve(titles.size() + 1);
    songs.SongRowAlbumRow.reserve(titles.size() + 1);
    for (const qint32 position : SortedOrder(titles, 1)) {
        songs.SongRowTrack.push_back(tracks[position]);
        songs.SongRowAlbumRow.push_back(albumRows[position]);
    }
    return songs;
}
