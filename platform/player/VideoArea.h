#pragma once

#include "platform/player/Playback.h"

#include <QImage>
#include <QWidget>

class PlayerEngine;

/// Where the picture is shown: as large as there is room for, in its own shape, in the middle.
class VideoArea : public QWidget {
public:
    /// Pixels between a cover and the edges.
    static constexpr int CoverMargin = 12;

    explicit VideoArea(QWidget* parent);

    /// Where the pictures come from; null for nowhere.
    void SetEngine(PlayerEngine* engine) { m_engine = engine; }
    /// What is shown of what plays.
    void SetContent(const Playback& playback);
    /// Another picture can be drawn.
    void FrameReady();
    /// The part of the area that the picture takes.
    QRect PictureRect() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void RenderPicture(const QSize& size);

    PlayerEngine* m_engine = nullptr;
    Playback::Picture m_shows = Playback::Picture::None;
    QSize m_pictureSize;
    int m_rotation = 0;
    /// The current picture, not turned yet.
    QImage m_image;
    bool m_stale = true;
};
