#pragma once

#include "browser/SearchResult.h"

#include <array>

/// The lists, and the button that is of use while something in them is ticked.
struct ArtistListControls {
    ListControl& lstArtists;
    ListControl& lstAlbums;
    ListControl& lstSongs;
    ButtonControl& cmdCopy;
};

/// Builds all three lists anew: for a library that was loaded, for a search result, and for the way
/// back to the full library, with the rows that were current.
class ArtistList {
public:
    ArtistList(MusicLibrary& library, LinkedLists& lists, SearchResult& result,
               const ArtistListControls& controls);

    /// Whether each list was to start on its "All" row when rows were last remembered: for artists,
    /// albums and songs.
    const std::array<bool, 3>& AllRowWasCurrent() const { return m_allRowWasCurrent; }

    /// Shows a library that has just been loaded; its first artist becomes current.
    void ShowLibrary();
    /// Makes the lists ready for the library of a device that has been chosen.
    void AwaitLibrary();
    /// Disables the lists, which that library left empty.
    void ShowNoMusic();
    /// Empties and disables the lists, and cmdCopy with them. Whatever fails, the rest is done.
    void ShowNoDevice();
    /// Gives the keyboard focus to the artists.
    void TakeFocus();
    /// Puts the full library and the rows from before the search back. With `NoFound` (the search
    /// found nothing) every list starts on its "All" row.
    void Clear(bool NoFound);
    /// The first half of Clear, for a search that goes on with its own result: nothing is shown.
    void PutLibraryBack(bool NoFound);
    /// The way out for a handler that failed with the lists half changed: the full library comes
    /// back with the marks that its tracks have, and the lists are empty.
    void RecoverLibrary();

    /// Remembers whether each list stands on its "All" row and which records the others stand on;
    /// with `allRows` all three count as standing on "All".
    void RememberRows(bool allRows);
    /// Fills the three lists from Artists and makes the remembered rows current; a list whose
    /// remembered record is not shown stays on its "All" row.
    void RebuildLists();
    /// Empties and disables the three lists: what says that a search found nothing.
    void ShowNothing();
    void EnableLists();
    /// Enables cmdCopy when something is ticked, be it hidden by a search.
    void EnableCopy();
    /// Forgets everything about a library that leaves.
    void ResetState();

private:
    void RestoreArtistRow();
    void RestoreAlbumRow();
    void RestoreSongRow();
    void RollUpMarks();

    /// The records that were current, by their indices in the full library.
    struct Remembered {
        qint32 Artist = 0;
        qint32 AlbumArtist = 0, Album = 0;
        qint32 SongArtist = 0, SongAlbum = 0, Song = 0;
    };

    MusicLibrary& m_library;
    LinkedLists& m_lists;
    SearchResult& m_result;
    ArtistListControls m_controls;
    std::array<bool, 3> m_allRowWasCurrent = {true, true, true};
    Remembered m_rememberedRows;
};

/// What shows the library, for whoever changes what is shown.
struct Browser {
    MusicLibrary& Library;
    LinkedLists& Lists;
    SearchResult& Result;
    ArtistList& Artists;
};
