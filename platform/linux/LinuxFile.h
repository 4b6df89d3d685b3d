#pragma once

#include "platform/FileSystem.h"
#include "platform/linux/FileDescriptor.h"

/// An open file of the system.
class LinuxFile : public BinaryFile {
public:
    explicit LinuxFile(FileDescriptor file) : m_file(std::move(file)) {}
    /// A file that is locked. `lock` is a second descriptor of it, which keeps the lock until this
    /// ends, whether closed before or not.
    LinuxFile(FileDescriptor file, FileDescriptor lock)
        : m_file(std::move(file)), m_lock(std::move(lock)) {}

    void Read(char* buffer, qint64 size) override;
    void WriteFrom(BinaryFile& source, qint64 size) override;
    void Truncate(qint64 size) override;
    void Close() override;

private:
    FileDescriptor m_file;
    FileDescriptor m_lock;
};
