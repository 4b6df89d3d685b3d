#include "platform/mediafoundation/SoundOutput.h"

#include <algorithm>
#include <utility>

struct SoundOutput::Block {
    WAVEHDR Header{};
    QByteArray Samples;
};

SoundOutput::SoundOutput(int channels, int samplesPerSecond)
    : m_bytesPerSecond(channels * 2 * samplesPerSecond) {
    WAVEFORMATEX format{};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = static_cast<WORD>(channels);
    format.nSamplesPerSec = static_cast<DWORD>(samplesPerSecond);
    format.wBitsPerSample = 16;
    format.nBlockAlign = static_cast<WORD>(channels * 2);
    format.nAvgBytesPerSec = static_cast<DWORD>(m_bytesPerSecond);
    if (waveOutOpen(&m_device, WAVE_MAPPER, &format, 0, 0, CALLBACK_NULL) != MMSYSERR_NOERROR) {
        m_device = nullptr;
    }
}

SoundOutput::~SoundOutput() {
    if (m_device != nullptr) {
        Clear();
        waveOutClose(m_device);
    }
}

void SoundOutput::Play(const QByteArray& samples) {
    FreePlayed();
    auto block = std::make_unique<Block>();
    block->Samples = samples;
    block->Header.lpData = block->Samples.data();
    block->Header.dwBufferLength = static_cast<DWORD>(block->Samples.size());
    if (waveOutPrepareHeader(m_device, &block->Header, sizeof(WAVEHDR)) == MMSYSERR_NOERROR &&
        waveOutWrite(m_device, &block->Header, sizeof(WAVEHDR)) == MMSYSERR_NOERROR) {
        m_queuedBytes += samples.size();
        m_blocks.push_back(std::move(block));
    } else {
        m_isLost = true;
    }
}

double SoundOutput::Waiting() {
    MMTIME time{};
    time.wType = TIME_BYTES;
    if (waveOutGetPosition(m_device, &time, sizeof time) != MMSYSERR_NOERROR ||
        time.wType != TIME_BYTES) {
        m_isLost = true;
        return 0;
    }
    // The system counts in 32 bits.
    const auto waiting = static_cast<qint32>(static_cast<quint32>(m_queuedBytes) - time.u.cb);
    LookForWork(time.u.cb, waiting > 0);
    return std::max(waiting, 0) / static_cast<double>(m_bytesPerSecond);
}

/// Some devices that are gone take sound for ever.
void SoundOutput::LookForWork(quint32 playedBytes, bool hasWork) {
    constexpr std::chrono::seconds patience(3);
    constexpr std::chrono::seconds longAgo(1);
    const auto now = std::chrono::steady_clock::now();
    // When the computer wakes up, the clock has gone on, but the device has not.
    const bool hasSlept = now - std::exchange(m_lookedAt, now) > longAgo;
    if (playedBytes != m_playedBytes || m_isPaused || !hasWork || hasSlept) {
        m_playedBytes = playedBytes;
        m_workedAt = now;
    }
    m_isLost = m_isLost || now - m_workedAt > patience;
}

void SoundOutput::Clear() {
    waveOutReset(m_device);
    FreePlayed();
    m_queuedBytes = 0;
}

void SoundOutput::SetPaused(bool paused) {
    m_isPaused = paused;
    if (paused) {
        waveOutPause(m_device);
    } else {
        waveOutRestart(m_device);
    }
}

void SoundOutput::SetVolume(int percent) {
    const DWORD level = static_cast<DWORD>(percent * 0xffff / 100);
    waveOutSetVolume(m_device, level << 16 | level);
}

void SoundOutput::FreePlayed() {
    while (!m_blocks.empty() && (m_blocks.front()->Header.dwFlags & WHDR_DONE) != 0) {
        waveOutUnprepareHeader(m_device, &m_blocks.front()->Header, sizeof(WAVEHDR));
        m_blocks.pop_front();
    }
}
