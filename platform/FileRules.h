#pragma once

#include "platform/FileSystem.h"

#include <functional>

/// What every file service answers alike.

/// To be called where something has the name that a file is to get. Throws PermissionDenied unless
/// it `isFile` (or a link to a file or to nothing), and FileAlreadyExists where it is to be kept.
void RequireReplaceable(bool isFile, Existing existing);

/// The folder at `path`, or the nearest one above it that exists; null where there is not even its
/// drive.
QString NearestFolder(FileSystem& files, const QString& path);

/// Creates a folder and every missing folder above it. Before anything is made, `requireName` is
/// called for each of them, and throws where one cannot be made. Throws PathNotFound where there is
/// not even a drive.
void MakeFolderChain(FileSystem& files, const QString& path,
                     const std::function<void(const QString&)>& requireName);

/// Throws FileNotFound where the folder of a file is there, else PathNotFound.
[[noreturn]] void ThrowMissing(FileSystem& files, const QString& path);
