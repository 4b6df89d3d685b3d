// Feeds the reader of the SQLite library with whatever bytes libFuzzer makes: the library's file
// and the locations' file, one behind the other.

#include "tests/fuzz/LoadCheck.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <random>

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t maxSize);

namespace {

/// libFuzzer sees no branches inside the system's SQLite. It takes these bytes for branches too, so
/// that it keeps what makes SQLite say something new.
constexpr size_t CounterCount = 1024;
__attribute__((section("__libfuzzer_extra_counters"))) uint8_t Counters[CounterCount];

void Count(const LoadCheck& check) {
    const MusicLibrary& library = check.Music.Library;
    size_t seen = size_t(qBound(0, int(library.TrackCount), 15)) * 31 +
                  (library.TrackCount > 0 ? qMin<size_t>(library.Artists.size(), 15) : 0);
    if (!check.Boxes.Shown.empty()) {
        seen += qHash(check.Boxes.Shown[0].Text.left(30));
    }
    Counters[seen % CounterCount] = 1;
}

} // namespace

/// Mostly changes a few bytes where they stand: what moves the bytes behind it makes all pages of
/// the file unreadable, and such files all fail alike.
extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* data, size_t size, size_t maxSize,
                                          unsigned int seed) {
    std::minstd_rand random(seed);
    if (size == 0 || random() % 8 == 0) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    std::array<uint8_t, 64> piece;
    const size_t start = random() % size;
    const size_t length = std::min(size - start, 1 + random() % piece.size());
    std::copy_n(data + start, length, piece.begin());
    const size_t changed = LLVMFuzzerMutate(piece.data(), length, piece.size());
    std::copy_n(piece.begin(), std::min(changed, size - start), data + start);
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    LoadCheck check;
    const QString wrong =
        check.LoadSqlite(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (!wrong.isEmpty()) {
        qFatal("%s", qPrintable(wrong));
    }
    Count(check);
    return 0;
}
