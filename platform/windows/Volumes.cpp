#include "platform/windows/Volumes.h"

#include "platform/windows/FileInfo.h"
#include "platform/windows/WindowsErrors.h"

#include <winioctl.h>

#include <array>
#include <vector>

namespace {

/// Without the prefix of literal paths, which not every function takes.
std::wstring Plain(const std::wstring& path) {
    if (path.starts_with(L"\\\\?\\UNC\\")) {
        return L"\\\\" + path.substr(8);
    }
    return path.starts_with(L"\\\\?\\") && path.substr(5, 1) == L":" ? path.substr(4) : path;
}

/// Where a folder really lies: without links, and by the drive's own letter.
std::wstring FinalPathOf(const std::wstring& folder) {
    const WindowsHandle handle = OpenToLook(folder, Links::Follow);
    std::vector<wchar_t> path(32768);
    const DWORD size = handle.IsOpen() ? GetFinalPathNameByHandleW(handle.Get(), path.data(),
                                                                   static_cast<DWORD>(path.size()),
                                                                   VOLUME_NAME_DOS)
                                       : 0;
    return size > 0 && size < path.size() ? std::wstring(path.data(), size) : folder;
}

/// "\\server\share\" of a path on a share of the network; empty for any other.
std::wstring ShareOf(const std::wstring& path) {
    const size_t server = path.starts_with(L"\\\\") ? path.find(L'\\', 2) : std::wstring::npos;
    return server == std::wstring::npos ? std::wstring()
                                        : path.substr(0, path.find(L'\\', server + 1)) + L'\\';
}

/// Drives on USB or FireWire may call themselves fixed, but can be taken out all the same.
bool HangsOnCable(const std::wstring& root) {
    std::array<wchar_t, 64> volume{};
    if (!GetVolumeNameForVolumeMountPointW(root.c_str(), volume.data(), volume.size())) {
        return false;
    }
    std::wstring device = volume.data();
    device.pop_back(); // with the "\" it would be the topmost folder
    // No right to read or write is asked for: the question goes to the system, not to the drive.
    const WindowsHandle handle(CreateFileW(device.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                           nullptr, OPEN_EXISTING, 0, nullptr));
    STORAGE_PROPERTY_QUERY query{StorageDeviceProperty, PropertyStandardQuery, {}};
    STORAGE_DEVICE_DESCRIPTOR found{};
    DWORD size = 0;
    return handle.IsOpen() &&
           DeviceIoControl(handle.Get(), IOCTL_STORAGE_QUERY_PROPERTY, &query, sizeof query, &found,
                           sizeof found, &size, nullptr) &&
           size >= offsetof(STORAGE_DEVICE_DESCRIPTOR, RawPropertiesLength) &&
           (found.BusType == BusTypeUsb || found.BusType == BusType1394);
}

/// The volume that Windows itself is on.
const std::wstring& SystemVolume() {
    static const std::wstring volume = [] {
        std::array<wchar_t, MAX_PATH> folder{};
        GetSystemWindowsDirectoryW(folder.data(), folder.size());
        return VolumeOf(folder.data());
    }();
    return volume;
}

} // namespace

std::wstring VolumeOf(const std::wstring& folder) {
    const std::wstring path = Plain(FinalPathOf(folder));
    std::vector<wchar_t> root(path.size() + 2);
    // Not every network's driver reports it.
    return GetVolumePathNameW(path.c_str(), root.data(), static_cast<DWORD>(root.size()))
               ? std::wstring(root.data())
               : ShareOf(path);
}

bool IsRemovableVolume(const std::wstring& root) {
    switch (GetDriveTypeW(root.c_str())) {
    case DRIVE_REMOVABLE:
        return true;
    case DRIVE_FIXED:
        return HangsOnCable(root);
    default:
        return false;
    }
}

bool IsOnIpodVolume(const std::wstring& folder) {
    const std::wstring root = VolumeOf(folder);
    if (root.empty()) {
        return true; // unknown, and on an iPod nothing may be changed
    }
    // Whatever the drive calls itself: an iPod may say that it is fixed, or be another computer's.
    if (root == SystemVolume()) {
        return false;
    }
    return GetFileAttributesW((root + L"iPod_Control").c_str()) != INVALID_FILE_ATTRIBUTES ||
           !IsMissing(GetLastError());
}
