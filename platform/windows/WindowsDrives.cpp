#include "platform/windows/WindowsDrives.h"

#include "platform/RuntimeError.h"
#include "platform/windows/Volumes.h"
#include "platform/windows/WindowsApi.h"

#include <array>
#include <chrono>

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

/// How long a drive may take to answer. A motor that starts may take longer, but the window waits.
constexpr auto Patience = 300ms;

std::wstring RootOf(QChar letter) {
    return {static_cast<wchar_t>(letter.unicode()), L':', L'\\'};
}

} // namespace

WindowsDrives::WindowsDrives() {
    // A drive without a medium is to be an error, not a box over the window.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

std::vector<Drive> WindowsDrives::Drives() {
    std::vector<Drive> drives;
    const DWORD letters = GetLogicalDrives();
    for (ushort i = 0; i < 26; ++i) {
        const QChar letter(u'A' + i);
        if ((letters & (1u << i)) == 0) {
            continue;
        }
        // Not floppy drives: each look would start their motor.
        const bool isAsked = letter > u'B' && IsRemovableVolume(RootOf(letter));
        if (!isAsked || Ask(letter) != nullptr) {
            drives.push_back({letter, letter + u":"_s});
        }
    }
    return drives;
}

bool WindowsDrives::IsRemovable(const Drive& drive) {
    const std::wstring root = RootOf(drive.Letter);
    if (GetDriveTypeW(root.c_str()) == DRIVE_NO_ROOT_DIR) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    return IsRemovableVolume(root);
}

QString WindowsDrives::VolumeName(const Drive& drive) {
    const std::shared_ptr<const Answer> answer = Ask(drive.Letter);
    if (answer == nullptr || !answer->IsReady) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    return answer->Label;
}

/// A drive's answer; null if it does not come in time. The drive is then not asked again before it
/// has answered.
std::shared_ptr<const WindowsDrives::Answer> WindowsDrives::Ask(QChar letter) {
    if (const auto open = m_open.value(letter)) {
        return open->IsThere ? m_open.take(letter) : nullptr;
    }
    const auto answer = std::make_shared<Answer>();
    const auto ask = [answer, root = RootOf(letter)] {
        std::array<wchar_t, MAX_PATH + 1> label{};
        answer->IsReady = GetVolumeInformationW(root.c_str(), label.data(), label.size(), nullptr,
                                                nullptr, nullptr, nullptr, 0);
        answer->Label = QString::fromWCharArray(label.data());
        answer->IsThere = true;
    };
    const auto until = std::chrono::steady_clock::now() + Patience;
    if (!m_worker.Do(ask, [until] { return std::chrono::steady_clock::now() < until; })) {
        m_open.insert(letter, answer);
        return nullptr;
    }
    return answer;
}
