#pragma once

#include "tests/browser/BrowserFixture.h"
#include "tests/selection/SelectionModel.h"

#include <optional>
#include <tuple>

/// The records that are current in the three lists, by their indices in the full library; none for
/// an "All" row and for no row.
struct CurrentRecords {
    std::optional<qint32> Artist;
    std::optional<std::tuple<qint32, qint32>> Album;
    std::optional<std::tuple<qint32, qint32, qint32>> Song;

    bool operator==(const CurrentRecords&) const = default;
};

CurrentRecords CurrentRecordsOf(const BrowserFixture& browser);

/// Which of the records that were current `before` stay so when `shown` comes into the lists.
CurrentRecords StillCurrent(const CurrentRecords& before, const std::vector<ArtistRecord>& shown,
                            bool isResult);

/// Fails the test unless records, row tables, lists, check marks, summary, buttons and full name
/// fit one another and the model.
void ExpectInvariants(const BrowserFixture& browser, const SelectionModel& model);
