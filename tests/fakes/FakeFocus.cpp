#include "tests/fakes/FakeFocus.h"

#include <utility>

void FakeFocus::Give(WindowHandle handle, Event got, Event lost) {
    if (m_current == handle) {
        return;
    }
    const Event previous = std::exchange(m_lost, std::move(lost));
    m_current = handle;
    Raise(previous);
    Raise(got);
}

void FakeFocus::TakeFrom(WindowHandle handle) {
    if (m_current == handle) {
        Give(0, {}, {});
    }
}

void FakeFocus::Forget(WindowHandle handle) {
    if (m_current == handle) {
        m_current = 0;
        m_lost = {};
    }
}

WindowHandle FakeFocus::NewHandle() {
    static WindowHandle last = 1000;
    return ++last;
}
