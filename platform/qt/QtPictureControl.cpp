#include "platform/qt/QtPictureControl.h"

#include <QPainter>

#include <algorithm>

namespace {

class DevicePicture : public QWidget {
public:
    using QWidget::QWidget;

    bool Shown = false;

protected:
    void paintEvent(QPaintEvent*) override {
        if (Shown) {
            QPainter painter(this);
            painter.setRenderHint(QPainter::Antialiasing);
            DrawDevice(painter);
        }
    }

private:
    /// Draws the device 60 units wide and 100 high, scaled into the widget.
    void DrawDevice(QPainter& painter) const {
        const double scale = std::min(width() / 64.0, height() / 104.0);
        painter.translate(width() / 2.0, height() / 2.0);
        painter.scale(scale, scale);
        painter.translate(-30, -50);

        const QColor line = palette().color(QPalette::WindowText);
        const QColor body = palette().color(QPalette::Button);
        const QColor wheel = palette().color(QPalette::Mid);
        painter.setPen(QPen(line, 2));
        painter.setBrush(body);
        painter.drawRoundedRect(QRectF(0, 0, 60, 100), 9, 9);
        painter.setBrush(palette().color(QPalette::Highlight));
        painter.drawRoundedRect(QRectF(9, 9, 42, 32), 2, 2);
        painter.setPen(QPen(line, 1));
        painter.setBrush(wheel);
        painter.drawEllipse(QPointF(30, 70), 20, 20);
        painter.setBrush(body);
        painter.drawEllipse(QPointF(30, 70), 7.5, 7.5);
    }
};

} // namespace

QtPictureControl::QtPictureControl(QWidget* parent, const QString& name)
    : QtControl(new DevicePicture(parent), name) {
}

void QtPictureControl::SetShown(bool shown) {
    static_cast<DevicePicture*>(Widget())->Shown = shown;
    Widget()->update();
}
