#pragma once

#include <QRect>

/// Conversion between twips and pixels of the primary screen. The program uses twips, widgets use
/// whole pixels.
namespace Twips {

double PerPixelX();
double PerPixelY();

/// The pixels that a rectangle in twips covers. Its edges are rounded and not its size, so that
/// rectangles that touch in twips have neither a gap nor an overlap on the screen.
QRect ToPixels(double left, double top, double width, double height);

} // namespace Twips
