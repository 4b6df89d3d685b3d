#include "library/FileWindow.h"

#include "platform/Numbers.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <utility>

namespace {

using namespace std::chrono_literals;

/// A block that takes less than this came quickly.
constexpr auto Soon = 20ms;

} // namespace

FileWindow::FileWindow(FileSystem& files, const QString& path)
    : m_files(files), m_path(path), m_lastIndex(ToLong(files.FileLength(path))) {
}

void FileWindow::MoveTo(qint64 position, qint64 count) {
    if (m_file == nullptr || position < m_begin) {
        m_begin = m_end = 0;
        m_file = m_files.OpenForReading(m_path);
    }
    Grow(std::max(count, std::min(LargestBlock, m_lastIndex + 1)));
    while (m_end <= position) {
        m_begin = m_end; // the bytes before `position` are not needed
        ReadOn();
    }
    Keep(position);
    while (m_end < position + count) {
        ReadOn();
    }
}

/// Moves the bytes in memory so that they begin with the one at `position`.
void FileWindow::Keep(qint64 position) {
    std::memmove(m_bytes.get(), m_bytes.get() + (position - m_begin),
                 static_cast<size_t>(m_end - position));
    m_begin = position;
}

void FileWindow::Grow(qint64 size) {
    if (size > m_size) {
        auto bytes = std::make_shared_for_overwrite<char[]>(static_cast<size_t>(size));
        if (m_end > m_begin) {
            std::memcpy(bytes.get(), m_bytes.get(), static_cast<size_t>(m_end - m_begin));
        }
        m_bytes = std::move(bytes);
        m_size = size;
    }
}

/// Reads as many of the next bytes as there is room for.
void FileWindow::ReadOn() {
    const qint64 held = m_end - m_begin;
    const qint64 count = std::min({m_blockSize, m_size - held, m_lastIndex - m_end});
    if (count > 0) {
        m_hasFailed = true; // until the read has succeeded
        const auto begin = std::chrono::steady_clock::now();
        m_file->Read({m_bytes, m_bytes.get() + held}, count);
        m_hasFailed = false;
        m_end += count;
        const bool isQuick = std::chrono::steady_clock::now() - begin < Soon;
        m_blockSize = isQuick ? std::min(2 * m_blockSize, LargestBlock) : SmallestBlock;
    } else {
        m_bytes[static_cast<size_t>(held)] = 0;
        m_end = m_lastIndex + 1;
    }
}
