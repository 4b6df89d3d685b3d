#pragma once

#include "platform/FileSystem.h"
#include "platform/RuntimeError.h"
#include "tests/fakes/FakeFileContent.h"

#include <QStringList>

#include <functional>
#include <map>
#include <memory>
#include <vector>

/// The calls that a FakeFileSystem and its open files record.
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

/// Files and folders in memory. Paths in drive form are found whatever their case and however their
/// accents are composed, those in native form exactly. Everything lies on drives; the folders and
/// files a test adds bring theirs along.
class FakeFileSystem : public FileSystem {
public:
    struct RecordedCall {
        FileCall Call;
        QString Path;
        /// The target of CopyFile and MoveFile.
        QString Target;
        /// Bytes of Read and Write, the new length of Truncate.
        qint64 Size = 0;
    };

    // ---- building the tree; none of this is recorded or can fail

    /// Attaches a drive ("E:") or mounts a volume at a folder ("/media/stick"). Bytes written count
    /// against its free space, and a full drive raises DiskFull.
    void AddDrive(const QString& root, double freeBytes = 1e15);
    /// Pulls a drive ("E:") with all it holds.
    void RemoveDrive(const QString& root);
    void SetFreeBytes(const QString& root, double freeBytes);
    void AddFolder(const QString& path);
    void AddFile(const QString& path, const QByteArray& bytes, qint64 modificationTime = 1);
    /// A file of any length that takes no memory; files of different `seed` differ.
    void AddLargeFile(const QString& path, qint64 length, qint64 seed = 0,
                      qint64 modificationTime = 1);
    /// Removes a file or a folder with all it holds.
    void Remove(const QString& path);
    /// What NativePath answers for `path`; without this, the path itself.
    void SetNativePath(const QString& path, const QString& native);

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
    /// Every file below `folder`, as full paths written as they were created, sorted.
    QStringList FilesBelow(const QString& folder) const;
    /// Every folder below `folder`, likewise.
    QStringList FoldersBelow(const QString& folder) const;

    // ---- what was called

    std::vector<RecordedCall> Calls;
    /// The calls of one kind, in order: "path", or "path > target".
    QStringList CallsOf(FileCall call) const;
    int CountOf(FileCall call) const;
    /// Every call in order: "CopyFile E:\a.mp3 > C:\a.mp3".
    QStringList CallTexts() const;
    /// The calls that would change something at or below `folder`, as in CallTexts.
    QStringList ChangesBelow(const QString& folder) const;

    /// The folders that RemoveLeftovers was called for, in order. It never fails, and is no
    /// recorded call: nothing is left over here.
    QStringList ClearedFolders;

    // ---- failures. A test of existence that is made to fail answers false.

    /// Runs before each call, after it was recorded; may throw, or change anything.
    std::function<void(const RecordedCall&)> BeforeCall;
    /// Fails the `nth` call (1-based, counted from now on) once.
    void FailNthCall(int nth, ErrorNumber errorNumber);
    /// Fails the `nth` call of one kind once.
    void FailNthCall(FileCall call, int nth, ErrorNumber errorNumber);
    /// Fails every call that names `path`, or works on an open file of it, until ClearFailures.
    void FailPath(const QString& path, ErrorNumber errorNumber);
    /// Fails every call of one kind that names `path`, until ClearFailures.
    void FailPath(FileCall call, const QString& path, ErrorNumber errorNumber);
    /// Lets `bytes` more bytes be written, whatever the drives' free space, then raises DiskFull
    /// until ClearFailures.
    void DiskFullAfter(qint64 bytes);
    void ClearFailures();
    /// How many injected failures have struck.
    int FailuresStruck = 0;

    // ---- FileSystem

    bool FileExists(const QString& path) override;
    /// There are no links here: recorded as FileExists.
    bool WouldReplace(const QString& path) override { return FileExists(path); }
    bool FolderExists(const QString& path) override;
    /// FileAlreadyExists where there is one, PermissionDenied where something else has the name.
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
    void RemoveLeftovers(const QString& folder) override { ClearedFolders += folder; }
    qint64 FileLength(const QString& path) override;
    std::unique_ptr<BinaryFile> OpenForReading(const QString& path) override;
    std::unique_ptr<BinaryFile> OpenForReadingAndWriting(const QString& path) override;
    bool IsOnIpod(const QString& path) override;
    NameLimits LimitsOf(const QString&) override { return Limits; }
    QString DriveOf(const QString& path) override;
    double FreeBytes(const QString& path) override;
    QString NativePath(const QString& path) override;

    /// Files that are open at this moment.
    int OpenFiles = 0;
    /// Names beyond these are refused.
    NameLimits Limits;

private:
    friend class FakeBinaryFile;

    struct Entry {
        QString Path;
        bool IsFolder = false;
        FakeFileContent Content;
        qint64 ModificationTime = 0;
    };
    using EntryPointer = std::shared_ptr<Entry>;

    struct Drive {
        QString Root;
        double FreeBytes = 0;
    };

    struct Failure {
        bool AnyCall = true;
        FileCall Call = FileCall::FileExists;
        QString Key;       // of the path, null for any
        int CallsToGo = 0; // 0 for a failure that stays
        ErrorNumber Number = ErrorNumber::DeviceIOError;
    };

    static QString Key(const QString& path);
    static bool IsBelow(const QString& key, const QString& folderKey);
    static QString TextOf(const RecordedCall& call);
    static QString NamedTextOf(const RecordedCall& call);
    const Entry* Find(const QString& path) const;
    const Entry& FileAt(const QString& path) const;
    Drive* DriveFor(const QString& path);
    void Record(FileCall call, const QString& path, const QString& target = {}, qint64 size = 0);
    bool Strikes(Failure& failure, const RecordedCall& call) const;
    void RequireParent(const QString& path) const;
    EntryPointer RequireFile(const QString& path) const;
    void RequireFileTarget(const QString& path, Existing existing) const;
    void MakeFolder(const QString& path);
    /// How many of `bytes` can be written to the drive of `path`; takes them off its free space.
    qint64 TakeSpace(const QString& path, qint64 bytes);
    void GiveSpace(const QString& path, qint64 bytes);
    void Drop(const QString& key);
    QStringList Below(const QString& folder, bool folders) const;

    std::map<QString, EntryPointer> m_entries; // by Key
    std::map<QString, Drive> m_drives;         // by Key of the root
    std::map<QString, QString> m_nativePaths;
    std::vector<Failure> m_failures;
    qint64 m_bytesUntilFull = -1; // -1 for no such failure
    qint64 m_clock = 1000;
};
