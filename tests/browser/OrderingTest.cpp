#include "browser/Ordering.h"
#include "tests/browser/BrowserFixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class OrderingTest : public testing::Test {
protected:
    MusicLibrary library;
    AlbumTables albums;
    SongTables songs;

    /// The library's artists and the rows of all its albums.
    void Describe(const char* description) {
        library.Artists = RecordsOf(description);
        albums = SortAlbums(library, true);
    }

    /// A library of one album with these titles.
    void DescribeTitles(const QStringList& titles) {
        library.Artists.resize(1);
        library.Artists[0].Albums.resize(1);
        for (const QString& title : titles) {
            library.Artists[0].Albums[0].Tracks.emplace_back().Title = title;
        }
        albums = SortAlbums(library, true);
    }

    const AlbumRecord& AlbumOfRow(qint32 row) const {
        return library.Artists.at(albums.AlbumRowArtist.at(row))
            .Albums.at(albums.AlbumRowAlbum.at(row));
    }

    /// The album rows, as "Queen/Jazz, Abba/Arrival".
    std::string Albums() const {
        QStringList names;
        for (qint32 row = 1; row < static_cast<qint32>(albums.AlbumRowAlbum.size()); ++row) {
            names +=
                library.Artists.at(albums.AlbumRowArtist[row]).Name + u'/' + AlbumOfRow(row).Name;
        }
        return names.join(u", "_s).toStdString();
    }

    /// The titles of the song rows.
    std::string Songs() const {
        QStringList titles;
        for (qint32 row = 1; row < static_cast<qint32>(songs.SongRowTrack.size()); ++row) {
            const AlbumRecord& album = AlbumOfRow(songs.SongRowAlbumRow.at(row));
            titles += album.Tracks.at(songs.SongRowTrack[row]).Title;
        }
        return titles.join(u", "_s).toStdString();
    }
};

} // namespace

// ---- albums

TEST_F(OrderingTest, AlbumsAreOrderedByNameWithoutRegardToCaseAndThenAsInTheLibrary) {
    Describe(R"(
Zappa
  Greatest Hits
    a
Abba
  Live
    b
  greatest hits
    c
  LIVE
    d
  A Kind of Magic
    e
)");
    EXPECT_EQ(Albums(), "Abba/A Kind of Magic, Zappa/Greatest Hits, Abba/greatest hits, "
                        "Abba/Live, Abba/LIVE");
    albums = SortAlbums(library, false, 1);
    EXPECT_EQ(Albums(), "Abba/A Kind of Magic, Abba/greatest hits, Abba/Live, Abba/LIVE");
    albums = SortAlbums(library, false, 0);
    EXPECT_EQ(Albums(), "Zappa/Greatest Hits");
}

TEST_F(OrderingTest, AlbumsAreComparedCodeUnitByCodeUnit) {
    library.Artists.resize(1);
    for (const QString& name :
         {u"\uFFFD"_s, u"\U0001F600"_s, u"Ébène"_s, u"Zebra"_s, u"A_"_s, u"AB"_s}) {
        library.Artists[0].Albums.emplace_back().Name = name;
    }
    albums = SortAlbums(library, true);
    // "_" comes before the lower-case letters, "é" after all of them, and the first half of the
    // smiley (D83D) before FFFD, although the smiley's own number is the greater one.
    EXPECT_EQ(albums.AlbumRowAlbum, (RowTable{0, 4, 5, 3, 2, 1, 0}));
}

// ---- songs of one album

TEST_F(OrderingTest, TracksOfAnAlbumAreOrderedByNumberThenByTitleWithoutRegardToCase) {
    Describe(R"(
Abba
  Arrival
    ten | 10
    nine | 9
    b | 1
    A | 1
    a | 2
    minus | -1
    money
    Dum Dum
)");
    songs = SortTracks(library, albums, false, 1);
    EXPECT_EQ(Songs(), "minus, Dum Dum, money, A, b, a, nine, ten");
}

TEST_F(OrderingTest, TracksOfEqualNumberAndTitleKeepTheirPosition) {
    DescribeTitles({u"Intro"_s, u"INTRO"_s, u"intro"_s});
    songs = SortTracks(library, albums, false, 1);
    EXPECT_EQ(songs.SongRowTrack, (RowTable{0, 0, 1, 2}));
}

TEST_F(OrderingTest, SongsOfEveryAlbumRowAreListedAlbumByAlbum) {
    Describe(R"(
Queen
  Jazz
    Mustapha | 2
    Dead on Time | 1
Abba
  Arrival
    Tiger
)");
    songs = SortTracks(library, albums, true);
    EXPECT_EQ(Songs(), "Tiger, Dead on Time, Mustapha");
    EXPECT_EQ(songs.SongRowAlbumRow, (RowTable{0, 1, 2, 2}));
    EXPECT_EQ(songs.SongRowTrack, (RowTable{0, 0, 1, 0}));
}

// ---- songs of several albums

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
    songs = SortTracks5(library, albums);
    EXPECT_EQ(Songs(), "Bicycle Race, bijou, Headlong, Mustapha");
    EXPECT_EQ(songs.SongRowAlbumRow, (RowTable{0, 2, 1, 1, 2}));
    EXPECT_EQ(songs.SongRowTrack, (RowTable{0, 1, 1, 0, 0}));
}

TEST_F(OrderingTest, SongsOfEqualTitlesAreOrderedByTheirNumbersFromOneOnAsText) {
    // Positions 8 and 9 carry the numbers 9 and 10, and 10 comes first.
    DescribeTitles(QStringList(8, u"A"_s) + QStringList(2, u"Intro"_s));
    songs = SortTracks5(library, albums);
    EXPECT_EQ(songs.SongRowTrack, (RowTable{0, 0, 1, 2, 3, 4, 5, 6, 7, 9, 8}));
}

TEST_F(OrderingTest, SequenceNumbersFollowTheAlbumRowsAndNotTheLibrary) {
    // By album rows: Arrival's Intro has number 1, Jazz's has 2.
    Describe("Queen\n  Jazz\n    Intro\nAbba\n  Arrival\n    Intro");
    songs = SortTracks5(library, albums);
    EXPECT_EQ(songs.SongRowAlbumRow, (RowTable{0, 1, 2}));
}
