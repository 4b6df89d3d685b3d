#pragma once

#include "platform/qt/QtControl.h"

#include <QFrame>
#include <QGroupBox>

/// A frame with a caption, around other controls. At first it is as large as its caption, with the
/// room that parts this from what stands above the frame and in it.
class QtFrameControl : public QtControl<Control, QGroupBox> {
public:
    QtFrameControl(QWidget* parent, const QString& name, const QString& caption);
};

/// An area without a look of its own, around other controls.
class QtPanelControl : public QtControl<Control, QWidget> {
public:
    QtPanelControl(QWidget* parent, const QString& name) : QtControl(new QWidget(parent), name) {}
};

/// A vertical line. It is seen even when both its ends have the same position.
class QtLineControl : public QtControl<Control, QFrame> {
public:
    QtLineControl(QWidget* parent, const QString& name);
};
