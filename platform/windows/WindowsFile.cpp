#include "platform/windows/WindowsFile.h"

#include "platform/RuntimeError.h"
#include "platform/windows/WindowsCopy.h"
#include "platform/windows/WindowsErrors.h"

#include <algorithm>

void WindowsFile::Read(const std::shared_ptr<char>& buffer, qint64 size) {
    char* bytes = buffer.get();
    constexpr qint64 mostAtOnce = 1 << 30;
    while (size > 0) {
        DWORD count = 0;
        if (!ReadFile(Get(), bytes, static_cast<DWORD>(std::min(size, mostAtOnce)), &count,
                      nullptr)) {
            ThrowError(GetLastError());
        }
        if (count == 0) {
            throw RuntimeError(ErrorNumber::DeviceIOError);
        }
        bytes += count;
        size -= count;
    }
}

bool WindowsFile::WriteFrom(BinaryFile& source, qint64 size, const CopyControl& control) {
    const auto write = [this](const char* bytes, DWORD count) {
        const auto lock = Lock();
        if (HasItsName()) { // else it was deleted, for a caller that has gone
            WriteAll(Get(), bytes, count);
        }
    };
    return TransferAll(AsWindowsFile(source).Get(), write, size, control);
}

void WindowsFile::Truncate(qint64 size) {
    FILE_END_OF_FILE_INFO info{};
    info.EndOfFile.QuadPart = size;
    if (!SetFileInformationByHandle(Get(), FileEndOfFileInfo, &info, sizeof info)) {
        ThrowError(GetLastError());
    }
}

void WindowsFile::Close() {
    if (m_use == Use::Reading) {
        m_file.Close();
    }
}

void WindowsFile::Delete() {
    if (HasItsName()) {
        SetGoesWhenClosed(Get(), true);
        LetGo();
    }
}

void WindowsFile::TakeModificationTime(BinaryFile& source) {
    FILETIME time{};
    if (GetFileTime(AsWindowsFile(source).Get(), nullptr, nullptr, &time)) {
        SetFileTime(Get(), nullptr, nullptr, &time);
    }
}
