#pragma once

#include "platform/windows/WindowsApi.h"

#include <mmsystem.h>

#include <QByteArray>

#include <deque>
#include <memory>

/// Plays samples of 16 bits. For one thread.
class SoundOutput {
public:
    SoundOutput(int channels, int samplesPerSecond);
    ~SoundOutput();
    SoundOutput(const SoundOutput&) = delete;
    SoundOutput& operator=(const SoundOutput&) = delete;

    /// False where this computer plays no sound.
    bool IsOpen() const { return m_device != nullptr; }
    void Play(const QByteArray& samples);
    /// Seconds of sound that wait to be heard.
    double Waiting() const;
    /// Forgets what waits to be heard.
    void Clear();
    void SetPaused(bool paused);
    /// 0 to 100.
    void SetVolume(int percent);

private:
    struct Block;

    void FreePlayed();

    HWAVEOUT m_device = nullptr;
    int m_bytesPerSecond;
    /// In the order in which they are heard.
    std::deque<std::unique_ptr<Block>> m_blocks;
    qint64 m_queuedBytes = 0;
};
