#include "platform/linux/ByteTransfer.h"

#include "platform/RuntimeError.h"
#include "platform/ScopeGuard.h"
#include "platform/linux/LinuxErrors.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <limits>
#include <linux/fs.h>
#include <memory>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Measured: larger blocks are not read faster, and these stay in the processor's cache until they
/// are written. Where the kernel's own copy cannot share blocks, it is no faster within a disk,
/// slower below some megabytes, and does not work between two kinds of file systems, such as an
/// iPod's and a disk's.
constexpr size_t BlockSize = size_t{512} << 10;
/// A device that delivers a megabyte a second needs an eighth of a second for a step of this size.
constexpr size_t FirstStep = size_t{128} << 10;
constexpr size_t SmallestStep = size_t{64} << 10;

void WriteAll(int file, const char* buffer, size_t size, const CopyControl& control) {
    control.BeginWriting();
    const ScopeGuard written([&control] { control.EndWriting(); });
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

/// About how long a step takes: a stop takes effect between two steps.
constexpr std::chrono::milliseconds LongStep(50);

/// How many bytes to copy in one step, judged by how long the earlier ones took.
class StepSize {
public:
    size_t Bytes() const { return m_bytes; }
    /// To be called around each step.
    void Begin() { m_begin = Clock::now(); }
    void End() {
        const auto took = Clock::now() - m_begin;
        if (took > 2 * LongStep) {
            m_bytes = std::max(m_bytes / 2, SmallestStep);
        } else if (took < LongStep / 2) {
            m_bytes = std::min(m_bytes * 2, BlockSize);
        }
    }

private:
    using Clock = std::chrono::steady_clock;

    size_t m_bytes = FirstStep;
    Clock::time_point m_begin;
};

/// Lets the target share the source's blocks if both lie on one disk that can do so (btrfs, XFS):
/// then no bytes are moved, and no space is used.
class SharedBlocks {
public:
    SharedBlocks(int source, int target, off_t size)
        : m_source(source), m_target(target), m_mayWork(size >= WorthIt) {}

    /// Shares up to `size` more bytes, and returns how many.
    off_t Share(off_t size) {
        const off_t position = m_mayWork ? lseek(m_source, 0, SEEK_CUR) : -1;
        struct stat info {};
        m_mayWork = position >= 0 && lseek(m_target, 0, SEEK_CUR) == position &&
                    fstat(m_source, &info) == 0 && position + size <= info.st_size;
        m_beforeBlock = m_mayWork ? (Block - position % Block) % Block : 0;
        if (!m_mayWork || m_beforeBlock > 0) {
            return 0;
        }
        off_t length = std::min(size, AtOnce);
        if (position + length < info.st_size) { // only a file's last block can be shared in part
            length -= length % Block;
        }
        const file_clone_range range{m_source, static_cast<__u64>(position),
                                     static_cast<__u64>(length), static_cast<__u64>(position)};
        m_mayWork = length > 0 && ioctl(m_target, FICLONERANGE, &range) == 0;
        if (!m_mayWork) {
            return 0;
        }
        if (lseek(m_source, length, SEEK_CUR) < 0 || lseek(m_target, length, SEEK_CUR) < 0) {
            ThrowError(errno);
        }
        return length;
    }
    /// How many bytes to copy before blocks can be shared again; 0 if none can.
    off_t BeforeBlock() const { return m_beforeBlock; }

private:
    static constexpr off_t WorthIt = off_t{128} << 10;
    static constexpr off_t AtOnce = off_t{64} << 20;
    /// A multiple of the blocks of any disk.
    static constexpr off_t Block = off_t{64} << 10;

    int m_source;
    int m_target;
    bool m_mayWork;
    off_t m_beforeBlock = 0;
};

/// Copies up to `size` bytes; returns how many: fewer only where the source ends or `control` has
/// stopped it.
off_t TransferBytes(int source, int target, off_t size, bool isWholeSize,
                    const CopyControl& control) {
    // Kept from one file to the next: a new one costs a fault for each of its pages, and those come
    // to more than opening the file.
    thread_local const std::unique_ptr<char[]> block(new char[BlockSize]);
    StepSize step;
    SharedBlocks blocks(source, target, isWholeSize ? size : 0);
    off_t copied = 0;
    while (copied < size && !control.IsStopped()) {
        if (const off_t shared = blocks.Share(size - copied); shared > 0) {
            copied += shared;
            control.AddBytes(shared);
            continue;
        }
        step.Begin();
        size_t wanted = std::min(static_cast<size_t>(size - copied), step.Bytes());
        if (blocks.BeforeBlock() > 0) {
            wanted = std::min(wanted, static_cast<size_t>(blocks.BeforeBlock()));
        }
        const ssize_t count = ReadSome(source, block.get(), wanted);
        if (count == 0) {
            break;
        }
        WriteAll(target, block.get(), static_cast<size_t>(count), control);
        copied += count;
        control.AddBytes(count);
        step.End();
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

bool TransferAll(int source, int target, off_t size, const CopyControl& control) {
    if (TransferBytes(source, target, size, true, control) == size) {
        return true;
    }
    if (!control.IsStopped()) {
        throw RuntimeError(ErrorNumber::DeviceIOError);
    }
    return false;
}

bool TransferRest(int source, int target, const CopyControl& control) {
    TransferBytes(source, target, std::numeric_limits<off_t>::max(), false, control);
    return !control.IsStopped();
}
