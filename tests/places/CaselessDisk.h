#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// A mounted disk on which names differ neither in letter case nor in how their accents are
/// composed (see caseless_disk.py), for as long as this lives.
class CaselessDisk {
public:
    /// Mounts it at the existing folder `folder`.
    explicit CaselessDisk(const QString& folder);
    ~CaselessDisk();
    CaselessDisk(const CaselessDisk&) = delete;
    CaselessDisk& operator=(const CaselessDisk&) = delete;

    bool IsMounted() const;
    /// Why this machine can mount no such disk; empty where it could.
    QString Impossible() const { return m_impossible; }

private:
    QString m_folder;
    QTemporaryDir m_content;
    QProcess m_server;
    QString m_impossible;
};
