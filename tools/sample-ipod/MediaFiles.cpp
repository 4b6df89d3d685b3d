#include "tools/sample-ipod/MediaFiles.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QThread>

#include <algorithm>
#include <memory>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kPatchBytes = 65'536;
constexpr qint64 kHoleBytes = 10'000'000;

std::runtime_error Failure(const QString& text) {
    return std::runtime_error(text.toStdString());
}

QStringList EncoderOf(SampleFormat format) {
    switch (format) {
    case SampleFormat::Mp3:
        return {u"-c:a"_s, u"libmp3lame"_s, u"-b:a"_s, u"128k"_s};
    case SampleFormat::Aac:
        return {u"-c:a"_s, u"aac"_s, u"-f"_s, u"ipod"_s};
    case SampleFormat::AppleLossless:
        return {u"-c:a"_s, u"alac"_s, u"-f"_s, u"ipod"_s};
    case SampleFormat::Wav:
        return {u"-c:a"_s, u"pcm_s16le"_s, u"-f"_s, u"wav"_s};
    case SampleFormat::Aiff:
        return {u"-c:a"_s, u"pcm_s16be"_s, u"-f"_s, u"aiff"_s};
    case SampleFormat::Mpeg4Video:
    case SampleFormat::QuickTimeMovie:
        return {u"-c:v"_s,
                u"libx264"_s,
                u"-preset"_s,
                u"ultrafast"_s,
                u"-pix_fmt"_s,
                u"yuv420p"_s,
                u"-c:a"_s,
                u"aac"_s,
                u"-shortest"_s,
                u"-f"_s,
                format == SampleFormat::Mpeg4Video ? u"mp4"_s : u"mov"_s};
    }
    return {};
}

QStringList Arguments(const WantedFile& file, int number) {
    const CatalogueTrack& track = file.first;
    QStringList arguments{u"-nostdin"_s, u"-v"_s, u"error"_s, u"-y"_s};
    if (track.Format == SampleFormat::Mpeg4Video || track.Format == SampleFormat::QuickTimeMovie) {
        arguments << u"-f"_s << u"lavfi"_s << u"-i"_s
                  << u"testsrc=size=320x240:rate=25:duration=%1"_s.arg(track.Seconds);
    }
    arguments << u"-f"_s << u"lavfi"_s << u"-i"_s
              << u"sine=frequency=%1:sample_rate=44100:duration=%2"_s.arg(220 + 20 * number)
                     .arg(track.Seconds)
              << u"-ac"_s << u"2"_s << u"-metadata"_s << u"artist="_s + track.Artist
              << u"-metadata"_s << u"album="_s + track.Album << u"-metadata"_s
              << u"title="_s + track.Title << EncoderOf(track.Format) << file.second;
    return arguments;
}

void WritePatch(QFile& file, qint64 position, qint64 length, std::mt19937_64& generator) {
    QByteArray bytes(length, Qt::Uninitialized);
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(generator() >> 56); });
    if (!file.seek(position) || file.write(bytes) != length) {
        throw Failure(file.fileName() + u": "_s + file.errorString());
    }
}

} // namespace

void MakePlayableFiles(const std::vector<WantedFile>& files) {
    const QString ffmpeg = QStandardPaths::findExecutable(u"ffmpeg"_s);
    if (ffmpeg.isEmpty()) {
        throw Failure(u"The program ffmpeg is missing."_s);
    }
    const size_t atOnce = static_cast<size_t>(std::max(1, QThread::idealThreadCount()));
    for (size_t begin = 0; begin < files.size(); begin += atOnce) {
        std::vector<std::unique_ptr<QProcess>> running;
        for (size_t i = begin; i < std::min(files.size(), begin + atOnce); ++i) {
            running.push_back(std::make_unique<QProcess>());
            running.back()->start(ffmpeg, Arguments(files[i], static_cast<int>(i)));
        }
        for (const auto& process : running) {
            if (!process->waitForFinished(60'000) ||
                process->exitStatus() != QProcess::NormalExit || process->exitCode() != 0) {
                throw Failure(u"ffmpeg failed: "_s +
                              QString::fromLocal8Bit(process->readAllStandardError()));
            }
        }
    }
}

void MakeStandIns(const std::vector<WantedFile>& files) {
    std::mt19937_64 generator(20'260'101);
    for (const auto& [track, path] : files) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || !file.resize(track.StandInBytes)) {
            throw Failure(path + u": "_s + file.errorString());
        }
        const qint64 step = track.StandInBytes > 50'000'000 ? kHoleBytes : kPatchBytes;
        for (qint64 position = 0; position < track.StandInBytes; position += step) {
            WritePatch(file, position, std::min(kPatchBytes, track.StandInBytes - position),
                       generator);
        }
        if (track.StandInBytes > kPatchBytes) {
            WritePatch(file, track.StandInBytes - 1, 1, generator);
        }
    }
}
