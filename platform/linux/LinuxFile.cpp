#include "platform/linux/LinuxFile.h"

#include "platform/RuntimeError.h"
#include "platform/linux/ByteTransfer.h"
#include "platform/linux/LinuxCopy.h"
#include "platform/linux/LinuxErrors.h"

#include <sys/stat.h>
#include <unistd.h>

void LinuxFile::Read(const std::shared_ptr<char>& buffer, qint64 size) {
    char* bytes = buffer.get();
    while (size > 0) {
        const ssize_t count = ReadSome(m_file.Get(), bytes, static_cast<size_t>(size));
        if (count == 0) {
            throw RuntimeError(ErrorNumber::DeviceIOError);
        }
        bytes += count;
        size -= count;
    }
}

bool LinuxFile::WriteFrom(BinaryFile& source, qint64 size, const CopyControl& control) {
    return TransferAll(AsLinuxFile(source).m_file.Get(), m_file.Get(), size, control);
}

void LinuxFile::Truncate(qint64 size) {
    if (ftruncate(m_file.Get(), size) != 0) {
        ThrowError(errno);
    }
}

void LinuxFile::Close() {
    if (const int error = m_file.Close()) {
        ThrowError(error);
    }
}

void LinuxFile::TakeModificationTime(BinaryFile& source) {
    struct stat info {};
    if (fstat(AsLinuxFile(source).m_file.Get(), &info) == 0) {
        SetModificationTime(m_kept.Get(), info.st_mtim);
    }
}
