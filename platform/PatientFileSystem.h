#pragma once

#include "platform/FileSystem.h"
#include "platform/JointCopy.h"
#include "platform/Worker.h"

#include <functional>
#include <memory>
#include <vector>

/// Thrown by an operation that MayGoOn has stopped. Nothing has failed and there is nothing to
/// report, so it is not a std::exception.
struct OperationStopped {};

/// The files of another service, for work that the user can stop at any moment: a worker does each
/// operation, while the caller's thread keeps the window alive. An operation that does not return
/// is given up; what it still does if it returns later is harmless.
class PatientFileSystem : public FileSystem {
public:
    /// `ahead` reads files ahead and takes part in copying several; `worker` does everything else.
    PatientFileSystem(FileSystem& files, Worker& worker, Worker& ahead)
        : m_files(KeptAlive(files)), m_worker(worker), m_ahead(ahead) {}

    /// Called about every 10 milliseconds while an operation lasts; false stops it. Without it,
    /// operations are done on the caller's thread.
    std::function<bool()> MayGoOn;

    /// Runs `operation` on the other service's files like one of its own operations. It must own
    /// everything that it uses, and can learn from `control` that it was stopped.
    void Do(std::function<void(FileSystem&)> operation, const CopyControl& control = {});

    bool FileExists(const QString& path) override;
    bool WouldReplace(const QString& path) override;
    bool FolderExists(const QString& path) override;
    void CreateFolder(const QString& path) override;
    void CreateFolderChain(const QString& path) override;
    void DeleteFolder(const QString& path, const CopyControl& control) override;
    bool CopyFile(const QString& source, const QString& target, Existing existing,
                  const CopyControl& control) override;
    /// Copies several files that replace nothing, in their order, up to the first one that fails,
    /// would replace something or cannot be prepared for. Once `milliseconds` have passed no
    /// further one is begun, but the first one always is. All in one wait for the worker, which can
    /// cost as much as copying a small file.
    CopiedFiles CopyNewFiles(const std::vector<FileToCopy>& copies, qint64 milliseconds,
                             const CopyControl& control);
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
    friend class PatientFile;

    /// Runs `operation`, which must own everything that it uses, and waits for it. Throws
    /// OperationStopped when it was stopped, even if it still reached its end.
    void Wait(std::function<void()> operation, const CopyControl& control);
    template <class Operation>
    auto Ask(Operation operation, const CopyControl& control = {});
    template <class Operation>
    auto AskToCopy(Operation operation, const CopyControl& control);

    std::shared_ptr<FileSystem> m_files;
    Worker& m_worker;
    Worker& m_ahead;
};
