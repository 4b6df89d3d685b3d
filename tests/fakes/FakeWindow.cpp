#include "tests/fakes/FakeWindow.h"

#include <stdexcept>

void FakeWindow::SetCaption(const QString& caption) {
    FakeFaults::Call();
    if (caption != m_caption) {
        m_caption = caption;
        Captions.append(caption);
    }
}

void FakeWindow::SetState(WindowState state) {
    FakeFaults::Call();
    if (state != m_state) {
        m_state = state;
        Raise(Resize);
    }
}

double FakeWindow::Left() const {
    return Maximized() ? 0 : m_left;
}

double FakeWindow::Top() const {
    return Maximized() ? 0 : m_top;
}

double FakeWindow::Width() const {
    return Maximized() ? MaximizedWidth : m_width;
}

double FakeWindow::Height() const {
    return Maximized() ? MaximizedHeight : m_height;
}

void FakeWindow::MoveTo(double left, double top) {
    FakeFaults::Call();
    m_left = left;
    m_top = top;
}

void FakeWindow::SetSize(double width, double height) {
    FakeFaults::Call();
    if (width == m_width && height == m_height) {
        return;
    }
    m_width = width;
    m_height = height;
    // A window that is maximised or minimised takes the new size when it is normal again.
    if (m_state == WindowState::Normal) {
        Raise(Resize);
    }
}

void FakeWindow::SetMinimumSize(double width, double height) {
    MinimumWidth = width;
    MinimumHeight = height;
}

void FakeWindow::Show() {
    FakeFaults::Call();
    ++ShowCount;
    Visible = true;
    Closed = false;
}

void FakeWindow::ShowModal() {
    ++ShowModalCount;
    Visible = true;
    Closed = false;
    Raise(ModalScript);
    if (Visible) {
        UserClose();
    }
    if (Visible) {
        throw std::logic_error("the modal window refused to close");
    }
}

void FakeWindow::Hide() {
    FakeFaults::Call();
    ++HideCount;
    Visible = false;
}

MousePointer FakeWindow::Pointer() const {
    return MousePointers.empty() ? MousePointer::Default : MousePointers.back();
}

void FakeWindow::Close(UnloadMode mode) {
    if (Closed) {
        return;
    }
    bool cancel = false;
    if (QueryUnload) {
        QueryUnload(cancel, mode);
    }
    if (!cancel) {
        Closed = true;
        Visible = false;
    }
}
