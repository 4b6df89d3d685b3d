#include "platform/windows/Volumes.h"
#include "platform/windows/WindowsDrives.h"
#include "platform/windows/WindowsFileSystem.h"
#include "platform/windows/WindowsPaths.h"
#include "tests/platform/RealDisk.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QDir>
#include <QThread>

#include <winioctl.h>

using namespace Qt::StringLiterals;

namespace {

/// Only wine, whose drives are folders, can put one into a drive. This is what its manager of
/// drives takes, with the folder behind it.
struct WineDrive {
    ULONG Size = sizeof(WineDrive);
    ULONG Type = 0;
    ULONG FileSystem = 0;
    DWORD Serial = 0;
    ULONGLONG Device = 0;
    wchar_t Letter = L'F';
    USHORT Folder = 0;
    USHORT DevicePath = 0;
    USHORT Label = 0;
};

/// The folder as wine's own system calls it; nothing where this is no wine.
QByteArray FolderBehind(const QString& folder) {
    using Translate = char*(CDECL*)(const wchar_t*);
    const auto translate = reinterpret_cast<Translate>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    return translate ? QByteArray(translate(SystemPath(folder)->c_str())) : QByteArray();
}

/// Takes the drive away where `folder` is empty.
bool SetDrive(const QByteArray& folder, ULONG type = DRIVE_REMOVABLE) {
    constexpr DWORD defineDrive =
        CTL_CODE('m', 32, METHOD_BUFFERED, FILE_READ_ACCESS | FILE_WRITE_ACCESS);
    WineDrive drive;
    drive.Type = type;
    drive.Folder = folder.isEmpty() ? 0 : sizeof drive;
    drive.Size += static_cast<ULONG>(folder.size()) + 1;
    QByteArray input(reinterpret_cast<const char*>(&drive), sizeof drive);
    input += folder + '\0';
    const WindowsHandle manager(CreateFileW(L"\\\\.\\MountPointManager",
                                            GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                            0, nullptr));
    DWORD size = 0;
    return DeviceIoControl(manager.Get(), defineDrive, input.data(),
                           static_cast<DWORD>(input.size()), nullptr, 0, &size, nullptr);
}

} // namespace

struct RealDisk::Services {
    ~Services() {
        if (IsAttached) {
            SetDrive({});
        }
    }

    WindowsDrives Drives;
    WindowsFileSystem Files;
    bool IsAttached = false;
};

RealDisk::RealDisk() : m_services(std::make_unique<Services>()) {
}

RealDisk::~RealDisk() = default;

QString RealDisk::Native(const QString& name) const {
    return QDir::toNativeSeparators(name.isEmpty() ? m_folder.path() : m_folder.filePath(name));
}

QString RealDisk::OnDrive(const QString& name) const {
    return Native(name).toLower(); // every path is on a drive; this is another one to the same
}

QString RealDisk::Attach(const QString& name, bool isRemovable) {
    const QByteArray folder = FolderBehind(Native(name));
    m_services->IsAttached =
        !folder.isEmpty() && SetDrive(folder, isRemovable ? DRIVE_REMOVABLE : DRIVE_FIXED);
    // Wine looks for new drives once a second.
    const QDeadlineTimer end(5000);
    while (m_services->IsAttached && VolumeOf(L"\\\\?\\F:\\") != L"F:\\" && !end.hasExpired()) {
        QThread::msleep(50);
    }
    return m_services->IsAttached ? u"F:"_s : QString();
}

DriveService& RealDisk::Drives() {
    return m_services->Drives;
}

FileSystem& RealDisk::Files() {
    return m_services->Files;
}
