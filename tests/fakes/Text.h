#pragma once

#include <QString>

#include <ostream>

/// A text of UTF-8, for tests that have a table of them.
inline QString Text(const char* text) {
    return QString::fromUtf8(text);
}

/// How GoogleTest prints a text that is not the expected one.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
