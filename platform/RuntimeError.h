#pragma once

#include <QString>

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
struct RuntimeError {
    int Number;
    QString Description;

    /// An error of one of the numbers above, with its fixed text.
    explicit RuntimeError(int number);
    RuntimeError(int number, const QString& description);
};
