#include "copy/ChunkedCopy.h"

#include "copy/EnsureFolder.h"
#include "platform/RuntimeError.h"
#include "platform/ScopeGuard.h"

#include <utility>

using namespace Qt::StringLiterals;

ChunkedCopy::ChunkedCopy(FileSystem& files, std::function<bool(qint64 done)> AfterChunk)
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
    // What could not be put in its place is told before a long copy, not after it.
    m_files.RequireTarget(Destination, existing);
    // Kept until it stands under its final name: so long no other copy takes it.
    const std::unique_ptr<BinaryFile> writing = m_files.OpenForReadingAndWriting(temp);
    // The job may go on without this file for hours, or be left by quitting.
    ScopeGuard failed([&] { m_files.DeleteFile(*writing); });
    const bool isCopied = CopyChunks(*reading, *writing, size, BytesAtOnce, control) &&
                          m_files.MoveFile(*writing, Destination, existing, control);
    failed.Dismiss();
    return isCopied;
}

/// Fills the temporary file with the `size` bytes of `source`, and closes both. False when
/// cancelled: nothing comes of the bytes, so whoever owns the files may close them unheard.
bool ChunkedCopy::CopyChunks(BinaryFile& source, BinaryFile& temp, qint64 size, qint32 bytesAtOnce,
                             const CopyControl& control) {
    qint64 done = 0;
    while (size - done > bytesAtOnce) {
        if (!temp.WriteFrom(source, bytesAtOnce, control)) {
            return false;
        }
        done += bytesAtOnce;
        if (!m_afterChunk(done)) {
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
