#include "platform/windows/WindowsErrors.h"

namespace {

// The compiler's header does not know these yet.
constexpr DWORD VirusInfected = 225;
constexpr DWORD NoSuchDevice = 433;
constexpr DWORD DiskQuotaExceeded = 1295;

} // namespace

ErrorNumber ErrorNumberOf(DWORD error) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
        return ErrorNumber::FileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY:
        return ErrorNumber::PathNotFound;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case DiskQuotaExceeded:
        return ErrorNumber::DiskFull;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_WRITE_PROTECT:
    case ERROR_PRIVILEGE_NOT_HELD:
    case ERROR_DELETE_PENDING:
    case ERROR_FILE_TOO_LARGE: // past the longest file of the file system, on FAT 4 GB
    case VirusInfected:
    case ERROR_NETWORK_ACCESS_DENIED:
    // A share for which this user's name or password does not do (any more).
    case ERROR_INVALID_PASSWORD:
    case ERROR_SESSION_CREDENTIAL_CONFLICT:
    case ERROR_NO_SUCH_LOGON_SESSION:
    case ERROR_LOGON_FAILURE:
        return ErrorNumber::PermissionDenied;
    case ERROR_CRC:
    case ERROR_SEEK:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_IO_DEVICE:
    case ERROR_FILE_CORRUPT:
    case ERROR_DISK_CORRUPT:
    case ERROR_HANDLE_EOF:
        return ErrorNumber::DeviceIOError;
    // A drive that is pulled out, and a share whose computer goes away.
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_BAD_UNIT:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_GEN_FAILURE:
    case NoSuchDevice:
    case ERROR_DEVICE_NOT_CONNECTED:
    case ERROR_DEVICE_REMOVED:
    case ERROR_FILE_INVALID:
    case ERROR_MEDIA_CHANGED:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case ERROR_UNRECOGNIZED_VOLUME:
    case ERROR_WRONG_DISK:
    case ERROR_REM_NOT_LIST:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_NETNAME_DELETED:
    case ERROR_NETWORK_BUSY:
    case ERROR_REQ_NOT_ACCEP:
    case ERROR_NO_NETWORK:
    case ERROR_NETWORK_UNREACHABLE:
    case ERROR_HOST_UNREACHABLE:
    case ERROR_VC_DISCONNECTED:
    case ERROR_CONNECTION_ABORTED:
    case ERROR_NOT_CONNECTED:
    case ERROR_UNEXP_NET_ERR:
    case ERROR_SEM_TIMEOUT:
        return ErrorNumber::DeviceUnavailable;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
    case ERROR_NO_SYSTEM_RESOURCES:
        return ErrorNumber::OutOfMemory;
    default:
        return ErrorNumber::PathFileAccessError;
    }
}

void ThrowError(DWORD error) {
    throw RuntimeError(ErrorNumberOf(error));
}

void ThrowCreationError(DWORD error) {
    switch (error) {
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_NO_UNICODE_TRANSLATION:
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
    case ERROR_CANNOT_MAKE:
        throw RuntimeError(ErrorNumber::PermissionDenied);
    case ERROR_FILE_NOT_FOUND:
        throw RuntimeError(ErrorNumber::PathNotFound);
    default:
        ThrowError(error);
    }
}

void ThrowPlacingError(DWORD error) {
    if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
    ThrowCreationError(error);
}

bool IsMissing(DWORD error) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_DIRECTORY:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_CANT_RESOLVE_FILENAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_NO_UNICODE_TRANSLATION:
        return true;
    default:
        return false;
    }
}
