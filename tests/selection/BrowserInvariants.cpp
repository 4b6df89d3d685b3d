#include "tests/selection/BrowserInvariants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

using AlbumId = std::pair<qint32, qint32>;
using SongId = std::tuple<qint32, qint32, qint32>;

template <class Records>
bool AnyTicked(const Records& records) {
    return std::any_of(records.begin(), records.end(),
                       [](const auto& record) { return record.Checked; });
}

struct Ticked {
    int Tracks = 0;
    double Bytes = 0;

    explicit Ticked(const std::vector<ArtistRecord>& artists) {
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

void ExpectRow(const FakeListControl& list, int row, const QString& text, bool ticked) {
    EXPECT_EQ(list.List(row), text);
    EXPECT_EQ(list.Selected(row), ticked) << text.toStdString();
}

void ExpectAllRow(const FakeListControl& list, const QString& noun) {
    const int others = list.ListCount() - 1;
    int ticked = 0;
    for (int row = 1; row <= others; ++row) {
        ticked += list.Selected(row) ? 1 : 0;
    }
    ExpectRow(list, 0, u"All (%1 %2%3)"_s.arg(others).arg(noun, others == 1 ? u""_s : u"s"_s),
              ticked == others);
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
            search.SearchingText() || m_form.tbsFilter.SelectedCaption() != "All Files"_L1;
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

    void ArtistRows() const {
        const FakeListControl& list = m_form.lstArtists;
        ASSERT_EQ(list.ListCount(), static_cast<int>(m_artists.size()) + 1);
        std::set<qint32> listed;
        for (int row = 1; row < list.ListCount(); ++row) {
            const qint32 index = m_rows.ArtistRows.at(row);
            listed.insert(index);
            ExpectRow(list, row, m_artists.at(index).Name, m_artists.at(index).Checked);
        }
        EXPECT_EQ(listed.size(), m_artists.size());
        ExpectAllRow(list, u"Artist"_s);
        EXPECT_EQ(m_browser.Linked.LastArtistRow(), list.ListIndex());
    }

    void AlbumRows() const {
        const FakeListControl& list = m_form.lstAlbums;
        const std::set<AlbumId> expected = ExpectedAlbums();
        ASSERT_EQ(list.ListCount(), static_cast<int>(expected.size()) + 1);
        std::set<AlbumId> listed;
        for (int row = 1; row < list.ListCount(); ++row) {
            listed.insert(AlbumAt(row));
            ExpectRow(list, row, Album(AlbumAt(row)).Name, Album(AlbumAt(row)).Checked);
        }
        EXPECT_EQ(listed, expected);
        ExpectAllRow(list, u"Album"_s);
        EXPECT_EQ(m_browser.Linked.LastAlbumRow(), list.ListIndex());
    }

    void SongRows() const {
        const FakeListControl& list = m_form.lstSongs;
        const std::set<SongId> expected = ExpectedSongs();
        ASSERT_EQ(list.ListCount(), static_cast<int>(expected.size()) + 1);
        std::set<SongId> listed;
        for (int row = 1; row < list.ListCount(); ++row) {
            const AlbumId album = AlbumAt(m_rows.Songs.SongRowAlbumRow.at(row));
            const qint32 index = m_rows.Songs.SongRowTrack.at(row);
            listed.insert({album.first, album.second, index});
            const TrackRecord& track = Album(album).Tracks.at(index);
            ExpectRow(list, row, track.Title, track.Checked);
        }
        EXPECT_EQ(listed, expected);
        const QString tab = m_form.tbsFilter.SelectedCaption();
        ExpectAllRow(list, tab == "All Files"_L1 ? u"Item"_s
                           : tab == "Audio"_L1   ? u"Song"_s
                                                 : u"Video"_s);
    }

    /// The summary speaks of the whole library, whatever part of it is shown.
    void Summary() const {
        const double bytes = Ticked(m_whole).Bytes;
        const double total = m_browser.Library.TotalSize;
        EXPECT_EQ(m_browser.Summary.SelectedSize, bytes);
        EXPECT_EQ(m_form.prgCopy.Value(), static_cast<float>(bytes));
        EXPECT_EQ(m_form.prgCopy.Max(), static_cast<float>(total));
        ASSERT_LT(total, 1048576); // else the texts are in megabytes
        EXPECT_EQ(m_form.lblMessage.Caption(),
                  u"Selected: %1 KB of %2 KB"_s.arg(int(bytes) / 1024).arg(int(total) / 1024));
        if (m_browser.Result.Search()) {
            EXPECT_EQ(m_browser.Summary.SearchBaseSize, Ticked(m_artists).Bytes);
        }
    }

    void CopyButton() const {
        EXPECT_EQ(m_browser.Result.CheckedHidden(),
                  Ticked(m_whole).Tracks > Ticked(m_artists).Tracks);
        EXPECT_EQ(m_form.cmdCopy.Enabled(),
                  AnyTicked(m_artists) || m_browser.Result.CheckedHidden());
    }

    void FullName() const {
        const int songRow = m_form.lstSongs.ListIndex();
        const int albumRow =
            songRow >= 1 ? m_rows.Songs.SongRowAlbumRow.at(songRow) : m_form.lstAlbums.ListIndex();
        QStringList names;
        if (albumRow >= 1) {
            const AlbumId album = AlbumAt(albumRow);
            names = {m_artists.at(album.first).Name, Album(album).Name};
            if (songRow >= 1) {
                names += Album(album).Tracks.at(m_rows.Songs.SongRowTrack.at(songRow)).Title;
            }
        } else if (m_form.lstArtists.ListIndex() >= 1) {
            names = {m_artists.at(m_rows.ArtistRows.at(m_form.lstArtists.ListIndex())).Name};
        }
        EXPECT_EQ(m_form.lblFullName.Caption(), names.join(u" / "_s).replace(u"&"_s, u"&&"_s));
    }

private:
    const BrowserFixture& m_browser;
    const FakeForm1& m_form = m_browser.Form;
    const RowTables& m_rows = m_browser.Linked.Rows();
    const std::vector<ArtistRecord>& m_artists = m_browser.Library.Artists;
    const std::vector<ArtistRecord> m_whole = WholeLibrary(m_browser);

    AlbumId AlbumAt(qint32 row) const {
        return {m_rows.Albums.AlbumRowArtist.at(row), m_rows.Albums.AlbumRowAlbum.at(row)};
    }
    const AlbumRecord& Album(const AlbumId& id) const {
        return m_artists.at(id.first).Albums.at(id.second);
    }

    std::set<AlbumId> ExpectedAlbums() const {
        const int row = m_form.lstArtists.ListIndex();
        std::set<AlbumId> albums;
        for (qint32 artist = 0; artist < static_cast<qint32>(m_artists.size()); ++artist) {
            if (row < 1 || m_rows.ArtistRows.at(row) == artist) {
                for (size_t i = 0; i < m_artists[artist].Albums.size(); ++i) {
                    albums.insert({artist, static_cast<qint32>(i)});
                }
            }
        }
        return albums;
    }

    std::set<SongId> ExpectedSongs() const {
        const int row = m_form.lstAlbums.ListIndex();
        std::set<SongId> songs;
        for (const AlbumId& album : ExpectedAlbums()) {
            if (row < 1 || AlbumAt(row) == album) {
                for (size_t i = 0; i < Album(album).Tracks.size(); ++i) {
                    songs.insert({album.first, album.second, static_cast<qint32>(i)});
                }
            }
        }
        return songs;
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
        check.ArtistRows();
        check.AlbumRows();
        check.SongRows();
    }
    check.Summary();
    check.CopyButton();
    check.FullName();
}
