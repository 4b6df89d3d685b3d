#pragma once

#include <cstddef>
#include <functional>

/// A call that the files of platform/linux are about to make to the system. In this test program
/// all of them come by here: the linker puts these in the place of the C library's (--wrap).
struct SystemCall {
    const char* Name;
    /// The open file or folder that it works on, else -1.
    int File = -1;
    /// The name in that folder, or the path; null where there is none.
    const char* Path = nullptr;
    /// Of the calls that open a file.
    int Flags = 0;
    /// Bytes that read and write are asked for. The hook may take some off.
    size_t Size = 0;
    /// The file that is read, of read.
    int Source = -1;
};

/// Sees each call before it is made; returns 0 to let it happen, or the errno value that it fails
/// with. What the hook itself calls passes unseen.
using SystemCallHook = std::function<int(SystemCall&)>;

/// Sets the hook for as long as this lives.
class HookedSystemCalls {
public:
    explicit HookedSystemCalls(SystemCallHook hook);
    HookedSystemCalls(const HookedSystemCalls&) = delete;
    HookedSystemCalls& operator=(const HookedSystemCalls&) = delete;
    ~HookedSystemCalls();
};
