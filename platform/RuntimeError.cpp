#include "platform/RuntimeError.h"

#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

QString TextOf(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::InvalidProcedureCall:
        return u"Invalid procedure call or argument"_s;
    case ErrorNumber::Overflow:
        return u"Overflow"_s;
    case ErrorNumber::OutOfMemory:
        return u"Out of memory"_s;
    case ErrorNumber::SubscriptOutOfRange:
        return u"Subscript out of range"_s;
    case ErrorNumber::TypeMismatch:
        return u"Type mismatch"_s;
    case ErrorNumber::BadFileName:
        return u"Bad file name or number"_s;
    case ErrorNumber::FileNotFound:
        return u"File not found"_s;
    case ErrorNumber::DeviceIOError:
        return u"Device I/O error"_s;
    case ErrorNumber::FileAlreadyExists:
        return u"File already exists"_s;
    case ErrorNumber::DiskFull:
        return u"Disk full"_s;
    case ErrorNumber::DeviceUnavailable:
        return u"Device unavailable"_s;
    case ErrorNumber::PermissionDenied:
        return u"Permission denied"_s;
    case ErrorNumber::PathFileAccessError:
        return u"Path/File access error"_s;
    case ErrorNumber::PathNotFound:
        return u"Path not found"_s;
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
