#pragma once

#include "platform/FileSystem.h"

#include <QStringList>

/// What every file service says of paths that lead to nothing.

/// The folders that must be made so that there is a folder `path`, the highest first. Throws
/// PathNotFound where not even its drive is there.
QStringList MissingFolders(FileSystem& files, const QString& path);

/// Throws FileNotFound where the folder of a file is there, else PathNotFound.
[[noreturn]] void ThrowMissing(FileSystem& files, const QString& path);
