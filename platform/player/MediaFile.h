#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

/// A file that the player's threads open and read, since the device may hang meanwhile. It can be
/// closed at any moment, even during that. It is opened for reading only.
class MediaFile : public std::enable_shared_from_this<MediaFile> {
public:
    /// `findPath` tells the file's path of the operating system, on the thread that opens it; an
    /// empty one where there is none.
    explicit MediaFile(std::function<QString()> findPath);

    /// Opens the file; before that it has no bytes. False where that fails, or it was closed.
    bool Open();
    /// Length in bytes.
    qint64 Size() const { return m_size; }

    /// Reads at most `size` bytes; returns how many, 0 at the end, -1 when the file cannot be read
    /// or is closed.
    qint64 Read(char* buffer, qint64 size);
    /// Goes to a 0-based position; returns it, or -1.
    qint64 Seek(qint64 position);
    /// Up to `size` bytes from a position on; fewer at the end, or where the file cannot be read.
    QByteArray ReadAt(qint64 position, qint64 size);

    /// Closes the file for ever. Does not wait long for a device that hangs: then the file is
    /// closed when the device answers, and this returns false.
    bool Close();

private:
    /// Whether it can be read.
    bool IsOpen() const { return !m_isClosed && m_file.isOpen(); }
    void Use(const std::function<void()>& work);

    const std::function<QString()> m_findPath;
    /// Used by one thread at a time.
    QFile m_file;
    qint64 m_size = 0;
    std::mutex m_mutex;
    std::condition_variable m_useEnded;
    bool m_isUsed = false;
    std::atomic<bool> m_isClosed = false;
};
