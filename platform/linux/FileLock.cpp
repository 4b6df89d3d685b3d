#include "platform/linux/FileLock.h"

#include "platform/RuntimeError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>

bool IsSameFile(const struct stat& file, int folder, const char* name, int flags) {
    struct stat other {};
    return fstatat(folder, name, &other, flags) == 0 && file.st_dev == other.st_dev &&
           file.st_ino == other.st_ino;
}

void LockNamed(int file, int folder, const char* name) {
    struct stat info {};
    const bool isInUse = flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (isInUse || fstat(file, &info) != 0 ||
        !IsSameFile(info, folder, name, AT_SYMLINK_NOFOLLOW)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
}
