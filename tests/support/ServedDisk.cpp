#include "tests/support/ServedDisk.h"

#include <QFile>
#include <QSaveFile>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int CannotMount = 77;
constexpr int Patience = 20000; // ms
constexpr int Pause = 20;       // ms

dev_t DeviceOf(const QString& folder) {
    struct stat info {};
    return stat(QFile::encodeName(folder).constData(), &info) == 0 ? info.st_dev : 0;
}

QString ControlFile(const QTemporaryDir& folder) {
    return folder.filePath(u"control"_s);
}

void WriteControl(const QTemporaryDir& folder, const char* words) {
    QSaveFile file(ControlFile(folder)); // the disk may be reading the one before
    if (!file.open(QIODevice::WriteOnly) || file.write(words) < 0 || !file.commit()) {
        qFatal("the disk cannot be told what to do");
    }
}

} // namespace

// QProcess starts programs in a way that the thread sanitizer cannot follow.
ServedDisk::ServedDisk(const char* program, const QString& folder, const QStringList& arguments)
    : m_folder(folder) {
    QList<QByteArray> words{"/usr/bin/python3", QByteArray(DISKS_FOLDER "/") + program};
    for (const QString& word : QStringList{m_content.path(), folder} + arguments) {
        words += QFile::encodeName(word);
    }
    std::vector<char*> command;
    for (QByteArray& word : words) {
        command.push_back(word.data());
    }
    command.push_back(nullptr);
    const QByteArray saidFile = QFile::encodeName(m_said.filePath(u"said"_s));
    m_server = fork();
    if (m_server == 0) {
        // Threads of a test that was killed would hang in its files for ever.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int said = open(saidFile.constData(), O_WRONLY | O_CREAT, 0600);
        dup2(said, STDOUT_FILENO);
        dup2(said, STDERR_FILENO);
        execv(command[0], command.data());
        _exit(CannotMount);
    }
    while (!IsMounted() && !HasEnded(Pause)) {
    }
    if (m_server < 0 && WIFEXITED(m_status) && WEXITSTATUS(m_status) == CannotMount) {
        QFile file(QFile::decodeName(saidFile));
        m_impossible = u"no such disk can be mounted here"_s;
        if (file.open(QIODevice::ReadOnly)) {
            m_impossible += u": "_s + QString::fromUtf8(file.readAll()).trimmed();
        }
    }
}

ServedDisk::~ServedDisk() {
    if (m_server < 0) {
        return;
    }
    kill(m_server, SIGTERM);
    if (!HasEnded(Patience)) {
        kill(m_server, SIGKILL);
        waitpid(m_server, nullptr, 0);
        umount2(QFile::encodeName(m_folder).constData(), MNT_DETACH);
    }
}

/// Waits so many milliseconds at most.
bool ServedDisk::HasEnded(int milliseconds) {
    for (int waited = 0; m_server > 0 && waitpid(m_server, &m_status, WNOHANG) == 0;
         waited += Pause) {
        if (waited >= milliseconds) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(Pause));
    }
    m_server = -1;
    return true;
}

bool ServedDisk::IsMounted() const {
    return DeviceOf(m_folder) != DeviceOf(m_folder + u"/.."_s);
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
