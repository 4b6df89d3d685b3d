#include "platform/linux/BlockDevices.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

/// The device manager writes blanks and the like as "\x20".
QString Unescaped(const QString& linkName) {
    const QByteArray name = QFile::encodeName(linkName);
    QByteArray text;
    for (qsizetype i = 0; i < name.size(); ++i) {
        bool isCode = false;
        const int code = name.mid(i, 2) == "\\x" ? name.mid(i + 2, 2).toInt(&isCode, 16) : 0;
        if (isCode && i + 3 < name.size()) {
            text += static_cast<char>(code);
            i += 3;
        } else {
            text += name[i];
        }
    }
    return QString::fromUtf8(text);
}

bool SaysRemovable(const QString& deviceFolder) {
    QFile file(deviceFolder + u"/removable"_s);
    return file.open(QIODevice::ReadOnly) && file.readAll().trimmed() == "1";
}

} // namespace

BlockDevices::BlockDevices(const QString& sysFolder, const QString& diskFolder)
    : m_sysFolder(sysFolder), m_diskFolder(diskFolder) {
}

QString BlockDevices::NameOf(const Mount& mount) const {
    const QFileInfo link(m_sysFolder + u"/dev/block/"_s + QString::fromLatin1(mount.Device));
    if (link.exists()) {
        return QFileInfo(link.canonicalFilePath()).fileName();
    }
    // Some file systems (btrfs) mount under a device number of their own.
    const QString name = QFileInfo(QFile::decodeName(mount.Source)).fileName();
    const bool isDevice = mount.Source.startsWith("/dev/") &&
                          QFileInfo::exists(m_sysFolder + u"/class/block/"_s + name);
    return isDevice ? name : QString();
}

bool BlockDevices::IsRemovable(const QString& name) const {
    if (name.isEmpty()) {
        return false;
    }
    const QString folder = QFileInfo(m_sysFolder + u"/class/block/"_s + name).canonicalFilePath();
    if (folder.isEmpty()) {
        return false;
    }
    const QString place = folder.mid(QFileInfo(m_sysFolder).canonicalFilePath().size());
    static const QRegularExpression usb(u"/usb[0-9]+/"_s);
    const bool isPartition = QFileInfo::exists(folder + u"/partition"_s);
    return usb.match(place).hasMatch() ||
           SaysRemovable(isPartition ? QFileInfo(folder).path() : folder);
}

QString BlockDevices::LabelOf(const QString& name) const {
    return Unescaped(LinkTo(name, u"/by-label"_s));
}

QString BlockDevices::UuidOf(const QString& name) const {
    return LinkTo(name, u"/by-uuid"_s);
}

QString BlockDevices::LinkTo(const QString& name, const QString& folder) const {
    if (name.isEmpty()) {
        return {};
    }
    const QFileInfoList links =
        QDir(m_diskFolder + folder).entryInfoList(QDir::Files | QDir::System, QDir::Name);
    for (const QFileInfo& link : links) {
        if (QFileInfo(link.symLinkTarget()).fileName() == name) {
            return link.fileName();
        }
    }
    return {};
}
