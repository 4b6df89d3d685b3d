#pragma once

#include "platform/RuntimeError.h"
#include "tests/fakes/FakeFaults.h"

#include <new>
#include <stdexcept>

/// The kinds of failure that no handler expects of a control.
inline const std::function<void()>& UnexpectedFailure(int kind) {
    static const std::function<void()> failures[] = {
        [] { throw RuntimeError(ErrorNumber::InvalidProcedureCall); },
        [] { throw std::bad_alloc(); },
        [] { throw std::out_of_range("a programming error"); },
    };
    return failures[kind % 3];
}

/// Lets `handler` run as the program's event loop does: a failure ends it, and the program goes on.
inline void RunHandler(const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::exception&) {
        return;
    }
}

/// Runs `handler` with its `nth` call of a fake failing unexpectedly. False when it makes fewer.
inline bool RunFailing(const std::function<void()>& handler, int nth, int kind) {
    FakeFaults::FailNth(nth, UnexpectedFailure(kind));
    RunHandler(handler);
    return FakeFaults::Stop();
}
