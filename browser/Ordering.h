#pragma once

#include "browser/BrowserState.h"

/// The orders of the album and song lists, as row tables. They differ on purpose: albums by name
/// and the songs of one album by number and title, both compared code unit by code unit; the songs
/// of several albums by title in the order of a sorted list box.
class Ordering {
public:
    Ordering(BrowserState& state, const MusicLibrary& library);

    /// Album rows of all artists, or of the artist with the 0-based index `Artist`. Albums of equal
    /// names keep the order of the library.
    void SortAlbums(bool All, qint32 Artist = 0);
    /// Song rows of one album row, by track number, then title, then position; with `AllAlbums` of
    /// every album row, album after album.
    void SortTracks(bool AllAlbums, qint32 AlbumListIndex = 0);
    /// Song rows of every album row, by title across the albums.
    void SortTracks5();

private:
    const AlbumRecord& Album(qint32 albumRow) const;
    void AppendTracks(qint32 albumRow);

    BrowserState& m_state;
    const MusicLibrary& m_library;
};
