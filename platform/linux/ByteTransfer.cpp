#include "platform/linux/ByteTransfer.h"

#include "platform/linux/LinuxFile.h"

#include <algorithm>
#include <limits>
#include <memory>

namespace {

/// Measured: larger blocks are not read faster, and these stay in the processor's cache until they
/// are written. The kernel's own copy is no faster within a disk, slower below some megabytes, and
/// does not work between two kinds of file systems, as an iPod's and a disk's are.
constexpr off_t BlockSize = off_t{512} << 10;

} // namespace

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

void TransferRest(int source, int target) {
    TransferBytes(source, target, std::numeric_limits<off_t>::max());
}
