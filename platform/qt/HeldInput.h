#pragma once

#include <QtGlobal>

class QWidget;

/// Keeps the windows alive during work that must not be disturbed.
namespace HeldInput {

/// Lets the windows be painted and answer the desktop. What the user does meanwhile is lost, and so
/// is what timers, shortcuts and screen readers ask for: it belongs to what was shown before. False
/// once the user has closed a window, which then closes when events are handled as usual again.
bool ProcessEvents();
/// Whether ProcessEvents is running: no handler may be called then.
bool IsNow();
/// The user has closed `window` while ProcessEvents was running.
void CloseLater(QWidget& window);

} // namespace HeldInput
