#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <condition_variable>
#include <mutex>

/// A file that the player's threads read. It can be closed at any moment, even during a read. It is
/// opened for reading only.
class MediaFile {
public:
    /// Opens the file of that path of the operating system.
    explicit MediaFile(const QString& nativePath);

    bool IsOpen() const { return m_file.isOpen(); }
    /// Length in bytes.
    qint64 Size() const { return m_size; }

    /// Reads at most `size` bytes; returns how many, 0 at the end, -1 when the file cannot be read
    /// or is closed.
    qint64 Read(char* buffer, qint64 size);
    /// Goes to a 0-based position; returns it, or -1.
    qint64 Seek(qint64 position);
    /// Up to `size` bytes from a position on; fewer at the end, or where the file cannot be read.
    QByteArray ReadAt(qint64 position, qint64 size);

    /// Closes the file. Does not wait long for a read that hangs: then the file is closed when the
    /// read ends, and this returns false.
    bool Close();

private:
    QFile m_file;
    qint64 m_size = 0;
    std::mutex m_mutex;
    std::condition_variable m_readEnded;
    bool m_reading = false;
    bool m_closed = false;
};
