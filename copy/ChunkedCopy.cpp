#include "copy/ChunkedCopy.h"

#include "platform/RuntimeError.h"

#include <algorithm>

ChunkedCopy::ChunkedCopy(FileSystem& files, EventLoop& events, ProgressControl& prgCopy,
                         const double& CopiedBytes, const bool& CancelCopy)
    : m_files(files), m_events(events), m_prgCopy(prgCopy), m_copiedBytes(CopiedBytes),
      m_cancelCopy(CancelCopy) {
}

bool ChunkedCopy::NewCopy(const QString& Source, const QString& Destination, const QString& Base,
                          qint32 BytesAtOnce) {
    if (BytesAtOnce < 1) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    const QString temp = Base + QStringLiteral("copy.tmp");
    if (!m_files.FolderExists(Base)) {
        m_files.CreateFolder(Base);
    }
    const qint64 size = m_files.FileLength(Source);
    const std::unique_ptr<BinaryFile> reading = m_files.OpenForReading(Source);
    // Kept until it stands under its final name: so long no other copy takes it.
    const std::unique_ptr<BinaryFile> writing = m_files.OpenForReadingAndWriting(temp);
    if (!CopyChunks(*reading, *writing, size, BytesAtOnce)) {
        return false;
    }
    m_files.CopyModificationTime(Source, temp);
    m_files.MoveFile(temp, Destination);
    return true;
}

/// Fills the temporary file with the `size` bytes of `source`, and closes both; false when
/// cancelled.
bool ChunkedCopy::CopyChunks(BinaryFile& source, BinaryFile& temp, qint64 size,
                             qint32 bytesAtOnce) {
    for (qint64 done = 0;;) {
        const qint64 chunk = std::min<qint64>(size - done, bytesAtOnce);
        const bool isLast = size - done <= bytesAtOnce;
        if (chunk > 0) {
            temp.WriteFrom(source, chunk);
        }
        done += chunk;
        const bool cancelled = !isLast && CancelledAfterChunk(done);
        if (isLast) {
            // A longer file left behind by an earlier copy would keep its tail.
            temp.Truncate(size);
        }
        if (isLast || cancelled) {
            source.Close();
            temp.Close();
            return !cancelled;
        }
    }
}

bool ChunkedCopy::CancelledAfterChunk(qint64 done) {
    m_prgCopy.SetValue(static_cast<float>(static_cast<double>(done) + m_copiedBytes));
    m_events.Yield();
    return m_cancelCopy;
}
