#pragma once

#include <algorithm>

/// Whether any of the records (artists, albums, tracks) is ticked.
template <class Records>
bool AnyChecked(const Records& records) {
    return std::any_of(records.begin(), records.end(),
                       [](const auto& record) { return record.Checked; });
}
