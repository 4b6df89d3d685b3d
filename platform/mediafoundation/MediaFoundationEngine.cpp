#include "platform/mediafoundation/MediaFoundationEngine.h"

#include <QPainter>

#include <utility>

using namespace Qt::StringLiterals;

std::unique_ptr<PlayerEngine> PlayerEngine::Make() {
    return std::make_unique<MediaFoundationEngine>();
}

MediaFoundationEngine::~MediaFoundationEngine() {
    Stop();
    if (const std::shared_ptr<MediaSession> last = m_last.lock()) {
        // The program ends, which would stop the thread in the middle of the system's code.
        last->WaitUntilEnded(500);
    }
}

const Playback& MediaFoundationEngine::State() const {
    m_state = m_session ? m_session->State() : Playback();
    if (m_state.At == Playback::Stage::Failed && MediaFoundation::Find() == nullptr) {
        m_state.Why = u"Windows plays this with its Media Feature Pack, which is not installed."_s;
    }
    return m_state;
}

void MediaFoundationEngine::Load(std::shared_ptr<MediaFile> file, const QString& suffix) {
    Stop();
    const auto raise = [](const std::function<void()>& event) {
        if (event) {
            event();
        }
    };
    m_session = std::make_shared<MediaSession>(
        std::move(file), suffix, m_volume, [this, raise] { raise(Changed); },
        [this, raise] { raise(FrameReady); });
    m_last = m_session;
    MediaSession::Start(m_session);
}

bool MediaFoundationEngine::Stop() {
    if (m_session) {
        m_session->Stop();
        m_session.reset();
    }
    return true;
}

bool MediaFoundationEngine::WaitUntilKnown(int milliseconds) {
    return m_session == nullptr || m_session->WaitUntilKnown(milliseconds);
}

bool MediaFoundationEngine::Known() const {
    return State().At != Playback::Stage::Opening;
}

void MediaFoundationEngine::SetPaused(bool paused) {
    if (m_session) {
        m_session->SetPaused(paused);
    }
}

void MediaFoundationEngine::SeekTo(double position) {
    if (m_session) {
        m_session->SeekTo(position);
    }
}

void MediaFoundationEngine::SetVolume(int percent) {
    m_volume = percent;
    if (m_session) {
        m_session->SetVolume(percent);
    }
}

void MediaFoundationEngine::Render(QImage& image) {
    QPainter painter(&image);
    painter.fillRect(image.rect(), Qt::black);
    if (m_session) {
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage(image.rect(), m_session->Picture());
    }
}
