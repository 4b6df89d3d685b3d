#pragma once

#include <QString>

#include <vector>

/// The order in which a sorted list box would hold `names`: a locale-aware comparison without
/// regard to case of each name with its number appended. Returns 0-based positions in `names`.
///
/// The number of names[i] is firstNumber + i. It is appended in decimal, followed by the count of
/// its digits, and takes part in the comparison. Intentionally so: equal names are ordered by
/// their numbers as text (12 before 7), and a name that begins another one may be placed by its
/// digits.
std::vector<qint32> SortedOrder(const std::vector<const QString*>& names, qint32 firstNumber);
