#include "library/SqliteDatabase.h"

#include "platform/Numbers.h"
#include "platform/ProcessorTime.h"

#include <QDir>
#include <QStringDecoder>
#include <QUrl>

#include <sqlite3.h>

#include <algorithm>

namespace {

// Limits that a device's own library never comes near and that a hostile one cannot pass. Time
// counts from the opening on, over all statements.
constexpr double MaxProcessorSeconds = 2;
constexpr std::chrono::minutes MaxDuration(10); // long, since a device may just be slow
constexpr sqlite3_int64 MaxEngineBytes = 256 << 20;
constexpr qsizetype MaxResultBytes = 64 << 20;
constexpr int MaxValueBytes = 65536;
/// Larger than MaxValueBytes: where SQLite itself refuses a value, the query fails before its first
/// row, since all rows are sorted first. Still small enough that many values fit between two checks
/// of the time.
constexpr int MaxEngineValueBytes = 1 << 20;
/// Limits the text of a failure, in which SQLite quotes what it found: a message box with 60 KB
/// would be larger than the screen.
constexpr qsizetype MaxDescriptionLength = 300;

/// How many steps SQLite's virtual machine takes between two checks of the time. A track takes more
/// than ten; on an old device these take as long as reading a page or two.
constexpr int StepsBetweenChecks = 1000;

/// The URI that opens a file without locks, journals or any other trace on the device.
QByteArray ReadOnlyUri(const QString& nativePath) {
    QString path = QDir::fromNativeSeparators(nativePath);
    if (!path.startsWith(u'/')) {
        path.prepend(u'/');
    }
    return "file://" + QUrl::toPercentEncoding(path, "/") + "?mode=ro&immutable=1";
}

/// QString::fromUtf8 would drop a byte order mark at the beginning, which is part of the name.
QString FromUtf8(QByteArrayView bytes) {
    using enum QStringConverter::Flag;
    return QStringDecoder(QStringConverter::Utf8, Stateless | ConvertInitialBom).decode(bytes);
}

RuntimeError SqliteError(int result, const QString& description) {
    return RuntimeError(static_cast<ErrorNumber>(result), description);
}

RuntimeError SqliteError(int result) {
    return SqliteError(result, QString::fromUtf8(sqlite3_errstr(result)));
}

} // namespace

QString SqliteRows::Text(qsizetype row, int column) const {
    const Cell& cell = At(row, column);
    switch (cell.ValueType) {
    case Type::Null:
        return {};
    case Type::Integer:
        return QString::number(cell.Value);
    case Type::Text:
        break;
    }
    return FromUtf8(TextBytes(cell));
}

qint32 SqliteRows::Long(qsizetype row, int column) const {
    const Cell& cell = At(row, column);
    switch (cell.ValueType) {
    case Type::Null:
        return 0;
    case Type::Integer:
        return ToLong(cell.Value);
    case Type::Text:
        break;
    }
    return ToLong(TextToNumber(FromUtf8(TextBytes(cell))));
}

bool SqliteRows::IsRepeated(qsizetype row, int column) const {
    if (row == 0) {
        return false;
    }
    const Cell& before = At(row - 1, column);
    const Cell& cell = At(row, column);
    if (cell.ValueType != before.ValueType) {
        return false;
    }
    return cell.Value == before.Value && cell.Length == before.Length;
}

void SqliteRows::Add(sqlite3_stmt* statement) {
    for (int column = 0; column < m_columnCount; ++column) {
        switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL:
            m_cells.push_back({Type::Null, 0, 0});
            break;
        case SQLITE_INTEGER:
            m_cells.push_back({Type::Integer, 0, sqlite3_column_int64(statement, column)});
            break;
        default: {
            const auto* text =
                reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
            AddText({text, sqlite3_column_bytes(statement, column)});
        }
        }
    }
    if (m_textBytes + m_cells.size() * qsizetype(sizeof(Cell)) > MaxResultBytes) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
    ++m_rowCount;
}

/// Sorted rows repeat many values of the row before; the same bytes then serve both.
void SqliteRows::AddText(QByteArrayView text) {
    if (text.size() > MaxValueBytes) {
        throw SqliteError(SQLITE_TOOBIG);
    }
    m_textBytes += text.size(); // repeated ones too: the caller may make a QString of each
    if (m_rowCount > 0) {
        const Cell& above = m_cells[m_cells.size() - m_columnCount];
        if (above.ValueType == Type::Text && TextBytes(above) == text) {
            m_cells.push_back(Cell(above));
            return;
        }
    }
    m_cells.push_back({Type::Text, static_cast<qint32>(text.size()), m_bytes.size()});
    m_bytes.append(text.data(), text.size());
}

const SqliteRows::Cell& SqliteRows::At(qsizetype row, int column) const {
    if (row < 0 || row >= m_rowCount || column < 0 || column >= m_columnCount) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return m_cells[row * m_columnCount + column];
}

QByteArrayView SqliteRows::TextBytes(const Cell& cell) const {
    return QByteArrayView(m_bytes).sliced(cell.Value, cell.Length);
}

SqliteDatabase::SqliteDatabase(const QString& nativePath)
    : m_processorStart(ThreadProcessorSeconds()), m_start(std::chrono::steady_clock::now()) {
    sqlite3_hard_heap_limit64(MaxEngineBytes); // for the whole program; nothing else uses SQLite
    sqlite3* database = nullptr;
    const int result =
        sqlite3_open_v2(ReadOnlyUri(nativePath).constData(), &database,
                        SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
    m_database.reset(database);
    Check(result);
    Restrict();
    CachePages("main");
}

SqliteDatabase::~SqliteDatabase() = default;

void SqliteDatabase::Attach(const QString& nativePath, const QString& schema) {
    const QByteArray uri = ReadOnlyUri(nativePath);
    const QByteArray name = schema.toUtf8();
    const Statement attach = Prepare("Attach ?1 As ?2");
    Check(sqlite3_bind_text(attach.get(), 1, uri.constData(), -1, SQLITE_STATIC));
    Check(sqlite3_bind_text(attach.get(), 2, name.constData(), -1, SQLITE_STATIC));
    Step(attach.get());
    CachePages(name);
}

SqliteRows SqliteDatabase::Query(const char* sql) {
    SqliteRows rows;
    Query(sql, rows);
    return rows;
}

void SqliteDatabase::Query(const char* sql, SqliteRows& rows) {
    const Statement query = Prepare(sql);
    rows = {};
    rows.m_columnCount = sqlite3_column_count(query.get());
    while (Step(query.get())) {
        rows.Add(query.get());
    }
}

/// Switches off what the three queries do not need and a hostile schema could use.
void SqliteDatabase::Restrict() {
    sqlite3* database = m_database.get();
    sqlite3_progress_handler(database, StepsBetweenChecks, StopWhenLate, this);
    Check(sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr));
    Check(sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr));
    Check(sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr));
    Check(sqlite3_drop_modules(database, nullptr)); // virtual tables
    sqlite3_limit(database, SQLITE_LIMIT_ATTACHED, 1);
    sqlite3_limit(database, SQLITE_LIMIT_LENGTH, MaxEngineValueBytes);
    sqlite3_limit(database, SQLITE_LIMIT_SQL_LENGTH, MaxValueBytes);
    Check(sqlite3_set_authorizer(database, AllowNoFunction, nullptr));
    Execute("Pragma cell_size_check = 1");
    Execute("Pragma mmap_size = 0");  // a pulled cable must be an error, not a crash
    Execute("Pragma temp_store = 2"); // sort in memory, which has a limit, and not on the disk
}

/// Keeps a file's pages in memory once they are read: tracks come in the order of random ids, and
/// with SQLite's own small cache most pages would be read from the device many times.
void SqliteDatabase::CachePages(const QByteArray& schema) {
    Execute("Pragma " + schema + ".cache_size = -32000"); // KiB
    const QByteArray pageCount = "Pragma " + schema + ".page_count";
    m_pages += static_cast<float>(Query(pageCount.constData()).Long(0, 0));
}

void SqliteDatabase::Execute(const QByteArray& sql) {
    const Statement statement = Prepare(sql.constData());
    while (Step(statement.get())) {
    }
}

SqliteDatabase::Statement SqliteDatabase::Prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v2(m_database.get(), sql, -1, &statement, nullptr);
    Statement owned(statement);
    Check(result);
    if (IsLate()) { // nested views can take long before the first step
        Check(SQLITE_INTERRUPT);
    }
    return owned;
}

/// Whether there is one more row.
bool SqliteDatabase::Step(sqlite3_stmt* statement) {
    const int result = sqlite3_step(statement);
    if (result == SQLITE_ROW || result == SQLITE_DONE) {
        return result == SQLITE_ROW;
    }
    Check(result);
    return false;
}

void SqliteDatabase::Check(int result) {
    if (result == SQLITE_OK) {
        return;
    }
    if (!m_database || result == SQLITE_INTERRUPT) {
        throw SqliteError(result);
    }
    QString description = QString::fromUtf8(sqlite3_errmsg(m_database.get())).simplified();
    description.truncate(MaxDescriptionLength);
    if (!description.isEmpty() && description.back().isHighSurrogate()) {
        description.chop(1);
    }
    throw SqliteError(result, description);
}

bool SqliteDatabase::IsLate() const {
    return ThreadProcessorSeconds() - m_processorStart > MaxProcessorSeconds ||
           std::chrono::steady_clock::now() - m_start > MaxDuration;
}

/// A page that was read is in the cache then; few are read twice.
void SqliteDatabase::TellPartRead() {
    int read = 0;
    int unused = 0;
    sqlite3_db_status(m_database.get(), SQLITE_DBSTATUS_CACHE_MISS, &read, &unused, 0);
    PartRead(static_cast<float>(read) / std::max(1.0F, m_pages));
}

int SqliteDatabase::StopWhenLate(void* self) {
    auto* database = static_cast<SqliteDatabase*>(self);
    if (database->PartRead) {
        database->TellPartRead();
    }
    return database->IsLate();
}

/// The queries call no function. One that a view calls (LIKE included) could work on two long texts
/// for many seconds, during which the time is not checked.
int SqliteDatabase::AllowNoFunction(void*, int action, const char*, const char*, const char*,
                                    const char*) {
    return action == SQLITE_FUNCTION ? SQLITE_DENY : SQLITE_OK;
}

void SqliteDatabase::Close::operator()(sqlite3* database) const {
    sqlite3_close(database);
}

void SqliteDatabase::Close::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}
