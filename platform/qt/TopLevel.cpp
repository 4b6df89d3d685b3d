#include "platform/qt/TopLevel.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>

bool TopLevel::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowActivate:
    case QEvent::WindowStateChange:
    case QEvent::UpdateRequest:
        Raise(FrameMayHaveChanged);
        break;
    default:
        break;
    }
    return handled;
}

void TopLevel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Raise(Resized);
}

void TopLevel::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) {
        Raise(StateChanged);
    }
}

void TopLevel::closeEvent(QCloseEvent* event) {
    event->setAccepted(!MayClose || MayClose());
}

void TopLevel::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous()) {
        Raise(Hidden);
    }
}

void TopLevel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        if (!event->isAutoRepeat()) {
            PressDefaultButton();
        }
    } else if (event->key() == Qt::Key_Escape && isModal()) {
        event->accept();
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void TopLevel::PressDefaultButton() {
    for (QPushButton* button : findChildren<QPushButton*>()) {
        if (button->window() == this && button->isDefault() && button->isEnabled() &&
            button->isVisible()) {
            button->click();
            return;
        }
    }
}
