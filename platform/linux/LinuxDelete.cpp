#include "platform/linux/LinuxDelete.h"

#include "platform/RuntimeError.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/FolderListing.h"
#include "platform/linux/LinuxErrors.h"
#include "platform/linux/SameFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <vector>

namespace {

class TreeDeleter {
public:
    TreeDeleter(int parent, const FolderTest& isKept, const CopyControl& control)
        : m_parent(parent), m_isKept(isKept), m_control(control) {}

    void Delete(const QByteArray& name) {
        Enter(m_parent, m_parentInfo, name);
        while (!m_levels.empty() && !m_control.IsStopped()) {
            std::vector<QByteArray>& folders = m_levels.back().Folders;
            if (folders.empty()) {
                Leave();
            } else {
                const QByteArray next = folders.back();
                folders.pop_back();
                Enter(m_current.Get(), m_levels.back().Info, next);
            }
        }
        if (m_firstError != 0) {
            ThrowError(m_firstError);
        }
    }

    void ReadParent() {
        if (fstat(m_parent, &m_parentInfo) != 0) {
            ThrowError(errno);
        }
    }

private:
    /// A folder on the way down from the parent; the last one is open as m_current.
    struct Level {
        QByteArray Name;
        struct stat Info;
        /// Its folders that are still to be deleted.
        std::vector<QByteArray> Folders;
        /// Something in it is left alone, so that it stays too.
        bool KeepsSomething;
    };

    void Enter(int folder, const struct stat& folderInfo, const QByteArray& name);
    void DeleteFiles(int folder, Level& level);
    void Leave();
    void Remove(int folder, const QByteArray& name, int flags);
    void NoteError(int error) { m_firstError = m_firstError != 0 ? m_firstError : error; }
    void KeepAbove() {
        if (!m_levels.empty()) {
            m_levels.back().KeepsSomething = true;
        }
    }

    int m_parent;
    const FolderTest& m_isKept;
    const CopyControl& m_control;
    struct stat m_parentInfo {};
    FileDescriptor m_current;
    std::vector<Level> m_levels;
    int m_firstError = 0;
};

/// Also recognises a folder that is mounted from elsewhere on the same device.
bool IsMountPoint(int folder, const struct stat& info, const struct stat& parentInfo) {
    struct statx details {};
    const bool isKnown = statx(folder, "", AT_EMPTY_PATH, STATX_BASIC_STATS, &details) == 0 &&
                         (details.stx_attributes_mask & STATX_ATTR_MOUNT_ROOT) != 0;
    return isKnown ? (details.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0
                   : info.st_dev != parentInfo.st_dev;
}

void TreeDeleter::Enter(int folder, const struct stat& folderInfo, const QByteArray& name) {
    FileDescriptor entered(OpenWithoutTrace(folder, name.constData(), O_DIRECTORY | O_NOFOLLOW));
    if (!entered.IsOpen()) {
        // It may be an empty folder that this user may not read, or have become a link meanwhile.
        const bool isLink = entered.Error() == ENOTDIR || entered.Error() == ELOOP;
        Remove(folder, name, isLink ? 0 : AT_REMOVEDIR);
        return;
    }
    Level level{name, {}, {}, false};
    if (fstat(entered.Get(), &level.Info) != 0) {
        NoteError(errno);
        return;
    }
    const bool isShared = (level.Info.st_mode & S_ISVTX) != 0;
    if (isShared || m_isKept(level.Info) || IsMountPoint(entered.Get(), level.Info, folderInfo)) {
        KeepAbove();
        return;
    }
    m_levels.push_back(level);
    DeleteFiles(entered.Get(), m_levels.back());
    m_current = std::move(entered);
}

/// Deletes all but the folders, which are noted.
void TreeDeleter::DeleteFiles(int folder, Level& level) {
    std::vector<QByteArray> files;
    const int error = ListFolder(folder, [&](const QByteArray& name, unsigned char type) {
        struct stat info {};
        const bool isFolder = type == DT_UNKNOWN ? fstatat(folder, name.constData(), &info,
                                                           AT_SYMLINK_NOFOLLOW) == 0 &&
                                                       S_ISDIR(info.st_mode)
                                                 : type == DT_DIR;
        (isFolder ? level.Folders : files).push_back(name);
    });
    if (error != 0) {
        NoteError(error);
    }
    for (const QByteArray& name : files) {
        Remove(folder, name, 0);
    }
}

/// Goes up and deletes the folder that was left, which is empty now unless something in it stays.
void TreeDeleter::Leave() {
    const Level left = std::move(m_levels.back());
    m_levels.pop_back();
    if (!m_levels.empty()) {
        FileDescriptor above(openat(m_current.Get(), "..", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        struct stat info {};
        if (!above.IsOpen()) {
            ThrowError(above.Error());
        }
        // Someone has moved the folder while it was emptied: what is above it now is not ours.
        if (fstat(above.Get(), &info) != 0 || !IsSameFile(info, m_levels.back().Info)) {
            throw RuntimeError(ErrorNumber::PathFileAccessError);
        }
        m_current = std::move(above);
    }
    if (left.KeepsSomething) {
        KeepAbove();
    } else {
        Remove(m_levels.empty() ? m_parent : m_current.Get(), left.Name, AT_REMOVEDIR);
    }
}

void TreeDeleter::Remove(int folder, const QByteArray& name, int flags) {
    if (m_control.IsStopped() || unlinkat(folder, name.constData(), flags) == 0 ||
        errno == ENOENT) {
        return;
    }
    if (errno == EBUSY) { // a mount point
        KeepAbove();
    } else {
        NoteError(errno);
    }
}

} // namespace

void DeleteTree(int parent, const QByteArray& name, const FolderTest& isKept,
                const CopyControl& control) {
    TreeDeleter deleter(parent, isKept, control);
    deleter.ReadParent();
    deleter.Delete(name);
}
