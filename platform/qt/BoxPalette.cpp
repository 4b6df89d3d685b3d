#include "platform/qt/BoxPalette.h"

namespace {

constexpr int MiddleLightness = 128;
/// Its darker shade, which becomes the outline, is a middle grey.
constexpr QRgb LightGrey = qRgb(180, 180, 180);

} // namespace

QPalette WithVisibleBoxes(QPalette palette) {
    if (palette.color(QPalette::Window).lightness() < MiddleLightness) {
        palette.setColor(QPalette::Window, QColor(LightGrey));
    }
    return palette;
}
