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
    if (!CopyToTemp(Source, temp, BytesAtOnce)) {
        return false;
    }
    try {
        m_files.CopyModificationTime(Source, temp);
    } catch (const RuntimeError&) {
        // The bytes are what matters; some drives keep no times.
    }
    m_files.MoveFile(temp, Destination);
    return true;
}

/// Fills the temporary file with the bytes of `source`; false when cancelled.
bool ChunkedCopy::CopyToTemp(const QString& source, const QString& temp, qint32 bytesAtOnce) {
    const qint64 size = m_files.FileLength(source);
    const std::unique_ptr<BinaryFile> reading = m_files.OpenForReading(source);
    const std::unique_ptr<BinaryFile> writing = m_files.OpenForReadingAndWriting(temp);
    for (qint64 done = 0;;) {
        const qint64 chunk = std::min<qint64>(size - done, bytesAtOnce);
        const bool isLast = size - done <= bytesAtOnce;
        if (chunk > 0) {
            writing->WriteFrom(*reading, chunk);
        }
        done += chunk;
        const bool cancelled = !isLast && CancelledAfterChunk(done);
        if (isLast) {
            // A longer file left behind by an earlier copy would keep its tail.
            writing->Truncate(size);
        }
        if (isLast || cancelled) {
            reading->Close();
            writing->Close();
            return !cancelled;
        }
    }
}

bool ChunkedCopy::CancelledAfterChunk(qint64 done) {
    m_prgCopy.SetValue(static_cast<float>(static_cast<double>(done) + m_copiedBytes));
    m_events.Yield();
    return m_cancelCopy;
}
