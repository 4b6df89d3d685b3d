#pragma once

#include <QSlider>

/// A slider that goes at once to where it is clicked, and can be dragged on from there. The style's
/// SH_Slider_AbsoluteSetButtons would also move it when its handle is only grabbed, and would need
/// a style for the slider alone.
class JumpSlider : public QSlider {
public:
    explicit JumpSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {}

protected:
    void mousePressEvent(QMouseEvent* event) override;
};
