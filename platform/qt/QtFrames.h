#pragma once

#include "platform/Controls.h"
#include "platform/qt/HeldInput.h"

#include <QScopedValueRollback>

#include <exception>
#include <functional>

/// Keeps exceptions out of Qt's frames, which may not be left in this way: what handlers throw ends
/// where the control raises its event, before the frames of Qt that have led there.
namespace QtFrames {

/// Tells what a handler has failed with. While nobody does, failures pass on.
void SetTeller(std::function<void(const std::exception&)> teller);

namespace Internal {

/// Keeps a failure for the call of the program that is under way; null when there is none.
inline std::exception_ptr* KeptForCaller = nullptr;

void Tell(const std::exception& failure);

} // namespace Internal

/// Does what Qt has called for, which raises events, at any time: for what the desktop asks of a
/// window. What fails there is told; during a Call it is the caller's.
template <class Work>
void HandleAlways(const Work& work) {
    std::exception_ptr* const kept = Internal::KeptForCaller;
    // The work may let other events in, which have nothing to do with that call.
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

/// Does the same, but not while input is held.
template <class Work>
void Handle(const Work& work) {
    if (!HeldInput::IsNow()) {
        HandleAlways(work);
    }
}

/// Raises an event that Qt has called for.
inline void Raise(const Event& event) {
    Handle([&event] { ::Raise(event); });
}

inline void Raise(const MouseEvent& event, const MouseState& mouse) {
    if (event) {
        Handle([&] { event(mouse); });
    }
}

/// Lets Qt do, for the program, what may raise events on the way. The first failure of their
/// handlers is thrown here, once Qt is done.
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
