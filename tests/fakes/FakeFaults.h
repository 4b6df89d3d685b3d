#pragma once

#include <functional>
#include <utility>

/// Lets one call fail, whichever fake it goes to. Every call by which a rule asks a control, a
/// window or a service to do something counts; questions to a control that it answers from memory
/// do not.
class FakeFaults {
public:
    /// The `nth` call from now on (1-based) does nothing but run `fail`, which throws.
    static void FailNth(int nth, std::function<void()> fail) {
        s_callsToGo = nth;
        s_fail = std::move(fail);
    }
    /// Ends the waiting for the failure. True when it has struck.
    static bool Stop() { return std::exchange(s_callsToGo, 0) <= 0; }

    /// Called by each fake at the beginning of a call.
    static void Call() {
        if (s_callsToGo > 0 && --s_callsToGo == 0) {
            s_callsToGo = -1;
            s_fail();
        }
    }

private:
    /// 0 no failure is planned, -1 it has struck.
    inline static int s_callsToGo = 0;
    inline static std::function<void()> s_fail;
};
