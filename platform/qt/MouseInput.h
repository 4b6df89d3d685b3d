#pragma once

#include "platform/Controls.h"

#include <QMouseEvent>

/// What the mouse did, as a control's listeners hear it. `position` is in pixels from the control's
/// top left corner.
namespace MouseInput {

/// A press or release: the button that caused it.
MouseState OfButton(const QMouseEvent& event, QPointF position);

/// A move: the buttons that are down.
MouseState OfMove(const QMouseEvent& event, QPointF position);

/// The right button, for the keys that stand for it.
MouseState OfMenuKey(QPointF position);

} // namespace MouseInput
