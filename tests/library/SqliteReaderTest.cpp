// What the reader makes of a well-made pair of databases.

#include "tests/library/SqliteDevice.h"

#include <chrono>
#include <filesystem>

using namespace Qt::StringLiterals;

class SQLiteLibrary : public SqliteDevice {
protected:
    /// Loads tracks named by artist and album; their titles are their numbers from 1 on.
    void LoadNames(const std::vector<std::pair<QString, QString>>& names) {
        std::vector<SampleTrack> tracks;
        for (const auto& [artist, album] : names) {
            const auto number = qint32(tracks.size() + 1);
            tracks.push_back({artist, album, QString::number(number), number, 1, u"x"_s});
        }
        Load(tracks);
    }

    /// The groups as "artist: album (number of tracks), album (number of tracks)".
    QStringList Groups() const {
        QStringList groups;
        for (const ArtistRecord& artist : Library.Artists) {
            QStringList albums;
            for (const AlbumRecord& album : artist.Albums) {
                albums += album.Name + u" (%1)"_s.arg(album.Tracks.size());
            }
            groups += artist.Name + u": "_s + albums.join(u", "_s);
        }
        return groups;
    }
};

TEST_F(SQLiteLibrary, TheFieldsOfATrackAreTaken) {
    Load({{u"ABBA"_s, u"Arrival"_s, u"Dancing Queen"_s, 2, 3'700'123, u"F12/ABCD.mp3"_s}});

    ExpectLoaded({u"ABBA | Arrival | 2 Dancing Queen | 3700123 | 1 | "
                  "E:\\iPod_Control\\Music\\F12\\ABCD.mp3"_s});
    EXPECT_EQ(Library.TrackCount, 1);
    EXPECT_EQ(Library.TotalSize, 3'700'123);
}

TEST_F(SQLiteLibrary, TextsOfAnyScriptAreTaken) {
    Load({{u"Björk"_s, u"日本語"_s, u"🎵 song"_s, 1, 1, u"F00/Ä.mp3"_s}});

    ExpectLoaded({u"Björk | 日本語 | 1 🎵 song | 1 | 1 | E:\\iPod_Control\\Music\\F00\\Ä.mp3"_s});
}

TEST_F(SQLiteLibrary, TracksComeSortedByArtistAndAlbum) {
    Load({{u"B"_s, u"z"_s, u"1"_s, 1, 1, u"1"_s},
          {u"A"_s, u"y"_s, u"2"_s, 2, 1, u"2"_s},
          {u"B"_s, u"a"_s, u"3"_s, 3, 1, u"3"_s}});

    ExpectLoaded({u"A | y | 2 2 | 1 | 1 | E:\\iPod_Control\\Music\\2"_s,
                  u"B | a | 3 3 | 1 | 1 | E:\\iPod_Control\\Music\\3"_s,
                  u"B | z | 1 1 | 1 | 1 | E:\\iPod_Control\\Music\\1"_s});
}

TEST_F(SQLiteLibrary, SlashesOfFolderAndLocationBecomeBackslashes) {
    SqliteLibraryLayout layout;
    layout.BaseFolder = u"iTunes_Control/My/Music"_s;

    Load({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"F00/deep/ABCD.mp3"_s}}, layout);

    ExpectLoaded({u"A | B | 1 C | 1 | 1 | E:\\iTunes_Control\\My\\Music\\F00\\deep\\ABCD.mp3"_s});
}

TEST_F(SQLiteLibrary, TheFirstBaseLocationCounts) {
    Write({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s}});
    InLocations(u"Insert Into base_location (id, path) Values (2, 'Elsewhere')"_s);

    Load();

    ExpectLoaded({u"A | B | 1 C | 1 | 1 | E:\\iPod_Control\\Music\\x"_s});
}

TEST_F(SQLiteLibrary, TheTableOfKindsMayLieInEitherFile) {
    SqliteLibraryLayout layout;
    layout.KindsInLibrary = true;

    Load({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s, u"QuickTime movie file"_s}}, layout);

    ExpectLoaded({u"A | B | 1 C | 1 | 2 | E:\\iPod_Control\\Music\\x"_s});
}

TEST_F(SQLiteLibrary, AKindIsFoundByItsPlaceInTheOrderOfIds) {
    // Kind 2 is the second one in the order of ids, whatever its own id.
    Write({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s}});
    InLocations(u"Delete From location_kind_map;"
                "Insert Into location_kind_map Values (30, 'AAC audio file');"
                "Insert Into location_kind_map Values (20, 'MPEG-4 video file');"
                "Insert Into location_kind_map Values (2, 'no such kind');"
                "Update location Set kind_id = 2"_s);

    Load();

    ExpectLoaded({u"A | B | 1 C | 1 | 2 | E:\\iPod_Control\\Music\\x"_s});
}

TEST_F(SQLiteLibrary, AKindIdOfZeroIsOfNoKind) {
    Write({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s}});
    InLocations(u"Update location Set kind_id = 0"_s);

    Load();

    ExpectLoaded({u"A | B | 1 C | 1 | 0 | E:\\iPod_Control\\Music\\x"_s});
}

TEST_F(SQLiteLibrary, AKindInAnotherLanguageIsOfNoKind) {
    Load({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s, u"MPEG-Audiodatei"_s}});

    ExpectLoaded({u"A | B | 1 C | 1 | 0 | E:\\iPod_Control\\Music\\x"_s});
}

TEST_F(SQLiteLibrary, MissingNamesAreUnknown) {
    for (const bool asNull : {true, false}) {
        SqliteLibraryLayout layout;
        layout.EmptyAsNull = asNull;

        Load({{{}, {}, {}, 0, 1, u"x"_s}}, layout);

        ExpectLoaded({u"UNKNOWN | UNKNOWN | 0 UNKNOWN | 1 | 1 | E:\\iPod_Control\\Music\\x"_s});
    }
}

TEST_F(SQLiteLibrary, ATrackWithoutAlbumStaysInAnUnknownAlbumOfItsArtist) {
    LoadNames({{u"A"_s, {}}, {u"A"_s, u"x"_s}, {u"B"_s, {}}});

    EXPECT_EQ(Groups(), (QStringList{u"A: UNKNOWN (1), x (1)"_s, u"B: UNKNOWN (1)"_s}));
}

TEST_F(SQLiteLibrary, NullAndEmptyNamesAreOneGroup) {
    Write({{u"A"_s, u"B"_s, u"1"_s, 1, 1, u"x"_s}, {u"A"_s, u"B"_s, u"2"_s, 2, 1, u"x"_s}});
    InLibrary(u"Update item Set artist = NULL, album = NULL Where title = '1';"
              "Update item Set artist = '', album = '' Where title = '2'"_s);

    Load();

    EXPECT_EQ(Groups(), QStringList{u"UNKNOWN: UNKNOWN (2)"_s});
}

TEST_F(SQLiteLibrary, AnotherArtistBetweenTwoSpellingsKeepsThemApart) {
    // In SQLite's order capitals come before small letters.
    LoadNames({{u"ABBA"_s, u"x"_s}, {u"AC/DC"_s, u"x"_s}, {u"Abba"_s, u"x"_s}});

    EXPECT_EQ(Groups(), (QStringList{u"ABBA: x (1)"_s, u"AC/DC: x (1)"_s, u"Abba: x (1)"_s}));
}

TEST_F(SQLiteLibrary, SpellingsThatFollowEachOtherAreOneArtistNamedAsTheFirst) {
    LoadNames({{u"ABBA"_s, u"x"_s}, {u"Abba"_s, u"x"_s}, {u"abba"_s, u"y"_s}});

    EXPECT_EQ(Groups(), QStringList{u"ABBA: x (2), y (1)"_s});
}

TEST_F(SQLiteLibrary, AnotherAlbumBetweenTwoSpellingsKeepsThemApart) {
    LoadNames({{u"A"_s, u"GOLD"_s}, {u"A"_s, u"Other"_s}, {u"A"_s, u"gold"_s}});

    EXPECT_EQ(Groups(), QStringList{u"A: GOLD (1), Other (1), gold (1)"_s});
}

TEST_F(SQLiteLibrary, AlbumSpellingsThatFollowEachOtherAreOneNamedAsTheFirst) {
    LoadNames({{u"A"_s, u"GOLD"_s}, {u"A"_s, u"Gold"_s}});

    EXPECT_EQ(Groups(), QStringList{u"A: GOLD (2)"_s});
}

TEST_F(SQLiteLibrary, AlbumsAreSortedAnewForEachSpellingOfAnArtist) {
    // "A" has x and y, then "a" has x: the album before is y, so x begins again.
    LoadNames({{u"A"_s, u"x"_s}, {u"A"_s, u"y"_s}, {u"a"_s, u"x"_s}, {u"a"_s, u"x"_s}});

    EXPECT_EQ(Groups(), QStringList{u"A: x (1), y (1), x (2)"_s});
}

TEST_F(SQLiteLibrary, AnAlbumThatTwoArtistsShareBelongsToEach) {
    LoadNames({{u"A"_s, u"Best of"_s}, {u"B"_s, u"Best of"_s}, {u"B"_s, u"Best of"_s}});

    EXPECT_EQ(Groups(), (QStringList{u"A: Best of (1)"_s, u"B: Best of (2)"_s}));
}

TEST_F(SQLiteLibrary, AMissingArtistJoinsOneNamedUnknownRightBehindIt) {
    LoadNames({{{}, u"x"_s}, {u"Unknown"_s, u"x"_s}});
    EXPECT_EQ(Groups(), QStringList{u"UNKNOWN: x (2)"_s});

    LoadNames({{{}, u"x"_s}, {u"A"_s, u"x"_s}, {u"Unknown"_s, u"x"_s}});
    EXPECT_EQ(Groups(), (QStringList{u"UNKNOWN: x (1)"_s, u"A: x (1)"_s, u"Unknown: x (1)"_s}));
}

TEST_F(SQLiteLibrary, AnItemWithoutLocationAndALocationWithoutItemAreNoTracks) {
    Write({{u"A"_s, u"B"_s, u"1"_s, 1, 1, u"1"_s},
           {u"A"_s, u"B"_s, u"2"_s, 2, 1, u"2"_s},
           {u"A"_s, u"B"_s, u"3"_s, 3, 1, u"3"_s}});
    InLibrary(u"Delete From item Where title = '2'"_s);
    InLocations(u"Delete From location Where location = '3'"_s);

    Load();

    ExpectLoaded({u"A | B | 1 1 | 1 | 1 | E:\\iPod_Control\\Music\\1"_s});
    EXPECT_EQ(Window.prgCopy.Max(), 1);
}

TEST_F(SQLiteLibrary, AnItemWithTwoLocationsIsTwoTracks) {
    Write({{u"A"_s, u"B"_s, u"1"_s, 1, 1, u"1"_s}});
    InLocations(
        u"Insert Into location Select item_pid, 1, 1, '2', NULL, 1, NULL, 5 From location"_s);

    Load();

    EXPECT_EQ(Library.TrackCount, 2);
    EXPECT_EQ(Library.TotalSize, 6);
}

TEST_F(SQLiteLibrary, TheMessageAndTheBarTellTheProgress) {
    Window.Form1.SetState(WindowState::Minimized);
    Window.Form1.Captions.clear();

    LoadNames({{u"A"_s, u"x"_s}, {u"A"_s, u"x"_s}, {u"B"_s, u"x"_s}});

    const QStringList messages = {u"Please wait..."_s, u"Loading music... 33%"_s,
                                  u"Loading music... 67%"_s, u"Loading music... 100%"_s};
    EXPECT_EQ(Window.lblMessage.Captions, messages);
    EXPECT_EQ(Window.Form1.Captions, messages + QStringList{u"Songlift"_s});
    EXPECT_EQ(Window.prgCopy.Max(), 3);
    EXPECT_EQ(Window.prgCopy.Values, (std::vector<float>{1, 2, 3, 0}));
    EXPECT_EQ(Window.Form1.RefreshCount, 4);
    EXPECT_EQ(Window.Combo1.RefreshCount, 1);
}

TEST_F(SQLiteLibrary, AnEmptyResultLeavesOneBlankTrackThatDoesNotCount) {
    LoadNames({{u"A"_s, u"x"_s}});

    Load(std::vector<SampleTrack>());

    EXPECT_EQ(Library.TrackCount, 0);
    EXPECT_EQ(Library.TotalSize, 0);
    EXPECT_EQ(Lines(Library), QStringList{u" |  | 0  | 0 | 0 | "_s});
    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Window.prgCopy.Max(), 0);
    ExpectEnded();
}

TEST_F(SQLiteLibrary, ALoadReplacesTheLibraryBefore) {
    LoadNames({{u"A"_s, u"x"_s}, {u"B"_s, u"y"_s}});
    LoadNames({{u"C"_s, u"z"_s}});

    EXPECT_EQ(Groups(), QStringList{u"C: z (1)"_s});
    EXPECT_EQ(Library.TrackCount, 1);
}

TEST_F(SQLiteLibrary, ALibraryOf32767TracksLoads) {
    Load(std::vector<SampleTrack>(32767, {u"A"_s, u"B"_s, u"C"_s, 1, 100'000, u"x"_s}));

    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Library.TrackCount, 32767);
    EXPECT_EQ(Library.TotalSize, 3'276'700'000.0);
    EXPECT_EQ(Window.lblMessage.Captions.size(), 1 + 101);
    ExpectConsistent(Library);
}

TEST_F(SQLiteLibrary, TheTrackBehind32767IsAnOverflowAndTheOthersStay) {
    std::vector<SampleTrack> tracks(32767, {u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s});
    tracks.push_back({u"B"_s, u"B"_s, u"too many"_s, 1, 1, u"x"_s});

    Load(tracks);

    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Window.prgCopy.Max(), 32768);
    EXPECT_EQ(Library.TrackCount, 32767);
    EXPECT_EQ(Library.TotalSize, 32767);
    EXPECT_EQ(Groups(), QStringList{u"A: B (32767)"_s});
    ExpectConsistent(Library);
}

// ---- the files themselves

TEST_F(SQLiteLibrary, FolderNamesThatMeanSomethingInAnAddressAreTakenAsTheyAre) {
    const QString folder = Folder.path() + u"/100% #1? a&b=c+d 'q' \"r\" ä;%41"_s;
    ASSERT_TRUE(QDir().mkpath(folder));
    PutFilesInto(folder);

    Load({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s}});

    ExpectLoaded({u"A | B | 1 C | 1 | 1 | E:\\iPod_Control\\Music\\x"_s});
}

TEST_F(SQLiteLibrary, NothingIsWrittenNotEvenForAMoment) {
    Write({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s}});
    // A database that asks for a write-ahead log would get files beside it from a usual reader.
    InLibrary(u"Pragma journal_mode = WAL"_s);
    InLocations(u"Pragma journal_mode = WAL"_s);
    QFile library(LibraryFile());
    ASSERT_TRUE(library.open(QIODevice::ReadOnly));
    const QByteArray before = library.readAll();
    // A folder tells when a file in it was last made or removed.
    const std::filesystem::path folder = Folder.path().toStdString();
    const std::filesystem::file_time_type longAgo{std::chrono::hours(24)};
    std::filesystem::last_write_time(folder, longAgo);

    Load();

    ExpectLoaded({u"A | B | 1 C | 1 | 1 | E:\\iPod_Control\\Music\\x"_s});
    EXPECT_EQ(std::filesystem::last_write_time(folder), longAgo);
    EXPECT_EQ(QDir(Folder.path()).entryList(QDir::Files),
              (QStringList{u"Library.itdb"_s, u"Locations.itdb"_s}));
    ASSERT_TRUE(library.seek(0));
    EXPECT_EQ(library.readAll(), before);
    EXPECT_EQ(Files.ChangesBelow(u"E:\\"_s), QStringList());
}
