#include "platform/linux/FileLock.h"

#include "platform/RuntimeError.h"
#include "platform/linux/SameFile.h"

#include <cerrno>
#include <sys/file.h>

void LockNamed(int file, int folder, const char* name) {
    struct stat info {};
    const bool isInUse = flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (isInUse || fstat(file, &info) != 0 ||
        !IsSameFile(info, folder, name, AT_SYMLINK_NOFOLLOW)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
}
