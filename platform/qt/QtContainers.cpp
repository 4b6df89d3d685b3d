#include "platform/qt/QtContainers.h"

QtLineControl::QtLineControl(QWidget* parent, const QString& name)
    : QtControl(new QFrame(parent), name) {
    Widget()->setFrameStyle(QFrame::VLine | QFrame::Plain);
    Widget()->setForegroundRole(QPalette::Mid);
    Widget()->setMinimumWidth(1);
}
