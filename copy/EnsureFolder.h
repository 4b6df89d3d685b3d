#pragma once

#include "platform/FileSystem.h"

/// Makes one folder unless it exists. It is no error if another program makes it in the same
/// instant. Throws RuntimeError.
void EnsureFolder(FileSystem& files, const QString& folder);
