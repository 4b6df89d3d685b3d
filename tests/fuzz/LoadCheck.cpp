#include "tests/fuzz/LoadCheck.h"

#include "tests/fakes/RealFiles.h"
#include "tests/library/PlainReaders.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

const QString EarlierLine = u"Earlier | Earlier | 0 Earlier | 0 | 0 | "_s;
/// What the SQLite reader makes before its first row.
const QString BlankLine = u" |  | 0  | 0 | 0 | "_s;

/// The two files of a device, in a folder of their own that goes with them.
class DeviceFiles {
public:
    DeviceFiles(const QByteArray& library, const QByteArray& locations)
        : m_library(library), m_locations(locations) {
        WriteAll(LibraryFile(), library);
        WriteAll(LocationsFile(), locations);
    }

    QString Folder() const { return m_folder.path(); }
    QString LibraryFile() const { return m_folder.filePath(u"Library.itdb"_s); }
    QString LocationsFile() const { return m_folder.filePath(u"Locations.itdb"_s); }

    QString WrongWithTheFiles() const {
        if (QDir(m_folder.path())
                .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot) !=
            QStringList{u"Library.itdb"_s, u"Locations.itdb"_s}) {
            return u"a file appeared or vanished beside the databases"_s;
        }
        if (ReadAll(LibraryFile()) != m_library || ReadAll(LocationsFile()) != m_locations) {
            return u"a database was written to"_s;
        }
        return {};
    }

private:
    const QByteArray& m_library;
    const QByteArray& m_locations;
    const QTemporaryDir m_folder{FolderInMemory()};
};

/// Whether the binary database has a head of its track list that tells no track: a load stops there
/// and stays open.
bool TellsNoTracks(const QByteArray& bytes) {
    const qsizetype head = bytes.indexOf("mhlt");
    return head >= 0 && head <= bytes.size() - 12 && bytes.mid(head + 8, 4) == QByteArray(4, '\0');
}

} // namespace

LoadCheck::LoadCheck() {
    ArtistRecord& earlier = Music.Library.Artists.emplace_back();
    earlier.Name = u"Earlier"_s;
    earlier.Albums.emplace_back().Name = u"Earlier"_s;
    earlier.Albums[0].Tracks.emplace_back().Title = u"Earlier"_s;
    Music.Library.TrackCount = 1;
    Music.Library.TotalSize = 77;
}

QString LoadCheck::LoadBinary(const QByteArray& bytes) {
    Files.AddFile(u"E:\\iPod_Control\\iTunes\\iTunesDB"_s, bytes);
    Around([this] { Music.LoadITunesDB(u"E:"_s); });

    const MusicLibrary& library = Music.Library;
    const PlainITunesDBWalk plain(bytes);
    if (library.TrackCount != plain.Library.TrackCount) {
        return u"%1 tracks and not %2"_s.arg(library.TrackCount).arg(plain.Library.TrackCount);
    }
    if (Boxes.Shown.size() != (plain.Error != 0 ? 1U : 0U) ||
        (plain.Error != 0 && !Boxes.Shown[0].Text.startsWith(u"Error %1: "_s.arg(plain.Error)))) {
        return u"not the error %1"_s.arg(plain.Error);
    }
    if (library.TrackCount == 0) {
        if (Lines(library) != QStringList{EarlierLine} || library.TotalSize != 0) {
            return u"a load without a track changed the records"_s;
        }
    } else if (Lines(library) != Lines(plain.Library)) {
        return u"other tracks than the plain walk's"_s;
    }
    if (TellsNoTracks(bytes)) {
        const bool open =
            library.LoadingMusic && Window.lblMessage.Caption() == u"Please wait..."_s;
        return open ? QString() : u"an empty list did not leave the load open"_s;
    }
    return WrongWithTheEnd();
}

QString LoadCheck::LoadSqlite(const QByteArray& bytes) {
    const qsizetype second = bytes.indexOf("SQLite format 3", 1);
    const QByteArray libraryBytes = second < 0 ? bytes : bytes.left(second);
    const QByteArray locationsBytes = second < 0 ? QByteArray() : bytes.mid(second);
    const DeviceFiles device(libraryBytes, locationsBytes);
    PutSqliteLibrary(Files, device.Folder());
    Around([this] { Music.LoadSQLiteLibrary(u"E:"_s); });

    const MusicLibrary& library = Music.Library;
    if (library.TrackCount == 0) {
        const QStringList lines = Lines(library);
        if (lines != QStringList{BlankLine} &&
            (lines != QStringList{EarlierLine} || Boxes.Shown.empty())) {
            return u"a load without a track changed the records"_s;
        }
    }
    if (Boxes.Shown.empty()) {
        const PlainSqliteRead plain(device.LibraryFile(), device.LocationsFile());
        if (!plain.Error.isEmpty()) {
            return u"read what cannot be read: "_s + plain.Error;
        }
        if (Lines(library) != Lines(plain.Library)) {
            return u"other tracks than the plain reader's"_s;
        }
    }
    const QString wrong = device.WrongWithTheFiles();
    return wrong.isEmpty() ? WrongWithTheEnd() : wrong;
}

/// What is wrong after a load that has ended, with or without an error.
QString LoadCheck::WrongWithTheEnd() const {
    const MusicLibrary& library = Music.Library;
    if (library.LoadingMusic || Window.prgCopy.Value() != 0 ||
        Window.Form1.Caption() != u"Songlift"_s) {
        return u"the load has not ended"_s;
    }
    if (library.TrackCount < 0) {
        return u"TrackCount is negative"_s;
    }
    if (library.TrackCount == 0 && library.TotalSize != 0) {
        return u"bytes without tracks"_s;
    }
    const QString wrong = library.TrackCount > 0 ? WrongWithTracks(library) : QString();
    return wrong.isEmpty() ? WrongWithTheBox() : wrong;
}

QString LoadCheck::WrongWithTheBox() const {
    if (Boxes.Shown.empty()) {
        return {};
    }
    const ShownMessage& box = Boxes.Shown[0];
    const QString number = box.Text.section(u": "_s, 0, 0).section(u' ', 1);
    const QString description = box.Text.section(u": "_s, 1);
    const bool right = Boxes.Shown.size() == 1 && box.Title == u"Error"_s &&
                       box.Buttons == MessageButtons::OK && box.Icon == MessageIcon::Critical &&
                       box.Text.startsWith(u"Error "_s) && number.toInt() > 0 &&
                       !description.isEmpty();
    return right ? QString() : u"a box that is none of an error: "_s + box.Text;
}
