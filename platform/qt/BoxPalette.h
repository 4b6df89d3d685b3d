#pragma once

#include <QPalette>

/// `palette` such that empty check boxes are seen on a dark desktop too: the style outlines them in
/// a shade darker than the window, which there is a shade that nobody sees.
QPalette WithVisibleBoxes(QPalette palette);
