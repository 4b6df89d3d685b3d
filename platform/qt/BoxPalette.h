#pragma once

#include <QPalette>

/// `palette` such that empty check boxes are seen: the style outlines them in a shade darker than
/// the window, which on a dark desktop nobody sees, and on a light one not everybody.
QPalette WithVisibleBoxes(QPalette palette);

/// How much two colours differ for the eye, from 1 to 21: a text shall have 4.5, a sign 3.
double Contrast(const QColor& one, const QColor& other);

/// `palette` such that selected text stands out from its ground, which becomes darker or lighter.
QPalette WithReadableSelection(QPalette palette);
