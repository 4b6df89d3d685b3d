#pragma once

#include "platform/RuntimeError.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>
#include <QtGlobal>

#include <chrono>
#include <memory>

struct sqlite3;
struct sqlite3_stmt;

/// All rows of a query's result, held in memory. Rows and columns are 0-based; what lies outside
/// throws SubscriptOutOfRange.
class SqliteRows {
public:
    qsizetype RowCount() const { return m_rowCount; }

    /// The value as text, a number in decimal; NULL is the empty text.
    QString Text(qsizetype row, int column) const;
    /// The value as a 32-bit integer, NULL as 0. Throws Overflow past the range, TypeMismatch for
    /// what is no number.
    qint32 Long(qsizetype row, int column) const;
    /// Whether the value is the very one of the row before; false in the first row.
    bool IsRepeated(qsizetype row, int column) const;

private:
    friend class SqliteDatabase;

    enum class Type : qint32 { Null, Integer, Text };
    struct Cell {
        Type ValueType;
        /// Bytes of a text in UTF-8, and where it begins in m_bytes.
        qint32 Length;
        qint64 Value; // or the integer
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
    /// Bytes of all texts together.
    qsizetype m_textBytes = 0;
};

/// A database from a device: whatever it holds, it is only read, and reading it ends after a
/// bounded time and use of memory. Failures are thrown as RuntimeError with SQLite's code and text.
class SqliteDatabase {
public:
    /// Opens the file at `nativePath`.
    explicit SqliteDatabase(const QString& nativePath);
    ~SqliteDatabase();
    SqliteDatabase(const SqliteDatabase&) = delete;
    SqliteDatabase& operator=(const SqliteDatabase&) = delete;

    /// Attaches a second file under the name `schema`.
    void Attach(const QString& nativePath, const QString& schema);
    /// Runs a query and fetches its whole result.
    SqliteRows Query(const char* sql);
    /// The same into `rows`, which hold those before a failure when it throws.
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
    static int StopWhenLate(void* self);
    static int AllowNoFunction(void* self, int action, const char* first, const char* second,
                               const char* schema, const char* view);

    std::unique_ptr<sqlite3, Close> m_database;
    double m_processorStart;
    std::chrono::steady_clock::time_point m_start;
};
