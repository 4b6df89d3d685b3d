#pragma once

#include "browser/BrowserState.h"
#include "browser/Ordering.h"
#include "browser/TextFitting.h"

#include <optional>

/// The text of an "All" row: "All (12 Songs)" for twelve rows below it and the noun " Song".
QString AllRowText(qsizetype rows, const QString& noun);

/// Fills `list` with the rows and an "All" row on top, which is ticked when all others are, also
/// when there are no others. `rows` begins with a free place for the "All" row.
void FillList(ListControl& list, std::vector<ListRow> rows, const QString& noun);

/// Shows or hides the three lists together.
void SetListsVisible(Form1Controls& controls, bool visible);

/// Makes the albums follow the current artist row, the songs the current album row, and the full
/// name the current song row.
class LinkedLists {
public:
    LinkedLists(BrowserState& state, MusicLibrary& library, TextFitting& textFitting,
                Form1Controls& controls);

    void lstArtists_Click();
    void lstAlbums_Click();
    void lstSongs_Click();

    /// Fill the lists from the row tables.
    void FillAlbums();
    void FillSongs();

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
    void SortSongsOfAllAlbumRows();
    void MakeRememberedAlbumCurrent(const std::optional<AlbumKey>& album);
    void MakeRememberedSongCurrent();

    BrowserState& m_state;
    MusicLibrary& m_library;
    TextFitting& m_textFitting;
    Form1Controls& m_controls;
    Ordering m_ordering;
    /// The song to make current again when the song list is next rebuilt.
    std::optional<SongKey> m_rememberedSong;
};
