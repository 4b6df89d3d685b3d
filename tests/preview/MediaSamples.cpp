#include "tests/preview/MediaSamples.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace MediaSamples {

QString Folder() {
    static const QTemporaryDir folder;
    return folder.path();
}

QString Make(const QString& name, const QStringList& arguments) {
    QString path = Folder() + QLatin1Char('/') + name;
    if (QFile::exists(path)) {
        return path;
    }
    QProcess ffmpeg;
    ffmpeg.setProcessChannelMode(QProcess::MergedChannels);
    const QStringList quiet = {QStringLiteral("-nostdin"), QStringLiteral("-v"),
                               QStringLiteral("error")};
    ffmpeg.start(QStringLiteral("ffmpeg"), quiet + arguments + QStringList{path});
    const bool made =
        ffmpeg.waitForFinished(60'000) && ffmpeg.exitCode() == 0 && QFile::exists(path);
    EXPECT_TRUE(made) << "ffmpeg made no " << name.toStdString() << ": "
                      << ffmpeg.readAll().toStdString();
    return path;
}

namespace {

QStringList Input(const QString& description) {
    return {QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"), description};
}

QString Sine(int seconds) {
    return QStringLiteral("sine=frequency=440:duration=%1").arg(seconds);
}

} // namespace

QString Tone(const QString& name, const QString& codec, int seconds) {
    return Make(name, Input(Sine(seconds)) + QStringList{QStringLiteral("-c:a"), codec});
}

QString Film(const QString& name, const QString& size, int seconds, const QString& filter,
             const QStringList& extra) {
    const QString picture =
        QStringLiteral("testsrc=size=%1:rate=25:duration=%2%3").arg(size).arg(seconds).arg(filter);
    const QStringList output = {QStringLiteral("-c:v"),     QStringLiteral("libx264"),
                                QStringLiteral("-preset"),  QStringLiteral("ultrafast"),
                                QStringLiteral("-pix_fmt"), QStringLiteral("yuv420p"),
                                QStringLiteral("-c:a"),     QStringLiteral("aac")};
    return Make(name, Input(picture) + Input(Sine(seconds)) + output + extra);
}

QString ToneWithCover(const QString& tone, const QString& name, const QString& colour) {
    const QString picture = QStringLiteral("color=%1:size=64x64:duration=0.04").arg(colour);
    const QString cover =
        Make(colour + QStringLiteral(".png"),
             Input(picture) + QStringList{QStringLiteral("-frames:v"), QStringLiteral("1")});
    return Make(name, {QStringLiteral("-i"), tone, QStringLiteral("-i"), cover,
                       QStringLiteral("-map"), QStringLiteral("0:a"), QStringLiteral("-map"),
                       QStringLiteral("1:v"), QStringLiteral("-c"), QStringLiteral("copy"),
                       QStringLiteral("-disposition:v"), QStringLiteral("attached_pic")});
}

QString Write(const QString& name, const QByteArray& bytes) {
    QFile file(Folder() + QLatin1Char('/') + name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    return file.fileName();
}

QByteArray Read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace MediaSamples
