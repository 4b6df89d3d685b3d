#pragma once

/// The pointer that shows that the program is busy. It applies to the whole program, and is taken
/// away while the user is asked something. An arrow on top of it, on Qt's stack of pointers, would
/// hide the pointers of the question's own text boxes, and would be removed instead of the
/// hourglass when work ends meanwhile.
namespace BusyPointer {

/// Work begins. Calls may be nested.
void Begin();
/// Work ends.
void End();

/// Shows the usual pointer while it lives; afterwards work that still goes on has its pointer back.
class Lifted {
public:
    Lifted();
    ~Lifted();
    Lifted(const Lifted&) = delete;
    Lifted& operator=(const Lifted&) = delete;
};

} // namespace BusyPointer
