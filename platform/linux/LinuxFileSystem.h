#pragma once

#include "platform/AheadFile.h"
#include "platform/FileSystem.h"
#include "platform/linux/LinuxDrives.h"
#include "platform/linux/LinuxPaths.h"

/// The files of the system, by paths in native form or on the drives of a LinuxDrives.
class LinuxFileSystem : public FileSystem {
public:
    explicit LinuxFileSystem(LinuxDrives& drives)
        : m_keptDrives(KeptAlive(drives)), m_drives(drives), m_paths(drives) {}

    /// Whether there is a regular file, perhaps by way of links.
    bool FileExists(const QString& path) override;
    bool WouldReplace(const QString& path) override;
    bool FolderExists(const QString& path) override;

    void CreateFolder(const QString& path) override;
    void CreateFolderChain(const QString& path) override;
    void DeleteFolder(const QString& path, const CopyControl& control) override;

    bool CopyFile(const QString& source, const QString& target, Existing existing,
                  const CopyControl& control) override;
    std::function<bool()> BeginNewFile(const QString& source, const QString& target,
                                       const CopyControl& control) override;
    void ReadAhead(const QString& path) override;
    void RequireTarget(const QString& target, Existing existing) override;
    bool MoveFile(BinaryFile& file, const QString& target, Existing existing,
                  const CopyControl& control) override;
    void DeleteFile(BinaryFile& file) override;
    void RemoveLeftovers(const QString& folder) override;

    qint64 FileLength(const QString& path) override;
    std::unique_ptr<BinaryFile> OpenForReading(const QString& path) override;
    std::unique_ptr<BinaryFile> OpenForReadingAndWriting(const QString& path) override;

    bool IsOnIpod(const QString& path) override;
    NameLimits LimitsOf(const QString& path) override;
    QString DriveOf(const QString& path) override;
    double FreeBytes(const QString& path) override;

    QString NativePath(const QString& path) override;

private:
    FileDescriptor OpenRegular(const QString& path, struct stat& info);
    FileDescriptor OpenAnew(const QString& path, struct stat& info);
    FileDescriptor TakeAhead(const QString& path, struct stat& info);
    FileDescriptor OpenNearestFolder(const QString& path);
    FolderEntry EntryToChange(const QString& path);
    FolderEntry RequireEntry(const QString& path);
    void RequireNoLink(const QString& folder);
    [[noreturn]] void ThrowOpeningError(const QString& path, int error);

    std::shared_ptr<LinuxDrives> m_keptDrives;
    LinuxDrives& m_drives;
    LinuxPaths m_paths;

    AheadFile<FileDescriptor> m_ahead;
};
