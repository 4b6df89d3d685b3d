#include "platform/qt/TopLevel.h"

#include <QAccessibleWidget>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QPushButton>

namespace {

/// Makes screen readers announce a window or a dialog, and not just some area.
QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* window = dynamic_cast<TopLevel*>(object);
    if (window == nullptr) {
        return nullptr;
    }
    const bool isDialog = window->windowType() == Qt::Dialog;
    return new QAccessibleWidget(window, isDialog ? QAccessible::Dialog : QAccessible::Window);
}

} // namespace

TopLevel::TopLevel(QWidget* owner, Qt::WindowFlags flags) : QWidget(owner, flags) {
    [[maybe_unused]] static const bool installed =
        (QAccessible::installFactory(MakeAccessible), true);
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
