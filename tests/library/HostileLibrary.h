#pragma once

#include "tests/library/SqliteDevice.h"

#include <ctime>

/// An SQLite library of two tracks that a test makes hostile.
class HostileSQLiteLibrary : public SqliteDevice {
protected:
    HostileSQLiteLibrary() { Start(); }

    /// Writes the two tracks, over whatever is there.
    void Start();

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
