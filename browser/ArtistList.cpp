#include "browser/ArtistList.h"

#include "browser/AnyChecked.h"
#include "browser/MediaFilter.h"
#include "browser/SortedOrder.h"
#include "platform/ScopeGuard.h"

ArtistList::ArtistList(BrowserState& state, MusicLibrary& library, LinkedLists& lists,
                       Form1Controls& controls)
    : m_state(state), m_library(library), m_lists(lists), m_controls(controls) {
}

void ArtistList::BuildArtistList() {
    std::vector<const QString*> names;
    names.reserve(m_library.Artists.size());
    for (const ArtistRecord& artist : m_library.Artists) {
        names.push_back(&artist.Name);
    }
    const std::vector<qint32> order = SortedOrder(names, 0);
    m_state.ArtistRows.assign(1, 0);
    m_state.ArtistRows.insert(m_state.ArtistRows.end(), order.begin(), order.end());
}

void ArtistList::FillArtists() {
    const auto count = static_cast<qint32>(m_state.ArtistRows.size());
    std::vector<ListRow> rows(1);
    rows.reserve(count);
    for (qint32 row = 1; row < count; ++row) {
        const ArtistRecord& artist = m_library.Artists.at(m_state.ArtistRows[row]);
        rows.push_back({artist.Name, artist.Checked});
    }
    FillList(m_controls.lstArtists, std::move(rows), QStringLiteral(" Artist"));
}

void ArtistList::ShowLibrary() {
    m_state.Building = true;
    ScopeGuard building([this] { m_state.Building = false; });
    ScopeGuard hidden([this] { m_controls.lstArtists.SetVisible(true); });
    m_controls.lstArtists.SetVisible(false);
    BuildArtistList();
    FillArtists();
    m_controls.lstArtists.SetListIndex(1);
    hidden.Run();
    m_state.RefreshAlbums = true;
    building.Run();
    m_lists.lstArtists_Click();
}

void ArtistList::UpdateOldArtists() {
    if (m_controls.lstArtists.ListCount() > 0 && !m_state.SavedArtists.empty()) {
        CopyMarks();
    }
}

void ArtistList::CopyMarks() {
    for (const ArtistRecord& shown : m_library.Artists) {
        ArtistRecord& artist = m_state.SavedArtists.at(shown.SourceIndex);
        artist.Checked = shown.Checked;
        for (const AlbumRecord& shownAlbum : shown.Albums) {
            AlbumRecord& album = artist.Albums.at(shownAlbum.SourceIndex);
            album.Checked = shownAlbum.Checked;
            for (const TrackRecord& track : shownAlbum.Tracks) {
                album.Tracks.at(track.SourceIndex).Checked = track.Checked;
            }
        }
    }
    // This pass only ever ticks: a song that the result hid keeps its album and artist ticked.
    for (ArtistRecord& artist : m_state.SavedArtists) {
        for (AlbumRecord& album : artist.Albums) {
            if (AnyChecked(album.Tracks)) {
                album.Checked = true;
                artist.Checked = true;
            }
        }
    }
}

void ArtistList::Clear(bool NoFound) {
    ScopeGuard failed([this] { ShowLibraryAgain(); });
    if (!m_state.SearchRunning) {
        UpdateOldArtists();
        RememberRows(NoFound);
    }

    PutLibraryBack();
    m_state.Building = true;
    m_controls.lstArtists.SetEnabled(true);
    m_controls.lstAlbums.SetEnabled(true);
    m_controls.lstSongs.SetEnabled(true);
    if (m_state.Search) {
        m_state.Building = false;
    } else {
        RebuildLists();
        EnableCopy();
    }
    failed.Dismiss();
}

void ArtistList::PutLibraryBack() {
    if (m_state.SavedArtists.empty()) {
        return; // no result is shown: a search failed before this
    }
    m_library.Artists = std::move(m_state.SavedArtists);
    m_state.SavedArtists.clear();
    m_state.CheckedHidden = false;
    m_state.AlbumRowAlbum = m_state.SavedRows.AlbumRowAlbum;
    m_state.AlbumRowArtist = m_state.SavedRows.AlbumRowArtist;
    m_state.SongRowTrack = m_state.SavedRows.SongRowTrack;
    m_state.SongRowAlbumRow = m_state.SavedRows.SongRowAlbumRow;
    m_state.AllSongsCache = m_state.SavedRows.AllSongsCache;
    // Not simply true: the list of all songs may never have been built before the search.
    m_state.AllSongsCached = m_state.SavedRows.AllSongsCached;
}

void ArtistList::ShowLibraryAgain() {
    m_state.Search = m_state.SearchRunning = m_state.SearchPending = m_state.SearchingText = false;
    m_state.SearchString.clear();
    m_state.AllRowWasCurrent = {true, true, true};
    if (!m_state.SavedArtists.empty()) {
        CopyMarks();
        PutLibraryBack();
    }
    m_state.AllSongsCached = false;
    RollUpMarks();

    m_state.Building = true;
    ScopeGuard building([this] { m_state.Building = false; });
    m_controls.cmdClear.SetEnabled(false);
    m_controls.Picture2.SetEnabled(true);
    m_controls.tbsFilter.SetEnabled(true);
    for (ListControl* list :
         {&m_controls.lstArtists, &m_controls.lstAlbums, &m_controls.lstSongs}) {
        list->SetEnabled(true);
        list->Clear();
    }
    if (m_controls.tbsFilter.SelectedCaption() != AllFilesTab()) {
        m_controls.tbsFilter.Select(0);
    }
    RebuildLists();
    EnableCopy();
}

void ArtistList::RollUpMarks() {
    for (ArtistRecord& artist : m_library.Artists) {
        for (AlbumRecord& album : artist.Albums) {
            album.Checked = AnyChecked(album.Tracks);
        }
        artist.Checked = AnyChecked(artist.Albums);
    }
}

void ArtistList::RebuildLists() {
    ScopeGuard hidden([this] { SetListsVisible(m_controls, true); });
    ScopeGuard restoring([this] { m_state.Restoring = m_state.Building = false; });
    m_state.Building = true;
    SetListsVisible(m_controls, false);
    m_controls.lstArtists.Clear();
    m_controls.lstAlbums.Clear();
    m_controls.lstSongs.Clear();
    BuildArtistList();
    FillArtists();

    m_state.RefreshAlbums = true;
    m_state.Restoring = true;
    RestoreArtistRow();
    RestoreAlbumRow();
    RestoreSongRow();
    restoring.Run();
    m_lists.lstSongs_Click();
    hidden.Run();
}

void ArtistList::RememberRows(bool allRows) {
    const int artistRow = m_controls.lstArtists.ListIndex();
    const int albumRow = m_controls.lstAlbums.ListIndex();
    const int songRow = m_controls.lstSongs.ListIndex();
    m_state.AllRowWasCurrent = {allRows || artistRow < 1, allRows || albumRow < 1,
                                allRows || songRow < 1};
    auto& rows = m_state.RememberedRows;
    if (!m_state.AllRowWasCurrent[0]) {
        rows.Artist = QString::number(ArtistId(m_state.ArtistRows.at(artistRow)));
    }
    if (!m_state.AllRowWasCurrent[1]) {
        rows.AlbumArtist = ArtistId(m_state.AlbumRowArtist.at(albumRow));
        rows.Album = AlbumId(albumRow);
    }
    if (!m_state.AllRowWasCurrent[2]) {
        const qint32 songAlbumRow = m_state.SongRowAlbumRow.at(songRow);
        rows.SongArtist = ArtistId(m_state.AlbumRowArtist.at(songAlbumRow));
        rows.SongAlbum = AlbumId(songAlbumRow);
        rows.Song = SongId(songRow);
    }
}

void ArtistList::ShowNothing() {
    for (ListControl* list :
         {&m_controls.lstArtists, &m_controls.lstAlbums, &m_controls.lstSongs}) {
        list->Clear();
        list->SetEnabled(false);
    }
    m_lists.lstSongs_Click();
}

void ArtistList::RestoreArtistRow() {
    m_state.Building = true;
    m_controls.lstArtists.SetListIndex(0);
    if (!m_state.AllRowWasCurrent[0]) {
        const qint32 remembered = m_state.RememberedRows.Artist.toInt();
        for (qint32 row = 1; row < m_controls.lstArtists.ListCount(); ++row) {
            if (ArtistId(m_state.ArtistRows.at(row)) == remembered) {
                m_controls.lstArtists.SetListIndex(row);
                break;
            }
        }
    }
    m_state.Building = false;
    m_lists.lstArtists_Click();
}

void ArtistList::RestoreAlbumRow() {
    m_state.Building = true;
    m_controls.lstAlbums.SetListIndex(0);
    if (!m_state.AllRowWasCurrent[1]) {
        const auto& remembered = m_state.RememberedRows;
        for (qint32 row = 1; row < m_controls.lstAlbums.ListCount(); ++row) {
            if (ArtistId(m_state.AlbumRowArtist.at(row)) == remembered.AlbumArtist &&
                AlbumId(row) == remembered.Album) {
                m_controls.lstAlbums.SetListIndex(row);
                break;
            }
        }
    }
    m_state.Building = false;
    m_lists.lstAlbums_Click();
}

void ArtistList::RestoreSongRow() {
    m_state.Building = true;
    m_controls.lstSongs.SetListIndex(0);
    if (!m_state.AllRowWasCurrent[2]) {
        const auto& remembered = m_state.RememberedRows;
        for (qint32 row = 1; row < m_controls.lstSongs.ListCount(); ++row) {
            const qint32 albumRow = m_state.SongRowAlbumRow.at(row);
            if (ArtistId(m_state.AlbumRowArtist.at(albumRow)) == remembered.SongArtist &&
                AlbumId(albumRow) == remembered.SongAlbum && SongId(row) == remembered.Song) {
                m_controls.lstSongs.SetListIndex(row);
                break;
            }
        }
    }
}

void ArtistList::EnableCopy() {
    m_controls.cmdCopy.SetEnabled(m_controls.lstArtists.SelCount() >= 1 || m_state.CheckedHidden);
}

void ArtistList::cmdClear_Click() {
    if (m_state.SearchRunning) {
        return; // the search yields; it ends by itself in a moment
    }
    m_controls.txtSearch.SetFocus();
    m_controls.cmdClear.SetEnabled(false);
    if (!m_state.Search) {
        return;
    }
    m_state.SearchingText = false;
    m_state.SearchString.clear();
    if (m_controls.tbsFilter.SelectedCaption() == AllFilesTab()) {
        const bool nothingShown = m_controls.lstArtists.ListCount() == 0;
        m_state.Search = false;
        Clear(nothingShown);
    } else {
        Raise(RunSearch);
    }
}

/// The artist's index in the full library, whether that or a result is shown. What is shown is told
/// by SavedArtists, since Search already speaks of what is to come while the way back is prepared.
qint32 ArtistList::ArtistId(qint32 artist) const {
    return m_state.SavedArtists.empty() ? artist : m_library.Artists.at(artist).SourceIndex;
}

qint32 ArtistList::AlbumId(qint32 albumRow) const {
    return m_state.SavedArtists.empty() ? m_state.AlbumRowAlbum.at(albumRow)
                                        : m_lists.Album(albumRow).SourceIndex;
}

qint32 ArtistList::SongId(qint32 songRow) const {
    return m_state.SavedArtists.empty() ? m_state.SongRowTrack.at(songRow)
                                        : m_lists.Track(songRow).SourceIndex;
}
