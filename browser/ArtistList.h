#pragma once

#include "browser/SearchResult.h"

#include <array>

/// The lists, and cmdCopy, which is enabled while something is ticked.
struct ArtistListControls {
    ListControl& lstArtists;
    ListControl& lstAlbums;
    ListControl& lstSongs;
    ButtonControl& cmdCopy;
};

/// Rebuilds all three lists: for a library that was loaded, for a search result, and for the way
/// back to the full library, where the rows that were current become current again.
class ArtistList {
public:
    ArtistList(MusicLibrary& library, LinkedLists& lists, SearchResult& result,
               const ArtistListControls& controls);

    /// Shows a library that has just been loaded; its first artist becomes current.
    void ShowLibrary();
    /// Enables and empties the lists, and disables cmdCopy, for the library of a device that has
    /// been chosen.
    void AwaitLibrary();
    /// Disables the lists: no music was found on the device.
    void ShowNoMusic();
    /// Empties and disables the lists, and disables cmdCopy. A step that fails does not stop the
    /// others.
    void ShowNoDevice();
    /// Gives the keyboard focus to the artists.
    void TakeFocus();
    /// Puts back the full library and the rows that were current. With `NoFound` (the search found
    /// nothing) every list starts on its "All" row.
    void Clear(bool NoFound);
    /// The first half of Clear, for a search that will show its own result: the lists are not
    /// rebuilt.
    void PutLibraryBack(bool NoFound);
    /// For a handler that failed while the lists were half changed: puts back the full library with
    /// the check marks of its tracks, and empties the lists.
    void RecoverLibrary();

    /// Remembers whether each list stands on its "All" row, and otherwise which record it stands
    /// on; with `allRows` all three count as standing on "All".
    void RememberRows(bool allRows);
    /// Fills the three lists from Artists and makes the remembered rows current; a list whose
    /// remembered record is not shown stays on its "All" row.
    void RebuildLists();
    /// Empties and disables the three lists, which shows that a search found nothing.
    void ShowNothing();
    void EnableLists();
    /// Enables cmdCopy if something is ticked, even where a search hides it; else disables it.
    void EnableCopy();
    /// Forgets everything about the library that was shown.
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
    /// For artists, albums and songs: whether the list counted as standing on its "All" row when
    /// rows were last remembered.
    std::array<bool, 3> m_allRowWasCurrent = {true, true, true};
    Remembered m_rememberedRows;
};

/// The parts that show the library, for classes that change what is shown.
struct Browser {
    MusicLibrary& Library;
    LinkedLists& Lists;
    SearchResult& Result;
    ArtistList& Artists;
};
