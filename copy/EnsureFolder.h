#pragma once

#include "platform/FileSystem.h"

/// Makes one folder unless it exists. That somebody else has made it in the same instant is no
/// error. Throws RuntimeError.
void EnsureFolder(FileSystem& files, const QString& folder);
