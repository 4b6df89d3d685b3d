#include "platform/linux/LinuxFileSystem.h"
#include "tests/platform/RealDisk.h"

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
    return m_folder.filePath(name);
}

DriveService& RealDisk::Drives() {
    return m_services->Drives;
}

FileSystem& RealDisk::Files() {
    return m_services->Files;
}
