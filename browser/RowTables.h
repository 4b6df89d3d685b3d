#pragma once

#include <QtGlobal>

#include <vector>

/// List row -> index. Both are 0-based; slot 0 belongs to a list's "All" row and holds 0.
using RowTable = std::vector<qint32>;

struct AlbumTables {
    /// Album row -> artist index, and album index within that artist.
    RowTable AlbumRowArtist, AlbumRowAlbum;
};

struct SongTables {
    /// Song row -> track index within the album, and album row.
    RowTable SongRowTrack, SongRowAlbumRow;
};

/// Which record each row of the three lists stands for.
struct RowTables {
    /// Artist row -> index into Artists.
    RowTable ArtistRows;
    AlbumTables Albums;
    SongTables Songs;
    /// The tables of all songs of the library, which take longest to build.
    SongTables AllSongsCache;
    /// AllSongsCache holds the songs of the library that is shown.
    bool AllSongsCached = false;
};
