#include "platform/linux/LinuxErrors.h"

#include <cerrno>

ErrorNumber ErrorNumberOf(int error) {
    switch (error) {
    case ENOENT:
        return ErrorNumber::FileNotFound;
    case ENOTDIR:
        return ErrorNumber::PathNotFound;
    case ENOSPC:
    case EDQUOT:
        return ErrorNumber::DiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
    case EFBIG: // past the longest file of the file system, on FAT 4 GB
        return ErrorNumber::PermissionDenied;
    case EIO:
        return ErrorNumber::DeviceIOError;
    case ENODEV:
    case ENXIO:
    case ESTALE:
        return ErrorNumber::DeviceUnavailable;
    default:
        return ErrorNumber::PathFileAccessError;
    }
}

void ThrowError(int error) {
    throw RuntimeError(ErrorNumberOf(error));
}

void ThrowCreationError(int error) {
    switch (error) {
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
    case EISDIR:
    case EEXIST:
        throw RuntimeError(ErrorNumber::PermissionDenied);
    default:
        break;
    }
    if (IsMissing(error)) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    ThrowError(error);
}

bool IsMissing(int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case EILSEQ:
    case ELOOP:
    case EXDEV:
        return true;
    default:
        return false;
    }
}
