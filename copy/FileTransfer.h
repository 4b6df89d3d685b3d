#pragma once

#include "copy/ChunkedCopy.h"
#include "copy/CopyTargets.h"
#include "platform/EventLoop.h"

#include <span>
#include <vector>

/// Copies the files of a job: large ones in chunks, small ones that are new several at once. While
/// one is copied, the next one is read ahead.
class FileTransfer {
public:
    /// `AfterChunk` is called once after every chunk of a large file but the last; false stops it.
    FileTransfer(PatientFileSystem& files, EventLoop& events, CopyTargets& targets,
                 const std::function<bool()>& AfterChunk);

    /// A job begins.
    void StartOver();
    /// These tracks follow the one at hand.
    void SetFollowing(std::span<PlannedTrack> following);
    /// The file at hand is copied or given up.
    void FinishFile() { m_copying = {}; }

    /// The file is copied in chunks.
    static bool IsLarge(const TrackRecord& track) { return track.FileSize > LargeFileLimit; }
    /// Copies a small file into `folder`, which usually exists and holds no file of that name.
    /// False where the copy would replace something, or the folder is gone.
    bool CopyNew(const PlannedTrack& planned, const QString& folder);
    /// Copies a file to `target`. False where a file is in the way that may not be replaced. Throws
    /// OperationStopped if it is stopped.
    bool Copy(const TrackRecord& track, const QString& target, Existing existing);

    /// The bytes of the file at hand that are copied, and of those that are copied with it; never
    /// more than the database says they have.
    qint64 BytesDone() const;
    /// To be called again and again while a file is copied.
    void ReadNextAhead();

private:
    /// Tracks above this many bytes are copied in chunks of this size.
    static constexpr qint32 LargeFileLimit = 50000000;

    void CopyBytes(const TrackRecord& track, const QString& target, Existing existing);
    std::vector<FileToCopy> FilesToCopy(const PlannedTrack& planned, const QString& folder);
    void ForgetNames(const std::vector<FileToCopy>& files);

    PatientFileSystem& m_files;
    EventLoop& m_events;
    CopyTargets& m_targets;
    ChunkedCopy m_chunkedCopy;

    /// The file that is being copied, and the bytes that the database says it has.
    CopyControl m_copying;
    qint64 m_fileSize = 0;
    /// The file of the next track, until it is read ahead.
    QString m_ahead;
    /// The tracks after the one at hand, and what became of the first of them already.
    std::span<PlannedTrack> m_following;
    CopiedFiles m_copied;
    /// How many files to try to copy together: twice as many as the last time, since those that
    /// are not reached were named in vain.
    size_t m_together = 0;
    /// How long a file took the last time, and the folders that were made for it.
    qint64 m_milliseconds = 0;
};
