#include "platform/linux/LinuxPaths.h"

#include "platform/Paths.h"
#include "platform/linux/BeneathOpen.h"
#include "platform/linux/LinuxNames.h"

#include <QList>
#include <QStringList>

#include <climits>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

bool IsNativeForm(const QString& path) {
    return path.startsWith(u'/');
}

/// The names of a path in drive form, below its drive's root; none for the root itself.
struct DriveNames {
    QList<QByteArray> Names;
    bool EndsInSeparator = false;
    /// 0, or why no such file can exist.
    int Error = 0;
};

DriveNames SplitDrivePath(const QString& path) {
    DriveNames result;
    const QString rest = path.mid(2);
    if (rest.isEmpty()) {
        return result;
    }
    if (!rest.startsWith(u'\\')) {
        result.Error = ENOENT; // a drive has no current folder that "E:Music" could start from
        return result;
    }
    result.EndsInSeparator = rest.endsWith(u'\\');
    const QStringList pieces = rest.split(u'\\', Qt::SkipEmptyParts);
    for (const QString& piece : pieces) {
        const std::optional<QByteArray> name = EncodeName(piece);
        if (!name) {
            result.Error = EILSEQ;
            return result;
        }
        // On this system "/" would start another name, and the dots would lead upwards.
        if (name->contains('/') || *name == "." || *name == "..") {
            result.Error = ENOENT;
            return result;
        }
        result.Names.append(*name);
    }
    return result;
}

QByteArray Joined(const QByteArray& folder, const QByteArray& name) {
    return folder.isEmpty() ? name : folder + '/' + name;
}

/// Opens the names below `root`, looking for another spelling of those that are missing.
FileDescriptor OpenInAnyCase(int root, const QList<QByteArray>& names, int flags) {
    QByteArray spelled;
    for (const QByteArray& name : names) {
        const QByteArray exact = Joined(spelled, name);
        if (OpenBeneath(root, exact, O_PATH).IsOpen()) {
            spelled = exact;
            continue;
        }
        const QByteArray folderName = spelled.isEmpty() ? QByteArray(".") : spelled;
        const FileDescriptor folder = OpenBeneath(root, folderName, O_PATH | O_DIRECTORY);
        const QByteArray found =
            folder.IsOpen() ? FindNameIgnoringCase(folder.Get(), name) : QByteArray();
        if (found.isEmpty()) {
            return FileDescriptor::Failed(ENOENT);
        }
        spelled = Joined(spelled, found);
    }
    return OpenBeneath(root, spelled, flags);
}

FileDescriptor OpenNames(int root, const QList<QByteArray>& names, int flags) {
    if (names.isEmpty()) {
        return OpenBeneath(root, ".", flags);
    }
    FileDescriptor exact = OpenBeneath(root, names.join('/'), flags);
    return exact.Error() == ENOENT ? OpenInAnyCase(root, names, flags) : std::move(exact);
}

FolderEntry Failed(int error) {
    return {FileDescriptor::Failed(error), {}};
}

/// Below an open folder a longer path could be made, but it would not be found again, and the next
/// copy would replace it without a question.
bool IsTooLong(const QString& path) {
    return path.size() >= PATH_MAX || path.toUtf8().size() >= PATH_MAX;
}

FolderEntry EntryOfNative(const QString& path) {
    std::optional<QByteArray> encoded = EncodeName(path);
    if (!encoded) {
        return Failed(EILSEQ);
    }
    while (encoded->endsWith('/')) {
        encoded->chop(1);
    }
    if (encoded->isEmpty()) {
        return Failed(EISDIR);
    }
    const qsizetype cut = encoded->lastIndexOf('/');
    const QByteArray name = encoded->mid(cut + 1);
    if (name == "." || name == "..") {
        return Failed(ENOENT);
    }
    const QByteArray folder = encoded->left(cut + 1); // with its "/", so that it must be a folder
    return {FileDescriptor(open(folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC)), name};
}

} // namespace

FileDescriptor LinuxPaths::Open(const QString& path, int flags) {
    if (IsTooLong(path)) {
        return FileDescriptor::Failed(ENAMETOOLONG);
    }
    if (Paths::IsDriveForm(path)) {
        return OpenOnDrive(path, flags);
    }
    if (!IsNativeForm(path)) {
        return FileDescriptor::Failed(ENOENT);
    }
    const std::optional<QByteArray> encoded = EncodeName(path);
    if (!encoded) {
        return FileDescriptor::Failed(EILSEQ);
    }
    return FileDescriptor(open(encoded->constData(), flags | O_CLOEXEC));
}

std::optional<struct stat> LinuxPaths::Look(const QString& path) {
    struct stat info {};
    if (IsNativeForm(path) && !IsTooLong(path)) { // the same in one step
        const std::optional<QByteArray> encoded = EncodeName(path);
        const bool isThere = encoded && stat(encoded->constData(), &info) == 0;
        return isThere ? std::optional(info) : std::nullopt;
    }
    const FileDescriptor place = Open(path, O_PATH);
    const bool isThere = place.IsOpen() && fstat(place.Get(), &info) == 0;
    return isThere ? std::optional(info) : std::nullopt;
}

FileDescriptor LinuxPaths::OpenForReading(const QString& path) {
    constexpr int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY;
    FileDescriptor file = Open(path, flags | O_NOATIME);
    // Only a file's owner may leave the time of the last access as it is.
    return file.Error() == EPERM ? Open(path, flags) : std::move(file);
}

FolderEntry LinuxPaths::EntryOf(const QString& path) {
    if (IsTooLong(path)) {
        return Failed(ENAMETOOLONG);
    }
    if (Paths::IsDriveForm(path)) {
        return EntryOnDrive(path);
    }
    return IsNativeForm(path) ? EntryOfNative(path) : Failed(ENOENT);
}

FileDescriptor LinuxPaths::OpenOnDrive(const QString& path, int flags) {
    const DriveNames split = SplitDrivePath(path);
    if (split.Error != 0) {
        return FileDescriptor::Failed(split.Error);
    }
    FileDescriptor root = m_drives.OpenRoot(path[0]);
    if (!root.IsOpen()) {
        return root;
    }
    return OpenNames(root.Get(), split.Names, flags | (split.EndsInSeparator ? O_DIRECTORY : 0));
}

FolderEntry LinuxPaths::EntryOnDrive(const QString& path) {
    DriveNames split = SplitDrivePath(path);
    if (split.Error != 0) {
        return Failed(split.Error);
    }
    FileDescriptor root = m_drives.OpenRoot(path[0]);
    if (!root.IsOpen() || split.Names.isEmpty()) {
        return Failed(root.IsOpen() ? EISDIR : root.Error());
    }
    FolderEntry entry;
    entry.Name = split.Names.takeLast();
    entry.Folder = OpenNames(root.Get(), split.Names, O_PATH | O_DIRECTORY);
    struct stat info {};
    if (entry.Folder.IsOpen() &&
        fstatat(entry.Folder.Get(), entry.Name.constData(), &info, AT_SYMLINK_NOFOLLOW) != 0) {
        const QByteArray found = FindNameIgnoringCase(entry.Folder.Get(), entry.Name);
        entry.Name = found.isEmpty() ? entry.Name : found;
    }
    return entry;
}
