#include "platform/player/WaveOfAiff.h"

#include "platform/RuntimeError.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace {

/// The sampling rate is a number of 80 bits: an exponent, and a mantissa with all its digits.
double ExtendedNumber(const char* bytes) {
    const int exponent = qFromBigEndian<quint16>(bytes);
    return std::ldexp(static_cast<double>(qFromBigEndian<quint64>(bytes + 2)),
                      exponent - 16383 - 63);
}

template <class Number>
void Append(QByteArray& bytes, Number number) {
    number = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

} // namespace

bool WaveOfAiff::IsAiff(MediaFile& file) {
    const QByteArray start = file.ReadAt(0, 12);
    return start.startsWith("FORM") && (start.endsWith("AIFF") || start.endsWith("AIFC"));
}

WaveOfAiff::WaveOfAiff(std::shared_ptr<MediaFile> file) : m_file(std::move(file)) {
    constexpr int mostChunks = 1000;
    const bool isCompressible = m_file->ReadAt(8, 4) == "AIFC";
    qint64 position = 12;
    for (int i = 0; i < mostChunks && position < m_file->Size(); ++i) {
        const QByteArray header = m_file->ReadAt(position, 8);
        if (header.size() < 8) {
            break;
        }
        const qint64 size = qFromBigEndian<quint32>(header.constData() + 4);
        position += header.size();
        if (header.startsWith("COMM")) {
            TakeFormat(m_file->ReadAt(position, std::min<qint64>(size, 22)), isCompressible);
        } else if (header.startsWith("SSND")) {
            TakeSound(position, size);
        }
        position += size + size % 2;
    }
    constexpr qint64 mostBytes = 0xffff'ff00; // WAVE files count them in 32 bits
    if (m_channels > 0) {
        m_frames = std::min({m_frames, m_soundSize / m_fileFrameSize, mostBytes / FrameSize()});
    }
    if (m_channels == 0 || m_frames <= 0) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    MakeHeader();
}

/// Leaves m_channels at 0 for a format that cannot be played.
void WaveOfAiff::TakeFormat(const QByteArray& chunk, bool isCompressible) {
    const QByteArray coding = isCompressible ? chunk.mid(18, 4) : QByteArray("NONE");
    m_channels = 0;
    if (chunk.size() < 18 + (isCompressible ? 4 : 0)) {
        return;
    }
    const int channels = qFromBigEndian<quint16>(chunk.constData());
    const int bits = qFromBigEndian<quint16>(chunk.constData() + 6);
    const double rate = ExtendedNumber(chunk.constData() + 8);
    const bool isFloat = coding == "fl32" || coding == "FL32";
    const bool isKnown =
        isFloat ? bits == 32 : coding == "NONE" || coding == "twos" || coding == "sowt";
    if (!isKnown || channels < 1 || channels > 8 || bits < 1 || bits > 32 || rate < 1000 ||
        rate > 200'000) {
        return;
    }
    m_coding = isFloat            ? Coding::Float
               : coding == "sowt" ? Coding::LittleEndian
                                  : Coding::BigEndian;
    m_channels = std::min(channels, 2);
    m_frames = qFromBigEndian<quint32>(chunk.constData() + 2);
    m_framesPerSecond = static_cast<quint32>(std::lround(rate));
    m_fileSampleSize = (bits + 7) / 8;
    m_fileFrameSize = channels * m_fileSampleSize;
}

/// `size` is what the chunk says of itself.
void WaveOfAiff::TakeSound(qint64 position, qint64 size) {
    constexpr qint64 offsetAndBlockSize = 8;
    const QByteArray offset = m_file->ReadAt(position, 4);
    if (offset.size() == 4) {
        const qint64 before = offsetAndBlockSize + qFromBigEndian<quint32>(offset.constData());
        m_sound = position + before;
        m_soundSize = std::min(size - before, m_file->Size() - m_sound);
    }
}

void WaveOfAiff::MakeHeader() {
    const auto soundSize = static_cast<quint32>(m_frames * FrameSize());
    const auto frameSize = static_cast<quint16>(FrameSize());
    m_header = "RIFF";
    Append<quint32>(m_header, soundSize + 36);
    m_header += "WAVEfmt ";
    Append<quint32>(m_header, 16); // bytes that follow of the format, which is 1: not compressed
    Append<quint16>(m_header, 1);
    Append<quint16>(m_header, static_cast<quint16>(m_channels));
    Append<quint32>(m_header, m_framesPerSecond);
    Append<quint32>(m_header, m_framesPerSecond * frameSize);
    Append<quint16>(m_header, frameSize);
    Append<quint16>(m_header, 16);
    m_header += "data";
    Append<quint32>(m_header, soundSize);
}

qint64 WaveOfAiff::Read(char* buffer, qint64 size) {
    constexpr qint64 mostFrames = 16384; // at once
    size = std::min(size, Size() - m_position);
    qint64 have = 0;
    while (have < size) {
        const qint64 inSound = m_position - m_header.size();
        QByteArray part = m_header.mid(m_position);
        if (inSound >= 0) {
            const qint64 first = inSound / FrameSize();
            part = ReadFrames(first, std::min({mostFrames, (size - have) / FrameSize() + 2,
                                               m_frames - first}))
                       .mid(inSound % FrameSize());
        }
        if (part.isEmpty()) {
            return -1;
        }
        const qint64 count = std::min(part.size(), size - have);
        std::memcpy(buffer + have, part.constData(), static_cast<size_t>(count));
        have += count;
        m_position += count;
    }
    return have;
}

qint64 WaveOfAiff::Seek(qint64 position) {
    m_position = position >= 0 ? position : m_position;
    return position >= 0 ? position : -1;
}

/// These frames as the WAVE file has them; nothing where they cannot be read. Of many channels the
/// first two are taken.
QByteArray WaveOfAiff::ReadFrames(qint64 first, qint64 count) {
    const QByteArray frames =
        m_file->ReadAt(m_sound + first * m_fileFrameSize, count * m_fileFrameSize);
    QByteArray samples;
    if (frames.size() == count * m_fileFrameSize) {
        samples.reserve(count * FrameSize());
        for (qint64 frame = 0; frame < frames.size(); frame += m_fileFrameSize) {
            for (int channel = 0; channel < m_channels; ++channel) {
                Append(samples, SampleAt(frames.constData() + frame + channel * m_fileSampleSize));
            }
        }
    }
    return samples;
}

qint16 WaveOfAiff::SampleAt(const char* bytes) const {
    if (m_coding == Coding::Float) {
        const float value = qFromBigEndian<float>(bytes);
        return static_cast<qint16>(std::isnan(value) ? 0 : std::clamp(value, -1.0F, 1.0F) * 32767);
    }
    // The two bytes of most weight; those of less are not heard.
    const qint64 last = m_fileSampleSize - 1;
    const bool isLittle = m_coding == Coding::LittleEndian;
    const int high = bytes[isLittle ? last : 0];
    const int low = last == 0 ? 0 : static_cast<uchar>(bytes[isLittle ? last - 1 : 1]);
    return static_cast<qint16>(high * 256 + low);
}
