#include "browser/Ordering.h"
#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

class OrderingTest : public testing::Test {
protected:
    MusicLibrary library;
    AlbumTables albums;
    SongTables songs;

    void Describe(const char* description) { library.Artists = RecordsOf(description); }

    const AlbumRecord& AlbumOfRow(qint32 row) const {
        return library.Artists.at(albums.AlbumRowArtist.at(row))
            .Albums.at(albums.AlbumRowAlbum.at(row));
    }

    /// The album rows, as "Queen/Jazz, Abba/Arrival".
    std::string Albums() const {
        QStringList names;
        for (qint32 row = 1; row < static_cast<qint32>(albums.AlbumRowAlbum.size()); ++row) {
            names.append(library.Artists.at(albums.AlbumRowArtist[row]).Name + u'/' +
                         AlbumOfRow(row).Name);
        }
        return names.join(u", "_s).toStdString();
    }

    /// The titles of the song rows.
    std::string Songs() const {
        QStringList titles;
        for (qint32 row = 1; row < static_cast<qint32>(songs.SongRowTrack.size()); ++row) {
            const AlbumRecord& album = AlbumOfRow(songs.SongRowAlbumRow.at(row));
            titles.append(album.Tracks.at(songs.SongRowTrack[row]).Title);
        }
        return titles.join(u", "_s).toStdString();
    }
};

} // namespace

TEST_F(OrderingTest, AlbumsAreOrderedByNameWithoutRegardToCase) {
    Describe(R"(
Queen
  jazz
    a
  Innuendo
    b
  A Kind of Magic
    c
)");
    albums = SortAlbums(library, false, 0);
    EXPECT_EQ(Albums(), "Queen/A Kind of Magic, Queen/Innuendo, Queen/jazz");
}

TEST_F(OrderingTest, SlotZeroOfEveryTableIsTheAllRows) {
    Describe(R"(
Queen
  Jazz
    a
)");
    albums = SortAlbums(library, true);
    songs = SortTracks(library, albums, false, 1);
    const RowTable expected = {0, 0};
    EXPECT_EQ(albums.AlbumRowArtist, expected);
    EXPECT_EQ(albums.AlbumRowAlbum, expected);
    EXPECT_EQ(songs.SongRowTrack, expected);
    EXPECT_EQ(songs.SongRowAlbumRow, (RowTable{0, 1}));
}

TEST_F(OrderingTest, AnEmptyLibraryLeavesTheAllRowAlone) {
    albums = SortAlbums(library, true);
    songs = SortTracks5(library, albums);
    EXPECT_EQ(albums.AlbumRowArtist, RowTable{0});
    EXPECT_EQ(albums.AlbumRowAlbum, RowTable{0});
    EXPECT_EQ(songs.SongRowTrack, RowTable{0});
    EXPECT_EQ(songs.SongRowAlbumRow, RowTable{0});
}

TEST_F(OrderingTest, OneArtistsAlbumsLeaveTheOthersOut) {
    Describe(R"(
Abba
  Arrival
    a
Queen
  Jazz
    b
Zappa
  Apostrophe
    c
)");
    albums = SortAlbums(library, false, 1);
    EXPECT_EQ(Albums(), "Queen/Jazz");
}

TEST_F(OrderingTest, AlbumsAreComparedCodeUnitByCodeUnit) {
    library.Artists.resize(1);
    for (const QString& name : {QString(QChar(0xFFFD)), QString::fromUtf8("\xF0\x9F\x98\x80"),
                                QString::fromUtf8("Ébène"), u"Zebra"_s, u"A_"_s, u"AB"_s}) {
        library.Artists[0].Albums.emplace_back().Name = name;
    }
    albums = SortAlbums(library, true);
    // "_" comes before the lower-case letters, "é" after all of them, and the first half of the
    // smiley (D83D) before FFFD, although the smiley's own number is the greater one.
    EXPECT_EQ(albums.AlbumRowAlbum, (RowTable{0, 4, 5, 3, 2, 1, 0}));
}

TEST_F(OrderingTest, TwoAlbumsNamedGreatestHitsAreBothListedTheLowerArtistIndexFirst) {
    Describe(R"(
Zappa
  Greatest Hits
    a
Abba
  Arrival
    b
  greatest hits
    c
)");
    albums = SortAlbums(library, true);
    EXPECT_EQ(Albums(), "Abba/Arrival, Zappa/Greatest Hits, Abba/greatest hits");
}

TEST_F(OrderingTest, AlbumsOfEqualNamesOfOneArtistKeepTheirOrder) {
    Describe(R"(
Abba
  Live
    a
  LIVE
    b
  live
    c
)");
    albums = SortAlbums(library, true);
    EXPECT_EQ(Albums(), "Abba/Live, Abba/LIVE, Abba/live");
}

TEST_F(OrderingTest, AnAlbumWhoseTracksCarryNoNumbersIsListedByTitle) {
    Describe(R"(
Abba
  Arrival
    Tiger
    money
    Dum Dum
)");
    albums = SortAlbums(library, true);
    songs = SortTracks(library, albums, false, 1);
    EXPECT_EQ(Songs(), "Dum Dum, money, Tiger");
}

TEST_F(OrderingTest, TracksAreOrderedByNumberThenByTitleWithoutRegardToCase) {
    Describe(R"(
Abba
  Arrival
    b | 1
    A | 1
    a | 2
)");
    albums = SortAlbums(library, true);
    songs = SortTracks(library, albums, false, 1);
    EXPECT_EQ(Songs(), "A, b, a");
}

TEST_F(OrderingTest, TrackNumbersAreComparedAsNumbersAndMayBeNegative) {
    Describe(R"(
Abba
  Arrival
    ten | 10
    nine | 9
    minus | -1
    none
)");
    albums = SortAlbums(library, true);
    songs = SortTracks(library, albums, false, 1);
    EXPECT_EQ(Songs(), "minus, none, nine, ten");
}

TEST_F(OrderingTest, TracksOfEqualNumberAndTitleKeepTheirPosition) {
    Describe(R"(
Abba
  Arrival
    Intro | 1
    INTRO | 1
    intro | 1
)");
    albums = SortAlbums(library, true);
    songs = SortTracks(library, albums, false, 1);
    EXPECT_EQ(songs.SongRowTrack, (RowTable{0, 0, 1, 2}));
}

TEST_F(OrderingTest, SongsOfEveryAlbumRowStandAlbumAfterAlbum) {
    Describe(R"(
Queen
  Jazz
    Mustapha | 2
    Dead on Time | 1
Abba
  Arrival
    Tiger
)");
    albums = SortAlbums(library, true);
    songs = SortTracks(library, albums, true);
    EXPECT_EQ(Songs(), "Tiger, Dead on Time, Mustapha");
    EXPECT_EQ(songs.SongRowAlbumRow, (RowTable{0, 1, 2, 2}));
    EXPECT_EQ(songs.SongRowTrack, (RowTable{0, 0, 1, 0}));
}

TEST_F(OrderingTest, SongsOfSeveralAlbumsAreInTitleOrderWhateverTheirNumbers) {
    Describe(R"(
Queen
  Jazz
    Mustapha | 1
    Bicycle Race | 4
  Innuendo
    Headlong | 5
    bijou | 11
)");
    albums = SortAlbums(library, false, 0);
    songs = SortTracks5(library, albums);
    EXPECT_EQ(Songs(), "Bicycle Race, bijou, Headlong, Mustapha");
    EXPECT_EQ(songs.SongRowAlbumRow, (RowTable{0, 2, 1, 1, 2}));
    EXPECT_EQ(songs.SongRowTrack, (RowTable{0, 1, 1, 0, 0}));
}

TEST_F(OrderingTest, OfTwoSongsTitledIntroSequenceNumberTwelveComesBeforeSeven) {
    std::vector<TrackRecord> tracks(12);
    for (size_t i = 0; i < tracks.size(); ++i) {
        tracks[i].Title = u"A%1"_s.arg(QChar(u'a' + static_cast<char16_t>(i)));
    }
    tracks[6].Title = tracks[11].Title = u"Intro"_s;
    library.Artists.resize(1);
    library.Artists[0].Albums.resize(1);
    library.Artists[0].Albums[0].Tracks = tracks;
    albums = SortAlbums(library, true);
    songs = SortTracks5(library, albums);
    EXPECT_EQ(songs.SongRowTrack, (RowTable{0, 0, 1, 2, 3, 4, 5, 7, 8, 9, 10, 11, 6}));
}

TEST_F(OrderingTest, TheFirstSequenceNumberIsOne) {
    // Positions 8 and 9 carry the numbers 9 and 10, and 10 comes first.
    std::vector<TrackRecord> tracks(10);
    for (TrackRecord& track : tracks) {
        track.Title = u"A"_s;
    }
    tracks[8].Title = tracks[9].Title = u"Intro"_s;
    library.Artists.resize(1);
    library.Artists[0].Albums.resize(1);
    library.Artists[0].Albums[0].Tracks = tracks;
    albums = SortAlbums(library, true);
    songs = SortTracks5(library, albums);
    EXPECT_EQ(songs.SongRowTrack, (RowTable{0, 0, 1, 2, 3, 4, 5, 6, 7, 9, 8}));
}

TEST_F(OrderingTest, SequenceNumbersFollowTheAlbumRowsAndNotTheLibrary) {
    // By album rows: Arrival's Intro has number 1, Jazz's has 2.
    Describe(R"(
Queen
  Jazz
    Intro
Abba
  Arrival
    Intro
)");
    albums = SortAlbums(library, true);
    songs = SortTracks5(library, albums);
    EXPECT_EQ(songs.SongRowAlbumRow, (RowTable{0, 1, 2}));
}

// ---- the same orders by insertion, one element at a time, on random libraries

namespace {

bool IsLess(const QString& left, const QString& right) {
    const QString a = left.toLower();
    const QString b = right.toLower();
    for (qsizetype i = 0; i < a.size() && i < b.size(); ++i) {
        if (a[i] != b[i]) {
            return a[i].unicode() < b[i].unicode();
        }
    }
    return a.size() < b.size();
}

/// Two tables that are filled by insertion. `comesBefore(first, second, row)` tells whether the new
/// element belongs before the one of a row.
class InsertionTables {
public:
    std::vector<qint32> First{0, 0};
    std::vector<qint32> Second{0, 0};

    template <class ComesBefore>
    void Insert(qint32 first, qint32 second, const ComesBefore& comesBefore) {
        if (m_isEmpty) {
            m_isEmpty = false;
            First[1] = first;
            Second[1] = second;
            return;
        }
        First.push_back(0);
        Second.push_back(0);
        size_t j = 1;
        while (j < First.size() - 1 && !comesBefore(first, second, j)) {
            ++j;
        }
        for (size_t k = First.size() - 1; k > j; --k) {
            First[k] = First[k - 1];
            Second[k] = Second[k - 1];
        }
        First[j] = first;
        Second[j] = second;
    }

private:
    bool m_isEmpty = true;
};

QString RandomName(std::mt19937& random) {
    const QString letters = QString::fromUtf8("aAbBÉé ~");
    QString name;
    for (unsigned length = 1 + random() % 2; length > 0; --length) {
        name += letters[static_cast<qsizetype>(random() % 8)];
    }
    return name;
}

std::vector<ArtistRecord> RandomLibrary(std::mt19937& random) {
    std::vector<ArtistRecord> artists(1 + random() % 6);
    for (ArtistRecord& artist : artists) {
        artist.Albums.resize(1 + random() % 8);
        for (AlbumRecord& album : artist.Albums) {
            album.Name = RandomName(random);
            album.Tracks.resize(1 + random() % 12);
            for (TrackRecord& track : album.Tracks) {
                track.Title = RandomName(random);
                track.TrackNumber = static_cast<qint32>(random() % 4);
            }
        }
    }
    return artists;
}

} // namespace

TEST_F(OrderingTest, AlbumsAgreeWithInsertionOnRandomLibraries) {
    std::mt19937 random(1);
    for (int round = 0; round < 200; ++round) {
        library.Artists = RandomLibrary(random);
        InsertionTables expected;
        const auto nameOf = [this](qint32 artist, qint32 album) {
            return library.Artists[artist].Albums[album].Name;
        };
        for (qint32 artist = 0; artist < static_cast<qint32>(library.Artists.size()); ++artist) {
            const auto count = static_cast<qint32>(library.Artists[artist].Albums.size());
            for (qint32 album = 0; album < count; ++album) {
                expected.Insert(artist, album, [&](qint32 first, qint32 second, size_t row) {
                    return IsLess(nameOf(first, second),
                                  nameOf(expected.First[row], expected.Second[row]));
                });
            }
        }
        albums = SortAlbums(library, true);
        ASSERT_EQ(albums.AlbumRowArtist, expected.First);
        ASSERT_EQ(albums.AlbumRowAlbum, expected.Second);
    }
}

TEST_F(OrderingTest, TracksAgreeWithInsertionOnRandomLibraries) {
    std::mt19937 random(2);
    for (int round = 0; round < 200; ++round) {
        library.Artists = RandomLibrary(random);
        albums = SortAlbums(library, true);
        const auto row = static_cast<qint32>(1 + random() % (albums.AlbumRowAlbum.size() - 1));
        const std::vector<TrackRecord>& tracks = AlbumOfRow(row).Tracks;
        InsertionTables expected;
        for (qint32 track = 0; track < static_cast<qint32>(tracks.size()); ++track) {
            expected.Insert(track, row, [&](qint32 first, qint32, size_t j) {
                const TrackRecord& added = tracks[first];
                const TrackRecord& other = tracks[expected.First[j]];
                return (added.TrackNumber == other.TrackNumber &&
                        IsLess(added.Title, other.Title)) ||
                       (added.TrackNumber != other.TrackNumber &&
                        added.TrackNumber < other.TrackNumber);
            });
        }
        songs = SortTracks(library, albums, false, row);
        ASSERT_EQ(songs.SongRowTrack, expected.First);
        ASSERT_EQ(songs.SongRowAlbumRow, expected.Second);
    }
}
