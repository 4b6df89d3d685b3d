#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Media files made on the spot, each once, in a folder that goes with the program.
namespace MediaSamples {

/// The file of that name, made by ffmpeg with those arguments unless it is there already.
QString Make(const QString& name, const QStringList& arguments);

/// A tone of that many seconds; the ending of `name` and `codec` tell the format.
QString Tone(const QString& name, const QString& codec, int seconds = 20);

/// A moving, colourful test picture with a tone. `filter` is put to the picture; a leading comma is
/// expected ("" for none). `extra` goes to the output.
QString Film(const QString& name, const QString& size, int seconds = 20, const QString& filter = {},
             const QStringList& extra = {});

/// A picture of one colour, 64 pixels wide and high.
QString Picture(const QString& colour);

/// The tone of that path with such a picture as its cover.
QString ToneWithCover(const QString& tone, const QString& name, const QString& colour);

/// A file of those bytes.
QString Write(const QString& name, const QByteArray& bytes);

QByteArray Read(const QString& path);

/// The folder itself.
QString Folder();

// What each system does in its own way.

/// Lets ffmpeg make the file of that path; returns what it said where it did not.
QByteArray Encode(const QStringList& arguments, const QString& path);

/// How often this process has the file open at this moment.
int TimesOpen(const QString& path);

} // namespace MediaSamples
