#include "tests/browser/BrowserFixture.h"

#include <stdexcept>

namespace {

Kind KindOf(const QString& word) {
    if (word == QLatin1String("audio")) {
        return KindAudio;
    }
    if (word == QLatin1String("video")) {
        return KindVideo;
    }
    if (word == QLatin1String("other")) {
        return KindOther;
    }
    throw std::logic_error("no such kind: " + word.toStdString());
}

TrackRecord TrackOf(const QString& line) {
    const QStringList fields = line.split(QLatin1Char('|'));
    TrackRecord track;
    track.Title = fields[0].trimmed();
    track.Location = QStringLiteral("E:\\") + track.Title + QStringLiteral(".mp3");
    track.TrackNumber = fields.size() > 1 ? fields[1].toInt() : 0;
    track.FileSize = fields.size() > 2 ? fields[2].toInt() : 1024;
    track.Kind = fields.size() > 3 ? KindOf(fields[3].trimmed()) : KindAudio;
    return track;
}

QString TextOf(const FakeListControl& list, int row) {
    return row >= 0 ? list.List(row) : QString();
}

} // namespace

std::vector<ArtistRecord> RecordsOf(const char* description) {
    std::vector<ArtistRecord> artists;
    for (const QString& line : QString::fromUtf8(description).split(QLatin1Char('\n'))) {
        const QString name = line.trimmed();
        if (name.isEmpty()) {
            continue;
        }
        if (line.startsWith(QLatin1String("    "))) {
            artists.back().Albums.back().Tracks.push_back(TrackOf(name));
        } else if (line.startsWith(QLatin1String("  "))) {
            artists.back().Albums.emplace_back().Name = name;
        } else {
            artists.emplace_back().Name = name;
        }
    }
    return artists;
}

std::string Texts(const FakeListControl& list) {
    return list.Texts().join(QStringLiteral(", ")).toStdString();
}

std::string Ticked(const FakeListControl& list) {
    QStringList texts;
    for (const int row : list.TickedRows()) {
        texts.append(list.List(row));
    }
    return texts.join(QStringLiteral(", ")).toStdString();
}

std::string Current(const FakeListControl& list) {
    return TextOf(list, list.ListIndex()).toStdString();
}

std::string CheckedRecords(const std::vector<ArtistRecord>& artists) {
    QStringList checked;
    const auto add = [&checked](bool isChecked, const QStringList& names) {
        if (isChecked) {
            checked.append(names.join(QLatin1Char('/')));
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
    return checked.join(QStringLiteral(", ")).toStdString();
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

int BrowserFixture::RowOf(const FakeListControl& list, const char* text) {
    const QString wanted = QString::fromUtf8(text);
    if (wanted == QLatin1String("All") && list.ListCount() > 0) {
        return 0;
    }
    const qsizetype row = list.Texts().indexOf(wanted);
    if (row < 0) {
        throw std::logic_error("no such row: " + wanted.toStdString());
    }
    return static_cast<int>(row);
}

void BrowserFixture::Click(FakeListControl& list, const char* text) {
    list.UserClick(RowOf(list, text));
}

void BrowserFixture::Tick(FakeListControl& list, const char* text) {
    list.UserTick(RowOf(list, text), true);
}

void BrowserFixture::Untick(FakeListControl& list, const char* text) {
    list.UserTick(RowOf(list, text), false);
}

void BrowserFixture::Type(const char* text) {
    Form.txtSearch.UserReplace(QString::fromUtf8(text));
}

void BrowserFixture::ChooseTab(const char* caption) {
    const qsizetype tab = Form.tbsFilter.Captions.indexOf(QString::fromUtf8(caption));
    if (tab < 0) {
        throw std::logic_error(std::string("no such tab: ") + caption);
    }
    Form.tbsFilter.UserSelectTab(static_cast<int>(tab));
}
