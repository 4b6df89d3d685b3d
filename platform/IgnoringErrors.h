#pragma once

#include <exception>

/// Runs one step of what goes on with the next one whatever fails. A device may vanish at any
/// moment, and the scan for devices and what it leads to do what they can.
template <class Step>
void IgnoringErrors(const Step& step) {
    try {
        step();
    } catch (const std::exception&) {
        return;
    }
}
