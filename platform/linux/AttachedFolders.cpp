#include "platform/linux/AttachedFolders.h"

#include <sys/stat.h>
#include <thread>

namespace {

using namespace std::chrono_literals;

/// At first there is no answer to go by, and no window yet that anybody looks at.
constexpr auto FirstPatience = 2s;
/// Too short to notice: the window asks, too.
constexpr auto Patience = 80ms;

bool IsFolder(const QByteArray& path) {
    struct stat info {};
    return stat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

} // namespace

bool AttachedFolders::Exists(const QByteArray& path) {
    std::unique_lock all(m_mutex);
    std::shared_ptr<Answer>& kept = m_answers[path];
    const std::chrono::milliseconds patience = kept ? Patience : FirstPatience;
    if (!kept) {
        kept = std::make_shared<Answer>();
    }
    const std::shared_ptr<Answer> answer = kept;
    all.unlock();

    std::unique_lock lock(answer->Mutex);
    if (!answer->IsDue) {
        std::thread([answer, path] {
            const bool exists = IsFolder(path);
            const std::lock_guard given(answer->Mutex);
            answer->Exists = exists;
            answer->IsDue = false;
            answer->Given.notify_all();
        }).detach();
        answer->IsDue = true;
        answer->Until = std::chrono::steady_clock::now() + patience;
    }
    answer->Given.wait_until(lock, answer->Until, [&answer] { return !answer->IsDue; });
    return answer->Exists;
}
