#pragma once

#include "platform/WindowManager.h"

#include <QWidget>

/// What all controls do with their widgets.
namespace ControlWidget {

/// Makes `widget` the widget of a control: gives it its name and its handle, and shows its tool tip
/// as plain text.
void Adopt(QWidget& widget, const QString& name);

WindowHandle HandleOf(const QWidget& widget);

/// The handle of the control that `widget` belongs to; 0 when it belongs to none, or to one that
/// gave up the focus.
WindowHandle ControlOf(const QWidget* widget);

/// Whether the control may count as the one that has the focus.
void SetMayHaveFocus(QWidget& widget, bool mayHaveFocus);

/// Whether a click of the user reaches the widget now. A button pressed by its shortcut, or by a
/// screen reader, is clicked a moment later, when it may be disabled or stand behind a message.
bool IsReached(const QWidget& widget);

/// Places the widget by twips.
void Place(QWidget& widget, double left, double top, double width, double height);

/// Paints at once whatever waits to be painted in the widget's window. Handles no input.
void PaintNow(QWidget& widget);

/// The window's or control's widget of that handle; null when there is none.
QWidget* WidgetOf(WindowHandle handle);

/// The owner for a box that must be seen: `owner`, or none while that is not seen itself. The
/// desktop hides what belongs to a minimised window together with it.
QWidget* SeenOwner(QWidget* owner);

} // namespace ControlWidget
