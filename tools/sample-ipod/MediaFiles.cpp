#include "tools/sample-ipod/MediaFiles.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QThread>

#include <algorithm>
#include <memory>
#include <random>

namespace {

constexpr qint64 kPatchBytes = 65'536;
constexpr qint64 kHoleBytes = 10'000'000;

std::runtime_error Failure(const QString& text) {
    return std::runtime_error(text.toStdString());
}

QStringList EncoderOf(SampleFormat format) {
    switch (format) {
    case SampleFormat::Mp3:
        return {QStringLiteral("-c:a"), QStringLiteral("libmp3lame"), QStringLiteral("-b:a"),
                QStringLiteral("128k")};
    case SampleFormat::Aac:
        return {QStringLiteral("-c:a"), QStringLiteral("aac"), QStringLiteral("-f"),
                QStringLiteral("ipod")};
    case SampleFormat::AppleLossless:
        return {QStringLiteral("-c:a"), QStringLiteral("alac"), QStringLiteral("-f"),
                QStringLiteral("ipod")};
    case SampleFormat::Wav:
        return {QStringLiteral("-c:a"), QStringLiteral("pcm_s16le"), QStringLiteral("-f"),
                QStringLiteral("wav")};
    case SampleFormat::Aiff:
        return {QStringLiteral("-c:a"), QStringLiteral("pcm_s16be"), QStringLiteral("-f"),
                QStringLiteral("aiff")};
    case SampleFormat::Mpeg4Video:
    case SampleFormat::QuickTimeMovie:
        return {QStringLiteral("-c:v"),
                QStringLiteral("libx264"),
                QStringLiteral("-preset"),
                QStringLiteral("ultrafast"),
                QStringLiteral("-pix_fmt"),
                QStringLiteral("yuv420p"),
                QStringLiteral("-c:a"),
                QStringLiteral("aac"),
                QStringLiteral("-shortest"),
                QStringLiteral("-f"),
                format == SampleFormat::Mpeg4Video ? QStringLiteral("mp4") : QStringLiteral("mov")};
    }
    return {};
}

QStringList Arguments(const WantedFile& file, int number) {
    const CatalogueTrack& track = file.first;
    QStringList arguments{QStringLiteral("-nostdin"), QStringLiteral("-v"), QStringLiteral("error"),
                          QStringLiteral("-y")};
    if (track.Format == SampleFormat::Mpeg4Video || track.Format == SampleFormat::QuickTimeMovie) {
        arguments << QStringLiteral("-f") << QStringLiteral("lavfi") << QStringLiteral("-i")
                  << QStringLiteral("testsrc=size=320x240:rate=25:duration=%1").arg(track.Seconds);
    }
    arguments << QStringLiteral("-f") << QStringLiteral("lavfi") << QStringLiteral("-i")
              << QStringLiteral("sine=frequency=%1:sample_rate=44100:duration=%2")
                     .arg(220 + 20 * number)
                     .arg(track.Seconds)
              << QStringLiteral("-ac") << QStringLiteral("2") << QStringLiteral("-metadata")
              << QStringLiteral("artist=") + track.Artist << QStringLiteral("-metadata")
              << QStringLiteral("album=") + track.Album << QStringLiteral("-metadata")
              << QStringLiteral("title=") + track.Title << EncoderOf(track.Format) << file.second;
    return arguments;
}

void WritePatch(QFile& file, qint64 position, qint64 length, std::mt19937_64& generator) {
    QByteArray bytes(length, Qt::Uninitialized);
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(generator() >> 56); });
    if (!file.seek(position) || file.write(bytes) != length) {
        throw Failure(file.fileName() + QStringLiteral(": ") + file.errorString());
    }
}

} // namespace

void MakePlayableFiles(const std::vector<WantedFile>& files) {
    const QString ffmpeg = QStandardPaths::findExecutable(QStringLiteral("ffmpeg"));
    if (ffmpeg.isEmpty()) {
        throw Failure(QStringLiteral("The program ffmpeg is missing."));
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
                throw Failure(QStringLiteral("ffmpeg failed: ") +
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
            throw Failure(path + QStringLiteral(": ") + file.errorString());
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
