#include "browser/LinkedLists.h"

#include "browser/MediaFilter.h"
#include "browser/Ordering.h"
#include "browser/SortedOrder.h"
#include "platform/ScopeGuard.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString AllRowText(qsizetype rows, const QString& noun) {
    return u"All (%1%2%3)"_s.arg(QString::number(rows), noun, rows == 1 ? QString() : u"s"_s);
}

void FillList(ListControl& list, std::vector<ListRow> rows, const QString& noun) {
    rows[0].Text = AllRowText(static_cast<qsizetype>(rows.size()) - 1, noun);
    rows[0].Ticked =
        std::all_of(rows.begin() + 1, rows.end(), [](const ListRow& row) { return row.Ticked; });
    list.Fill(std::move(rows));
}

LinkedLists::LinkedLists(MusicLibrary& library, TextFitting& textFitting,
                         const ListControls& controls)
    : m_library(library), m_textFitting(textFitting), m_controls(controls) {
}

AlbumRecord& LinkedLists::Album(qint32 albumRow) {
    const AlbumKey key = AlbumOfRow(albumRow);
    return m_library.Artists.at(key.Artist).Albums.at(key.Album);
}

TrackRecord& LinkedLists::Track(qint32 songRow) {
    const SongTables& songs = m_rows.Songs;
    return Album(songs.SongRowAlbumRow.at(songRow)).Tracks.at(songs.SongRowTrack.at(songRow));
}

LinkedLists::AlbumKey LinkedLists::AlbumOfRow(qint32 albumRow) const {
    const AlbumTables& albums = m_rows.Albums;
    return {albums.AlbumRowArtist.at(albumRow), albums.AlbumRowAlbum.at(albumRow)};
}

LinkedLists::SongKey LinkedLists::SongOfRow(qint32 songRow) const {
    const SongTables& songs = m_rows.Songs;
    return {AlbumOfRow(songs.SongRowAlbumRow.at(songRow)), songs.SongRowTrack.at(songRow)};
}

void LinkedLists::ResetState() {
    m_rows = {};
    m_lastArtistRow = m_lastAlbumRow = -1;
    m_refreshAlbums = m_refreshSongs = false;
    m_rememberedSong.reset();
}

void LinkedLists::RememberSong() {
    const int row = m_controls.lstSongs.ListIndex();
    if (row >= 1) {
        m_rememberedSong = SongOfRow(row);
    }
}

void LinkedLists::BuildArtistList() {
    std::vector<const QString*> names;
    names.reserve(m_library.Artists.size());
    for (const ArtistRecord& artist : m_library.Artists) {
        names.push_back(&artist.Name);
    }
    const std::vector<qint32> order = SortedOrder(names, 0);
    m_rows.ArtistRows.assign(1, 0);
    m_rows.ArtistRows.insert(m_rows.ArtistRows.end(), order.begin(), order.end());
}

void LinkedLists::FillArtists() {
    const auto count = static_cast<qint32>(m_rows.ArtistRows.size());
    std::vector<ListRow> rows(1);
    rows.reserve(count);
    for (qint32 row = 1; row < count; ++row) {
        const ArtistRecord& artist = m_library.Artists.at(m_rows.ArtistRows[row]);
        rows.push_back({artist.Name, artist.Checked});
    }
    FillList(m_controls.lstArtists, std::move(rows), u" Artist"_s);
}

void LinkedLists::SetVisible(bool visible) {
    m_controls.lstArtists.SetVisible(visible);
    m_controls.lstAlbums.SetVisible(visible);
    m_controls.lstSongs.SetVisible(visible);
}

void LinkedLists::Empty() {
    const NestedFlag::Guard building = Building.Set();
    m_controls.lstArtists.Clear();
    m_controls.lstAlbums.Clear();
    m_controls.lstSongs.Clear();
}

void LinkedLists::StartOver() {
    Empty();
    const NestedFlag::Guard building = Building.Set();
    BuildArtistList();
    FillArtists();
    m_refreshAlbums = true;
}

void LinkedLists::lstArtists_Click() {
    if (!Building) {
        ShowAlbumsOfArtist();
    }
}

void LinkedLists::ShowAlbumsOfArtist() {
    const int artistRow = m_controls.lstArtists.ListIndex();
    if (artistRow == m_lastArtistRow && !m_refreshAlbums) {
        return;
    }
    NestedFlag::Guard building = Building.Set();
    ScopeGuard failed([this] { EmptyAlbums(); });

    // Only on the way to or from the "All" row can the same album be listed again.
    std::optional<AlbumKey> album;
    if (!Restoring && (artistRow == 0 || m_lastArtistRow == 0)) {
        if (m_controls.lstAlbums.ListIndex() >= 1) {
            album = AlbumOfRow(m_controls.lstAlbums.ListIndex());
        }
        RememberSong();
    }

    ScopeGuard hidden([this] { m_controls.lstAlbums.SetVisible(true); });
    m_controls.lstAlbums.SetVisible(false);
    m_controls.lstAlbums.Clear();
    m_rows.Albums = artistRow >= 1 ? SortAlbums(m_library, false, m_rows.ArtistRows.at(artistRow))
                                   : SortAlbums(m_library, true);
    FillAlbums();
    m_controls.lstAlbums.SetListIndex(0);
    hidden.Run();
    MakeRememberedAlbumCurrent(album);

    building.End();
    m_lastArtistRow = artistRow;
    m_refreshSongs = true;
    m_refreshAlbums = false;
    failed.Dismiss();
    if (!Restoring) {
        ShowSongsOfAlbum();
    }
}

void LinkedLists::FillAlbums() {
    const auto count = static_cast<qint32>(m_rows.Albums.AlbumRowAlbum.size());
    std::vector<ListRow> rows(1);
    rows.reserve(count);
    for (qint32 row = 1; row < count; ++row) {
        const AlbumRecord& album = Album(row);
        rows.push_back({album.Name, album.Checked});
    }
    FillList(m_controls.lstAlbums, std::move(rows), u" Album"_s);
}

void LinkedLists::MakeRememberedAlbumCurrent(const std::optional<AlbumKey>& album) {
    if (!album) {
        return;
    }
    for (int row = 1; row < m_controls.lstAlbums.ListCount(); ++row) {
        if (AlbumOfRow(row) == *album) {
            m_controls.lstAlbums.SetListIndex(row);
            return;
        }
    }
}

void LinkedLists::lstAlbums_Click() {
    if (!Building) {
        ShowSongsOfAlbum();
    }
}

void LinkedLists::ShowSongsOfAlbum() {
    const int albumRow = m_controls.lstAlbums.ListIndex();
    if (albumRow == m_lastAlbumRow && !m_refreshSongs) {
        return;
    }
    ScopeGuard pointer([this] { m_controls.Form1.SetMousePointer(MousePointer::Default); });
    NestedFlag::Guard building = Building.Set();
    ScopeGuard failed([this] { EmptySongs(); });

    if (!m_refreshSongs && !Restoring && (albumRow == 0 || m_lastAlbumRow == 0)) {
        RememberSong();
    }

    ScopeGuard hidden([this] { m_controls.lstSongs.SetVisible(true); });
    m_controls.lstSongs.SetVisible(false);
    m_controls.lstSongs.Clear();
    BuildSongRows();
    FillSongs();
    m_controls.lstSongs.SetListIndex(0);
    hidden.Run();
    MakeRememberedSongCurrent();

    m_lastAlbumRow = albumRow;
    m_refreshSongs = false;
    building.End();
    failed.Dismiss();
    if (!Restoring) {
        ShowFullName();
    }
    pointer.Run();
}

/// The rows of a list that could not be built would stand for other records than the tables say, so
/// the list is emptied. The next click builds it.
void LinkedLists::EmptyAlbums() {
    m_refreshAlbums = true;
    m_controls.lstAlbums.Clear();
    EmptySongs();
}

void LinkedLists::EmptySongs() {
    m_refreshSongs = true;
    m_rememberedSong.reset();
    m_controls.lstSongs.Clear();
}

void LinkedLists::BuildSongRows() {
    const int albumRow = m_controls.lstAlbums.ListIndex();
    if (albumRow >= 1) {
        m_rows.Songs = SortTracks(m_library, m_rows.Albums, false, albumRow);
    } else if (m_controls.lstArtists.ListIndex() >= 1) {
        m_rows.Songs = SongsOfAllAlbumRows();
    } else if (m_rows.AllSongsCached) {
        m_rows.Songs = m_rows.AllSongsCache;
    } else {
        BuildAllSongRows();
    }
}

/// A single album keeps its own order even on its "All" row: track numbers say more than titles.
SongTables LinkedLists::SongsOfAllAlbumRows() const {
    return m_controls.lstAlbums.ListCount() == 2 ? SortTracks(m_library, m_rows.Albums, false, 1)
                                                 : SortTracks5(m_library, m_rows.Albums);
}

/// This is the one list that takes a moment to build, so the user is told first; the summary comes
/// back afterwards. The song list stays hidden from painting meanwhile: shown empty for an instant,
/// it would flicker.
void LinkedLists::BuildAllSongRows() {
    const QString summary = m_controls.lblMessage.Caption();
    ScopeGuard message([&] { m_controls.lblMessage.SetCaption(summary); });
    m_controls.Form1.SetMousePointer(MousePointer::Hourglass);
    m_controls.lblMessage.SetCaption(u"Building lists..."_s);
    m_controls.lblMessage.Refresh();

    m_rows.Songs = SongsOfAllAlbumRows();
    m_rows.AllSongsCache = m_rows.Songs;
    m_rows.AllSongsCached = true;
    message.Run();
}

void LinkedLists::FillSongs() {
    const auto count = static_cast<qint32>(m_rows.Songs.SongRowTrack.size());
    std::vector<ListRow> rows(1);
    rows.reserve(count);
    for (qint32 row = 1; row < count; ++row) {
        const TrackRecord& track = Track(row);
        rows.push_back({track.Title, track.Checked});
    }
    FillList(m_controls.lstSongs, std::move(rows),
             GetCorrectName(SelectedFilter(m_controls.tbsFilter)));
}

void LinkedLists::MakeRememberedSongCurrent() {
    if (!m_rememberedSong) {
        return;
    }
    for (int row = 1; row < m_controls.lstSongs.ListCount(); ++row) {
        if (SongOfRow(row) == *m_rememberedSong) {
            m_controls.lstSongs.SetListIndex(row);
            break;
        }
    }
    m_rememberedSong.reset();
}

void LinkedLists::lstSongs_Click() {
    if (!Building) {
        ShowFullName();
    }
}

void LinkedLists::ShowFullName() {
    const QString slash = u" / "_s;
    const int songRow = m_controls.lstSongs.ListIndex();
    const int albumRow =
        songRow >= 1 ? m_rows.Songs.SongRowAlbumRow.at(songRow) : m_controls.lstAlbums.ListIndex();
    const int artistRow = m_controls.lstArtists.ListIndex();
    QString name;
    if (albumRow >= 1) {
        name =
            m_library.Artists.at(AlbumOfRow(albumRow).Artist).Name + slash + Album(albumRow).Name;
        if (songRow >= 1) {
            name += slash + Track(songRow).Title;
        }
    } else if (artistRow >= 1) {
        name = m_controls.lstArtists.List(artistRow);
    }
    m_textFitting.AdjustText(name);
}
