#include "copy/FileTransfer.h"

#include "platform/Paths.h"

#include <QElapsedTimer>

#include <algorithm>
#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Where files take more milliseconds than this each, they are copied one by one, and the next one
/// is opened while the one before is copied.
constexpr qint64 Slow = 5;

/// At most this many files are copied together: about as many as fit in before the next yield.
constexpr size_t MostTogether = 100;

/// False where `copy` has failed because of a file that may not be replaced.
bool Succeeds(const std::function<void()>& copy, Existing existing) {
    try {
        copy();
        return true;
    } catch (const RuntimeError& error) {
        if (existing == Existing::Replace || error.Number != ErrorNumber::FileAlreadyExists) {
            throw;
        }
        return false;
    }
}

} // namespace

FileTransfer::FileTransfer(PatientFileSystem& files, EventLoop& events, CopyTargets& targets,
                           const std::function<bool()>& AfterChunk)
    : m_files(files), m_events(events), m_targets(targets), m_chunkedCopy(files, AfterChunk) {
}

void FileTransfer::StartOver() {
    m_copying = {};
    m_copied = {};
    m_together = MostTogether;
    m_milliseconds = 0;
}

void FileTransfer::SetFollowing(std::span<PlannedTrack> following) {
    m_following = following;
    m_ahead = following.empty() ? QString() : following.front().Track.Location;
}

/// The files that follow are copied in the same call, as many as fit in before the next yield is
/// due: the user could neither see nor stop anything in between. When their turn comes, they are
/// there.
bool FileTransfer::CopyNew(const PlannedTrack& planned, const QString& folder) {
    m_copying = {};
    m_fileSize = planned.Track.FileSize;
    if (m_copied.Count == 0 && !m_copied.Failure && !m_copied.IsRefused) {
        QElapsedTimer clock;
        clock.start();
        const std::vector<FileToCopy> files = FilesToCopy(planned, folder);
        m_copied = m_files.CopyNewFiles(files, m_events.MillisecondsToYield(), m_copying);
        if (m_copied.Count > 0) {
            m_milliseconds = clock.elapsed() / static_cast<qint64>(m_copied.Count);
        }
        m_together = std::clamp<size_t>(2 * m_copied.Count, 2, MostTogether);
        ForgetNames(files);
    }
    if (m_copied.Count > 0) {
        --m_copied.Count;
        return true;
    }
    const CopiedFiles none = std::exchange(m_copied, {});
    if (none.Failure) {
        Succeeds([&] { std::rethrow_exception(none.Failure); }, Existing::Keep);
    }
    return false;
}

bool FileTransfer::Copy(const TrackRecord& track, const QString& target, Existing existing) {
    m_copying = {};
    m_fileSize = track.FileSize;
    QElapsedTimer clock;
    clock.start();
    const auto copy = [&] {
        CopyBytes(track, target, existing);
        m_milliseconds = clock.elapsed();
    };
    return Succeeds(copy, existing);
}

void FileTransfer::CopyBytes(const TrackRecord& track, const QString& target, Existing existing) {
    if (!IsLarge(track)) {
        m_files.CopyFile(track.Location, target, existing, m_copying);
        return;
    }
    const QString base = Paths::WithSeparator(m_targets.TemporaryFolder());
    if (!m_chunkedCopy.NewCopy(track.Location, target, base, LargeFileLimit, existing, m_copying)) {
        throw OperationStopped{};
    }
}

qint64 FileTransfer::BytesDone() const {
    return std::min(m_copying.BytesDone(), m_fileSize);
}

/// Once most of a file is there: earlier, a disk would have to go to and fro between the two.
void FileTransfer::ReadNextAhead() {
    if (!m_ahead.isEmpty() && m_copying.BytesDone() > m_fileSize / 2) {
        m_files.ReadAhead(std::exchange(m_ahead, QString()));
    }
}

/// The file at hand, and those that may be copied together with it.
std::vector<FileToCopy> FileTransfer::FilesToCopy(const PlannedTrack& planned,
                                                  const QString& folder) {
    std::vector<FileToCopy> files = {{planned.Track.Location, folder + planned.FileName}};
    if (m_events.MillisecondsToYield() == 0 || m_milliseconds >= Slow) {
        return files;
    }
    m_ahead.clear();
    m_targets.ForgetAhead();
    QString target = folder;
    const QStringList* folders = &planned.Folders;
    for (PlannedTrack& next : m_following.first(std::min(m_following.size(), m_together - 1))) {
        const bool isElsewhere = next.Folders != *folders;
        // Where a folder's names count as used in the next one, they cannot be taken back.
        if (isElsewhere != next.StartsFolder || IsLarge(next.Track)) {
            break;
        }
        FolderAhead other;
        if (isElsewhere) {
            other = m_targets.ChooseAhead(next.Folders);
            target = other.Path;
            folders = &next.Folders;
        }
        m_targets.NameFile(next);
        files.push_back({next.Track.Location, target + next.FileName, other.Enter});
        m_fileSize += next.Track.FileSize;
    }
    return files;
}

/// Takes back the names in folders of which no file was copied: they may hold other names.
void FileTransfer::ForgetNames(const std::vector<FileToCopy>& files) {
    bool isReached = true;
    for (size_t i = std::max<size_t>(m_copied.Count, 1); i < files.size(); ++i) {
        isReached = isReached && !files[i].Prepare;
        if (!isReached) {
            m_following[i - 1].FileName.clear();
        }
    }
}
