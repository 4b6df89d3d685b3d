#pragma once

#include "platform/mediafoundation/MediaSession.h"
#include "platform/player/PlayerEngine.h"

/// Plays with what Windows brings along.
class MediaFoundationEngine : public PlayerEngine {
public:
    MediaFoundationEngine() = default;
    ~MediaFoundationEngine() override;

    const Playback& State() const override;

    void Load(std::shared_ptr<MediaFile> file, const QString& suffix) override;
    /// A thread that hangs is left alone; the next file gets another.
    bool Stop() override;
    bool WaitUntilKnown(int milliseconds) override;
    bool Known() const override;

    void SetPaused(bool paused) override;
    void SeekTo(double position) override;
    void SetVolume(int percent) override;

    void Render(QImage& image) override;
    void Skip() override {}

private:
    std::shared_ptr<MediaSession> m_session;
    /// It, or the one that was stopped last, as long as its thread runs.
    std::weak_ptr<MediaSession> m_last;
    int m_volume = 100;
    /// What State has last returned.
    mutable Playback m_state;
};
