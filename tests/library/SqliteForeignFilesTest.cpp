// What lies beside the databases: a load neither heeds it nor touches it, and no other file is
// read through a database's own words.

#include "tests/library/SqliteDevice.h"

#include <QDateTime>
#include <QDir>
#include <QMap>

#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

/// Every file of a folder with its bytes and its time, and the folder, which has the time at which
/// a file in it was last made or removed.
QMap<QString, std::pair<QByteArray, QDateTime>> FilesIn(const QString& folder) {
    QMap<QString, std::pair<QByteArray, QDateTime>> files;
    files[folder] = {{}, QFileInfo(folder).lastModified()};
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
void RunAndDie(const QString& database, const QByteArray& sql) {
    sqlite3* connection = nullptr;
    ASSERT_EQ(sqlite3_open(database.toUtf8().constData(), &connection), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(connection, sql.constData(), nullptr, nullptr, nullptr), SQLITE_OK)
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
        WriteAll(file.key(), file.value());
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
    ForeignFiles() { WriteOne(); }

    void WriteOne() { Write({{u"A"_s, u"X"_s, u"first"_s, 1, 10, u"1"_s}}); }

    QString LoadedTitle() {
        const QString folder = QFileInfo(LibraryFile()).path();
        const std::filesystem::file_time_type longAgo{std::chrono::hours(24)};
        std::error_code cannotBeSet; // on Windows, where a folder's time is left as it is
        std::filesystem::last_write_time(folder.toStdString(), longAgo, cannotBeSet);
        const auto before = FilesIn(folder);
        Load();
        EXPECT_EQ(Boxes.Texts(), QStringList());
        EXPECT_TRUE(FilesIn(folder) == before);
        EXPECT_EQ(Files.ChangesBelow(u"E:\\"_s), QStringList());
        return Titles().join(u'|');
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
    const QByteArray wal = "Pragma journal_mode = wal; Pragma wal_autocheckpoint = 0;";
    RunAndDie(LibraryFile(), wal + "Update item Set title = 'changed'");
    RunAndDie(LocationsFile(), wal + "Update location Set file_size = 99");
    ASSERT_TRUE(QFile::exists(LibraryFile() + u"-wal"_s));
    ASSERT_TRUE(QFile::exists(LocationsFile() + u"-wal"_s));
    EXPECT_EQ(LoadedTitle(), u"first"_s);
    EXPECT_EQ(Library.TotalSize, 10);
    EXPECT_EQ(TitleSeenByOthers(LibraryFile()), u"changed"_s);
}

TEST_F(ForeignFiles, FilesAndFoldersThatOnlyLookLikeJournalsAreLeftAlone) {
    for (const QString& file : {LibraryFile(), LocationsFile()}) {
        ASSERT_TRUE(QDir().mkpath(file + u"-journal"_s));
        WriteAll(file + u"-wal"_s, QByteArray(4096, 'x'));
    }
    EXPECT_EQ(LoadedTitle(), u"first"_s);
}

TEST_F(ForeignFiles, AFolderNamedLikeAnAddressIsUsedAsAPath) {
    for (const QString& name :
         {u"100% #1? a&b=c+d 'q' \"r\" ä;%41"_s, u"file:x?mode=rwc&immutable=0&vfs=none#y"_s}) {
        const QString folder = Folder.filePath(name);
        ASSERT_TRUE(QDir().mkpath(folder));
        PutFilesInto(folder);
        WriteOne();
        EXPECT_EQ(LoadedTitle(), u"first"_s);
    }
}
