#include "platform/qt/QtPictureControl.h"

#include <QIcon>
#include <QPainter>

namespace {

class DevicePicture : public QLabel {
public:
    using QLabel::QLabel;

    bool Shown = false;

protected:
    void paintEvent(QPaintEvent*) override {
        if (Shown) {
            QPainter painter(this);
            QIcon(QStringLiteral(":/player.png")).paint(&painter, rect());
        }
    }
};

} // namespace

QtPictureControl::QtPictureControl(QWidget* parent, const QString& name)
    : QtControl(new DevicePicture(parent), name) {
}

void QtPictureControl::SetShown(bool shown) {
    auto* picture = static_cast<DevicePicture*>(Widget());
    if (picture->Shown != shown) {
        picture->Shown = shown;
        picture->update();
    }
}
