#include "selection/CheckPropagation.h"

#include "browser/AnyChecked.h"
#include "platform/ScopeGuard.h"

namespace {

/// After a single row changed to `ticked`: the "All" row is ticked when that was the last row not
/// ticked, and unticked when all rows were ticked before.
void FollowSingleRow(ListControl& list, bool ticked) {
    if (list.SelCount() == list.ListCount() - 1) {
        list.SetSelected(0, ticked);
    }
}

/// After a roll-up: the "All" row is ticked exactly when every other row is.
void FollowRollUp(ListControl& list) {
    if (list.SelCount() < list.ListCount() - 1) {
        list.SetSelected(0, false);
    } else if (list.SelCount() == list.ListCount() - 1) {
        list.SetSelected(0, !list.Selected(0));
    }
}

} // namespace

CheckPropagation::CheckPropagation(const Browser& browser, SelectionSummary& summary,
                                   Search& search, const CheckedListControls& controls)
    : m_library(browser.Library), m_lists(browser.Lists), m_artistList(browser.Artists),
      m_summary(summary), m_search(search), m_controls(controls) {
}

void CheckPropagation::lstArtists_ItemCheck(int Item) {
    if (m_lists.Building) {
        return;
    }
    // A change that fails half way leaves marks that fit neither each other nor the lists.
    ScopeGuard failed([this] { m_search.ShowLibraryAgain(); });
    m_lists.lstArtists_Click();
    ChangeChecks(m_controls.lstArtists, [this, Item] { PropagateArtist(Item); });
    failed.Dismiss();
}

void CheckPropagation::lstAlbums_ItemCheck(int Item) {
    if (m_lists.Building) {
        return;
    }
    ScopeGuard failed([this] { m_search.ShowLibraryAgain(); });
    m_lists.lstAlbums_Click();
    ChangeChecks(m_controls.lstAlbums, [this, Item] { PropagateAlbum(Item); });
    failed.Dismiss();
}

void CheckPropagation::lstSongs_ItemCheck(int Item) {
    if (m_lists.Building) {
        return;
    }
    ScopeGuard failed([this] { m_search.ShowLibraryAgain(); });
    ChangeChecks(m_controls.lstSongs, [this, Item] { PropagateSong(Item); });
    failed.Dismiss();
}

/// The frame around every change: each SetSelected in `propagate` raises ItemCheck again, whose
/// handler returns because Building is set, and no list paints before everything is done.
template <class Propagate>
void CheckPropagation::ChangeChecks(ListControl& raisedBy, Propagate propagate) {
    NestedFlag::Guard building = m_lists.Building.Set();
    const int artistRow = m_controls.lstArtists.ListIndex();
    const int albumRow = m_controls.lstAlbums.ListIndex();
    const int songRow = m_controls.lstSongs.ListIndex();
    ScopeGuard hidden([this] { m_lists.SetVisible(true); });
    m_lists.SetVisible(false);

    propagate();

    hidden.Run();
    m_controls.lstArtists.SetListIndex(artistRow);
    m_controls.lstAlbums.SetListIndex(albumRow);
    m_controls.lstSongs.SetListIndex(songRow);
    m_summary.CalculateSize(false);
    building.End();
    m_artistList.EnableCopy();
    raisedBy.SetFocus();
}

void CheckPropagation::PropagateArtist(int Item) {
    ListControl& artists = m_controls.lstArtists;
    const bool ticked = artists.Selected(Item);
    if (Item == 0) {
        // By position, not through ArtistRows: all records get the same flag, so the order of the
        // rows does not matter.
        for (int row = 1; row < artists.ListCount(); ++row) {
            artists.SetSelected(row, ticked);
            m_library.Artists.at(row - 1).Checked = ticked;
        }
    } else {
        FollowSingleRow(artists, ticked);
        m_library.Artists.at(m_lists.Rows().ArtistRows.at(artists.ListIndex())).Checked = ticked;
    }

    for (int row = 0; row < m_controls.lstAlbums.ListCount(); ++row) {
        m_controls.lstAlbums.SetSelected(row, ticked);
        if (row >= 1) {
            AlbumRecord& album = m_lists.Album(row);
            album.Checked = ticked;
            for (TrackRecord& track : album.Tracks) {
                track.Checked = ticked;
            }
        }
    }
    for (int row = 0; row < m_controls.lstSongs.ListCount(); ++row) {
        m_controls.lstSongs.SetSelected(row, ticked);
    }
}

void CheckPropagation::PropagateAlbum(int Item) {
    ListControl& albums = m_controls.lstAlbums;
    const bool ticked = albums.Selected(Item);
    if (Item == 0) {
        for (int row = 1; row < albums.ListCount(); ++row) {
            albums.SetSelected(row, ticked);
            m_lists.Album(row).Checked = ticked;
        }
    } else {
        FollowSingleRow(albums, ticked);
        m_lists.Album(Item).Checked = ticked;
    }

    for (int row = 0; row < m_controls.lstSongs.ListCount(); ++row) {
        m_controls.lstSongs.SetSelected(row, ticked);
        if (row >= 1) {
            m_lists.Track(row).Checked = ticked;
        }
    }
    UpdateArtistCheck(Item);
}

void CheckPropagation::PropagateSong(int Item) {
    ListControl& songs = m_controls.lstSongs;
    const bool ticked = songs.Selected(Item);
    if (Item == 0) {
        for (int row = 1; row < songs.ListCount(); ++row) {
            songs.SetSelected(row, ticked);
            m_lists.Track(row).Checked = ticked;
        }
    } else {
        FollowSingleRow(songs, ticked);
        m_lists.Track(Item).Checked = ticked;
    }
    RollUpSongs(Item);
    FollowRollUp(m_controls.lstAlbums);
}

void CheckPropagation::RollUpSongs(int Item) {
    ListControl& albums = m_controls.lstAlbums;
    const int current = albums.ListIndex();
    if (current >= 1) {
        const bool any = m_controls.lstSongs.SelCount() >= 1;
        albums.SetSelected(current, any);
        m_lists.Album(current).Checked = any;
        UpdateArtistCheck(current);
    } else if (Item == 0) {
        const bool ticked = m_controls.lstSongs.Selected(0);
        for (int row = 0; row < albums.ListCount(); ++row) {
            albums.SetSelected(row, ticked);
            if (row >= 1) {
                m_lists.Album(row).Checked = ticked;
            }
        }
        UpdateArtistCheck(0);
    } else {
        const qint32 row = m_lists.Rows().Songs.SongRowAlbumRow.at(Item);
        AlbumRecord& album = m_lists.Album(row);
        album.Checked = AnyChecked(album.Tracks);
        albums.SetSelected(row, album.Checked);
        UpdateArtistCheck(row);
    }
}

void CheckPropagation::UpdateArtistCheck(int AlbumRow) {
    ListControl& artists = m_controls.lstArtists;
    const int current = artists.ListIndex();
    if (current >= 1) {
        // Not by SelCount: after a song was unticked, the "All" row of an artist's only album is
        // still ticked, and would keep the artist ticked although nothing is chosen.
        ArtistRecord& artist = m_library.Artists.at(m_lists.Rows().Albums.AlbumRowArtist.at(1));
        artist.Checked = AnyChecked(artist.Albums);
        artists.SetSelected(current, artist.Checked);
    } else if (AlbumRow < 1) {
        const bool ticked = m_controls.lstAlbums.Selected(0);
        for (int row = 0; row < artists.ListCount(); ++row) {
            artists.SetSelected(row, ticked);
            if (row >= 1) {
                m_library.Artists.at(row - 1).Checked = ticked; // by position, as above
            }
        }
    } else {
        UpdateOneArtist(AlbumRow);
    }
    FollowRollUp(artists);
}

void CheckPropagation::UpdateOneArtist(int albumRow) {
    const qint32 index = m_lists.Rows().Albums.AlbumRowArtist.at(albumRow);
    ArtistRecord& artist = m_library.Artists.at(index);
    const bool any = AnyChecked(artist.Albums);
    if (artist.Checked == any) {
        return;
    }
    artist.Checked = any;
    for (int row = 1; row < m_controls.lstArtists.ListCount(); ++row) {
        if (m_lists.Rows().ArtistRows.at(row) == index) {
            m_controls.lstArtists.SetSelected(row, any);
            return;
        }
    }
}
