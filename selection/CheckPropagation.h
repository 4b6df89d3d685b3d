#pragma once

#include "selection/Search.h"

/// The lists whose check marks depend on each other.
struct CheckedListControls {
    ListControl& lstArtists;
    ListControl& lstAlbums;
    ListControl& lstSongs;
};

/// Keeps the check marks of the three lists and the Checked flags of the records in step: a change
/// goes down to everything beneath the row and up to its parents. A parent is ticked while at least
/// one of its children is; an "All" row exactly while every other row of its list is.
class CheckPropagation {
public:
    /// `search` shows the library again when a change fails half way.
    CheckPropagation(const Browser& browser, SelectionSummary& summary, Search& search,
                     const CheckedListControls& controls);

    void lstArtists_ItemCheck(int Item);
    void lstAlbums_ItemCheck(int Item);
    void lstSongs_ItemCheck(int Item);

private:
    template <class Propagate>
    void ChangeChecks(ListControl& raisedBy, Propagate propagate);
    void PropagateArtist(int Item);
    void PropagateAlbum(int Item);
    void PropagateSong(int Item);
    void RollUpSongs(int Item);
    /// Rolls the album list's state up into the artist list and the artist records.
    void UpdateArtistCheck(int AlbumRow);
    void UpdateOneArtist(int albumRow);

    MusicLibrary& m_library;
    LinkedLists& m_lists;
    ArtistList& m_artistList;
    SelectionSummary& m_summary;
    Search& m_search;
    CheckedListControls m_controls;
};
