#pragma once

#include "platform/qt/QtControl.h"

#include <QFrame>
#include <QGroupBox>

/// A frame with a caption, around other controls. At first it is as large as its caption with the
/// room above and below it.
class QtFrameControl : public QtControl<Control, QGroupBox> {
public:
    QtFrameControl(QWidget* parent, const QString& name, const QString& caption);
};

/// An area around other controls that itself cannot be seen.
class QtPanelControl : public QtControl<Control, QWidget> {
public:
    QtPanelControl(QWidget* parent, const QString& name) : QtControl(new QWidget(parent), name) {}
};

/// A vertical line. It can be seen even when its width is 0.
class QtLineControl : public QtControl<Control, QFrame> {
public:
    QtLineControl(QWidget* parent, const QString& name);
};
