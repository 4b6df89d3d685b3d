#pragma once

#include "platform/FileSystem.h"
#include "platform/windows/FileInfo.h"

#include <functional>
#include <string>

/// Copying one file whole: its target appears only when all bytes are there.

/// Where something is to be made or replaced.
struct TargetPlace {
    /// The folder that holds it, as the system takes it.
    std::wstring Folder;
    QString Name;

    std::wstring Path() const;
};

/// A regular file that is open for reading, and what the system reported about it.
struct OpenSource {
    HANDLE File;
    const FileInfo& Info;
};

/// Copies the whole of `source` to `target`, with its modification time. Throws RuntimeError:
/// PermissionDenied where an earlier target may not be replaced, is no regular file or is the
/// source itself, FileAlreadyExists where it is to be kept. False when `control` has stopped it.
bool CopyWhole(const OpenSource& source, const TargetPlace& target, Existing existing,
               const CopyControl& control);

using WriteBlock = std::function<void(const char* bytes, DWORD size)>;

/// Has `write` write `size` bytes of an open file. Throws DeviceIOError where the source ends
/// earlier. False when `control` has stopped it.
bool TransferAll(HANDLE source, const WriteBlock& write, qint64 size, const CopyControl& control);

void WriteAll(HANDLE file, const char* bytes, DWORD size);

/// Over a network, failed writes are reported only by this. On the computer's own disks it would
/// only wait, and does nothing. `folder` holds the file.
void RequireWritten(HANDLE file, const std::wstring& folder);

/// Looks at `target`. Throws PermissionDenied where a file cannot be made there: for a folder, for
/// a file that this user may not replace or another program holds, and for PartName.
/// FileAlreadyExists for a file, or a link to one or to nothing, that is to be kept.
void CheckTarget(const TargetPlace& target, Existing existing);

/// Removes what a killed copy has left in `folder`. Throws PermissionDenied where another copy is
/// at work there.
void RemoveLeftover(const std::wstring& folder);

/// Renames an open file; ERROR_SUCCESS, or why it was not. SetFileInformationByHandle does the
/// same, but wine cannot.
DWORD Rename(HANDLE file, const std::wstring& target, Existing existing);

/// Sets whether an open file is deleted when it is closed, even by a kill.
bool SetGoesWhenClosed(HANDLE file, bool goes);
