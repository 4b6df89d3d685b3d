#include "browser/SearchResult.h"

#include "browser/AnyChecked.h"

#include <utility>

SearchResult::SearchResult(MusicLibrary& library, LinkedLists& lists)
    : m_library(library), m_lists(lists) {
}

void SearchResult::Begin() {
    m_search = true;
    m_savedRows = m_lists.Rows();
}

void SearchResult::ReplaceLibrary(std::vector<ArtistRecord> result) {
    m_savedArtists = std::exchange(m_library.Artists, std::move(result));
    m_lists.ForgetAllSongs();
}

void SearchResult::PutLibraryBack() {
    if (!IsShown()) {
        return; // a search failed before this
    }
    m_library.Artists = std::exchange(m_savedArtists, {});
    m_checkedHidden = false;
    // AllSongsCached comes back too: the list of all songs may never have been built before.
    m_lists.PutRowsBack(m_savedRows);
}

void SearchResult::UpdateOldArtists() {
    if (!IsShown() || m_library.Artists.empty()) {
        return; // nothing was found, so nothing can have been ticked
    }
    for (const ArtistRecord& shown : m_library.Artists) {
        ArtistRecord& artist = m_savedArtists.at(shown.SourceIndex);
        artist.Checked = shown.Checked;
        for (const AlbumRecord& shownAlbum : shown.Albums) {
            AlbumRecord& album = artist.Albums.at(shownAlbum.SourceIndex);
            album.Checked = shownAlbum.Checked;
            for (const TrackRecord& track : shownAlbum.Tracks) {
                album.Tracks.at(track.SourceIndex).Checked = track.Checked;
            }
        }
    }
    // This pass only ever ticks: a ticked song that the result hid keeps its album and artist
    // ticked.
    for (ArtistRecord& artist : m_savedArtists) {
        for (AlbumRecord& album : artist.Albums) {
            if (AnyChecked(album.Tracks)) {
                album.Checked = true;
                artist.Checked = true;
            }
        }
    }
}

void SearchResult::ExchangeLibraries() {
    std::swap(m_library.Artists, m_savedArtists);
}

void SearchResult::ResetState() {
    m_savedArtists.clear();
    m_savedRows = {};
    m_search = m_checkedHidden = false;
}

qint32 SearchResult::ArtistId(qint32 artist) const {
    return IsShown() ? m_library.Artists.at(artist).SourceIndex : artist;
}

qint32 SearchResult::AlbumId(qint32 albumRow) const {
    return IsShown() ? m_lists.Album(albumRow).SourceIndex
                     : m_lists.Rows().Albums.AlbumRowAlbum.at(albumRow);
}

qint32 SearchResult::SongId(qint32 songRow) const {
    return IsShown() ? m_lists.Track(songRow).SourceIndex
                     : m_lists.Rows().Songs.SongRowTrack.at(songRow);
}
