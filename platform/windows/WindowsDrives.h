#pragma once

#include "platform/Drives.h"
#include "platform/ThreadWorker.h"

#include <QHash>

#include <atomic>
#include <memory>

/// The drives that have a letter. What has to be read from a removable drive is read on a thread:
/// one that does not answer at once is not listed until it has.
class WindowsDrives : public DriveService {
public:
    WindowsDrives();

    /// In the order of their letters.
    std::vector<Drive> Drives() override;
    /// Whether it can be taken out, or is connected by USB or FireWire. Throws DeviceUnavailable
    /// for a drive that is gone.
    bool IsRemovable(const Drive& drive) override;
    /// The file system's label. Throws DeviceUnavailable for a drive that is gone or does not
    /// answer.
    QString VolumeName(const Drive& drive) override;

private:
    /// Whether a drive answered, and what; shared with the thread that asks, which may hang.
    struct Answer {
        std::atomic<bool> IsThere = false;
        bool IsReady = false;
        QString Label;
    };

    std::shared_ptr<const Answer> Ask(QChar letter);

    ThreadWorker m_worker;
    /// The questions that have not been answered in time.
    QHash<QChar, std::shared_ptr<Answer>> m_open;
};
