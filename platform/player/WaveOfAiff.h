#pragma once

#include "platform/player/MediaFile.h"

#include <QByteArray>

#include <memory>

/// The uncompressed sound of an AIFF file, read as if it were a WAVE file of 16 bits with one or
/// two channels. For one thread.
class WaveOfAiff {
public:
    /// Leaves the file at some other position.
    static bool IsAiff(MediaFile& file);

    /// Throws RuntimeError where the sound is compressed, or damaged so that none is left.
    explicit WaveOfAiff(std::shared_ptr<MediaFile> file);

    // What MediaFile has, of the WAVE file.
    qint64 Size() const { return m_header.size() + m_frames * FrameSize(); }
    qint64 Read(char* buffer, qint64 size);
    qint64 Seek(qint64 position);

private:
    enum class Coding { BigEndian, LittleEndian, Float };

    void TakeFormat(const QByteArray& chunk, bool isCompressible);
    void TakeSound(qint64 position, qint64 size);
    void MakeHeader();
    qint64 FrameSize() const { return 2 * m_channels; }
    QByteArray ReadFrames(qint64 first, qint64 count);
    qint16 SampleAt(const char* bytes) const;

    std::shared_ptr<MediaFile> m_file;
    /// Of the WAVE file.
    QByteArray m_header;
    int m_channels = 0;
    qint64 m_frames = 0;
    quint32 m_framesPerSecond = 0;
    /// In the AIFF file: where the sound begins, and how many bytes are there.
    qint64 m_sound = 0, m_soundSize = 0;
    qint64 m_fileFrameSize = 0, m_fileSampleSize = 0;
    Coding m_coding = Coding::BigEndian;
    qint64 m_position = 0;
};
