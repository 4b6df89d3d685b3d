#pragma once

#include <QString>

#include <exception>

/// The numbers of the failures. Failures of SQLite carry SQLite's own result codes instead, none of
/// which is listed here.
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

/// What a failing step throws: a number for code that decides by it, and a text for the user.
struct RuntimeError : std::exception {
    ErrorNumber Number;
    QString Description;

    /// An error with one of the numbers above and its fixed text. Allocates nothing, since memory
    /// may have run out.
    explicit RuntimeError(ErrorNumber number);
    RuntimeError(ErrorNumber number, const QString& description);

    /// Only for code that does not know this type; all other code reads the description.
    const char* what() const noexcept override { return "RuntimeError"; }
};

/// The exception as a RuntimeError.
RuntimeError ErrorOf(const std::exception& exception);
