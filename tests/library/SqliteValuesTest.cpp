// Values of the wrong sort: what becomes of them, and which error stops the load.

#include "tests/library/SqliteDevice.h"

using namespace Qt::StringLiterals;

class SQLiteValues : public SqliteDevice {
protected:
    /// Loads two tracks of artists A and B, after `sql` has run on the library's file and
    /// `locationsSql` on the locations'.
    void LoadChanged(const QString& sql, const QString& locationsSql = {}) {
        Write({{u"A"_s, u"X"_s, u"first"_s, 1, 10, u"1"_s},
               {u"B"_s, u"Y"_s, u"second"_s, 2, 20, u"2"_s}});
        InLibrary(sql);
        InLocations(locationsSql);
        Load();
    }

    static QString First() { return u"A | X | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\1"_s; }
    static QString Second() { return u"B | Y | 2 second | 20 | 1 | E:\\iPod_Control\\Music\\2"_s; }
};

// ---- numbers and kinds

TEST_F(SQLiteValues, NumbersAreTakenAsStoredAndAMissingOneAsZero) {
    const struct {
        QString InLibrary, InLocations;
        qint32 TrackNumber, FileSize;
        ::Kind Kind;
    } cases[] = {
        {{}, u"Update location Set file_size = 2147483647"_s, 1, 2147483647, KindAudio},
        {u"Update item Set track_number = -3"_s, u"Update location Set file_size = -4"_s, -3, -4,
         KindAudio},
        // Fractions are rounded, ties to the even number.
        {u"Update item Set track_number = 2.5"_s, u"Update location Set file_size = 3.5"_s, 2, 4,
         KindAudio},
        {u"Update item Set track_number = NULL"_s, u"Update location Set file_size = NULL"_s, 0, 0,
         KindAudio},
        // The column has to be one that does not turn such a text into a number by itself.
        {u"Alter Table item Rename Column track_number To old;"
         "Alter Table item Add Column track_number TEXT;"
         "Update item Set track_number = ' 7 '"_s,
         {},
         7,
         10,
         KindAudio},
        {{}, u"Update location Set kind_id = NULL"_s, 1, 10, KindOther},
        {{}, u"Update location_kind_map Set kind = NULL"_s, 1, 10, KindOther},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE((each.InLibrary + each.InLocations).toStdString());
        LoadChanged(each.InLibrary, each.InLocations);
        EXPECT_EQ(Boxes.Texts(), QStringList());
        ASSERT_EQ(Library.TrackCount, 2);
        const TrackRecord& track = Library.Artists[0].Albums[0].Tracks[0];
        EXPECT_EQ(track.TrackNumber, each.TrackNumber);
        EXPECT_EQ(track.FileSize, each.FileSize);
        EXPECT_EQ(track.Kind, each.Kind);
        ExpectConsistent(Library);
    }
}

TEST_F(SQLiteValues, AnInvalidValueStopsTheLoadAndTheTracksBeforeItStay) {
    const QString second = u" Where location = '2'"_s;
    const struct {
        QString InLibrary, InLocations, Error;
    } cases[] = {
        {{}, u"Update location Set file_size = 2147483648"_s + second, u"Error 6: Overflow"_s},
        {{}, u"Update location Set file_size = 'large'"_s + second, u"Error 13: Type mismatch"_s},
        {{}, u"Update location Set kind_id = 2"_s + second, u"Error 9: Subscript out of range"_s},
        {{}, u"Update location Set kind_id = -1"_s + second, u"Error 9: Subscript out of range"_s},
        {u"Update item Set track_number = 'two' Where title = 'second'"_s,
         {},
         u"Error 13: Type mismatch"_s},
        {u"Update item Set track_number = '' Where title = 'second'"_s,
         {},
         u"Error 13: Type mismatch"_s},
        {u"Update item Set track_number = X'00FF' Where title = 'second'"_s,
         {},
         u"Error 13: Type mismatch"_s},
        {u"Update item Set track_number = 1e300 Where title = 'second'"_s,
         {},
         u"Error 6: Overflow"_s},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE((each.InLibrary + each.InLocations).toStdString());
        LoadChanged(each.InLibrary, each.InLocations);
        ExpectError(each.Error);
        EXPECT_EQ(Lines(Library), QStringList{First()});
        ExpectConsistent(Library);
    }
}

// ---- texts

TEST_F(SQLiteValues, NamesOfAnyTypeAreTakenAsTexts) {
    const QString swap = u"Drop Table item; Alter Table copy Rename To item"_s;
    const struct {
        const char* Rule;
        QString Sql;
        QStringList Lines;
    } cases[] = {
        {"numbers",
         u"Create Table copy As Select pid, 311 As artist, 1999 As album, 1.5 As title, "
         "track_number From item Where title = 'first';"_s +
             swap,
         {u"311 | 1999 | 1 1.5 | 10 | 1 | E:\\iPod_Control\\Music\\1"_s}},
        {"numbers make groups of their own",
         u"Create Table copy As Select pid, iif(title = 'first', 1, 2) As artist, NULL As album, "
         "title, track_number From item;"_s +
             swap,
         {u"1 | UNKNOWN | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\1"_s,
          u"2 | UNKNOWN | 2 second | 20 | 1 | E:\\iPod_Control\\Music\\2"_s}},
        {"no name and the number zero are two groups",
         u"Create Table copy As Select pid, iif(title = 'first', NULL, 0) As artist, album, "
         "title, track_number From item;"_s +
             swap,
         {u"UNKNOWN | X | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\1"_s,
          u"0 | Y | 2 second | 20 | 1 | E:\\iPod_Control\\Music\\2"_s}},
        // Bytes sort after texts, so the artist of that name comes last.
        {"bytes",
         u"Update item Set artist = X'41', title = X'C3A4' Where title = 'first'"_s,
         {Second(), u"A | X | 1 ä | 10 | 1 | E:\\iPod_Control\\Music\\1"_s}},
        {"bytes that are no text",
         u"Update item Set title = X'FF41FE', album = X'80' Where title = 'first'"_s,
         {u"A | \uFFFD | 1 \uFFFDA\uFFFD | 10 | 1 | E:\\iPod_Control\\Music\\1"_s, Second()}},
        {"a byte order mark at the beginning is part of the name",
         u"Update item Set artist = char(0xFEFF) || 'A', title = char(0xFEFF, 0xFEFF) "
         "Where title = 'first'"_s,
         {Second(), u"\uFEFFA | X | 1 \uFEFF\uFEFF | 10 | 1 | E:\\iPod_Control\\Music\\1"_s}},
        {"a name goes on behind a zero character",
         u"Update item Set artist = 'A' || char(0) || 'Z' Where title = 'first'"_s,
         {u"A\0Z | X | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\1"_s, Second()}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Rule);
        LoadChanged(each.Sql);
        ExpectLoaded(each.Lines);
    }
}

TEST_F(SQLiteValues, AnEmptyNameAndTheNameThatFollowsAreTwoGroups) {
    // Nothing else is kept of either row, so the name lies where the empty one does.
    LoadChanged(u"Update item Set artist = 'A', title = NULL;"
                "Update item Set album = '' Where album = 'X'"_s,
                u"Update location Set location = NULL"_s);
    ExpectLoaded({u"A | UNKNOWN | 1 UNKNOWN | 10 | 1 | E:\\iPod_Control\\Music\\"_s,
                  u"A | Y | 2 UNKNOWN | 20 | 1 | E:\\iPod_Control\\Music\\"_s});
}

TEST_F(SQLiteValues, TextsStoredInUtf16AreRead) {
    QFile::remove(LibraryFile());
    QFile::remove(LocationsFile());
    RunSql(LibraryFile(), u"Pragma encoding = 'UTF-16le';"
                          "Create Table item (pid INTEGER PRIMARY KEY, title, artist, album, "
                          "track_number); Insert Into item Values (-5, 'Ü🎵', 'Ä', 'Ö', 3)"_s);
    RunSql(LocationsFile(),
           u"Pragma encoding = 'UTF-16le';"
           "Create Table base_location (id, path); Insert Into base_location Values (1, 'M');"
           "Create Table location_kind_map (id, kind);"
           "Insert Into location_kind_map Values (1, 'AAC audio file');"
           "Create Table location (item_pid, file_size, location, kind_id);"
           "Insert Into location Values (-5, 6, 'a/b', 1)"_s);
    Load();
    ExpectLoaded({u"Ä | Ö | 3 Ü🎵 | 6 | 1 | E:\\M\\a\\b"_s});
}

// ---- tables

TEST_F(SQLiteValues, MissingRowsAndColumnsAreReported) {
    const QString outOfRange = u"Error 9: Subscript out of range"_s;
    const struct {
        QString InLibrary, InLocations, Error;
    } cases[] = {
        {{}, u"Delete From location_kind_map"_s, outOfRange},
        {{}, u"Delete From location_kind_map; Update location Set kind_id = 0"_s, outOfRange},
        {{}, u"Delete From base_location"_s, outOfRange},
        {{},
         u"Drop Table base_location; Create Table base_location (path TEXT);"
         "Insert Into base_location Values ('iPod_Control/Music')"_s,
         outOfRange},
        {{}, u"Drop Table location_kind_map"_s, u"Error 1: no such table: location_kind_map"_s},
        {{}, u"Drop Table base_location"_s, u"Error 1: no such table: base_location"_s},
        {{}, u"Drop Table location"_s, u"Error 1: no such table: location"_s},
        {u"Drop Table item"_s, {}, u"Error 1: no such table: item"_s},
        {u"Alter Table item Drop Column album"_s, {}, u"Error 1: no such column: item.album"_s},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE((each.InLibrary + each.InLocations).toStdString());
        LoadChanged(each.InLibrary, each.InLocations);
        ExpectError(each.Error);
        EXPECT_EQ(Library.TrackCount, 0);
        EXPECT_EQ(Library.TotalSize, 0);
    }
}

TEST_F(SQLiteValues, AnEmptyBaseLocationIsTheDrive) {
    LoadChanged({}, u"Update base_location Set path = NULL"_s);
    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Library.Artists[0].Albums[0].Tracks[0].Location, u"E:\\\\1"_s);
}

TEST_F(SQLiteValues, AFailureBeforeTheFirstRowLeavesTheOldRecordsUncounted) {
    LoadChanged({});
    LoadChanged({}, u"Drop Table location"_s);
    EXPECT_EQ(Library.TrackCount, 0);
    EXPECT_EQ(Library.TotalSize, 0);
    EXPECT_EQ(Library.Artists.size(), 2U);
}
