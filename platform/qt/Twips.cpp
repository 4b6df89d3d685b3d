#include "platform/qt/Twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace Twips {

namespace {

constexpr double PerInch = 1440;

double PerPixel(qreal (QScreen::*dotsPerInch)() const) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double dots = screen != nullptr ? (screen->*dotsPerInch)() : 96;
    return PerInch / (dots > 0 ? dots : 96);
}

/// The pixel that an edge falls on. A value that no widget can have, or NaN, becomes one in range.
int Edge(double twips, double perPixel) {
    constexpr double limit = QWIDGETSIZE_MAX;
    const double pixel = std::round(twips / perPixel);
    return std::isnan(pixel) ? 0 : int(std::clamp(pixel, -limit, limit));
}

} // namespace

double PerPixelX() {
    return PerPixel(&QScreen::logicalDotsPerInchX);
}

double PerPixelY() {
    return PerPixel(&QScreen::logicalDotsPerInchY);
}

QRect ToPixels(double left, double top, double width, double height) {
    const double perPixelX = PerPixelX();
    const double perPixelY = PerPixelY();
    const int x = Edge(left, perPixelX);
    const int y = Edge(top, perPixelY);
    return {x, y, std::max(0, Edge(left + width, perPixelX) - x),
            std::max(0, Edge(top + height, perPixelY) - y)};
}

} // namespace Twips
