#pragma once

#include "platform/windows/WindowsApi.h"

#include <utility>

/// An open file or folder, closed by its destructor, or the reason why it is not open.
class WindowsHandle {
public:
    WindowsHandle() = default;
    /// Takes what an opening call has just returned: a handle, or INVALID_HANDLE_VALUE with the
    /// reason in GetLastError().
    explicit WindowsHandle(HANDLE result)
        : m_value(result),
          m_error(result != INVALID_HANDLE_VALUE ? ERROR_SUCCESS : GetLastError()) {}
    WindowsHandle(WindowsHandle&& other) noexcept
        : m_value(std::exchange(other.m_value, INVALID_HANDLE_VALUE)),
          m_error(std::exchange(other.m_error, ERROR_INVALID_HANDLE)) {}
    WindowsHandle& operator=(WindowsHandle&& other) noexcept {
        if (this != &other) {
            Close();
            m_value = std::exchange(other.m_value, INVALID_HANDLE_VALUE);
            m_error = std::exchange(other.m_error, ERROR_INVALID_HANDLE);
        }
        return *this;
    }
    ~WindowsHandle() { Close(); }

    /// One that is not open, for that reason.
    static WindowsHandle Failed(DWORD error) {
        WindowsHandle failed;
        failed.m_error = error;
        return failed;
    }

    bool IsOpen() const { return m_value != INVALID_HANDLE_VALUE; }
    HANDLE Get() const { return m_value; }
    /// Why it is not open; ERROR_SUCCESS while it is open.
    DWORD Error() const { return m_error; }

    void Close() {
        if (IsOpen()) {
            CloseHandle(std::exchange(m_value, INVALID_HANDLE_VALUE));
            m_error = ERROR_INVALID_HANDLE;
        }
    }

private:
    HANDLE m_value = INVALID_HANDLE_VALUE;
    DWORD m_error = ERROR_INVALID_HANDLE;
};
