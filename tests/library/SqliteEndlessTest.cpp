// Databases whose statements would never end: the load does.

#include "library/SqliteDatabase.h"
#include "platform/ProcessorTime.h"
#include "tests/library/HostileLibrary.h"

using namespace Qt::StringLiterals;

namespace {

/// A view of `name` that has each earlier one several times in it, as `next` says.
QString Doubling(const QString& next, int count) {
    QString views = u"Create Table v0 (id, kind); Create Index ids On v0 (id);"_s;
    for (int i = 1; i <= count; ++i) {
        views += next.arg(i).arg(i - 1);
    }
    return views;
}

} // namespace

TEST_F(HostileSQLiteLibrary, AViewThatNeverEndsIsInterruptedOrTooLong) {
    const QString endless = u"With Recursive c(id) As (Select 1 Union All Select id + 1 From c) "_s;
    const QString kinds = u"Drop Table location_kind_map; Create View location_kind_map As "_s;
    const QString bases = u"Drop Table base_location; Create View base_location As "_s;
    const struct {
        const char* Rule;
        QString InLibrary, InLocations;
        bool IsInterrupted;
    } cases[] = {
        {"kinds", {}, kinds + endless + u"Select id, 'k' As kind From c"_s, false},
        {"kinds without a row",
         {},
         kinds + endless + u"Select id, 'k' As kind From c Where id < 0"_s,
         true},
        {"tracks",
         u"Alter Table item Rename To real_item; Create View item As "_s + endless +
             u"Select * From c, real_item"_s,
         {},
         false},
        // Each of three statements has some 60,000 tables to work out before its first step.
        {"subqueries that multiply",
         {},
         Doubling(u"Create View v%1 As Select a.id As id, (Select b.id From v%2 b Where "
                  "b.id = a.id Or b.kind = a.kind) As kind From v%2 a "
                  "Where a.id In (Select id From v%2);"_s,
                  10) +
             kinds + u"Select * From v10;"_s + bases + u"Select * From v10"_s,
         false},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Rule);
        Start();
        InLibrary(each.InLibrary);
        InLocations(each.InLocations);
        LoadSoon();
        EXPECT_NE(Error(), 0);
        EXPECT_EQ(Library.TrackCount, 0);
        if (each.IsInterrupted) {
            ExpectError(u"Error 9: interrupted"_s);
        }
    }
}

TEST_F(HostileSQLiteLibrary, ManyQuickStatementsShareOneTimeLimit) {
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
    try {
        database.Query("Select 1"); // the time is over
        FAIL() << "a statement was run";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(int(error.Number), 9);
        EXPECT_EQ(error.Description, u"interrupted"_s);
    }
}
