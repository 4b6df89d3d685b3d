#pragma once

#include "platform/CopyControl.h"
#include "platform/NameLimits.h"
#include "platform/Paths.h"

#include <QString>
#include <QtGlobal>

#include <functional>
#include <memory>

/// An open file, read and written in blocks at its current position. Closed by its destructor.
/// Every operation throws RuntimeError on failure.
class BinaryFile {
public:
    virtual ~BinaryFile() = default;

    /// Reads exactly `size` bytes. Throws DeviceIOError when the file ends earlier. The buffer is
    /// shared because a read that is given up may still fill it later.
    virtual void Read(const std::shared_ptr<char>& buffer, qint64 size) = 0;
    /// Writes the next `size` bytes of `source`, a file of the same file system service. Throws
    /// DeviceIOError when the source ends earlier. False when `control` stopped it before its end.
    virtual bool WriteFrom(BinaryFile& source, qint64 size, const CopyControl& control) = 0;
    /// Cuts the file off after its first `size` bytes.
    virtual void Truncate(qint64 size) = 0;
    /// Closes the file. Throws the writing errors that the system reports late.
    virtual void Close() = 0;
    /// Gives a file that was opened for writing, and may be closed by now, the modification time of
    /// `source`, which must be open, where the file system allows it. Never throws: a copy is
    /// complete without it.
    virtual void TakeModificationTime(BinaryFile& source) = 0;
};

/// What happens to a file that already has the name that another one is to get.
enum class Existing {
    /// It stays; the operation throws FileAlreadyExists.
    Keep,
    Replace
};

/// Files and folders, by paths in drive form or native form. The tests of existence never throw;
/// everything else throws RuntimeError with the matching number, unless it says otherwise.
///
/// Several threads may use it at once, since an operation that hangs is left to its thread. The
/// service must outlive such a thread: whoever gives up operations keeps it alive with KeptAlive.
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
    /// Deletes a folder with everything in it. Links inside are removed, never followed; mount
    /// points and the system's shared temporary folders are left alone. Once `control` is stopped
    /// nothing more is deleted.
    virtual void DeleteFolder(const QString& path, const CopyControl& control) = 0;

    /// Copies a whole file with its modification time. `target` appears, or replaces an earlier
    /// file, only once all bytes are there; a failed copy leaves nothing behind. A file that
    /// appears at `target` during the copy is treated like one that was there before. False when
    /// `control` stopped it before all bytes were there: nothing is left of it then either.
    virtual bool CopyFile(const QString& source, const QString& target, Existing existing,
                          const CopyControl& control) = 0;
    /// Does as much of CopyFile as nobody can see yet, for a file that replaces nothing, and
    /// returns a function that does the rest. That one returns what CopyFile would, and false also
    /// where the folder is missing or something has the name already. If it is never called,
    /// nothing is left of the file.
    virtual std::function<bool()> BeginNewFile(const QString& source, const QString& target,
                                               const CopyControl& control) {
        return [this, source, target, control] {
            return FolderExists(Paths::ParentFolder(target)) && !WouldReplace(target) &&
                   CopyFile(source, target, Existing::Keep, control);
        };
    }
    /// Opens a file that will be copied or opened next, and has the system read its beginning. The
    /// file stays open until then or until the next call; an empty path only closes it. Never
    /// throws: a file that cannot be read is reported when its turn comes.
    virtual void ReadAhead(const QString& path) = 0;
    /// Throws what MoveFile to `target` would throw, as far as that can be known in advance.
    virtual void RequireTarget(const QString& target, Existing existing) = 0;
    /// Renames a file that was opened for writing and may be closed by now. An earlier `target` is
    /// replaced in the same instant, so that one of the two always exists. Throws PermissionDenied
    /// where the file's name now belongs to another program's file. False when `control` stopped it
    /// before: the file then keeps its earlier name.
    virtual bool MoveFile(BinaryFile& file, const QString& target, Existing existing,
                          const CopyControl& control) = 0;
    /// Deletes a file that was opened for writing and may be closed by now, unless its name now
    /// belongs to another file. Never throws.
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

    /// Whether `path` lies, or would lie, on a drive that is an iPod, whatever links or mounts lead
    /// there. Nothing is ever changed on an iPod: operations that would do so throw
    /// PermissionDenied. Never throws.
    virtual bool IsOnIpod(const QString& path) = 0;

    /// The limits on names in the folder `path`, or in the nearest existing one above it. Never
    /// throws.
    virtual NameLimits LimitsOf(const QString& path) = 0;

    /// The drive that holds `path`, as the user knows it: the first two characters in drive form,
    /// the mount point in native form.
    virtual QString DriveOf(const QString& path) = 0;
    /// Bytes that this user can still store on the drive that holds `path`.
    virtual double FreeBytes(const QString& path) = 0;

    /// The path as the operating system takes it, for libraries that open files themselves.
    virtual QString NativePath(const QString& path) = 0;
};

/// `service` for work on another thread, which may go on hanging after its caller has given it up:
/// shares the ownership of the service, where its owner holds it in a shared_ptr.
template <class Service>
std::shared_ptr<Service> KeptAlive(Service& service) {
    std::shared_ptr<Service> owner = service.weak_from_this().lock();
    return owner ? owner : std::shared_ptr<Service>(std::shared_ptr<void>(), &service);
}
