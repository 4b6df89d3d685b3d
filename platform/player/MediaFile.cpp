#include "platform/player/MediaFile.h"

#include <QFileInfo>

#include <algorithm>
#include <chrono>

MediaFile::MediaFile(const QString& nativePath) : m_file(nativePath) {
    // A pipe or a device might never answer.
    if (QFileInfo(nativePath).isFile() &&
        m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        m_size = m_file.size();
    }
}

qint64 MediaFile::Read(char* buffer, qint64 size) {
    {
        const std::lock_guard lock(m_mutex);
        if (m_closed || !m_file.isOpen()) {
            return -1;
        }
        m_reading = true;
    }
    const qint64 count = m_file.read(buffer, size);

    const std::lock_guard lock(m_mutex);
    m_reading = false;
    if (m_closed) {
        m_file.close();
    }
    m_readEnded.notify_all();
    return count;
}

qint64 MediaFile::Seek(qint64 position) {
    const std::lock_guard lock(m_mutex);
    const bool found = !m_closed && m_file.isOpen() && position >= 0 && m_file.seek(position);
    return found ? position : -1;
}

QByteArray MediaFile::ReadAt(qint64 position, qint64 size) {
    QByteArray bytes(std::clamp<qint64>(m_size - position, 0, size), Qt::Uninitialized);
    qint64 have = 0;
    qint64 count = Seek(position) == position ? bytes.size() : 0;
    while (count > 0 && have < bytes.size()) {
        count = Read(bytes.data() + have, bytes.size() - have);
        have += std::max<qint64>(count, 0);
    }
    return bytes.first(have);
}

bool MediaFile::Close() {
    constexpr std::chrono::milliseconds patience(80);
    std::unique_lock lock(m_mutex);
    m_closed = true;
    const bool isIdle = m_readEnded.wait_for(lock, patience, [this] { return !m_reading; });
    if (isIdle) {
        m_file.close();
    }
    return isIdle;
}
