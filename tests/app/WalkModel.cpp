#include "tests/app/WalkModel.h"

#include "selection/SelectionSummary.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool HoldsEveryWord(const QString& text, const QString& words) {
    for (const QString& word : words.split(u' ')) {
        if (!text.toLower().contains(word)) {
            return false;
        }
    }
    return true;
}

} // namespace

std::vector<WalkSong> RandomSongs(std::mt19937& random, bool withLargeFile) {
    const auto below = [&random](unsigned limit) {
        return static_cast<unsigned>(random() % limit);
    };
    std::vector<WalkSong> songs;
    for (unsigned a = 0, artists = 1 + below(4); a < artists; ++a) {
        for (unsigned b = 0, albums = 1 + below(3); b < albums; ++b) {
            for (unsigned s = 0, count = 1 + below(4); s < count; ++s) {
                songs.push_back({u"Artist a%1"_s.arg(a), u"Album a%1b%2"_s.arg(a).arg(b),
                                 u"Song a%1b%2s%3"_s.arg(a).arg(b).arg(s), below(3000000),
                                 below(3) == 0, false, u"%1.mp3"_s.arg(songs.size())});
            }
        }
    }
    if (withLargeFile) {
        songs.front().Size = 50000001;
    }
    return songs;
}

void WalkModel::Load(char device) {
    LoadedDevice = device;
    InForce.clear();
    for (WalkSong& song : Loaded()) {
        song.Ticked = false;
    }
}

void WalkModel::Narrow(const QString& text) {
    InForce = text.trimmed().isEmpty() ? QString() : text;
}

bool WalkModel::IsShown(const WalkSong& song, const QString& tab) const {
    return (tab == u"All Files"_s || song.IsVideo == (tab == u"Video"_s)) &&
           (HoldsEveryWord(song.Artist, InForce) || HoldsEveryWord(song.Album, InForce) ||
            HoldsEveryWord(song.Title, InForce));
}

void WalkModel::Tick(Name name, const QStringList& rows, const QString& tab, bool ticked) {
    for (WalkSong& song : Loaded()) {
        song.Ticked = IsShown(song, tab) && rows.contains(song.*name) ? ticked : song.Ticked;
    }
}

std::set<QString> WalkModel::Rows(Name name, const QString& tab, const QString& artist,
                                  const QString& album) const {
    std::set<QString> rows;
    for (const WalkSong& song : Loaded()) {
        if (IsShown(song, tab) && (artist.isNull() || song.Artist == artist) &&
            (album.isNull() || song.Album == album)) {
            rows.insert(song.*name);
        }
    }
    return rows;
}

bool WalkModel::MayBeTicked(Name name, const QString& row) const {
    return std::any_of(Loaded().begin(), Loaded().end(),
                       [&](const WalkSong& song) { return song.Ticked && song.*name == row; });
}

bool WalkModel::MustBeTicked(Name name, const QString& row, const QString& tab) const {
    return std::any_of(Loaded().begin(), Loaded().end(), [&](const WalkSong& song) {
        return song.Ticked && song.*name == row && IsShown(song, tab);
    });
}

bool WalkModel::HasTicks() const {
    return std::any_of(Loaded().begin(), Loaded().end(),
                       [](const WalkSong& song) { return song.Ticked; });
}

QString WalkModel::Summary() const {
    double ticked = 0, total = 0;
    for (const WalkSong& song : Loaded()) {
        total += static_cast<double>(song.Size);
        ticked += song.Ticked ? static_cast<double>(song.Size) : 0;
    }
    return u"Selected: "_s + GetSizeInText(ticked) + u" of "_s + GetSizeInText(total);
}

bool WalkModel::IsWhole(const QString& file, qint64 length) const {
    for (const auto& [letter, songs] : Devices) {
        for (const WalkSong& song : songs) {
            if (file.endsWith(song.Title + u".mp3"_s) && length == song.Size) {
                return true;
            }
        }
    }
    return false;
}
