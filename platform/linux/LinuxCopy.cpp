#include "platform/linux/LinuxCopy.h"

#include "platform/RuntimeError.h"
#include "platform/linux/BeneathOpen.h"
#include "platform/linux/ByteTransfer.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/FileLock.h"
#include "platform/linux/LinuxErrors.h"

#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The umask takes its bits away. The source's own mode means nothing: on FAT all is executable.
constexpr mode_t NewFileMode = 0666;

void SeekTo(int file, off_t position) {
    if (lseek(file, position, SEEK_SET) != position) {
        ThrowError(errno);
    }
}

void CopyContent(const CopySource& source, int target) {
    TransferAll(source.File, target, source.Info.st_size);
    TransferRest(source.File, target); // some file systems report no length
    // File systems that write late (over a network) report what went wrong when a descriptor is
    // closed. Closing a second one tells it while the target can still be given up.
    FileDescriptor second(fcntl(target, F_DUPFD_CLOEXEC, 0));
    const int error = second.IsOpen() ? second.Close() : second.Error();
    if (error != 0) {
        ThrowError(error);
    }
    SetModificationTime(target, source.Info.st_mtim);
}

/// Gives an open file that has no name yet a name; as linkat.
int LinkNameless(int folder, int file, const char* name) {
    // The short way is open to root, and on newer kernels to everyone.
    if (linkat(file, "", folder, name, AT_EMPTY_PATH) == 0) {
        return 0;
    }
    if (errno != ENOENT) {
        return -1;
    }
    return linkat(AT_FDCWD, DescriptorPath(file).constData(), folder, name, AT_SYMLINK_FOLLOW);
}

/// The part file while it stands in the folder: removed again unless it took the target's place.
class PartFile {
public:
    explicit PartFile(int folder) : m_folder(folder) {}
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile() {
        if (m_isMade && !IsReplaced()) {
            unlinkat(m_folder, PartName, 0);
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
        m_isMade = true;
        Remember(file.Get());
        LockNamed(file.Get(), m_folder, PartName);
        return file;
    }

    /// Gives a file without a name the part name; false where that name is taken.
    bool Link(int file) {
        flock(file, LOCK_EX | LOCK_NB);
        Remember(file);
        m_isMade = LinkNameless(m_folder, file, PartName) == 0;
        return m_isMade;
    }

    /// Throws PermissionDenied where another program has put something in the part file's place.
    void TakePlaceOf(const QByteArray& name, Existing existing) {
        if (IsReplaced()) {
            throw RuntimeError(ErrorNumber::PermissionDenied);
        }
        if (const int error = Rename(m_folder, PartName, m_folder, name, existing)) {
            ThrowPlacingError(error);
        }
        m_isMade = false;
    }

private:
    void Remember(int file) { m_isKnown = fstat(file, &m_info) == 0; }
    bool IsReplaced() const {
        struct stat found {};
        return m_isKnown && fstatat(m_folder, PartName, &found, AT_SYMLINK_NOFOLLOW) == 0 &&
               (found.st_dev != m_info.st_dev || found.st_ino != m_info.st_ino);
    }

    int m_folder;
    bool m_isMade = false;
    bool m_isKnown = false;
    struct stat m_info {};
};

/// Copies into a file that has no name until it is whole, so that not even a killed program leaves
/// anything behind. False where the file system knows no such files.
bool CopyNameless(const CopySource& source, int folder, const QByteArray& name, Existing existing) {
    const FileDescriptor file(openat(folder, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, NewFileMode));
    if (!file.IsOpen()) {
        return false;
    }
    CopyContent(source, file.Get());
    if (existing == Existing::Keep) {
        if (LinkNameless(folder, file.Get(), name.constData()) == 0) {
            return true;
        }
        if (errno == EEXIST) {
            ThrowPlacingError(errno);
        }
        return false;
    }
    PartFile part(folder);
    if (!part.Link(file.Get())) {
        return false;
    }
    part.TakePlaceOf(name, existing);
    return true;
}

} // namespace

void CopyWhole(const CopySource& source, int folder, const QByteArray& name, Existing existing) {
    CheckTarget(folder, name, existing);
    if (existing == Existing::Replace && IsSameFile(source.Info, folder, name.constData(), 0)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    if (!CopyNameless(source, folder, name, existing)) {
        CopyUnderPartName(source, folder, name, existing);
    }
}

void SetModificationTime(int file, const timespec& time) {
    // Some file systems that run outside the kernel heed no time unless both are set.
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

void CopyUnderPartName(const CopySource& source, int folder, const QByteArray& name,
                       Existing existing) {
    SeekTo(source.File, 0);
    PartFile part(folder);
    FileDescriptor file = part.Create();
    CopyContent(source, file.Get());
    part.TakePlaceOf(name, existing);
    if (const int error = file.Close()) {
        ThrowError(error);
    }
}

void RequireNoPartName(const QByteArray& name) {
    // The drives people carry away drop these at the end.
    qsizetype length = name.size();
    while (length > 0 && (name[length - 1] == '.' || name[length - 1] == ' ')) {
        --length;
    }
    if (name.left(length).compare(PartName, Qt::CaseInsensitive) == 0) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
}

void CheckTarget(int folder, const QByteArray& name, Existing existing) {
    RequireNoPartName(name);
    struct stat info {};
    if (fstatat(folder, name.constData(), &info, AT_SYMLINK_NOFOLLOW) != 0) {
        if (errno == ENOENT) {
            return;
        }
        ThrowCreationError(errno);
    }
    // A link itself is replaced, but only where what it leads to might be.
    const bool leadsNowhere =
        S_ISLNK(info.st_mode) && fstatat(folder, name.constData(), &info, 0) != 0;
    if (!leadsNowhere && !S_ISREG(info.st_mode)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    if (existing == Existing::Keep) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
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
        // This file system can only replace (NFS, some that run outside the kernel). A link never
        // does; where there are none either, one can but look.
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
