#include "tests/bench/BenchLibrary.h"

#include "tests/support/ITunesDBWriter.h"
#include "tests/support/SqliteLibraryWriter.h"

#include <QDir>
#include <QFile>
#include <QStringList>

#include <random>
#include <stdexcept>

namespace {

const QStringList& Words() {
    static const QStringList words = {
        QStringLiteral("River"),   QStringLiteral("Night"),    QStringLiteral("Électrique"),
        QStringLiteral("Golden"),  QStringLiteral("Stone"),    QStringLiteral("Träume"),
        QStringLiteral("Summer"),  QStringLiteral("Harbour"),  QStringLiteral("Небо"),
        QStringLiteral("Silent"),  QStringLiteral("Machine"),  QStringLiteral("東京"),
        QStringLiteral("Letters"), QStringLiteral("Paper"),    QStringLiteral("夜の歌"),
        QStringLiteral("Ocean"),   QStringLiteral("Radio"),    QStringLiteral("Καλοκαίρι"),
        QStringLiteral("Morning"), QStringLiteral("Velvet"),   QStringLiteral("Canción"),
        QStringLiteral("the"),     QStringLiteral("of"),       QStringLiteral("and"),
        QStringLiteral("Window"),  QStringLiteral("Carousel"), QStringLiteral("Lantern"),
        QStringLiteral("Winter"),  QStringLiteral("Gravity"),  QStringLiteral("Émile"),
    };
    return words;
}

QString Name(std::mt19937& random, int words) {
    QStringList name;
    for (int i = 0; i < words; ++i) {
        name.append(Words().at(static_cast<int>(random() % Words().size())));
    }
    return name.join(QLatin1Char(' '));
}

} // namespace

std::vector<SampleTrack> MakeLibrary(int count) {
    std::mt19937 random(20041);
    std::vector<SampleTrack> tracks;
    QString artist, album;
    for (int i = 0; i < count; ++i) {
        if (i % 30 == 0) {
            artist = Name(random, 2) + QLatin1Char(' ') + QString::number(i / 30);
        }
        if (i % 10 == 0) {
            album = Name(random, 3);
        }
        const QString location = QStringLiteral("F%1/T%2.mp3")
                                     .arg(i % 50, 2, 10, QLatin1Char('0'))
                                     .arg(i, 5, 10, QLatin1Char('0'));
        tracks.push_back({artist, album, Name(random, 1 + static_cast<int>(random() % 5)),
                          i % 10 + 1, 3000000 + static_cast<int>(random() % 4000000), location,
                          i % 40 == 39 ? QStringLiteral("MPEG-4 video file")
                                       : QStringLiteral("MPEG audio file")});
    }
    return tracks;
}

void MakeDevice(const QString& folder, const std::vector<SampleTrack>& tracks, bool sqlite) {
    const QDir device(folder);
    device.mkpath(QStringLiteral("iPod_Control/iTunes/iTunes Library.itlp"));
    device.mkpath(QStringLiteral("iPod_Control/Music"));
    QFile file(device.filePath(QStringLiteral("iPod_Control/iTunes/iTunesDB")));
    if (!file.open(QIODevice::WriteOnly) || file.write(WriteITunesDB(tracks)) < 0) {
        throw std::runtime_error("cannot write the device's database");
    }
    if (sqlite) {
        const QString base = QStringLiteral("iPod_Control/iTunes/iTunes Library.itlp/");
        WriteSqliteLibrary(device.filePath(base + QStringLiteral("Library.itdb")),
                           device.filePath(base + QStringLiteral("Locations.itdb")), tracks);
    }
}
