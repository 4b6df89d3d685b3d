#include "platform/qt/QtPictureControl.h"

#include <QIcon>
#include <QPainter>

class QtPictureControl::DevicePicture : public QLabel {
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

QtPictureControl::QtPictureControl(QWidget* parent, const QString& name)
    : QtPictureControl(new DevicePicture(parent), name) {
}

QtPictureControl::QtPictureControl(DevicePicture* picture, const QString& name)
    : QtControl(picture, name), m_picture(picture) {
}

void QtPictureControl::SetShown(bool shown) {
    if (m_picture->Shown != shown) {
        m_picture->Shown = shown;
        m_picture->update();
    }
}
