#pragma once

#include <utility>

/// Does what must be done when its scope is left, be it by an exception:
///
///     m_state.Building = true;
///     ScopeGuard building([this] { m_state.Building = false; });
///
/// QScopeGuard would end the program where the action fails, and cannot be run early.
template <class Action>
class ScopeGuard {
public:
    explicit ScopeGuard(Action action) : m_action(std::move(action)) {}
    ScopeGuard(const ScopeGuard&) = delete;
    ScopeGuard& operator=(const ScopeGuard&) = delete;

    ~ScopeGuard() {
        if (m_armed) {
            try {
                m_action();
            } catch (...) {
                // The user is told of the failure that ended the scope; this one follows from it.
                return;
            }
        }
    }

    /// Does it now. Where that fails, the end of the scope tries once more.
    void Run() {
        m_action();
        m_armed = false;
    }

    /// There is nothing to do any more.
    void Dismiss() { m_armed = false; }

private:
    Action m_action;
    bool m_armed = true;
};
