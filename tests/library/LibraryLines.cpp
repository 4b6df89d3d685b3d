#include "tests/library/LibraryLines.h"

#include <QFile>

using namespace Qt::StringLiterals;

QStringList Lines(const MusicLibrary& library) {
    QStringList lines;
    for (const ArtistRecord& artist : library.Artists) {
        for (const AlbumRecord& album : artist.Albums) {
            for (const TrackRecord& track : album.Tracks) {
                lines +=
                    u"%1 | %2 | %3 %4 | %5 | %6 | "_s.arg(
                        artist.Name, album.Name, QString::number(track.TrackNumber), track.Title,
                        QString::number(track.FileSize), QString::number(int(track.Kind))) +
                    track.Location;
            }
        }
    }
    return lines;
}

QString WrongWithTracks(const MusicLibrary& library) {
    int tracks = 0;
    double size = 0;
    for (const ArtistRecord& artist : library.Artists) {
        if (artist.Name.isEmpty() || artist.Albums.empty() || artist.Checked ||
            artist.SourceIndex != 0) {
            return u"an artist that must not be"_s;
        }
        for (const AlbumRecord& album : artist.Albums) {
            if (album.Name.isEmpty() || album.Tracks.empty() || album.Checked ||
                album.SourceIndex != 0) {
                return u"an album that must not be"_s;
            }
            for (const TrackRecord& track : album.Tracks) {
                ++tracks;
                size += track.FileSize;
                if (track.Title.isEmpty() || !track.Location.startsWith(u"E:"_s) || track.Checked ||
                    track.SourceIndex != 0 || track.Kind < KindOther || track.Kind > KindVideo) {
                    return u"a track that must not be"_s;
                }
            }
        }
    }
    if (library.TrackCount != tracks) {
        return u"TrackCount is not the number of the tracks"_s;
    }
    return library.TotalSize == size ? QString() : u"TotalSize is not the size of the tracks"_s;
}

void PutSqliteLibrary(RecordedFiles& files, const QString& folder) {
    for (const QString& name : {u"/Library.itdb"_s, u"/Locations.itdb"_s}) {
        const QString onDevice =
            u"E:\\iPod_Control\\iTunes\\iTunes Library.itlp"_s + QString(name).replace(u'/', u'\\');
        files.AddFile(onDevice, {});
        files.SetNativePath(onDevice, folder + name);
    }
}

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(path));
    }
    return file.readAll();
}

void WriteAll(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("cannot write %s", qPrintable(path));
    }
}
