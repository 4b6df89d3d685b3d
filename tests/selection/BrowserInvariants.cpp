#include "tests/selection/BrowserInvariants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

template <class Records>
bool AnyTicked(const Records& records) {
    return std::any_of(records.begin(), records.end(),
                       [](const auto& record) { return record.Checked; });
}

struct TickedTracks {
    int Tracks = 0;
    double Bytes = 0;

    explicit TickedTracks(const std::vector<ArtistRecord>& artists) {
        for (const ArtistRecord& artist : artists) {
            for (const AlbumRecord& album : artist.Albums) {
                for (const TrackRecord& track : album.Tracks) {
                    Tracks += track.Checked ? 1 : 0;
                    Bytes += track.Checked ? track.FileSize : 0;
                }
            }
        }
    }
};

const QString& NameOf(const TrackRecord& track) {
    return track.Title;
}
template <class Record>
const QString& NameOf(const Record& record) {
    return record.Name;
}

/// The list shows each of the records once, and an "All" row that stands for them.
template <class Record, class RecordOf>
void ExpectRows(const FakeListControl& list, std::set<const Record*> records,
                const RecordOf& recordOf, const QString& noun) {
    const int others = list.ListCount() - 1;
    int ticked = 0;
    ASSERT_EQ(others, static_cast<int>(records.size()));
    for (int row = 1; row <= others; ++row) {
        const Record& record = recordOf(row);
        EXPECT_EQ(records.erase(&record), 1U);
        EXPECT_EQ(list.List(row), NameOf(record));
        EXPECT_EQ(list.Selected(row), record.Checked) << list.List(row).toStdString();
        ticked += record.Checked ? 1 : 0;
    }
    EXPECT_EQ(list.List(0), u"All (%1 %2%3)"_s.arg(others).arg(noun, others == 1 ? u""_s : u"s"_s));
    EXPECT_EQ(list.Selected(0), ticked == others) << list.List(0).toStdString();
    EXPECT_EQ(list.SelCount(), ticked + (ticked == others ? 1 : 0));
    EXPECT_GE(list.ListIndex(), 0);
}

class Checker {
public:
    explicit Checker(const BrowserFixture& browser) : m_browser(browser) {}

    /// What is in force is what box and tab say, and nothing is under way.
    void State() const {
        const Search& search = m_browser.WordSearch;
        const bool narrowed =
            search.SearchingText() || m_form.tbsFilter.SelectedCaption() != u"All Files"_s;
        EXPECT_FALSE(m_browser.Linked.Building || m_browser.Linked.Restoring);
        EXPECT_FALSE(search.SearchRunning() || search.SearchPending());
        EXPECT_FALSE(m_browser.Linked.RefreshAlbums() || m_browser.Linked.RefreshSongs());
        EXPECT_EQ(m_browser.Result.Search(), narrowed);
        EXPECT_EQ(m_browser.Result.SavedArtists().empty(), !narrowed);
        EXPECT_EQ(m_form.cmdClear.Enabled(), search.SearchingText());
        EXPECT_TRUE(m_form.tbsFilter.Enabled());
        EXPECT_TRUE(m_form.Picture2.Enabled());
        EXPECT_EQ(m_form.Form1.Pointer(), MousePointer::Default);
        for (const FakeListControl* list :
             {&m_form.lstArtists, &m_form.lstAlbums, &m_form.lstSongs}) {
            EXPECT_TRUE(list->Visible());
            EXPECT_EQ(list->Enabled(), !m_artists.empty());
            EXPECT_EQ(list->ListCount() == 0, m_artists.empty());
        }
    }

    /// A parent is ticked when a child is, and only then in the whole library. In a result it may
    /// also be ticked for a child that the result leaves out.
    void Parents() const {
        for (const ArtistRecord& artist : m_artists) {
            EXPECT_TRUE(artist.Checked || !AnyTicked(artist.Albums)) << artist.Name.toStdString();
            for (const AlbumRecord& album : artist.Albums) {
                EXPECT_TRUE(album.Checked || !AnyTicked(album.Tracks)) << album.Name.toStdString();
            }
        }
        for (const ArtistRecord& artist : m_whole) {
            EXPECT_EQ(artist.Checked, AnyTicked(artist.Albums)) << artist.Name.toStdString();
            for (const AlbumRecord& album : artist.Albums) {
                EXPECT_EQ(album.Checked, AnyTicked(album.Tracks)) << album.Name.toStdString();
            }
        }
    }

    /// The albums are those of the current artist, the songs those of the current album.
    void Rows() const {
        const int artistRow = m_form.lstArtists.ListIndex();
        const int albumRow = m_form.lstAlbums.ListIndex();
        std::set<const ArtistRecord*> artists;
        std::set<const AlbumRecord*> albums;
        std::set<const TrackRecord*> songs;
        for (const ArtistRecord& artist : m_artists) {
            artists.insert(&artist);
            const bool isShown = artistRow < 1 || &artist == &Artist(artistRow);
            for (size_t i = 0; isShown && i < artist.Albums.size(); ++i) {
                const AlbumRecord& album = artist.Albums[i];
                albums.insert(&album);
                for (const TrackRecord& track : album.Tracks) {
                    if (albumRow < 1 || &album == &Album(albumRow)) {
                        songs.insert(&track);
                    }
                }
            }
        }
        const QString tab = m_form.tbsFilter.SelectedCaption();
        ExpectRows(
            m_form.lstArtists, artists, [this](int row) -> auto& { return Artist(row); },
            u"Artist"_s);
        ExpectRows(
            m_form.lstAlbums, albums, [this](int row) -> auto& { return Album(row); }, u"Album"_s);
        ExpectRows(
            m_form.lstSongs, songs, [this](int row) -> auto& { return Track(row); },
            tab == u"All Files"_s ? u"Item"_s
            : tab == u"Audio"_s   ? u"Song"_s
                                  : u"Video"_s);
        EXPECT_EQ(m_browser.Linked.LastArtistRow(), artistRow);
        EXPECT_EQ(m_browser.Linked.LastAlbumRow(), albumRow);
    }

    /// The summary speaks of the whole library, whatever part of it is shown.
    void Summary() const {
        const double bytes = TickedTracks(m_whole).Bytes;
        const double total = m_browser.Library.TotalSize;
        EXPECT_EQ(m_browser.Summary.SelectedSize, bytes);
        EXPECT_EQ(m_form.prgCopy.Value(), static_cast<float>(bytes));
        EXPECT_EQ(m_form.prgCopy.Max(), static_cast<float>(total));
        ASSERT_LT(total, 1048576); // else the texts are in megabytes
        EXPECT_EQ(m_form.lblMessage.Caption(),
                  u"Selected: %1 KB of %2 KB"_s.arg(int(bytes) / 1024).arg(int(total) / 1024));
        if (m_browser.Result.Search()) {
            EXPECT_EQ(m_browser.Summary.SearchBaseSize, TickedTracks(m_artists).Bytes);
        }
    }

    void CopyButton() const {
        EXPECT_EQ(m_browser.Result.CheckedHidden(),
                  TickedTracks(m_whole).Tracks > TickedTracks(m_artists).Tracks);
        EXPECT_EQ(m_form.cmdCopy.Enabled(),
                  AnyTicked(m_artists) || m_browser.Result.CheckedHidden());
    }

    void FullName() const {
        const int songRow = m_form.lstSongs.ListIndex();
        const int albumRow =
            songRow >= 1 ? m_rows.Songs.SongRowAlbumRow.at(songRow) : m_form.lstAlbums.ListIndex();
        const int artistRow = m_form.lstArtists.ListIndex();
        QStringList names;
        if (albumRow >= 1) {
            names = {m_artists.at(m_rows.Albums.AlbumRowArtist.at(albumRow)).Name,
                     Album(albumRow).Name};
            if (songRow >= 1) {
                names += Track(songRow).Title;
            }
        } else if (artistRow >= 1) {
            names = {Artist(artistRow).Name};
        }
        EXPECT_EQ(m_form.lblFullName.Caption(), names.join(u" / "_s).replace(u"&"_s, u"&&"_s));
    }

private:
    const BrowserFixture& m_browser;
    const FakeForm1& m_form = m_browser.Form;
    const RowTables& m_rows = m_browser.Linked.Rows();
    const std::vector<ArtistRecord>& m_artists = m_browser.Library.Artists;
    const std::vector<ArtistRecord> m_whole = WholeLibrary(m_browser);

    const ArtistRecord& Artist(int row) const { return m_artists.at(m_rows.ArtistRows.at(row)); }
    const AlbumRecord& Album(int row) const {
        return m_artists.at(m_rows.Albums.AlbumRowArtist.at(row))
            .Albums.at(m_rows.Albums.AlbumRowAlbum.at(row));
    }
    const TrackRecord& Track(int row) const {
        return Album(m_rows.Songs.SongRowAlbumRow.at(row))
            .Tracks.at(m_rows.Songs.SongRowTrack.at(row));
    }
};

} // namespace

std::vector<ArtistRecord> WholeLibrary(const BrowserFixture& browser) {
    if (!browser.Result.Search()) {
        return browser.Library.Artists;
    }
    std::vector<ArtistRecord> library = browser.Result.SavedArtists();
    for (const ArtistRecord& shownArtist : browser.Library.Artists) {
        ArtistRecord& artist = library.at(shownArtist.SourceIndex);
        artist.Checked = shownArtist.Checked;
        for (const AlbumRecord& shownAlbum : shownArtist.Albums) {
            AlbumRecord& album = artist.Albums.at(shownAlbum.SourceIndex);
            album.Checked = shownAlbum.Checked;
            for (const TrackRecord& track : shownAlbum.Tracks) {
                album.Tracks.at(track.SourceIndex).Checked = track.Checked;
            }
        }
    }
    for (ArtistRecord& artist : library) {
        for (AlbumRecord& album : artist.Albums) {
            if (AnyTicked(album.Tracks)) {
                album.Checked = artist.Checked = true;
            }
        }
    }
    return library;
}

void ExpectInvariants(const BrowserFixture& browser) {
    const Checker check(browser);
    check.State();
    check.Parents();
    if (!browser.Library.Artists.empty()) {
        check.Rows();
    }
    check.Summary();
    check.CopyButton();
    check.FullName();
}
