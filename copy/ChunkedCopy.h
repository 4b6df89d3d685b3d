#pragma once

#include "platform/FileSystem.h"

#include <functional>

/// Copies one large file in chunks through a temporary file, so that the user sees its progress and
/// can stop it.
class ChunkedCopy {
public:
    /// `AfterChunk` is called once after every chunk but the last; false cancels the copy.
    ChunkedCopy(FileSystem& files, std::function<bool()> AfterChunk);

    /// Copies `Source` to `Destination` by way of "copy.tmp" in the folder `Base`, which ends in
    /// a separator, `BytesAtOnce` bytes at a time. An earlier Destination stays until all bytes are
    /// there, and for good unless `existing` lets it be replaced. False when cancelled: Destination
    /// is untouched then, and the temporary file stays. Throws RuntimeError when a step fails; then
    /// the temporary file is deleted. `control` counts the bytes, and stops it inside a chunk.
    bool NewCopy(const QString& Source, const QString& Destination, const QString& Base,
                 qint32 BytesAtOnce, Existing existing, const CopyControl& control);

private:
    bool CopyChunks(BinaryFile& source, BinaryFile& temp, qint64 size, qint32 bytesAtOnce,
                    const CopyControl& control);

    FileSystem& m_files;
    std::function<bool()> m_afterChunk;
};
