#include "tests/platform/LinuxFixture.h"

#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>

#include <chrono>
#include <csignal>
#include <grp.h>
#include <set>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t Nobody = 65534;
constexpr int CannotBecomeNobody = 255;

int ExitCodeOf(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -2;
}

bool BecomeNobody() {
    return geteuid() != 0 ||
           (setgroups(0, nullptr) == 0 && setgid(Nobody) == 0 && setuid(Nobody) == 0);
}

using FileId = std::pair<dev_t, ino_t>;

/// Whether a process has a regular file with bytes in it open that is none of `known`.
bool HasWritten(pid_t process, const std::set<FileId>& known) {
    const QString folder = u"/proc/%1/fd"_s.arg(process);
    const QStringList names = QDir(folder).entryList(QDir::Files | QDir::System);
    for (const QString& name : names) {
        struct stat info {};
        const QByteArray path = (folder + u'/' + name).toUtf8();
        if (stat(path.constData(), &info) == 0 && S_ISREG(info.st_mode) && info.st_size > 0 &&
            !known.contains({info.st_dev, info.st_ino})) {
            return true;
        }
    }
    return false;
}

/// The regular files this process itself has open (a log, say), which a child shares.
void AddOpenFiles(std::set<FileId>& known) {
    for (int descriptor = 0; descriptor < 256; ++descriptor) {
        struct stat info {};
        if (fstat(descriptor, &info) == 0) {
            known.insert({info.st_dev, info.st_ino});
        }
    }
}

} // namespace

LinuxFixture::LinuxFixture() {
    qputenv("SONGLIFT_DRIVES", m_folder.path().toUtf8());
}

LinuxFixture::~LinuxFixture() {
    qunsetenv("SONGLIFT_DRIVES");
}

QString LinuxFixture::Native(const QString& name) const {
    return name.isEmpty() ? m_folder.path() : m_folder.filePath(name);
}

int LinuxFixture::CreationError(const QString& path) {
    return NumberOf([&] { m_files.CreateFolder(path); });
}

int LinuxFixture::ChainError(const QString& path) {
    return NumberOf([&] { m_files.CreateFolderChain(path); });
}

int LinuxFixture::WritingError(const QString& path) {
    return NumberOf([&] { m_files.OpenForReadingAndWriting(path); });
}

int LinuxFixture::MoveError(const QString& source, const QString& target) {
    return NumberOf([&] {
        m_files.MoveFile(*m_files.OpenForReadingAndWriting(source), target, Existing::Replace, {});
    });
}

TestMount TestMount::Memory(const QString& folder, const char* options) {
    TestMount result(folder);
    result.m_isMounted =
        mount("tmpfs", result.m_folder.constData(), "tmpfs", MS_NOSUID, options) == 0;
    return result;
}

TestMount TestMount::Bind(const QString& source, const QString& folder, bool isReadOnly) {
    TestMount result(folder);
    const char* target = result.m_folder.constData();
    result.m_isMounted = mount(source.toUtf8().constData(), target, nullptr, MS_BIND, nullptr) == 0;
    if (result.m_isMounted && isReadOnly &&
        mount(nullptr, target, nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) != 0) {
        result.Unmount();
    }
    return result;
}

TestMount::TestMount(TestMount&& other) noexcept
    : m_folder(std::move(other.m_folder)), m_isMounted(std::exchange(other.m_isMounted, false)) {
}

TestMount::~TestMount() {
    Unmount();
}

void TestMount::Unmount() {
    if (m_isMounted) {
        umount2(m_folder.constData(), MNT_DETACH);
        m_isMounted = false;
    }
}

void MakeLink(const QString& target, const QString& path) {
    ASSERT_EQ(symlink(target.toUtf8().constData(), path.toUtf8().constData()), 0);
}

bool MakePipe(const QString& path) {
    return mkfifo(path.toUtf8().constData(), 0600) == 0;
}

void SetMode(const QString& path, unsigned int mode) {
    ASSERT_EQ(chmod(path.toUtf8().constData(), mode), 0);
}

bool IsThere(const QString& path) {
    struct stat info {};
    return lstat(path.toUtf8().constData(), &info) == 0;
}

int NumberOfNobody(const std::function<void()>& step) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(BecomeNobody() ? NumberOf(step) : CannotBecomeNobody);
    }
    const int code = ExitCodeOf(child);
    return code == CannotBecomeNobody ? -1 : code;
}

int RunInChild(const std::function<void()>& step) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(NumberOf(step));
    }
    return ExitCodeOf(child);
}

bool KillWhileWriting(const std::function<void()>& step, const QStringList& known) {
    std::set<FileId> ids;
    AddOpenFiles(ids);
    for (const QString& path : known) {
        struct stat info {};
        if (stat(path.toUtf8().constData(), &info) == 0) {
            ids.insert({info.st_dev, info.st_ino});
        }
    }
    const pid_t child = fork();
    if (child == 0) {
        _exit(NumberOf(step));
    }
    int status = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        if (HasWritten(child, ids)) {
            kill(child, SIGKILL);
            waitpid(child, &status, 0);
            break;
        }
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}
