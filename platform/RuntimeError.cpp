#include "platform/RuntimeError.h"

#include <utility>

namespace {

constexpr std::pair<int, const char*> Texts[] = {
    {ErrorNumber::InvalidProcedureCall, "Invalid procedure call or argument"},
    {ErrorNumber::Overflow, "Overflow"},
    {ErrorNumber::OutOfMemory, "Out of memory"},
    {ErrorNumber::SubscriptOutOfRange, "Subscript out of range"},
    {ErrorNumber::TypeMismatch, "Type mismatch"},
    {ErrorNumber::BadFileName, "Bad file name or number"},
    {ErrorNumber::FileNotFound, "File not found"},
    {ErrorNumber::DeviceIOError, "Device I/O error"},
    {ErrorNumber::FileAlreadyExists, "File already exists"},
    {ErrorNumber::DiskFull, "Disk full"},
    {ErrorNumber::DeviceUnavailable, "Device unavailable"},
    {ErrorNumber::PermissionDenied, "Permission denied"},
    {ErrorNumber::PathFileAccessError, "Path/File access error"},
    {ErrorNumber::PathNotFound, "Path not found"},
};

QString TextOf(int number) {
    for (const auto& [known, text] : Texts) {
        if (known == number) {
            return QString::fromLatin1(text);
        }
    }
    return {};
}

} // namespace

RuntimeError::RuntimeError(int number) : RuntimeError(number, TextOf(number)) {
}

RuntimeError::RuntimeError(int number, const QString& description)
    : Number(number), Description(description) {
}
