#pragma once

#include "platform/mediafoundation/MediaFoundation.h"
#include "platform/player/MediaFile.h"

#include <QByteArray>
#include <QImage>

#include <memory>
#include <optional>

/// What is decoded of a file's sound and film. For one thread. Times are in seconds.
class MediaSource {
public:
    struct Sound {
        double Time;
        QByteArray Samples;
    };
    struct Frame {
        double Time;
        QImage Picture;
    };

    /// Throws RuntimeError for a file that cannot be played. `suffix` helps to recognise it.
    MediaSource(const MediaFoundation& functions, std::shared_ptr<MediaFile> file,
                const QString& suffix);

    bool HasSound() const { return m_channels > 0; }
    int Channels() const { return m_channels; }
    int SamplesPerSecond() const { return m_samplesPerSecond; }
    bool HasFilm() const { return !m_pictureSize.isEmpty(); }
    /// As the picture is to be seen, upright.
    QSize PictureSize() const;
    /// How a picture must be turned clockwise to be seen upright.
    int Rotation() const { return m_rotation; }
    double Duration() const { return m_duration; }

    /// What comes next; nothing at the end, or where the file cannot be read any more.
    std::optional<Sound> ReadSound();
    std::optional<Frame> ReadFrame();
    void SeekTo(double position);

private:
    void ChooseSound(const MediaFoundation& functions);
    void ChooseFilm(const MediaFoundation& functions);
    void TakePictureFormat();
    bool SetFormat(const MediaFoundation& functions, DWORD stream, const GUID& kind,
                   const GUID& format, int channels = 0);
    ComPointer<IMFSample> Read(DWORD stream, double& time);
    QImage ToPicture(IMFMediaBuffer& buffer) const;

    ComPointer<IMFSourceReader> m_reader;
    int m_channels = 0;
    int m_samplesPerSecond = 0;
    /// Of the decoded picture, and the part of it that is seen.
    QSize m_codedSize;
    QSize m_pictureSize;
    /// How many times as wide as high its pixels are.
    double m_pixelShape = 1;
    int m_rotation = 0;
    double m_duration = 0;
};
