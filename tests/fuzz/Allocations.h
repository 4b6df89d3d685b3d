#pragma once

#include <QtGlobal>

/// Counts what this program allocates, by whichever way: Qt, SQLite and operator new all come down
/// to malloc, which is this program's own (with the address sanitizer: the sanitizer's, which
/// tells).
namespace Allocations {

/// Bytes allocated at this moment.
qint64 Bytes();
/// The most bytes since ResetPeak.
qint64 Peak();
void ResetPeak();

/// Makes the `nth` allocation from now on (1-based) fail, and none after it; 0 for none at all. The
/// sanitizer's malloc never fails.
void FailNth(qint64 nth);
/// Whether that failure has struck.
bool HasFailed();

} // namespace Allocations
