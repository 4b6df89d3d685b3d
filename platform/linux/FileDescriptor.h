#pragma once

#include <cerrno>
#include <unistd.h>
#include <utility>

/// An open file or folder, closed by its destructor, or the reason why it is not open.
class FileDescriptor {
public:
    FileDescriptor() = default;
    /// Takes what an opening call has just returned: a descriptor, or -1 with the reason in errno.
    explicit FileDescriptor(int result) : m_value(result >= 0 ? result : -errno) {}
    FileDescriptor(FileDescriptor&& other) noexcept
        : m_value(std::exchange(other.m_value, -EBADF)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) {
            Close();
            m_value = std::exchange(other.m_value, -EBADF);
        }
        return *this;
    }
    ~FileDescriptor() { Close(); }

    /// One that is not open, for the reason `error` (an errno value).
    static FileDescriptor Failed(int error) {
        FileDescriptor failed;
        failed.m_value = -error;
        return failed;
    }

    bool IsOpen() const { return m_value >= 0; }
    int Get() const { return m_value; }
    /// Why it is not open (an errno value); 0 while it is open.
    int Error() const { return IsOpen() ? 0 : -m_value; }

    /// Leaves the closing to whoever took the descriptor.
    void Release() { m_value = -EBADF; }

    /// Closes it; returns 0, or the errno value of a failure that the system reports only now.
    int Close() {
        const int value = std::exchange(m_value, -EBADF);
        // A close that a signal interrupts has closed all the same.
        return value >= 0 && ::close(value) != 0 && errno != EINTR ? errno : 0;
    }

private:
    int m_value = -EBADF;
};
