#include "copy/ChunkedCopy.h"

#include "copy/EnsureFolder.h"
#include "platform/RuntimeError.h"
#include "platform/ScopeGuard.h"

#include <utility>

using namespace Qt::StringLiterals;

ChunkedCopy::ChunkedCopy(FileSystem& files, std::function<bool()> AfterChunk)
    : m_files(files), m_afterChunk(std::move(AfterChunk)) {
}

bool ChunkedCopy::NewCopy(const QString& Source, const QString& Destination, const QString& Base,
                          qint32 BytesAtOnce, Existing existing, const CopyControl& control) {
    if (BytesAtOnce < 1) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    const QString temp = Base + u"copy.tmp"_s;
    EnsureFolder(m_files, Base);
    const qint64 size = m_files.FileLength(Source);
    const std::unique_ptr<BinaryFile> reading = m_files.OpenForReading(Source);
    // A copy that could not get its final name fails before its bytes are copied, not after.
    m_files.RequireTarget(Destination, existing);
    // Open until it has its final name, so that no other copy takes it.
    const std::unique_ptr<BinaryFile> writing = m_files.OpenForReadingAndWriting(temp);
    // Deleted at once: the job may go on for hours, and quitting cleans nothing up.
    ScopeGuard failed([&] { m_files.DeleteFile(*writing); });
    const bool isCopied = CopyChunks(*reading, *writing, size, BytesAtOnce, control) &&
                          m_files.MoveFile(*writing, Destination, existing, control);
    failed.Dismiss();
    return isCopied;
}

/// Fills the temporary file with the `size` bytes of `source`, and closes both. False when
/// cancelled; both are then left for their owners to close.
bool ChunkedCopy::CopyChunks(BinaryFile& source, BinaryFile& temp, qint64 size, qint32 bytesAtOnce,
                             const CopyControl& control) {
    qint64 done = 0;
    while (size - done > bytesAtOnce) {
        if (!temp.WriteFrom(source, bytesAtOnce, control)) {
            return false;
        }
        done += bytesAtOnce;
        if (!m_afterChunk()) {
            return false;
        }
    }
    if (size > done && !temp.WriteFrom(source, size - done, control)) {
        return false;
    }
    // A longer file left behind by an earlier copy would keep its tail.
    temp.Truncate(size);
    temp.Close();
    temp.TakeModificationTime(source);
    source.Close();
    return true;
}
