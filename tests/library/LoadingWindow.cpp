#include "tests/library/LoadingWindow.h"

using namespace Qt::StringLiterals;

QString LoadingWindow::DatabasePath() {
    return u"E:\\iPod_Control\\iTunes\\iTunesDB"_s;
}

void LoadingWindow::Load(const QByteArray& database) {
    Files.AddFile(DatabasePath(), database);
    Music.LoadITunesDB(u"E:"_s);
}

QStringList LoadingWindow::Groups() const {
    QStringList groups;
    for (const ArtistRecord& artist : Library.Artists) {
        QStringList albums;
        for (const AlbumRecord& album : artist.Albums) {
            QStringList titles;
            for (const TrackRecord& track : album.Tracks) {
                titles += track.Title;
            }
            albums += u"%1 (%2)"_s.arg(album.Name, titles.join(u' '));
        }
        groups += u"%1: %2"_s.arg(artist.Name, albums.join(u", "_s));
    }
    return groups;
}

void LoadingWindow::ExpectError(const QString& text) const {
    ASSERT_EQ(Boxes.Shown.size(), 1U);
    EXPECT_EQ(Boxes.Shown[0],
              (ShownMessage{text, u"Error"_s, MessageButtons::OK, MessageIcon::Critical}));
    ExpectEnded();
}

void LoadingWindow::ExpectEnded() const {
    EXPECT_FALSE(Library.LoadingMusic);
    EXPECT_EQ(Window.prgCopy.Value(), 0);
    EXPECT_EQ(Window.Form1.Caption(), u"Songlift"_s);
}

std::vector<SampleTrack> NamedTracks(const std::vector<std::pair<QString, QString>>& names) {
    std::vector<SampleTrack> tracks;
    for (const auto& [artist, album] : names) {
        const auto number = qint32(tracks.size() + 1);
        tracks.push_back({artist, album, QString::number(number), number, 1, u"x"_s});
    }
    return tracks;
}
