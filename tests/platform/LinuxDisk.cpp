#include "platform/linux/LinuxFileSystem.h"
#include "tests/platform/RealDisk.h"

using namespace Qt::StringLiterals;

struct RealDisk::Services {
    LinuxDrives Drives;
    LinuxFileSystem Files{Drives};
};

RealDisk::RealDisk() : m_services(std::make_unique<Services>()) {
    qputenv("SONGLIFT_DRIVES", m_folder.path().toUtf8());
}

RealDisk::~RealDisk() {
    qunsetenv("SONGLIFT_DRIVES");
}

QString RealDisk::Native(const QString& name) const {
    return name.isEmpty() ? m_folder.path() : m_folder.filePath(name);
}

QString RealDisk::OnDrive(const QString& name) const {
    return u"E:\\"_s + QString(name).replace(u'/', u'\\');
}

QString RealDisk::Attach(const QString& name, bool isRemovable) {
    if (!isRemovable) {
        return {};
    }
    qputenv("SONGLIFT_DRIVES", (Native({}) + u':' + Native(name)).toUtf8());
    return u"F:"_s;
}

DriveService& RealDisk::Drives() {
    return m_services->Drives;
}

FileSystem& RealDisk::Files() {
    return m_services->Files;
}
