#include "browser/LinkedLists.h"

#include "browser/MediaFilter.h"
#include "platform/ScopeGuard.h"

#include <algorithm>

QString AllRowText(qsizetype rows, const QString& noun) {
    return QStringLiteral("All (%1%2%3)")
        .arg(QString::number(rows), noun, rows == 1 ? QString() : QStringLiteral("s"));
}

void FillList(ListControl& list, std::vector<ListRow> rows, const QString& noun) {
    rows[0].Text = AllRowText(static_cast<qsizetype>(rows.size()) - 1, noun);
    rows[0].Ticked =
        std::all_of(rows.begin() + 1, rows.end(), [](const ListRow& row) { return row.Ticked; });
    list.Fill(std::move(rows));
}

void SetListsVisible(Form1Controls& controls, bool visible) {
    controls.lstArtists.SetVisible(visible);
    controls.lstAlbums.SetVisible(visible);
    controls.lstSongs.SetVisible(visible);
}

LinkedLists::LinkedLists(BrowserState& state, MusicLibrary& library, TextFitting& textFitting,
                         Form1Controls& controls)
    : m_state(state), m_library(library), m_textFitting(textFitting), m_controls(controls),
      m_ordering(state, library) {
}

AlbumRecord& LinkedLists::Album(qint32 albumRow) {
    ArtistRecord& artist = m_library.Artists.at(m_state.AlbumRowArtist.at(albumRow));
    return artist.Albums.at(m_state.AlbumRowAlbum.at(albumRow));
}

TrackRecord& LinkedLists::Track(qint32 songRow) {
    return Album(m_state.SongRowAlbumRow.at(songRow)).Tracks.at(m_state.SongRowTrack.at(songRow));
}

LinkedLists::AlbumKey LinkedLists::AlbumOfRow(qint32 albumRow) const {
    return {m_state.AlbumRowArtist.at(albumRow), m_state.AlbumRowAlbum.at(albumRow)};
}

LinkedLists::SongKey LinkedLists::SongOfRow(qint32 songRow) const {
    return {AlbumOfRow(m_state.SongRowAlbumRow.at(songRow)), m_state.SongRowTrack.at(songRow)};
}

void LinkedLists::RememberSong() {
    const int row = m_controls.lstSongs.ListIndex();
    if (row >= 1) {
        m_rememberedSong = SongOfRow(row);
    }
}

void LinkedLists::lstArtists_Click() {
    const int artistRow = m_controls.lstArtists.ListIndex();
    if (m_state.Building || (artistRow == m_state.LastArtistRow && !m_state.RefreshAlbums)) {
        return;
    }
    m_state.Building = true;
    ScopeGuard building([this] { m_state.Building = false; });
    ScopeGuard failed([this] { EmptyAlbums(); });

    // Only on the way from or to "All" can the same album be listed again.
    std::optional<AlbumKey> album;
    if (!m_state.Restoring && (artistRow == 0 || m_state.LastArtistRow == 0)) {
        if (m_controls.lstAlbums.ListIndex() >= 1) {
            album = AlbumOfRow(m_controls.lstAlbums.ListIndex());
        }
        RememberSong();
    }

    ScopeGuard hidden([this] { m_controls.lstAlbums.SetVisible(true); });
    m_controls.lstAlbums.SetVisible(false);
    m_controls.lstAlbums.Clear();
    if (artistRow >= 1) {
        m_ordering.SortAlbums(false, m_state.ArtistRows.at(artistRow));
    } else {
        m_ordering.SortAlbums(true);
    }
    FillAlbums();
    m_controls.lstAlbums.SetListIndex(0);
    hidden.Run();
    MakeRememberedAlbumCurrent(album);

    building.Run();
    m_state.LastArtistRow = static_cast<qint16>(artistRow);
    m_state.RefreshSongs = true;
    m_state.RefreshAlbums = false;
    failed.Dismiss();
    if (!m_state.Restoring) {
        lstAlbums_Click();
    }
}

void LinkedLists::FillAlbums() {
    const auto count = static_cast<qint32>(m_state.AlbumRowAlbum.size());
    std::vector<ListRow> rows(1);
    rows.reserve(count);
    for (qint32 row = 1; row < count; ++row) {
        const AlbumRecord& album = Album(row);
        rows.push_back({album.Name, album.Checked});
    }
    FillList(m_controls.lstAlbums, std::move(rows), QStringLiteral(" Album"));
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
    const int albumRow = m_controls.lstAlbums.ListIndex();
    if (m_state.Building || (albumRow == m_state.LastAlbumRow && !m_state.RefreshSongs)) {
        return;
    }
    ScopeGuard pointer([this] { m_controls.Form1.SetMousePointer(MousePointer::Default); });
    m_state.Building = true;
    ScopeGuard building([this] { m_state.Building = false; });
    ScopeGuard failed([this] { EmptySongs(); });

    if (!m_state.RefreshSongs && !m_state.Restoring &&
        (albumRow == 0 || m_state.LastAlbumRow == 0)) {
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

    m_state.LastAlbumRow = static_cast<qint16>(albumRow);
    m_state.RefreshSongs = false;
    building.Run();
    failed.Dismiss();
    if (!m_state.Restoring) {
        lstSongs_Click();
    }
    pointer.Run();
}

/// Rows of a list that could not be built would stand for other records than the tables say. The
/// next click builds it.
void LinkedLists::EmptyAlbums() {
    m_state.RefreshAlbums = true;
    m_controls.lstAlbums.Clear();
    EmptySongs();
}

void LinkedLists::EmptySongs() {
    m_state.RefreshSongs = true;
    m_rememberedSong.reset();
    m_controls.lstSongs.Clear();
}

void LinkedLists::BuildSongRows() {
    const int albumRow = m_controls.lstAlbums.ListIndex();
    if (albumRow >= 1) {
        m_ordering.SortTracks(false, albumRow);
    } else if (m_controls.lstArtists.ListIndex() >= 1) {
        SortSongsOfAllAlbumRows();
    } else if (m_state.AllSongsCached) {
        m_state.SongRowTrack = m_state.AllSongsCache.SongRowTrack;
        m_state.SongRowAlbumRow = m_state.AllSongsCache.SongRowAlbumRow;
    } else {
        BuildAllSongRows();
    }
}

/// A single album keeps its own order even on its "All" row: track numbers say more than titles.
void LinkedLists::SortSongsOfAllAlbumRows() {
    if (m_controls.lstAlbums.ListCount() == 2) {
        m_ordering.SortTracks(false, 1);
    } else {
        m_ordering.SortTracks5();
    }
}

/// The one list that takes a moment to build, so the user is told first. The summary comes back
/// afterwards. The song list stays suspended meanwhile: shown empty for an instant it would
/// flicker.
void LinkedLists::BuildAllSongRows() {
    const QString summary = m_controls.lblMessage.Caption();
    ScopeGuard message([&] { m_controls.lblMessage.SetCaption(summary); });
    m_controls.Form1.SetMousePointer(MousePointer::Hourglass);
    m_controls.lblMessage.SetCaption(QStringLiteral("Building lists..."));
    m_controls.lblMessage.Refresh();

    SortSongsOfAllAlbumRows();
    m_state.AllSongsCache = {m_state.SongRowTrack, m_state.SongRowAlbumRow};
    m_state.AllSongsCached = true;
    message.Run();
}

void LinkedLists::FillSongs() {
    const auto count = static_cast<qint32>(m_state.SongRowTrack.size());
    std::vector<ListRow> rows(1);
    rows.reserve(count);
    for (qint32 row = 1; row < count; ++row) {
        const TrackRecord& track = Track(row);
        rows.push_back({track.Title, track.Checked});
    }
    FillList(m_controls.lstSongs, std::move(rows), GetCorrectName(m_controls.tbsFilter));
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
    if (m_state.Building) {
        return;
    }
    const QString slash = QStringLiteral(" / ");
    const int songRow = m_controls.lstSongs.ListIndex();
    const int albumRow =
        songRow >= 1 ? m_state.SongRowAlbumRow.at(songRow) : m_controls.lstAlbums.ListIndex();
    const int artistRow = m_controls.lstArtists.ListIndex();
    QString name;
    if (albumRow >= 1) {
        name = m_library.Artists.at(m_state.AlbumRowArtist.at(albumRow)).Name + slash +
               Album(albumRow).Name;
        if (songRow >= 1) {
            name += slash + Track(songRow).Title;
        }
    } else if (artistRow >= 1) {
        name = m_controls.lstArtists.List(artistRow);
    }
    m_textFitting.AdjustText(name);
}
