#pragma once

#include "platform/Controls.h"
#include "platform/qt/HeldInput.h"

#include <QScopedValueRollback>

#include <exception>
#include <functional>

/// Keeps exceptions from passing through Qt's stack frames, which Qt does not allow: an exception
/// of a handler is caught where the control raises its event, before it reaches the frames of Qt
/// below.
namespace QtFrames {

/// Sets who reports the failures of handlers. Without anybody, failures pass on.
void SetTeller(std::function<void(const std::exception&)> teller);

namespace Internal {

/// Where to keep a failure for the Call that is under way; null when there is none.
inline std::exception_ptr* KeptForCaller = nullptr;

void Tell(const std::exception& failure);

} // namespace Internal

/// Runs code that Qt has called and that raises events, even while input is held: for what the
/// desktop asks of a window. A failure is reported or, during a Call, passed on to its caller.
template <class Work>
void HandleAlways(const Work& work) {
    std::exception_ptr* const kept = Internal::KeptForCaller;
    // The work may let other events in, which have nothing to do with the Call under way.
    const QScopedValueRollback<std::exception_ptr*> apart(Internal::KeptForCaller, nullptr);
    try {
        work();
    } catch (const std::exception& failure) {
        if (kept == nullptr) {
            Internal::Tell(failure);
        } else if (*kept == nullptr) {
            *kept = std::current_exception();
        }
    }
}

/// The same, but does nothing while input is held.
template <class Work>
void Handle(const Work& work) {
    if (!HeldInput::IsNow()) {
        HandleAlways(work);
    }
}

/// Raises an event from code that Qt has called.
inline void Raise(const Event& event) {
    Handle([&event] { ::Raise(event); });
}

inline void Raise(const MouseEvent& event, const MouseState& mouse) {
    if (event) {
        Handle([&] { event(mouse); });
    }
}

/// Runs `work`, which calls Qt for the program and may raise events on the way. The first failure
/// of their handlers is thrown here, once Qt has returned.
template <class Work>
void Call(const Work& work) {
    std::exception_ptr failure;
    {
        const QScopedValueRollback<std::exception_ptr*> kept(Internal::KeptForCaller, &failure);
        work();
    }
    if (failure != nullptr) {
        std::rethrow_exception(failure);
    }
}

} // namespace QtFrames
