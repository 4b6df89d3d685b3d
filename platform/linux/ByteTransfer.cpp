#include "platform/linux/ByteTransfer.h"

#include "platform/linux/LinuxErrors.h"
#include "platform/linux/LinuxFile.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <memory>
#include <unistd.h>

namespace {

constexpr off_t KernelStep = off_t{1} << 30;
/// Measured: larger blocks are not read faster, and these stay in the processor's cache until they
/// are written.
constexpr off_t BlockSize = off_t{256} << 10;
/// Up to this length blocks are faster than the kernel's own copy, which pays off where a disk can
/// share the bytes of two files or a server copies by itself.
constexpr off_t BlocksAreFaster = off_t{1} << 20;

bool IsDiskFailure(int error) {
    return error == ENOSPC || error == EDQUOT || error == EIO;
}

/// A step in the middle of a file that begins at such a boundary costs a third less: the kernel
/// then moves the bytes in larger pieces.
constexpr off_t Boundary = off_t{1} << 20;

off_t ToNextBoundary(int file) {
    return Boundary - lseek(file, 0, SEEK_CUR) % Boundary;
}

/// Lets the kernel copy what it can; returns the number of bytes. It may stop early without an
/// error: between two file systems, or where a file system reports no length.
off_t TransferInKernel(int source, int target, off_t size) {
    off_t copied = 0;
    off_t nextStep = ToNextBoundary(source);
    while (copied < size) {
        const auto step = static_cast<size_t>(std::min(size - copied, nextStep));
        nextStep = KernelStep;
        const ssize_t count = copy_file_range(source, nullptr, target, nullptr, step, 0);
        if (count > 0) {
            copied += count;
        } else if (count == 0 || errno != EINTR) {
            if (count < 0 && IsDiskFailure(errno)) {
                ThrowError(errno);
            }
            break;
        }
    }
    return copied;
}

off_t TransferInBlocks(int source, int target, off_t size) {
    const off_t blockSize = std::min(size, BlockSize);
    const std::unique_ptr<char[]> block(new char[static_cast<size_t>(blockSize)]);
    off_t copied = 0;
    while (copied < size) {
        const auto step = static_cast<size_t>(std::min(size - copied, blockSize));
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

off_t TransferBytes(int source, int target, off_t size) {
    const off_t copied = size > BlocksAreFaster ? TransferInKernel(source, target, size) : 0;
    return copied + TransferInBlocks(source, target, size - copied);
}

void TransferRest(int source, int target) {
    TransferInBlocks(source, target, std::numeric_limits<off_t>::max());
}
