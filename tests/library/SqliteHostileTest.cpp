// Missing, damaged and hostile databases: a load ends soon, with an error box, and what it leaves
// is a library that can be walked. tests/fuzz/DamageTest.cpp changes databases at random.

#include "tests/library/HostileLibrary.h"

using namespace Qt::StringLiterals;

// ---- files

TEST_F(HostileSQLiteLibrary, AMissingFileIsReported) {
    const QString folder = u"E:\\iPod_Control\\iTunes\\iTunes Library.itlp\\"_s;
    Files.Remove(folder + u"Locations.itdb"_s);
    LoadSoon();
    ExpectError(u"Error 53: File not found"_s);
    PutFilesInto(Folder.path());
    Files.Remove(folder + u"Library.itdb"_s);
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
    ASSERT_TRUE(QDir().mkpath(LibraryFile()));
    LoadSoon();
    EXPECT_NE(Error(), 0);
}

TEST_F(HostileSQLiteLibrary, AFileThatIsNotADatabaseIsReported) {
    for (const QString& file : {LibraryFile(), LocationsFile()}) {
        Start();
        LoadWith(file, QByteArray(5000, 'x'));
        ExpectError(u"Error 26: file is not a database"_s);
    }
    Start();
    LoadWith(LocationsFile(), {});
    ExpectError(u"Error 1: no such table: location_kind_map"_s);
    Start();
    LoadSoon();
    EXPECT_EQ(Error(), 0); // the next load starts afresh
    EXPECT_EQ(Library.TrackCount, 2);
}

TEST_F(HostileSQLiteLibrary, ATruncatedFileIsReportedOrLoadsWhatItHolds) {
    Write(std::vector<SampleTrack>(200, {u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s}));
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

// ---- use of memory

TEST_F(HostileSQLiteLibrary, AValueThatIsTooLongIsReportedAndTheTracksBeforeItStay) {
    for (const QString& size : {u"32769"_s, u"60000"_s, u"500000"_s}) {
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

TEST_F(HostileSQLiteLibrary, LongTextsOnManyTracksAreReportedAsOutOfMemory) {
    // 32,000 long texts each from a file of less than a megabyte.
    const QString tracks =
        u"Insert Into location With Recursive c(n) As (Select 1 Union All Select n + 1 From c "
        "Limit 16000) Select item_pid, n, 1, '1', NULL, 1, NULL, 1 From location, c;"_s;
    const struct {
        const char* Rule;
        QString InLibrary, InLocations, Error;
        int Tracks;
    } cases[] = {
        {"titles of 60,000 bytes",
         u"Update item Set title = hex(zeroblob(30000))"_s,
         {},
         u"Error 7: out of memory"_s,
         0},
        // An index in the order asked for spares SQLite the sorting, and with it the memory that
        // would run out first; the result is what grows. 64 MB hold so many rows of 60,000 bytes,
        // three letters and seven cells of 16 bytes.
        {"titles that need no sorting",
         u"Create Table copy As Select pid, hex(zeroblob(30000)) As title, artist, album, "
         "track_number From item; Drop Table item; Alter Table copy Rename To item;"
         "Create Index names On item (artist, album)"_s,
         {},
         u"Error 7: Out of memory"_s,
         1116},
        // 256 MB hold 2,064 paths of 130,010 bytes.
        {"paths",
         {},
         u"Update base_location Set path = replace(hex(zeroblob(32500)), '0', 'x');"
         "Update location Set location = '1';"_s,
         u"Error 7: Out of memory"_s,
         2064},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Rule);
        Start();
        InLibrary(each.InLibrary);
        InLocations(each.InLocations + tracks);
        LoadSoon();
        ExpectError(each.Error);
        EXPECT_EQ(Library.TrackCount, each.Tracks);
    }
}

// ---- what a schema could call upon

TEST_F(HostileSQLiteLibrary, AHostileSchemaIsReported) {
    const QString view = u"Drop Table base_location; Create View base_location As Select "_s;
    const struct {
        const char* Rule;
        QString InLibrary, InLocations, Error;
    } cases[] = {
        {"damage",
         u"Pragma writable_schema = 1;"
         "Update sqlite_schema Set sql = 'Create Table item (pid' Where name = 'item'"_s,
         {},
         u"Error 11: "_s},
        {"no virtual table is opened",
         u"Drop Table item; Create Virtual Table item Using fts5(pid, title, artist, album, "
         "track_number)"_s,
         {},
         u"Error 1: no such module: fts5"_s},
        // Two such texts would keep a single call busy for many seconds.
        {"no function is called",
         {},
         view + u"1, instr(a, b) As path From (Select 'x' As a, 'y' As b)"_s,
         u"Error 1: not authorized to use function: instr"_s},
        {"no file of this computer is named",
         {},
         view + u"1, file From pragma_database_list"_s,
         u"Error 1: unsafe use of virtual table \"pragma_database_list\""_s},
        {"no extension is loaded", {}, view + u"1, load_extension('/tmp/none')"_s, u"Error 1: "_s},
        {"no file is read", {}, view + u"1, readfile('/etc/passwd')"_s, u"Error 1: "_s},
        {"no file is written", {}, view + u"1, writefile('/tmp/none', 'x')"_s, u"Error 1: "_s},
        {"no program is run", {}, view + u"1, edit('x', 'touch /tmp/none')"_s, u"Error 1: "_s},
        {"a view that stands for itself", {}, view + u"* From base_location"_s, u"Error 1: "_s},
        {"lines become one",
         {},
         view + u"* From \"a\n\n\tb\""_s,
         u"Error 1: no such table: main2.a b"_s},
        {"a long text fits the box",
         {},
         view + u"* From \"%1\""_s.arg(QString(50'000, u'x')),
         u"Error 1: no such table: main2."_s + QString(300 - 21, u'x')},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Rule);
        Start();
        InLibrary(each.InLibrary);
        InLocations(each.InLocations);
        LoadSoon();
        ASSERT_EQ(Boxes.Shown.size(), 1U);
        EXPECT_EQ(each.Error.endsWith(u": "_s) ? Boxes.Shown[0].Text.left(each.Error.size())
                                               : Boxes.Shown[0].Text,
                  each.Error);
        EXPECT_EQ(Library.TrackCount, 0);
    }
}

TEST_F(HostileSQLiteLibrary, ADatabaseWithHarmlessTriggersAndViewsLoads) {
    InLibrary(u"Create Trigger t After Insert On item Begin Select no_such_function(1); End;"
              "Alter Table item Rename To real_item;"
              "Create View item As Select * From real_item"_s);
    LoadSoon();
    ExpectLoaded({u"A | X | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\1"_s,
                  u"B | Y | 2 second | 20 | 1 | E:\\iPod_Control\\Music\\2"_s});
}
