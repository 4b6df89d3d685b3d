#include "platform/qt/BoxPalette.h"

#include <algorithm>
#include <cmath>

namespace {

/// The style outlines boxes in a darker shade of it, a middle grey.
constexpr QRgb LightGrey = qRgb(170, 170, 170);
constexpr double ContrastOfText = 4.5;

double Luminance(const QColor& color) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

} // namespace

double Contrast(const QColor& one, const QColor& other) {
    const double a = Luminance(one);
    const double b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QPalette WithVisibleBoxes(QPalette palette) {
    palette.setColor(QPalette::Window, QColor(LightGrey));
    return palette;
}

QPalette WithReadableSelection(QPalette palette) {
    constexpr int mostSteps = 60;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        const QColor text = palette.color(group, QPalette::HighlightedText);
        QColor ground = palette.color(group, QPalette::Highlight);
        const bool textIsLight = Luminance(text) > Luminance(ground);
        for (int step = 0; step < mostSteps && Contrast(text, ground) < ContrastOfText; ++step) {
            ground = textIsLight ? ground.darker(105) : ground.lighter(105);
        }
        palette.setColor(group, QPalette::Highlight, ground);
    }
    return palette;
}
