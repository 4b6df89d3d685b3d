#pragma once

#include <QtGlobal>

class QWidget;

/// Looks after the windows during work that is not to be disturbed.
namespace HeldInput {

/// Lets the windows be painted and answer the desktop. What the user does meanwhile, and what
/// timers, shortcuts and screen readers ask for, is lost: it was meant for what was shown before.
/// False once the user has closed a window: it closes when the events are handled as usual again.
bool ProcessEvents();
/// Whether that is being done: no handler may run.
bool IsNow();
/// The user has closed that window meanwhile.
void CloseLater(QWidget& window);

} // namespace HeldInput
