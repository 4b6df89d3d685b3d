#include "platform/windows/FileInfo.h"

#include "platform/windows/WindowsErrors.h"

namespace {

/// Not every tag is a link's: files that are fetched from the network when they are first read have
/// one, too.
bool IsLink(HANDLE file) {
    FILE_ATTRIBUTE_TAG_INFO info{};
    return !GetFileInformationByHandleEx(file, FileAttributeTagInfo, &info, sizeof info) ||
           IsReparseTagNameSurrogate(info.ReparseTag);
}

} // namespace

WindowsHandle OpenToLook(const std::wstring& path, Links links) {
    const DWORD flags =
        FILE_FLAG_BACKUP_SEMANTICS | (links == Links::Keep ? FILE_FLAG_OPEN_REPARSE_POINT : 0);
    return WindowsHandle(CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, OPEN_EXISTING, flags, nullptr));
}

std::optional<FileInfo> Look(HANDLE file) {
    FileInfo info;
    if (!GetFileInformationByHandle(file, &info.Facts)) {
        return std::nullopt;
    }
    info.IsLink = (info.Facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && IsLink(file);
    return info;
}

FileInfo InfoOf(HANDLE file) {
    const std::optional<FileInfo> info = Look(file);
    if (!info) {
        ThrowError(GetLastError());
    }
    return *info;
}

std::optional<FileInfo> Look(const std::wstring& path, Links links) {
    const WindowsHandle file = OpenToLook(path, links);
    return file.IsOpen() ? Look(file.Get()) : std::nullopt;
}
