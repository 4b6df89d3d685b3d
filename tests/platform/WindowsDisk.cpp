#include "platform/windows/WindowsDrives.h"
#include "platform/windows/WindowsFileSystem.h"
#include "tests/platform/RealDisk.h"

#include <QDir>

struct RealDisk::Services {
    WindowsDrives Drives;
    WindowsFileSystem Files;
};

RealDisk::RealDisk() : m_services(std::make_unique<Services>()) {
}

RealDisk::~RealDisk() = default;

QString RealDisk::Native(const QString& name) const {
    return QDir::toNativeSeparators(m_folder.filePath(name));
}

DriveService& RealDisk::Drives() {
    return m_services->Drives;
}

FileSystem& RealDisk::Files() {
    return m_services->Files;
}
