#pragma once

#include "browser/RowTables.h"
#include "browser/TextFitting.h"
#include "library/MusicLibrary.h"
#include "platform/NestedFlag.h"

#include <optional>

/// The text of an "All" row: "All (12 Songs)" for twelve rows below it and the noun " Song".
QString AllRowText(qsizetype rows, const QString& noun);

/// Fills `list` with the rows, below an "All" row that is ticked when all others are (also when
/// there are no others). `rows` begins with an empty slot for the "All" row.
void FillList(ListControl& list, std::vector<ListRow> rows, const QString& noun);

/// The lists, and the other controls that take part in showing them.
struct ListControls {
    Window& Form1;
    ListControl& lstArtists;
    ListControl& lstAlbums;
    ListControl& lstSongs;
    TabsControl& tbsFilter;
    LabelControl& lblMessage;
};

/// The three lists and what their rows stand for. The albums follow the current artist row, the
/// songs the current album row, and the full name the current song row.
class LinkedLists {
public:
    LinkedLists(MusicLibrary& library, TextFitting& textFitting, const ListControls& controls);

    /// Set while code is changing the lists: every Click and ItemCheck handler returns at once.
    NestedFlag Building;
    /// Set while rows are being put back: building a list neither remembers rows nor builds the
    /// next list.
    NestedFlag Restoring;

    const RowTables& Rows() const { return m_rows; }
    /// The artist row whose albums are shown and the album row whose songs are shown; -1 for none.
    int LastArtistRow() const { return m_lastArtistRow; }
    int LastAlbumRow() const { return m_lastAlbumRow; }
    /// The next click on an artist (album) builds the next list even when the row is the same.
    bool RefreshAlbums() const { return m_refreshAlbums; }
    bool RefreshSongs() const { return m_refreshSongs; }

    void lstArtists_Click();
    void lstAlbums_Click();
    void lstSongs_Click();

    /// What the Click handlers do unless Building is set.
    void ShowAlbumsOfArtist();
    void ShowSongsOfAlbum();
    void ShowFullName();

    /// Fills ArtistRows from Artists; changes no list.
    void BuildArtistList();
    /// Fill the lists from the row tables.
    void FillArtists();
    void FillAlbums();
    void FillSongs();

    /// Shows or hides the three lists together.
    void SetVisible(bool visible);
    /// Neither a library nor a search result is shown.
    bool AreEmpty() const { return m_controls.lstArtists.ListCount() == 0; }
    /// Empties the three lists.
    void Empty();
    /// Empties the three lists and fills the artist list. The next ones are built when the Click
    /// handlers run, whatever rows are current by then.
    void StartOver();
    /// Forgets everything about the library that was shown.
    void ResetState();
    /// Artists now holds other records, so the table of all songs is no longer valid.
    void ForgetAllSongs() { m_rows.AllSongsCached = false; }
    /// Puts back the tables of a library that is put back into Artists.
    void PutRowsBack(RowTables rows) { m_rows = std::move(rows); }

    /// The album of an album row (1 and up, not the "All" row).
    AlbumRecord& Album(qint32 albumRow);
    /// The track of a song row (1 and up, not the "All" row).
    TrackRecord& Track(qint32 songRow);

private:
    struct AlbumKey {
        qint32 Artist, Album;
        bool operator==(const AlbumKey&) const = default;
    };
    struct SongKey {
        AlbumKey Album;
        qint32 Track;
        bool operator==(const SongKey&) const = default;
    };

    AlbumKey AlbumOfRow(qint32 albumRow) const;
    SongKey SongOfRow(qint32 songRow) const;
    void RememberSong();
    void EmptyAlbums();
    void EmptySongs();
    void BuildSongRows();
    void BuildAllSongRows();
    SongTables SongsOfAllAlbumRows() const;
    void MakeRememberedAlbumCurrent(const std::optional<AlbumKey>& album);
    void MakeRememberedSongCurrent();

    MusicLibrary& m_library;
    TextFitting& m_textFitting;
    ListControls m_controls;
    RowTables m_rows;
    int m_lastArtistRow = -1;
    int m_lastAlbumRow = -1;
    bool m_refreshAlbums = false;
    bool m_refreshSongs = false;
    /// The song to make current again when the song list is next rebuilt.
    std::optional<SongKey> m_rememberedSong;
};
