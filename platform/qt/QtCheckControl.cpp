#include "platform/qt/QtCheckControl.h"

QtCheckControl::QtCheckControl(QWidget* parent, const QString& name, const QString& caption)
    : QtControl(new QCheckBox(caption, parent), name) {
    QObject::connect(Widget(), &QCheckBox::clicked, Widget(), [this] { Raise(Click); });
}
