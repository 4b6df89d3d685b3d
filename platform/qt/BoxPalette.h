#pragma once

#include <QPalette>

/// `palette`, changed so that empty check boxes can be seen: the style outlines them in a shade
/// darker than the window, which nobody can see on a dark desktop, and not everybody on a light
/// one.
QPalette WithVisibleBoxes(QPalette palette);

/// The contrast ratio of two colours, from 1 to 21. A text should have 4.5, a sign 3.
double Contrast(const QColor& one, const QColor& other);

/// `palette`, changed so that selected text stands out from its background, which becomes darker or
/// lighter.
QPalette WithReadableSelection(QPalette palette);
