#pragma once

#include "platform/qt/QtControl.h"

/// A small picture of a music player, drawn in the colours of the desktop.
class QtPictureControl : public QtControl<PictureControl, QWidget> {
public:
    QtPictureControl(QWidget* parent, const QString& name);

    void ShowDevice() override { SetShown(true); }
    void Clear() override { SetShown(false); }

private:
    void SetShown(bool shown);
};
