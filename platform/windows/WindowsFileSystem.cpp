#include "platform/windows/WindowsFileSystem.h"

#include "platform/FileRules.h"
#include "platform/NameRules.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/windows/Volumes.h"
#include "platform/windows/WindowsCopy.h"
#include "platform/windows/WindowsDelete.h"
#include "platform/windows/WindowsErrors.h"
#include "platform/windows/WindowsFile.h"
#include "platform/windows/WindowsPaths.h"

#include <utility>
#include <vector>

namespace {

std::optional<FileInfo> Look(const QString& path, Links links = Links::Follow) {
    const std::optional<std::wstring> place = SystemPath(path);
    return place ? Look(*place, links) : std::nullopt;
}

} // namespace

bool WindowsFileSystem::FileExists(const QString& path) {
    const std::optional<FileInfo> found = Look(path);
    return found && !found->IsFolder();
}

bool WindowsFileSystem::WouldReplace(const QString& path) {
    const std::optional<FileInfo> found = Look(path, Links::Keep);
    if (!found || found->IsFolder()) {
        return false;
    }
    const std::optional<FileInfo> behind = found->IsLink ? Look(path) : found;
    return !behind || !behind->IsFolder();
}

bool WindowsFileSystem::FolderExists(const QString& path) {
    const std::optional<FileInfo> found = Look(path);
    return found && found->IsFolder();
}

void WindowsFileSystem::CreateFolder(const QString& path) {
    RequireFolderName(path);
    const TargetPlace place = PlaceToChange(path);
    RequireNoPartName(place.Name);
    if (CreateDirectoryW(place.Path().c_str(), nullptr)) {
        return;
    }
    const DWORD error = GetLastError();
    if (error == ERROR_ALREADY_EXISTS && FolderExists(path)) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
    ThrowCreationError(error);
}

void WindowsFileSystem::CreateFolderChain(const QString& path) {
    MakeFolderChain(*this, path, RequireFolderName);
}

void WindowsFileSystem::DeleteFolder(const QString& path, const CopyControl& control) {
    if (!FolderExists(path)) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    if (!Paths::ParentFolder(path).isEmpty()) { // a drive's topmost folder stays
        DeleteTree(PlaceToChange(path).Path(), control);
    }
}

bool WindowsFileSystem::CopyFile(const QString& source, const QString& target, Existing existing,
                                 const CopyControl& control) {
    const WindowsHandle file = TakeRegular(source);
    const FileInfo info = InfoOf(file.Get());
    return CopyWhole({file.Get(), info}, PlaceToChange(target), existing, control);
}

void WindowsFileSystem::ReadAhead(const QString& path) {
    m_ahead.Open(path, [&] {
        WindowsHandle file = OpenRegular(path);
        std::vector<char> beginning(size_t{256} << 10); // read only for the system's cache
        DWORD count = 0;
        ReadFile(file.Get(), beginning.data(), static_cast<DWORD>(beginning.size()), &count,
                 nullptr);
        return file;
    });
}

void WindowsFileSystem::RequireTarget(const QString& target, Existing existing) {
    CheckTarget(PlaceToChange(target), existing);
}

bool WindowsFileSystem::MoveFile(BinaryFile& file, const QString& target, Existing existing,
                                 const CopyControl& control) {
    WindowsFile& moved = AsWindowsFile(file);
    const TargetPlace place = PlaceToChange(target);
    const auto lock = moved.Lock();
    if (!moved.HasItsName()) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    const FileInfo info = InfoOf(moved.Get());
    const std::optional<FileInfo> earlier = ::Look(place.Path(), Links::Keep);
    if (existing == Existing::Replace && earlier && earlier->IsSameAs(info)) {
        return true;
    }
    CheckTarget(place, existing);
    RequireWritten(moved.Get(), place.Folder);
    if (!control.BeginPlacing()) {
        return false;
    }
    const DWORD error = Rename(moved.Get(), place.Path(), existing);
    if (error == ERROR_SUCCESS) {
        moved.LetGo();
        return true;
    }
    if (error != ERROR_NOT_SAME_DEVICE) {
        ThrowPlacingError(error);
    }
    control.EndPlacing();
    if (!SetFilePointerEx(moved.Get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN)) {
        ThrowError(GetLastError());
    }
    if (!CopyWhole({moved.Get(), info}, place, existing, control)) {
        return false;
    }
    moved.Delete();
    return true;
}

void WindowsFileSystem::DeleteFile(BinaryFile& file) {
    WindowsFile& deleted = AsWindowsFile(file);
    const auto lock = deleted.Lock();
    deleted.Delete();
}

void WindowsFileSystem::RemoveLeftovers(const QString& folder) {
    const std::optional<std::wstring> place = SystemPath(folder);
    if (!place || IsOnIpod(folder)) {
        return;
    }
    try {
        RemoveLeftover(*place);
    } catch (const RuntimeError&) {
        // The next copy into this folder reports it.
    }
}

qint64 WindowsFileSystem::FileLength(const QString& path) {
    const std::optional<std::wstring> place = SystemPath(path);
    const WindowsHandle file =
        place ? OpenToLook(*place, Links::Follow) : WindowsHandle::Failed(ERROR_INVALID_NAME);
    if (!file.IsOpen()) {
        ThrowOpeningError(path, file.Error());
    }
    const FileInfo info = InfoOf(file.Get());
    if (info.IsFolder()) {
        ThrowOpeningError(path, ERROR_FILE_NOT_FOUND);
    }
    return info.Length();
}

std::unique_ptr<BinaryFile> WindowsFileSystem::OpenForReading(const QString& path) {
    return std::make_unique<WindowsFile>(TakeRegular(path), WindowsFile::Use::Reading);
}

std::unique_ptr<BinaryFile> WindowsFileSystem::OpenForReadingAndWriting(const QString& path) {
    const TargetPlace place = PlaceToChange(path);
    const std::optional<FileInfo> folder = Look(Paths::ParentFolder(path), Links::Keep);
    // Bytes that replace others without a question must stay where the path says.
    if (folder && folder->IsLink) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    constexpr DWORD access = GENERIC_READ | GENERIC_WRITE | DELETE;
    WindowsHandle file(CreateFileW(place.Path().c_str(), access, FILE_SHARE_READ, nullptr,
                                   OPEN_ALWAYS, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!file.IsOpen()) {
        ThrowCreationError(file.Error());
    }
    const FileInfo info = InfoOf(file.Get());
    // The bytes must not go where a link leads, nor into a file that is known by another name.
    if (info.IsLink || info.Facts.nNumberOfLinks > 1) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    return std::make_unique<WindowsFile>(std::move(file), WindowsFile::Use::Writing);
}

bool WindowsFileSystem::IsOnIpod(const QString& path) {
    const std::optional<std::wstring> folder = SystemPath(NearestFolder(*this, path));
    return folder && IsOnIpodVolume(*folder);
}

NameLimits WindowsFileSystem::LimitsOf(const QString& path) {
    NameLimits limits{255, NameLimits::Unit::Utf16Units, true};
    const std::optional<std::wstring> folder = SystemPath(NearestFolder(*this, path));
    DWORD longest = 0;
    if (folder && GetVolumeInformationW(VolumeOf(*folder).c_str(), nullptr, 0, nullptr, &longest,
                                        nullptr, nullptr, 0)) {
        limits.Longest = static_cast<int>(longest);
    }
    return limits;
}

QString WindowsFileSystem::DriveOf(const QString& path) {
    return Paths::DrivePart(path);
}

double WindowsFileSystem::FreeBytes(const QString& path) {
    const std::optional<std::wstring> folder = SystemPath(NearestFolder(*this, path));
    if (!folder) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    ULARGE_INTEGER bytes{};
    if (!GetDiskFreeSpaceExW(folder->c_str(), &bytes, nullptr, nullptr)) {
        ThrowError(GetLastError());
    }
    return static_cast<double>(bytes.QuadPart);
}

/// The file that was opened ahead, if it is still the one at `path`, or else opened now; at its
/// beginning.
WindowsHandle WindowsFileSystem::TakeRegular(const QString& path) {
    WindowsHandle file = m_ahead.Take(path);
    const std::optional<FileInfo> info = file.IsOpen() ? ::Look(file.Get()) : std::nullopt;
    const std::optional<FileInfo> found = info ? Look(path) : std::nullopt;
    const bool isSame = found && found->IsSameAs(*info) &&
                        SetFilePointerEx(file.Get(), LARGE_INTEGER{}, nullptr, FILE_BEGIN);
    return isSame ? std::move(file) : OpenRegular(path);
}

/// Opens a file for reading. A folder counts as missing.
WindowsHandle WindowsFileSystem::OpenRegular(const QString& path) {
    const std::optional<std::wstring> place = SystemPath(path);
    if (!place) {
        ThrowOpeningError(path, ERROR_INVALID_NAME);
    }
    WindowsHandle file(CreateFileW(place->c_str(), GENERIC_READ,
                                   FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                   OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file.IsOpen()) {
        ThrowOpeningError(path, FolderExists(path) ? ERROR_FILE_NOT_FOUND : file.Error());
    }
    return file;
}

/// The place for something to be made, replaced or deleted, which is never on an iPod.
TargetPlace WindowsFileSystem::PlaceToChange(const QString& path) {
    const QString folder = Paths::ParentFolder(path);
    QString name = path.mid(folder.size());
    while (name.startsWith(u'\\')) {
        name.remove(0, 1);
    }
    while (name.endsWith(u'\\')) {
        name.chop(1);
    }
    const std::optional<std::wstring> place = SystemPath(folder);
    if (!place || !FolderExists(folder)) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    if (IsOnIpod(folder) || name.isEmpty() || !IsUsableName(name)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    return {*place, name};
}

/// Throws the error of opening a file; a missing one is FileNotFound, or PathNotFound if its folder
/// is missing.
void WindowsFileSystem::ThrowOpeningError(const QString& path, DWORD error) {
    if (!IsMissing(error)) {
        ThrowError(error);
    }
    ThrowMissing(*this, path);
}
