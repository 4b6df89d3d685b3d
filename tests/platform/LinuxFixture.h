#pragma once

#include "platform/linux/LinuxFileSystem.h"
#include "tests/fakes/RealFiles.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>

/// Ends the test where this machine does not let it have what it needs.
#define SKIP_UNLESS(possible, reason)                                                              \
    if (possible) {                                                                                \
    } else                                                                                         \
        GTEST_SKIP() << (reason)

/// A real folder that is attached as drive E:, and the services on it.
class LinuxFixture : public testing::Test {
protected:
    LinuxFixture();
    ~LinuxFixture() override;

    /// The native path of something in the folder; the folder itself for an empty name.
    QString Native(const QString& name = QString()) const;

    /// The numbers of the errors that the operations raise, 0 where they raise none.
    int CreationError(const QString& path);
    int ChainError(const QString& path);
    int WritingError(const QString& path);
    int MoveError(const QString& source, const QString& target);

    QTemporaryDir m_folder;
    LinuxDrives m_drives;
    LinuxFileSystem m_files{m_drives};
};

/// A file system in memory of so many bytes, or a folder that shows another one, mounted for as
/// long as this lives. Only root may mount.
class TestMount {
public:
    static TestMount Memory(const QString& folder, const char* options = "size=1m");
    static TestMount Bind(const QString& source, const QString& folder, bool isReadOnly = false);
    TestMount(TestMount&& other) noexcept;
    ~TestMount();

    bool IsMounted() const { return m_isMounted; }
    void Unmount();

private:
    explicit TestMount(const QString& folder) : m_folder(folder.toUtf8()) {}

    QByteArray m_folder;
    bool m_isMounted = false;
};

void MakeLink(const QString& target, const QString& path);
bool MakePipe(const QString& path);
void SetMode(const QString& path, unsigned int mode);
/// Whether there is anything at `path`, even a link to nothing.
bool IsThere(const QString& path);

/// The same for a step of a user without rights; -1 where this process cannot become one. The step
/// runs in a process of its own, so that what it changes in memory is lost.
int NumberOfNobody(const std::function<void()>& step);

/// Runs a step in a process of its own and kills it (SIGKILL) as soon as it has some of its bytes
/// in a file that is none of `known`. False where the step was done before that.
bool KillWhileWriting(const std::function<void()>& step, const QStringList& known);

/// 0, or the number of the error that a step raised in a process of its own.
int RunInChild(const std::function<void()>& step);
