#include "platform/windows/WindowsDelete.h"

#include "platform/windows/FileInfo.h"
#include "platform/windows/WindowsCopy.h"
#include "platform/windows/WindowsErrors.h"

#include <array>
#include <optional>
#include <vector>

namespace {

/// Opens something to be deleted. As long as a folder is open like this, it cannot be replaced by a
/// link.
WindowsHandle OpenToDelete(const std::wstring& path) {
    constexpr DWORD access = FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES | DELETE | SYNCHRONIZE;
    constexpr DWORD flags = FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT;
    return WindowsHandle(
        CreateFileW(path.c_str(), access, FILE_SHARE_READ, nullptr, OPEN_EXISTING, flags, nullptr));
}

bool IsMountPoint(std::wstring path) {
    std::array<wchar_t, 64> volume{};
    path += L'\\';
    return GetVolumeNameForVolumeMountPointW(path.c_str(), volume.data(), volume.size());
}

/// The names in an open folder but "." and "..".
std::vector<std::wstring> NamesIn(HANDLE folder) {
    std::vector<std::wstring> names;
    std::vector<char> buffer(size_t{64} << 10); // as aligned as any memory of the heap
    while (GetFileInformationByHandleEx(folder, FileIdBothDirectoryInfo, buffer.data(),
                                        static_cast<DWORD>(buffer.size()))) {
        const char* bytes = buffer.data();
        DWORD offset = 0;
        do {
            const auto* entry = reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(bytes);
            const std::wstring name(entry->FileName, entry->FileNameLength / sizeof(wchar_t));
            if (name != L"." && name != L"..") {
                names.push_back(name);
            }
            offset = entry->NextEntryOffset;
            bytes += offset;
        } while (offset != 0);
    }
    if (GetLastError() != ERROR_NO_MORE_FILES) {
        ThrowError(GetLastError());
    }
    return names;
}

class Deletion {
public:
    explicit Deletion(const CopyControl& control) : m_control(control) {}

    /// False where something is left alone, and what is above it must stay.
    bool Delete(const std::wstring& path) {
        if (m_control.IsStopped()) {
            return false;
        }
        const WindowsHandle found = OpenToDelete(path);
        if (!found.IsOpen()) {
            return found.Error() == ERROR_FILE_NOT_FOUND || Fail(found.Error());
        }
        try {
            const FileInfo info = InfoOf(found.Get());
            if (info.IsFolder() && info.IsLink && IsMountPoint(path)) {
                return false;
            }
            if (info.IsFolder() && !info.IsLink && !DeleteContent(found.Get(), path)) {
                return false;
            }
        } catch (const RuntimeError& error) {
            return Fail(error);
        }
        return SetGoesWhenClosed(found.Get(), true) || Fail(GetLastError());
    }

    void ThrowFailure() const {
        if (m_failure) {
            throw RuntimeError(*m_failure);
        }
    }

private:
    bool DeleteContent(HANDLE folder, const std::wstring& path) {
        bool isEmpty = true;
        for (const std::wstring& name : NamesIn(folder)) {
            isEmpty = Delete(path + L'\\' + name) && isEmpty;
        }
        return isEmpty;
    }
    bool Fail(DWORD error) { return Fail(RuntimeError(ErrorNumberOf(error))); }
    bool Fail(const RuntimeError& error) {
        m_failure = m_failure.value_or(error);
        return false;
    }

    const CopyControl& m_control;
    std::optional<RuntimeError> m_failure;
};

} // namespace

void DeleteTree(const std::wstring& path, const CopyControl& control) {
    Deletion deletion(control);
    deletion.Delete(path);
    deletion.ThrowFailure();
}
