#include "platform/player/JumpSlider.h"

#include <QMouseEvent>
#include <QStyleOptionSlider>

void JumpSlider::mousePressEvent(QMouseEvent* event) {
    QStyleOptionSlider option;
    initStyleOption(&option);
    const auto rectOf = [&](QStyle::SubControl part) {
        return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
    };
    const QRect handle = rectOf(QStyle::SC_SliderHandle);
    const QPoint clicked = event->position().toPoint();
    if (event->button() == Qt::LeftButton && !handle.contains(clicked)) {
        const QRect groove = rectOf(QStyle::SC_SliderGroove);
        const int way = clicked.x() - groove.left() - handle.width() / 2;
        setValue(QStyle::sliderValueFromPosition(
            minimum(), maximum(), way, groove.width() - handle.width(), option.upsideDown));
    }
    // The handle is under the mouse now, and follows it.
    QSlider::mousePressEvent(event);
}
