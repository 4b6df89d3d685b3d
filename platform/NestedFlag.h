#pragma once

#include <utility>

/// A flag that is set while at least one of its guards lives, so that code which sets it may call
/// code that sets it again:
///
///     const NestedFlag::Guard building = m_lists.Building.Set();
///
/// QScopedValueRollback cannot end before its scope does, and needs a flag that everybody can
/// write.
class NestedFlag {
public:
    class [[nodiscard]] Guard {
    public:
        explicit Guard(NestedFlag& flag) : m_flag(&flag) { ++m_flag->m_guards; }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;
        ~Guard() { End(); }

        /// Gives the flag up before the end of the scope.
        void End() {
            if (NestedFlag* flag = std::exchange(m_flag, nullptr)) {
                --flag->m_guards;
            }
        }

    private:
        NestedFlag* m_flag;
    };

    NestedFlag() = default;
    NestedFlag(const NestedFlag&) = delete;
    NestedFlag& operator=(const NestedFlag&) = delete;

    Guard Set() { return Guard(*this); }
    explicit operator bool() const { return m_guards > 0; }

private:
    int m_guards = 0;
};
