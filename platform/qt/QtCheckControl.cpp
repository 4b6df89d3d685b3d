#include "platform/qt/QtCheckControl.h"

#include "platform/qt/BoxPalette.h"

namespace {

class CheckBox : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

protected:
    void nextCheckState() override {
        if (ControlWidget::IsReached(*this)) {
            QCheckBox::nextCheckState();
        }
    }
};

} // namespace

QtCheckControl::QtCheckControl(QWidget* parent, const QString& name, const QString& caption)
    : QtControl(new CheckBox(caption, parent), name) {
    Widget()->setPalette(WithVisibleBoxes(Widget()->palette()));
    QObject::connect(Widget(), &QCheckBox::clicked, Widget(), [this] {
        if (ControlWidget::IsReached(*Widget())) {
            QtFrames::Raise(Click);
        }
    });
}
