#include "platform/windows/WindowsCopy.h"

#include "platform/FileRules.h"
#include "platform/NameRules.h"
#include "platform/RuntimeError.h"
#include "platform/ScopeGuard.h"
#include "platform/windows/WindowsErrors.h"

#include <winternl.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>
#include <mutex>
#include <vector>

namespace {

/// A device that delivers a megabyte a second needs a quarter of a second for such a block, and a
/// stop takes effect between two; larger blocks are not copied faster.
constexpr DWORD BlockSize = 256 << 10;

std::wstring PartPath(const std::wstring& folder) {
    return TargetPlace{folder, QString::fromLatin1(PartName)}.Path();
}

/// Copies up to `size` bytes; returns how many: fewer only where the source ends or `control` has
/// stopped it.
qint64 TransferBytes(HANDLE source, const WriteBlock& write, qint64 size,
                     const CopyControl& control) {
    // Kept from one file to the next: a new one costs a fault for each of its pages.
    thread_local const std::unique_ptr<char[]> block(new char[BlockSize]);
    qint64 copied = 0;
    while (copied < size && !control.IsStopped()) {
        const DWORD wanted = static_cast<DWORD>(std::min<qint64>(size - copied, BlockSize));
        DWORD count = 0;
        if (!ReadFile(source, block.get(), wanted, &count, nullptr)) {
            ThrowError(GetLastError());
        }
        if (count == 0) {
            break;
        }
        write(block.get(), count);
        copied += count;
        control.AddBytes(count);
    }
    return copied;
}

/// The file, beside the target, into which a copy is written. Unless it has its final name, the
/// system deletes it when it is closed, even by a kill.
class PartFile {
public:
    explicit PartFile(const std::wstring& folder) {
        const std::wstring path = PartPath(folder);
        m_file = Create(path);
        if (m_file.Error() == ERROR_FILE_EXISTS) {
            RemoveLeftover(folder);
            m_file = Create(path);
        }
        if (!m_file.IsOpen()) {
            ThrowCreationError(m_file.Error());
        }
        SetGoesWhenClosed(m_file.Get(), true);
    }

    void Write(const char* bytes, DWORD size) {
        const std::lock_guard lock(m_mutex);
        if (m_file.IsOpen()) { // else it was given up
            WriteAll(m_file.Get(), bytes, size);
        }
    }

    /// Closes and so deletes it, unless its thread hangs in writing it.
    void GiveUp() {
        const std::unique_lock lock(m_mutex, std::try_to_lock);
        if (lock.owns_lock() && m_file.IsOpen()) {
            SetGoesWhenClosed(m_file.Get(), true);
            m_file.Close();
        }
    }

    /// All bytes are there.
    void Complete(const FileInfo& source, const std::wstring& folder) {
        const std::lock_guard lock(m_mutex);
        if (m_file.IsOpen()) { // else it was given up
            RequireWritten(m_file.Get(), folder);
            SetFileTime(m_file.Get(), nullptr, nullptr, &source.Facts.ftLastWriteTime);
        }
    }
    void TakePlaceOf(const TargetPlace& target, Existing existing) {
        // Otherwise the file would be deleted under the name that it is about to get.
        if (!SetGoesWhenClosed(m_file.Get(), false)) {
            ThrowPlacingError(GetLastError());
        }
        if (const DWORD error = Rename(m_file.Get(), target.Path(), existing)) {
            SetGoesWhenClosed(m_file.Get(), true);
            ThrowPlacingError(error);
        }
    }

private:
    /// No other program may open it, so that no other copy writes it or takes its name away.
    static WindowsHandle Create(const std::wstring& path) {
        constexpr DWORD access = GENERIC_WRITE | FILE_READ_ATTRIBUTES | DELETE;
        return WindowsHandle(CreateFileW(path.c_str(), access, 0, nullptr, CREATE_NEW,
                                         FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    }

    std::mutex m_mutex;
    WindowsHandle m_file;
};

} // namespace

std::wstring TargetPlace::Path() const {
    const std::wstring separator = Folder.ends_with(L'\\') ? L"" : L"\\";
    return Folder + separator + Name.toStdWString();
}

bool CopyWhole(const OpenSource& source, const TargetPlace& target, Existing existing,
               const CopyControl& control) {
    const std::optional<FileInfo> earlier = Look(target.Path());
    if (existing == Existing::Replace && earlier && earlier->IsSameAs(source.Info)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    CheckTarget(target, existing);
    const auto part = std::make_shared<PartFile>(target.Folder);
    control.SetRemover([part] { part->GiveUp(); });
    const ScopeGuard over([&control] { control.SetRemover(nullptr); });
    const qint64 copied = TransferBytes(
        source.File, [&part](const char* bytes, DWORD size) { part->Write(bytes, size); },
        std::numeric_limits<qint64>::max(), control);
    if (!control.IsStopped() && copied < source.Info.Length()) {
        throw RuntimeError(ErrorNumber::DeviceIOError); // it has become shorter meanwhile
    }
    if (control.IsStopped()) {
        return false;
    }
    part->Complete(source.Info, target.Folder);
    if (!control.BeginPlacing()) {
        return false;
    }
    part->TakePlaceOf(target, existing);
    return true;
}

bool TransferAll(HANDLE source, const WriteBlock& write, qint64 size, const CopyControl& control) {
    if (TransferBytes(source, write, size, control) == size) {
        return true;
    }
    if (!control.IsStopped()) {
        throw RuntimeError(ErrorNumber::DeviceIOError);
    }
    return false;
}

void WriteAll(HANDLE file, const char* bytes, DWORD size) {
    DWORD written = 0;
    while (size > 0) {
        if (!WriteFile(file, bytes, size, &written, nullptr)) {
            ThrowError(GetLastError());
        }
        bytes += written;
        size -= written;
    }
}

void RequireWritten(HANDLE file, const std::wstring& folder) {
    const bool isFarAway = folder.starts_with(L"\\\\?\\UNC\\") ||
                           GetDriveTypeW(folder.substr(4, 3).c_str()) == DRIVE_REMOTE;
    if (isFarAway && !FlushFileBuffers(file)) {
        ThrowError(GetLastError());
    }
}

void CheckTarget(const TargetPlace& target, Existing existing) {
    RequireNoPartName(target.Name);
    const std::wstring path = target.Path();
    const WindowsHandle found = OpenToLook(path, Links::Keep);
    if (found.Error() == ERROR_FILE_NOT_FOUND) {
        return;
    }
    if (!found.IsOpen()) {
        ThrowCreationError(found.Error());
    }
    // A link itself is replaced, but only if the file that it leads to may be, too.
    FileInfo info = InfoOf(found.Get());
    bool leadsNowhere = false;
    if (info.IsLink) {
        const std::optional<FileInfo> behind = Look(path);
        leadsNowhere = !behind && !info.IsFolder();
        info = behind.value_or(info);
    }
    RequireReplaceable(!info.IsFolder(), existing);
    if (!leadsNowhere && info.IsReadOnly()) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    // What a replacement needs; it fails also while another program holds the file open.
    const WindowsHandle held(
        CreateFileW(path.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!held.IsOpen()) {
        ThrowCreationError(held.Error());
    }
}

void RemoveLeftover(const std::wstring& folder) {
    const std::wstring path = PartPath(folder);
    const WindowsHandle leftover(CreateFileW(path.c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                                             FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (leftover.Error() == ERROR_FILE_NOT_FOUND) {
        return;
    }
    if (!leftover.IsOpen()) {
        ThrowCreationError(leftover.Error());
    }
    if (!SetGoesWhenClosed(leftover.Get(), true)) {
        ThrowCreationError(GetLastError());
    }
}

DWORD Rename(HANDLE file, const std::wstring& target, Existing existing) {
    constexpr auto renameInformation = static_cast<FILE_INFORMATION_CLASS>(10);
    const std::wstring path = L"\\??\\" + target.substr(4); // as the kernel writes "\\?\"
    const size_t bytes = path.size() * sizeof(wchar_t);
    const size_t size = sizeof(FILE_RENAME_INFO) + bytes;
    std::vector<char> buffer(size); // as aligned as any memory of the heap
    auto* info = reinterpret_cast<FILE_RENAME_INFO*>(buffer.data());
    info->ReplaceIfExists = existing == Existing::Replace;
    info->FileNameLength = static_cast<DWORD>(bytes);
    std::memcpy(info->FileName, path.c_str(), bytes);
    IO_STATUS_BLOCK result{};
    return RtlNtStatusToDosError(
        NtSetInformationFile(file, &result, info, static_cast<ULONG>(size), renameInformation));
}

bool SetGoesWhenClosed(HANDLE file, bool goes) {
    FILE_DISPOSITION_INFO info{goes};
    return SetFileInformationByHandle(file, FileDispositionInfo, &info, sizeof info);
}
