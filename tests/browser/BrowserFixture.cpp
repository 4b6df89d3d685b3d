#include "tests/browser/BrowserFixture.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

Kind KindOf(const QString& word) {
    if (word == u"audio"_s) {
        return KindAudio;
    }
    if (word == u"video"_s) {
        return KindVideo;
    }
    if (word == u"other"_s) {
        return KindOther;
    }
    throw std::logic_error("no such kind: " + word.toStdString());
}

TrackRecord TrackOf(const QString& line) {
    const QStringList fields = line.split(u'|');
    TrackRecord track;
    track.Title = fields[0].trimmed();
    track.Location = u"E:\\"_s + track.Title + u".mp3"_s;
    track.TrackNumber = fields.size() > 1 ? fields[1].toInt() : 0;
    track.FileSize = fields.size() > 2 ? fields[2].toInt() : 1024;
    track.Kind = fields.size() > 3 ? KindOf(fields[3].trimmed()) : KindAudio;
    return track;
}

} // namespace

std::vector<ArtistRecord> RecordsOf(const char* description) {
    std::vector<ArtistRecord> artists;
    for (const QString& line : QString::fromUtf8(description).split(u'\n')) {
        const QString name = line.trimmed();
        if (name.isEmpty()) {
            continue;
        }
        if (line.startsWith(u"    "_s)) {
            artists.back().Albums.back().Tracks.push_back(TrackOf(name));
        } else if (line.startsWith(u"  "_s)) {
            artists.back().Albums.emplace_back().Name = name;
        } else {
            artists.emplace_back().Name = name;
        }
    }
    return artists;
}

std::string Texts(const FakeListControl& list) {
    return list.Texts().join(u", "_s).toStdString();
}

std::string Ticked(const FakeListControl& list) {
    QStringList texts;
    for (const int row : list.TickedRows()) {
        texts.append(list.List(row));
    }
    return texts.join(u", "_s).toStdString();
}

std::string Current(const FakeListControl& list) {
    const int row = list.ListIndex();
    return row >= 0 ? list.List(row).toStdString() : std::string();
}

std::string CheckedRecords(const std::vector<ArtistRecord>& artists) {
    QStringList checked;
    const auto add = [&checked](bool isChecked, const QStringList& names) {
        if (isChecked) {
            checked.append(names.join(u'/'));
        }
    };
    for (const ArtistRecord& artist : artists) {
        add(artist.Checked, {artist.Name});
        for (const AlbumRecord& album : artist.Albums) {
            add(album.Checked, {artist.Name, album.Name});
            for (const TrackRecord& track : album.Tracks) {
                add(track.Checked, {artist.Name, album.Name, track.Title});
            }
        }
    }
    return checked.join(u", "_s).toStdString();
}

BrowserFixture::BrowserFixture(const char* description) : BrowserFixture(RecordsOf(description)) {
}

BrowserFixture::BrowserFixture(std::vector<ArtistRecord> artists) {
    Load(std::move(artists));
}

void BrowserFixture::Load(std::vector<ArtistRecord> artists) {
    Raise(Devices.LibraryLeaves);
    Raise(Devices.DeviceChosen);
    Library.Artists = std::move(artists);
    Library.TrackCount = 0;
    Library.TotalSize = 0;
    for (const ArtistRecord& artist : Library.Artists) {
        for (const AlbumRecord& album : artist.Albums) {
            for (const TrackRecord& track : album.Tracks) {
                ++Library.TrackCount;
                Library.TotalSize += track.FileSize;
            }
        }
    }
    if (Library.TrackCount < 1) {
        return;
    }
    Raise(Devices.LibraryLoaded);
}

std::string BrowserFixture::Rows() const {
    return Texts(lstArtists) + " | " + Texts(lstAlbums) + " | " + Texts(lstSongs);
}

std::string BrowserFixture::TickedRows() const {
    return Ticked(lstArtists) + " | " + Ticked(lstAlbums) + " | " + Ticked(lstSongs);
}

std::string BrowserFixture::CurrentRows() const {
    return Current(lstArtists) + " | " + Current(lstAlbums) + " | " + Current(lstSongs);
}
