#pragma once

#include "platform/AheadFile.h"
#include "platform/FileSystem.h"
#include "platform/windows/FileInfo.h"

struct TargetPlace;

/// The files of the system, by paths that begin with a drive's letter or a share.
class WindowsFileSystem : public FileSystem {
public:
    /// Whether there is a file, perhaps by way of links.
    bool FileExists(const QString& path) override;
    bool WouldReplace(const QString& path) override;
    bool FolderExists(const QString& path) override;

    void CreateFolder(const QString& path) override;
    void CreateFolderChain(const QString& path) override;
    void DeleteFolder(const QString& path, const CopyControl& control) override;

    bool CopyFile(const QString& source, const QString& target, Existing existing,
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

    QString NativePath(const QString& path) override { return path; }

private:
    WindowsHandle TakeRegular(const QString& path);
    WindowsHandle OpenRegular(const QString& path);
    TargetPlace PlaceToChange(const QString& path);
    [[noreturn]] void ThrowOpeningError(const QString& path, DWORD error);

    AheadFile<WindowsHandle> m_ahead;
};
