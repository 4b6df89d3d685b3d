#include "tests/library/LibraryLines.h"

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
