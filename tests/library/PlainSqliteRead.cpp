#include "tests/library/PlainReaders.h"

#include "platform/Numbers.h"
#include "platform/RuntimeError.h"

#include <QStringList>
#include <QUrl>

#include <sqlite3.h>

#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

QByteArray Uri(const QString& file) {
    return "file:" + QUrl::toPercentEncoding(file, "/") + "?mode=ro&immutable=1";
}

/// All rows of a statement as texts, NULL as the null text.
std::vector<QStringList> Rows(sqlite3* database, const QByteArray& sql) {
    sqlite3_stmt* statement = nullptr;
    int result = sqlite3_prepare_v2(database, sql.constData(), -1, &statement, nullptr);
    std::vector<QStringList> rows;
    while (result == SQLITE_OK && (result = sqlite3_step(statement)) == SQLITE_ROW) {
        QStringList row;
        for (int column = 0; column < sqlite3_column_count(statement); ++column) {
            const auto* text =
                reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            const QByteArray bytes(text, sqlite3_column_bytes(statement, column));
            // Qt drops a mark at the very beginning of a text, and only there.
            row += bytes.isNull() ? QString() : QString::fromUtf8("\xEF\xBB\xBF" + bytes);
        }
        rows.push_back(row);
        result = SQLITE_OK;
    }
    sqlite3_finalize(statement);
    if (result != SQLITE_DONE) {
        throw RuntimeError(ErrorNumber(result), QString::fromUtf8(sqlite3_errmsg(database)));
    }
    return rows;
}

qint32 Long(const QString& text) {
    return text.isNull() ? 0 : qint32(std::nearbyint(TextToNumber(text)));
}

QString Backslashes(const QString& path) {
    return path.split(u'/').join(u'\\');
}

QString Stored(const QString& name) {
    return name.isEmpty() ? u"UNKNOWN"_s : name;
}

void Read(sqlite3* database, MusicLibrary& library) {
    const auto kinds = Rows(database, "Select kind From location_kind_map Order By id");
    QStringList kindNames;
    if (!kinds.empty()) {
        kindNames += QString();
    }
    for (const QStringList& kind : kinds) {
        kindNames += kind[0];
    }
    const QString base =
        u"E:\\"_s + Backslashes(Rows(database, "Select * From base_location").at(0)[1]);
    const auto rows =
        Rows(database, "Select item.title, item.artist, item.album, item.track_number, "
                       "location.file_size, location.location, location.kind_id From location "
                       "Inner Join item On location.item_pid = item.pid Order By item.artist, "
                       "item.album");
    library.Artists = {{{}, {{{}, {TrackRecord()}}}}};
    QString previousArtist, previousAlbum;
    size_t artist = 0, album = 0, track = 0;
    for (const QStringList& row : rows) {
        const QString artistText = Stored(row[1]);
        if (previousArtist.toLower() != artistText.toLower()) {
            if (!previousArtist.isEmpty()) {
                ++artist;
                album = track = 0;
                library.Artists.push_back({{}, {{{}, {TrackRecord()}}}});
                previousAlbum.clear();
            }
            previousArtist = library.Artists[artist].Name = artistText;
        }
        std::vector<AlbumRecord>& albums = library.Artists[artist].Albums;
        const QString albumText = Stored(row[2]);
        if (previousAlbum.toLower() != albumText.toLower()) {
            if (!previousAlbum.isEmpty()) {
                ++album;
                track = 0;
                albums.push_back({{}, {TrackRecord()}});
            }
            previousAlbum = albums[album].Name = albumText;
        }
        albums[album].Tracks.resize(track + 1);
        TrackRecord& record = albums[album].Tracks[track];
        record.Title = Stored(row[0]);
        record.Kind = KindFromTypeText(kindNames.at(Long(row[6])));
        record.TrackNumber = Long(row[3]);
        record.FileSize = Long(row[4]);
        record.Location = base + u'\\' + Backslashes(row[5]);
        library.TotalSize += record.FileSize;
        ++track;
        ++library.TrackCount;
    }
}

} // namespace

PlainSqliteRead::PlainSqliteRead(const QString& libraryFile, const QString& locationsFile) {
    sqlite3* database = nullptr;
    const int opened = sqlite3_open_v2(Uri(libraryFile).constData(), &database,
                                       SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, nullptr);
    try {
        if (opened != SQLITE_OK) {
            throw RuntimeError(ErrorNumber(opened), u"cannot be opened"_s);
        }
        Rows(database, "Attach '" + Uri(locationsFile) + "' As main2");
        Read(database, Library);
    } catch (const RuntimeError& error) {
        Error = error.Description;
    }
    sqlite3_close(database);
}
