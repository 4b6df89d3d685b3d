#pragma once

#include "platform/RuntimeError.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <chrono>
#include <functional>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

/// All rows of a query's result, held in memory. Rows and columns are 0-based; others throw
/// SubscriptOutOfRange.
class SqliteRows {
public:
    qsizetype RowCount() const { return m_rowCount; }

    /// The value as text, a number in decimal; NULL is the empty text.
    QString Text(qsizetype row, int column) const;
    /// The value as a 32-bit integer, NULL as 0. Throws Overflow past the range, and TypeMismatch
    /// where the value is not a number.
    qint32 Long(qsizetype row, int column) const;
    /// Whether the value is stored as the very one of the row before, not as an equal copy; false
    /// in the first row.
    bool IsRepeated(qsizetype row, int column) const;

private:
    friend class SqliteDatabase;

    enum class Type : qint32 { Null, Integer, Text };
    struct Cell {
        Type ValueType;
        /// Of a text: its length in bytes of UTF-8.
        qint32 Length;
        qint64 Value; // where the text begins in m_bytes, or the integer
    };

    void Add(sqlite3_stmt* statement);
    void AddText(QByteArrayView text);
    const Cell& At(qsizetype row, int column) const;
    QByteArrayView TextBytes(const Cell& cell) const;

    int m_columnCount = 0;
    qsizetype m_rowCount = 0;
    // Unlike a vector, these grow in place where the system can, without copying.
    QList<Cell> m_cells;
    QByteArray m_bytes;
    /// Bytes of all texts together, repeated ones included.
    qsizetype m_textBytes = 0;
};

/// A database from a device. Whatever it holds, it is only ever read, and reading it ends within a
/// bounded time and memory. Failures are thrown as RuntimeError with SQLite's code and text.
class SqliteDatabase {
public:
    /// Opens the file at `nativePath`.
    explicit SqliteDatabase(const QString& nativePath);
    ~SqliteDatabase();
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;

    /// Called now and then while a query runs, with the share of the files that has been read.
    std::function<void(float)> PartRead;

    /// Attaches a second file under the name `schema`.
    void Attach(const QString& nativePath, const QString& schema);
    /// Runs a query and fetches its whole result.
    SqliteRows Query(const char* sql);
    /// The same into `rows`, which after a failure hold the rows that were read before it.
    void Query(const char* sql, SqliteRows& rows);

private:
    struct Close {
        void operator()(sqlite3* database) const;
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Close>;

    void Restrict();
    void CachePages(const QByteArray& schema);
    void Execute(const QByteArray& sql);
    Statement Prepare(const char* sql);
    bool Step(sqlite3_stmt* statement);
    void Check(int result);
    bool IsLate() const;
    void TellPartRead();
    static int StopWhenLate(void* self);
    static int AllowNoFunction(void* self, int action, const char* first, const char* second,
                               const char* schema, const char* view);

    std::unique_ptr<sqlite3, Close> m_database;
    /// Pages of all files.
    float m_pages = 0;
    double m_processorStart;
    std::chrono::steady_clock::time_point m_start;
};
