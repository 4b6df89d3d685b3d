#pragma once

#include <QString>

#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <utility>

/// A file that one thread opens before another one needs it. `OpenFile` is the system's own type
/// for an open file.
template <class OpenFile>
class AheadFile {
public:
    /// Closes the earlier file, and keeps what `open` returns, which opens the one at `path`. An
    /// empty path only closes.
    template <class Opener>
    void Open(const QString& path, Opener open) {
        OpenFile file; // closed without the lock
        {
            const std::lock_guard lock(m_mutex);
            file = std::exchange(m_file, OpenFile());
            m_path = path;
            m_isOpening = !path.isEmpty();
        }
        file.Close();
        if (path.isEmpty()) {
            return;
        }
        try {
            file = open();
        } catch (const std::exception&) {
            file.Close(); // reported when its turn comes
        }
        const std::lock_guard lock(m_mutex);
        if (m_path == path) {
            std::swap(m_file, file);
            m_isOpening = false;
        }
        m_hasOpened.notify_all();
    }

    /// The file that was opened as `path`, if one was; another one may be at that path by now.
    /// Waits while it is being opened, but not for a device that hangs.
    OpenFile Take(const QString& path) {
        std::unique_lock lock(m_mutex);
        m_hasOpened.wait_for(lock, std::chrono::seconds(2),
                             [&] { return m_path != path || !m_isOpening; });
        if (m_path != path) {
            return {};
        }
        m_path.clear();
        m_isOpening = false;
        return std::exchange(m_file, OpenFile());
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_hasOpened;
    /// Not open while it is being opened.
    OpenFile m_file;
    QString m_path;
    bool m_isOpening = false;
};
