// Feeds the reader of the binary database with whatever bytes libFuzzer makes.

#include "tests/fuzz/LoadCheck.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    LoadCheck check;
    const QString wrong =
        check.LoadBinary(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    if (!wrong.isEmpty()) {
        qFatal("%s", qPrintable(wrong));
    }
    return 0;
}
