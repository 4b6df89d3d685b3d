#include "platform/linux/ByteTransfer.h"

#include "platform/RuntimeError.h"
#include "platform/linux/LinuxErrors.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <limits>
#include <memory>
#include <unistd.h>

namespace {

/// Measured: larger blocks are not read faster, and these stay in the processor's cache until they
/// are written. The kernel's own copy is no faster within a disk, slower below some megabytes, and
/// does not work between two kinds of file systems, as an iPod's and a disk's are.
constexpr size_t BlockSize = size_t{512} << 10;
/// A device that delivers a megabyte a second needs an eighth of one for these.
constexpr size_t FirstStep = size_t{128} << 10;
constexpr size_t SmallestStep = size_t{64} << 10;

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

/// A step is done in about so long: a stop is heeded between two of them.
constexpr std::chrono::milliseconds LongStep(50);

/// How many bytes to copy in one step, by what the steps before took.
class StepSize {
public:
    size_t Bytes() const { return m_bytes; }
    /// A step of this many bytes begins, and it ends.
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

/// Copies up to `size` bytes; returns how many: fewer only where the source ends or `control` has
/// stopped it.
off_t TransferBytes(int source, int target, off_t size, const CopyControl& control) {
    // Kept from one file to the next: a new one costs a fault for each of its pages, and those come
    // to more than opening the file.
    thread_local const std::unique_ptr<char[]> block(new char[BlockSize]);
    StepSize step;
    off_t copied = 0;
    while (copied < size && !control.IsStopped()) {
        step.Begin();
        const size_t wanted = std::min(static_cast<size_t>(size - copied), step.Bytes());
        const ssize_t count = ReadSome(source, block.get(), wanted);
        if (count == 0) {
            break;
        }
        control.BeginWriting();
        WriteAll(target, block.get(), static_cast<size_t>(count));
        control.EndWriting();
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
    if (TransferBytes(source, target, size, control) == size) {
        return true;
    }
    if (!control.IsStopped()) {
        throw RuntimeError(ErrorNumber::DeviceIOError);
    }
    return false;
}

bool TransferRest(int source, int target, const CopyControl& control) {
    TransferBytes(source, target, std::numeric_limits<off_t>::max(), control);
    return !control.IsStopped();
}
