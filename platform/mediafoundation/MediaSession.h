#pragma once

#include "platform/mediafoundation/MediaSource.h"
#include "platform/mediafoundation/SoundOutput.h"
#include "platform/player/Playback.h"

#include <QObject>
#include <QString>

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

/// Plays one file on a thread of its own. The thread shares the session, and may outlive its user
/// while a device hangs.
class MediaSession {
public:
    /// `changed` and `frameReady` are called in the thread that makes this, until Stop.
    MediaSession(std::shared_ptr<MediaFile> file, const QString& suffix, int volume,
                 std::function<void()> changed, std::function<void()> frameReady);

    static void Start(const std::shared_ptr<MediaSession>& session);
    /// Closes the file; the thread ends as soon as it can.
    void Stop();
    /// Waits until the thread has ended, but no longer than that.
    void WaitUntilEnded(int milliseconds);

    Playback State() const;
    bool WaitUntilKnown(int milliseconds);
    QImage Picture() const;

    void SetPaused(bool paused);
    void SeekTo(double position);
    void SetVolume(int percent);

private:
    void Run();
    void Play(MediaSource& source);
    bool TakeWishes(MediaSource& source, SoundOutput* sound);
    void QueueSound(MediaSource& source, SoundOutput& sound);
    void ShowFilm(MediaSource& source);
    double Clock(SoundOutput* sound) const;
    void Tell(const std::function<void()>& event);
    void SetStage(Playback::Stage stage);

    const std::shared_ptr<MediaFile> m_file;
    const QString m_suffix;
    const std::function<void()> m_changed, m_frameReady;

    /// Guards what both threads use, down to the blank line.
    mutable std::mutex m_mutex;
    std::condition_variable m_woken;
    /// Brings events to the user's thread; null after Stop.
    std::unique_ptr<QObject> m_receiver;
    Playback m_state;
    QImage m_picture;
    bool m_isPaused = false;
    bool m_isStopped = false;
    bool m_hasEnded = false;
    int m_volume;
    bool m_volumeIsNew = true;
    std::optional<double> m_wishedPosition;

    // Used by the thread alone: the picture that was read but is not due yet, and which streams
    // have ended.
    std::optional<MediaSource::Frame> m_nextFrame;
    bool m_soundEnded = false, m_filmEnded = false;
    /// What comes before is not heard: files can be entered only here and there.
    double m_soughtPosition = 0;
    /// Up to where sound was queued; the position, and at which moment it was reached.
    double m_queuedTo = 0;
    double m_position = 0;
    qint64 m_positionAt = 0;
    bool m_wasPaused = false;
};
