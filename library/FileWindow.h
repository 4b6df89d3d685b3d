#pragma once

#include "platform/FileSystem.h"

#include <memory>

/// A part of a file's bytes in memory, which moves over the file from its beginning to its end, so
/// that a large file takes little memory and is worked on while it is read. One more byte, 0,
/// follows the file's last one.
class FileWindow {
public:
    /// Throws Overflow for a file of 2 GiB or more.
    FileWindow(FileSystem& files, const QString& path);

    /// The index of the extra byte, which is the length of the file.
    qint64 LastIndex() const { return m_lastIndex; }
    /// The `count` bytes from `position` on, none of which may lie behind LastIndex(). They are
    /// valid until the next call. Going back behind bytes already dropped reads the file from its
    /// beginning again. Throws RuntimeError.
    const char* At(qint64 position, qint64 count) {
        if (position < m_begin || position + count > m_end) {
            MoveTo(position, count);
        }
        return m_bytes.get() + (position - m_begin);
    }
    /// How many bytes from `position` on, which must have been asked of At, are in memory.
    qint64 CountFrom(qint64 position) const { return m_end - position; }
    /// The file could not be read as far as was asked for.
    bool HasFailed() const { return m_hasFailed; }

private:
    /// Waiting for a block costs two changes of the thread, so that fewer and larger ones are
    /// better while they come quickly; from a slow device each takes long, and the progress bar
    /// stands still meanwhile.
    static constexpr qint64 SmallestBlock = qint64{256} << 10;
    static constexpr qint64 LargestBlock = qint64{1} << 20;

    void MoveTo(qint64 position, qint64 count);
    void Keep(qint64 position);
    void Grow(qint64 size);
    void ReadOn();

    FileSystem& m_files;
    QString m_path;
    qint64 m_lastIndex;
    std::unique_ptr<BinaryFile> m_file;
    std::shared_ptr<char[]> m_bytes;
    qint64 m_size = 0;
    /// How many bytes are read at once.
    qint64 m_blockSize = SmallestBlock;
    /// The part of the file that is in m_bytes: from m_begin to before m_end.
    qint64 m_begin = 0;
    qint64 m_end = 0;
    bool m_hasFailed = false;
};
