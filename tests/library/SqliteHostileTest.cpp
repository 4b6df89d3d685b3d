// Missing, damaged and hostile databases: a load ends soon, with an error box, and what it leaves
// is a library that can be walked.

#include "tests/library/HostileLibrary.h"

#include <random>

using namespace Qt::StringLiterals;

// ---- files

TEST_F(HostileSQLiteLibrary, AMissingLibraryIsReported) {
    Files.Remove(u"E:\\iPod_Control\\iTunes\\iTunes Library.itlp\\Library.itdb"_s);

    LoadSoon();

    ExpectError(u"Error 53: File not found"_s);
}

TEST_F(HostileSQLiteLibrary, MissingLocationsAreReported) {
    Files.Remove(u"E:\\iPod_Control\\iTunes\\iTunes Library.itlp\\Locations.itdb"_s);

    LoadSoon();

    ExpectError(u"Error 53: File not found"_s);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(HostileSQLiteLibrary, AFileThatVanishesBeforeItIsOpenedIsReported) {
    QFile::remove(LocationsFile());
    LoadSoon();
    EXPECT_EQ(Error(), 14);

    QFile::remove(LibraryFile());
    LoadSoon();
    ExpectError(u"Error 14: unable to open database file"_s);
    EXPECT_FALSE(QFile::exists(LibraryFile()));
}

TEST_F(HostileSQLiteLibrary, AFolderInPlaceOfTheFileIsReported) {
    QFile::remove(LibraryFile());
    ASSERT_TRUE(QDir().mkpath(LibraryFile()));

    LoadSoon();

    EXPECT_NE(Error(), 0);
}

TEST_F(HostileSQLiteLibrary, AFileThatIsNoDatabaseIsReported) {
    for (const QString& file : {LibraryFile(), LocationsFile()}) {
        const QByteArray whole = ReadAll(file);
        LoadWith(file, QByteArray(5000, 'x'));
        ExpectError(u"Error 26: file is not a database"_s);
        WriteAll(file, whole);
    }
}

TEST_F(HostileSQLiteLibrary, AnEmptyFileHasNoTables) {
    LoadWith(LocationsFile(), {});

    ExpectError(u"Error 1: no such table: location_kind_map"_s);
}

TEST_F(HostileSQLiteLibrary, ATruncatedFileIsReportedOrLoadsWhatItHolds) {
    std::vector<SampleTrack> tracks;
    for (int i = 0; i < 200; ++i) {
        tracks.push_back({u"Artist"_s, u"Album"_s, QString::number(i), i, 1, u"x"_s});
    }
    Write(tracks);
    int reported = 0;
    for (const QString& file : {LibraryFile(), LocationsFile()}) {
        const QByteArray whole = ReadAll(file);
        for (qsizetype length = 0; length < whole.size(); length += 509) {
            LoadWith(file, whole.left(length));
            EXPECT_LT(Library.TrackCount, 201);
            reported += Error() != 0 ? 1 : 0;
        }
        LoadWith(file, whole);
        EXPECT_EQ(Error(), 0);
        EXPECT_EQ(Library.TrackCount, 200);
    }
    EXPECT_GT(reported, 20);
}

TEST_F(HostileSQLiteLibrary, FiveHundredChangedFilesAreReportedOrLoad) {
    const QByteArray library = ReadAll(LibraryFile());
    const QByteArray locations = ReadAll(LocationsFile());
    std::mt19937 random(20240608);
    int reported = 0;
    for (int round = 0; round < 500; ++round) {
        QByteArray changedLibrary = library;
        QByteArray changedLocations = locations;
        for (int change = 0; change < 20; ++change) {
            QByteArray& bytes = random() % 2 == 0 ? changedLibrary : changedLocations;
            // Past the head of the file, which would make it no database at all.
            bytes[20 + qsizetype(random() % quint32(bytes.size() - 20))] = char(random());
        }
        WriteAll(LibraryFile(), changedLibrary);
        LoadWith(LocationsFile(), changedLocations);
        reported += Error() != 0 ? 1 : 0;
    }
    EXPECT_GT(reported, 20);
    EXPECT_LT(reported, 500);
}

TEST_F(HostileSQLiteLibrary, ADamagedSchemaIsReported) {
    InLibrary(u"Pragma writable_schema = 1;"
              "Update sqlite_schema Set sql = 'Create Table item (pid' Where name = 'item'"_s);

    LoadSoon();

    EXPECT_EQ(Error(), 11);
}

TEST_F(HostileSQLiteLibrary, ALongNameInAnErrorFitsTheBox) {
    InLocations(
        u"Drop Table base_location; Create View base_location As Select * From \"%1\""_s.arg(
            QString(50'000, u'x')));

    LoadSoon();

    ExpectError(u"Error 1: no such table: main2."_s + QString(300 - 21, u'x'));
}

TEST_F(HostileSQLiteLibrary, LinesInAnErrorBecomeOne) {
    InLocations(u"Drop Table base_location;"
                "Create View base_location As Select * From \"a\n\n\tb\""_s);

    LoadSoon();

    ExpectError(u"Error 1: no such table: main2.a b"_s);
}

// ---- use of memory

TEST_F(HostileSQLiteLibrary, AValueThatIsTooLongIsReported) {
    InLibrary(u"Update item Set title = hex(zeroblob(60000))"_s);

    LoadSoon();

    ExpectError(u"Error 18: string or blob too big"_s);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(HostileSQLiteLibrary, TheTracksBeforeAValueThatIsTooLongStay) {
    for (const QString& size : {u"32769"_s, u"500000"_s}) {
        InLibrary(u"Update item Set title = hex(zeroblob("_s + size + u")) Where artist = 'B'"_s);

        LoadSoon();

        ExpectError(u"Error 18: string or blob too big"_s);
        EXPECT_EQ(Lines(Library),
                  QStringList{u"A | X | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\1"_s});
    }
}

TEST_F(HostileSQLiteLibrary, TheLongestValuesLoad) {
    InLibrary(u"Update item Set title = hex(zeroblob(32768)), artist = title, album = title"_s);

    LoadSoon();

    EXPECT_EQ(Error(), 0);
    EXPECT_EQ(Library.TrackCount, 2);
}

TEST_F(HostileSQLiteLibrary, OneLongTitleOnManyTracksIsOutOfMemory) {
    // 32,000 times 60,000 bytes from a file of less than a megabyte.
    InLibrary(u"Update item Set title = hex(zeroblob(30000))"_s);
    InLocations(
        u"Insert Into location With Recursive c(n) As (Select 1 Union All Select n + 1 "
        "From c Limit 16000) Select item_pid, n, 1, 'x', NULL, 1, NULL, 1 From location, c"_s);

    LoadSoon();

    ExpectError(u"Error 7: out of memory"_s);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(HostileSQLiteLibrary, OneLongTitleOnManyTracksThatNeedNoSortingIsOutOfMemory) {
    // An index in the order asked for spares SQLite the sorting, and with it the memory that would
    // run out first; the result is what grows.
    InLibrary(u"Create Table copy As Select pid, hex(zeroblob(30000)) As title, artist, album, "
              "track_number From item; Drop Table item; Alter Table copy Rename To item;"
              "Create Index names On item (artist, album)"_s);
    InLocations(
        u"Insert Into location With Recursive c(n) As (Select 1 Union All Select n + 1 "
        "From c Limit 16000) Select item_pid, n, 1, 'x', NULL, 1, NULL, 1 From location, c"_s);

    LoadSoon();

    ExpectError(u"Error 7: Out of memory"_s);
    // 64 MB hold so many rows of 60,000 bytes, three letters and seven cells of 16 bytes.
    EXPECT_EQ(Library.TrackCount, 1116);
}

TEST_F(HostileSQLiteLibrary, ALongBaseLocationOnManyTracksIsOutOfMemory) {
    // 32,000 paths of 130,010 bytes each from a file of less than a megabyte; 256 MB hold 2,064.
    InLocations(
        u"Update base_location Set path = replace(hex(zeroblob(32500)), '0', 'x');"
        "Update location Set location = '1';"
        "Insert Into location With Recursive c(n) As (Select 1 Union All Select n + 1 "
        "From c Limit 16000) Select item_pid, n, 1, '1', NULL, 1, NULL, 1 From location, c"_s);

    LoadSoon();

    ExpectError(u"Error 7: Out of memory"_s);
    EXPECT_EQ(Library.TrackCount, 2064);
}

// ---- what a schema could call upon

TEST_F(HostileSQLiteLibrary, AVirtualTableIsNotOpened) {
    InLibrary(u"Drop Table item; Create Virtual Table item Using fts5(pid, title, artist, album, "
              "track_number)"_s);

    LoadSoon();

    ExpectError(u"Error 1: no such module: fts5"_s);
}

TEST_F(HostileSQLiteLibrary, AViewCallsNoFunction) {
    // Two such texts would keep a single call busy for many seconds.
    InLocations(u"Drop Table base_location; Create View base_location As Select 1, "
                "instr(a, b) As path From (Select 'x' As a, 'y' As b)"_s);

    LoadSoon();

    ExpectError(u"Error 1: not authorized to use function: instr"_s);
}

TEST_F(HostileSQLiteLibrary, AViewLoadsNoExtension) {
    InLocations(u"Drop Table base_location; Create View base_location As Select 1, "
                "load_extension('/tmp/none') As path"_s);

    LoadSoon();

    EXPECT_EQ(Error(), 1);
}

TEST_F(HostileSQLiteLibrary, TriggersAndViewsThatDoNoHarmLoad) {
    InLibrary(u"Create Trigger t After Insert On item Begin Select no_such_function(1); End;"
              "Alter Table item Rename To real_item;"
              "Create View item As Select * From real_item"_s);

    LoadSoon();

    ExpectLoaded({u"A | X | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\1"_s,
                  u"B | Y | 2 second | 20 | 1 | E:\\iPod_Control\\Music\\2"_s});
}

TEST_F(HostileSQLiteLibrary, AfterAFailureTheNextLoadStartsAfresh) {
    const QByteArray whole = ReadAll(LibraryFile());
    LoadWith(LibraryFile(), whole.left(1000));
    EXPECT_NE(Error(), 0);

    LoadWith(LibraryFile(), whole);

    EXPECT_EQ(Error(), 0);
    EXPECT_EQ(Library.TrackCount, 2);
}
