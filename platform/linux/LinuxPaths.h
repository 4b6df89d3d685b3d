#pragma once

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/LinuxDrives.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <sys/stat.h>

/// A place for a file or folder that need not exist yet.
struct FolderEntry {
    /// The folder that holds it (O_PATH), or the reason why there is none; EILSEQ where the name
    /// cannot be written in this system's names, EISDIR where the path is a root.
    FileDescriptor Folder;
    /// Its name in there: as the disk spells it where it exists, else as it was asked for.
    QByteArray Name;
};

/// Resolves paths. A path in native form goes to the system as it is. A path in drive form is
/// looked up below its drive's mount folder, each name exactly, and where it is missing without
/// regard to case; it never reaches outside that folder. Any other text leads to nothing.
class LinuxPaths {
public:
    explicit LinuxPaths(LinuxDrives& drives) : m_drives(drives) {}

    /// Opens what exists at `path`, with the flags of open(2).
    FileDescriptor Open(const QString& path, int flags);
    /// What the system reports about what exists at `path`; nothing where nothing does.
    std::optional<struct stat> Look(const QString& path);
    /// Opens the file at `path` for reading, without a trace on its device. Does not wait for the
    /// other end of a pipe.
    FileDescriptor OpenForReading(const QString& path);
    /// The folder and the name where `path` stands or would stand.
    FolderEntry EntryOf(const QString& path);

private:
    FileDescriptor OpenOnDrive(const QString& path, int flags);
    FolderEntry EntryOnDrive(const QString& path);

    LinuxDrives& m_drives;
};
