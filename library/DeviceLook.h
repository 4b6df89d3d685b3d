#pragma once

#include "platform/EventLoop.h"
#include "platform/PatientFileSystem.h"

#include <QElapsedTimer>

#include <map>
#include <memory>
#include <optional>

/// Looks for files on drives, any of which may not answer. The window stays alive meanwhile, and a
/// drive that takes too long is given up. No drive gets a new question while its last one hangs.
class DeviceLook {
public:
    DeviceLook(FileSystem& files, Worker& background, EventLoop& events);

    /// Whether a file of a drive (`path` is in drive form) exists. Empty when the drive does not
    /// answer, or the user closes the window meanwhile.
    std::optional<bool> FileExists(const QString& path);
    /// Whether the last look ended because the user closed the window.
    bool WindowWasClosed() const { return m_windowWasClosed; }

private:
    struct Question;

    bool MayGoOn();

    PatientFileSystem m_files;
    EventLoop& m_events;
    QElapsedTimer m_clock;
    bool m_windowWasClosed = false;
    /// The last question to each drive, by the drive's text.
    std::map<QString, std::shared_ptr<Question>> m_questions;
};
