#include "tests/bench/BenchLibrary.h"

#include "tests/support/ITunesDBWriter.h"
#include "tests/support/SqliteLibraryWriter.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <random>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QStringList& Words() {
    static const QStringList words = {
        u"River"_s,   u"Night"_s,    u"Électrique"_s, u"Golden"_s, u"Stone"_s,   u"Träume"_s,
        u"Summer"_s,  u"Harbour"_s,  u"Небо"_s,       u"Silent"_s, u"Machine"_s, u"東京"_s,
        u"Letters"_s, u"Paper"_s,    u"夜の歌"_s,     u"Ocean"_s,  u"Radio"_s,   u"Καλοκαίρι"_s,
        u"Morning"_s, u"Velvet"_s,   u"Canción"_s,    u"the"_s,    u"of"_s,      u"and"_s,
        u"Window"_s,  u"Carousel"_s, u"Lantern"_s,    u"Winter"_s, u"Gravity"_s, u"Émile"_s,
    };
    return words;
}

QString Name(std::mt19937& random, int words) {
    QStringList name;
    for (int i = 0; i < words; ++i) {
        name.append(Words().at(static_cast<int>(random() % Words().size())));
    }
    return name.join(u' ');
}

} // namespace

std::vector<SampleTrack> MakeLibrary(int count) {
    std::mt19937 random(20041);
    std::vector<SampleTrack> tracks;
    QString artist, album;
    for (int i = 0; i < count; ++i) {
        if (i % 30 == 0) {
            artist = Name(random, 2) + u' ' + QString::number(i / 30);
        }
        if (i % 10 == 0) {
            album = Name(random, 3);
        }
        const QString location =
            u"F%1/T%2.mp3"_s.arg(i % 50, 2, 10, QChar(u'0')).arg(i, 5, 10, QChar(u'0'));
        tracks.push_back({artist, album, Name(random, 1 + static_cast<int>(random() % 5)),
                          i % 10 + 1, 3000000 + static_cast<int>(random() % 4000000), location,
                          i % 40 == 39 ? u"MPEG-4 video file"_s : u"MPEG audio file"_s});
    }
    return tracks;
}

void MakeDevice(const QString& folder, const std::vector<SampleTrack>& tracks, bool sqlite) {
    const QDir device(folder);
    device.mkpath(u"iPod_Control/iTunes/iTunes Library.itlp"_s);
    device.mkpath(u"iPod_Control/Music"_s);
    QFile file(device.filePath(u"iPod_Control/iTunes/iTunesDB"_s));
    if (!file.open(QIODevice::WriteOnly) || file.write(WriteITunesDB(tracks)) < 0) {
        throw std::runtime_error("cannot write the device's database");
    }
    if (sqlite) {
        const QString base = u"iPod_Control/iTunes/iTunes Library.itlp/"_s;
        WriteSqliteLibrary(device.filePath(base + u"Library.itdb"_s),
                           device.filePath(base + u"Locations.itdb"_s), tracks);
    }
}
