#pragma once

#include "tests/library/SqliteDevice.h"

#include <ctime>

/// An SQLite library of two tracks that a test makes hostile.
class HostileSQLiteLibrary : public SqliteDevice {
protected:
    /// SQL that makes 32,000 tracks of the two.
    const QString ManyTracks = QStringLiteral(
        "Insert Into location With Recursive c(n) As (Select 1 Union All Select n + 1 From c "
        "Limit 16000) Select item_pid, n, 1, '1', NULL, 1, NULL, 1 From location, c;");

    HostileSQLiteLibrary() { Start(); }

    /// Writes the two tracks, over whatever is there.
    void Start() {
        Write({{QStringLiteral("A"), QStringLiteral("X"), QStringLiteral("first"), 1, 10,
                QStringLiteral("1")},
               {QStringLiteral("B"), QStringLiteral("Y"), QStringLiteral("second"), 2, 20,
                QStringLiteral("2")}});
    }

    void LoadSoon() {
        const std::clock_t start = std::clock();
        Load();
        EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 20);
        ExpectEnded();
        if (Library.TrackCount > 0) {
            ExpectConsistent(Library);
        }
    }

    /// The number in the one error box, 0 when there is none.
    int Error() const {
        EXPECT_LE(Boxes.Shown.size(), 1U);
        return Boxes.Shown.empty() ? 0 : Boxes.Shown[0].Text.mid(6).section(u':', 0, 0).toInt();
    }

    /// Loads both files with one of them replaced by `bytes`.
    void LoadWith(const QString& file, const QByteArray& bytes) {
        WriteAll(file, bytes);
        Library.Artists.clear();
        LoadSoon();
    }
};
