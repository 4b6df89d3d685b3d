#pragma once

#include <QtGlobal>

/// How many random walks to take: the usual number, or as many more as SONGLIFT_WALKS says.
inline unsigned Walks(unsigned usual) {
    return qMax(usual, static_cast<unsigned>(qEnvironmentVariableIntValue("SONGLIFT_WALKS")));
}
