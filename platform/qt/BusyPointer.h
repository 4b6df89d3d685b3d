#pragma once

/// The pointer that tells that the program works. It is the whole program's, and is lifted while
/// the user is asked something: an arrow on Qt's stack of pointers would hide those of the
/// question's own boxes, and be taken away in place of the hourglass when work ends meanwhile.
namespace BusyPointer {

/// Work begins, which may be within other work.
void Begin();
/// Work that has begun ends.
void End();

/// Gives the user the usual pointer as long as it lives; work that goes on has its own back then.
class Lifted {
public:
    Lifted();
    ~Lifted();
    Lifted(const Lifted&) = delete;
    Lifted& operator=(const Lifted&) = delete;
};

} // namespace BusyPointer
