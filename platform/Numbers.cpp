#include "platform/Numbers.h"

#include "platform/RuntimeError.h"

#include <cmath>
#include <limits>

namespace {

template <class Integer>
Integer Narrow(double value) {
    const double whole = std::nearbyint(value); // the default rounding mode takes ties to even
    if (!(whole >= std::numeric_limits<Integer>::min() &&
          whole <= std::numeric_limits<Integer>::max())) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<Integer>(whole);
}

} // namespace

qint16 ToInteger(double value) {
    return Narrow<qint16>(value);
}

qint32 ToLong(double value) {
    return Narrow<qint32>(value);
}

qint32 ToLong(qint64 value) {
    if (value < std::numeric_limits<qint32>::min() || value > std::numeric_limits<qint32>::max()) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<qint32>(value);
}

float ToSingle(double value) {
    if (!(std::abs(value) <= std::numeric_limits<float>::max())) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    return static_cast<float>(value);
}

qint32 BytesToLong(quint8 b0, quint8 b1, quint8 b2, quint8 b3) {
    return ToLong(b0 | qint64{b1} << 8 | qint64{b2} << 16 | qint64{b3} << 24);
}

double TextToNumber(const QString& text) {
    bool isNumber = false;
    const double number = text.trimmed().toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number)) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    return number;
}
