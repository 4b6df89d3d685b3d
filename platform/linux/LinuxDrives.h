#pragma once

#include "platform/Drives.h"
#include "platform/linux/AttachedFolders.h"
#include "platform/linux/BlockDevices.h"
#include "platform/linux/FileDescriptor.h"
#include "platform/linux/MountTable.h"

#include <QByteArray>
#include <QDeadlineTimer>

#include <array>
#include <memory>
#include <mutex>
#include <optional>
#include <sys/types.h>

/// Where the system reports mounts and block devices.
struct LinuxDriveSources {
    QString MountTable;
    QString SysFolder;
    QString DiskFolder;
};

/// A folder, by whatever path or mount it was reached.
struct FolderId {
    dev_t Device = 0;
    ino_t Inode = 0;
    bool operator==(const FolderId&) const = default;
};

/// The removable volumes that are mounted, then the folders that the environment variable
/// SONGLIFT_DRIVES attaches, under the letters "E" to "Z". The computer's own disks get no letter:
/// their files have native paths, and an iPod's letter should not depend on how they are divided. A
/// volume keeps its letter while it stays mounted, and finds it again when it comes back; another
/// one gets it only when no unused letter is left, so that an iPod that is swapped for another
/// between two looks is not taken for the first. Volumes past "Z" are not listed.
///
/// May be used by several threads. Each asks the disks on its own, so that one that hangs does not
/// block the others.
class LinuxDrives : public DriveService, public std::enable_shared_from_this<LinuxDrives> {
public:
    LinuxDrives();
    explicit LinuxDrives(const LinuxDriveSources& sources);

    /// In the order of their letters.
    std::vector<Drive> Drives() override;
    /// Throws DeviceUnavailable for a drive that is gone.
    bool IsRemovable(const Drive& drive) override;
    /// The file system's label, else the mount folder's name. Throws DeviceUnavailable for a drive
    /// that is gone.
    QString VolumeName(const Drive& drive) override;

    /// Opens the folder where a drive is mounted (O_PATH); not open with ENOENT where no drive has
    /// the letter. To be closed soon, since an open folder keeps its volume from being unmounted.
    FileDescriptor OpenRoot(QChar letter);
    /// Whether an open folder lies on a drive that holds an iPod's folder, by whatever mount or
    /// link it was reached.
    bool IsOnIpod(int folder);
    /// Whether a folder is where one of the drives is mounted or attached.
    bool IsRoot(const struct stat& folder);

private:
    struct Volume {
        QByteArray Folder;
        /// The folder of the device that is mounted there; empty for an attached folder.
        QByteArray Root;
        /// Empty for an attached folder.
        QByteArray Source;
        QString DeviceName;
        QString Uuid;
        /// Null until it has one.
        QChar Letter;
        bool IsPresent = false;
    };

    /// What a look at the system has found; never changed afterwards.
    struct Table {
        /// How many looks had begun before.
        unsigned Number = 0;
        std::vector<Mount> Mounts;
        /// Every volume that has a letter, including those that are gone.
        std::vector<Volume> Volumes;

        const Volume* Present(QChar letter) const;
        std::vector<FolderId> IpodFolders() const;
    };
    using TablePointer = std::shared_ptr<const Table>;

    struct Answer {
        FolderId Folder;
        bool IsOnIpod = false;
    };
    using Answers = std::array<Answer, 8>;

    static bool IsSame(const Volume& one, const Volume& other);
    static QChar TakeLetter(std::vector<Volume>& volumes);
    static std::vector<Volume> Merge(std::vector<Volume> known, const std::vector<Volume>& found);
    static std::optional<bool> Find(const Answers& answers, const FolderId& folder);
    static std::optional<bool> FindWhetherOnIpod(const Table& table, int folder,
                                                 const Answers& answers);
    std::vector<Volume> FindVolumes(const std::vector<Mount>& mounts);
    void AddMounted(std::vector<Volume>& volumes, const std::vector<Mount>& mounts) const;
    void AddAttached(std::vector<Volume>& volumes);
    TablePointer Refresh();
    TablePointer Current();
    Volume Require(QChar letter);
    bool TableHasChanged();

    LinuxDriveSources m_sources;
    BlockDevices m_devices;
    AttachedFolders m_attached;
    FileDescriptor m_tableWatch;

    /// Guards what follows; never held while the system is asked, which may hang.
    std::mutex m_mutex;
    unsigned m_looks = 0;
    TablePointer m_table = std::make_shared<Table>();
    /// The table is what the system last reported.
    bool m_isCurrent = false;
    /// What IsOnIpod has found out in the last moments, the newest in the place of the oldest: a
    /// job copies many files into one folder, and makes many folders in another.
    Answers m_answers = {};
    size_t m_nextAnswer = 0;
    /// Folders are renamed, and deleted ones leave their numbers to others.
    QDeadlineTimer m_answersEnd;
};
