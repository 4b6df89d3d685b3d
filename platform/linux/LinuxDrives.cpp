#include "platform/linux/LinuxDrives.h"

#include "platform/RuntimeError.h"
#include "platform/linux/BeneathOpen.h"
#include "platform/linux/LinuxNames.h"
#include "platform/linux/SameFile.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <chrono>
#include <climits>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr char16_t FirstLetter = u'E';
constexpr char16_t LastLetter = u'Z';

constexpr std::chrono::milliseconds MomentOfAnswers(500);

/// Mounts that hold no personal files, wherever they are.
bool IsPseudo(const QByteArray& type) {
    static const std::array<QByteArray, 24> types = {
        "autofs",    "binfmt_misc", "bpf",        "cgroup",   "cgroup2", "configfs",
        "debugfs",   "devpts",      "devtmpfs",   "efivarfs", "fusectl", "fuse.gvfsd-fuse",
        "hugetlbfs", "fuse.portal", "mqueue",     "nsfs",     "overlay", "proc",
        "pstore",    "ramfs",       "securityfs", "sysfs",    "tmpfs",   "tracefs"};
    return std::find(types.begin(), types.end(), type) != types.end();
}

bool LiesWhereDesktopsMount(const QByteArray& folder) {
    return folder.startsWith("/media/") || folder.startsWith("/run/media/");
}

FileDescriptor OpenFolder(const QByteArray& path) {
    return FileDescriptor(open(path.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

std::optional<FolderId> IdOf(int folder) {
    struct stat info {};
    return fstat(folder, &info) == 0 ? std::optional<FolderId>({info.st_dev, info.st_ino})
                                     : std::nullopt;
}

bool Holds(const std::vector<FolderId>& folders, const FolderId& id) {
    return std::find(folders.begin(), folders.end(), id) != folders.end();
}

void Add(std::vector<FolderId>& folders, const FileDescriptor& folder) {
    if (const std::optional<FolderId> id = IdOf(folder.Get())) {
        folders.push_back(*id);
    }
}

/// Whether a drive holds an iPod. It still does while its database is being replaced.
bool HoldsIpod(int drive) {
    const QByteArray name = "iPod_Control";
    return faccessat(drive, name.constData(), F_OK, 0) == 0 ||
           !FindNameIgnoringCase(drive, name).isEmpty();
}

/// Adds the folder of a drive that another mount shows: going up from there does not lead through
/// the drive's own folder. `shown` is that folder's path in its file system. How many of its first
/// names are above the drive is not always known (in a changed root), so every end of it is tried.
void AddShownElsewhere(std::vector<FolderId>& folders, int drive, const QByteArray& shown) {
    for (qsizetype at = 0; at >= 0; at = shown.indexOf('/', at + 1)) {
        const QByteArray name = shown.mid(at + 1);
        if (!name.isEmpty()) {
            Add(folders, OpenBeneath(drive, name, O_PATH | O_DIRECTORY));
        }
    }
}

QChar UpperCase(QChar letter) {
    return letter >= u'a' && letter <= u'z' ? QChar(letter.unicode() - u'a' + u'A') : letter;
}

} // namespace

LinuxDrives::LinuxDrives() : LinuxDrives({u"/proc/self/mountinfo"_s, u"/sys"_s, u"/dev/disk"_s}) {
}

LinuxDrives::LinuxDrives(const LinuxDriveSources& sources)
    : m_sources(sources), m_devices(sources.SysFolder, sources.DiskFolder),
      m_tableWatch(open(QFile::encodeName(sources.MountTable).constData(), O_RDONLY | O_CLOEXEC)) {
}

std::vector<Drive> LinuxDrives::Drives() {
    std::vector<Drive> drives;
    for (const Volume& volume : Refresh()->Volumes) {
        if (volume.IsPresent) {
            drives.push_back({volume.Letter, volume.Letter + u":"_s});
        }
    }
    std::sort(drives.begin(), drives.end(),
              [](const Drive& a, const Drive& b) { return a.Letter < b.Letter; });
    return drives;
}

bool LinuxDrives::IsRemovable(const Drive& drive) {
    Require(drive.Letter);
    return true; // no other volume gets a letter
}

QString LinuxDrives::VolumeName(const Drive& drive) {
    const Volume volume = Require(drive.Letter);
    QString label = m_devices.LabelOf(volume.DeviceName);
    if (!label.isEmpty()) {
        return label;
    }
    return QString::fromUtf8(volume.Folder.mid(volume.Folder.lastIndexOf('/') + 1));
}

FileDescriptor LinuxDrives::OpenRoot(QChar letter) {
    TablePointer table = Current();
    if (table->Present(letter) == nullptr) {
        table = Refresh();
    }
    const Volume* volume = table->Present(letter);
    if (volume == nullptr) {
        return FileDescriptor::Failed(ENOENT);
    }
    return OpenFolder(volume->Folder);
}

bool LinuxDrives::IsOnIpod(int folder) {
    const TablePointer table = Current();
    const std::optional<FolderId> asked = IdOf(folder);
    std::unique_lock lock(m_mutex);
    if (m_answersEnd.hasExpired()) {
        m_answers = {};
        m_answersEnd.setRemainingTime(MomentOfAnswers);
    }
    const Answers answers = m_answers;
    lock.unlock();
    if (const std::optional<bool> known = asked ? Find(answers, *asked) : std::nullopt) {
        return *known;
    }
    const std::optional<bool> answer = FindWhetherOnIpod(*table, folder, answers);
    lock.lock();
    if (asked && answer && m_table == table) {
        m_answers[m_nextAnswer++ % m_answers.size()] = {*asked, *answer};
    }
    return answer.value_or(true); // unknown, and on an iPod nothing may be changed
}

std::optional<bool> LinuxDrives::Find(const Answers& answers, const FolderId& folder) {
    const auto known = std::find_if(answers.begin(), answers.end(),
                                    [&](const Answer& answer) { return answer.Folder == folder; });
    return known != answers.end() ? std::optional<bool>(known->IsOnIpod) : std::nullopt;
}

/// Goes up to a folder that was asked about before, or to the root. Paths are not enough: the same
/// folder has another path by every mount. Nor is the device's number, which an attached folder
/// shares with everything else on its disk.
std::optional<bool> LinuxDrives::FindWhetherOnIpod(const Table& table, int folder,
                                                   const Answers& answers) {
    const std::vector<FolderId> ipods = table.IpodFolders();
    if (ipods.empty()) {
        return false;
    }
    const std::optional<FolderId> root = IdOf(OpenFolder("/").Get());
    std::optional<FolderId> below;
    FileDescriptor above;
    int place = folder;
    for (int level = 0; level < PATH_MAX; ++level) {
        const std::optional<FolderId> id = IdOf(place);
        if (!id) {
            return std::nullopt;
        }
        if (Holds(ipods, *id)) {
            return true;
        }
        if (const std::optional<bool> known = Find(answers, *id)) {
            return known;
        }
        if (id == root && id == below) {
            return false; // only the root is its own parent
        }
        below = id;
        above = FileDescriptor(openat(place, "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
        place = above.Get();
    }
    return std::nullopt;
}

/// Everything on an iPod lies in or below one of these. They are looked up each time: some file
/// systems (FAT) give a folder another number when it comes back into memory.
std::vector<FolderId> LinuxDrives::Table::IpodFolders() const {
    std::vector<FolderId> folders;
    for (const Volume& volume : Volumes) {
        const FileDescriptor drive =
            volume.IsPresent ? OpenFolder(volume.Folder) : FileDescriptor();
        if (drive.IsOpen() && HoldsIpod(drive.Get())) {
            Add(folders, drive);
            for (const Mount& mount : Mounts) {
                AddShownElsewhere(folders, drive.Get(), mount.Root);
            }
        }
    }
    return folders;
}

bool LinuxDrives::IsRoot(const struct stat& folder) {
    const TablePointer table = Current();
    return std::any_of(table->Volumes.begin(), table->Volumes.end(), [&](const Volume& volume) {
        struct stat root {};
        return volume.IsPresent && stat(volume.Folder.constData(), &root) == 0 &&
               IsSameFile(root, folder);
    });
}

/// The file system's identity stays when the device gets a new name after the cable was pulled. If
/// the device manager does not know it for the moment, the device name counts.
bool LinuxDrives::IsSame(const Volume& one, const Volume& other) {
    if (one.Folder != other.Folder) {
        return false;
    }
    const bool uuidsAreKnown = !one.Uuid.isEmpty() && !other.Uuid.isEmpty();
    return uuidsAreKnown ? one.Uuid == other.Uuid : one.Source == other.Source;
}

std::vector<LinuxDrives::Volume> LinuxDrives::FindVolumes(const std::vector<Mount>& mounts) {
    std::vector<Volume> volumes;
    AddMounted(volumes, mounts);
    AddAttached(volumes);
    return volumes;
}

void LinuxDrives::AddMounted(std::vector<Volume>& volumes, const std::vector<Mount>& mounts) const {
    for (const Mount& mount : mounts) {
        if (IsPseudo(mount.Type)) {
            continue;
        }
        const QString name = m_devices.NameOf(mount);
        if (!LiesWhereDesktopsMount(mount.Folder) && !m_devices.IsRemovable(name)) {
            continue;
        }
        const auto other = std::find_if(volumes.begin(), volumes.end(), [&](const Volume& volume) {
            return !name.isEmpty() && volume.DeviceName == name;
        });
        if (other == volumes.end()) {
            volumes.push_back(
                {mount.Folder, mount.Root, mount.Source, name, m_devices.UuidOf(name), {}, true});
        } else if (mount.Root.size() < other->Root.size()) {
            // The first one shows only a folder of the device, which may not be the one with the
            // iPod's files.
            other->Folder = mount.Folder;
            other->Root = mount.Root;
            other->Source = mount.Source;
        }
    }
}

void LinuxDrives::AddAttached(std::vector<Volume>& volumes) {
    const QList<QByteArray> folders = qgetenv("SONGLIFT_DRIVES").split(':');
    for (QByteArray folder : folders) {
        while (folder.size() > 1 && folder.endsWith('/')) {
            folder.chop(1);
        }
        const bool isListed =
            std::any_of(volumes.begin(), volumes.end(),
                        [&](const Volume& volume) { return volume.Folder == folder; });
        if (!folder.isEmpty() && !isListed && m_attached.Exists(folder)) {
            volumes.push_back({folder, {}, {}, {}, {}, {}, true});
        }
    }
}

/// Takes what was found just now into what was known. Makes no calls to the system.
std::vector<LinuxDrives::Volume> LinuxDrives::Merge(std::vector<Volume> known,
                                                    const std::vector<Volume>& found) {
    // Where two known volumes fit, the one that was there a moment ago stays.
    std::stable_partition(known.begin(), known.end(),
                          [](const Volume& volume) { return volume.IsPresent; });
    for (Volume& volume : known) {
        volume.IsPresent = false;
    }
    std::vector<Volume> fresh;
    for (const Volume& volume : found) {
        const auto same = std::find_if(known.begin(), known.end(),
                                       [&](const Volume& other) { return IsSame(other, volume); });
        if (same == known.end()) {
            fresh.push_back(volume);
            continue;
        }
        const QChar letter = same->Letter;
        const QString uuid = volume.Uuid.isEmpty() ? same->Uuid : volume.Uuid;
        *same = volume;
        same->Letter = letter;
        same->Uuid = uuid;
    }
    for (Volume& volume : fresh) {
        volume.Letter = TakeLetter(known);
        if (!volume.Letter.isNull()) {
            known.push_back(volume);
        }
    }
    return known;
}

/// Asks the system. If that hangs and a later look overtakes it, its result is dropped.
LinuxDrives::TablePointer LinuxDrives::Refresh() {
    auto table = std::make_shared<Table>();
    {
        const std::lock_guard lock(m_mutex);
        m_isCurrent = false; // until everything is known, whatever fails on the way
        table->Number = ++m_looks;
    }
    table->Mounts = ReadMountTable(m_sources.MountTable);
    const std::vector<Volume> found = FindVolumes(table->Mounts);
    const std::lock_guard lock(m_mutex);
    if (m_table->Number > table->Number) {
        return m_table;
    }
    table->Volumes = Merge(m_table->Volumes, found);
    m_table = table;
    m_isCurrent = table->Number == m_looks;
    m_answers = {};
    return m_table;
}

/// The table as it is now.
LinuxDrives::TablePointer LinuxDrives::Current() {
    {
        const std::lock_guard lock(m_mutex);
        m_isCurrent = m_isCurrent && !TableHasChanged();
        if (m_isCurrent) {
            return m_table;
        }
    }
    return Refresh();
}

QChar LinuxDrives::TakeLetter(std::vector<Volume>& volumes) {
    for (char16_t letter = FirstLetter; letter <= LastLetter; ++letter) {
        const bool isTaken = std::any_of(volumes.begin(), volumes.end(),
                                         [&](const Volume& v) { return v.Letter == letter; });
        if (!isTaken) {
            return letter;
        }
    }
    const auto gone = std::find_if(volumes.begin(), volumes.end(),
                                   [](const Volume& volume) { return !volume.IsPresent; });
    if (gone == volumes.end()) {
        return {};
    }
    const QChar letter = gone->Letter;
    volumes.erase(gone);
    return letter;
}

const LinuxDrives::Volume* LinuxDrives::Table::Present(QChar letter) const {
    const QChar wanted = UpperCase(letter);
    const auto volume = std::find_if(Volumes.begin(), Volumes.end(), [&](const Volume& v) {
        return v.IsPresent && v.Letter == wanted;
    });
    return volume == Volumes.end() ? nullptr : &*volume;
}

/// Does not ask the system: the drives were listed a moment ago.
LinuxDrives::Volume LinuxDrives::Require(QChar letter) {
    const std::lock_guard lock(m_mutex);
    const Volume* volume = m_table->Present(letter);
    if (volume == nullptr) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    return *volume;
}

/// The kernel wakes whoever polls its table when something was mounted or unmounted. Reading the
/// table at each of a job's thousands of paths would cost more than the opening itself. Tells of a
/// change only once, so that whoever asks must note it before another thread asks. Does not hang.
bool LinuxDrives::TableHasChanged() {
    pollfd watch{m_tableWatch.Get(), POLLPRI, 0};
    return m_tableWatch.IsOpen() && poll(&watch, 1, 0) > 0;
}
