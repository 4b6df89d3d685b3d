#pragma once

#include <QRect>

/// Twips and pixels of the primary screen. Lengths of the program are in twips, those of widgets in
/// whole pixels.
namespace Twips {

double PerPixelX();
double PerPixelY();

/// The pixels that a rectangle in twips covers. Its edges are rounded, not its size, so that
/// rectangles that touch in twips neither gap nor overlap on the screen.
QRect ToPixels(double left, double top, double width, double height);

} // namespace Twips
