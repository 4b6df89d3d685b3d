#pragma once

#include <QString>
#include <QtGlobal>

/// Narrowing conversions that throw instead of wrapping, and numbers read from text.

/// The 16-bit integer nearest to `value`, ties to even. Throws Overflow past the range.
qint16 ToInteger(double value);

/// The 32-bit integer nearest to `value`, ties to even. Throws Overflow past the range.
qint32 ToLong(double value);

/// A whole number as a 32-bit integer. Throws Overflow past the range.
qint32 ToLong(qint64 value);

/// The single-precision number nearest to `value`. Throws Overflow past the range.
float ToSingle(double value);

/// The unsigned little-endian number in four bytes as a 32-bit signed integer. Throws Overflow from
/// 2,147,483,648 on.
qint32 BytesToLong(quint8 b0, quint8 b1, quint8 b2, quint8 b3);

/// The decimal number in `text`, whatever the locale. Throws TypeMismatch when there is none.
double TextToNumber(const QString& text);
