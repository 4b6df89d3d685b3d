#pragma once

#include "platform/NameLimits.h"

#include <QString>

/// `text` followed by `ending` (a number, an extension), as it is where a file system with these
/// limits can hold it, else changed as little as needed: what it cannot hold is left out, a
/// device's name gets a "_", and a name that is too long loses whole letters (grapheme clusters) at
/// the end of `text`. The ending stays unless it takes more than half of the name; then it
/// loses letters at its own end. Never empty, and never a name that the file system refuses.
QString FittingName(const QString& text, const QString& ending, const NameLimits& limits);
