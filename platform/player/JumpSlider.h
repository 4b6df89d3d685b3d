#pragma once

#include <QSlider>

/// A slider that goes at once to where it is clicked, and can be dragged on from there. The style's
/// SH_Slider_AbsoluteSetButtons would move it also when its handle is only taken hold of, and need
/// a style of the slider's own in place of the program's.
class JumpSlider : public QSlider {
public:
    explicit JumpSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {}

protected:
    void mousePressEvent(QMouseEvent* event) override;
};
