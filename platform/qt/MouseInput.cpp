#include "platform/qt/MouseInput.h"

#include "platform/qt/Twips.h"

namespace MouseInput {

namespace {

MouseState State(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers, QPointF position) {
    MouseState state;
    state.Button = (buttons.testFlag(Qt::LeftButton) ? 1 : 0) +
                   (buttons.testFlag(Qt::RightButton) ? 2 : 0) +
                   (buttons.testFlag(Qt::MiddleButton) ? 4 : 0);
    state.Shift = (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) +
                  (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) +
                  (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
    state.X = position.x() * Twips::PerPixelX();
    state.Y = position.y() * Twips::PerPixelY();
    return state;
}

} // namespace

MouseState OfButton(const QMouseEvent& event, QPointF position) {
    return State(event.button(), event.modifiers(), position);
}

MouseState OfMove(const QMouseEvent& event, QPointF position) {
    return State(event.buttons(), event.modifiers(), position);
}

MouseState OfMenuKey(QPointF position) {
    return State(Qt::RightButton, Qt::NoModifier, position);
}

} // namespace MouseInput
