#include "platform/player/VideoArea.h"

#include "platform/player/PlayerEngine.h"

#include <QPainter>

VideoArea::VideoArea(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void VideoArea::SetContent(const Playback& playback) {
    if (playback.Shows == m_shows && playback.PictureSize == m_pictureSize &&
        playback.Rotation == m_rotation) {
        return;
    }
    m_shows = playback.Shows;
    m_pictureSize = playback.PictureSize;
    m_rotation = playback.Rotation;
    m_stale = true;
    update();
}

void VideoArea::FrameReady() {
    m_stale = true;
    if (visibleRegion().isEmpty() || window()->isMinimized()) {
        m_engine->Skip(); // nothing will draw it, and the player would wait
    } else {
        update();
    }
}

QRect VideoArea::PictureRect() const {
    if (m_shows == Playback::Picture::None || m_pictureSize.isEmpty()) {
        return {};
    }
    const int margin = m_shows == Playback::Picture::Cover ? CoverMargin : 0;
    const QSize room = size() - QSize(2 * margin, 2 * margin);
    if (room.isEmpty()) {
        return {};
    }
    const QSize size = m_pictureSize.scaled(room, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    QRect picture(QPoint(), size);
    picture.moveCenter(rect().center());
    return picture;
}

void VideoArea::paintEvent(QPaintEvent*) {
    const bool isFilm = m_shows == Playback::Picture::Film;
    QPainter painter(this);
    painter.fillRect(rect(), isFilm ? QBrush(Qt::black) : palette().window());
    const QRect picture = PictureRect();
    if (m_engine == nullptr || picture.isEmpty()) {
        return;
    }
    const QSize drawn = m_rotation % 180 == 0 ? picture.size() : picture.size().transposed();
    RenderPicture(drawn * devicePixelRatio());
    painter.translate(QRectF(picture).center());
    painter.rotate(m_rotation);
    const QPointF corner(-drawn.width() / 2.0, -drawn.height() / 2.0);
    painter.drawImage(QRectF(corner, drawn), m_image);
}

/// Draws the current picture in that many pixels, unless it is there already.
void VideoArea::RenderPicture(const QSize& size) {
    if (size == m_image.size() && !m_stale) {
        return;
    }
    if (size != m_image.size()) {
        m_image = QImage(size, QImage::Format_RGB32);
    }
    m_engine->Render(m_image);
    m_stale = false;
}
