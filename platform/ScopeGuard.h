#pragma once

#include <utility>

/// Runs an action when its scope is left, also by an exception:
///
///     ScopeGuard pointer([this] { m_controls.Form1.SetMousePointer(MousePointer::Default); });
///     m_controls.Form1.SetMousePointer(MousePointer::Hourglass);
///
/// QScopeGuard would end the program when the action throws, and cannot be run early.
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
                // The user learns of the failure that ended the scope; this one follows from it.
                return;
            }
        }
    }

    /// Runs the action now. If it throws, it is run once more at the end of the scope.
    void Run() {
        m_action();
        m_armed = false;
    }

    /// The action will not be run.
    void Dismiss() { m_armed = false; }

private:
    Action m_action;
    bool m_armed = true;
};
