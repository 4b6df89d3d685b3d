#include "platform/JointCopy.h"

#include "platform/NameRules.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

/// At most this many files wait for their names behind one that takes longer, since each of them
/// keeps files open.
constexpr size_t MostWaiting = 8;
/// How often a waiting thread looks whether it was stopped.
constexpr std::chrono::milliseconds BetweenLooks(10);

/// Whether a file may have failed only because something has run out that the others have taken. An
/// error of the device is none of these: to meet it again can cost half a minute.
bool MayBeShortage(const std::exception_ptr& failure) {
    try {
        if (failure) {
            std::rethrow_exception(failure);
        }
    } catch (const std::exception& exception) {
        const ErrorNumber number = ErrorOf(exception).Number;
        return number != ErrorNumber::DeviceIOError && number != ErrorNumber::DeviceUnavailable;
    }
    return false;
}

} // namespace

JointCopy::JointCopy(std::shared_ptr<FileSystem> files, std::vector<FileToCopy> copies,
                     qint64 milliseconds, const CopyControl& control)
    : m_files(std::move(files)), m_copies(std::move(copies)), m_end(milliseconds),
      m_control(control), m_folded(m_copies.size()), m_rests(m_copies.size()) {
}

void JointCopy::TakePart() {
    while (const std::optional<size_t> index = Take()) {
        Put(*index, Prepare(*index) ? Begin(*index) : nullptr);
    }
}

CopiedFiles JointCopy::Finish() {
    TakePart();
    std::unique_lock lock(m_mutex);
    while (m_underWay > 0 && !m_control.IsStopped()) {
        m_changed.wait_for(lock, BetweenLooks);
    }
    End();
    if (MayBeShortage(m_copied.Failure) && m_begun > m_copied.Count + 1 && !m_control.IsStopped()) {
        // Once more, with nothing beside it.
        m_copied.Failure = nullptr;
        Place(Begin(m_copied.Count));
    }
    return m_copied;
}

/// No file is begun or named any more. Those that wait for their names are given up now, since one
/// that hangs may keep this object alive for long.
void JointCopy::End() {
    m_hasEnded = true;
    std::fill(m_rests.begin(), m_rests.end(), nullptr);
}

/// The place of the next file to begin, if there is one.
std::optional<size_t> JointCopy::Take() {
    std::unique_lock lock(m_mutex);
    while (!IsOver() && MustWait()) {
        m_changed.wait_for(lock, BetweenLooks);
    }
    if (IsOver()) {
        return {};
    }
    m_isPreparing = m_copies[m_begun].Prepare != nullptr;
    ++m_underWay;
    return m_begun++;
}

/// No further file is begun.
bool JointCopy::IsOver() const {
    return m_hasEnded || m_begun == m_copies.size() || m_control.IsStopped() ||
           (m_begun > 0 && m_end.hasExpired());
}

/// The next file cannot be begun before something has changed.
bool JointCopy::MustWait() {
    const bool waitsForAll = m_copies[m_begun].Prepare && m_copied.Count < m_begun;
    return m_isPreparing || waitsForAll || m_begun > m_copied.Count + MostWaiting ||
           AwaitsAnother(m_begun);
}

/// Whether a file that was begun earlier is still to get the same name but for its spelling. By the
/// drives' letters a file is found in any spelling, once it has its name.
bool JointCopy::AwaitsAnother(size_t index) {
    m_folded[index] = FoldedName(m_copies[index].Target);
    const auto first = m_folded.cbegin() + static_cast<std::ptrdiff_t>(m_copied.Count);
    const auto last = m_folded.cbegin() + static_cast<std::ptrdiff_t>(index);
    return std::find(first, last, *last) != last;
}

/// False where the copying ends before this file.
bool JointCopy::Prepare(size_t index) {
    if (!m_copies[index].Prepare) {
        return true;
    }
    const bool isPrepared = m_copies[index].Prepare(*m_files, m_control);
    const std::lock_guard lock(m_mutex);
    m_isPreparing = false;
    // It may have taken so long that it was given up.
    m_hasEnded = m_hasEnded || !isPrepared || m_control.IsStopped();
    m_changed.notify_all();
    return !m_hasEnded;
}

JointCopy::Rest JointCopy::Begin(size_t index) {
    const FileToCopy& copy = m_copies[index];
    try {
        return m_files->BeginNewFile(copy.Source, copy.Target, m_control);
    } catch (const std::exception&) {
        return [failure = std::current_exception()]() -> bool { std::rethrow_exception(failure); };
    }
}

/// Names this file and those that have waited for it.
void JointCopy::Put(size_t index, Rest rest) {
    const std::lock_guard lock(m_mutex);
    m_rests[index] = std::move(rest);
    --m_underWay;
    while (!m_hasEnded && m_copied.Count < m_rests.size() && m_rests[m_copied.Count]) {
        Place(std::exchange(m_rests[m_copied.Count], nullptr));
    }
    if (m_hasEnded) {
        End();
    }
    m_changed.notify_all();
}

void JointCopy::Place(const Rest& place) {
    try {
        m_copied.IsRefused = !place();
    } catch (const std::exception&) {
        m_copied.Failure = std::current_exception();
    }
    m_control.EndPlacing();
    if (m_copied.IsRefused || m_copied.Failure) {
        m_hasEnded = true;
    } else {
        ++m_copied.Count;
    }
}
