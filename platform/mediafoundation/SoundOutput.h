#pragma once

#include "platform/windows/WindowsApi.h"

#include <mmsystem.h>

#include <QByteArray>

#include <chrono>
#include <deque>
#include <memory>

/// Plays samples of 16 bits. For one thread.
class SoundOutput {
public:
    SoundOutput(int channels, int samplesPerSecond);
    ~SoundOutput();
    SoundOutput(const SoundOutput&) = delete;
    SoundOutput& operator=(const SoundOutput&) = delete;

    /// False where this computer plays no sound, or not any more: a headset was pulled out.
    bool IsOpen() const { return m_device != nullptr && !m_isLost; }
    void Play(const QByteArray& samples);
    /// Seconds of sound that wait to be heard.
    double Waiting();
    /// Forgets what waits to be heard.
    void Clear();
    void SetPaused(bool paused);
    /// 0 to 100.
    void SetVolume(int percent);

private:
    struct Block;

    void FreePlayed();
    void LookForWork(quint32 playedBytes, bool hasWork);

    HWAVEOUT m_device = nullptr;
    int m_bytesPerSecond;
    /// In the order in which they are heard.
    std::deque<std::unique_ptr<Block>> m_blocks;
    qint64 m_queuedBytes = 0;
    bool m_isLost = false;
    bool m_isPaused = false;
    /// When the device was last seen at work, and how far it was.
    std::chrono::steady_clock::time_point m_workedAt;
    quint32 m_playedBytes = 0;
    std::chrono::steady_clock::time_point m_lookedAt;
};
