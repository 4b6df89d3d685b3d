#pragma once

#include "platform/FileSystem.h"

#include <QDeadlineTimer>
#include <QString>

#include <condition_variable>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

struct FileToCopy {
    QString Source;
    QString Target;
    /// Called once all files before this one are there, and before it is begun; false ends the
    /// copying there, and once the control is stopped it need not end its work. Must not throw. May
    /// be unset.
    std::function<bool(FileSystem&, const CopyControl&)> Prepare = {};
};

/// What became of several copies.
struct CopiedFiles {
    /// How many were copied, from the first on.
    size_t Count = 0;
    /// What the file after these has thrown; null if it has not failed.
    std::exception_ptr Failure = {};
    /// The file after these would replace something, or its folder is missing, or it was stopped.
    bool IsRefused = false;
};

/// Copies several new files at once, on as many threads as take part in it: reading and writing the
/// bytes of a small file keeps a processor busy, not a disk. The files get their names one after
/// the other all the same, and none does after one that failed, as if one thread had copied them.
class JointCopy {
public:
    /// Once `milliseconds` have passed no further file is begun. The first one is begun in any case
    /// unless `control` is stopped.
    JointCopy(std::shared_ptr<FileSystem> files, std::vector<FileToCopy> copies,
              qint64 milliseconds, const CopyControl& control);

    /// Copies files until there are no more to begin.
    void TakePart();
    /// The same, and waits for those that others have begun.
    CopiedFiles Finish();

private:
    /// The rest of a copy that was begun; it may throw what has failed already.
    using Rest = std::function<bool()>;

    void End();
    std::optional<size_t> Take();
    bool IsOver() const;
    bool MustWait();
    bool AwaitsAnother(size_t index);
    bool Prepare(size_t index);
    Rest Begin(size_t index);
    void Put(size_t index, Rest rest);
    void Place(const Rest& place);

    std::shared_ptr<FileSystem> m_files;
    std::vector<FileToCopy> m_copies;
    QDeadlineTimer m_end;
    CopyControl m_control;

    std::mutex m_mutex;
    std::condition_variable m_changed;
    /// The number of files that were begun, and of those whose bytes are still being copied.
    size_t m_begun = 0;
    size_t m_underWay = 0;
    /// One of them is being prepared for.
    bool m_isPreparing = false;
    /// The targets of those that were begun.
    std::vector<QString> m_folded;
    /// Of each file that waits for its name.
    std::vector<Rest> m_rests;
    CopiedFiles m_copied;
    bool m_hasEnded = false;
};
