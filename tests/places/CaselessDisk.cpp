#include "tests/places/CaselessDisk.h"

#include <QFile>

#include <sys/mount.h>
#include <sys/stat.h>

namespace {

constexpr int CannotMount = 77;
constexpr int Patience = 20000; // ms

dev_t DeviceOf(const QString& folder) {
    struct stat info {};
    return stat(QFile::encodeName(folder).constData(), &info) == 0 ? info.st_dev : 0;
}

} // namespace

CaselessDisk::CaselessDisk(const QString& folder) : m_folder(folder) {
    m_server.setProcessChannelMode(QProcess::MergedChannels);
    m_server.start(QStringLiteral("/usr/bin/python3"),
                   {QStringLiteral(PLACES_FOLDER "/caseless_disk.py"), m_content.path(), folder});
    if (!m_server.waitForStarted(Patience)) {
        m_impossible = QStringLiteral("there is no Python");
        return;
    }
    for (int waited = 0; waited < Patience && !IsMounted(); waited += 20) {
        if (m_server.waitForFinished(20)) {
            break;
        }
    }
    if (m_server.state() == QProcess::NotRunning && m_server.exitCode() == CannotMount) {
        m_impossible = QString::fromUtf8(m_server.readAll()).trimmed();
    }
}

CaselessDisk::~CaselessDisk() {
    m_server.terminate();
    if (!m_server.waitForFinished(Patience)) {
        m_server.kill();
        m_server.waitForFinished();
        umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
    }
}

bool CaselessDisk::IsMounted() const {
    return DeviceOf(m_folder) != DeviceOf(m_folder + QStringLiteral("/.."));
}
