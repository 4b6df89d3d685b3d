#include "browser/ArtistList.h"

#include "browser/AnyChecked.h"
#include "platform/IgnoringErrors.h"
#include "platform/ScopeGuard.h"

ArtistList::ArtistList(MusicLibrary& library, LinkedLists& lists, SearchResult& result,
                       const ArtistListControls& controls)
    : m_library(library), m_lists(lists), m_result(result), m_controls(controls) {
}

void ArtistList::ResetState() {
    m_allRowWasCurrent = {true, true, true};
    m_rememberedRows = {};
}

void ArtistList::ShowLibrary() {
    NestedFlag::Guard building = m_lists.Building.Set();
    ScopeGuard hidden([this] { m_controls.lstArtists.SetVisible(true); });
    m_controls.lstArtists.SetVisible(false);
    m_lists.StartOver();
    m_controls.lstArtists.SetListIndex(1);
    hidden.Run();
    m_lists.ShowAlbumsOfArtist();
}

void ArtistList::AwaitLibrary() {
    EnableLists();
    m_lists.Empty();
    m_controls.cmdCopy.SetEnabled(false);
}

void ArtistList::ShowNoMusic() {
    m_controls.lstArtists.SetEnabled(false);
    m_controls.lstAlbums.SetEnabled(false);
    m_controls.lstSongs.SetEnabled(false);
}

void ArtistList::ShowNoDevice() {
    for (ListControl* list :
         {&m_controls.lstArtists, &m_controls.lstAlbums, &m_controls.lstSongs}) {
        IgnoringErrors([list] { list->Clear(); });
        IgnoringErrors([list] { list->SetEnabled(false); });
    }
    IgnoringErrors([this] { m_controls.cmdCopy.SetEnabled(false); });
}

void ArtistList::TakeFocus() {
    m_controls.lstArtists.SetFocus();
}

void ArtistList::Clear(bool NoFound) {
    PutLibraryBack(NoFound);
    RebuildLists();
    EnableCopy();
}

void ArtistList::PutLibraryBack(bool NoFound) {
    m_result.UpdateOldArtists();
    RememberRows(NoFound);
    m_result.PutLibraryBack();
    EnableLists();
}

void ArtistList::RecoverLibrary() {
    m_allRowWasCurrent = {true, true, true};
    m_result.End();
    m_result.UpdateOldArtists();
    m_result.PutLibraryBack();
    m_lists.ForgetAllSongs();
    RollUpMarks();
    EnableLists();
    m_lists.Empty();
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
    ScopeGuard hidden([this] { m_lists.SetVisible(true); });
    NestedFlag::Guard building = m_lists.Building.Set();
    NestedFlag::Guard restoring = m_lists.Restoring.Set();
    m_lists.SetVisible(false);
    m_lists.StartOver();
    RestoreArtistRow();
    m_lists.ShowAlbumsOfArtist();
    RestoreAlbumRow();
    m_lists.ShowSongsOfAlbum();
    RestoreSongRow();
    m_lists.ShowFullName();
    hidden.Run();
}

void ArtistList::RememberRows(bool allRows) {
    const int artistRow = m_controls.lstArtists.ListIndex();
    const int albumRow = m_controls.lstAlbums.ListIndex();
    const int songRow = m_controls.lstSongs.ListIndex();
    m_allRowWasCurrent = {allRows || artistRow < 1, allRows || albumRow < 1,
                          allRows || songRow < 1};
    const RowTables& rows = m_lists.Rows();
    if (!m_allRowWasCurrent[0]) {
        m_rememberedRows.Artist = m_result.ArtistId(rows.ArtistRows.at(artistRow));
    }
    if (!m_allRowWasCurrent[1]) {
        m_rememberedRows.AlbumArtist = m_result.ArtistId(rows.Albums.AlbumRowArtist.at(albumRow));
        m_rememberedRows.Album = m_result.AlbumId(albumRow);
    }
    if (!m_allRowWasCurrent[2]) {
        const qint32 songAlbumRow = rows.Songs.SongRowAlbumRow.at(songRow);
        m_rememberedRows.SongArtist =
            m_result.ArtistId(rows.Albums.AlbumRowArtist.at(songAlbumRow));
        m_rememberedRows.SongAlbum = m_result.AlbumId(songAlbumRow);
        m_rememberedRows.Song = m_result.SongId(songRow);
    }
}

void ArtistList::ShowNothing() {
    for (ListControl* list :
         {&m_controls.lstArtists, &m_controls.lstAlbums, &m_controls.lstSongs}) {
        list->Clear();
        list->SetEnabled(false);
    }
    m_lists.ShowFullName();
}

void ArtistList::EnableLists() {
    m_controls.lstArtists.SetEnabled(true);
    m_controls.lstAlbums.SetEnabled(true);
    m_controls.lstSongs.SetEnabled(true);
}

void ArtistList::RestoreArtistRow() {
    m_controls.lstArtists.SetListIndex(0);
    if (m_allRowWasCurrent[0]) {
        return;
    }
    for (qint32 row = 1; row < m_controls.lstArtists.ListCount(); ++row) {
        if (m_result.ArtistId(m_lists.Rows().ArtistRows.at(row)) == m_rememberedRows.Artist) {
            m_controls.lstArtists.SetListIndex(row);
            return;
        }
    }
}

void ArtistList::RestoreAlbumRow() {
    m_controls.lstAlbums.SetListIndex(0);
    if (m_allRowWasCurrent[1]) {
        return;
    }
    const AlbumTables& albums = m_lists.Rows().Albums;
    for (qint32 row = 1; row < m_controls.lstAlbums.ListCount(); ++row) {
        if (m_result.ArtistId(albums.AlbumRowArtist.at(row)) == m_rememberedRows.AlbumArtist &&
            m_result.AlbumId(row) == m_rememberedRows.Album) {
            m_controls.lstAlbums.SetListIndex(row);
            return;
        }
    }
}

void ArtistList::RestoreSongRow() {
    m_controls.lstSongs.SetListIndex(0);
    if (m_allRowWasCurrent[2]) {
        return;
    }
    const RowTables& rows = m_lists.Rows();
    for (qint32 row = 1; row < m_controls.lstSongs.ListCount(); ++row) {
        const qint32 albumRow = rows.Songs.SongRowAlbumRow.at(row);
        if (m_result.ArtistId(rows.Albums.AlbumRowArtist.at(albumRow)) ==
                m_rememberedRows.SongArtist &&
            m_result.AlbumId(albumRow) == m_rememberedRows.SongAlbum &&
            m_result.SongId(row) == m_rememberedRows.Song) {
            m_controls.lstSongs.SetListIndex(row);
            return;
        }
    }
}

void ArtistList::EnableCopy() {
    m_controls.cmdCopy.SetEnabled(m_controls.lstArtists.SelCount() >= 1 ||
                                  m_result.CheckedHidden());
}
