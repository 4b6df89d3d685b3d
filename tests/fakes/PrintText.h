#pragma once

#include <QString>

#include <ostream>

/// How GoogleTest prints a text that is not the expected one.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
