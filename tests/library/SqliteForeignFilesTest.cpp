// What lies beside the databases: a load neither heeds it nor touches it, and no other file is
// read through a database's own words.

#include "tests/library/SqliteDevice.h"

#include <QDateTime>
#include <QDir>
#include <QMap>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray ReadAll(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// Every file of a folder with its bytes and its time.
QMap<QString, std::pair<QByteArray, QDateTime>> FilesIn(const QString& folder) {
    QMap<QString, std::pair<QByteArray, QDateTime>> files;
    const auto entries = QDir(folder).entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                                    QDir::NoDotAndDotDot);
    for (const QFileInfo& entry : entries) {
        files[entry.fileName()] = {entry.isFile() ? ReadAll(entry.filePath()) : QByteArray(),
                                   entry.lastModified()};
    }
    return files;
}

/// Runs SQL on a database and leaves all its files as they stand then, as a program does that is
/// killed before it is done.
void RunAndDie(const QString& database, const char* sql) {
    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(database.toUtf8().constData(), &connection), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr), SQLITE_OK)
        << sqlite3_errmsg(connection);
    QMap<QString, QByteArray> left;
    for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
        const QString file = database + QString::fromLatin1(suffix);
        if (QFile::exists(file)) {
            left[file] = ReadAll(file);
        }
    }
    sqlite3_close(connection);
    for (auto file = left.cbegin(); file != left.cend(); ++file) {
        QFile written(file.key());
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        ASSERT_EQ(written.write(file.value()), file.value().size());
    }
}

/// The title of the first song as a program sees it that heeds what lies beside the database.
QString TitleSeenByOthers(const QString& database) {
    sqlite3* connection = nullptr;
    EXPECT_EQ(sqlite3_open(database.toUtf8().constData(), &connection), SQLITE_OK);
    QString title;
    const auto take = [](void* into, int, char** values, char**) {
        *static_cast<QString*>(into) = QString::fromUtf8(values[0]);
        return 0;
    };
    EXPECT_EQ(sqlite3_exec(connection, "Select title From item", take, &title, nullptr), SQLITE_OK);
    sqlite3_close(connection);
    return title;
}

} // namespace

class ForeignFiles : public SqliteDevice {
protected:
    ForeignFiles() { Write({{u"A"_s, u"X"_s, u"first"_s, 1, 10, u"1"_s}}); }

    QString LoadedTitle() {
        const auto before = FilesIn(Folder.path());
        Load();
        EXPECT_EQ(Boxes.Texts(), QStringList());
        EXPECT_TRUE(FilesIn(Folder.path()) == before);
        return Library.TrackCount == 1 ? Library.Artists[0].Albums[0].Tracks[0].Title : QString();
    }
};

TEST_F(ForeignFiles, AHotJournalIsNeitherAppliedNorTouched) {
    // A change that is written before it is committed: the journal would take it back.
    RunAndDie(LibraryFile(), "Pragma cache_size = 1; Begin; Update item Set title = 'changed';"
                             "Create Table filler As With Recursive c(n) As (Select 1 Union All "
                             "Select n + 1 From c Limit 500) Select n, hex(zeroblob(50)) From c");
    ASSERT_TRUE(QFile::exists(LibraryFile() + u"-journal"_s));

    EXPECT_EQ(LoadedTitle(), u"changed"_s);

    EXPECT_EQ(TitleSeenByOthers(LibraryFile()), u"first"_s);
    EXPECT_FALSE(QFile::exists(LibraryFile() + u"-journal"_s));
}

TEST_F(ForeignFiles, AWriteAheadLogIsNeitherReadNorTouched) {
    RunAndDie(LibraryFile(), "Pragma journal_mode = wal; Pragma wal_autocheckpoint = 0;"
                             "Update item Set title = 'changed'");
    ASSERT_TRUE(QFile::exists(LibraryFile() + u"-wal"_s));

    EXPECT_EQ(LoadedTitle(), u"first"_s);

    EXPECT_EQ(TitleSeenByOthers(LibraryFile()), u"changed"_s);
}

TEST_F(ForeignFiles, ALogBesideTheLocationsIsNeitherReadNorTouched) {
    RunAndDie(LocationsFile(), "Pragma journal_mode = wal; Pragma wal_autocheckpoint = 0;"
                               "Update location Set file_size = 99");
    ASSERT_TRUE(QFile::exists(LocationsFile() + u"-wal"_s));

    EXPECT_EQ(LoadedTitle(), u"first"_s);
    EXPECT_EQ(Library.TotalSize, 10);
}

TEST_F(ForeignFiles, JournalsThatAreNoneAreLeftAlone) {
    for (const QString& file : {LibraryFile(), LocationsFile()}) {
        ASSERT_TRUE(QDir().mkpath(file + u"-journal"_s));
        QFile log(file + u"-wal"_s);
        ASSERT_TRUE(log.open(QIODevice::WriteOnly));
        log.write(QByteArray(4096, 'x'));
    }

    EXPECT_EQ(LoadedTitle(), u"first"_s);
}

TEST_F(ForeignFiles, AFolderNamedLikeAnAddressIsTakenAsItIs) {
    const QString folder = Folder.path() + u"/file:x?mode=rwc&immutable=0&vfs=none#y"_s;
    ASSERT_TRUE(QDir().mkpath(folder));
    PutFilesInto(folder);
    Write({{u"A"_s, u"X"_s, u"first"_s, 1, 10, u"1"_s}});
    const auto before = FilesIn(folder);

    Load();

    ExpectLoaded({u"A | X | 1 first | 10 | 1 | E:\\iPod_Control\\Music\\1"_s});
    EXPECT_TRUE(FilesIn(folder) == before);
}

TEST_F(ForeignFiles, AViewNamesNoFileOfThisComputer) {
    // What SQLite tells about itself is no table of the device.
    InLocations(u"Drop Table base_location;"
                "Create View base_location As Select 1, file From pragma_database_list"_s);

    Load();

    ASSERT_EQ(Boxes.Shown.size(), 1U);
    EXPECT_EQ(Boxes.Shown[0].Text,
              u"Error 1: unsafe use of virtual table \"pragma_database_list\""_s);
    EXPECT_EQ(Library.TrackCount, 0);
}

TEST_F(ForeignFiles, AViewReadsNoOtherFile) {
    for (const char* source : {"readfile('/etc/passwd')", "load_extension('/tmp/none')",
                               "edit('x', 'touch /tmp/none')", "writefile('/tmp/none', 'x')"}) {
        RunSql(
            LocationsFile(),
            u"Drop Table If Exists base_location; Drop View If Exists base_location;"
            "Create View base_location As Select 1, %1 As path"_s.arg(QString::fromLatin1(source)));

        Load();

        ASSERT_EQ(Boxes.Shown.size(), 1U) << source;
        EXPECT_TRUE(Boxes.Shown[0].Text.startsWith(u"Error 1: "_s)) << source;
        RunSql(LocationsFile(), u"Drop View base_location; Create Table base_location (x)"_s);
    }
}
