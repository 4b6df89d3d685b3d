#include "platform/RuntimeError.h"

#include <new>
#include <stdexcept>

namespace {

QString TextOf(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::InvalidProcedureCall:
        return QStringLiteral("Invalid procedure call or argument");
    case ErrorNumber::Overflow:
        return QStringLiteral("Overflow");
    case ErrorNumber::OutOfMemory:
        return QStringLiteral("Out of memory");
    case ErrorNumber::SubscriptOutOfRange:
        return QStringLiteral("Subscript out of range");
    case ErrorNumber::TypeMismatch:
        return QStringLiteral("Type mismatch");
    case ErrorNumber::BadFileName:
        return QStringLiteral("Bad file name or number");
    case ErrorNumber::FileNotFound:
        return QStringLiteral("File not found");
    case ErrorNumber::DeviceIOError:
        return QStringLiteral("Device I/O error");
    case ErrorNumber::FileAlreadyExists:
        return QStringLiteral("File already exists");
    case ErrorNumber::DiskFull:
        return QStringLiteral("Disk full");
    case ErrorNumber::DeviceUnavailable:
        return QStringLiteral("Device unavailable");
    case ErrorNumber::PermissionDenied:
        return QStringLiteral("Permission denied");
    case ErrorNumber::PathFileAccessError:
        return QStringLiteral("Path/File access error");
    case ErrorNumber::PathNotFound:
        return QStringLiteral("Path not found");
    }
    return {};
}

template <class Type>
bool Is(const std::exception& exception) {
    return dynamic_cast<const Type*>(&exception) != nullptr;
}

} // namespace

RuntimeError::RuntimeError(ErrorNumber number) : RuntimeError(number, TextOf(number)) {
}

RuntimeError::RuntimeError(ErrorNumber number, const QString& description)
    : Number(number), Description(description) {
}

RuntimeError ErrorOf(const std::exception& exception) {
    if (const auto* error = dynamic_cast<const RuntimeError*>(&exception)) {
        return *error;
    }
    if (Is<std::bad_alloc>(exception) || Is<std::length_error>(exception)) {
        return RuntimeError(ErrorNumber::OutOfMemory);
    }
    return RuntimeError(Is<std::out_of_range>(exception) ? ErrorNumber::SubscriptOutOfRange
                                                         : ErrorNumber::InvalidProcedureCall);
}
