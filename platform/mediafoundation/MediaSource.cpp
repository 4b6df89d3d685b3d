#include "platform/mediafoundation/MediaSource.h"

#include "platform/RuntimeError.h"
#include "platform/mediafoundation/FileStream.h"

#include <propvarutil.h>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto FirstSound = static_cast<DWORD>(MF_SOURCE_READER_FIRST_AUDIO_STREAM);
constexpr auto FirstFilm = static_cast<DWORD>(MF_SOURCE_READER_FIRST_VIDEO_STREAM);
constexpr auto AllStreams = static_cast<DWORD>(MF_SOURCE_READER_ALL_STREAMS);
constexpr auto WholeSource = static_cast<DWORD>(MF_SOURCE_READER_MEDIASOURCE);
constexpr double PerSecond = 1e7;
constexpr int BitsPerSample = 16;

ComPointer<IMFMediaType> FormatOf(IMFSourceReader& reader, DWORD stream) {
    IMFMediaType* type = nullptr;
    return ComPointer<IMFMediaType>(SUCCEEDED(reader.GetCurrentMediaType(stream, &type)) ? type
                                                                                         : nullptr);
}

ComPointer<IMFMediaType> NativeFormatOf(IMFSourceReader& reader, DWORD stream) {
    IMFMediaType* type = nullptr;
    return ComPointer<IMFMediaType>(
        SUCCEEDED(reader.GetNativeMediaType(stream, 0, &type)) ? type : nullptr);
}

int NumberIn(IMFMediaType& type, const GUID& key) {
    UINT32 number = 0;
    return SUCCEEDED(type.GetUINT32(key, &number)) ? static_cast<int>(number) : 0;
}

QSize PairIn(IMFMediaType& type, const GUID& key) {
    UINT64 pair = 0;
    return SUCCEEDED(type.GetUINT64(key, &pair))
               ? QSize(static_cast<int>(pair >> 32), static_cast<int>(pair & 0xffffffff))
               : QSize();
}

/// The file as the system can read it, which knows no AIFF; and the ending by which it recognises
/// it.
std::pair<ComPointer<IStream>, QString> StreamOf(std::shared_ptr<MediaFile> file,
                                                 const QString& suffix) {
    if (WaveOfAiff::IsAiff(*file)) {
        return {NewFileStream(std::make_shared<WaveOfAiff>(std::move(file))), u"wav"_s};
    }
    if (file->Seek(0) != 0) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    // An audio book is the same under a name of its own.
    const bool isBook = suffix.compare(u"m4b"_s, Qt::CaseInsensitive) == 0;
    return {NewFileStream(std::move(file)), isBook ? u"m4a"_s : suffix};
}

/// Lets the system recognise the file by its name, too.
void Name(IMFByteStream& stream, const QString& suffix) {
    IMFAttributes* attributes = nullptr;
    if (SUCCEEDED(
            stream.QueryInterface(IID_IMFAttributes, reinterpret_cast<void**>(&attributes)))) {
        const std::wstring name = (u"file."_s + suffix).toStdWString();
        attributes->SetString(MF_BYTESTREAM_ORIGIN_NAME, name.c_str());
        attributes->Release();
    }
}

/// Two pixels share a colour.
int Even(int pixels) {
    return (pixels + 1) / 2 * 2;
}

uchar Clamped(int value) {
    return static_cast<uchar>(std::clamp(value, 0, 255));
}

/// A picture of brightness (a byte a pixel) and colour (two bytes for four pixels), as decoders
/// give it.
QImage FromBrightnessAndColour(const uchar* brightness, const uchar* colour, qsizetype stride,
                               const QSize& size) {
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        const uchar* light = brightness + y * stride;
        const uchar* tint = colour + y / 2 * stride;
        for (int x = 0; x < size.width(); ++x) {
            const int c = 298 * (light[x] - 16) + 128;
            const int d = tint[x & ~1] - 128;
            const int e = tint[x | 1] - 128;
            line[x] = qRgb(Clamped((c + 409 * e) >> 8), Clamped((c - 100 * d - 208 * e) >> 8),
                           Clamped((c + 516 * d) >> 8));
        }
    }
    return picture;
}

} // namespace

MediaSource::MediaSource(const MediaFoundation& functions, std::shared_ptr<MediaFile> file,
                         const QString& suffix) {
    const auto [stream, ending] = StreamOf(std::move(file), suffix);
    IMFByteStream* bytes = nullptr;
    IMFSourceReader* reader = nullptr;
    if (SUCCEEDED(functions.CreateByteStream(stream.get(), &bytes))) {
        const ComPointer<IMFByteStream> owned(bytes);
        Name(*bytes, ending);
        if (SUCCEEDED(functions.CreateSourceReader(bytes, nullptr, &reader))) {
            m_reader.reset(reader);
        }
    }
    if (!m_reader) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    m_reader->SetStreamSelection(AllStreams, FALSE);
    ChooseSound(functions);
    ChooseFilm(functions);
    if (!HasSound() && !HasFilm()) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    PROPVARIANT duration;
    PropVariantInit(&duration);
    if (SUCCEEDED(m_reader->GetPresentationAttribute(WholeSource, MF_PD_DURATION, &duration)) &&
        duration.vt == VT_UI8) {
        m_duration = static_cast<double>(duration.uhVal.QuadPart) / PerSecond;
    }
    PropVariantClear(&duration);
}

bool MediaSource::SetFormat(const MediaFoundation& functions, DWORD stream, const GUID& kind,
                            const GUID& format, int channels) {
    IMFMediaType* made = nullptr;
    if (FAILED(functions.CreateMediaType(&made))) {
        return false;
    }
    const ComPointer<IMFMediaType> type(made);
    type->SetGUID(MF_MT_MAJOR_TYPE, kind);
    type->SetGUID(MF_MT_SUBTYPE, format);
    if (kind == MFMediaType_Audio) {
        type->SetUINT32(MF_MT_AUDIO_BITS_PER_SAMPLE, BitsPerSample);
    }
    if (channels > 0) {
        type->SetUINT32(MF_MT_AUDIO_NUM_CHANNELS, static_cast<UINT32>(channels));
    }
    return SUCCEEDED(m_reader->SetCurrentMediaType(stream, nullptr, type.get())) &&
           SUCCEEDED(m_reader->SetStreamSelection(stream, TRUE));
}

void MediaSource::ChooseSound(const MediaFoundation& functions) {
    const auto choose = [&](int channels) {
        return SetFormat(functions, FirstSound, MFMediaType_Audio, MFAudioFormat_PCM, channels);
    };
    // Most computers have two loudspeakers, which the system's own mixture suits best.
    const auto native = NativeFormatOf(*m_reader, FirstSound);
    const bool isSurround = native && NumberIn(*native, MF_MT_AUDIO_NUM_CHANNELS) > 2;
    const bool isSet = (isSurround && choose(2)) || choose(0);
    const auto type = isSet ? FormatOf(*m_reader, FirstSound) : nullptr;
    if (type && NumberIn(*type, MF_MT_AUDIO_BITS_PER_SAMPLE) == BitsPerSample) {
        m_channels = NumberIn(*type, MF_MT_AUDIO_NUM_CHANNELS);
        m_samplesPerSecond = NumberIn(*type, MF_MT_AUDIO_SAMPLES_PER_SECOND);
    }
}

void MediaSource::ChooseFilm(const MediaFoundation& functions) {
    if (SetFormat(functions, FirstFilm, MFMediaType_Video, MFVideoFormat_NV12)) {
        TakePictureFormat();
        if (const auto native = NativeFormatOf(*m_reader, FirstFilm)) {
            m_rotation = NumberIn(*native, MF_MT_VIDEO_ROTATION);
        }
    }
}

void MediaSource::TakePictureFormat() {
    const auto type = FormatOf(*m_reader, FirstFilm);
    const QSize coded = type ? PairIn(*type, MF_MT_FRAME_SIZE) : QSize();
    if (coded.isEmpty()) {
        return;
    }
    m_codedSize = coded;
    m_pictureSize = m_codedSize;
    MFVideoArea seen{};
    if (SUCCEEDED(type->GetBlob(MF_MT_MINIMUM_DISPLAY_APERTURE, reinterpret_cast<UINT8*>(&seen),
                                sizeof seen, nullptr)) &&
        seen.Area.cx > 0 && seen.Area.cy > 0) {
        m_pictureSize = QSize(seen.Area.cx, seen.Area.cy).boundedTo(m_codedSize);
    }
    const QSize pixel = PairIn(*type, MF_MT_PIXEL_ASPECT_RATIO);
    const double shape = pixel.isEmpty() ? 1 : pixel.width() / static_cast<double>(pixel.height());
    m_pixelShape = std::clamp(shape, 0.1, 10.0);
}

QSize MediaSource::PictureSize() const {
    const QSize size(qRound(m_pictureSize.width() * m_pixelShape), m_pictureSize.height());
    return m_rotation % 180 == 0 ? size : size.transposed();
}

std::optional<MediaSource::Sound> MediaSource::ReadSound() {
    Sound sound{};
    const ComPointer<IMFSample> sample = Read(FirstSound, sound.Time);
    IMFMediaBuffer* joined = nullptr;
    if (!sample || FAILED(sample->ConvertToContiguousBuffer(&joined))) {
        return std::nullopt;
    }
    const ComPointer<IMFMediaBuffer> buffer(joined);
    BYTE* bytes = nullptr;
    DWORD size = 0;
    if (FAILED(buffer->Lock(&bytes, nullptr, &size))) {
        return std::nullopt;
    }
    sound.Samples = QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size));
    buffer->Unlock();
    return sound;
}

std::optional<MediaSource::Frame> MediaSource::ReadFrame() {
    Frame frame{};
    const ComPointer<IMFSample> sample = Read(FirstFilm, frame.Time);
    IMFMediaBuffer* joined = nullptr;
    if (!sample || FAILED(sample->ConvertToContiguousBuffer(&joined))) {
        return std::nullopt;
    }
    const ComPointer<IMFMediaBuffer> buffer(joined);
    frame.Picture = ToPicture(*buffer);
    return frame;
}

void MediaSource::SeekTo(double position) {
    PROPVARIANT place;
    PropVariantInit(&place);
    place.vt = VT_I8;
    place.hVal.QuadPart = static_cast<LONGLONG>(position * PerSecond);
    m_reader->SetCurrentPosition(GUID_NULL, place);
}

/// The next sample of a stream; null at its end.
ComPointer<IMFSample> MediaSource::Read(DWORD stream, double& time) {
    while (true) {
        DWORD flags = 0;
        LONGLONG stamp = 0;
        IMFSample* sample = nullptr;
        if (FAILED(m_reader->ReadSample(stream, 0, nullptr, &flags, &stamp, &sample)) ||
            (flags & (MF_SOURCE_READERF_ENDOFSTREAM | MF_SOURCE_READERF_ERROR)) != 0) {
            return ComPointer<IMFSample>(sample != nullptr ? (sample->Release(), nullptr)
                                                           : nullptr);
        }
        if (stream == FirstFilm && (flags & MF_SOURCE_READERF_CURRENTMEDIATYPECHANGED) != 0) {
            TakePictureFormat();
        }
        if (sample != nullptr) {
            time = static_cast<double>(stamp) / PerSecond;
            return ComPointer<IMFSample>(sample);
        }
    }
}

QImage MediaSource::ToPicture(IMFMediaBuffer& buffer) const {
    IMF2DBuffer2* found = nullptr;
    buffer.QueryInterface(IID_IMF2DBuffer2, reinterpret_cast<void**>(&found));
    const ComPointer<IMF2DBuffer2> lines(found);
    BYTE* begin = nullptr;
    BYTE* bytes = nullptr;
    DWORD length = 0;
    LONG stride = 0;
    const bool hasLines = lines && SUCCEEDED(lines->Lock2DSize(MF2DBuffer_LockFlags_Read, &bytes,
                                                               &stride, &begin, &length));
    if (!hasLines && FAILED(buffer.Lock(&bytes, nullptr, &length))) {
        return {};
    }
    QImage picture;
    const qsizetype size = hasLines ? begin + length - bytes : length;
    const int height = Even(m_codedSize.height());
    if (!hasLines && height > 0) {
        // What the film's format says of it is not right everywhere.
        stride = static_cast<LONG>(size / (height / 2 * 3));
    }
    const qsizetype brightness = qsizetype(stride) * height;
    const qsizetype colour = qsizetype(stride) * Even(m_pictureSize.height()) / 2;
    if (stride >= Even(m_pictureSize.width()) && size >= brightness + colour) {
        picture = FromBrightnessAndColour(bytes, bytes + brightness, stride, m_pictureSize);
    }
    if (hasLines) {
        lines->Unlock2D();
    } else {
        buffer.Unlock();
    }
    return picture;
}
