#pragma once

#include "browser/RowTables.h"
#include "library/MusicLibrary.h"

// The orders of the album and song lists, as row tables. They differ on purpose: albums by name and
// the songs of one album by number and title, both compared code unit by code unit; the songs of
// several albums by title in the order of a sorted list box.

/// Album rows of all artists, or of the artist with the 0-based index `Artist`. Albums of equal
/// names keep the order of the library.
AlbumTables SortAlbums(const MusicLibrary& library, bool All, qint32 Artist = 0);

/// Song rows of one album row, by track number, then title, then position; with `AllAlbums` of
/// every album row, album after album.
SongTables SortTracks(const MusicLibrary& library, const AlbumTables& albums, bool AllAlbums,
                      qint32 AlbumListIndex = 0);

/// Song rows of every album row, by title across the albums.
SongTables SortTracks5(const MusicLibrary& library, const AlbumTables& albums);
