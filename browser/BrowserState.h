#pragma once

#include "library/MusicLibrary.h"

#include <array>

/// List row -> index tables. Slot 0 belongs to a list's "All" row and holds 0.
using RowTable = std::vector<qint32>;

/// What the three lists show and what the search needs to bring an earlier view back. Rows are
/// 0-based list rows, row 0 is a list's "All" row; indices are 0-based library indices.
struct BrowserState {
    /// Artist row -> index into Artists.
    RowTable ArtistRows;
    /// Album row -> artist index, and album index within that artist.
    RowTable AlbumRowArtist, AlbumRowAlbum;
    /// Song row -> album row, and track index within that album.
    RowTable SongRowAlbumRow, SongRowTrack;

    /// The song tables of all songs of the library, which are the slowest to build.
    struct SongTables {
        RowTable SongRowTrack, SongRowAlbumRow;
    };
    SongTables AllSongsCache;
    /// AllSongsCache holds the songs of the library that is shown.
    bool AllSongsCached = false;

    /// The full library while Artists holds a search result.
    std::vector<ArtistRecord> SavedArtists;
    /// The tables of the full library's view, taken when a search replaces it.
    struct Tables {
        RowTable AlbumRowAlbum, AlbumRowArtist, SongRowTrack, SongRowAlbumRow;
        SongTables AllSongsCache;
        bool AllSongsCached = false;
    };
    Tables SavedRows;

    /// Lists are being changed by code: every Click and ItemCheck handler returns at once.
    bool Building = false;
    /// The artist row whose albums are shown, the album row whose songs are shown; -1 none.
    qint16 LastArtistRow = -1;
    qint16 LastAlbumRow = -1;
    /// Forces the next artist (album) click to rebuild, even on the same row.
    bool RefreshAlbums = false;
    bool RefreshSongs = false;
    /// Rows are being put back: the click handlers neither remember rows nor go on to the next
    /// list.
    bool Restoring = false;

    /// Whether the current row was the "All" row, for artists, albums and songs.
    std::array<bool, 3> AllRowWasCurrent = {true, true, true};
    /// The records that were current, by their indices in the full library.
    struct Remembered {
        QString Artist; // the artist's index as decimal text
        qint32 AlbumArtist = 0, Album = 0;
        qint32 SongArtist = 0, SongAlbum = 0, Song = 0;
    };
    Remembered RememberedRows;

    /// A search or filter result stands in Artists instead of the full library.
    bool Search = false;
    /// A text search is in force.
    bool SearchingText = false;
    /// The text searched for.
    QString SearchString;
    /// The search is running.
    bool SearchRunning = false;
    /// The text changed while the search was running: it must start again.
    bool SearchPending = false;
    /// The shown result leaves out songs that are ticked; keeps cmdCopy enabled.
    bool CheckedHidden = false;
};
