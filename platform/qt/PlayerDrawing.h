#pragma once

#include <QPainter>
#include <QPalette>

/// Draws a small music player, of no make in particular, as large as fits into `area` and in the
/// colours of `palette`. Its edges fall on whole pixels of the screen, whatever its scale.
void DrawPlayer(QPainter& painter, const QRectF& area, const QPalette& palette);
