#include "platform/qt/QtButtonControl.h"

#include <QKeyEvent>

namespace {

class PushButton : public QPushButton {
public:
    using QPushButton::QPushButton;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        // Enter presses the button that has the focus, whichever is the default one.
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            event->accept();
            if (!event->isAutoRepeat()) {
                click();
            }
            return;
        }
        QPushButton::keyPressEvent(event);
    }
};

} // namespace

QtButtonControl::QtButtonControl(QWidget* parent, const QString& name, const QString& caption)
    : QtControl(new PushButton(caption, parent), name) {
    Widget()->setAutoDefault(false);
    QObject::connect(Widget(), &QPushButton::clicked, Widget(), [this] {
        if (ControlWidget::IsReached(*Widget())) {
            Raise(Click);
        }
    });
}

void QtButtonControl::SetDefault(bool isDefault) {
    if (isDefault) {
        for (QPushButton* other : Widget()->window()->findChildren<QPushButton*>()) {
            other->setDefault(false);
        }
    }
    Widget()->setDefault(isDefault);
}
