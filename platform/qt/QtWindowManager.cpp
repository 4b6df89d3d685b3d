#include "platform/qt/QtWindowManager.h"

#include "platform/qt/ControlWidget.h"
#include "platform/qt/Twips.h"

#include <QApplication>
#include <QScreen>

namespace {

/// An area that the primary screen reports; empty where there is no screen.
ScreenArea InTwips(QRect (QScreen::*area)() const) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QRect pixels = screen != nullptr ? (screen->*area)() : QRect();
    return {pixels.x() * Twips::PerPixelX(), pixels.y() * Twips::PerPixelY(),
            pixels.width() * Twips::PerPixelX(), pixels.height() * Twips::PerPixelY()};
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

ScreenArea QtWindowManager::WorkArea() {
    return InTwips(&QScreen::availableGeometry);
}

ScreenArea QtWindowManager::AllScreens() {
    return InTwips(&QScreen::virtualGeometry);
}

double QtWindowManager::TwipsPerPixelX() {
    return Twips::PerPixelX();
}

double QtWindowManager::TwipsPerPixelY() {
    return Twips::PerPixelY();
}
