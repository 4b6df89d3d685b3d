#pragma once

#include "browser/RowTables.h"
#include "browser/TextFitting.h"
#include "library/MusicLibrary.h"
#include "platform/NestedFlag.h"

#include <optional>

/// The text of an "All" row: "All (12 Songs)" for twelve rows below it and the noun " Song".
QString AllRowText(qsizetype rows, const QString& noun);

/// Fills `list` with the rows and an "All" row on top, which is ticked when all others are, also
/// when there are no others. `rows` begins with a free place for the "All" row.
void FillList(ListControl& list, std::vector<ListRow> rows, const QString& noun);

/// The lists, and what else takes part in showing them.
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

    /// Lists are being changed by code: every Click and ItemCheck handler returns at once.
    NestedFlag Building;
    /// Rows are being put back: a list that is built neither remembers rows nor goes on to the next
    /// one.
    NestedFlag Restoring;

    const RowTables& Rows() const { return m_rows; }
    /// The artist row whose albums are shown, the album row whose songs are shown; -1 none.
    int LastArtistRow() const { return m_lastArtistRow; }
    int LastAlbumRow() const { return m_lastAlbumRow; }
    /// The next artist (album) click builds the next list even on the same row.
    bool RefreshAlbums() const { return m_refreshAlbums; }
    bool RefreshSongs() const { return m_refreshSongs; }

    void lstArtists_Click();
    void lstAlbums_Click();
    void lstSongs_Click();

    /// What the Click handlers do unless code is changing the lists.
    void ShowAlbumsOfArtist();
    void ShowSongsOfAlbum();
    void ShowFullName();

    /// Fills ArtistRows from Artists; touches no list.
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
    /// Empties the three lists and fills that of the artists; the next ones follow when their time
    /// has come, whatever rows are current then.
    void StartOver();
    /// Forgets everything about a library that leaves.
    void ResetState();
    /// Other records stand in Artists: the table of all songs is no longer theirs.
    void ForgetAllSongs() { m_rows.AllSongsCached = false; }
    /// The tables of a library that comes back into Artists.
    void PutRowsBack(RowTables rows) { m_rows = std::move(rows); }

    /// The album of a real album row (1 and up).
    AlbumRecord& Album(qint32 albumRow);
    /// The track of a real song row (1 and up).
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
