#pragma once

#include "browser/BrowserState.h"
#include "browser/LinkedLists.h"
#include "platform/Form1Controls.h"

/// The artist list, and the way back from a search or filter result to the full library.
class ArtistList {
public:
    ArtistList(BrowserState& state, MusicLibrary& library, LinkedLists& lists,
               Form1Controls& controls);

    /// Raised when the result must be built again with the media filter alone.
    Event RunSearch;

    /// Fills ArtistRows from Artists; touches no list.
    void BuildArtistList();
    /// Shows the artists in lstArtists in the order of ArtistRows, below the "All" row.
    void FillArtists();
    /// Shows a library that has just been loaded; its first artist becomes current.
    void ShowLibrary();

    /// Puts the full library and the rows from before the search back. With `NoFound` (the search
    /// found nothing) every list starts on its "All" row. Nothing is shown yet while Search is set:
    /// then the search goes on with its own result.
    void Clear(bool NoFound = false);
    /// Copies the check marks of the shown result into SavedArtists.
    void UpdateOldArtists();
    /// Ends a search.
    void cmdClear_Click();
    /// The way out for a handler that failed with the lists half changed: shows the full library
    /// from its records, unfiltered, with every list on its "All" row.
    void ShowLibraryAgain();

    /// Remembers whether each list stands on its "All" row and which records the others stand on;
    /// with `allRows` all three count as standing on "All".
    void RememberRows(bool allRows);
    /// Fills the three lists from Artists and makes the remembered rows current; a list whose
    /// remembered record is not shown stays on its "All" row.
    void RebuildLists();
    /// Empties and disables the three lists: what says that a search found nothing.
    void ShowNothing();
    /// Enables cmdCopy when something is ticked, be it hidden by a search.
    void EnableCopy();

private:
    void RestoreArtistRow();
    void RestoreAlbumRow();
    void RestoreSongRow();
    void CopyMarks();
    void RollUpMarks();
    void PutLibraryBack();
    qint32 ArtistId(qint32 artist) const;
    qint32 AlbumId(qint32 albumRow) const;
    qint32 SongId(qint32 songRow) const;

    BrowserState& m_state;
    MusicLibrary& m_library;
    LinkedLists& m_lists;
    Form1Controls& m_controls;
};
