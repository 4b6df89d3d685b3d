#include "platform/linux/LinuxNames.h"

#include "platform/NameRules.h"
#include "platform/linux/FolderListing.h"

#include <QStringDecoder>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace {

/// Types of file systems, as statfs(2) reports them.
enum FileSystemType : quint32 {
    Fat = 0x4d44,
    ExFat = 0x2011bab0,
    Ntfs = 0x5346544e,
    Ntfs3 = 0x7366746e,
    Smb = 0xff534d42,
    Smb2 = 0xfe534d42,
    HfsPlus = 0x482b,
    Fuse = 0x65735546,
};

/// No file system in use holds less: one that reports less, as some outside the kernel do, does not
/// know.
constexpr int LeastName = 30;
/// For file systems that keep names as UTF-16, for which Linux reports the bytes that such a name
/// may need.
constexpr int LongestUtf16Name = 255;

bool IsAscii(const QByteArray& name) {
    return std::none_of(name.begin(), name.end(), [](char c) { return (c & 0x80) != 0; });
}

bool LiesOnBlockDevice(int folder) {
    struct stat info {};
    return fstat(folder, &info) == 0 && major(info.st_dev) != 0;
}

/// Names go by the rules of Windows and are kept elsewhere: by a server, or by a program on this
/// computer. That may be on a disk which counts bytes, and then does not even look for a longer
/// name.
NameLimits LimitsOfServer(int folder, NameLimits windows) {
    const QByteArray longest = QString(LongestUtf16Name, QChar(0x9752)).toUtf8();
    if (faccessat(folder, longest.constData(), F_OK, AT_SYMLINK_NOFOLLOW) != 0 && errno != ENOENT) {
        windows.CountedIn = NameLimits::Unit::Utf8Bytes;
    }
    return windows;
}

/// Empty for bytes that are not UTF-8, which equal no text.
QString FoldedBytes(const QByteArray& name) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(name);
    return decoder.hasError() ? QString() : FoldedName(text);
}

} // namespace

std::optional<QByteArray> EncodeName(const QString& text) {
    if (!text.isValidUtf16() || text.contains(u'\0')) {
        return std::nullopt;
    }
    return text.toUtf8();
}

NameLimits NameLimitsOf(int folder) {
    struct statfs info {};
    if (fstatfs(folder, &info) != 0) {
        return {};
    }
    const auto type = static_cast<quint32>(info.f_type);
    const bool isOnDisk = type == Fuse && LiesOnBlockDevice(folder); // asked only where it matters
    const NameLimits limits = NameLimitsByType(type, info.f_namelen, isOnDisk);
    const bool isServer = type == Smb || type == Smb2 || type == Fuse;
    return isServer && limits.IsForWindows ? LimitsOfServer(folder, limits) : limits;
}

NameLimits NameLimitsByType(quint32 type, long longest, bool isOnDisk) {
    const NameLimits windows{LongestUtf16Name, NameLimits::Unit::Utf16Units, true};
    switch (type) {
    case Fat:
    case ExFat:
    case Ntfs:
    case Ntfs3:
    case Smb:
    case Smb2:
        return windows;
    case HfsPlus:
        return {LongestUtf16Name, NameLimits::Unit::DecomposedUtf16Units, false};
    case Fuse:
        if (isOnDisk) { // NTFS or exFAT, outside the kernel
            return windows;
        }
        break;
    default:
        break;
    }
    NameLimits limits;
    if (longest >= LeastName) {
        limits.Longest = static_cast<int>(longest);
    }
    return limits;
}

QByteArray FindNameIgnoringCase(int folder, const QByteArray& wanted) {
    const bool wantedIsAscii = IsAscii(wanted);
    const QString wantedFolded = FoldedBytes(wanted);
    QByteArray found;
    ListFolder(folder, [&](const QByteArray& name, unsigned char) {
        // Nearly all names on an iPod are plain ASCII, and unfolding them costs more than listing.
        const bool isSame = wantedIsAscii && IsAscii(name)
                                ? name.compare(wanted, Qt::CaseInsensitive) == 0
                                : FoldedBytes(name) == wantedFolded;
        if (isSame && (found.isEmpty() || name < found)) {
            found = name;
        }
    });
    return found;
}
