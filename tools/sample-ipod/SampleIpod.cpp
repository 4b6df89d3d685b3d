#include "tools/sample-ipod/SampleIpod.h"

#include "tests/support/ITunesDBWriter.h"
#include "tests/support/SqliteLibraryWriter.h"
#include "tools/sample-ipod/MediaFiles.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMusicFolders = 6;

std::runtime_error Failure(const QString& text) {
    return std::runtime_error(text.toStdString());
}

/// Names like the ones a device gives: a folder by turns, and four letters that never come twice.
QString LocationOf(const CatalogueTrack& track, int number) {
    QString letters;
    // 7919 shares no divisor with 26^4, so that the names are scattered and distinct.
    int rest = (number * 7919 + 12'345) % (26 * 26 * 26 * 26);
    for (int i = 0; i < 4; ++i) {
        letters.prepend(QChar(u'A' + rest % 26));
        rest /= 26;
    }
    return u"F%1/%2.%3"_s.arg(number % kMusicFolders, 2, 10, QChar(u'0'))
        .arg(letters, FileExtension(track.Format));
}

/// What the folder was made from, to tell a complete and current one.
QByteArray Fingerprint(const std::vector<CatalogueTrack>& catalogue, SampleModel model) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(model == SampleModel::Classic ? "classic" : "newer");
    for (const CatalogueTrack& track : catalogue) {
        const QStringList fields{track.Artist,
                                 track.Album,
                                 track.Title,
                                 QString::number(track.TrackNumber),
                                 FileTypeText(track.Format),
                                 QString::number(track.Seconds),
                                 QString::number(track.StandInBytes)};
        hash.addData(fields.join(u'\0').toUtf8().append('\n'));
    }
    return hash.result().toHex();
}

QString MarkFile(const QString& folder) {
    return folder + u"/iPod_Control/iTunes/sample"_s;
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        throw Failure(path + u": "_s + file.errorString());
    }
}

void MakeFolder(const QString& path) {
    if (!QDir().mkpath(path)) {
        throw Failure(path + u": cannot be made"_s);
    }
}

/// The mark of an earlier run; empty where there is no folder. A folder without a mark is somebody
/// else's.
QByteArray MarkOf(const QString& folder) {
    if (!QFileInfo::exists(folder)) {
        return {};
    }
    QFile mark(MarkFile(folder));
    if (!mark.open(QIODevice::ReadOnly)) {
        throw Failure(folder + u": is there already, and is no sample"_s);
    }
    return mark.readAll();
}

void WriteDatabases(const QString& folder, const std::vector<SampleTrack>& records,
                    SampleModel model) {
    const QString binary = folder + u"/iTunesDB"_s;
    if (model == SampleModel::Classic) {
        WriteFile(binary, WriteITunesDB(records));
        return;
    }
    WriteFile(binary, WriteITunesDB({}));
    const QString library = folder + u"/iTunes Library.itlp"_s;
    MakeFolder(library);
    WriteSqliteLibrary(library + u"/Library.itdb"_s, library + u"/Locations.itdb"_s, records);
}

void MakeContent(const QString& folder, const std::vector<CatalogueTrack>& catalogue,
                 SampleKind kind, SampleModel model) {
    const QString music = folder + u"/iPod_Control/Music/"_s;
    for (int i = 0; i < kMusicFolders; ++i) {
        MakeFolder(music + u"F%1"_s.arg(i, 2, 10, QChar(u'0')));
    }
    MakeFolder(folder + u"/iPod_Control/iTunes"_s);

    std::vector<WantedFile> files;
    std::vector<SampleTrack> records;
    for (const CatalogueTrack& track : catalogue) {
        const QString location = LocationOf(track, static_cast<int>(files.size()));
        files.emplace_back(track, music + location);
        records.push_back({track.Artist, track.Album, track.Title, track.TrackNumber, 0, location,
                           FileTypeText(track.Format)});
    }
    if (kind == SampleKind::Full) {
        MakePlayableFiles(files);
    } else {
        MakeStandIns(files);
    }
    for (size_t i = 0; i < files.size(); ++i) {
        records[i].FileSize = QFileInfo(files[i].second).size();
    }
    WriteDatabases(folder + u"/iPod_Control/iTunes"_s, records, model);
}

} // namespace

void MakeSampleIpod(const QString& folder, SampleKind kind, SampleModel model) {
    const QString target = QDir::cleanPath(QDir().absoluteFilePath(folder));
    const std::vector<CatalogueTrack> catalogue =
        kind == SampleKind::Full ? FullCatalogue() : SmallCatalogue();
    const QByteArray fingerprint = Fingerprint(catalogue, model);
    const QByteArray mark = MarkOf(target);
    if (mark == fingerprint) {
        return;
    }
    // Made under another name, so that a folder of the right name is always complete.
    MakeFolder(QFileInfo(target).path());
    QTemporaryDir unfinished(target + u".XXXXXX"_s);
    if (!unfinished.isValid()) {
        throw Failure(unfinished.errorString());
    }
    MakeContent(unfinished.path(), catalogue, kind, model);
    WriteFile(MarkFile(unfinished.path()), fingerprint);
    if (!mark.isEmpty()) {
        QDir(target).removeRecursively();
    }
    if (!QDir().rename(unfinished.path(), target)) {
        throw Failure(target + u": cannot be made"_s);
    }
    unfinished.setAutoRemove(false);
}
