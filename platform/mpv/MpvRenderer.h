#pragma once

#include <mpv/client.h>
#include <mpv/render.h>

#include <QImage>
#include <QObject>

#include <atomic>
#include <functional>
#include <memory>

/// Draws the pictures of a player into images, by the processor alone: a graphics card that works
/// is not needed.
class MpvRenderer {
public:
    /// `frameReady` is called in the thread that creates the renderer.
    /// Throws RuntimeError when the player cannot draw.
    MpvRenderer(mpv_handle* mpv, std::function<void()> frameReady);
    ~MpvRenderer();
    MpvRenderer(const MpvRenderer&) = delete;
    MpvRenderer& operator=(const MpvRenderer&) = delete;

    /// Draws the current frame over the whole image, whose format is RGB32.
    void Render(QImage& image);
    /// Gives away what draws, to be freed wherever the player ends; nothing is drawn any more.
    mpv_render_context* Release();
    /// Lets the player go on without drawing the current frame.
    void Skip();
    /// The same, if a frame waits to be drawn. For a caller that keeps the window from it: the
    /// player would wait for a fifth of a second.
    void SkipWaiting();

private:
    struct Free {
        void operator()(mpv_render_context* context) const;
    };

    void HearUpdate();
    bool HasFrame();

    std::function<void()> m_frameReady;
    /// Updates come from the player's threads; this brings them here, and drops them when the
    /// renderer goes.
    QObject m_receiver;
    std::atomic<bool> m_updateUnderWay = false;
    std::unique_ptr<mpv_render_context, Free> m_context;
};
