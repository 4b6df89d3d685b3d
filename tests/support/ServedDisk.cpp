#include "tests/support/ServedDisk.h"

#include <QFile>
#include <QSaveFile>

#include <csignal>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>

namespace {

constexpr int CannotMount = 77;
constexpr int Patience = 20000; // ms

dev_t DeviceOf(const QString& folder) {
    struct stat info {};
    return stat(QFile::encodeName(folder).constData(), &info) == 0 ? info.st_dev : 0;
}

QString ControlFile(const QTemporaryDir& folder) {
    return folder.filePath(QStringLiteral("control"));
}

void WriteControl(const QTemporaryDir& folder, const char* words) {
    QSaveFile file(ControlFile(folder)); // the disk may be reading the one before
    if (!file.open(QIODevice::WriteOnly) || file.write(words) < 0 || !file.commit()) {
        qFatal("the disk cannot be told what to do");
    }
}

} // namespace

ServedDisk::ServedDisk(const char* program, const QString& folder, const QStringList& arguments)
    : m_folder(folder) {
    m_server.setProcessChannelMode(QProcess::MergedChannels);
    const QString path = QStringLiteral(DISKS_FOLDER "/") + QString::fromUtf8(program);
    // Threads of a test that was killed would hang in its files for ever.
    m_server.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_server.start(QStringLiteral("/usr/bin/python3"),
                   QStringList{path, m_content.path(), folder} + arguments);
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

ServedDisk::~ServedDisk() {
    m_server.terminate();
    if (!m_server.waitForFinished(Patience)) {
        m_server.kill();
        m_server.waitForFinished();
        umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
    }
}

bool ServedDisk::IsMounted() const {
    return DeviceOf(m_folder) != DeviceOf(m_folder + QStringLiteral("/.."));
}

SlowDisk::SlowDisk(const QString& folder)
    : m_disk((WriteControl(m_controlFolder, ""), "slow_device.py"), folder,
             {ControlFile(m_controlFolder)}) {
}

SlowDisk::~SlowDisk() {
    Be(""); // else it would not end
}

void SlowDisk::Be(const char* words) {
    WriteControl(m_controlFolder, words);
}
