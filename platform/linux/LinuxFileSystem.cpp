#include "platform/linux/LinuxFileSystem.h"

#include "platform/FileRules.h"
#include "platform/NameRules.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "platform/linux/BeneathOpen.h"
#include "platform/linux/FileLock.h"
#include "platform/linux/LinuxCopy.h"
#include "platform/linux/LinuxDelete.h"
#include "platform/linux/LinuxErrors.h"
#include "platform/linux/LinuxFile.h"
#include "platform/linux/LinuxNames.h"
#include "platform/linux/SameFile.h"

#include <QFile>
#include <QStorageInfo>

#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <utility>

namespace {

constexpr mode_t NewFileMode = 0666;
constexpr mode_t NewFolderMode = 0777;
/// Files up to this size are read at once anyway.
constexpr off_t ReadAtOnce = off_t{256} << 10;
/// What is read of a file before its turn: enough for the time that the file before takes to be
/// written to its end and given its name. The rest is then read ahead by the kernel.
constexpr off_t ReadAheadSize = off_t{512} << 10;

void CheckFolderName(const QString& path) {
    RequireFolderName(path);
    if (!EncodeName(path)) {
        // As for a file: one odd name must not end the whole job.
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
}

/// A file that is to be written may exist already, but only as a regular file with no other name:
/// the bytes must not go into a pipe, nor into a file that is known by another name.
void RequireOwnFile(const FileDescriptor& file) {
    struct stat info {};
    if (fstat(file.Get(), &info) != 0) {
        ThrowError(errno);
    }
    if (!S_ISREG(info.st_mode) || info.st_nlink > 1) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
}

} // namespace

bool LinuxFileSystem::FileExists(const QString& path) {
    const std::optional<struct stat> found = m_paths.Look(path);
    return found && S_ISREG(found->st_mode);
}

bool LinuxFileSystem::WouldReplace(const QString& path) {
    const FileDescriptor place = m_paths.Open(path, O_PATH | O_NOFOLLOW);
    struct stat info {};
    if (!place.IsOpen() || fstat(place.Get(), &info) != 0) {
        return false;
    }
    if (S_ISLNK(info.st_mode)) {
        const std::optional<struct stat> found = m_paths.Look(path);
        return !found || S_ISREG(found->st_mode);
    }
    return S_ISREG(info.st_mode);
}

bool LinuxFileSystem::FolderExists(const QString& path) {
    const std::optional<struct stat> found = m_paths.Look(path);
    return found && S_ISDIR(found->st_mode);
}

void LinuxFileSystem::CreateFolder(const QString& path) {
    CheckFolderName(path);
    const FolderEntry entry = EntryToChange(path);
    RequireNoPartName(QString::fromUtf8(entry.Name));
    int error = entry.Folder.Error();
    if (error == 0 && mkdirat(entry.Folder.Get(), entry.Name.constData(), NewFolderMode) != 0) {
        error = errno;
    }
    if ((error == EEXIST || error == EISDIR) && FolderExists(path)) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
    if (error != 0) {
        ThrowCreationError(error);
    }
}

void LinuxFileSystem::CreateFolderChain(const QString& path) {
    MakeFolderChain(*this, path, CheckFolderName);
}

void LinuxFileSystem::DeleteFolder(const QString& path, const CopyControl& control) {
    const FolderEntry entry = EntryToChange(path);
    if (entry.Folder.Error() == EISDIR) {
        return; // a root, which is a mount point
    }
    const bool isFolder = FolderExists(path);
    if (!isFolder || !entry.Folder.IsOpen()) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    // A folder that is attached as a drive counts as a mount point.
    DeleteTree(
        entry.Folder.Get(), entry.Name,
        [this](const struct stat& folder) { return m_drives.IsRoot(folder); }, control);
}

bool LinuxFileSystem::CopyFile(const QString& source, const QString& target, Existing existing,
                               const CopyControl& control) {
    struct stat info {};
    const FileDescriptor file = OpenRegular(source, info);
    const FolderEntry entry = RequireEntry(target);
    return CopyWhole({file.Get(), info}, entry.Folder.Get(), entry.Name, existing, control);
}

/// What the folder holds is looked at in the open folder that the file then goes to.
std::function<bool()> LinuxFileSystem::BeginNewFile(const QString& source, const QString& target,
                                                    const CopyControl& control) {
    struct NewFile {
        FolderEntry Entry;
        struct stat Info {};
        FileDescriptor Source = {};
        FileDescriptor Copy = {};
    };
    const auto file = std::make_shared<NewFile>(NewFile{EntryToChange(target)});
    const int folder = file->Entry.Folder.Get();
    if (!file->Entry.Folder.IsOpen() ||
        fstatat(folder, file->Entry.Name.constData(), &file->Info, AT_SYMLINK_NOFOLLOW) == 0) {
        return [] { return false; };
    }
    file->Source = OpenRegular(source, file->Info);
    CheckTarget(folder, file->Entry.Name, Existing::Keep);
    file->Copy = CopyWithoutName({file->Source.Get(), file->Info}, folder, control);
    return [file, folder, control] {
        return PlaceCopy(file->Copy, {file->Source.Get(), file->Info}, folder, file->Entry.Name,
                         Existing::Keep, control);
    };
}

void LinuxFileSystem::ReadAhead(const QString& path) {
    m_ahead.Open(path, [&] {
        struct stat info {};
        FileDescriptor file = OpenAnew(path, info);
        posix_fadvise(file.Get(), 0, std::min(info.st_size, ReadAheadSize), POSIX_FADV_WILLNEED);
        return file;
    });
}

/// The file that was read ahead, if it is still the one at `path`.
FileDescriptor LinuxFileSystem::TakeAhead(const QString& path, struct stat& info) {
    FileDescriptor file = m_ahead.Take(path);
    const std::optional<struct stat> found = file.IsOpen() ? m_paths.Look(path) : std::nullopt;
    const bool isSame = found && fstat(file.Get(), &info) == 0 && IsSameFile(*found, info);
    return isSame ? std::move(file) : FileDescriptor();
}

void LinuxFileSystem::RequireTarget(const QString& target, Existing existing) {
    const FolderEntry entry = RequireEntry(target);
    CheckTarget(entry.Folder.Get(), entry.Name, existing);
}

bool LinuxFileSystem::MoveFile(BinaryFile& file, const QString& target, Existing existing,
                               const CopyControl& control) {
    const LinuxFile& moved = AsLinuxFile(file);
    const FolderEntry from = RequireEntry(moved.Path());
    struct stat info {};
    if (fstat(moved.Kept(), &info) != 0) {
        ThrowError(errno);
    }
    if (!IsSameFile(info, from.Folder.Get(), from.Name.constData(), AT_SYMLINK_NOFOLLOW)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    const FolderEntry to = RequireEntry(target);
    CheckTarget(to.Folder.Get(), to.Name, existing);
    if (!control.BeginPlacing()) {
        return false;
    }
    const int error = Rename(from.Folder.Get(), from.Name, to.Folder.Get(), to.Name, existing);
    if (error == 0) {
        return true;
    }
    if (error != EXDEV) {
        ThrowPlacingError(error);
    }
    control.EndPlacing();
    if (lseek(moved.Kept(), 0, SEEK_SET) != 0) {
        ThrowError(errno);
    }
    if (!CopyWhole({moved.Kept(), info}, to.Folder.Get(), to.Name, existing, control)) {
        return false;
    }
    DeleteFile(file);
    return true;
}

void LinuxFileSystem::DeleteFile(BinaryFile& file) {
    const LinuxFile& deleted = AsLinuxFile(file);
    const FolderEntry entry = m_paths.EntryOf(deleted.Path());
    struct stat info {};
    if (entry.Folder.IsOpen() && !m_drives.IsOnIpod(entry.Folder.Get()) &&
        fstat(deleted.Kept(), &info) == 0 &&
        IsSameFile(info, entry.Folder.Get(), entry.Name.constData(), AT_SYMLINK_NOFOLLOW)) {
        unlinkat(entry.Folder.Get(), entry.Name.constData(), 0);
    }
}

void LinuxFileSystem::RemoveLeftovers(const QString& folder) {
    const FileDescriptor opened = m_paths.Open(folder, O_PATH | O_DIRECTORY);
    if (!opened.IsOpen() || m_drives.IsOnIpod(opened.Get())) {
        return;
    }
    try {
        RemoveLeftover(opened.Get());
    } catch (const RuntimeError&) {
        // The next copy into this folder reports it.
    }
}

qint64 LinuxFileSystem::FileLength(const QString& path) {
    const FileDescriptor file = m_paths.Open(path, O_PATH);
    if (!file.IsOpen()) {
        ThrowOpeningError(path, file.Error());
    }
    struct stat info {};
    if (fstat(file.Get(), &info) != 0) {
        ThrowError(errno);
    }
    if (!S_ISREG(info.st_mode)) {
        ThrowOpeningError(path, ENOENT);
    }
    return info.st_size;
}

std::unique_ptr<BinaryFile> LinuxFileSystem::OpenForReading(const QString& path) {
    struct stat info {};
    return std::make_unique<LinuxFile>(OpenRegular(path, info));
}

std::unique_ptr<BinaryFile> LinuxFileSystem::OpenForReadingAndWriting(const QString& path) {
    const FolderEntry entry = RequireEntry(path);
    RequireNoLink(Paths::ParentFolder(path));
    // A link that somebody has planted under the name must not lead the bytes elsewhere.
    FileDescriptor file(openat(entry.Folder.Get(), entry.Name.constData(),
                               O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC,
                               NewFileMode));
    if (file.Error() == ELOOP) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    if (!file.IsOpen()) {
        ThrowCreationError(file.Error());
    }
    RequireOwnFile(file);
    LockNamed(file.Get(), entry.Folder.Get(), entry.Name.constData());
    FileDescriptor kept(fcntl(file.Get(), F_DUPFD_CLOEXEC, 0));
    if (!kept.IsOpen()) {
        ThrowError(kept.Error());
    }
    return std::make_unique<LinuxFile>(std::move(file), std::move(kept), path);
}

bool LinuxFileSystem::IsOnIpod(const QString& path) {
    const FileDescriptor folder = OpenNearestFolder(path);
    return folder.IsOpen() && m_drives.IsOnIpod(folder.Get());
}

NameLimits LinuxFileSystem::LimitsOf(const QString& path) {
    const FileDescriptor folder = OpenNearestFolder(path);
    return folder.IsOpen() ? NameLimitsOf(folder.Get()) : NameLimits();
}

QString LinuxFileSystem::DriveOf(const QString& path) {
    if (Paths::IsDriveForm(path)) {
        return path.left(2);
    }
    const FileDescriptor folder = OpenNearestFolder(path);
    const QString place = QFile::decodeName(PathOfOpen(folder.Get()));
    const QString mounted = place.isEmpty() ? QString() : QStorageInfo(place).rootPath();
    return mounted.isEmpty() ? Paths::DrivePart(path) : mounted;
}

double LinuxFileSystem::FreeBytes(const QString& path) {
    const FileDescriptor folder = OpenNearestFolder(path);
    if (!folder.IsOpen()) {
        throw RuntimeError(Paths::IsDriveForm(path) ? ErrorNumber::DeviceUnavailable
                                                    : ErrorNumber::PathNotFound);
    }
    struct statvfs info {};
    if (fstatvfs(folder.Get(), &info) != 0) {
        ThrowError(errno);
    }
    return static_cast<double>(info.f_bavail) * static_cast<double>(info.f_frsize);
}

QString LinuxFileSystem::NativePath(const QString& path) {
    if (path.startsWith(u'/')) {
        return path;
    }
    const FileDescriptor place = m_paths.Open(path, O_PATH);
    if (!place.IsOpen()) {
        ThrowOpeningError(path, place.Error());
    }
    return QFile::decodeName(PathOfOpen(place.Get()));
}

FileDescriptor LinuxFileSystem::OpenRegular(const QString& path, struct stat& info) {
    FileDescriptor file = TakeAhead(path, info);
    return file.IsOpen() ? std::move(file) : OpenAnew(path, info);
}

/// Opens a regular file for reading. Anything else there (a folder, a pipe) counts as missing.
FileDescriptor LinuxFileSystem::OpenAnew(const QString& path, struct stat& info) {
    FileDescriptor file = m_paths.OpenForReading(path);
    if (!file.IsOpen()) {
        const std::optional<struct stat> found = m_paths.Look(path);
        const bool isNoFile = found && !S_ISREG(found->st_mode); // a socket, a device
        ThrowOpeningError(path, isNoFile ? ENOENT : file.Error());
    }
    if (fstat(file.Get(), &info) != 0) {
        ThrowError(errno);
    }
    if (!S_ISREG(info.st_mode)) {
        ThrowOpeningError(path, ENOENT);
    }
    if (info.st_size > ReadAtOnce) {
        // The kernel then reads further ahead.
        posix_fadvise(file.Get(), 0, 0, POSIX_FADV_SEQUENTIAL);
    }
    return file;
}

/// The folder at `path`, or the nearest one above it that exists.
FileDescriptor LinuxFileSystem::OpenNearestFolder(const QString& path) {
    return m_paths.Open(NearestFolder(*this, path), O_PATH | O_DIRECTORY);
}

/// The place for something to be changed, which is never on an iPod.
FolderEntry LinuxFileSystem::EntryToChange(const QString& path) {
    FolderEntry entry = m_paths.EntryOf(path);
    if (entry.Folder.IsOpen() && m_drives.IsOnIpod(entry.Folder.Get())) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    return entry;
}

/// The place for something to be made or replaced.
FolderEntry LinuxFileSystem::RequireEntry(const QString& path) {
    FolderEntry entry = EntryToChange(path);
    if (!entry.Folder.IsOpen()) {
        ThrowCreationError(entry.Folder.Error());
    }
    return entry;
}

/// Throws PermissionDenied where the last name of a folder's path is a link: bytes that replace
/// others without a question must stay where the path says.
void LinuxFileSystem::RequireNoLink(const QString& folder) {
    const FolderEntry entry = m_paths.EntryOf(folder);
    struct stat info {};
    if (entry.Folder.IsOpen() &&
        fstatat(entry.Folder.Get(), entry.Name.constData(), &info, AT_SYMLINK_NOFOLLOW) == 0 &&
        S_ISLNK(info.st_mode)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
}

/// Throws the error of opening a file; a missing one is FileNotFound, or PathNotFound if its folder
/// is missing.
void LinuxFileSystem::ThrowOpeningError(const QString& path, int error) {
    if (!IsMissing(error)) {
        ThrowError(error);
    }
    ThrowMissing(*this, path);
}
