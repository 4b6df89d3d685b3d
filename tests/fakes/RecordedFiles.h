#pragma once

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "tests/fakes/SharedFolder.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

/// The calls that RecordedFiles and their open files record.
enum class FileCall {
    FileExists,
    FolderExists,
    CreateFolder,
    CreateFolderChain,
    DeleteFolder,
    CopyFile,
    RequireTarget,
    MoveFile,
    DeleteFile,
    FileLength,
    OpenForReading,
    OpenForReadingAndWriting,
    DriveOf,
    FreeBytes,
    NativePath,
    Read,
    Write,
    Truncate,
    Close,
    TakeModificationTime
};

/// The system's files, in a folder of its own in memory, where each drive ("E:") is a folder again,
/// and so is the root of native paths. Records the calls, and lets those fail that a test names.
class RecordedFiles : public FileSystem {
public:
    struct RecordedCall {
        FileCall Call;
        QString Path;
        /// The target of CopyFile and MoveFile.
        QString Target;
        /// Bytes of Read and Write, the new length of Truncate.
        qint64 Size = 0;
    };

    RecordedFiles();

    // ---- building the tree; none of this is recorded or can fail

    /// Attaches a drive ("E:") or mounts a volume at a folder ("/media/stick").
    void AddDrive(const QString& root, double freeBytes = 1e15);
    /// Pulls a drive ("E:") with all it holds.
    void RemoveDrive(const QString& root);
    /// What FreeBytes answers, however much is written.
    void SetFreeBytes(const QString& root, double freeBytes) { m_freeBytes[root] = freeBytes; }
    /// Brings its drive along, as do files.
    void AddFolder(const QString& path);
    /// In the place of one that is there.
    void AddFile(const QString& path, const QByteArray& bytes, qint64 modificationTime = 0);
    /// Files of different `seed` differ, and so do the blocks of one file.
    void AddLargeFile(const QString& path, qint64 length, qint64 seed = 0,
                      qint64 modificationTime = 0);
    /// Removes a file or a folder with all it holds.
    void Remove(const QString& path);
    /// The path of the system's file as Qt takes it.
    QString Host(const QString& path) const;
    /// What NativePath answers for `path`; without this, the path itself.
    void SetNativePath(const QString& path, const QString& native) { m_nativePaths[path] = native; }

    /// The drive or folder that is an iPod; null for none. Changes there are not refused.
    QString IpodRoot;

    // ---- looking at the tree; none of this is recorded or can fail

    bool HasFile(const QString& path) const;
    bool HasFolder(const QString& path) const;
    /// The file's bytes; the file must exist.
    QByteArray Bytes(const QString& path) const;
    qint64 Length(const QString& path) const;
    qint64 ModificationTime(const QString& path) const;
    bool SameContent(const QString& path, const QString& otherPath) const;
    /// Every file below `folder`, as full paths, sorted.
    QStringList FilesBelow(const QString& folder) const;

    // ---- what was called

    std::vector<RecordedCall> Calls;
    /// The calls of one kind, in order: "path", or "path > target".
    QStringList CallsOf(FileCall call) const;
    int CountOf(FileCall call) const { return static_cast<int>(CallsOf(call).size()); }
    /// The calls that would change something at or below `folder`, likewise.
    QStringList ChangesBelow(const QString& folder) const;
    /// The folders that RemoveLeftovers was called for, in order. It never fails, and is no
    /// recorded call.
    QStringList ClearedFolders;
    /// Files that are open at this moment.
    int OpenFiles = 0;

    // ---- failures. A test of existence that is made to fail answers false.

    /// Runs before each call, after it was recorded; may throw, or change anything.
    std::function<void(const RecordedCall&)> BeforeCall;
    /// Fails the `nth` call (1-based, counted from now on) once.
    void FailNthCall(int nth, ErrorNumber number) { m_failures.push_back({{}, {}, nth, number}); }
    /// Fails the `nth` call of one kind once.
    void FailNthCall(FileCall call, int nth, ErrorNumber number) {
        m_failures.push_back({call, {}, nth, number});
    }
    /// Fails every call that names `path`, or works on an open file of it, until ClearFailures.
    void FailPath(const QString& path, ErrorNumber number) {
        m_failures.push_back({{}, path, 0, number});
    }
    /// Fails every call of one kind that names `path`, until ClearFailures.
    void FailPath(FileCall call, const QString& path, ErrorNumber number) {
        m_failures.push_back({call, path, 0, number});
    }
    void ClearFailures() { m_failures.clear(); }
    /// How many injected failures have struck.
    int FailuresStruck = 0;

    // ---- FileSystem

    bool FileExists(const QString& path) override;
    /// Recorded as FileExists.
    bool WouldReplace(const QString& path) override;
    bool FolderExists(const QString& path) override;
    void CreateFolder(const QString& path) override;
    void CreateFolderChain(const QString& path) override;
    void DeleteFolder(const QString& path, const CopyControl& control) override;
    bool CopyFile(const QString& source, const QString& target, Existing existing,
                  const CopyControl& control) override;
    /// Changes nothing, never fails, and is no recorded call.
    void ReadAhead(const QString&) override {}
    void RequireTarget(const QString& target, Existing existing) override;
    bool MoveFile(BinaryFile& file, const QString& target, Existing existing,
                  const CopyControl& control) override;
    void DeleteFile(BinaryFile& file) override;
    void RemoveLeftovers(const QString& folder) override;
    qint64 FileLength(const QString& path) override;
    std::unique_ptr<BinaryFile> OpenForReading(const QString& path) override;
    std::unique_ptr<BinaryFile> OpenForReadingAndWriting(const QString& path) override;
    bool IsOnIpod(const QString& path) override;
    NameLimits LimitsOf(const QString&) override { return Limits; }
    QString DriveOf(const QString& path) override;
    double FreeBytes(const QString& path) override;
    QString NativePath(const QString& path) override;

    NameLimits Limits;

private:
    friend class RecordedFile;

    struct Failure {
        std::optional<FileCall> Call;
        QString Path;      // null for any
        int CallsToGo = 0; // 0 for a failure that stays
        ErrorNumber Number = ErrorNumber::DeviceIOError;
    };

    void Record(FileCall call, const QString& path, const QString& target = {}, qint64 size = 0);
    /// The same for a call that never throws: false where it is to fail.
    bool RecordSafely(FileCall call, const QString& path);
    static bool Strikes(Failure& failure, const RecordedCall& call);
    /// The path of the system's file.
    QString Real(const QString& path) const;
    QString RootOf(const QString& path) const;
    /// In the place of one that is there.
    std::unique_ptr<QFile> NewFile(const QString& path);

    FileSystem& m_real = SharedFolder::Files();
    const QTemporaryDir m_folder;
    std::map<QString, double> m_freeBytes; // by the drive's root
    std::map<QString, QString> m_nativePaths;
    std::vector<Failure> m_failures;
};
