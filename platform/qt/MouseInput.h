#pragma once

#include "platform/Controls.h"

#include <QMouseEvent>

/// Mouse events as the controls' events pass them on. `position` is in pixels from the control's
/// top left corner.
namespace MouseInput {

/// A press or release, with the button that caused it.
MouseState OfButton(const QMouseEvent& event, QPointF position);

/// A move, with the buttons that are down.
MouseState OfMove(const QMouseEvent& event, QPointF position);

/// A press of the right button, for the keys that mean the same.
MouseState OfMenuKey(QPointF position);

} // namespace MouseInput
