#include "tests/preview/MediaSamples.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace MediaSamples {

namespace {

QStringList Words(const QString& text) {
    return text.split(u' ');
}

QStringList Input(const QString& description) {
    return {u"-f"_s, u"lavfi"_s, u"-i"_s, description};
}

QStringList Sine(int seconds) {
    return Input(u"sine=frequency=440:duration=%1"_s.arg(seconds));
}

} // namespace

QString Folder() {
    static const QTemporaryDir folder;
    return folder.path();
}

QString Make(const QString& name, const QStringList& arguments) {
    QString path = Folder() + u'/' + name;
    if (QFile::exists(path)) {
        return path;
    }
    const QByteArray said = Encode(Words(u"-nostdin -v error"_s) + arguments, path);
    EXPECT_TRUE(QFile::exists(path))
        << "ffmpeg made no " << name.toStdString() << ": " << said.toStdString();
    return path;
}

QString Tone(const QString& name, const QString& codec, int seconds) {
    return Make(name, Sine(seconds) + QStringList{u"-c:a"_s, codec});
}

QString Film(const QString& name, const QString& size, int seconds, const QString& filter,
             const QStringList& extra) {
    const QString picture =
        u"testsrc=size=%1:rate=25:duration=%2%3"_s.arg(size).arg(seconds).arg(filter);
    const QString output = u"-c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a aac"_s;
    return Make(name, Input(picture) + Sine(seconds) + Words(output) + extra);
}

QString Picture(const QString& colour) {
    return Make(colour + u".png"_s, Input(u"color=%1:size=64x64:duration=0.04"_s.arg(colour)) +
                                        Words(u"-frames:v 1"_s));
}

QString ToneWithCover(const QString& tone, const QString& name, const QString& colour) {
    return Make(name, QStringList{u"-i"_s, tone, u"-i"_s, Picture(colour)} +
                          Words(u"-map 0:a -map 1:v -c copy -disposition:v attached_pic"_s));
}

QString Write(const QString& name, const QByteArray& bytes) {
    QFile file(Folder() + u'/' + name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    return file.fileName();
}

QByteArray Read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace MediaSamples
