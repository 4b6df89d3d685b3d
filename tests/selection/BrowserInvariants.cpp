#include "tests/selection/BrowserInvariants.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

using AlbumId = std::pair<qint32, qint32>;
using SongId = std::tuple<qint32, qint32, qint32>;

/// A record, its mark, where it came from and what is beneath it, as a line each.
QString Dump(const std::vector<ArtistRecord>& artists) {
    QString dump;
    const auto line = [&dump](int depth, const QString& name, bool ticked, qint32 source) {
        dump += QString(depth, QLatin1Char(' ')) + name +
                (ticked ? QStringLiteral(" x ") : QStringLiteral(" - ")) + QString::number(source) +
                QLatin1Char('\n');
    };
    for (const ArtistRecord& artist : artists) {
        line(0, artist.Name, artist.Checked, artist.SourceIndex);
        for (const AlbumRecord& album : artist.Albums) {
            line(2, album.Name, album.Checked, album.SourceIndex);
            for (const TrackRecord& track : album.Tracks) {
                line(4, track.Title, track.Checked, track.SourceIndex);
            }
        }
    }
    return dump;
}

void ExpectRecords(const std::vector<ArtistRecord>& actual,
                   const std::vector<ArtistRecord>& expected) {
    EXPECT_EQ(Dump(actual).toStdString(), Dump(expected).toStdString());
}

template <class Records>
bool AnyTicked(const Records& records) {
    return std::any_of(records.begin(), records.end(),
                       [](const auto& record) { return record.Checked; });
}

double TickedBytes(const std::vector<ArtistRecord>& artists) {
    double bytes = 0;
    for (const ArtistRecord& artist : artists) {
        for (const AlbumRecord& album : artist.Albums) {
            for (const TrackRecord& track : album.Tracks) {
                bytes += track.Checked ? track.FileSize : 0;
            }
        }
    }
    return bytes;
}

void ExpectAllRow(const FakeListControl& list, const std::string& noun) {
    const int others = list.ListCount() - 1;
    EXPECT_EQ(list.List(0).toStdString(),
              "All (" + std::to_string(others) + noun + (others == 1 ? ")" : "s)"));
    bool allTicked = true;
    int ticked = 0;
    for (int row = 0; row <= others; ++row) {
        allTicked = allTicked && (row == 0 || list.Selected(row));
        ticked += list.Selected(row) ? 1 : 0;
    }
    EXPECT_EQ(list.Selected(0), allTicked) << list.List(0).toStdString();
    EXPECT_EQ(list.SelCount(), ticked);
}

void ExpectRow(const FakeListControl& list, int row, const QString& text, bool ticked) {
    EXPECT_EQ(list.List(row), text);
    EXPECT_EQ(list.Selected(row), ticked) << list.List(row).toStdString();
}

class Checker {
public:
    Checker(const BrowserFixture& browser, const SelectionModel& model)
        : m_browser(browser), m_model(model) {}

    void Flags() const {
        EXPECT_FALSE(m_browser.Linked.Building);
        EXPECT_FALSE(m_browser.Linked.Restoring);
        EXPECT_FALSE(m_browser.WordSearch.SearchRunning());
        EXPECT_FALSE(m_browser.WordSearch.SearchPending());
        EXPECT_FALSE(m_browser.Linked.RefreshAlbums());
        EXPECT_FALSE(m_browser.Linked.RefreshSongs());
        EXPECT_EQ(m_browser.Result.Search(), m_model.Search);
        EXPECT_EQ(m_browser.WordSearch.SearchingText(), m_model.SearchingText);
        EXPECT_EQ(m_browser.WordSearch.SearchString(), m_model.SearchString);
    }

    void Controls() const {
        EXPECT_TRUE(m_form.tbsFilter.Enabled());
        EXPECT_TRUE(m_form.Picture2.Enabled());
        EXPECT_EQ(m_form.cmdClear.Enabled(), m_model.SearchingText);
        EXPECT_EQ(m_form.txtSearch.Text(), m_model.Box);
        EXPECT_EQ(m_form.tbsFilter.SelectedCaption(), m_model.Tab);
        EXPECT_EQ(m_form.Form1.Pointer(), MousePointer::Default);
        for (const FakeListControl* list :
             {&m_form.lstArtists, &m_form.lstAlbums, &m_form.lstSongs}) {
            EXPECT_TRUE(list->Visible());
            EXPECT_EQ(list->Enabled(), !m_artists.empty());
        }
    }

    /// A parent is ticked when a child is. In a result it may also be ticked for a child that the
    /// result leaves out: until that part of the result is touched, the mark of the full library
    /// stands. In the full library there is no other reason.
    void Parents() const {
        for (const ArtistRecord& artist : m_artists) {
            for (const AlbumRecord& album : artist.Albums) {
                const bool any = AnyTicked(album.Tracks);
                EXPECT_TRUE(album.Checked || !any) << album.Name.toStdString();
                EXPECT_TRUE(!album.Checked || any ||
                            HidesTicks(artist.SourceIndex, album.SourceIndex))
                    << album.Name.toStdString();
            }
            const bool any = AnyTicked(artist.Albums);
            EXPECT_TRUE(artist.Checked || !any) << artist.Name.toStdString();
            EXPECT_TRUE(!artist.Checked || any || HidesTicks(artist.SourceIndex, {}))
                << artist.Name.toStdString();
        }
        for (const ArtistRecord& artist : m_model.Merged()) {
            EXPECT_EQ(artist.Checked, AnyTicked(artist.Albums)) << artist.Name.toStdString();
            for (const AlbumRecord& album : artist.Albums) {
                EXPECT_EQ(album.Checked, AnyTicked(album.Tracks)) << album.Name.toStdString();
            }
        }
    }

    void ArtistRows() const {
        const FakeListControl& list = m_form.lstArtists;
        ASSERT_EQ(list.ListCount(), static_cast<int>(m_artists.size()) + 1);
        ASSERT_EQ(m_rows.ArtistRows.size(), m_artists.size() + 1);
        EXPECT_EQ(m_rows.ArtistRows[0], 0);
        std::set<qint32> listed;
        for (int row = 1; row < list.ListCount(); ++row) {
            const qint32 index = m_rows.ArtistRows[row];
            listed.insert(index);
            const ArtistRecord& artist = m_artists.at(index);
            ExpectRow(list, row, artist.Name, artist.Checked);
        }
        EXPECT_EQ(listed.size(), m_artists.size());
        ExpectAllRow(list, " Artist");
        EXPECT_GE(list.ListIndex(), 0);
        EXPECT_EQ(m_browser.Linked.LastArtistRow(), list.ListIndex());
    }

    void AlbumRows() const {
        const FakeListControl& list = m_form.lstAlbums;
        const std::set<AlbumId> expected = ExpectedAlbums();
        ASSERT_EQ(list.ListCount(), static_cast<int>(expected.size()) + 1);
        ASSERT_EQ(m_rows.Albums.AlbumRowArtist.size(), expected.size() + 1);
        ASSERT_EQ(m_rows.Albums.AlbumRowAlbum.size(), expected.size() + 1);
        std::set<AlbumId> listed;
        for (int row = 1; row < list.ListCount(); ++row) {
            listed.insert(AlbumAt(row));
            const AlbumRecord& album = Album(AlbumAt(row));
            ExpectRow(list, row, album.Name, album.Checked);
        }
        EXPECT_EQ(listed, expected);
        ExpectAllRow(list, " Album");
        EXPECT_GE(list.ListIndex(), 0);
        EXPECT_EQ(m_browser.Linked.LastAlbumRow(), list.ListIndex());
    }

    void SongRows() const {
        const FakeListControl& list = m_form.lstSongs;
        const std::set<SongId> expected = ExpectedSongs();
        ASSERT_EQ(list.ListCount(), static_cast<int>(expected.size()) + 1);
        ASSERT_EQ(m_rows.Songs.SongRowTrack.size(), expected.size() + 1);
        ASSERT_EQ(m_rows.Songs.SongRowAlbumRow.size(), expected.size() + 1);
        std::set<SongId> listed;
        for (int row = 1; row < list.ListCount(); ++row) {
            const AlbumId album = AlbumAt(m_rows.Songs.SongRowAlbumRow[row]);
            const qint32 index = m_rows.Songs.SongRowTrack[row];
            listed.insert({album.first, album.second, index});
            const TrackRecord& track = Album(album).Tracks.at(index);
            ExpectRow(list, row, track.Title, track.Checked);
        }
        EXPECT_EQ(listed, expected);
        ExpectAllRow(list, m_model.Tab == QLatin1String("All Files") ? " Item"
                           : m_model.Tab == QLatin1String("Audio")   ? " Song"
                                                                     : " Video");
        EXPECT_GE(list.ListIndex(), 0);
    }

    void EmptyLists() const {
        for (const FakeListControl* list :
             {&m_form.lstArtists, &m_form.lstAlbums, &m_form.lstSongs}) {
            EXPECT_EQ(list->ListCount(), 0);
            EXPECT_EQ(list->ListIndex(), -1);
        }
    }

    /// The summary speaks of the whole library, whatever part of it is shown.
    void Summary() const {
        const double bytes = TickedBytes(m_model.Merged());
        EXPECT_EQ(m_browser.Summary.SelectedSize, bytes);
        EXPECT_EQ(m_form.prgCopy.Value(), static_cast<float>(bytes));
        EXPECT_EQ(m_form.prgCopy.Max(), static_cast<float>(m_browser.Library.TotalSize));
        const auto kilobytes = [](double size) {
            return std::to_string(static_cast<int>(size) / 1024) + " KB";
        };
        ASSERT_LT(m_browser.Library.TotalSize, 1048576); // else the texts are in megabytes
        EXPECT_EQ(m_browser.Message(), "Selected: " + kilobytes(bytes) + " of " +
                                           kilobytes(m_browser.Library.TotalSize));
        if (m_model.Search) {
            EXPECT_EQ(m_browser.Summary.SearchBaseSize, TickedBytes(m_artists));
        }
    }

    void CopyButton() const {
        EXPECT_EQ(m_browser.Result.CheckedHidden(), m_model.Search && HidesTicks({}, {}));
        EXPECT_EQ(m_form.cmdCopy.Enabled(),
                  AnyTicked(m_artists) || m_browser.Result.CheckedHidden());
    }

    void FullName() const {
        const int songRow = m_form.lstSongs.ListIndex();
        const int albumRow =
            songRow >= 1 ? m_rows.Songs.SongRowAlbumRow.at(songRow) : m_form.lstAlbums.ListIndex();
        QString name;
        if (albumRow >= 1) {
            const AlbumId album = AlbumAt(albumRow);
            name = m_artists.at(album.first).Name + QStringLiteral(" / ") + Album(album).Name;
            if (songRow >= 1) {
                name += QStringLiteral(" / ") +
                        Album(album).Tracks.at(m_rows.Songs.SongRowTrack.at(songRow)).Title;
            }
        } else if (m_form.lstArtists.ListIndex() >= 1) {
            name = m_artists.at(m_rows.ArtistRows.at(m_form.lstArtists.ListIndex())).Name;
        }
        name.replace(QLatin1Char('&'), QLatin1String("&&"));
        EXPECT_EQ(m_browser.FullName(), name.toStdString());
    }

    /// A cache that counts as valid lists every song that is shown.
    void Cache() const {
        if (!m_rows.AllSongsCached) {
            return;
        }
        size_t songs = 0;
        for (const ArtistRecord& artist : m_artists) {
            for (const AlbumRecord& album : artist.Albums) {
                songs += album.Tracks.size();
            }
        }
        EXPECT_EQ(m_rows.AllSongsCache.SongRowTrack.size(), songs + 1);
        EXPECT_EQ(m_rows.AllSongsCache.SongRowAlbumRow.size(), songs + 1);
    }

private:
    const BrowserFixture& m_browser;
    const SelectionModel& m_model;
    const FakeForm1& m_form = m_browser.Form;
    const RowTables& m_rows = m_browser.Linked.Rows();
    const std::vector<ArtistRecord>& m_artists = m_browser.Library.Artists;

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

    /// Whether the full library has ticked tracks, under that artist and album if given, that the
    /// result leaves out.
    bool HidesTicks(std::optional<qint32> artistIndex, std::optional<qint32> albumIndex) const {
        if (!m_model.Search) {
            return false;
        }
        std::set<SongId> shown;
        for (const ArtistRecord& artist : m_artists) {
            for (const AlbumRecord& album : artist.Albums) {
                for (const TrackRecord& track : album.Tracks) {
                    shown.insert({artist.SourceIndex, album.SourceIndex, track.SourceIndex});
                }
            }
        }
        const auto& saved = m_browser.Result.SavedArtists();
        for (qint32 i = 0; i < static_cast<qint32>(saved.size()); ++i) {
            for (qint32 j = 0; j < static_cast<qint32>(saved[i].Albums.size()); ++j) {
                const bool asked =
                    (!artistIndex || *artistIndex == i) && (!albumIndex || *albumIndex == j);
                const auto& tracks = saved[i].Albums[j].Tracks;
                for (qint32 k = 0; asked && k < static_cast<qint32>(tracks.size()); ++k) {
                    if (tracks[k].Checked && shown.count({i, j, k}) == 0) {
                        return true;
                    }
                }
            }
        }
        return false;
    }
};

} // namespace

CurrentRecords CurrentRecordsOf(const BrowserFixture& browser) {
    const RowTables& rows = browser.Linked.Rows();
    const bool isResult = browser.Result.Search();
    const auto& artists = browser.Library.Artists;
    const auto albumOf = [&](qint32 row) {
        const qint32 artist = rows.Albums.AlbumRowArtist.at(row);
        const qint32 album = rows.Albums.AlbumRowAlbum.at(row);
        return isResult ? std::tuple(artists.at(artist).SourceIndex,
                                     artists.at(artist).Albums.at(album).SourceIndex)
                        : std::tuple(artist, album);
    };
    CurrentRecords current;
    if (browser.lstArtists.ListIndex() >= 1) {
        const qint32 index = rows.ArtistRows.at(browser.lstArtists.ListIndex());
        current.Artist = isResult ? artists.at(index).SourceIndex : index;
    }
    if (browser.lstAlbums.ListIndex() >= 1) {
        current.Album = albumOf(browser.lstAlbums.ListIndex());
    }
    if (browser.lstSongs.ListIndex() >= 1) {
        const int row = browser.lstSongs.ListIndex();
        const qint32 albumRow = rows.Songs.SongRowAlbumRow.at(row);
        const qint32 track = rows.Songs.SongRowTrack.at(row);
        const AlbumRecord& album = artists.at(rows.Albums.AlbumRowArtist.at(albumRow))
                                       .Albums.at(rows.Albums.AlbumRowAlbum.at(albumRow));
        current.Song = std::tuple_cat(
            albumOf(albumRow), std::tuple(isResult ? album.Tracks.at(track).SourceIndex : track));
    }
    return current;
}

CurrentRecords StillCurrent(const CurrentRecords& before, const std::vector<ArtistRecord>& shown,
                            bool isResult) {
    CurrentRecords after;
    std::set<std::tuple<qint32, qint32, qint32>> songs;
    std::set<std::tuple<qint32, qint32>> albums;
    const auto id = [isResult](const auto& record, size_t index) {
        return isResult ? record.SourceIndex : static_cast<qint32>(index);
    };
    for (size_t i = 0; i < shown.size(); ++i) {
        const qint32 artist = id(shown[i], i);
        if (before.Artist == artist) {
            after.Artist = artist;
        }
        for (size_t j = 0; j < shown[i].Albums.size(); ++j) {
            const AlbumRecord& album = shown[i].Albums[j];
            albums.insert({artist, id(album, j)});
            for (size_t k = 0; k < album.Tracks.size(); ++k) {
                songs.insert({artist, id(album, j), id(album.Tracks[k], k)});
            }
        }
    }
    const auto underArtist = [&after](qint32 artist) {
        return !after.Artist || *after.Artist == artist;
    };
    if (before.Album && albums.count(*before.Album) > 0 &&
        underArtist(std::get<0>(*before.Album))) {
        after.Album = before.Album;
    }
    if (before.Song && songs.count(*before.Song) > 0 && underArtist(std::get<0>(*before.Song))) {
        const auto [artist, album, song] = *before.Song;
        if (!after.Album || *after.Album == std::tuple(artist, album)) {
            after.Song = before.Song;
        }
    }
    return after;
}

void ExpectInvariants(const BrowserFixture& browser, const SelectionModel& model) {
    const Checker check(browser, model);
    check.Flags();
    check.Controls();
    ExpectRecords(browser.Library.Artists, model.Shown);
    ExpectRecords(browser.Result.SavedArtists(), model.Saved);
    if (testing::Test::HasFailure()) {
        return;
    }
    check.Parents();
    if (browser.Library.Artists.empty()) {
        check.EmptyLists();
    } else {
        check.ArtistRows();
        check.AlbumRows();
        check.SongRows();
    }
    check.Summary();
    check.CopyButton();
    check.FullName();
    check.Cache();
}
