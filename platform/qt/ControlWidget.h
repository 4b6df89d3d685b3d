#pragma once

#include "platform/WindowManager.h"

#include <QWidget>

/// What the widgets of all controls have in common.
namespace ControlWidget {

/// Makes `widget` the widget of a control: sets its name, and shows its tool tip as plain text.
void Adopt(QWidget& widget, const QString& name);

WindowHandle HandleOf(const QWidget& widget);

/// The handle of the control that `widget` belongs to; 0 when it belongs to none, or to one that
/// may not count as focused.
WindowHandle ControlOf(const QWidget* widget);

/// Whether the control may count as the one that has the focus.
void SetMayHaveFocus(QWidget& widget, bool mayHaveFocus);

/// Whether a click of the user reaches the widget now. A button pressed by its shortcut or by a
/// screen reader is clicked a moment later, when it may be disabled or behind a message.
bool IsReached(const QWidget& widget);

/// Sets the widget's place and size in twips.
void Place(QWidget& widget, double left, double top, double width, double height);

/// Paints everything that waits to be painted in the widget's window, at once. Handles no input.
void PaintNow(QWidget& widget);

/// The widget of the window or control with that handle; null when there is none.
QWidget* WidgetOf(WindowHandle handle);

/// The owner for a box that must be seen: `owner`, or null while that is hidden or minimised,
/// because the desktop hides everything that belongs to a minimised window.
QWidget* SeenOwner(QWidget* owner);

} // namespace ControlWidget
