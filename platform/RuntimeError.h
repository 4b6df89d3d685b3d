#pragma once

#include <QString>

#include <exception>

/// The numbers a failing step can raise. SQLite's failures carry SQLite's own result codes instead.
namespace ErrorNumber {
constexpr int InvalidProcedureCall = 5;
constexpr int Overflow = 6;
constexpr int OutOfMemory = 7;
constexpr int SubscriptOutOfRange = 9;
constexpr int TypeMismatch = 13;
constexpr int BadFileName = 52;
constexpr int FileNotFound = 53;
constexpr int DeviceIOError = 57;
constexpr int FileAlreadyExists = 58;
constexpr int DiskFull = 61;
constexpr int DeviceUnavailable = 68;
constexpr int PermissionDenied = 70;
constexpr int PathFileAccessError = 75;
constexpr int PathNotFound = 76;
} // namespace ErrorNumber

/// What a failing step throws: a number that its callers decide by, and a text for the user.
struct RuntimeError : std::exception {
    int Number;
    QString Description;

    /// An error of one of the numbers above, with its fixed text. Takes no memory, of which there
    /// may be none.
    explicit RuntimeError(int number);
    RuntimeError(int number, const QString& description);

    /// Only for those who do not know this type; the others read the description.
    const char* what() const noexcept override { return "RuntimeError"; }
};

/// The error that an exception stands for.
RuntimeError ErrorOf(const std::exception& exception);
