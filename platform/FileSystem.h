#pragma once

#include "platform/CopyControl.h"
#include "platform/NameLimits.h"

#include <QString>
#include <QtGlobal>

#include <memory>

/// An open file, read and written in blocks at its current position. Closed by its destructor.
/// Every operation throws RuntimeError on failure.
class BinaryFile {
public:
    virtual ~BinaryFile() = default;

    /// Reads exactly `size` bytes. A file that ends earlier is a device that fails: DeviceIOError.
    virtual void Read(char* buffer, qint64 size) = 0;
    /// Writes the next `size` bytes of `source`, a file of the same file system service. A source
    /// that ends earlier is a device that fails: DeviceIOError. False when `control` has stopped it
    /// before its end.
    virtual bool WriteFrom(BinaryFile& source, qint64 size, const CopyControl& control) = 0;
    /// Cuts the file off behind its first `size` bytes.
    virtual void Truncate(qint64 size) = 0;
    /// Closes the file. Writing errors that the system reports late are raised here.
    virtual void Close() = 0;
    /// Gives a file that was opened for writing, closed by now or not, the modification time of
    /// `source`, which is open, where the file system lets it. Never throws: a copy is whole
    /// without it.
    virtual void TakeModificationTime(BinaryFile& source) = 0;
};

/// What becomes of a file that stands where another one is to be put.
enum class Existing {
    /// It stays; the operation throws FileAlreadyExists.
    Keep,
    Replace
};

/// Files and folders, by paths in drive form or native form. The tests of existence never throw;
/// everything else throws RuntimeError with the number that fits, unless it says otherwise.
///
/// May be used by several threads at once, for an operation that hangs is left to its thread. What
/// such a thread uses must live on: whoever gives operations up keeps the service with KeptAlive.
class FileSystem : public std::enable_shared_from_this<FileSystem> {
public:
    virtual ~FileSystem() = default;

    virtual bool FileExists(const QString& path) = 0;
    /// Whether a file put at `path` would replace something: a file, or a link to nothing. Never
    /// throws.
    virtual bool WouldReplace(const QString& path) = 0;
    virtual bool FolderExists(const QString& path) = 0;

    /// Creates one folder, whose parent exists.
    virtual void CreateFolder(const QString& path) = 0;
    /// Creates a folder and every missing folder above it.
    virtual void CreateFolderChain(const QString& path) = 0;
    /// Deletes a folder with all it holds. Links inside are removed, never followed; mount points
    /// and the system's shared temporary folders are left alone. Once `control` is stopped nothing
    /// more is deleted.
    virtual void DeleteFolder(const QString& path, const CopyControl& control) = 0;

    /// Copies a whole file with its modification time. `target` appears, or takes the place of an
    /// earlier file, only once all bytes are there; a failed copy leaves nothing behind. A file
    /// that comes to stand at `target` meanwhile counts like one that was there before. False when
    /// `control` has stopped it before all bytes were there: nothing is left of it then either.
    virtual bool CopyFile(const QString& source, const QString& target, Existing existing,
                          const CopyControl& control) = 0;
    /// A file that is going to be copied or opened next: opens it, and has the system read its
    /// beginning. It stays open until then or until the next call; an empty path only closes it.
    /// Never throws: a file that cannot be read is told in its turn.
    virtual void ReadAhead(const QString& path) = 0;
    /// Throws what MoveFile to `target` would as far as that is known before.
    virtual void RequireTarget(const QString& target, Existing existing) = 0;
    /// Renames a file that was opened for writing, closed by now or not. An earlier `target` is
    /// replaced in the same instant, so that there is never a moment with neither. Throws
    /// PermissionDenied where the file has lost its name to another program's. False when `control`
    /// has stopped it before: the file has its earlier name then.
    virtual bool MoveFile(BinaryFile& file, const QString& target, Existing existing,
                          const CopyControl& control) = 0;
    /// Deletes a file that was opened for writing, closed by now or not, unless it has lost its
    /// name. Never throws.
    virtual void DeleteFile(BinaryFile& file) = 0;
    /// Removes what a killed CopyFile has left in a folder, unless another copy is at work there.
    /// Never throws.
    virtual void RemoveLeftovers(const QString& folder) = 0;

    /// Length in bytes.
    virtual qint64 FileLength(const QString& path) = 0;
    virtual std::unique_ptr<BinaryFile> OpenForReading(const QString& path) = 0;
    /// Opens for reading and writing from the start; a missing file is created, an existing one is
    /// not emptied.
    virtual std::unique_ptr<BinaryFile> OpenForReadingAndWriting(const QString& path) = 0;

    /// Whether `path` lies, or would lie, on a drive that is an iPod, whatever leads there. Nothing
    /// is ever changed on one: what would do so throws PermissionDenied. Never throws.
    virtual bool IsOnIpod(const QString& path) = 0;

    /// What names a file or folder can have in the folder `path`, or in the nearest one above it
    /// that exists. Never throws.
    virtual NameLimits LimitsOf(const QString& path) = 0;

    /// The drive that holds `path`, as it is named to the user: the first two characters in drive
    /// form, the mount point in native form.
    virtual QString DriveOf(const QString& path) = 0;
    /// Free bytes for this user on the drive that holds `path`.
    virtual double FreeBytes(const QString& path) = 0;

    /// The path as the operating system takes it, for libraries that open files themselves.
    virtual QString NativePath(const QString& path) = 0;
};

/// `service` for work on another thread, which may have to be left alone for as long as it hangs:
/// owns it together with its owner where that is a shared_ptr.
template <class Service>
std::shared_ptr<Service> KeptAlive(Service& service) {
    std::shared_ptr<Service> owner = service.weak_from_this().lock();
    return owner ? owner : std::shared_ptr<Service>(std::shared_ptr<void>(), &service);
}
