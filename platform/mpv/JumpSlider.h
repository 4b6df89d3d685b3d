#pragma once

#include <QSlider>

/// A slider that goes at once to where it is clicked, and can be dragged on from there.
class JumpSlider : public QSlider {
public:
    explicit JumpSlider(QWidget* parent) : QSlider(Qt::Horizontal, parent) {}

protected:
    void mousePressEvent(QMouseEvent* event) override;
};
