#pragma once

#include "browser/LinkedLists.h"

/// The result of a search or filter that is held in Artists, and the full library that it replaces
/// there until that is put back.
class SearchResult {
public:
    SearchResult(MusicLibrary& library, LinkedLists& lists);

    /// A search or filter is in force: Artists holds its result, or soon will.
    bool Search() const { return m_search; }
    /// The full library while Artists holds a result; else empty.
    const std::vector<ArtistRecord>& SavedArtists() const { return m_savedArtists; }
    /// The shown result leaves out songs that are ticked; keeps cmdCopy enabled.
    bool CheckedHidden() const { return m_checkedHidden; }

    /// A search or filter comes into force; keeps the row tables of the full library for the way
    /// back.
    void Begin();
    /// The search or filter is no longer in force, though its result may still be shown.
    void End() { m_search = false; }
    /// Puts the result in the place of the full library.
    void ReplaceLibrary(std::vector<ArtistRecord> result);
    void SetCheckedHidden() { m_checkedHidden = true; }
    /// Puts the full library and its rows back, if a result is shown.
    void PutLibraryBack();
    /// Copies the check marks of the shown result into SavedArtists.
    void UpdateOldArtists();
    /// Exchanges the result and the full library at the start and at the end of a copy job.
    void ExchangeLibraries();
    /// Forgets everything about the library that was shown.
    void ResetState();

    /// The index of a shown record in the full library, whether that or a result is shown.
    qint32 ArtistId(qint32 artist) const;
    qint32 AlbumId(qint32 albumRow) const;
    qint32 SongId(qint32 songRow) const;

private:
    /// Decided by the library that is kept, because m_search already describes the next state while
    /// the way back is prepared.
    bool IsShown() const { return !m_savedArtists.empty(); }

    MusicLibrary& m_library;
    LinkedLists& m_lists;
    std::vector<ArtistRecord> m_savedArtists;
    RowTables m_savedRows;
    bool m_search = false;
    bool m_checkedHidden = false;
};
