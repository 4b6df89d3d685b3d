#include "platform/qt/QtCheckControl.h"

#include "platform/qt/BoxPalette.h"

QtCheckControl::QtCheckControl(QWidget* parent, const QString& name, const QString& caption)
    : QtControl(new QCheckBox(caption, parent), name) {
    Widget()->setPalette(WithVisibleBoxes(Widget()->palette()));
    QObject::connect(Widget(), &QCheckBox::clicked, Widget(), [this] { Raise(Click); });
}
