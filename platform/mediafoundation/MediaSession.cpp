#include "platform/mediafoundation/MediaSession.h"

#include "platform/RuntimeError.h"
#include "platform/player/CopyProtection.h"

#include <QMetaObject>

#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace {

using namespace std::chrono_literals;

/// Seconds of sound that are decoded ahead.
constexpr double SoundAhead = 0.5;
/// Between two looks at the clock; a film has at most some sixty pictures a second.
constexpr auto BetweenLooks = 8ms;

qint64 Milliseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

} // namespace

MediaSession::MediaSession(std::shared_ptr<MediaFile> file, const QString& suffix, int volume,
                           std::function<void()> changed, std::function<void()> frameReady)
    : m_file(std::move(file)), m_suffix(suffix), m_changed(std::move(changed)),
      m_frameReady(std::move(frameReady)), m_receiver(std::make_unique<QObject>()),
      m_volume(volume) {
    m_state.At = Playback::Stage::Opening;
}

void MediaSession::Start(const std::shared_ptr<MediaSession>& session) {
    std::thread([session] { session->Run(); }).detach();
}

void MediaSession::Stop() {
    m_file->Close();
    const std::lock_guard lock(m_mutex);
    m_isStopped = true;
    m_receiver.reset();
    m_woken.notify_all();
}

Playback MediaSession::State() const {
    const std::lock_guard lock(m_mutex);
    return m_state;
}

bool MediaSession::WaitUntilKnown(int milliseconds) {
    std::unique_lock lock(m_mutex);
    return m_woken.wait_for(lock, std::chrono::milliseconds(milliseconds),
                            [this] { return m_state.At != Playback::Stage::Opening; });
}

void MediaSession::WaitUntilEnded(int milliseconds) {
    std::unique_lock lock(m_mutex);
    m_woken.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return m_hasEnded; });
}

QImage MediaSession::Picture() const {
    const std::lock_guard lock(m_mutex);
    return m_picture;
}

void MediaSession::SetPaused(bool paused) {
    const std::lock_guard lock(m_mutex);
    m_isPaused = paused;
    m_state.Paused = paused;
    m_woken.notify_all();
    Tell(m_changed);
}

void MediaSession::SeekTo(double position) {
    const std::lock_guard lock(m_mutex);
    m_wishedPosition = std::max(position, 0.0);
    m_state.Position = *m_wishedPosition;
    m_state.AtEnd = false;
    m_woken.notify_all();
    Tell(m_changed);
}

void MediaSession::SetVolume(int percent) {
    const std::lock_guard lock(m_mutex);
    m_volume = percent;
    m_volumeIsNew = true;
    m_woken.notify_all();
}

/// What the thread runs.
void MediaSession::Run() {
    const MediaFoundation* functions = MediaFoundation::Find();
    const HRESULT entered = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    try {
        if (functions == nullptr || !m_file->Open() || IsCopyProtected(*m_file)) {
            throw RuntimeError(ErrorNumber::DeviceUnavailable);
        }
        MediaSource source(*functions, m_file, m_suffix);
        {
            const std::lock_guard lock(m_mutex);
            m_state.Duration = source.Duration();
            m_state.PictureSize = source.PictureSize();
            m_state.Rotation = source.Rotation();
            m_state.Shows = source.HasFilm() ? Playback::Picture::Film : Playback::Picture::None;
        }
        Play(source);
    } catch (const std::exception&) {
        m_file->Close();
        SetStage(Playback::Stage::Failed);
    }
    if (SUCCEEDED(entered)) {
        CoUninitialize();
    }
    const std::lock_guard lock(m_mutex);
    m_hasEnded = true;
    m_woken.notify_all();
}

void MediaSession::Play(MediaSource& source) {
    std::unique_ptr<SoundOutput> sound;
    if (source.HasSound()) {
        sound = std::make_unique<SoundOutput>(source.Channels(), source.SamplesPerSecond());
        if (!sound->IsOpen()) {
            sound.reset();
        }
    }
    m_soundEnded = sound == nullptr;
    m_filmEnded = !source.HasFilm();
    ShowFilm(source); // there is a picture whatever is wished next
    SetStage(Playback::Stage::Open);
    m_positionAt = Milliseconds();
    while (TakeWishes(source, sound.get())) {
        if (sound) {
            // Some devices would play it in spite of a pause.
            if (!m_wasPaused) {
                QueueSound(source, *sound);
            }
            if (!sound->IsOpen()) {
                sound.reset(); // it goes on silently
                m_soundEnded = true;
            }
        }
        m_position = Clock(sound.get());
        m_positionAt = Milliseconds();
        ShowFilm(source);
        std::unique_lock lock(m_mutex);
        const bool isSilent = sound == nullptr || sound->Waiting() == 0;
        const bool isPast = sound != nullptr || !m_filmEnded || m_position >= m_state.Duration;
        const bool atEnd = m_soundEnded && m_filmEnded && isSilent && isPast;
        const bool isTold = atEnd != m_state.AtEnd || static_cast<int>(m_position * 4) !=
                                                          static_cast<int>(m_state.Position * 4);
        if (!m_wishedPosition) {
            m_state.AtEnd = atEnd;
            m_state.Position = atEnd ? m_state.Duration : m_position;
            m_state.Paused = m_isPaused || atEnd;
        }
        if (isTold) {
            Tell(m_changed);
        }
        m_woken.wait_for(lock, BetweenLooks);
    }
}

/// Does what the user has asked for meanwhile. False once nothing is to be played any more.
bool MediaSession::TakeWishes(MediaSource& source, SoundOutput* sound) {
    std::unique_lock lock(m_mutex);
    if (m_isStopped) {
        return false;
    }
    if (std::exchange(m_volumeIsNew, false) && sound != nullptr) {
        sound->SetVolume(m_volume);
    }
    const bool isPaused = m_isPaused;
    const std::optional<double> position = std::exchange(m_wishedPosition, std::nullopt);
    lock.unlock();
    if (isPaused != m_wasPaused && sound != nullptr) {
        sound->SetPaused(isPaused);
    }
    m_wasPaused = isPaused;
    if (position) {
        source.SeekTo(*position);
        if (sound != nullptr) {
            sound->Clear();
            sound->SetPaused(isPaused);
        }
        m_nextFrame.reset();
        m_soundEnded = sound == nullptr;
        m_filmEnded = !source.HasFilm();
        m_queuedTo = m_position = m_soughtPosition = *position;
        m_positionAt = Milliseconds();
    }
    return true;
}

void MediaSession::QueueSound(MediaSource& source, SoundOutput& sound) {
    const double bytesPerSecond = 2.0 * source.Channels() * source.SamplesPerSecond();
    while (!m_soundEnded && sound.Waiting() < SoundAhead && sound.IsOpen()) {
        const std::optional<MediaSource::Sound> next = source.ReadSound();
        m_soundEnded = !next;
        const double end = next ? next->Time + double(next->Samples.size()) / bytesPerSecond : 0;
        if (end > m_soughtPosition) {
            sound.Play(next->Samples);
            m_queuedTo = end;
        }
    }
}

/// Takes the pictures up to the clock's time, and shows the last of them.
void MediaSession::ShowFilm(MediaSource& source) {
    bool isNew = false;
    while (!m_filmEnded) {
        if (!m_nextFrame) {
            m_nextFrame = source.ReadFrame();
            m_filmEnded = !m_nextFrame;
            continue;
        }
        const std::lock_guard lock(m_mutex);
        if (m_isStopped || (m_nextFrame->Time > m_position && !m_picture.isNull())) {
            break;
        }
        m_picture = std::move(m_nextFrame->Picture);
        m_nextFrame.reset();
        isNew = true;
    }
    if (isNew) {
        const std::lock_guard lock(m_mutex);
        Tell(m_frameReady);
    }
}

/// The position that is heard at this moment, or would be if there were sound.
double MediaSession::Clock(SoundOutput* sound) const {
    if (sound != nullptr && !(m_soundEnded && sound->Waiting() == 0 && !m_filmEnded)) {
        return std::max(0.0, m_queuedTo - sound->Waiting());
    }
    const double since = static_cast<double>(Milliseconds() - m_positionAt) / 1000;
    return m_wasPaused ? m_position : m_position + since;
}

/// Raises an event in the user's thread. To be called with the lock held.
void MediaSession::Tell(const std::function<void()>& event) {
    if (m_receiver) {
        QMetaObject::invokeMethod(
            m_receiver.get(), [event] { event(); }, Qt::QueuedConnection);
    }
}

void MediaSession::SetStage(Playback::Stage stage) {
    const std::lock_guard lock(m_mutex);
    m_state.At = stage;
    m_woken.notify_all();
    Tell(m_changed);
}
