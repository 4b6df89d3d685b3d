#pragma once

#include "platform/Controls.h"
#include "platform/EventLoop.h"
#include "platform/FileSystem.h"

/// Copies one large file in chunks through a temporary file, so that the user sees it move and can
/// stop it.
class ChunkedCopy {
public:
    /// `CopiedBytes` (what the job copied before this file) and `CancelCopy` belong to the job and
    /// are only read.
    ChunkedCopy(FileSystem& files, EventLoop& events, ProgressControl& prgCopy,
                const double& CopiedBytes, const bool& CancelCopy);

    /// Copies `Source` to `Destination` by way of "copy.tmp" in the folder `Base`, which ends in
    /// a separator, `BytesAtOnce` bytes at a time. An earlier Destination stays until all bytes are
    /// there. False when cancelled: Destination is untouched then, and the temporary file stays.
    /// Throws RuntimeError when a step fails.
    bool NewCopy(const QString& Source, const QString& Destination, const QString& Base,
                 qint32 BytesAtOnce);

private:
    bool CopyChunks(BinaryFile& source, BinaryFile& temp, qint64 size, qint32 bytesAtOnce);
    bool CancelledAfterChunk(qint64 done);

    FileSystem& m_files;
    EventLoop& m_events;
    ProgressControl& m_prgCopy;
    const double& m_copiedBytes;
    const bool& m_cancelCopy;
};
