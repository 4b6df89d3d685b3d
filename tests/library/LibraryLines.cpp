#include "tests/library/LibraryLines.h"

QStringList Lines(const MusicLibrary& library) {
    QStringList lines;
    for (const ArtistRecord& artist : library.Artists) {
        for (const AlbumRecord& album : artist.Albums) {
            for (const TrackRecord& track : album.Tracks) {
                lines += QStringLiteral("%1 | %2 | %3 %4 | %5 | %6 | ")
                             .arg(artist.Name, album.Name, QString::number(track.TrackNumber),
                                  track.Title, QString::number(track.FileSize),
                                  QString::number(int(track.Kind))) +
                         track.Location;
            }
        }
    }
    return lines;
}
