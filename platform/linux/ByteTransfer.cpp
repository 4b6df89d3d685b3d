#include "platform/linux/ByteTransfer.h"

#include "platform/RuntimeError.h"
#include "platform/linux/LinuxErrors.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <memory>
#include <unistd.h>

namespace {

/// Measured: larger blocks are not read faster, and these stay in the processor's cache until they
/// are written. The kernel's own copy is no faster within a disk, slower below some megabytes, and
/// does not work between two kinds of file systems, as an iPod's and a disk's are.
constexpr off_t BlockSize = off_t{512} << 10;

void WriteAll(int file, const char* buffer, size_t size) {
    while (size > 0) {
        const ssize_t count = write(file, buffer, size);
        if (count < 0 && errno != EINTR) {
            ThrowError(errno);
        }
        if (count > 0) {
            buffer += count;
            size -= static_cast<size_t>(count);
        }
    }
}

/// Copies up to `size` bytes; returns how many: fewer only where the source ends.
off_t TransferBytes(int source, int target, off_t size) {
    // Kept from one file to the next: a new one costs a fault for each of its pages, and those come
    // to more than opening the file.
    thread_local const std::unique_ptr<char[]> block(new char[static_cast<size_t>(BlockSize)]);
    off_t copied = 0;
    while (copied < size) {
        const auto step = static_cast<size_t>(std::min(size - copied, BlockSize));
        const ssize_t count = ReadSome(source, block.get(), step);
        if (count == 0) {
            break;
        }
        WriteAll(target, block.get(), static_cast<size_t>(count));
        copied += count;
    }
    return copied;
}

} // namespace

ssize_t ReadSome(int file, char* buffer, size_t size) {
    while (true) {
        const ssize_t count = read(file, buffer, size);
        if (count >= 0) {
            return count;
        }
        if (errno != EINTR) {
            ThrowError(errno);
        }
    }
}

void TransferAll(int source, int target, off_t size) {
    if (TransferBytes(source, target, size) < size) {
        throw RuntimeError(ErrorNumber::DeviceIOError);
    }
}

void TransferRest(int source, int target) {
    TransferBytes(source, target, std::numeric_limits<off_t>::max());
}
