#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <sys/types.h>

/// A disk that a program of this folder serves, mounted for as long as this lives.
class ServedDisk {
public:
    /// Mounts it at the existing folder `folder`. `arguments` follow the two folders.
    ServedDisk(const char* program, const QString& folder, const QStringList& arguments = {});
    ~ServedDisk();
    ServedDisk(const ServedDisk&) = delete;
    ServedDisk& operator=(const ServedDisk&) = delete;

    bool IsMounted() const;
    /// Why this machine can mount no such disk; empty where it could.
    QString Impossible() const { return m_impossible; }
    /// Where the disk keeps its files; what is done there is not slowed down or refused.
    QString Content() const { return m_content.path(); }

private:
    bool HasEnded(int milliseconds);

    QString m_folder;
    QTemporaryDir m_content;
    QTemporaryDir m_said;
    /// Its process; -1 once it has ended.
    pid_t m_server = -1;
    int m_status = 0;
    QString m_impossible;
};

/// A disk that is slow, and hangs when it is told to (see slow_device.py).
class SlowDisk {
public:
    explicit SlowDisk(const QString& folder);
    ~SlowDisk();

    /// What it does from now on: "speed=1000000 open=0.01 stall=read". Nothing holds it up without.
    void Be(const char* words);
    bool IsMounted() const { return m_disk.IsMounted(); }
    QString Impossible() const { return m_disk.Impossible(); }
    QString Content() const { return m_disk.Content(); }

private:
    QTemporaryDir m_controlFolder;
    ServedDisk m_disk;
};
