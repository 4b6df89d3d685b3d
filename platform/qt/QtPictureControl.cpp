#include "platform/qt/QtPictureControl.h"

#include <QIcon>
#include <QPainter>

using namespace Qt::StringLiterals;

class QtPictureControl::DevicePicture : public QLabel {
public:
    using QLabel::QLabel;

    bool Shown = false;

protected:
    void paintEvent(QPaintEvent*) override {
        if (Shown) {
            if (m_icon.isNull()) {
                m_icon = QIcon(u":/player.png"_s); // only once, since it is decoded
            }
            QPainter painter(this);
            m_icon.paint(&painter, rect());
        }
    }

private:
    QIcon m_icon;
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
