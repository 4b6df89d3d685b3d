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

    /// The first track is there and counted, and nothing of the second.
    void ExpectOnlyTheFirst() const {
        EXPECT_EQ(Lines(Library),
                  QStringList{u"A | X | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\1"_s});
        EXPECT_EQ(Library.TrackCount, 1);
        EXPECT_EQ(Library.TotalSize, 10);
        ExpectConsistent(Library);
    }
};

// ---- kinds

TEST_F(SQLiteValues, WithoutKindsTheFirstTrackFails) {
    LoadChanged({}, u"Delete From location_kind_map"_s);

    ExpectError(u"Error 9: Subscript out of range"_s);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(SQLiteValues, WithoutKindsAKindIdOfZeroFailsToo) {
    LoadChanged({}, u"Delete From location_kind_map; Update location Set kind_id = 0"_s);

    ExpectError(u"Error 9: Subscript out of range"_s);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(SQLiteValues, AKindIdBehindTheLastKindFailsAndTheTracksBeforeItStay) {
    LoadChanged({}, u"Update location Set kind_id = 2 Where location = '2'"_s);

    ExpectError(u"Error 9: Subscript out of range"_s);
    ExpectOnlyTheFirst();
}

TEST_F(SQLiteValues, ANegativeKindIdFails) {
    LoadChanged({}, u"Update location Set kind_id = -1 Where location = '2'"_s);

    ExpectError(u"Error 9: Subscript out of range"_s);
    ExpectOnlyTheFirst();
}

TEST_F(SQLiteValues, AKindWithoutATextIsOfNoKind) {
    LoadChanged({}, u"Update location_kind_map Set kind = NULL"_s);

    EXPECT_EQ(Library.TrackCount, 2);
    EXPECT_EQ(Library.Artists[0].Albums[0].Tracks[0].Kind, KindOther);
}

TEST_F(SQLiteValues, AMissingKindIdIsOfNoKind) {
    LoadChanged({}, u"Update location Set kind_id = NULL"_s);

    EXPECT_EQ(Library.TrackCount, 2);
    EXPECT_EQ(Library.Artists[0].Albums[0].Tracks[0].Kind, KindOther);
}

// ---- numbers

TEST_F(SQLiteValues, TheLargestFileSizeLoads) {
    LoadChanged({}, u"Update location Set file_size = 2147483647"_s);

    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Library.TotalSize, 4294967294.0);
    ExpectConsistent(Library);
}

TEST_F(SQLiteValues, AFileSizeBeyond32BitsOverflowsAndTheTracksBeforeItStay) {
    LoadChanged({}, u"Update location Set file_size = 2147483648 Where location = '2'"_s);

    ExpectError(u"Error 6: Overflow"_s);
    ExpectOnlyTheFirst();
}

TEST_F(SQLiteValues, AFileSizeThatIsNoNumberIsATypeMismatch) {
    LoadChanged({}, u"Update location Set file_size = 'large' Where location = '2'"_s);

    ExpectError(u"Error 13: Type mismatch"_s);
    ExpectOnlyTheFirst();
}

TEST_F(SQLiteValues, ATrackNumberThatIsNoNumberIsATypeMismatch) {
    for (const QString& value : {u"'two'"_s, u"''"_s, u"X'00FF'"_s}) {
        LoadChanged(u"Update item Set track_number = "_s + value + u" Where title = 'second'"_s);

        ExpectError(u"Error 13: Type mismatch"_s);
        ExpectOnlyTheFirst();
    }
}

TEST_F(SQLiteValues, ATrackNumberBeyond32BitsOverflows) {
    LoadChanged(u"Update item Set track_number = 1e300 Where title = 'second'"_s);

    ExpectError(u"Error 6: Overflow"_s);
    ExpectOnlyTheFirst();
}

TEST_F(SQLiteValues, AMissingTrackNumberIsZero) {
    LoadChanged(u"Update item Set track_number = NULL"_s);

    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Library.Artists[0].Albums[0].Tracks[0].TrackNumber, 0);
}

TEST_F(SQLiteValues, AMissingFileSizeIsZero) {
    LoadChanged({}, u"Update location Set file_size = NULL"_s);

    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Library.TrackCount, 2);
    EXPECT_EQ(Library.TotalSize, 0);
}

TEST_F(SQLiteValues, FractionsAreRoundedTiesToTheEvenNumber) {
    LoadChanged(u"Update item Set track_number = 2.5"_s, u"Update location Set file_size = 3.5"_s);

    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Library.Artists[0].Albums[0].Tracks[0].TrackNumber, 2);
    EXPECT_EQ(Library.Artists[0].Albums[0].Tracks[0].FileSize, 4);
}

TEST_F(SQLiteValues, ATrackNumberStoredAsTextIsRead) {
    // The column has to be one that does not turn such a text into a number by itself.
    LoadChanged(u"Alter Table item Rename Column track_number To old;"
                "Alter Table item Add Column track_number TEXT;"
                "Update item Set track_number = ' 7 '"_s);

    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Library.Artists[0].Albums[0].Tracks[0].TrackNumber, 7);
}

TEST_F(SQLiteValues, NegativeNumbersAreTakenAsTheyAre) {
    LoadChanged(u"Update item Set track_number = -3"_s, u"Update location Set file_size = -4"_s);

    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Library.Artists[0].Albums[0].Tracks[0].TrackNumber, -3);
    EXPECT_EQ(Library.TotalSize, -8);
}

// ---- texts

TEST_F(SQLiteValues, NamesThatAreNumbersAreTakenAsTexts) {
    LoadChanged(u"Create Table copy As Select pid, 311 As artist, 1999 As album, 1.5 As title, "
                "track_number From item Where title = 'first';"
                "Drop Table item; Alter Table copy Rename To item"_s);

    ExpectLoaded({u"311 | 1999 | 1 1.5 | 10 | 1 | E:\\iPod_Control\\Music\\1"_s});
}

TEST_F(SQLiteValues, NumbersAsNamesMakeGroupsOfTheirOwn) {
    LoadChanged(u"Create Table copy As Select pid, iif(title = 'first', 1, 2) As artist, "
                "NULL As album, title, track_number From item;"
                "Drop Table item; Alter Table copy Rename To item"_s);

    ExpectLoaded({u"1 | UNKNOWN | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\1"_s,
                  u"2 | UNKNOWN | 2 second | 20 | 1 | E:\\iPod_Control\\Music\\2"_s});
}

TEST_F(SQLiteValues, AMissingNameAndTheNumberZeroAreTwoGroups) {
    LoadChanged(u"Create Table copy As Select pid, iif(title = 'first', NULL, 0) As artist, album, "
                "title, track_number From item;"
                "Drop Table item; Alter Table copy Rename To item"_s);

    ExpectLoaded({u"UNKNOWN | X | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\1"_s,
                  u"0 | Y | 2 second | 20 | 1 | E:\\iPod_Control\\Music\\2"_s});
}

TEST_F(SQLiteValues, AnEmptyNameAndTheOneRightBehindItAreTwoGroups) {
    // Nothing else is kept of either row, so the name lies where the empty one does.
    LoadChanged(u"Update item Set artist = 'A', title = NULL;"
                "Update item Set album = '' Where album = 'X'"_s,
                u"Update location Set location = NULL"_s);

    ExpectLoaded({u"A | UNKNOWN | 1 UNKNOWN | 10 | 1 | E:\\iPod_Control\\Music\\"_s,
                  u"A | Y | 2 UNKNOWN | 20 | 1 | E:\\iPod_Control\\Music\\"_s});
}

TEST_F(SQLiteValues, NamesThatAreBytesAreTakenAsTexts) {
    LoadChanged(u"Update item Set artist = X'41', title = X'C3A4' Where title = 'first'"_s);

    // Bytes sort behind texts, so the artist of that name comes last.
    ExpectLoaded({u"B | Y | 2 second | 20 | 1 | E:\\iPod_Control\\Music\\2"_s,
                  u"A | X | 1 ä | 10 | 1 | E:\\iPod_Control\\Music\\1"_s});
}

TEST_F(SQLiteValues, BytesThatAreNoTextDoNotStopTheLoad) {
    LoadChanged(u"Update item Set title = X'FF41FE', album = X'80' Where title = 'first'"_s);

    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Library.TrackCount, 2);
    EXPECT_EQ(Library.Artists[0].Albums[0].Tracks[0].Title, u"\uFFFDA\uFFFD"_s);
    ExpectConsistent(Library);
}

TEST_F(SQLiteValues, AByteOrderMarkAtTheBeginningIsPartOfTheName) {
    LoadChanged(u"Update item Set artist = char(0xFEFF) || 'A', title = char(0xFEFF, 0xFEFF) "
                "Where title = 'first'"_s);

    ExpectLoaded({u"B | Y | 2 second | 20 | 1 | E:\\iPod_Control\\Music\\2"_s,
                  u"\uFEFFA | X | 1 \uFEFF\uFEFF | 10 | 1 | E:\\iPod_Control\\Music\\1"_s});
}

TEST_F(SQLiteValues, ANameGoesOnBehindAZeroCharacter) {
    LoadChanged(u"Update item Set artist = 'A' || char(0) || 'Z' Where title = 'first'"_s);

    ASSERT_EQ(Library.Artists.size(), 2U);
    EXPECT_EQ(Library.Artists[0].Name, u"A\0Z"_s);
}

TEST_F(SQLiteValues, AMissingLocationIsTheFolderOfTheMusic) {
    LoadChanged({}, u"Update location Set location = NULL Where location = '1'"_s);

    ExpectLoaded({u"A | X | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\"_s,
                  u"B | Y | 2 second | 20 | 1 | E:\\iPod_Control\\Music\\2"_s});
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

TEST_F(SQLiteValues, WithoutABaseLocationNothingLoads) {
    LoadChanged({}, u"Delete From base_location"_s);

    ExpectError(u"Error 9: Subscript out of range"_s);
    EXPECT_EQ(Library.TrackCount, 0);
    EXPECT_TRUE(Library.Artists.empty());
}

TEST_F(SQLiteValues, ABaseLocationOfOneColumnLoadsNothing) {
    LoadChanged({}, u"Drop Table base_location; Create Table base_location (path TEXT);"
                    "Insert Into base_location Values ('iPod_Control/Music')"_s);

    ExpectError(u"Error 9: Subscript out of range"_s);
}

TEST_F(SQLiteValues, AnEmptyBaseLocationIsTheDrive) {
    LoadChanged({}, u"Update base_location Set path = NULL"_s);

    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Library.Artists[0].Albums[0].Tracks[0].Location, u"E:\\\\1"_s);
}

TEST_F(SQLiteValues, AMissingTableIsReportedInTheWordsOfSqlite) {
    LoadChanged({}, u"Drop Table location_kind_map"_s);
    ExpectError(u"Error 1: no such table: location_kind_map"_s);

    LoadChanged({}, u"Drop Table base_location"_s);
    ExpectError(u"Error 1: no such table: base_location"_s);

    LoadChanged({}, u"Drop Table location"_s);
    ExpectError(u"Error 1: no such table: location"_s);

    LoadChanged(u"Drop Table item"_s);
    ExpectError(u"Error 1: no such table: item"_s);
}

TEST_F(SQLiteValues, AMissingColumnIsReportedInTheWordsOfSqlite) {
    LoadChanged(u"Alter Table item Drop Column album"_s);

    ExpectError(u"Error 1: no such column: item.album"_s);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(SQLiteValues, AFailureBeforeTheFirstRowLeavesTheOldRecordsUncounted) {
    LoadChanged({});
    LoadChanged({}, u"Drop Table location"_s);

    EXPECT_EQ(Library.TrackCount, 0);
    EXPECT_EQ(Library.TotalSize, 0);
    EXPECT_EQ(Library.Artists.size(), 2U);
}
