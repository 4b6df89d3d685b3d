#pragma once

#include "browser/LinkedLists.h"

/// The result of a search or filter that stands in Artists, and the full library that it replaces
/// there until it is put back.
class SearchResult {
public:
    SearchResult(MusicLibrary& library, LinkedLists& lists);

    /// A search or filter is in force: its result stands in Artists, or is about to.
    bool Search() const { return m_search; }
    /// The full library while Artists holds a result; else empty.
    const std::vector<ArtistRecord>& SavedArtists() const { return m_savedArtists; }
    /// The shown result leaves out songs that are ticked; keeps cmdCopy enabled.
    bool CheckedHidden() const { return m_checkedHidden; }

    /// A search or filter comes into force; the rows of the full library are kept for the way back.
    void Begin();
    /// It is no longer in force, though its result may still be shown.
    void End() { m_search = false; }
    /// Puts the result in the place of the full library.
    void ReplaceLibrary(std::vector<ArtistRecord> result);
    void SetCheckedHidden() { m_checkedHidden = true; }
    /// Puts the full library and its rows back, if a result is shown.
    void PutLibraryBack();
    /// Copies the check marks of the shown result into SavedArtists.
    void UpdateOldArtists();
    /// Exchanges the result and the full library for the time of a copy job, or back.
    void ExchangeLibraries();
    /// Forgets everything about a library that leaves.
    void ResetState();

    /// The place of a shown record in the full library, whether that or a result is shown.
    qint32 ArtistId(qint32 artist) const;
    qint32 AlbumId(qint32 albumRow) const;
    qint32 SongId(qint32 songRow) const;

private:
    /// Told by the library that is kept, since Search already speaks of what is to come while the
    /// way back is prepared.
    bool IsShown() const { return !m_savedArtists.empty(); }

    MusicLibrary& m_library;
    LinkedLists& m_lists;
    std::vector<ArtistRecord> m_savedArtists;
    RowTables m_savedRows;
    bool m_search = false;
    bool m_checkedHidden = false;
};
