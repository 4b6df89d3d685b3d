#pragma once

#include "platform/qt/QtControl.h"

#include <QLabel>

/// A small picture of a music player. As a label, it can be the name of its neighbour for screen
/// readers.
class QtPictureControl : public QtControl<PictureControl, QLabel> {
public:
    QtPictureControl(QWidget* parent, const QString& name);

    void ShowDevice() override { SetShown(true); }
    void Clear() override { SetShown(false); }

private:
    class DevicePicture;
    DevicePicture* m_picture;

    QtPictureControl(DevicePicture* picture, const QString& name);
    void SetShown(bool shown);
};
