#pragma once

#include "platform/windows/WindowsHandle.h"

#include <QtGlobal>

#include <optional>
#include <string>

/// What the system reports about an open file or folder.
struct FileInfo {
    BY_HANDLE_FILE_INFORMATION Facts{};
    /// A symbolic link or a junction, or a folder at which another volume is mounted.
    bool IsLink = false;

    bool IsFolder() const { return (Facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
    bool IsReadOnly() const { return (Facts.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0; }
    qint64 Length() const { return qint64{Facts.nFileSizeHigh} << 32 | Facts.nFileSizeLow; }
    /// False where the disk does not number its files, as some servers do not.
    bool IsSameAs(const FileInfo& other) const {
        return (Facts.nFileIndexHigh != 0 || Facts.nFileIndexLow != 0) &&
               Facts.dwVolumeSerialNumber == other.Facts.dwVolumeSerialNumber &&
               Facts.nFileIndexHigh == other.Facts.nFileIndexHigh &&
               Facts.nFileIndexLow == other.Facts.nFileIndexLow;
    }
};

enum class Links { Follow, Keep };

/// Opens what is at `path` only to ask about it, not to read or write.
WindowsHandle OpenToLook(const std::wstring& path, Links links);

/// What is open; nothing where the system does not report it any more.
std::optional<FileInfo> Look(HANDLE file);

/// The same; throws RuntimeError where the system does not report it.
FileInfo InfoOf(HANDLE file);

/// What is at `path`; nothing where nothing is, or where the system does not report it.
std::optional<FileInfo> Look(const std::wstring& path, Links links = Links::Follow);
