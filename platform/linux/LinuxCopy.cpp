#include "platform/linux/LinuxCopy.h"

#include "platform/FileRules.h"
#include "platform/RuntimeError.h"
#include "platform/linux/BeneathOpen.h"
#include "platform/linux/ByteTransfer.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/FileLock.h"
#include "platform/linux/LinuxErrors.h"
#include "platform/linux/SameFile.h"

#include <atomic>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

/// Less the umask. The source's own mode says nothing: on FAT every file is executable.
constexpr mode_t NewFileMode = 0666;

void SeekTo(int file, off_t position) {
    if (lseek(file, position, SEEK_SET) != position) {
        ThrowError(errno);
    }
}

/// False when `control` has stopped it.
bool CopyContent(const SourceFile& source, int target, const CopyControl& control) {
    if (!TransferAll(source.File, target, source.Info.st_size, control) ||
        !TransferRest(source.File, target, control)) { // some file systems report no length
        return false;
    }
    // File systems that write late (over a network) report what went wrong when a descriptor is
    // closed. Closing a second descriptor shows it while the target can still be given up.
    FileDescriptor second(fcntl(target, F_DUPFD_CLOEXEC, 0));
    const int error = second.IsOpen() ? second.Close() : second.Error();
    if (error != 0) {
        ThrowError(error);
    }
    SetModificationTime(target, source.Info.st_mtim);
    return true;
}

/// Gives an open file that has no name yet a name; as linkat.
int LinkNameless(int folder, int file, const char* name) {
    // This works for root, and on newer kernels for everyone.
    if (linkat(file, "", folder, name, AT_EMPTY_PATH) == 0) {
        return 0;
    }
    if (errno != ENOENT) {
        return -1;
    }
    return linkat(AT_FDCWD, DescriptorPath(file).constData(), folder, name, AT_SYMLINK_FOLLOW);
}

/// A part file that stands in a folder. Shared with whoever removes it when its copy hangs.
class PartEntry {
public:
    PartEntry(FileDescriptor folder, const struct stat& info)
        : m_folder(std::move(folder)), m_info(info) {}

    /// Another program has put something in its place.
    bool IsReplaced() const {
        struct stat found {};
        return fstatat(m_folder.Get(), PartName, &found, AT_SYMLINK_NOFOLLOW) == 0 &&
               !IsSameFile(found, m_info);
    }
    /// At most once: afterwards a file of that name belongs to another copy.
    void Remove() {
        if (!m_isGone.exchange(true) && !IsReplaced()) {
            unlinkat(m_folder.Get(), PartName, 0);
        }
    }
    /// It has its final name.
    void Keep() { m_isGone = true; }

private:
    FileDescriptor m_folder;
    struct stat m_info;
    std::atomic<bool> m_isGone = false;
};

/// The part file of a copy into a folder: removed again unless it took the target's place.
class PartFile {
public:
    PartFile(int folder, const CopyControl& control) : m_folder(folder), m_control(control) {}
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile() {
        if (m_entry) {
            m_entry->Remove();
            m_control.SetRemover(nullptr);
        }
    }

    /// Makes an empty, locked part file.
    FileDescriptor Create() {
        constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
        FileDescriptor file(openat(m_folder, PartName, flags, NewFileMode));
        if (file.Error() == EEXIST) {
            RemoveLeftover(m_folder);
            file = FileDescriptor(openat(m_folder, PartName, flags, NewFileMode));
        }
        if (!file.IsOpen()) {
            ThrowCreationError(file.Error());
        }
        Take(file.Get());
        LockNamed(file.Get(), m_folder, PartName);
        return file;
    }

    /// Gives a file without a name the part name; false where that name is taken.
    bool Link(int file) {
        flock(file, LOCK_EX | LOCK_NB);
        if (LinkNameless(m_folder, file, PartName) != 0) {
            return false;
        }
        Take(file);
        return true;
    }

    /// Throws PermissionDenied where another program has put something in the part file's place.
    void TakePlaceOf(const QByteArray& name, Existing existing) {
        if (m_entry->IsReplaced()) {
            throw RuntimeError(ErrorNumber::PermissionDenied);
        }
        if (const int error = Rename(m_folder, PartName, m_folder, name, existing)) {
            ThrowPlacingError(error);
        }
        m_entry->Keep();
    }

private:
    /// The open `file` has the part name from now on.
    void Take(int file) {
        struct stat info {};
        FileDescriptor folder(fcntl(m_folder, F_DUPFD_CLOEXEC, 0));
        if (!folder.IsOpen() || fstat(file, &info) != 0) {
            const int error = errno;
            unlinkat(m_folder, PartName, 0);
            ThrowError(error);
        }
        m_entry = std::make_shared<PartEntry>(std::move(folder), info);
        m_control.SetRemover([entry = m_entry] { entry->Remove(); });
    }

    int m_folder;
    CopyControl m_control;
    std::shared_ptr<PartEntry> m_entry;
};

} // namespace

bool CopyWhole(const SourceFile& source, int folder, const QByteArray& name, Existing existing,
               const CopyControl& control) {
    CheckTarget(folder, name, existing);
    if (existing == Existing::Replace && IsSameFile(source.Info, folder, name.constData(), 0)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    const FileDescriptor copy = CopyWithoutName(source, folder, control);
    return PlaceCopy(copy, source, folder, name, existing, control);
}

FileDescriptor CopyWithoutName(const SourceFile& source, int folder, const CopyControl& control) {
    FileDescriptor file(openat(folder, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, NewFileMode));
    if (file.IsOpen()) {
        CopyContent(source, file.Get(), control);
    }
    return file;
}

bool PlaceCopy(const FileDescriptor& copy, const SourceFile& source, int folder,
               const QByteArray& name, Existing existing, const CopyControl& control) {
    if (!copy.IsOpen()) {
        return CopyUnderPartName(source, folder, name, existing, control);
    }
    if (!control.BeginPlacing()) {
        return false;
    }
    if (existing == Existing::Keep) {
        if (LinkNameless(folder, copy.Get(), name.constData()) == 0) {
            return true;
        }
        if (errno == EEXIST) {
            ThrowPlacingError(errno);
        }
    } else {
        PartFile part(folder, control);
        if (part.Link(copy.Get())) {
            part.TakePlaceOf(name, existing);
            return true;
        }
    }
    control.EndPlacing();
    return CopyUnderPartName(source, folder, name, existing, control);
}

void SetModificationTime(int file, const timespec& time) {
    // Some file systems that run outside the kernel ignore a time unless both are set.
    const timespec times[2] = {{0, UTIME_NOW}, time};
    futimens(file, times);
}

void RemoveLeftover(int folder) {
    constexpr int flags = O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    // For writing where possible: over NFS only such a file can be locked.
    FileDescriptor leftover(openat(folder, PartName, O_RDWR | flags));
    if (leftover.Error() == EACCES || leftover.Error() == EROFS) {
        leftover = FileDescriptor(openat(folder, PartName, O_RDONLY | flags));
    }
    if (leftover.Error() == ENOENT) {
        return;
    }
    if (leftover.Error() == EACCES) { // somebody else's, who may be writing it
        ThrowError(leftover.Error());
    }
    if (leftover.IsOpen()) {
        LockNamed(leftover.Get(), folder, PartName);
    }
    if (unlinkat(folder, PartName, 0) != 0 && errno != ENOENT) {
        ThrowCreationError(errno);
    }
}

bool CopyUnderPartName(const SourceFile& source, int folder, const QByteArray& name,
                       Existing existing, const CopyControl& control) {
    SeekTo(source.File, 0);
    PartFile part(folder, control);
    FileDescriptor file = part.Create();
    if (!CopyContent(source, file.Get(), control) || !control.BeginPlacing()) {
        return false;
    }
    part.TakePlaceOf(name, existing);
    if (const int error = file.Close()) {
        ThrowError(error);
    }
    return true;
}

void CheckTarget(int folder, const QByteArray& name, Existing existing) {
    RequireNoPartName(QString::fromUtf8(name));
    struct stat info {};
    if (fstatat(folder, name.constData(), &info, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno == ENOENT) {
            return;
        }
        ThrowCreationError(errno);
    }
    // A link itself is replaced, but only if the file that it leads to may be, too.
    const bool leadsNowhere =
        S_ISLNK(info.st_mode) && fstatat(folder, name.constData(), &info, 0) != 0;
    RequireReplaceable(leadsNowhere || S_ISREG(info.st_mode), existing);
    if (!leadsNowhere && faccessat(folder, name.constData(), W_OK, AT_EACCESS) != 0) {
        ThrowCreationError(errno);
    }
}

int Rename(int fromFolder, const QByteArray& from, int toFolder, const QByteArray& to,
           Existing existing) {
    if (existing == Existing::Keep) {
        if (renameat2(fromFolder, from.constData(), toFolder, to.constData(), RENAME_NOREPLACE) ==
            0) {
            return 0;
        }
        if (errno != EINVAL && errno != ENOSYS) {
            return errno;
        }
        // This file system cannot rename without replacing (NFS, some that run outside the kernel).
        // A hard link never replaces; where there are none either, looking first is all that is
        // left.
        if (linkat(fromFolder, from.constData(), toFolder, to.constData(), 0) == 0) {
            return unlinkat(fromFolder, from.constData(), 0) == 0 ? 0 : errno;
        }
        struct stat info {};
        if (errno == EEXIST || fstatat(toFolder, to.constData(), &info, AT_SYMLINK_NOFOLLOW) == 0) {
            return EEXIST;
        }
    }
    return renameat(fromFolder, from.constData(), toFolder, to.constData()) == 0 ? 0 : errno;
}

void ThrowPlacingError(int error) {
    if (error == EEXIST) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
    ThrowCreationError(error);
}
