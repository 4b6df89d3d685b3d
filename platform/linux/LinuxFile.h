#pragma once

#include "platform/FileSystem.h"
#include "platform/linux/FileDescriptor.h"

/// An open file of the system.
class LinuxFile : public BinaryFile {
public:
    explicit LinuxFile(FileDescriptor file) : m_file(std::move(file)) {}
    /// A locked file that was opened for writing as `path`. `kept` is a second descriptor of it,
    /// which keeps the lock beyond Close.
    LinuxFile(FileDescriptor file, FileDescriptor kept, const QString& path)
        : m_file(std::move(file)), m_kept(std::move(kept)), m_path(path) {}

    void Read(const std::shared_ptr<char>& buffer, qint64 size) override;
    bool WriteFrom(BinaryFile& source, qint64 size, const CopyControl& control) override;
    void Truncate(qint64 size) override;
    void Close() override;
    void TakeModificationTime(BinaryFile& source) override;

    /// For a file that was opened for writing: its path, and a descriptor that outlives Close.
    const QString& Path() const { return m_path; }
    int Kept() const { return m_kept.Get(); }

private:
    FileDescriptor m_file;
    FileDescriptor m_kept;
    QString m_path;
};

/// A service is given only files that it has opened itself. Throws std::bad_cast for others.
inline LinuxFile& AsLinuxFile(BinaryFile& file) {
    return dynamic_cast<LinuxFile&>(file);
}
