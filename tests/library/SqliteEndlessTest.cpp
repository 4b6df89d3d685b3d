// Databases whose statements would never end: the load does.

#include "library/SqliteDatabase.h"
#include "platform/ProcessorTime.h"
#include "tests/library/HostileLibrary.h"

using namespace Qt::StringLiterals;

TEST_F(HostileSQLiteLibrary, AnEndlessViewOfKindsEnds) {
    InLocations(
        u"Drop Table location_kind_map; Create View location_kind_map As With Recursive "
        "c(id) As (Select 1 Union All Select id + 1 From c) Select id, 'k' As kind From c"_s);

    LoadSoon();

    EXPECT_NE(Error(), 0);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(HostileSQLiteLibrary, AnEndlessViewThatGivesNoRowIsInterrupted) {
    InLocations(u"Drop Table location_kind_map; Create View location_kind_map As With Recursive "
                "c(id) As (Select 1 Union All Select id + 1 From c) Select id, 'k' As kind From c "
                "Where id < 0"_s);

    LoadSoon();

    ExpectError(u"Error 9: interrupted"_s);
}

TEST_F(HostileSQLiteLibrary, AnEndlessViewOfBaseLocationsEnds) {
    InLocations(
        u"Drop Table base_location; Create View base_location As With Recursive "
        "c(id) As (Select 1 Union All Select id + 1 From c) Select id, 'M' As path From c"_s);

    LoadSoon();

    EXPECT_NE(Error(), 0);
}

TEST_F(HostileSQLiteLibrary, AnEndlessViewOfTracksEnds) {
    InLibrary(u"Alter Table item Rename To real_item; Create View item As With Recursive "
              "c(n) As (Select 1 Union All Select n + 1 From c) Select * From c, real_item"_s);

    LoadSoon();

    EXPECT_NE(Error(), 0);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(HostileSQLiteLibrary, ACrossJoinOfManyTablesEnds) {
    InLocations(u"Create Table t (x); Insert Into t With Recursive c(n) As (Select 1 Union All "
                "Select n + 1 From c Limit 1000) Select n From c;"
                "Drop Table base_location; Create View base_location As Select a.x, 'M' As path "
                "From t a, t b, t c, t d, t e Where a.x + b.x + c.x + d.x + e.x < 0"_s);

    LoadSoon();

    ExpectError(u"Error 9: interrupted"_s);
}

TEST_F(HostileSQLiteLibrary, AViewThatStandsForItselfIsReported) {
    InLocations(u"Drop Table base_location;"
                "Create View base_location As Select * From base_location"_s);

    LoadSoon();

    EXPECT_EQ(Error(), 1);
}

TEST_F(HostileSQLiteLibrary, ViewsThatDoubleEachOtherEnd) {
    QString views = u"Create View v0 As Select id, kind From location_kind_map_real;"_s;
    for (int i = 1; i < 40; ++i) {
        views += u"Create View v%1 As Select * From v%2 Union All Select * From v%2;"_s.arg(i).arg(
            i - 1);
    }
    InLocations(u"Alter Table location_kind_map Rename To location_kind_map_real;"_s + views +
                u"Create View location_kind_map As Select * From v39"_s);

    LoadSoon();

    EXPECT_NE(Error(), 0);
}

TEST_F(HostileSQLiteLibrary, StatementsThatAreEachSoonDoneEndTogether) {
    SqliteDatabase database(LibraryFile());
    const double start = ThreadProcessorSeconds();
    int number = 0;
    while (number == 0 && ThreadProcessorSeconds() - start < 10) {
        try {
            database.Query("With Recursive c(n) As (Select 1 Union All Select n + 1 From c Limit "
                           "100000) Select n From c Where n < 0");
        } catch (const RuntimeError& error) {
            number = int(error.Number);
        }
    }
    EXPECT_EQ(number, 9);
    EXPECT_GT(ThreadProcessorSeconds() - start, 1);
}

TEST_F(HostileSQLiteLibrary, NoStatementBeginsWhenTheTimeIsOver) {
    SqliteDatabase database(LibraryFile());
    const double start = ThreadProcessorSeconds();
    while (ThreadProcessorSeconds() - start < 2.5) {
    }
    try {
        database.Query("Select 1");
        FAIL() << "a statement was run";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(int(error.Number), 9);
        EXPECT_EQ(error.Description, u"interrupted"_s);
    }
}

TEST_F(HostileSQLiteLibrary, SubqueriesThatMultiplyEnd) {
    // Each of three statements has some 60,000 tables to work out before its first step.
    QString views = u"Create Table v0 (id, kind); Create Index ids On v0 (id);"_s;
    for (int i = 1; i < 11; ++i) {
        views +=
            u"Create View v%1 As Select a.id As id, (Select b.id From v%2 b Where b.id = a.id "
            "Or b.kind = a.kind) As kind From v%2 a Where a.id In (Select id From v%2);"_s.arg(i)
                .arg(i - 1);
    }
    InLocations(views + u"Drop Table location_kind_map; Drop Table base_location;"
                        "Create View location_kind_map As Select * From v10;"
                        "Create View base_location As Select * From v10"_s);

    LoadSoon();

    EXPECT_NE(Error(), 0);
}
