#include "platform/player/MediaFile.h"

#include "platform/ScopeGuard.h"
#include "platform/ThreadWorker.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

MediaFile::MediaFile(std::function<QString()> findPath) : m_findPath(std::move(findPath)) {
}

/// Does what may hang, without the lock.
void MediaFile::Use(const std::function<void()>& work) {
    std::unique_lock lock(m_mutex);
    m_useEnded.wait(lock, [this] { return !m_isUsed; });
    m_isUsed = true;
    lock.unlock();
    const ScopeGuard ended([&] {
        lock.lock();
        m_isUsed = false;
        m_useEnded.notify_all();
    });
    work();
}

bool MediaFile::Open() {
    bool isOpen = false;
    Use([&] {
        const QString path = m_isClosed ? QString() : m_findPath();
        m_file.setFileName(path);
        // A pipe or a device might never answer.
        isOpen =
            QFileInfo(path).isFile() && m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        m_size = isOpen ? m_file.size() : 0;
    });
    return isOpen;
}

qint64 MediaFile::Read(char* buffer, qint64 size) {
    qint64 count = -1;
    Use([&] { count = IsOpen() ? m_file.read(buffer, size) : -1; });
    return count;
}

qint64 MediaFile::Seek(qint64 position) {
    bool found = false;
    Use([&] { found = IsOpen() && position >= 0 && m_file.seek(position); });
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
    m_isClosed = true;
    const auto close = [file = shared_from_this()] { file->Use([&] { file->m_file.close(); }); };
    return ThreadWorker::DoSoon(close);
}
