#pragma once

#include "app/Preview.h"
#include "platform/player/MediaPlayer.h"
#include "platform/qt/QtWindow.h"

/// The real preview window, which holds nothing but the player.
class PreviewWindow {
public:
    /// `owner` is the main window, over which the preview stands.
    PreviewWindow(QWidget* owner, FileSystem& files);
    PreviewWindow(const PreviewWindow&) = delete;
    PreviewWindow& operator=(const PreviewWindow&) = delete;

    PreviewControls& Controls() { return m_controls; }
    QWidget* Widget() const { return m_window.Widget(); }

private:
    QtWindow m_window;
    MediaPlayer m_player;
    PreviewControls m_controls;
};
