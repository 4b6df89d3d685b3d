#include "platform/qt/QtWindowManager.h"

#include "platform/qt/ControlWidget.h"
#include "platform/qt/Twips.h"

#include <QApplication>
#include <QScreen>

namespace {

QSize ScreenPixels() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen != nullptr ? screen->availableSize() : QSize();
}

} // namespace

WindowHandle QtWindowManager::GetActiveWindow() {
    const QWidget* active = QApplication::activeWindow();
    return active != nullptr ? ControlWidget::HandleOf(*active) : 0;
}

void QtWindowManager::FlashWindow(WindowHandle window) {
    if (QWidget* widget = ControlWidget::WidgetOf(window)) {
        QApplication::alert(widget);
    }
}

WindowHandle QtWindowManager::GetFocus() {
    return ControlWidget::ControlOf(QApplication::focusWidget());
}

double QtWindowManager::ScreenWidth() {
    return ScreenPixels().width() * TwipsPerPixelX();
}

double QtWindowManager::ScreenHeight() {
    return ScreenPixels().height() * TwipsPerPixelY();
}

double QtWindowManager::TwipsPerPixelX() {
    return Twips::PerPixelX();
}

double QtWindowManager::TwipsPerPixelY() {
    return Twips::PerPixelY();
}
