#pragma once

#include "platform/FileSystem.h"
#include "platform/NameRules.h"
#include "platform/linux/FileDescriptor.h"

#include <QByteArray>

#include <sys/stat.h>

/// Copying one file whole: its target appears only when all bytes are there.

/// A regular file that is open for reading, and what the system told about it.
struct SourceFile {
    int File;
    const struct stat& Info;
};

/// Copies the whole of `source` to `name` in the open folder `folder`, with its
/// modification time. Throws RuntimeError: PermissionDenied where an earlier target may not be
/// written, is no regular file or is the source itself, FileAlreadyExists where it is to be kept.
/// False when `control` has stopped it.
bool CopyWhole(const SourceFile& source, int folder, const QByteArray& name, Existing existing,
               const CopyControl& control);

/// The two steps of CopyWhole. The first copies the bytes into a file without a name, so that not
/// even a killed program leaves anything behind; it is not open where the file system knows no such
/// files (FAT). The second gives it its name, or copies under a part name; false when `control` has
/// stopped either.
FileDescriptor CopyWithoutName(const SourceFile& source, int folder, const CopyControl& control);
bool PlaceCopy(const FileDescriptor& copy, const SourceFile& source, int folder,
               const QByteArray& name, Existing existing, const CopyControl& control);

/// What CopyWhole does on file systems that know no files without a name.
bool CopyUnderPartName(const SourceFile& source, int folder, const QByteArray& name,
                       Existing existing, const CopyControl& control);

/// Gives an open file its modification time. A refusal is no failure (FAT, when another user
/// mounted it), since the bytes are there.
void SetModificationTime(int file, const timespec& time);

/// Removes what a killed copy has left in `folder`. Throws PermissionDenied where another copy is
/// at work there.
void RemoveLeftover(int folder);

/// Looks at `name` in `folder`. Throws PermissionDenied where a file cannot be made there: for a
/// folder and the like, for a file that this user may not write, and for PartName.
/// FileAlreadyExists for a file, or a link to one or to nothing, that is to be kept.
void CheckTarget(int folder, const QByteArray& name, Existing existing);

/// Renames a file; 0 or an errno value, EEXIST where something has the new name and is to be kept.
int Rename(int fromFolder, const QByteArray& from, int toFolder, const QByteArray& to,
           Existing existing);

/// Throws the RuntimeError of a failure to give a whole file its name.
[[noreturn]] void ThrowPlacingError(int error);
