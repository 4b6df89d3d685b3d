#pragma once

#include <QString>

#include <exception>

/// The numbers a failing step can raise. SQLite's failures carry SQLite's own result codes, which
/// are none of these.
enum class ErrorNumber : int {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    BadFileName = 52,
    FileNotFound = 53,
    DeviceIOError = 57,
    FileAlreadyExists = 58,
    DiskFull = 61,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76
};

/// What a failing step throws: a number that its callers decide by, and a text for the user.
struct RuntimeError : std::exception {
    ErrorNumber Number;
    QString Description;

    /// An error of one of the numbers above, with its fixed text. Takes no memory, of which there
    /// may be none.
    explicit RuntimeError(ErrorNumber number);
    RuntimeError(ErrorNumber number, const QString& description);

    /// Only for those who do not know this type; the others read the description.
    const char* what() const noexcept override { return "RuntimeError"; }
};

/// The error that an exception stands for.
RuntimeError ErrorOf(const std::exception& exception);
