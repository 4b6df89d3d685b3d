#pragma once

#include <QString>

#include <vector>

/// The order in which a sorted list box would hold `names`: a locale-aware comparison without
/// regard to case of each name with its number appended. Returns 0-based positions in `names`.
///
/// The number of names[i] is firstNumber + i. It is appended in decimal, followed by the count of
/// its digits, and is part of the comparison. This is intentional: equal names are ordered by their
/// numbers as text (12 before 7), and where one name is the beginning of another, the digits may
/// decide which comes first.
std::vector<qint32> SortedOrder(const std::vector<const QString*>& names, qint32 firstNumber);
